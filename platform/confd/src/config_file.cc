#include "config_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include "confd_datastore.h"

namespace confd::detail {
namespace {

// What an input of unknown size (a pipe, a device) is read in at first.
constexpr size_t kFirstReadSize = size_t{64} << 10;

class ReadError : public confdstore::Error {
  public:
    ReadError(const std::string& file, int error)
        : confdstore::Error(file + ": cannot read: " + std::strerror(error)) {}
};

class TooLarge : public confdstore::Error {
  public:
    TooLarge(const std::string& file, size_t max_bytes)
        : confdstore::Error(file + ": larger than " + std::to_string(max_bytes) +
                            " bytes, the input size limit") {}
};

class OpenFile {
  public:
    explicit OpenFile(const std::string& file) {
        do {
            fd_ = open(file.c_str(), O_RDONLY | O_CLOEXEC);
        } while (fd_ < 0 && errno == EINTR);
        if (fd_ < 0) {
            throw ReadError(file, errno);
        }
    }
    ~OpenFile() { close(fd_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int fd() const { return fd_; }

  private:
    int fd_ = -1;
};

// One byte more than the limit shows that an input exceeds it.
size_t beyond(size_t max_bytes) {
    return max_bytes == SIZE_MAX ? max_bytes : max_bytes + 1;
}

// The size to read at first: a regular file's size (and one byte more, to
// see that it did not grow), anything else kFirstReadSize; never more than
// one byte beyond the limit.
size_t first_capacity(const std::string& file, int fd, size_t max_bytes) {
    struct stat status;
    if (fstat(fd, &status) != 0) {
        throw ReadError(file, errno);
    }
    if (S_ISDIR(status.st_mode)) {
        throw ReadError(file, EISDIR);
    }
    if (S_ISREG(status.st_mode) && static_cast<uintmax_t>(status.st_size) > max_bytes) {
        throw TooLarge(file, max_bytes);
    }
    const size_t wanted =
        S_ISREG(status.st_mode) ? static_cast<size_t>(status.st_size) + 1 : kFirstReadSize;
    return std::min(wanted, beyond(max_bytes));
}

}  // namespace

std::string read_config_file(const std::string& file, size_t max_bytes) {
    const OpenFile input(file);
    std::string text(first_capacity(file, input.fd(), max_bytes), '\0');
    size_t used = 0;
    for (;;) {
        if (used == text.size()) {
            text.resize(std::min(std::max(text.size() * 2, kFirstReadSize), beyond(max_bytes)));
        }
        const ssize_t count = read(input.fd(), &text[used], text.size() - used);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            throw ReadError(file, errno);
        }
        if (count == 0) {
            break;
        }
        used += static_cast<size_t>(count);
        if (used > max_bytes) {
            throw TooLarge(file, max_bytes);
        }
    }
    text.resize(used);
    return text;
}

}  // namespace confd::detail
