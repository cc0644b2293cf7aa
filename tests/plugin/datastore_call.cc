#include "datastore_call.h"

#include <confd_fault_injection.h>
#include <ipapp.h>
#include <velconfd_host.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "ipapp_test_support/scratch_directory.h"

namespace plugin_test {

namespace {

const sockaddr_in& AgentAddress(const ipapp_test::ConfdFixture& confd) {
    return *reinterpret_cast<const sockaddr_in*>(confd.address());
}

}  // namespace

confd_hkeypath_t ListKeypath(u_int32_t list_tag) {
    // Tags only: the copy holds no buffer of the keypath it was taken from.
    static const confdstore::Datastore datastore(ipapp_test::project_schema());
    confd_hkeypath_t keypath = datastore.keypath("/config/interface/l3").get();
    CONFD_SET_XMLTAG(&keypath.v[0][0], list_tag, 0);
    return keypath;
}

confdstore::Schema SchemaOf(const std::string& module_name, const std::string& yang) {
    const ipapp_test::ScratchDirectory scratch;
    const std::filesystem::path& directory = scratch.path();
    for (const char* types_module : {"ipapp-extensions.yang", "ipapp-types.yang"}) {
        std::filesystem::copy_file(std::filesystem::path(ipapp_test::yang_dir()) / types_module,
                                   directory / types_module);
    }
    std::ofstream(directory / (module_name + ".yang")) << yang;
    return confdstore::Schema::load(directory.string());
}

DatastoreCall::DatastoreCall(const std::string& running_xml, const std::string& candidate_xml)
    : DatastoreCall(ipapp_test::project_schema(), running_xml, candidate_xml) {}

DatastoreCall::DatastoreCall(const confdstore::Schema& schema, const std::string& running_xml,
                             const std::string& candidate_xml)
    : confd_(schema, running_xml, candidate_xml),
      instance_(AgentAddress(confd_)),
      host_(velconfd_create(&instance_, confd_.maapi_socket())) {
    if (host_ == nullptr) {
        throw std::runtime_error("velconfd_create: out of memory");
    }
    confdstore::fault_injection::reset();
    confd_.tctx()->t_opaque = host_;
    config_.Bind(confd_.maapi_socket(), confd_.tctx());
}

DatastoreCall::~DatastoreCall() {
    confdstore::fault_injection::reset();
    velconfd_destroy(host_);
}

int32_t DatastoreCall::Run(ValidationHandler* handler, confd_hkeypath_t keypath) {
    confd_value_t newval = keypath.v[0][0];
    return handler(confd_.maapi_socket(), confd_.tctx(), &keypath, &newval, config_);
}

int32_t DatastoreCall::RunOnLowerLayer(ValidationHandler* handler, const std::string& name) {
    const confd_hkeypath_t list = ListKeypath(ipapp_l3);
    confd_hkeypath_t keypath{};
    keypath.len = 5;
    CONFD_SET_XMLTAG(&keypath.v[0][0], ipapp_lower_layer_if, 0);
    CONFD_SET_CBUF(&keypath.v[1][0], name.data(), name.size());
    for (int i = 0; i < list.len; ++i) {
        keypath.v[2 + i][0] = list.v[i][0];
    }
    return Run(handler, keypath);
}

void DatastoreCall::Change(const std::string& candidate_xml) {
    confd_.datastore().set_candidate(candidate_xml, confdstore::DataFormat::xml, "candidate");
    confd_.tctx()->thandle = maapi_start_trans(confd_.maapi_socket(), CONFD_CANDIDATE, CONFD_READ);
}

}  // namespace plugin_test
