// The floor of anything between two processes: memory that both of them see and a futex each way. The bytes
// are copied in by the caller and out by the service, once each; nobody spins.
#include <fcntl.h>
#include <linux/futex.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <climits>
#include <cstring>
#include <system_error>
#include <vector>

#include "bench/support/Contender.h"

namespace accessory::bench {
namespace {

constexpr size_t kLargest = size_t{1024} * 1024;

/// The low bit of the turn says whose it is, so that every change of it is a message.
struct Shared {
    std::atomic<uint32_t> turn;
    uint32_t answer;
    size_t size;
    char bytes[kLargest];
};

std::string nameFor(const std::string& folder) { return "/bench-" + folder.substr(folder.size() - 6); }

Shared* map(int fd) {
    if (fd < 0 || ftruncate(fd, sizeof(Shared)) != 0)
        throw std::system_error(errno, std::generic_category(), "shared memory");
    void* const place = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    close(fd);
    if (place == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
    return static_cast<Shared*>(place);
}

void waitWhile(std::atomic<uint32_t>& word, uint32_t value) {
    while (word.load(std::memory_order_acquire) == value)
        syscall(SYS_futex, &word, FUTEX_WAIT, value, nullptr, nullptr, 0);
}

void wake(std::atomic<uint32_t>& word) {
    syscall(SYS_futex, &word, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

void serve(const std::string& folder, const Ready& ready) {
    Shared* const shared = map(shm_open(nameFor(folder).c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600));
    std::vector<char> own(kLargest);
    ready();
    for (uint32_t turn = 0;; turn += 2) {
        waitWhile(shared->turn, turn);
        std::memcpy(own.data(), shared->bytes, shared->size);
        shared->answer = answerTo(own.data(), shared->size);
        shared->turn.store(turn + 2, std::memory_order_release);
        wake(shared->turn);
    }
}

class FutexCaller : public Caller {
  public:
    explicit FutexCaller(Shared* shared) : mShared(shared) {}

    uint32_t call(const Payload& payload) override {
        std::memcpy(mShared->bytes, payload.data(), payload.size());
        mShared->size = payload.size();
        mShared->turn.store(mTurn + 1, std::memory_order_release);
        wake(mShared->turn);
        waitWhile(mShared->turn, mTurn + 1);
        mTurn += 2;
        return mShared->answer;
    }

  private:
    Shared* const mShared;
    uint32_t mTurn = 0;
};

/// Both ends have the memory from here on, so its name can go.
std::unique_ptr<Caller> connect(const std::string& folder) {
    const std::string name = nameFor(folder);
    auto caller = std::make_unique<FutexCaller>(map(shm_open(name.c_str(), O_RDWR | O_CLOEXEC, 0600)));
    shm_unlink(name.c_str());
    return caller;
}

const ContenderRegistration kFutex({"futex", 11, connect, serve});

}  // namespace
}  // namespace accessory::bench
