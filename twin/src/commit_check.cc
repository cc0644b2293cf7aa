#include "commit_check.h"

#include <exception>

#include "call_plan.h"
#include "plugin_run.h"
#include "run_report.h"

namespace ipapp_twin {
namespace {

using ipapp_validate::CallReport;
using ipapp_validate::RunReport;
using ipapp_validate::Verdict;

std::string CallName(const CallReport& call) {
    return call.stage == ipapp_validate::Stage::validate ? call.point + " " + call.keypath
                                                         : ipapp_validate::StageName(call.stage);
}

CommitVerdict VerdictOf(const RunReport& report) {
    if (report.verdict == Verdict::accepted) {
        return CommitVerdict{true, "", ""};
    }
    for (const CallReport& call : report.calls) {
        if (call.crash) {
            const std::string detail = call.crash->detail.empty() ? "" : "\n" + call.crash->detail;
            return Unchecked("the plug-in ended without a verdict in " + CallName(call) + ": " +
                             call.crash->cause + detail);
        }
        if (call.verdict == Verdict::refused) {
            return CommitVerdict{false, kRefusedAppTag,
                                 call.text.empty() ? "(refused without an error text)" : call.text};
        }
    }
    return Unchecked("the plug-in's run ended without a verdict: " + report.Summary());
}

}  // namespace

CommitVerdict Unchecked(const std::string& why) {
    return CommitVerdict{false, kUncheckedAppTag, "configuration not checked, so refused: " + why};
}

CommitCheck::CommitCheck(const std::string& yang_dir, const std::string& plugin_path)
    : schema_(confdstore::Schema::load(yang_dir)),
      points_(schema_.validation_points()),
      plugin_(plugin_path),
      datastore_(schema_) {}

CommitVerdict CommitCheck::Check(const std::string& running, const std::string& candidate) {
    try {
        return Run(running, candidate);
    } catch (const std::exception& error) {
        return Unchecked(error.what());
    }
}

CommitVerdict CommitCheck::Run(const std::string& running, const std::string& candidate) {
    // A text that fails to parse leaves the previous tree and its text in
    // place, so trees and texts always match.
    if (running != running_text_) {
        if (running == candidate_text_) {
            datastore_.copy_candidate_to_running();
        } else {
            datastore_.set_running(running, confdstore::DataFormat::xml, "running");
        }
        running_text_ = running;
    }
    datastore_.set_candidate(candidate, confdstore::DataFormat::xml, "candidate");
    candidate_text_ = candidate;
    const ipapp_validate::CallPlan plan = ipapp_validate::PlanChangedCalls(points_, datastore_);
    ipapp_validate::PluginRunSettings settings;
    settings.debug = false;
    return VerdictOf(ipapp_validate::RunPlugin(datastore_, plan, plugin_, settings));
}

}  // namespace ipapp_twin
