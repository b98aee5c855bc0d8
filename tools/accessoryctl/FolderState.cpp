#include "tools/accessoryctl/FolderState.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "tools/accessoryctl/Failure.h"
#include "tools/accessoryctl/Text.h"

namespace accessory::ctl {

namespace {

constexpr char kOwnFolder[] = "export BINDER_RUNTIME_DIR=$(mktemp -d)";

std::string octal(mode_t mode) {
    char text[16];
    snprintf(text, sizeof(text), "%04o", mode & 07777);
    return text;
}

/// Whether the folder is that of a group which BINDER_RUNTIME_GROUP names.
bool isSharedGroup(gid_t owner) {
    const char* const name = getenv("BINDER_RUNTIME_GROUP");
    if (name == nullptr || *name == '\0') return false;
    const group* const found = getgrnam(name);
    return found != nullptr ? found->gr_gid == owner : std::to_string(owner) == name;
}

/// The first process makes the folder, but nothing above it.
FolderState stateBeforeTheFirst(const std::string& path) {
    const std::filesystem::path named = std::filesystem::absolute(path);
    const std::filesystem::path parent =
        named.has_filename() ? named.parent_path() : named.parent_path().parent_path();
    const std::string above = parent.string();
    if (faccessat(AT_FDCWD, above.c_str(), W_OK | X_OK, AT_EACCESS) == 0) {
        return {true, "is not there yet; the first process makes it", ""};
    }
    const bool missing = errno == ENOENT;
    return {false, "cannot be made: " + (missing ? "there is no " + above : above + ": " + strerror(errno)),
            kOwnFolder};
}

}  // namespace

std::string nameOf(const RuntimeFolder& folder) { return folder.path + " (" + folder.chosenBy + ")"; }

/// Whoever may write to the folder could pose as any service, so the runtime wants it to be the user's alone,
/// or a group's that was named to it.
FolderState stateOf(const RuntimeFolder& folder) {
    struct stat state {};
    if (lstat(folder.path.c_str(), &state) != 0) {
        if (errno == ENOENT) return stateBeforeTheFirst(folder.path);
        return {false, std::string("cannot be looked at: ") + strerror(errno), kOwnFolder};
    }
    if (!S_ISDIR(state.st_mode)) return {false, "is not a folder", kOwnFolder};
    const bool isShared = isSharedGroup(state.st_gid);
    if (state.st_uid != geteuid() && !isShared) {
        return {false, "belongs to user " + std::to_string(state.st_uid), kOwnFolder};
    }
    const mode_t forbidden = isShared ? S_IWOTH : S_IWGRP | S_IWOTH;
    if ((state.st_mode & forbidden) != 0) {
        return {false, "can be written by others, mode " + octal(state.st_mode),
                "chmod 0700 " + shellWord(folder.path)};
    }
    return {true, "mode " + octal(state.st_mode), ""};
}

void requireUsableFolder() {
    const RuntimeFolder folder = runtimeFolder();
    const FolderState state = stateOf(folder);
    if (state.usable) return;
    Failure failure(kFailed, "no service can be found in " + nameOf(folder) + ": it " + state.finding,
                    state.advice);
    throw Failure(failure.with("folder", folder.path));
}

}  // namespace accessory::ctl
