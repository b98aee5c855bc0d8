#include "RuntimeFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "../Environment.h"
#include "../Log.h"

namespace android::runtime {

namespace {

/// Whoever may write here could pose as any service, so the folder must be this user's alone. One that a
/// group shares keeps its members from each other's files.
const char* whatIsWrongWith(const std::string& folder, const Access& access) {
    struct stat state {};
    if (lstat(folder.c_str(), &state) != 0) return strerror(errno);
    if (!S_ISDIR(state.st_mode)) return "it is not a folder";
    const bool isTheGroups = access.group() && state.st_gid == *access.group();
    if (state.st_uid != geteuid() && !isTheGroups) return "it belongs to another user";
    if ((state.st_mode & S_IWOTH) != 0) return "others may write to it";
    if ((state.st_mode & S_IWGRP) == 0) return nullptr;
    if (!isTheGroups) return "others may write to it";
    return (state.st_mode & S_ISVTX) != 0 ? nullptr : "its group may remove what others put there; chmod +t";
}

bool isThere(const std::string& folder) {
    struct stat state {};
    return lstat(folder.c_str(), &state) == 0;
}

/// @return false, with errno set, when there is none and it cannot be made.
bool make(const std::string& folder, const Access& access) {
    if (mkdir(folder.c_str(), S_IRWXU) != 0) return errno == EEXIST;
    if (!access.group()) return true;
    return chown(folder.c_str(), static_cast<uid_t>(-1), *access.group()) == 0 &&
           chmod(folder.c_str(), access.folderMode()) == 0;
}

}  // namespace

std::string chooseRuntimeFolder() {
    if (std::string own = environment("BINDER_RUNTIME_DIR"); !own.empty()) return own;
    if (const std::string session = environment("XDG_RUNTIME_DIR"); !session.empty())
        return session + "/binder";
    const std::string temporary = environment("TMPDIR");
    return (temporary.empty() ? "/tmp" : temporary) + "/binder-" + std::to_string(geteuid());
}

bool prepareRuntimeFolder(const std::string& folder, const Access& access) {
    if (!isThere(folder) && !make(folder, access)) {
        BINDER_LOGE("runtime folder %s cannot be made: %s. Set BINDER_RUNTIME_DIR to a folder of your own.",
                    folder.c_str(), strerror(errno));
        return false;
    }
    const char* const problem = whatIsWrongWith(folder, access);
    if (problem == nullptr) return true;
    BINDER_LOGE(
        "runtime folder %s cannot be trusted: %s. Set BINDER_RUNTIME_DIR to a folder of your own "
        "with mode 0700.",
        folder.c_str(), problem);
    return false;
}

}  // namespace android::runtime
