#include "RuntimeFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "../Log.h"

namespace android::runtime {

namespace {

/// No folder, so whatever is looked for in it is not there and cannot be made there either.
constexpr char kNowhere[] = "/dev/null";

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string chooseFolder() {
    if (std::string own = environment("BINDER_RUNTIME_DIR"); !own.empty()) return own;
    if (const std::string session = environment("XDG_RUNTIME_DIR"); !session.empty())
        return session + "/binder";
    const std::string temporary = environment("TMPDIR");
    return (temporary.empty() ? "/tmp" : temporary) + "/binder-" + std::to_string(geteuid());
}

/// Whoever may write here could pose as any service, so the folder must be this user's alone.
const char* whatIsWrongWith(const std::string& folder) {
    struct stat state {};
    if (lstat(folder.c_str(), &state) != 0) return strerror(errno);
    if (!S_ISDIR(state.st_mode)) return "it is not a folder";
    if (state.st_uid != geteuid()) return "it belongs to another user";
    if ((state.st_mode & (S_IWGRP | S_IWOTH)) != 0) return "others may write to it";
    return nullptr;
}

}  // namespace

std::string prepareRuntimeFolder() {
    std::string folder = chooseFolder();
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        BINDER_LOGE("runtime folder %s cannot be made: %s. Set BINDER_RUNTIME_DIR to a folder of your own.",
                    folder.c_str(), strerror(errno));
        return folder;
    }
    if (const char* const problem = whatIsWrongWith(folder)) {
        BINDER_LOGE(
            "runtime folder %s cannot be trusted: %s. Set BINDER_RUNTIME_DIR to a folder of your own "
            "with mode 0700.",
            folder.c_str(), problem);
        return kNowhere;
    }
    return folder;
}

}  // namespace android::runtime
