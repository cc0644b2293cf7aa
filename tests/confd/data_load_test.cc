/* Loading configurations: XML and JSON files, and every kind of bad input. */
#include <gtest/gtest.h>

#include <filesystem>

#include "config_xml.h"
#include "ipapp_test_support/scratch_directory.h"
#include "test_util.h"

namespace {

using ipapp_generator::Element;
using ipapp_generator::Interfaces;
using ipapp_generator::L3;

std::string load_error(const std::string& file) {
    confdstore::Datastore store(ipapp_test::project_schema());
    try {
        store.load_candidate(file);
    } catch (const confdstore::Error& error) {
        return error.what();
    }
    return "";
}

TEST(DataLoad, XmlAndJsonFilesLoad) {
    const ipapp_test::ScratchDirectory dir;
    ipapp_test::ConfdFixture confd("", "");
    confd.datastore().load_running(confd_test::write_file(
        dir.path() / "running.xml",
        ipapp_generator::Interfaces(ipapp_generator::L3("5", ipapp_generator::Vrf("red")))));
    confd.datastore().load_candidate(confd_test::write_file(
        dir.path() / "candidate.json",
        R"({"device-config:config":{"interface":{"ipapp:l3":[{"name":"5","vrf":"blue"}]}}})"));
    const int th = maapi_start_trans(confd.maapi_socket(), CONFD_CANDIDATE, CONFD_READ);
    char vrf[16];
    ASSERT_EQ(maapi_get_str_elem(confd.maapi_socket(), th, vrf, sizeof vrf,
                                 "/config/interface/l3{5}/vrf"),
              CONFD_OK);
    EXPECT_STREQ(vrf, "blue");
    const int cdb = socket(PF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(cdb_connect(cdb, CDB_READ_SOCKET, confd.address(), confd.address_length()), CONFD_OK);
    ASSERT_EQ(cdb_start_session(cdb, CDB_RUNNING), CONFD_OK);
    EXPECT_EQ(cdb_exists(cdb, "/config/interface/l3{5}/vrf"), 1);
    cdb_close(cdb);
}

TEST(DataLoad, BadInputIsOneLineNamingTheFile) {
    struct Case {
        const char* name;
        const char* suffix;
        std::string text;
        const char* message;
    } cases[] = {
        {"malformed XML", ".xml", "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>", ""},
        {"malformed JSON", ".json", "{\"device-config:config\": {", ""},
        {"unknown element", ".xml",
         "<config xmlns=\"urn:ipapp:yang:device-config\"><nosuch/></config>", "nosuch"},
        {"value of the wrong type", ".xml",
         Interfaces(L3("5", Element("lower-layer-if", Element("vlan", "many")))), "many"},
        {"address keeping host bits but out of range", ".xml",
         Interfaces(L3("5", ipapp_generator::IPv4("10.1.2.3/33"))), "10.1.2.3/33"},
        {"missing key", ".xml", Interfaces(R"(<l3 xmlns="urn:ipapp:yang:ipapp"><vrf>x</vrf></l3>)"),
         "key"},
        {"unknown format", ".txt", "anything", "unknown data format"},
    };
    const ipapp_test::ScratchDirectory dir;
    for (const Case& c : cases) {
        const std::string file =
            confd_test::write_file(dir.path() / (c.name + std::string(c.suffix)), c.text);
        const std::string error = load_error(file);
        EXPECT_EQ(error.rfind(file + ": ", 0), 0u) << c.name << ": " << error;
        EXPECT_NE(error.find(c.message), std::string::npos) << c.name << ": " << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << c.name << ": " << error;
    }
    EXPECT_EQ(load_error("/nonexistent/candidate.xml"),
              "/nonexistent/candidate.xml: cannot read: No such file or directory");
    const std::string directory = (dir.path() / "directory.xml").string();
    std::filesystem::create_directory(directory);
    EXPECT_EQ(load_error(directory), directory + ": cannot read: Is a directory");
}

}  // namespace
