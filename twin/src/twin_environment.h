// What the launcher hands the commit hook inside netconfd: a SIL library's
// entry points take no arguments of ours, so the model directory and the
// plug-in travel in netconfd's environment.
#ifndef IPAPP_TWIN_TWIN_ENVIRONMENT_H
#define IPAPP_TWIN_TWIN_ENVIRONMENT_H

namespace ipapp_twin {

constexpr const char* kYangDirVariable = "IPAPP_TWIN_YANG";
constexpr const char* kPluginVariable = "IPAPP_TWIN_PLUGIN";

}  // namespace ipapp_twin

#endif
