/*
 * libyang's messages: libconfd has libyang store them (the last one per
 * context) instead of printing them, and turns them into its own one-line
 * errors. The setting is process-wide, made when the first schema loads.
 */
#ifndef CONFD_SRC_LIBYANG_LOG_H
#define CONFD_SRC_LIBYANG_LOG_H

#include <libyang/libyang.h>

#include <string>

namespace confd::detail {

void store_libyang_messages();

// The error libyang stored for ctx ("message (path)"), then clears it.
std::string take_libyang_error(const ly_ctx* ctx);

}  // namespace confd::detail

#endif
