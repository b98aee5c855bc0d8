#include "tools/capture/TraceEvents.h"

#include <algorithm>

#include "tools/rows/Values.h"

namespace accessory::tools {

namespace {

/// Viewers count in microseconds; in doubles only those since the beginning of the captures are exact.
double microseconds(uint64_t nanoseconds) { return static_cast<double>(nanoseconds) / 1000; }

Json::Value event(const char* phase, const Call& call, uint64_t base) {
    Json::Value made;
    made["ph"] = phase;
    made["pid"] = call.pid;
    made["tid"] = call.tid;
    made["ts"] = microseconds(call.begin - base);
    return made;
}

const char* categoryOf(const Call& call) {
    if (call.isOneway) return "oneway";
    return call.isMade ? "call" : "serve";
}

Json::Value slice(const Call& call, uint64_t base) {
    Json::Value made = event("X", call, base);
    made["name"] = call.name;
    made["cat"] = categoryOf(call);
    made["dur"] = microseconds(call.end - call.begin);
    Json::Value& details = made["args"];
    details["number"] = static_cast<Json::UInt64>(call.number);
    details["peer"] = call.peerPid;
    if (!call.arguments.isNull()) details["arguments"] = call.arguments;
    if (!call.reply.isNull()) details["reply"] = call.reply;
    if (!call.isOneway) details["status"] = call.status;
    if (!call.isEnded) details["unanswered"] = true;
    return made;
}

Json::Value arrow(const char* phase, const Call& call, uint64_t base, size_t id) {
    Json::Value made = event(phase, call, base);
    made["name"] = "transaction";
    made["cat"] = "transaction";
    made["id"] = static_cast<Json::UInt64>(id);
    if (*phase == 'f') made["bp"] = "e";
    return made;
}

Json::Value processName(int32_t pid, const std::string& program) {
    Json::Value made;
    made["ph"] = "M";
    made["name"] = "process_name";
    made["pid"] = pid;
    made["args"]["name"] = program;
    return made;
}

/// Puts commas between events.
class EventArray {
  public:
    explicit EventArray(const std::function<void(const std::string&)>& write) : mWrite(write) {}

    void add(const Json::Value& event) {
        mWrite((mIsFirst ? "\n" : ",\n") + compactJson(event));
        mIsFirst = false;
    }

  private:
    const std::function<void(const std::string&)>& mWrite;
    bool mIsFirst = true;
};

}  // namespace

void writeTraceEvents(const std::vector<Call>& calls, const std::map<int32_t, std::string>& programs,
                      const std::function<void(const std::string&)>& write) {
    const uint64_t base = calls.empty() ? 0 : calls.front().begin;
    write(R"({"displayTimeUnit":"ns","otherData":{"beginsAt":")" + std::to_string(base) +
          R"("},"traceEvents":[)");
    EventArray events(write);
    for (const auto& [pid, program] : programs)
        events.add(processName(pid, program));
    for (size_t i = 0; i < calls.size(); ++i) {
        const Call& call = calls[i];
        events.add(slice(call, base));
        if (call.other == Call::kNone) continue;
        events.add(arrow("s", calls[call.other], base, i));
        events.add(arrow("f", call, base, i));
    }
    write("\n]}\n");
}

}  // namespace accessory::tools
