#include "standard_descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace ipapp_validate {

bool OpenClosedStandardDescriptors() {
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        if (fcntl(fd, F_GETFD) >= 0 || errno != EBADF) {
            continue;
        }
        // The lowest free descriptor is fd, as the ones below it are open.
        if (open("/dev/null", fd == STDIN_FILENO ? O_RDONLY : O_WRONLY) != fd) {
            return false;
        }
    }
    return true;
}

}  // namespace ipapp_validate
