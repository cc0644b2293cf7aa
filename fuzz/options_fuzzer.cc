// The command line: the input is the arguments, separated by zero bytes.
// Any arguments give either options or a UsageError with a one-line reason.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "options.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::vector<std::string> arguments(size == 0 ? 0 : 1);
    for (size_t at = 0; at < size; ++at) {
        if (data[at] == '\0') {
            arguments.emplace_back();
        } else {
            arguments.back() += static_cast<char>(data[at]);
        }
    }
    try {
        ipapp_validate::ParseOptions(arguments);
    } catch (const ipapp_validate::UsageError& error) {
        if (std::string(error.what()).empty()) {
            std::abort();
        }
    }
    return 0;
}
