// validate as the host calls it, with the MAAPI socket and transaction of a
// real datastore: the handlers read the candidate through the bound readers.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>
#include <ipapp.h>
#include <velconfd_host.h>

#include <string>

#include "candidate.h"
#include "configuration_xml.h"
#include "host_log.h"
#include "ip_app_valid.h"

namespace {

using namespace plugin_test;

struct Case {
    const char* point;
    uint32_t list_tag;
    std::string candidate;
    const char* error;  // "" when accepted
};

TEST(ValidateOnDatastore, HandlersReadTheCandidateOfTheCallback) {
    const Case cases[] = {
        {"ipv4_addr_validation", ipapp_l3,
         Interfaces(L3("1", L3IPv4("10.0.0.1/24")) + L3("2", L3IPv4("10.0.0.2/16"))),
         "l3 1 vrf global ipv4 address 10.0.0.1/24 overlaps with l3 2 vrf global ipv4 address "
         "10.0.0.2/16."},
        {"static_route_l3_intf_validation", ipapp_l3,
         Interfaces(L3("7", L3IPv4("10.0.0.1/24"))) +
             Routes({IPv6Route("2001:db9::", 32, "fe80::1", "l3-7")}),
         "l3 7 is being used by a static route. Lower-layer-if cannot be removed from this "
         "interface"},
        {"ipv4_addr_validation", ipapp_mgmt,
         Interfaces(Mgmt("0", MgmtIPv4("172.16.0.10/16") + Vrf("mgmt")) +
                    L3("1", L3IPv4("10.0.0.1/24"))),
         ""},
    };
    for (const Case& c : cases) {
        HostLog log;
        Candidate candidate(c.candidate);
        void* context = nullptr;
        ASSERT_EQ(lib_init(&context), 0);
        velconfd_t* host = velconfd_create(nullptr, candidate.confd().maapi_socket());
        velconfd_set_lib_context(host, "ip_app_validation", context);
        confd_trans_ctx* tctx = candidate.confd().tctx();
        tctx->t_opaque = host;
        tctx->vcb_opaque = const_cast<char*>(c.point);
        confd_hkeypath_t keypath{};
        keypath.len = 3;
        CONFD_SET_XMLTAG(&keypath.v[0][0], c.list_tag, 0);
        confd_value_t newval;
        CONFD_SET_XMLTAG(&newval, c.list_tag, 0);

        EXPECT_EQ(validate(tctx, &keypath, &newval), *c.error == '\0' ? 0 : -1) << c.point;
        EXPECT_EQ(candidate.confd().error_text(), c.error) << c.point;

        velconfd_destroy(host);
        lib_finish(&context);
    }
}

}  // namespace
