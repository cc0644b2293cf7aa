/* Loading schemas: validation points, tag hashes, the schema header, errors. */
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "test_util.h"

namespace {

// A temporary directory of YANG modules, removed afterwards.
class ModuleDir {
  public:
    ModuleDir() {
        char pattern[] = "/tmp/confd-schema-XXXXXX";
        path_ = mkdtemp(pattern);
    }
    ~ModuleDir() {
        for (const auto& file : files_) {
            unlink(file.c_str());
        }
        rmdir(path_.c_str());
    }
    ModuleDir(const ModuleDir&) = delete;
    ModuleDir& operator=(const ModuleDir&) = delete;

    void add(const std::string& name, const std::string& text) {
        files_.push_back(path_ + "/" + name);
        std::ofstream(files_.back()) << text;
    }
    // Our extension module, copied from the project's model.
    void add_extensions() {
        std::ifstream in(ipapp_test::yang_dir() + "/ipapp-extensions.yang");
        std::ostringstream text;
        text << in.rdbuf();
        add("ipapp-extensions.yang", text.str());
    }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
    std::vector<std::string> files_;
};

std::string module(const std::string& body) {
    return "module m { yang-version 1.1; namespace \"urn:m\"; prefix m;\n"
           "import ipapp-extensions { prefix e; }\n" +
           body + "\n}\n";
}

std::string load_error(const std::string& directory) {
    try {
        confdstore::Schema::load(directory);
    } catch (const confdstore::Error& error) {
        return error.what();
    }
    return "";
}

TEST(ValidationPoints, AsTheModelDeclaresThem) {
    struct Expected {
        const char* node;
        bool call_once;
        std::vector<std::string> names;
    } expected[] = {
        {"/config/interface/l3",
         true,
         {"intf_l3_name_validation", "intf_vrf_validation", "ipv4_addr_validation",
          "ipv4_addr_prot_cross_validation", "ipv6_addr_validation",
          "static_route_l3_intf_validation"}},
        {"/config/interface/loopback",
         true,
         {"intf_vrf_validation", "ipv4_addr_validation", "ipv4_addr_prot_cross_validation",
          "ipv6_addr_validation"}},
        {"/config/interface/mgmt", true, {"ipv4_addr_validation", "ipv6_addr_validation"}},
        {"/config/interface/l3/ipv6/nd/ra",
         false,
         {"validate_ipv6_nd_ra_interval", "validate_ipv6_nd_ra_lifetime"}},
        {"/config/interface/mgmt/ipv6/nd/ra",
         false,
         {"validate_ipv6_nd_ra_interval", "validate_ipv6_nd_ra_lifetime"}},
        {"/config/interface/l3/lower-layer-if", false, {"lower_layer_prot_cross_validation"}},
        {"/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry",
         true,
         {"ipv4_addr_route_validation", "ipv6_addr_route_validation"}},
    };
    const auto points = ipapp_test::project_schema().validation_points();
    size_t total = 0;
    for (const Expected& e : expected) {
        std::vector<std::string> names;
        for (const auto& p : points) {
            if (p.node_path == e.node) {
                names.push_back(p.name);
                EXPECT_EQ(p.call_once, e.call_once) << p.name << " on " << p.node_path;
                EXPECT_FALSE(p.description.empty()) << p.name;
                EXPECT_EQ(p.description.find('\n'), std::string::npos) << p.name;
            }
        }
        EXPECT_EQ(names, e.names) << e.node;
        total += names.size();
    }
    EXPECT_EQ(total, points.size());
}

TEST(ValidationPoints, DependenciesAreKept) {
    for (const auto& p : ipapp_test::project_schema().validation_points()) {
        if (p.name == "intf_vrf_validation") {
            EXPECT_EQ(p.dependencies,
                      (std::vector<std::string>{"/internal/ospf-interface-l3",
                                                "/internal/ospf-index-to-proc-id"}));
            EXPECT_EQ(p.dependency_nodes.size(), 2u);
        }
        if (p.node_path == "/config/interface/mgmt") {
            EXPECT_TRUE(p.dependencies.empty()) << p.name;
        }
    }
}

TEST(TagHashes, FixedOnesArePinnedAndOthersStable) {
    ipapp_test::project_schema();  // the hashes are known once a schema is loaded
    EXPECT_EQ(confd_str2hash("l3"), 0x213f1a7au);
    EXPECT_EQ(confd_str2hash("loopback"), 0x1472ccedu);
    EXPECT_EQ(confd_str2hash("mgmt"), 0x1412343fu);
    EXPECT_EQ(confd_str2hash("vrf"), 0x4c5f3e78u);
    EXPECT_STREQ(confd_hash2str(0x213f1a7a), "l3");
    EXPECT_LT(confd_str2hash("ospfv3-pm-if-name"), 0x80000000u);
    EXPECT_NE(confd_str2hash("ospfv3-pm-if-name"), 0u);
    EXPECT_EQ(confd_str2hash("no-such-node-name"), 0u);
    EXPECT_EQ(confd_hash2str(1), nullptr);
}

// The committed header is what the loaded model gives: every define, and
// nothing stale.
TEST(SchemaHeader, MatchesTheModel) {
    std::ifstream in(ipapp_test::yang_dir() + "/include/ipapp.h");
    std::ostringstream committed;
    committed << in.rdbuf();
    EXPECT_EQ(committed.str(), ipapp_test::project_schema().header("ipapp", "ipapp"))
        << "regenerate with: confd-emit-header yang ipapp ipapp > yang/include/ipapp.h";
}

TEST(SchemaErrors, OneLineNamingTheProblem) {
    struct Case {
        const char* name;
        std::string file;
        std::string text;
        const char* message;
    } cases[] = {
        {"syntax", "m.yang", "module m { namespace", "m.yang: "},
        {"collision", "m.yang", module("leaf costarring { type int8; } leaf liquid { type int8; }"),
         "tag hash collision between node names"},
        {"conflicting pins", "m.yang",
         module("container a { leaf x { e:id-value \"5\"; type int8; } }"
                "container b { leaf x { e:id-value \"6\"; type int8; } }"),
         "conflicting id-values for node name 'x'"},
        {"bad pin", "m.yang", module("leaf x { e:id-value \"five\"; type int8; }"),
         "bad id-value 'five'"},
        {"call-once on a leaf", "m.yang",
         module("leaf x { e:validate \"v\" { e:call-once \"true\"; } type int8; }"),
         "call-once is only allowed on lists"},
        {"unknown dependency", "m.yang",
         module("leaf x { e:validate \"v\" { e:dependency \"/nosuch\"; } type int8; }"),
         "bad dependency '/nosuch'"},
        {"unknown value type", "m.yang",
         module("leaf x { type string { e:value-type \"ipv7\"; } }"), "unknown value-type 'ipv7'"},
    };
    for (const Case& c : cases) {
        ModuleDir dir;
        dir.add_extensions();
        dir.add(c.file, c.text);
        const std::string error = load_error(dir.path());
        EXPECT_NE(error.find(c.message), std::string::npos) << c.name << ": " << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << c.name << ": " << error;
    }
    EXPECT_NE(load_error("/nonexistent/yang").find("/nonexistent/yang: cannot read"),
              std::string::npos);
    ModuleDir empty;
    EXPECT_NE(load_error(empty.path()).find("no YANG modules"), std::string::npos);
}

}  // namespace
