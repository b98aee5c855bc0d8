#include "SharedBlock.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <atomic>
#include <new>
#include <utility>

namespace android::runtime {

namespace {

/// A process has as many blocks for what it sends, and lets others have as many for what it receives. Calls
/// on other connections go through their sockets.
constexpr int kMostBlocks = 16;
constexpr int kMostViews = 64;

std::atomic<int> gBlocks{0};
std::atomic<int> gViews{0};

bool countUp(std::atomic<int>& count, int most) {
    if (count.fetch_add(1) < most) return true;
    --count;
    return false;
}

/// Null instead of MAP_FAILED. A forked child has no business with it.
uint8_t* mapped(int fd, int protection) {
    void* const memory = mmap(nullptr, kSharedBytes, protection, MAP_SHARED, fd, 0);
    if (memory == MAP_FAILED) return nullptr;
    madvise(memory, kSharedBytes, MADV_DONTFORK);
    return static_cast<uint8_t*>(memory);
}

/// With @c F_SEAL_SHRINK nobody can cut the block short under a reader; the other seals only keep it as it
/// is, and older kernels lack the last. Memory for all of it is there before it is written through the
/// mapping, where a want of memory would end the process.
bool seal(int fd) {
    constexpr int kSize = F_SEAL_SHRINK | F_SEAL_GROW;
    return fcntl(fd, F_ADD_SEALS, kSize | F_SEAL_FUTURE_WRITE) == 0 || fcntl(fd, F_ADD_SEALS, kSize) == 0;
}

/// Whether it can be read as long as it is mapped. A page that its maker punches out of it reads as zeros, in
/// ordinary memory: with huge pages it could not be had again, nor a part of one be unmapped.
bool isWholeForGood(int fd) {
    const int seals = fcntl(fd, F_GET_SEALS);
    struct stat file {};
    struct statfs where {};
    return seals >= 0 && (seals & F_SEAL_SHRINK) != 0 && fstat(fd, &file) == 0 &&
           file.st_size >= off_t{kSharedBytes} && fstatfs(fd, &where) == 0 && where.f_type == TMPFS_MAGIC;
}

}  // namespace

std::unique_ptr<SharedBlock> SharedBlock::create() {
    if (!countUp(gBlocks, kMostBlocks)) return nullptr;
    RuntimeFd fd = RuntimeFd::made([] { return memfd_create("binder", MFD_CLOEXEC | MFD_ALLOW_SEALING); });
    uint8_t* bytes = nullptr;
    if (fd.isOpen() && fallocate(fd.get(), 0, 0, kSharedBytes) == 0)
        bytes = mapped(fd.get(), PROT_READ | PROT_WRITE);
    if (bytes != nullptr && seal(fd.get())) {
        auto* const block = new (std::nothrow) SharedBlock(std::move(fd), bytes);
        if (block != nullptr) return std::unique_ptr<SharedBlock>(block);
    }
    if (bytes != nullptr) munmap(bytes, kSharedBytes);
    --gBlocks;
    return nullptr;
}

SharedBlock::SharedBlock(RuntimeFd fd, uint8_t* bytes) : mFd(std::move(fd)), mBytes(bytes) {}

SharedBlock::~SharedBlock() {
    munmap(mBytes, kSharedBytes);
    --gBlocks;
}

std::unique_ptr<SharedView> SharedView::map(int fd) {
    if (!isWholeForGood(fd) || !countUp(gViews, kMostViews)) return nullptr;
    if (uint8_t* const bytes = mapped(fd, PROT_READ)) {
        auto* const view = new (std::nothrow) SharedView(bytes);
        if (view != nullptr) return std::unique_ptr<SharedView>(view);
        munmap(bytes, kSharedBytes);
    }
    --gViews;
    return nullptr;
}

SharedView::SharedView(const uint8_t* bytes) : mBytes(bytes) {}

SharedView::~SharedView() {
    munmap(const_cast<uint8_t*>(mBytes), kSharedBytes);
    --gViews;
}

}  // namespace android::runtime
