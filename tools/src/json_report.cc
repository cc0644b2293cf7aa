#include "json_writer.h"
#include "report.h"

namespace ipapp_validate {
namespace {

void WriteCall(const CallReport& call, JsonWriter& json) {
    json.BeginObject();
    json.StringMember("entry_point", StageName(call.stage));
    if (call.stage == Stage::validate) {
        json.StringMember("point", call.point);
        json.StringMember("keypath", call.keypath);
    }
    json.StringMember("verdict", VerdictName(call.verdict));
    if (call.crash) {
        json.Key("crash");
        json.BeginObject();
        json.StringMember("cause", call.crash->cause);
        json.StringMember("detail", call.crash->detail);
        json.EndObject();
    } else {
        json.IntegerMember("result", call.result);
    }
    if (call.verdict == Verdict::refused) {
        json.StringMember("text", call.text);
    }
    json.EndObject();
}

void WriteTiming(const Timing& timing, JsonWriter& json) {
    json.BeginObject();
    json.Key("total_ms");
    json.Decimal(timing.total_ms);
    json.Key("plugin_ms");
    json.Decimal(timing.plugin_ms);
    json.Key("tool_ms");
    json.Decimal(timing.total_ms - timing.plugin_ms);
    json.EndObject();
}

}  // namespace

void WriteJsonReport(const RunReport& report, const std::optional<Timing>& timing,
                     std::ostream& out) {
    JsonWriter json(out);
    json.BeginObject();
    json.StringMember("verdict", VerdictName(report.verdict));
    json.IntegerMember("exit_code", ExitCode(report.verdict));
    json.StringMember("summary", report.Summary());
    json.IntegerMember("fired", static_cast<int64_t>(report.fired));
    json.IntegerMember("run", static_cast<int64_t>(report.run));
    json.Key("calls");
    json.BeginArray();
    for (const CallReport& call : report.calls) {
        WriteCall(call, json);
    }
    json.EndArray();
    if (timing) {
        json.Key("timing");
        WriteTiming(*timing, json);
    }
    json.EndObject();
}

}  // namespace ipapp_validate
