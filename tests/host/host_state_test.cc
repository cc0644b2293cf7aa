// The per-transaction host state: socket, instance and library contexts.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "velconfd_host.h"

namespace {

struct VelconfdDeleter {
    void operator()(velconfd_t* v) const { velconfd_destroy(v); }
};
using Velconfd = std::unique_ptr<velconfd_t, VelconfdDeleter>;

int context_a;
int context_b;

TEST(HostState, LibContextsByExactCopiedName) {
    Velconfd v(velconfd_create(nullptr, 3));
    Velconfd other(velconfd_create(nullptr, 4));
    char name[] = "ip_app_validation";
    ASSERT_EQ(velconfd_set_lib_context(v.get(), name, &context_a), 0);
    std::memset(name, 'x', sizeof name - 1);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "lib", &context_a), 0);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "lib", &context_b), 0);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "gone", &context_b), 0);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "gone", nullptr), 0);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "never_set", nullptr), 0);
    ASSERT_EQ(velconfd_set_lib_context(other.get(), "other", &context_a), 0);

    const struct {
        const char* name;
        void* context;
    } lookups[] = {
        {"ip_app_validation", &context_a},
        {"lib", &context_b},  // replaced
        {"gone", nullptr},    // removed
        {"ip_app_valid", nullptr},
        {"ip_app_validation_x", nullptr},
        {"IP_APP_VALIDATION", nullptr},
        {name, nullptr},
        {"other", nullptr},  // another transaction's
        {"", nullptr},
        {nullptr, nullptr},
    };
    for (const auto& l : lookups) {
        EXPECT_EQ(get_lib_context(v.get(), l.name), l.context) << (l.name ? l.name : "(null)");
    }
}

// The socket and instance getters are proven wherever the plug-in runs.
TEST(HostState, NullArguments) {
    Velconfd v(velconfd_create(nullptr, 17));
    EXPECT_LT(velconfd_maapi_socket_get(nullptr), 0);
    EXPECT_EQ(velconfd_instance_get(nullptr), nullptr);
    EXPECT_EQ(get_lib_context(nullptr, "lib"), nullptr);
    EXPECT_EQ(velconfd_set_lib_context(nullptr, "lib", &context_a), -1);
    EXPECT_EQ(velconfd_set_lib_context(v.get(), nullptr, &context_a), -1);
    velconfd_destroy(nullptr);
}

}  // namespace
