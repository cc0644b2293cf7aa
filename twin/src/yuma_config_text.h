// A configuration of netconfd as the engine reads it: the top-level nodes
// of the model's modules, each written as its own XML element with its
// namespace. netconfd's own form (everything inside NETCONF's <config>,
// nodes of its own modules among them) is not the engine's file form.
#ifndef IPAPP_TWIN_YUMA_CONFIG_TEXT_H
#define IPAPP_TWIN_YUMA_CONFIG_TEXT_H

#include <val.h>

#include <string>
#include <vector>

namespace ipapp_twin {

// Throws std::runtime_error when the text cannot be written.
std::string ModelConfigXml(val_value_t* root, const std::vector<std::string>& modules);

}  // namespace ipapp_twin

#endif
