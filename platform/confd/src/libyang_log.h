/*
 * Keeps libyang quiet while our code calls it: messages are stored in the
 * context (for our own error texts) instead of being printed.
 */
#ifndef CONFD_SRC_LIBYANG_LOG_H
#define CONFD_SRC_LIBYANG_LOG_H

#include <libyang/libyang.h>

#include <string>

namespace confd::detail {

class QuietLibyang {
  public:
    QuietLibyang();
    ~QuietLibyang();
    QuietLibyang(const QuietLibyang&) = delete;
    QuietLibyang& operator=(const QuietLibyang&) = delete;

  private:
    uint32_t options_;
};

// The first error libyang stored for ctx ("message (path)"), then clears them.
std::string take_libyang_error(const ly_ctx* ctx);

}  // namespace confd::detail

#endif
