/* Configurations of the project's model used by several tests. */
#ifndef CONFD_TESTS_PROJECT_DATA_H
#define CONFD_TESTS_PROJECT_DATA_H

namespace confd_test {

// Interfaces l3 5 (full), 10 and 2 (in that order in the text), two static
// routes, the internal tables.
constexpr const char* kCandidate = R"(
<config xmlns="urn:ipapp:yang:device-config">
  <interface>
    <l3 xmlns="urn:ipapp:yang:ipapp">
      <name>5</name>
      <vrf>red</vrf>
      <ipv4><address>
        <ip>10.1.2.3/24</ip>
        <secondary><ip>10.1.3.1/24</ip></secondary>
        <secondary><ip>10.0.3.1/24</ip></secondary>
      </address></ipv4>
      <ipv6>
        <address><ip>2001:DB8::1/64</ip></address>
        <nd><ra><max-interval>600</max-interval><min-interval>450</min-interval></ra></nd>
      </ipv6>
      <lower-layer-if><vlan>100</vlan></lower-layer-if>
    </l3>
    <l3 xmlns="urn:ipapp:yang:ipapp"><name>10</name></l3>
    <l3 xmlns="urn:ipapp:yang:ipapp"><name>2</name></l3>
  </interface>
</config>
<DC-RTM-MIB xmlns="urn:ipapp:yang:DC-RTM-MIB">
  <rtmStaticRtTable>
    <rtmStaticRtEntry>
      <rtmStaticRtVrfCmpntId>0</rtmStaticRtVrfCmpntId>
      <rtmStaticRtDestAddrType>ipv6</rtmStaticRtDestAddrType>
      <rtmStaticRtDestAddr>20:01:0d:b8:00:00:00:00:00:00:00:00:00:00:00:00</rtmStaticRtDestAddr>
      <rtmStaticRtDestPrefixLen>32</rtmStaticRtDestPrefixLen>
      <rtmStaticRtFteIndex>2</rtmStaticRtFteIndex>
      <rtmStaticRtNextHop>20:01:0d:b8:00:00:00:00:00:00:00:00:00:00:00:02</rtmStaticRtNextHop>
    </rtmStaticRtEntry>
    <rtmStaticRtEntry>
      <rtmStaticRtVrfCmpntId>0</rtmStaticRtVrfCmpntId>
      <rtmStaticRtDestAddrType>ipv4</rtmStaticRtDestAddrType>
      <rtmStaticRtDestAddr>0a:00:00:00</rtmStaticRtDestAddr>
      <rtmStaticRtDestPrefixLen>8</rtmStaticRtDestPrefixLen>
      <rtmStaticRtFteIndex>1</rtmStaticRtFteIndex>
      <rtmStaticRtNextHop>0A:01:02:FE</rtmStaticRtNextHop>
      <rtmStaticRtPreference>5</rtmStaticRtPreference>
    </rtmStaticRtEntry>
  </rtmStaticRtTable>
</DC-RTM-MIB>
<rtmStaticRtEntry-global xmlns="urn:ipapp:yang:DC-RTM-MIB">
  <index>1</index>
  <destination>0a:00:00:00</destination>
  <prefix-len>8</prefix-len>
  <next-hop>0a:01:02:fe</next-hop>
  <interface-name>l3-5</interface-name>
</rtmStaticRtEntry-global>
<internal xmlns="urn:ipapp:yang:metacli-internal">
  <ospf-interface-l3>
    <ospf-pm-compound-id>7</ospf-pm-compound-id>
    <ospf-pm-area-id>0.0.0.1</ospf-pm-area-id>
    <ospf-pm-if-name>l3-5</ospf-pm-if-name>
    <ospf-pm-ip-addr>10.1.2.3</ospf-pm-ip-addr>
    <ospf-pm-ip-netmask>24</ospf-pm-ip-netmask>
  </ospf-interface-l3>
  <ospf-index-to-proc-id>
    <ospf-pm-compound-id>7</ospf-pm-compound-id>
    <proc_id>2</proc_id>
    <vrf_name>red</vrf_name>
  </ospf-index-to-proc-id>
  <ospfv3-interface-l3>
    <ospfv3-pm-proc-id>2</ospfv3-pm-proc-id>
    <ospfv3-pm-area-id>0.0.0.1</ospfv3-pm-area-id>
    <ospfv3-pm-if-name>l3-5</ospfv3-pm-if-name>
    <ospfv3-pm-if-index>1100</ospfv3-pm-if-index>
  </ospfv3-interface-l3>
  <vrf-config>
    <indexTOstring><n>3</n><vname>red</vname></indexTOstring>
  </vrf-config>
</internal>
)";

}  // namespace confd_test

#endif
