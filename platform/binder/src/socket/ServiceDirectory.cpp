#include "ServiceDirectory.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utils/Errors.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace android::runtime {

namespace {

using std::chrono::steady_clock;

constexpr char kPrefix[] = "service-";

/// "<owner> <token>\n", both in 32 hexadecimal digits.
constexpr size_t kEntrySize = 32 + 1 + 32 + 1;

void waitForLock(RuntimeFd* lock) {
    while (lock->isOpen() && flock(lock->get(), LOCK_EX) != 0) {
        if (errno != EINTR) lock->reset();
    }
}

}  // namespace

bool ServiceDirectory::read(const std::string& name, ServiceEntry* entry) const {
    const RuntimeFd file(open(pathOf(name).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (!file.isOpen()) return false;
    char text[kEntrySize + 1];
    if (::read(file.get(), text, sizeof(text)) != static_cast<ssize_t>(kEntrySize)) return false;
    entry->owner = PeerId(Secret::parse(std::string(text, 32)));
    entry->token = Token(Secret::parse(std::string(text + 33, 32)));
    return entry->owner && entry->token;
}

/// Opened first and made only when it is missing: in a shared folder the kernel lets nobody "create" a file
/// that another user has. The mode holds whatever the process's umask is.
RuntimeFd ServiceDirectory::openOrMake(const std::string& path, int flags) const {
    for (;;) {
        RuntimeFd file(open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW));
        if (file.isOpen() || errno != ENOENT) return file;
        file = RuntimeFd(open(path.c_str(), flags | O_CREAT | O_EXCL | O_CLOEXEC, mFileMode));
        if (file.isOpen()) fchmod(file.get(), mFileMode);
        if (file.isOpen() || errno != EEXIST) return file;
    }
}

int ServiceDirectory::publish(const std::string& name, const ServiceEntry& entry) const {
    RuntimeFd lock = openOrMake(mFolder.pathOf("lock"), O_RDWR);
    waitForLock(&lock);
    if (!lock.isOpen()) return -errno;
    ServiceEntry present;
    if (read(name, &present) && present.owner != entry.owner && isAlive(present.owner)) return ALREADY_EXISTS;
    return write(name, entry);
}

/// Beside the entry first, then in its place: a reader sees the old one or the new one.
int ServiceDirectory::write(const std::string& name, const ServiceEntry& entry) const {
    const std::string text = entry.owner.toString() + " " + entry.token.toString() + "\n";
    const std::string beside = mFolder.pathOf("new-" + entry.owner.toString());
    const RuntimeFd file = openOrMake(beside, O_WRONLY | O_TRUNC);
    if (!file.isOpen()) return -errno;
    const bool written = ::write(file.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (written && rename(beside.c_str(), pathOf(name).c_str()) == 0) return NO_ERROR;
    const int error = written || errno != 0 ? errno : ENOSPC;
    unlink(beside.c_str());
    return -error;
}

std::vector<std::string> ServiceDirectory::names() const {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(mFolder.path().c_str()), closedir);
    if (folder == nullptr) return names;
    constexpr size_t kPrefixLength = sizeof(kPrefix) - 1;
    while (const dirent* const entry = readdir(folder.get())) {
        const std::string file = entry->d_name;
        if (file.compare(0, kPrefixLength, kPrefix) == 0) names.push_back(file.substr(kPrefixLength));
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool ServiceDirectory::isAlive(const PeerId& owner) const { return mFolder.isAlive(owner.toString()); }

RuntimeFd ServiceDirectory::watchFolder() const {
    RuntimeFd watch(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (watch.isOpen()) inotify_add_watch(watch.get(), mFolder.path().c_str(), IN_MOVED_TO);
    return watch;
}

void ServiceDirectory::waitForChange(int watch, steady_clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
    // Without a watch, when the system has none left, the condition is asked now and then.
    constexpr int64_t kNowAndThen = 100;
    const int64_t limit = watch >= 0 ? left.count() : std::min(left.count(), kNowAndThen);
    pollfd change{watch, POLLIN, 0};
    if (poll(&change, 1, static_cast<int>(std::max<int64_t>(limit, 0))) <= 0) return;
    alignas(inotify_event) char events[4096];
    while (::read(watch, events, sizeof(events)) > 0) {
    }
}

}  // namespace android::runtime
