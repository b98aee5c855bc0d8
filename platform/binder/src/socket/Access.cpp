#include "Access.h"

#include <grp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <vector>

#include "../Environment.h"
#include "../Log.h"

namespace android::runtime {

namespace {

std::optional<gid_t> groupNamed(const char* name) {
    char* end = nullptr;
    const unsigned long number = std::strtoul(name, &end, 10);
    if (end != name && *end == '\0') return static_cast<gid_t>(number);
    group found{};
    group* result = nullptr;
    std::vector<char> memory(size_t{64} * 1024);
    if (getgrnam_r(name, &found, memory.data(), memory.size(), &result) == 0 && result != nullptr) {
        return result->gr_gid;
    }
    return std::nullopt;
}

bool isPrimaryGroup(int fd, gid_t group) {
    ucred kernel{};
    socklen_t size = sizeof(kernel);
    return getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &kernel, &size) == 0 && kernel.gid == group;
}

bool isSupplementaryGroup(int fd, gid_t group) {
    std::vector<gid_t> groups(64);
    auto size = static_cast<socklen_t>(groups.size() * sizeof(gid_t));
    int result = getsockopt(fd, SOL_SOCKET, SO_PEERGROUPS, groups.data(), &size);
    if (result != 0 && errno == ERANGE) {
        groups.resize(size / sizeof(gid_t));
        result = getsockopt(fd, SOL_SOCKET, SO_PEERGROUPS, groups.data(), &size);
    }
    if (result != 0) return false;
    groups.resize(size / sizeof(gid_t));
    return std::find(groups.begin(), groups.end(), group) != groups.end();
}

}  // namespace

Access::Access() {
    const std::string name = environment("BINDER_RUNTIME_GROUP");
    if (name.empty()) return;
    mGroup = groupNamed(name.c_str());
    if (!mGroup)
        BINDER_LOGE("BINDER_RUNTIME_GROUP is '%s', which is no group; only this user is let in",
                    name.c_str());
}

bool Access::admits(int fd, const Credentials& credentials) const {
    if (credentials.uid == geteuid() || credentials.uid == 0) return true;
    return mGroup && (isPrimaryGroup(fd, *mGroup) || isSupplementaryGroup(fd, *mGroup));
}

}  // namespace android::runtime
