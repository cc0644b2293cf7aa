// l3 names whose key buffer holds a zero byte, which no configuration file
// can carry: this executable stands between the plug-in and libconfd's
// maapi_get_next and turns every '~' of a string key into a zero byte, so the
// rule sees the datastore's keys with zeros inside.
#include "ip_app_valid/confd_api.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <ipapp.h>

#include <string>

#include "config_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"

extern "C" int maapi_get_next(struct maapi_cursor* mc) {
    using GetNext = int (*)(struct maapi_cursor*);
    static const GetNext real_get_next =
        reinterpret_cast<GetNext>(dlsym(RTLD_NEXT, "maapi_get_next"));
    const int result = real_get_next(mc);
    for (int i = 0; i < mc->n; ++i) {
        confd_buf_t& key = mc->keys[i].val.buf;
        if (mc->keys[i].type != C_BUF) {
            continue;
        }
        for (unsigned j = 0; j < key.size; ++j) {
            if (key.ptr[j] == '~') {
                key.ptr[j] = '\0';
            }
        }
    }
    return result;
}

namespace {

TEST(ValidateIntfL3Name, KeyEndsAtItsFirstZeroByte) {
    const std::string name60(60, 'a');
    struct Case {
        const char* key;  // '~' stands for a zero byte
        int32_t result;
        std::string error;
    };
    const Case cases[] = {
        {"Eth1~.bad", 0, ""},
        {"~abc", -1, "L3 interface name  is too short (minimum length: 1 character)"},
        {"a.b~c", -1,
         "L3 interface name a.b contains invalid characters (allowed characters: 0-9, a-z, A-Z, "
         "_, -)"},
    };
    for (const Case& c : cases) {
        plugin_test::DatastoreCall call(
            "", ipapp_generator::Interfaces(ipapp_generator::L3(c.key) +
                                            ipapp_generator::L3(name60 + "~b")));
        EXPECT_EQ(call.Run(validate_intf_l3_name, plugin_test::ListKeypath(ipapp_l3)), c.result)
            << c.key;
        EXPECT_EQ(call.error_text(), c.error) << c.key;
    }
}

}  // namespace
