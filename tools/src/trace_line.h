// The trace of the plug-in's ConfD API calls (--trace): one line per call on
// the plug-in's stderr, which the log relay passes on with the fault reports
// and debug lines, in the order the plug-in made them.
#ifndef IPAPP_VALIDATE_TRACE_LINE_H
#define IPAPP_VALIDATE_TRACE_LINE_H

#include <confd_trace.h>

#include <string>

namespace ipapp_validate {

// "trace: FUNCTION[ PATH][ ARGUMENT] => RESULT" for a call that returned,
// "... -> WHAT" for what is handed to the plug-in: a change a diff walk
// gives its iterator, or the call of validate itself;
// each part printable and cut as a message line, so that data cannot make
// lines of its own.
std::string TraceLine(const confdstore::trace::Call& call);

// Writes the call's line to stderr.
void WriteTraceLine(const confdstore::trace::Call& call);

// From now on, in this process, every traced call's line goes to stderr.
void TraceCallsToStderr();

}  // namespace ipapp_validate

#endif
