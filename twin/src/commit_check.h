// The check of one commit with the engine of ipapp-validate: the running and
// candidate configurations as text, the validation points whose data
// differs fired in the model's order, the plug-in in a child process, and
// the verdict as a NETCONF server reports it.
//
// The model and the plug-in are loaded once. Each commit gets a fresh
// library context (lib_init ... lib_finish in the child), because the
// plug-in reads its configuration snapshot once per context: a context kept
// across commits would check every later commit against the first one's
// data. The candidate is parsed at every commit. The running configuration
// is parsed only when its text is new: from one refused commit to the next
// it stays the same, and after an accepted commit it is the text of the
// candidate that was checked last, whose tree is taken over.
#ifndef IPAPP_TWIN_COMMIT_CHECK_H
#define IPAPP_TWIN_COMMIT_CHECK_H

#include <confd_datastore.h>

#include <string>
#include <vector>

#include "plugin_library.h"

namespace ipapp_twin {

// error-app-tag of a commit the plug-in refused.
constexpr const char* kRefusedAppTag = "ipapp-refused";
// error-app-tag of a commit that could not be checked (the plug-in crashed,
// the data did not fit the model): refused, since nothing unchecked commits.
constexpr const char* kUncheckedAppTag = "ipapp-unchecked";

struct CommitVerdict {
    bool accepted = false;
    const char* app_tag = kUncheckedAppTag;  // a refusal's error-app-tag
    std::string message;                     // a refusal's error-message
};

// A refusal of what could not be checked, saying why.
CommitVerdict Unchecked(const std::string& why);

class CommitCheck {
  public:
    // Throws with one line naming the directory or library that failed.
    CommitCheck(const std::string& yang_dir, const std::string& plugin_path);

    // running and candidate are XML text of the model's top-level nodes.
    CommitVerdict Check(const std::string& running, const std::string& candidate);

  private:
    CommitVerdict Run(const std::string& running, const std::string& candidate);

    confdstore::Schema schema_;
    std::vector<confdstore::ValidationPoint> points_;
    ipapp_validate::PluginLibrary plugin_;
    confdstore::Datastore datastore_;
    std::string running_text_;    // what datastore_'s running configuration was read from
    std::string candidate_text_;  // what datastore_'s candidate was read from
};

}  // namespace ipapp_twin

#endif
