/* Loading configurations: XML and JSON files, and every kind of bad input. */
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "test_util.h"

namespace {

class DataFile {
  public:
    DataFile(const std::string& suffix, const std::string& text)
        : path_("/tmp/confd-data-" + std::to_string(getpid()) + "-" + std::to_string(counter_++) +
                suffix) {
        std::ofstream(path_) << text;
    }
    ~DataFile() { unlink(path_.c_str()); }
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;
    const std::string& path() const { return path_; }

  private:
    static inline int counter_ = 0;
    std::string path_;
};

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
    DataFile xml(".xml",
                 "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>"
                 "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>5</name><vrf>red</vrf></l3>"
                 "</interface></config>");
    DataFile json(
        ".json",
        R"({"device-config:config":{"interface":{"ipapp:l3":[{"name":"5","vrf":"blue"}]}}})");
    ipapp_test::ConfdFixture confd("", "");
    confd.datastore().load_running(xml.path());
    confd.datastore().load_candidate(json.path());
    const int th = maapi_start_trans(confd.maapi_socket(), CONFD_CANDIDATE, CONFD_READ);
    char vrf[16];
    ASSERT_EQ(maapi_get_str_elem(confd.maapi_socket(), th, vrf, sizeof vrf,
                                 "/config/interface/l3{5}/vrf"),
              CONFD_OK);
    EXPECT_STREQ(vrf, "blue");
    EXPECT_EQ(confd.datastore().changes().size(), 2u);  // the entry is modified, its vrf set
}

TEST(DataLoad, BadInputIsOneLineNamingTheFile) {
    struct Case {
        const char* name;
        const char* suffix;
        const char* text;
        const char* message;
    } cases[] = {
        {"malformed XML", ".xml", "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>", ""},
        {"malformed JSON", ".json", "{\"device-config:config\": {", ""},
        {"unknown element", ".xml",
         "<config xmlns=\"urn:ipapp:yang:device-config\"><nosuch/></config>", "nosuch"},
        {"value of the wrong type", ".xml",
         "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>"
         "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>5</name>"
         "<lower-layer-if><vlan>many</vlan></lower-layer-if></l3></interface></config>",
         "many"},
        {"address keeping host bits but out of range", ".xml",
         "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>"
         "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>5</name><ipv4><address>"
         "<ip>10.1.2.3/33</ip></address></ipv4></l3></interface></config>",
         "10.1.2.3/33"},
        {"missing key", ".xml",
         "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>"
         "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><vrf>x</vrf></l3></interface></config>",
         "key"},
        {"unknown format", ".txt", "anything", "unknown data format"},
    };
    for (const Case& c : cases) {
        DataFile file(c.suffix, c.text);
        const std::string error = load_error(file.path());
        EXPECT_EQ(error.rfind(file.path() + ": ", 0), 0u) << c.name << ": " << error;
        EXPECT_NE(error.find(c.message), std::string::npos) << c.name << ": " << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << c.name << ": " << error;
    }
    EXPECT_EQ(load_error("/nonexistent/candidate.xml"),
              "/nonexistent/candidate.xml: cannot read: No such file or directory");
    const std::string directory = "/tmp/confd-data-dir-" + std::to_string(getpid()) + ".xml";
    ASSERT_EQ(mkdir(directory.c_str(), 0700), 0);
    EXPECT_EQ(load_error(directory), directory + ": cannot read: Is a directory");
    rmdir(directory.c_str());
}

TEST(DataLoad, TheModelRefusesNothingThePlugInChecks) {
    std::string many;
    for (int i = 0; i < 300; ++i) {
        many += "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>" + std::to_string(i) + "</name></l3>";
    }
    const std::string long_name(61, 'x');
    const std::string text =
        "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>" + many +
        "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>" + long_name +
        "</name></l3>"
        "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>eth.1 x</name><ipv6><nd><ra>"
        "<max-interval>4</max-interval><min-interval>5</min-interval><lifetime>1</lifetime>"
        "</ra></nd></ipv6></l3></interface></config>";
    ipapp_test::ConfdFixture confd("", text);
    EXPECT_EQ(maapi_num_instances(confd.maapi_socket(), confd.thandle(), "/config/interface/l3"),
              302);
}

}  // namespace
