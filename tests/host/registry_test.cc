// The per-transaction host state: socket, instance and library contexts.
#include <gtest/gtest.h>

#include <netinet/in.h>

#include <cstring>
#include <memory>

#include "velconfd_host.h"
#include "velconfd_interface.h"

namespace {

struct VelconfdDeleter {
    void operator()(velconfd_t* v) const { velconfd_destroy(v); }
};
using Velconfd = std::unique_ptr<velconfd_t, VelconfdDeleter>;

Velconfd make_velconfd(VelConfdInterface* instance = nullptr, int maapi_sock = 3) {
    return Velconfd(velconfd_create(instance, maapi_sock));
}

int context_a;
int context_b;

TEST(LibContextRegistry, LooksContextsUpByName) {
    Velconfd v = make_velconfd();
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "ip_app_validation", &context_a), 0);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "other_lib", &context_b), 0);

    const struct {
        const char* name;
        void* context;
    } lookups[] = {
        {"ip_app_validation", &context_a},
        {"other_lib", &context_b},
        {"ip_app_valid", nullptr},         // a prefix is another name
        {"ip_app_validation_x", nullptr},  // so is an extension
        {"IP_APP_VALIDATION", nullptr},    // names are case-sensitive
        {"", nullptr},
        {nullptr, nullptr},
    };
    for (const auto& l : lookups) {
        EXPECT_EQ(get_lib_context(v.get(), l.name), l.context) << (l.name ? l.name : "(null)");
    }
}

TEST(LibContextRegistry, CopiesTheName) {
    Velconfd v = make_velconfd();
    char name[] = "ip_app_validation";
    ASSERT_EQ(velconfd_set_lib_context(v.get(), name, &context_a), 0);
    std::memset(name, 'x', sizeof name - 1);
    EXPECT_EQ(get_lib_context(v.get(), "ip_app_validation"), &context_a);
    EXPECT_EQ(get_lib_context(v.get(), name), nullptr);
}

TEST(LibContextRegistry, ReplacesAndRemoves) {
    Velconfd v = make_velconfd();
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "lib", &context_a), 0);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "lib", &context_b), 0);
    EXPECT_EQ(get_lib_context(v.get(), "lib"), &context_b);
    ASSERT_EQ(velconfd_set_lib_context(v.get(), "lib", nullptr), 0);
    EXPECT_EQ(get_lib_context(v.get(), "lib"), nullptr);
    EXPECT_EQ(velconfd_set_lib_context(v.get(), "never_set", nullptr), 0);
}

TEST(LibContextRegistry, TransactionsDoNotShareContexts) {
    Velconfd first = make_velconfd();
    Velconfd second = make_velconfd();
    ASSERT_EQ(velconfd_set_lib_context(first.get(), "lib", &context_a), 0);
    EXPECT_EQ(get_lib_context(second.get(), "lib"), nullptr);
}

TEST(LibContextRegistry, RefusesNullArguments) {
    Velconfd v = make_velconfd();
    EXPECT_EQ(velconfd_set_lib_context(nullptr, "lib", &context_a), -1);
    EXPECT_EQ(velconfd_set_lib_context(v.get(), nullptr, &context_a), -1);
    EXPECT_EQ(get_lib_context(nullptr, "lib"), nullptr);
    velconfd_destroy(nullptr);
}

TEST(HostState, GivesBackSocketAndInstance) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    VelConfdInterface instance(address);
    const struct {
        VelConfdInterface* instance;
        int maapi_sock;
    } cases[] = {{&instance, 0}, {&instance, 17}, {nullptr, -1}, {nullptr, 1024}};
    for (const auto& c : cases) {
        Velconfd v = make_velconfd(c.instance, c.maapi_sock);
        EXPECT_EQ(velconfd_maapi_socket_get(v.get()), c.maapi_sock);
        EXPECT_EQ(velconfd_instance_get(v.get()), c.instance);
    }
    EXPECT_LT(velconfd_maapi_socket_get(nullptr), 0);
    EXPECT_EQ(velconfd_instance_get(nullptr), nullptr);
}

}  // namespace
