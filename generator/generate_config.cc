// ipapp-generate-config DIR UNITS: writes DIR/running.xml and
// DIR/candidate.xml of UNITS layer-3 interface units (about 78 nodes each) and
// prints their node counts.
// ipapp-generate-config --device=FILE [OPTION=N]...: writes one device's
// configuration of the shape the options give (device_options.h) and prints
// its node count.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "config_generator.h"
#include "device_options.h"

namespace {

int GeneratePair(int argc, char** argv) {
    if (argc != 3 || std::atol(argv[2]) < 4) {
        std::fprintf(stderr,
                     "usage: ipapp-generate-config DIR UNITS (UNITS >= 4)\n"
                     "       ipapp-generate-config --device=FILE [--scale=N] [--l3=N] "
                     "[--loopbacks=N] [--mgmt=0|1]\n"
                     "                             [--ipv4-routes=N] [--ipv6-routes=N] "
                     "[--ospfv2=0|1]\n");
        return 2;
    }
    const ipapp_generator::GeneratedPair pair =
        ipapp_generator::WriteConfigPair(argv[1], static_cast<size_t>(std::atol(argv[2])));
    std::printf("%s: %zu nodes\n%s: %zu nodes\n", pair.running_file.c_str(), pair.running_nodes,
                pair.candidate_file.c_str(), pair.candidate_nodes);
    return 0;
}

int GenerateDevice(int argc, char** argv) {
    const ipapp_generator::DeviceRequest request =
        ipapp_generator::ParseDeviceOptions(std::vector<std::string>(argv + 1, argv + argc));
    const size_t nodes = ipapp_generator::WriteDevice(request.file, request.shape);
    std::printf("%s: %zu nodes\n", request.file.c_str(), nodes);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const bool device = argc > 1 && std::string(argv[1]).rfind("--", 0) == 0;
        return device ? GenerateDevice(argc, argv) : GeneratePair(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "ipapp-generate-config: %s\n", error.what());
        return 2;
    }
}
