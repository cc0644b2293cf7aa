/*
 * Fault reports and debug log of the host framework.
 *
 * Both are diagnostics, never a verdict. Each goes out as one line with its
 * own prefix:
 *   "fault: <file>:<line>: <function>: <text> (code <code>)"
 *   "debug: <text>"
 * to stderr by default, or to the stream set with velmw_log_set_stream.
 *
 * A line is written whole under a lock and flushed at once, so lines of
 * concurrent writers never interleave. Texts of any length are kept whole.
 * A NULL file, function, text or format reads "(null)". Trailing newlines of
 * a text are dropped and any other control character except tab is escaped
 * ("\n", "\r", "\xHH"), so that every report stays one line.
 */
#ifndef VELMW_LOG_H
#define VELMW_LOG_H

#include <stdarg.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef void* velmw_log_handle_t;

/* The debug log handle of the configuration-validation daemon; NULL when logging is off. */
velmw_log_handle_t get_config_vald_log_handle(void);

/*
 * Writes one debug line, printf-style. Writes nothing for a NULL handle, a
 * handle that get_config_vald_log_handle did not give, or while the debug
 * log is off (a handle fetched earlier stays valid but silent).
 */
void velmw_vlog_debug(velmw_log_handle_t handle, const char* format, va_list args);

/* Reports a fault event with its place of origin. Always returns. */
void velmw_gen_fault(int code, const char* function, const char* file, int line, const char* text);

/*
 * Host side: where fault and debug lines go (NULL restores stderr). The
 * caller keeps the stream open until it sets another one.
 */
void velmw_log_set_stream(FILE* stream);
/* Host side: turns the debug log on or off (on by default); faults are always reported. */
void velmw_log_set_debug_enabled(int enabled);

#ifdef __cplusplus
}
#endif

#endif /* VELMW_LOG_H */
