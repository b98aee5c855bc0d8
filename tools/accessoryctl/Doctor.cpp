// doctor: whether services can be found and called here, and what to type when they cannot.
#include <sys/resource.h>

#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/FolderState.h"
#include "tools/accessoryctl/RuntimeView.h"
#include "tools/accessoryctl/Tidying.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

namespace {

enum class Grade {
    kGood,
    kNote,  ///< worth knowing, nothing is wrong
    kBad
};

/// What one look brought.
struct Check {
    std::string name;
    Grade grade;
    std::string finding;
    std::string advice;  ///< a command line; empty when there is nothing to do
};

constexpr rlim_t kEnoughDescriptors = 256;
constexpr char kTidy[] = "accessoryctl doctor --tidy";

Grade goodIf(bool good) { return good ? Grade::kGood : Grade::kBad; }

Check checkFolder(const RuntimeFolder& folder) {
    const FolderState state = stateOf(folder);
    const char* const separator = state.finding.rfind("mode ", 0) == 0 ? ", " : " ";
    return {"folder", goodIf(state.usable), nameOf(folder) + separator + state.finding, state.advice};
}

Check checkDescriptors() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const bool enough = limit.rlim_cur >= kEnoughDescriptors;
    return {"descriptors", goodIf(enough), std::to_string(limit.rlim_cur) + " may be open at a time",
            enough ? "" : "ulimit -n 1024"};
}

/// Whoever starts next makes a socket of its own: these are in nobody's way.
Check checkSockets(const std::string& folder) {
    const size_t stale = staleSocketsIn(folder).size();
    if (stale == 0) return {"sockets", Grade::kGood, "none is stale", ""};
    return {"sockets", Grade::kNote, std::to_string(stale) + " left by processes that have ended", kTidy};
}

Check checkService(const Options& options, const ServiceEntry& service) {
    const std::string name = "service " + service.name;
    if (!service.isAlive) {
        return {name, Grade::kNote, "its process has ended; the next one that offers it takes its place", ""};
    }
    const bool isKnown = service.owner != 0;
    const std::string number = std::to_string(service.owner);
    const std::string process = isKnown ? "process " + number : "a process that lets nobody in";
    try {
        const android::sp<android::IBinder> binder = reach(options, service.name);
        const auto outcome = transact(options, binder, android::IBinder::PING_TRANSACTION, service.name,
                                      [](android::Parcel*) {});
        const bool answers = outcome->status == android::NO_ERROR;
        return {name, goodIf(answers), process + (answers ? " answers" : ": " + statusName(outcome->status)),
                ""};
    } catch (const Failure& failure) {
        return {name, Grade::kBad, process + ": " + failure.what(), isKnown ? "kill " + number : ""};
    }
}

std::string label(Grade grade) {
    if (grade == Grade::kBad) return red("BAD ");
    return grade == Grade::kNote ? bold("note") : green("ok  ");
}

void show(const Options& options, const Check& check) {
    Json::Value object;
    object["name"] = check.name;
    object["ok"] = check.grade != Grade::kBad;
    if (check.grade == Grade::kNote) object["note"] = true;
    object["finding"] = check.finding;
    if (!check.advice.empty()) object["try"] = check.advice;
    std::string text = label(check.grade) + " " + check.name + ": " + check.finding + "\n";
    if (!check.advice.empty()) text += "     Type: " + check.advice + "\n";
    print(options, "check", object, text);
}

Check tidy(const std::string& folder) {
    return {"tidying", Grade::kGood, std::to_string(tidyFolder(folder)) + " files of ended processes removed",
            ""};
}

}  // namespace

int doctor(const Options& options, bool tidying) {
    const RuntimeFolder folder = runtimeFolder();
    const Check folderCheck = checkFolder(folder);
    std::vector<Check> checks = {folderCheck, checkDescriptors()};
    if (folderCheck.grade == Grade::kGood) {
        if (tidying) checks.push_back(tidy(folder.path));
        checks.push_back(checkSockets(folder.path));
        const std::vector<ServiceEntry> services = servicesIn(folder.path);
        if (services.empty()) checks.push_back({"services", Grade::kGood, "none was started here", ""});
        for (const ServiceEntry& service : services)
            checks.push_back(checkService(options, service));
    }
    bool allGood = true;
    for (const Check& check : checks) {
        show(options, check);
        allGood = allGood && check.grade != Grade::kBad;
    }
    return allGood ? kDone : kFailed;
}

}  // namespace accessory::ctl
