// ipapp-validate from the command line to the exit status.
#ifndef IPAPP_VALIDATE_TOOL_H
#define IPAPP_VALIDATE_TOOL_H

#include <string>
#include <vector>

namespace ipapp_validate {

// The arguments without the program name. Returns the exit status: 0
// accepted, 1 refused, 2 bad usage or bad input, 3 the plug-in crashed.
int RunTool(const std::vector<std::string>& arguments);

}  // namespace ipapp_validate

#endif
