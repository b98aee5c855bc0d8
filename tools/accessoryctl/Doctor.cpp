// doctor: whether services can be found and called here, and what to type when they cannot.
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/RuntimeView.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

namespace {

/// What one look brought.
struct Check {
    std::string name;
    bool good;
    std::string finding;
    std::string advice;  ///< a command line; empty when all is well
};

constexpr rlim_t kEnoughDescriptors = 256;

std::string octal(mode_t mode) {
    char text[16];
    snprintf(text, sizeof(text), "%04o", mode & 07777);
    return text;
}

/// Whoever may write to the folder could pose as any service, so the runtime wants it to be the user's alone.
Check checkFolder(const RuntimeFolder& folder) {
    const std::string where = folder.path + " (" + folder.chosenBy + ")";
    const std::string advice = "export BINDER_RUNTIME_DIR=$(mktemp -d)";
    struct stat state {};
    if (lstat(folder.path.c_str(), &state) != 0) {
        if (errno == ENOENT)
            return {"folder", true, where + " is not there yet; the first process makes it", ""};
        return {"folder", false, where + " cannot be looked at: " + strerror(errno), advice};
    }
    if (!S_ISDIR(state.st_mode)) return {"folder", false, where + " is not a folder", advice};
    if (state.st_uid != geteuid()) {
        return {"folder", false, where + " belongs to user " + std::to_string(state.st_uid), advice};
    }
    if ((state.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
        return {"folder", false, where + " can be written by others, mode " + octal(state.st_mode),
                "chmod 0700 " + shellWord(folder.path)};
    }
    return {"folder", true, where + ", mode " + octal(state.st_mode), ""};
}

Check checkDescriptors() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const bool enough = limit.rlim_cur >= kEnoughDescriptors;
    return {"descriptors", enough, std::to_string(limit.rlim_cur) + " may be open at a time",
            enough ? "" : "ulimit -n 1024"};
}

Check checkSockets(const std::string& folder) {
    const std::vector<std::string> stale = staleSocketsIn(folder);
    if (stale.empty()) return {"sockets", true, "none is stale", ""};
    std::vector<std::string> words;
    words.reserve(stale.size());
    for (const std::string& path : stale)
        words.push_back(shellWord(path));
    return {"sockets", false, std::to_string(stale.size()) + " left by processes that died",
            "rm " + joined(words, " ")};
}

Check checkService(const Options& options, const ServiceEntry& service) {
    const std::string name = "service " + service.name;
    if (!service.isAlive()) return {name, false, "its process died; start it again", ""};
    const std::string process = "process " + std::to_string(service.owner);
    try {
        const android::sp<android::IBinder> binder = reach(options, service.name);
        const auto outcome = transact(options, binder, android::IBinder::PING_TRANSACTION, service.name,
                                      [](android::Parcel*) {});
        const bool answers = outcome->status == android::NO_ERROR;
        return {name, answers, process + (answers ? " answers" : ": " + statusName(outcome->status)), ""};
    } catch (const Failure& failure) {
        return {name, false, process + ": " + failure.what(), "kill " + std::to_string(service.owner)};
    }
}

void show(const Options& options, const Check& check) {
    Json::Value object;
    object["name"] = check.name;
    object["ok"] = check.good;
    object["finding"] = check.finding;
    if (!check.advice.empty()) object["try"] = check.advice;
    std::string text =
        (check.good ? green("ok  ") : red("BAD ")) + " " + check.name + ": " + check.finding + "\n";
    if (!check.advice.empty()) text += "     Type: " + check.advice + "\n";
    print(options, "check", object, text);
}

}  // namespace

int doctor(const Options& options) {
    const RuntimeFolder folder = runtimeFolder();
    const Check folderCheck = checkFolder(folder);
    std::vector<Check> checks = {folderCheck, checkDescriptors()};
    if (folderCheck.good) {
        checks.push_back(checkSockets(folder.path));
        const std::vector<ServiceEntry> services = servicesIn(folder.path);
        if (services.empty()) checks.push_back({"services", true, "none was started here", ""});
        for (const ServiceEntry& service : services)
            checks.push_back(checkService(options, service));
    }
    bool allGood = true;
    for (const Check& check : checks) {
        show(options, check);
        allGood = allGood && check.good;
    }
    return allGood ? kDone : kFailed;
}

}  // namespace accessory::ctl
