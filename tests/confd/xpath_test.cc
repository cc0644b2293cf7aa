/* maapi_xpath_eval_expr: results as strings, context paths, errors. */
#include <gtest/gtest.h>

#include <cstdlib>

#include "project_data.h"
#include "test_util.h"

namespace {

// OSPFv3 entries beside the candidate's one (process 2, l3-5, index 1100):
// names that several entries share, the first of them without an index, and
// a name that holds a quote.
std::string MoreOspfv3Entries() {
    using ipapp_generator::Ospfv3Interface;
    return Ospfv3Interface(1, "0.0.0.2", "l3-7", std::nullopt) +
           Ospfv3Interface(1, "0.0.0.1", "l3-7", 1300) +
           Ospfv3Interface(3, "0.0.0.1", "l3-5", 1200) +
           Ospfv3Interface(1, "0.0.0.2", "it's", 1400) +
           Ospfv3Interface(4, "0.0.0.1", "l3-7", 1500);
}

class XPath : public ::testing::Test {
  protected:
    // The result text, or "ERR<errno>".
    std::string eval(const char* expr, const char* context) {
        char* result = reinterpret_cast<char*>(1);
        const int rc = context != nullptr
                           ? maapi_xpath_eval_expr(confd.maapi_socket(), confd.thandle(), expr,
                                                   &result, nullptr, "%s", context)
                           : maapi_xpath_eval_expr(confd.maapi_socket(), confd.thandle(), expr,
                                                   &result, nullptr, nullptr);
        if (rc != CONFD_OK) {
            EXPECT_EQ(result, nullptr);
            return "ERR" + std::to_string(confd_errno);
        }
        std::string text = result;
        std::free(result);
        return text;
    }

    ipapp_test::ConfdFixture confd{"", confd_test::Candidate(MoreOspfv3Entries())};
};

// Expressions that select list entries by a string leaf's value are
// answered from an index of the tree: their rows select several entries,
// entries without the node after the predicate, values that no entry has,
// and shapes near that form that libyang evaluates itself. The results are
// those of libyang's own evaluation of the same expression on the same text.
TEST_F(XPath, NodeSetsGiveTheFirstNodesStringValue) {
    struct Case {
        const char* expr;
        const char* context;
        const char* result;
    } cases[] = {
        {"ospfv3-interface-l3[ospfv3-pm-if-name='l3-5']/ospfv3-pm-if-name", "/internal", "l3-5"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='l3-6']/ospfv3-pm-if-name", "/internal", ""},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='loopback-5']/ospfv3-pm-if-name",
         "/metacli-internal:internal", ""},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='l3-5']/ospfv3-pm-if-index", "/internal", "1100"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='l3-7']/ospfv3-pm-if-index", "/internal", "1300"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='l3-7']/ospfv3-pm-proc-id", "/internal", "1"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='l3-7']", "/internal", "10.0.0.2l3-7"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name=\"it's\"]/ospfv3-pm-if-index", "/internal", "1400"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='L3-7']/ospfv3-pm-if-name", "/internal", ""},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='']/ospfv3-pm-if-name", "/internal", ""},
        {"ospfv3-interface-l3[ospfv3-pm-area-id='0.0.0.2']/ospfv3-pm-if-name", "/internal", "l3-7"},
        {"ospfv3-interface-l3[ospfv3-pm-proc-id='3']/ospfv3-pm-if-name", "/internal", "l3-5"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name = 'l3-7']/ospfv3-pm-if-index", "/internal", "1300"},
        {"ospfv3-interface-l3[ospfv3-pm-if-name='l3-7']/ospfv3-pm-if-index/x", "/internal", ""},
        {"vrf-config/indexTOstring[vname='red']/n", "/internal", "3"},
        {"vrf-config/indexTOstring[vname='blue']/n", "/internal", ""},
        {"ipv4/address/secondary[ip='10.0.3.1/24']/ip", "/config/interface/l3{5}", "10.0.3.1/24"},
        {"ipv4/address/secondary[ip='10.0.3.1/24']/ip", "/config/interface/l3{10}", ""},
        {"ipv6/address[ip='2001:DB8::1/64']", "/config/interface/l3{5}", "2001:DB8::1/64"},
        {"l3[vrf='red']/name", "/config/interface", "5"},
        {"vrf", "/config/interface/l3{5}", "red"},
        {"../l3[name='5']/vrf", "/config/interface/l3{10}", "red"},
        {"/device-config:config/interface/ipapp:l3/name", nullptr, "5"},
        {"ipv6/nd/ra", "/config/interface/l3{5}", "600450"},
        {"nosuch-node", "/internal", ""},
        {"nosuch-node[1]/vrf | nosuch-node", "/internal", ""},
        {"./nosuch-node[name = 'a]b'][2]//*", "/internal", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(eval(c.expr, c.context), c.result) << c.expr;
    }
}

TEST_F(XPath, FailuresLeaveNoResult) {
    const std::string xpath_error = "ERR" + std::to_string(CONFD_ERR_XPATH);
    EXPECT_EQ(eval("ospfv3-interface-l3[", "/internal"), xpath_error);
    EXPECT_EQ(eval("/nosuch:node", "/internal"), xpath_error);
    // Expressions that are no node-set, true or false.
    for (const char* expr : {"count(ospfv3-interface-l3) = 1", "1", ".5", "nosuch-node or 1",
                             "'text'", "-nosuch-node + 2", "1 = 0", "''"}) {
        EXPECT_EQ(eval(expr, "/internal"), xpath_error) << expr;
    }
    EXPECT_EQ(eval("vrf", "/config/interface/l3{77}"), "ERR" + std::to_string(CONFD_ERR_NOEXISTS));
    EXPECT_EQ(eval("vrf", "/config/interface/nosuch"), "ERR" + std::to_string(CONFD_ERR_BADPATH));
    EXPECT_EQ(maapi_xpath_eval_expr(confd.maapi_socket(), confd.thandle(), "vrf", nullptr, nullptr,
                                    "/internal"),
              CONFD_ERR);
}

TEST_F(XPath, TraceSeesTheResult) {
    static std::string traced;
    char* result = nullptr;
    ASSERT_EQ(maapi_xpath_eval_expr(
                  confd.maapi_socket(), confd.thandle(), "vrf", &result,
                  [](char* line) { traced = line; }, "/config/interface/l3{5}"),
              CONFD_OK);
    std::free(result);
    EXPECT_NE(traced.find("\"red\""), std::string::npos) << traced;
}

}  // namespace
