#include "ipapp_test_support/confd_fixture.h"

#include <arpa/inet.h>
#include <unistd.h>

#include <atomic>
#include <stdexcept>

namespace ipapp_test {
namespace {

// Each fixture gets its own port on the loopback address; nothing listens
// there, the address only names the datastore inside this process.
sockaddr_in unique_address() {
    static std::atomic<int> next_port{20000};
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(next_port++ % 65536));
    return address;
}

void check(int result, const char* call) {
    if (result < 0) {
        throw std::runtime_error(std::string(call) + " failed: " + confd_lasterr());
    }
}

}  // namespace

std::string yang_dir() {
    return IPAPP_YANG_DIR;
}

const confdstore::Schema& project_schema() {
    static const confdstore::Schema schema = confdstore::Schema::load(yang_dir());
    return schema;
}

ConfdFixture::ConfdFixture(const std::string& running_xml, const std::string& candidate_xml)
    : ConfdFixture(project_schema(), running_xml, candidate_xml) {}

ConfdFixture::ConfdFixture(const confdstore::Schema& schema, const std::string& running_xml,
                           const std::string& candidate_xml)
    : datastore_(schema), address_(unique_address()) {
    datastore_.set_running(running_xml, confdstore::DataFormat::xml, "running");
    datastore_.set_candidate(candidate_xml, confdstore::DataFormat::xml, "candidate");
    registration_ = datastore_.serve(address(), address_length());
    maapi_socket_ = socket(PF_INET, SOCK_STREAM, 0);
    check(maapi_socket_, "socket");
    try {
        check(maapi_connect(maapi_socket_, address(), static_cast<int>(address_length())),
              "maapi_connect");
        tctx_.thandle = maapi_start_trans(maapi_socket_, CONFD_CANDIDATE, CONFD_READ);
        check(tctx_.thandle, "maapi_start_trans");
    } catch (...) {
        close(maapi_socket_);
        throw;
    }
    tctx_.dbname = CONFD_CANDIDATE;
    tctx_.mode = CONFD_READ;
}

ConfdFixture::~ConfdFixture() {
    confd_trans_clear_err(&tctx_);
    if (maapi_close(maapi_socket_) != CONFD_OK && maapi_socket_ >= 0) {
        close(maapi_socket_);
    }
}

const struct sockaddr* ConfdFixture::address() const {
    return reinterpret_cast<const sockaddr*>(&address_);
}

std::string ConfdFixture::error_text() const {
    return tctx_.error.str != nullptr ? tctx_.error.str : "";
}

}  // namespace ipapp_test
