// Descriptors that belong to the runtime itself.
#pragma once

#include <mutex>
#include <utility>

namespace android::runtime {

/// Owns one descriptor. All of them are known in one list, so that a forked child lets go of every socket of
/// its parent at once: otherwise it would keep them open after the parent's death and nobody would notice.
class RuntimeFd {
  public:
    RuntimeFd() = default;
    /// Takes @p fd over; -1 for none.
    explicit RuntimeFd(int fd);
    /// Takes over what @p make returns, and lets no thread fork meanwhile: the child would keep a descriptor
    /// that is not known yet. @p make must not block; errno is what it left.
    template <typename Make>
    static RuntimeFd made(const Make& make) {
        const auto guard = holdForks();
        RuntimeFd fd;
        fd.mFd = make();
        if (fd.isOpen()) enlist(fd.mFd);
        return fd;
    }
    ~RuntimeFd() { reset(); }
    RuntimeFd(RuntimeFd&& other) noexcept : mFd(std::exchange(other.mFd, -1)) {}
    RuntimeFd& operator=(RuntimeFd&& other) noexcept;

    int get() const { return mFd; }
    bool isOpen() const { return mFd >= 0; }
    void reset();

    /// Whether this process was forked off from one that had used the runtime: nothing of it works here.
    static bool isForkedChild();
    /// Sees to it that isForkedChild() tells, from now on; the first descriptor does so, too.
    static void noticeForks();

  private:
    static std::unique_lock<std::mutex> holdForks();
    static void enlist(int fd);  // while forks are held

    int mFd = -1;
};

}  // namespace android::runtime
