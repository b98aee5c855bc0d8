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
#include <cstring>
#include <memory>
#include <thread>

namespace android::runtime {

namespace {

using std::chrono::steady_clock;

constexpr char kPrefix[] = "service-";

/// "<owner> <token>\n", both in 32 hexadecimal digits.
constexpr size_t kEntrySize = 32 + 1 + 32 + 1;

/// Nobody holds the lock for longer than a few system calls; one who was stopped in the middle must not hold
/// up the others for ever. @return NO_ERROR or the system's error.
int waitForLock(int lock) {
    constexpr auto kPatience = std::chrono::seconds(5);
    constexpr auto kPause = std::chrono::milliseconds(1);
    const auto deadline = steady_clock::now() + kPatience;
    while (flock(lock, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EINTR && errno != EWOULDBLOCK) return -errno;
        if (steady_clock::now() >= deadline) return TIMED_OUT;
        std::this_thread::sleep_for(kPause);
    }
    return NO_ERROR;
}

/// Something else in the place of an entry is no entry.
int readError() {
    const bool isNone = errno == ENOENT || errno == ELOOP || errno == ENXIO || errno == EACCES;
    return isNone ? static_cast<int>(NAME_NOT_FOUND) : -errno;
}

}  // namespace

int ServiceDirectory::read(const std::string& name, ServiceEntry* entry) const {
    const RuntimeFd file(open(pathOf(name).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (!file.isOpen()) return readError();
    char text[kEntrySize + 1];
    const ssize_t size = ::read(file.get(), text, sizeof(text));
    if (size < 0 && errno != EISDIR && errno != EAGAIN) return -errno;
    if (size != static_cast<ssize_t>(kEntrySize)) return NAME_NOT_FOUND;
    entry->owner = PeerId(Secret::parse(std::string(text, 32)));
    entry->token = Token(Secret::parse(std::string(text + 33, 32)));
    return entry->owner && entry->token ? NO_ERROR : static_cast<int>(NAME_NOT_FOUND);
}

/// Opened first and made only when it is missing: in a shared folder the kernel lets nobody "create" a file
/// that another user has.
RuntimeFd ServiceDirectory::openOrMake(const std::string& path, int flags) const {
    for (;;) {
        RuntimeFd file(open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW));
        if (file.isOpen() || errno != ENOENT) return file;
        file = make(path, flags);
        if (file.isOpen() || errno != EEXIST) return file;
    }
}

/// A file that is not there yet. The mode holds whatever the process's umask is.
RuntimeFd ServiceDirectory::make(const std::string& path, int flags) const {
    RuntimeFd file(open(path.c_str(), flags | O_CREAT | O_EXCL | O_CLOEXEC, mFileMode));
    if (file.isOpen()) fchmod(file.get(), mFileMode);
    return file;
}

int ServiceDirectory::publish(const std::string& name, const ServiceEntry& entry) const {
    const RuntimeFd lock = openOrMake(mFolder.pathOf("lock"), O_RDWR | O_NONBLOCK);
    if (!lock.isOpen()) return -errno;
    int status = waitForLock(lock.get());
    if (status == NO_ERROR) status = refuse(name, entry);
    return status == NO_ERROR ? write(name, entry) : status;
}

/// Only a name that nobody has, or one who is surely dead, may be taken.
int ServiceDirectory::refuse(const std::string& name, const ServiceEntry& entry) const {
    ServiceEntry present;
    const int known = read(name, &present);
    if (known == NAME_NOT_FOUND) return NO_ERROR;
    if (known != NO_ERROR || present.owner == entry.owner) return known;
    const int alive = probe(present.owner);
    if (alive == DEAD_OBJECT) return NO_ERROR;
    return alive == NO_ERROR ? static_cast<int>(ALREADY_EXISTS) : alive;
}

/// Beside the entry first, then in its place: a reader sees the old one or the new one.
int ServiceDirectory::write(const std::string& name, const ServiceEntry& entry) const {
    const std::string text = entry.owner.toString() + " " + entry.token.toString() + "\n";
    // A name that nobody guesses: one that somebody else has taken could not be written to.
    const std::string beside = mFolder.pathOf("new-" + Secret::random().toString());
    const std::string place = pathOf(name);
    const RuntimeFd file = make(beside, O_WRONLY);
    if (!file.isOpen()) return -errno;
    const ssize_t size = ::write(file.get(), text.data(), text.size());
    const bool written = size == static_cast<ssize_t>(text.size());
    if (written && rename(beside.c_str(), place.c_str()) == 0) return NO_ERROR;
    const int error = written || size < 0 ? errno : ENOSPC;
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

int ServiceDirectory::probe(const PeerId& owner) const {
    if (mFolder.isAlive(owner.toString())) return NO_ERROR;
    return errno == ECONNREFUSED || errno == ENOENT ? static_cast<int>(DEAD_OBJECT) : -errno;
}

RuntimeFd ServiceDirectory::watchFolder() const {
    RuntimeFd watch(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!watch.isOpen() || inotify_add_watch(watch.get(), mFolder.path().c_str(), IN_MOVED_TO) < 0) return {};
    return watch;
}

/// @param watch closed when the folder is there no more.
void ServiceDirectory::waitForChange(RuntimeFd* watch, steady_clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
    // The condition may also have failed for a reason that passes without a change, and without a watch, when
    // the system has none left, nothing else would tell.
    constexpr int64_t kWatched = 500;
    constexpr int64_t kUnwatched = 100;
    const int64_t limit = std::min(left.count(), watch->isOpen() ? kWatched : kUnwatched);
    pollfd change{watch->get(), POLLIN, 0};
    if (poll(&change, 1, static_cast<int>(std::max<int64_t>(limit, 0))) <= 0) return;
    alignas(inotify_event) char events[4096];
    for (ssize_t size = 0; (size = ::read(watch->get(), events, sizeof(events))) > 0;) {
        // The last one, if any: nothing comes after it.
        inotify_event last{};
        std::memcpy(&last, events + size - sizeof(last), sizeof(last));
        if ((last.mask & IN_IGNORED) != 0) return watch->reset();
    }
}

}  // namespace android::runtime
