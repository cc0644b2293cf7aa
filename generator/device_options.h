// The command line of ipapp-generate-config's device mode:
//   --device=FILE [--scale=N] [--l3=N] [--loopbacks=N] [--mgmt=0|1]
//   [--ipv4-routes=N] [--ipv6-routes=N] [--ospfv2=0|1]
// The shape starts empty; --scale=N makes it N times the device at its
// limits, and the options after it change single parts.
#ifndef IPAPP_GENERATOR_DEVICE_OPTIONS_H
#define IPAPP_GENERATOR_DEVICE_OPTIONS_H

#include <string>
#include <vector>

#include "device_generator.h"

namespace ipapp_generator {

struct DeviceRequest {
    std::string file;
    DeviceShape shape;
};

// Throws std::invalid_argument naming the option that is wrong.
DeviceRequest ParseDeviceOptions(const std::vector<std::string>& arguments);

}  // namespace ipapp_generator

#endif
