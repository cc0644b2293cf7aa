/* Loading schemas: validation points, tag hashes, the schema header, errors. */
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>

#include "ipapp_test_support/scratch_directory.h"
#include "test_util.h"

namespace {

std::string module(const std::string& body) {
    return "module m { yang-version 1.1; namespace \"urn:m\"; prefix m;\n"
           "import ipapp-extensions { prefix e; }\n" +
           body + "\n}\n";
}

std::string load_error(const std::filesystem::path& directory) {
    try {
        confdstore::Schema::load(directory);
    } catch (const confdstore::Error& error) {
        return error.what();
    }
    return "";
}

// A directory holding our extension module and the given module m.
std::unique_ptr<ipapp_test::ScratchDirectory> module_dir(const std::string& text) {
    auto dir = std::make_unique<ipapp_test::ScratchDirectory>();
    std::filesystem::copy_file(ipapp_test::yang_dir() + "/ipapp-extensions.yang",
                               dir->path() / "ipapp-extensions.yang");
    std::ofstream(dir->path() / "m.yang") << text;
    return dir;
}

// Nodes in schema order, a node's points as written, with call-once, the
// dependencies and the description on one line.
TEST(ValidationPoints, ReadFromTheExtensionStatements) {
    const auto dir =
        module_dir(module("list l { key k; leaf k { type int8; }\n"
                          "  e:validate \"b\" { e:call-once \"true\"; e:dependency \"/x\";\n"
                          "    description \"two\n      lines\"; }\n"
                          "  e:validate \"a\"; }\n"
                          "leaf x { e:validate \"c\"; type int8; }"));
    std::string points;
    for (const auto& p : confdstore::Schema::load(dir->path()).validation_points()) {
        points += p.name + " " + p.node_path + (p.call_once ? " once" : " each");
        for (const std::string& dependency : p.dependencies) {
            points += " after " + dependency;
        }
        points += " (" + p.description + ");";
    }
    EXPECT_EQ(points, "b /l once after /x (two lines);a /l each ();c /x each ();");
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
        std::string text;
        const char* message;
    } cases[] = {
        {"syntax", "module m { namespace", "m.yang: "},
        {"collision", module("leaf costarring { type int8; } leaf liquid { type int8; }"),
         "tag hash collision between node names"},
        {"conflicting pins",
         module("container a { leaf x { e:id-value \"5\"; type int8; } }"
                "container b { leaf x { e:id-value \"6\"; type int8; } }"),
         "conflicting id-values for node name 'x'"},
        {"bad pin", module("leaf x { e:id-value \"five\"; type int8; }"), "bad id-value 'five'"},
        {"call-once on a leaf",
         module("leaf x { e:validate \"v\" { e:call-once \"true\"; } type int8; }"),
         "call-once is only allowed on lists and leaf-lists"},
        {"unknown dependency",
         module("leaf x { e:validate \"v\" { e:dependency \"/nosuch\"; } type int8; }"),
         "bad dependency '/nosuch'"},
        {"unknown value type", module("leaf x { type string { e:value-type \"ipv7\"; } }"),
         "unknown value-type 'ipv7'"},
    };
    for (const Case& c : cases) {
        const std::string error = load_error(module_dir(c.text)->path());
        EXPECT_NE(error.find(c.message), std::string::npos) << c.name << ": " << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << c.name << ": " << error;
    }
    EXPECT_NE(load_error("/nonexistent/yang").find("/nonexistent/yang: cannot read"),
              std::string::npos);
    const ipapp_test::ScratchDirectory empty;
    EXPECT_NE(load_error(empty.path()).find("no YANG modules"), std::string::npos);
}

}  // namespace
