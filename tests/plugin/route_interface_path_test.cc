// The path by which the route reader looks up a route's output interface,
// as it reaches libconfd: this executable stands between the plug-in and
// maapi_exists and records the paths asked, since the datastore also finds
// the entry by a path written without the blanks inside the braces.
#include "ip_app_valid/confd_api.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "config_xml.h"
#include "datastore_call.h"

namespace {

std::vector<std::string> paths_asked;

}  // namespace

extern "C" int maapi_exists(int sock, int thandle, const char* fmt, ...) {
    using Exists = int (*)(int, int, const char*, ...);
    static const Exists real_exists = reinterpret_cast<Exists>(dlsym(RTLD_NEXT, "maapi_exists"));
    char path[1024];
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(path, sizeof path, fmt, args);
    va_end(args);
    paths_asked.push_back(path);
    return real_exists(sock, thandle, "%s", path);
}

namespace {

TEST(StaticRouteReader, LooksUpTheOutputInterfaceWithBlanksInsideTheBraces) {
    plugin_test::DatastoreCall call(
        "", ipapp_generator::Routes({{"ipv4", "10.0.0.0", 8, "10.0.0.1", "l3-7"}}));
    call.config().static_route_config.ReadConfigIfNeeded(
        ip_application::config_valid::ConfigAddrFamily::IPv4);
    const std::string path =
        "/rtmStaticRtEntry-global{ 1 0a:00:00:00 8 0a:00:00:01 }/interface-name";
    EXPECT_EQ(std::count(paths_asked.begin(), paths_asked.end(), path), 1);
    EXPECT_EQ(call.config().static_route_config.ipv4_routes().front()->output_intf(), "l3 7");
}

}  // namespace
