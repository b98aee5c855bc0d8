#include "bench/fan_out/Tally.h"

#include <fcntl.h>
#include <linux/futex.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <stdexcept>
#include <system_error>

namespace accessory::bench {
namespace {

constexpr timespec kPatience{10, 0};

void* map(const std::string& file, size_t size) {
    const int fd = open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    if (fd < 0 || ftruncate(fd, static_cast<off_t>(size)) != 0)
        throw std::system_error(errno, std::generic_category(), file);
    void* const place = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    close(fd);
    if (place == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
    return place;
}

}  // namespace

Tally::Tally(const std::string& folder, const std::string& name)
    : mShared(static_cast<Shared*>(map(folder + "/tally-" + name, sizeof(Shared)))) {}

void Tally::expect(uint32_t clients) {
    mBefore = mShared->complete.load();
    mShared->missing.store(clients);
}

void Tally::awaitAll() {
    while (mShared->complete.load() == mBefore) {
        const long result =
            syscall(SYS_futex, &mShared->complete, FUTEX_WAIT, mBefore, &kPatience, nullptr, 0);
        if (result != 0 && errno == ETIMEDOUT) throw std::runtime_error("some clients never had an event");
    }
}

void Tally::count() {
    if (mShared->missing.fetch_sub(1) != 1) return;
    mShared->complete.fetch_add(1);
    syscall(SYS_futex, &mShared->complete, FUTEX_WAKE, 1, nullptr, nullptr, 0);
}

}  // namespace accessory::bench
