// Bad input to the tool: a file it cannot read or use, a model or plug-in it
// cannot load. what() is the one line the user sees.
#ifndef IPAPP_VALIDATE_INPUT_ERROR_H
#define IPAPP_VALIDATE_INPUT_ERROR_H

#include <stdexcept>

namespace ipapp_validate {

class InputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace ipapp_validate

#endif
