// The plug-in's side of a run, inside the child process: the library's name,
// its context, one validate per planned call (its keypath and value made
// just before the call) and lib_finish, each reported in the record file as
// soon as it returns.
#ifndef IPAPP_VALIDATE_PLUGIN_SESSION_H
#define IPAPP_VALIDATE_PLUGIN_SESSION_H

#include <string>
#include <vector>

#include "call_plan.h"
#include "call_record.h"
#include "host_transaction.h"
#include "plugin_library.h"

namespace ipapp_validate {

class PluginSession {
  public:
    // trace: a trace line for each call of validate, before the plug-in's own.
    PluginSession(const EntryPoints& entry_points, HostTransaction& transaction,
                  const CallPlan& plan, bool keep_going, bool trace = false)
        : entry_points_(entry_points),
          transaction_(transaction),
          plan_(plan),
          keep_going_(keep_going),
          trace_(trace) {}

    // Makes the calls and writes their records to record_fd. Returns false
    // when a record cannot be written.
    bool Run(int record_fd);

  private:
    CallRecord Call(const NextCall& next);
    int GetValidationPoint(CallRecord& record);
    int LibInit();
    int Validate(uint32_t index, CallRecord& record);
    int LibFinish();

    const EntryPoints& entry_points_;
    HostTransaction& transaction_;
    const CallPlan& plan_;
    bool keep_going_;
    bool trace_;
    std::string library_name_;
    void* context_ = nullptr;
};

}  // namespace ipapp_validate

#endif
