// stdin, stdout and stderr are open before the tool opens anything: a
// descriptor closed at start would otherwise be the next file opened (the
// --log file as descriptor 1 would receive the report).
#ifndef IPAPP_VALIDATE_STANDARD_DESCRIPTORS_H
#define IPAPP_VALIDATE_STANDARD_DESCRIPTORS_H

namespace ipapp_validate {

// Opens each of descriptors 0, 1 and 2 that is closed on /dev/null. False
// when that fails.
bool OpenClosedStandardDescriptors();

}  // namespace ipapp_validate

#endif
