#include "nettypes/ip_addr_mask.h"

namespace nettypes {

std::string IPAddrMask::JoinPrefixLen(const IPAddr& addr, unsigned prefix_len) {
    return addr.to_string() + '/' + std::to_string(prefix_len);
}

std::ostream& operator<<(std::ostream& out, const IPAddrMask& value) {
    return out << value.to_string();
}

}  // namespace nettypes
