#include "nettypes/ip_addr.h"

namespace nettypes {

std::ostream& operator<<(std::ostream& out, const IPAddr& addr) {
    return out << addr.to_string();
}

}  // namespace nettypes
