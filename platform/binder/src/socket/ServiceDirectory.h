// Which process has which service: one small file per name in the runtime folder.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "Identity.h"
#include "Socket.h"

namespace android::runtime {

/// Where a service lives.
struct ServiceEntry {
    PeerId owner;
    Token token;
};

/// Keeps nothing in memory; several processes use the folder at the same time. Entries appear and change in
/// one step, and whoever changes one holds the folder's lock file.
class ServiceDirectory {
  public:
    /// @param fileMode of the files that are made: who may read them finds the services.
    ServiceDirectory(const SocketFolder& folder, mode_t fileMode) : mFolder(folder), mFileMode(fileMode) {}

    /// @return NO_ERROR; NAME_NOT_FOUND when there is no such entry, or what is there is none; else the
    ///         system's error.
    int read(const std::string& name, ServiceEntry* entry) const;

    /// Enters @p entry unless a live process other than its owner has the name.
    /// @return NO_ERROR, ALREADY_EXISTS, or the system's error.
    int publish(const std::string& name, const ServiceEntry& entry) const;

    /// All names that have an entry, in ascending order.
    std::vector<std::string> names() const;

    /// Whether the process still listens. @return NO_ERROR, DEAD_OBJECT, or the system's error.
    int probe(const PeerId& owner) const;

    /// Waits until an entry may have changed or @p deadline has come; @p condition is asked before and after,
    /// and not cut off.
    template <typename Condition>
    bool waitUntil(std::chrono::steady_clock::time_point deadline, const Condition& condition) const;

  private:
    RuntimeFd watchFolder() const;
    static void waitForChange(RuntimeFd* watch, std::chrono::steady_clock::time_point deadline);
    int refuse(const std::string& name, const ServiceEntry& entry) const;
    int write(const std::string& name, const ServiceEntry& entry) const;
    std::string pathOf(const std::string& name) const { return mFolder.pathOf("service-" + name); }

    RuntimeFd openOrMake(const std::string& path, int flags) const;
    RuntimeFd make(const std::string& path, int flags) const;

    const SocketFolder& mFolder;
    const mode_t mFileMode;
};

template <typename Condition>
bool ServiceDirectory::waitUntil(std::chrono::steady_clock::time_point deadline,
                                 const Condition& condition) const {
    if (condition()) return true;
    // To ask may have taken its time, too.
    if (std::chrono::steady_clock::now() >= deadline) return false;
    // Watched before the condition is asked again, so that no change slips through.
    RuntimeFd watch = watchFolder();
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        waitForChange(&watch, deadline);
        if (!watch.isOpen()) watch = watchFolder();
    }
    return true;
}

}  // namespace android::runtime
