// ipapp-validate: checks a candidate configuration against a running one with
// the validation plug-in a device loads.
#include "standard_descriptors.h"
#include "tool.h"

int main(int argc, char** argv) {
    if (!ipapp_validate::OpenClosedStandardDescriptors()) {
        return 2;
    }
    return ipapp_validate::RunTool(std::vector<std::string>(argv + 1, argv + argc));
}
