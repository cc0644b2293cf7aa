// ipapp-generate-config DIR UNITS: writes DIR/running.xml and
// DIR/candidate.xml of UNITS layer-3 interface units (about 78 nodes each) and
// prints their node counts.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "config_generator.h"

int main(int argc, char** argv) {
    if (argc != 3 || std::atol(argv[2]) < 4) {
        std::fprintf(stderr, "usage: ipapp-generate-config DIR UNITS (UNITS >= 4)\n");
        return 2;
    }
    try {
        const ipapp_bench::GeneratedPair pair =
            ipapp_bench::WriteConfigPair(argv[1], static_cast<size_t>(std::atol(argv[2])));
        std::printf("%s: %zu nodes\n%s: %zu nodes\n", pair.running_file.c_str(), pair.running_nodes,
                    pair.candidate_file.c_str(), pair.candidate_nodes);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "ipapp-generate-config: %s\n", error.what());
        return 2;
    }
    return 0;
}
