#include "launcher.h"

int main(int argc, char** argv) {
    return ipapp_twin::RunLauncher(std::vector<std::string>(argv + 1, argv + argc));
}
