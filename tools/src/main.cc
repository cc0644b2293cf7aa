// ipapp-validate: checks a candidate configuration against a running one with
// the validation plug-in a device loads.
#include "tool.h"

int main(int argc, char** argv) {
    return ipapp_validate::RunTool(std::vector<std::string>(argv + 1, argv + argc));
}
