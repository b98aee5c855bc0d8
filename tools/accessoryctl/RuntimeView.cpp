#include "tools/accessoryctl/RuntimeView.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace accessory::ctl {

namespace fs = std::filesystem;

namespace {

constexpr char kPrefix[] = "service-";

std::string environment(const char* name) {
    const char* const value = getenv(name);
    return value != nullptr ? value : "";
}

std::string pathIn(const std::string& folder, const std::string& file) {
    std::string path = folder;
    path += '/';
    return path += file;
}

std::vector<std::string> filesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

/// Fills in the address of a socket however long the folder's path is, by way of the open folder.
bool socketAddress(int folder, const std::string& name, sockaddr_un* address) {
    const std::string path = "/proc/self/fd/" + std::to_string(folder) + "/" + name;
    address->sun_family = AF_UNIX;
    errno = ENAMETOOLONG;
    if (path.size() >= sizeof(address->sun_path)) return false;
    memcpy(address->sun_path, path.c_str(), path.size() + 1);
    return true;
}

/// Whether somebody listens on a socket, and which process, as far as it can be told.
struct Listener {
    bool isThere = false;
    pid_t pid = 0;
};

/// Who connects and says nothing is let go.
Listener listenerOf(const std::string& folder, const std::string& name) {
    const int directory = open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    sockaddr_un address{};
    ucred listener{};
    socklen_t size = sizeof(listener);
    const bool connected = socketAddress(directory, name, &address) &&
                           connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
    const bool deserted = !connected && (errno == ECONNREFUSED || errno == ENOENT || errno == ENAMETOOLONG);
    if (connected) getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &listener, &size);
    close(connection);
    close(directory);
    return {!deserted, listener.pid};
}

}  // namespace

RuntimeFolder runtimeFolder() {
    if (const std::string own = environment("BINDER_RUNTIME_DIR"); !own.empty()) {
        return {own, "BINDER_RUNTIME_DIR"};
    }
    if (const std::string session = environment("XDG_RUNTIME_DIR"); !session.empty()) {
        return {session + "/binder", "XDG_RUNTIME_DIR"};
    }
    const std::string temporary = environment("TMPDIR");
    const std::string name = "/binder-" + std::to_string(geteuid());
    if (!temporary.empty()) return {temporary + name, "TMPDIR"};
    return {"/tmp" + name, "the default"};
}

std::vector<ServiceEntry> servicesIn(const std::string& folder) {
    std::vector<ServiceEntry> services;
    for (const std::string& file : filesIn(folder)) {
        if (file.rfind(kPrefix, 0) != 0) continue;
        std::string owner;
        std::ifstream(pathIn(folder, file)) >> owner;
        const Listener listener = listenerOf(folder, owner);
        services.push_back({file.substr(strlen(kPrefix)), listener.pid, listener.isThere});
    }
    return services;
}

std::vector<std::string> staleEntriesIn(const std::string& folder) {
    std::vector<std::string> stale;
    for (const ServiceEntry& service : servicesIn(folder)) {
        if (!service.isAlive) stale.push_back(pathIn(folder, kPrefix + service.name));
    }
    return stale;
}

std::vector<std::string> staleSocketsIn(const std::string& folder) {
    std::vector<std::string> stale;
    for (const std::string& file : filesIn(folder)) {
        std::error_code error;
        const std::string path = pathIn(folder, file);
        if (fs::is_socket(path, error) && !listenerOf(folder, file).isThere) stale.push_back(path);
    }
    return stale;
}

}  // namespace accessory::ctl
