// All address value types.
#ifndef NETTYPES_NETTYPES_H
#define NETTYPES_NETTYPES_H

#include "nettypes/ip_addr.h"
#include "nettypes/ip_addr_mask.h"
#include "nettypes/ipv4_addr.h"
#include "nettypes/ipv4_addr_mask.h"
#include "nettypes/ipv6_addr.h"
#include "nettypes/ipv6_addr_mask.h"

#endif  // NETTYPES_NETTYPES_H
