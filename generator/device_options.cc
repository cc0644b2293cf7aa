#include "device_options.h"

#include <map>
#include <stdexcept>

namespace ipapp_generator {
namespace {

// A whole decimal number, at most most (what the address plan holds).
size_t Count(const std::string& option, const std::string& text, size_t most) {
    const bool digits = !text.empty() && text.size() <= 7 &&
                        text.find_first_not_of("0123456789") == std::string::npos;
    if (!digits || std::stoul(text) > most) {
        throw std::invalid_argument(option + " takes a number from 0 to " + std::to_string(most) +
                                    ", not '" + text + "'");
    }
    return std::stoul(text);
}

bool Switch(const std::string& option, const std::string& text) {
    if (text != "0" && text != "1") {
        throw std::invalid_argument(option + " takes 0 or 1, not '" + text + "'");
    }
    return text == "1";
}

const std::map<std::string, size_t DeviceShape::*> kCounts = {
    {"--l3", &DeviceShape::l3},
    {"--loopbacks", &DeviceShape::loopbacks},
    {"--ipv4-routes", &DeviceShape::ipv4_routes},
    {"--ipv6-routes", &DeviceShape::ipv6_routes},
};

const std::map<std::string, bool DeviceShape::*> kSwitches = {
    {"--mgmt", &DeviceShape::mgmt},
    {"--ospfv2", &DeviceShape::ospfv2},
};

void Apply(DeviceRequest& request, const std::string& option, const std::string& value) {
    if (option == "--device") {
        request.file = value;
    } else if (option == "--scale") {
        request.shape = ScaledDevice(Count(option, value, kMostOfAKind));
    } else if (kCounts.count(option) != 0) {
        request.shape.*kCounts.at(option) =
            Count(option, value, option == "--l3" ? kMostL3 : kMostOfAKind);
    } else if (kSwitches.count(option) != 0) {
        request.shape.*kSwitches.at(option) = Switch(option, value);
    } else {
        throw std::invalid_argument("unknown option '" + option + "'");
    }
}

}  // namespace

DeviceRequest ParseDeviceOptions(const std::vector<std::string>& arguments) {
    DeviceRequest request;
    for (const std::string& argument : arguments) {
        const size_t equals = argument.find('=');
        if (equals == std::string::npos) {
            throw std::invalid_argument("'" + argument + "': options are written --name=value");
        }
        Apply(request, argument.substr(0, equals), argument.substr(equals + 1));
    }
    if (request.file.empty()) {
        throw std::invalid_argument("--device=FILE is missing");
    }
    return request;
}

}  // namespace ipapp_generator
