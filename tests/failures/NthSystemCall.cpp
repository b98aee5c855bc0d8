// Stand-ins for the C library's functions through which the runtime asks the kernel for something. The
// program's own come before the C library's for every library in it. The errors are those that the kernel can
// answer with on a machine that runs out of something; a signal is one of them where it can interrupt.
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/mman.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>

#include "tests/failures/NthFailure.h"
#include "tests/failures/ShortTransfer.h"

using accessory::test::errorToFailWith;
using accessory::test::shortened;

#define VISIBLE extern "C" __attribute__((visibility("default")))

namespace {

/// The function that stands behind a stand-in: a sanitizer's, which has to hear of threads above all, or else
/// the C library's own.
void* behind(const char* ofSanitizer, const char* own) {
    void* const function = dlsym(RTLD_DEFAULT, ofSanitizer);
    return function != nullptr ? function : dlsym(RTLD_NEXT, own);
}

/// Sets errno. @return whether the call fails.
bool fails(std::initializer_list<int> possible) {
    const int error = errorToFailWith(possible);
    if (error != 0) errno = error;
    return error != 0;
}

}  // namespace

// Looked up once, though two threads may both look: the guard of a static variable would have one wait in
// syscall(), which is one of the functions here.
#define GENUINE(function)                                                                              \
    static std::atomic<void*> known_##function{nullptr};                                               \
    if (known_##function == nullptr) known_##function = behind("__interceptor_" #function, #function); \
    auto* const genuine_##function = reinterpret_cast<decltype(&(function))>(known_##function.load())

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name, performance-no-int-to-ptr): the C
// library's headers name no parameter as others may, and syscall() takes pointers for numbers
VISIBLE int socket(int domain, int type, int protocol) noexcept {
    GENUINE(socket);
    return fails({EMFILE, ENOMEM, ENOBUFS}) ? -1 : genuine_socket(domain, type, protocol);
}

VISIBLE int bind(int fd, const sockaddr* address, socklen_t size) noexcept {
    GENUINE(bind);
    return fails({ENOMEM, EIO}) ? -1 : genuine_bind(fd, address, size);
}

VISIBLE int listen(int fd, int backlog) noexcept {
    GENUINE(listen);
    return fails({ENOMEM}) ? -1 : genuine_listen(fd, backlog);
}

VISIBLE int chmod(const char* path, mode_t mode) noexcept {
    GENUINE(chmod);
    return fails({EIO, ENOMEM}) ? -1 : genuine_chmod(path, mode);
}

VISIBLE int accept4(int fd, sockaddr* address, socklen_t* size, int flags) {
    GENUINE(accept4);
    return fails({EMFILE, ENOMEM, ENOBUFS, EAGAIN, EINTR}) ? -1 : genuine_accept4(fd, address, size, flags);
}

VISIBLE int connect(int fd, const sockaddr* address, socklen_t size) {
    GENUINE(connect);
    return fails({ENOMEM, EAGAIN, EINTR}) ? -1 : genuine_connect(fd, address, size);
}

VISIBLE ssize_t send(int fd, const void* data, size_t size, int flags) {
    GENUINE(send);
    return fails({ENOBUFS, ENOMEM, EINTR, EAGAIN}) ? -1 : genuine_send(fd, data, shortened(size), flags);
}

VISIBLE ssize_t recv(int fd, void* data, size_t size, int flags) {
    GENUINE(recv);
    return fails({ENOMEM, EINTR, EAGAIN}) ? -1 : genuine_recv(fd, data, shortened(size), flags);
}

VISIBLE int epoll_create1(int flags) noexcept {
    GENUINE(epoll_create1);
    return fails({EMFILE, ENOMEM}) ? -1 : genuine_epoll_create1(flags);
}

VISIBLE int epoll_ctl(int set, int operation, int fd, epoll_event* event) noexcept {
    GENUINE(epoll_ctl);
    if (operation == EPOLL_CTL_ADD && fails({ENOMEM})) return -1;
    return genuine_epoll_ctl(set, operation, fd, event);
}

VISIBLE int eventfd(unsigned count, int flags) noexcept {
    GENUINE(eventfd);
    return fails({EMFILE, ENOMEM}) ? -1 : genuine_eventfd(count, flags);
}

VISIBLE int inotify_init1(int flags) noexcept {
    GENUINE(inotify_init1);
    return fails({EMFILE, ENOMEM}) ? -1 : genuine_inotify_init1(flags);
}

VISIBLE int memfd_create(const char* name, unsigned flags) noexcept {
    GENUINE(memfd_create);
    return fails({EMFILE, ENOMEM}) ? -1 : genuine_memfd_create(name, flags);
}

VISIBLE int fallocate(int fd, int mode, off_t offset, off_t size) {
    GENUINE(fallocate);
    return fails({ENOSPC, EINTR}) ? -1 : genuine_fallocate(fd, mode, offset, size);
}

VISIBLE int rename(const char* from, const char* to) noexcept {
    GENUINE(rename);
    return fails({EIO, ENOMEM}) ? -1 : genuine_rename(from, to);
}

VISIBLE int mkdir(const char* path, mode_t mode) noexcept {
    GENUINE(mkdir);
    return fails({EIO, ENOMEM}) ? -1 : genuine_mkdir(path, mode);
}

VISIBLE int lstat(const char* path, struct stat* out) noexcept {
    GENUINE(lstat);
    return fails({EIO, ENOMEM}) ? -1 : genuine_lstat(path, out);
}

VISIBLE int flock(int fd, int operation) noexcept {
    GENUINE(flock);
    return fails({ENOMEM, EINTR}) ? -1 : genuine_flock(fd, operation);
}

VISIBLE ssize_t read(int fd, void* room, size_t size) {
    GENUINE(read);
    return fails({EIO}) ? -1 : genuine_read(fd, room, size);
}

VISIBLE ssize_t write(int fd, const void* data, size_t size) {
    GENUINE(write);
    return fails({EIO}) ? -1 : genuine_write(fd, data, size);
}

VISIBLE int open(const char* path, int flags, ...) {
    GENUINE(open);
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return fails({EMFILE, ENOMEM, EIO}) ? -1 : genuine_open(path, flags, mode);
}

VISIBLE int poll(pollfd* fds, nfds_t count, int timeout) {
    GENUINE(poll);
    return fails({EINTR, ENOMEM}) ? -1 : genuine_poll(fds, count, timeout);
}

VISIBLE void* mmap(void* where, size_t size, int protection, int flags, int fd, off_t offset) noexcept {
    GENUINE(mmap);
    if (fd >= 0 && fails({ENOMEM})) return MAP_FAILED;
    return genuine_mmap(where, size, protection, flags, fd, offset);
}

VISIBLE int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                           void* argument) noexcept {
    GENUINE(pthread_create);
    const int error = errorToFailWith({EAGAIN});
    return error != 0 ? error : genuine_pthread_create(thread, attributes, body, argument);
}

namespace {

/// The message that the runtime hands to the kernel, cut short.
struct ShortMessage {
    msghdr message;
    iovec part;

    explicit ShortMessage(const msghdr& whole) : message(whole), part(*whole.msg_iov) {
        const size_t size = shortened(part.iov_len);
        if (size == part.iov_len) return;
        part.iov_len = size;
        message.msg_iov = &part;
        message.msg_iovlen = 1;
    }
};

long sendMessage(int fd, const msghdr* whole, int flags) {
    GENUINE(sendmsg);
    if (fails({ENOMEM, ENOBUFS, EINTR})) return -1;
    const ShortMessage cut(*whole);
    return genuine_sendmsg(fd, &cut.message, flags);
}

long receiveMessage(int fd, msghdr* whole, int flags) {
    GENUINE(recvmsg);
    if (fails({ENOMEM, EINTR, EAGAIN})) return -1;
    ShortMessage cut(*whole);
    const ssize_t size = genuine_recvmsg(fd, &cut.message, flags);
    whole->msg_controllen = cut.message.msg_controllen;
    whole->msg_flags = cut.message.msg_flags;
    return size;
}

}  // namespace

VISIBLE long syscall(long number, ...) noexcept {
    GENUINE(syscall);
    va_list more;
    va_start(more, number);
    long words[6];
    for (long& word : words)
        word = va_arg(more, long);
    va_end(more);
    const auto fd = static_cast<int>(words[0]);
    if (number == SYS_sendmsg) {
        return sendMessage(fd, reinterpret_cast<const msghdr*>(words[1]), static_cast<int>(words[2]));
    }
    if (number == SYS_recvmsg) {
        return receiveMessage(fd, reinterpret_cast<msghdr*>(words[1]), static_cast<int>(words[2]));
    }
    if (number == SYS_sendto) {
        if (fails({ENOMEM, ENOBUFS, EINTR})) return -1;
        words[2] = static_cast<long>(shortened(static_cast<size_t>(words[2])));
    }
    return genuine_syscall(number, words[0], words[1], words[2], words[3], words[4], words[5]);
}

VISIBLE ssize_t getrandom(void* room, size_t size, unsigned flags) {
    GENUINE(getrandom);
    return fails({EINTR}) ? -1 : genuine_getrandom(room, size, flags);
}

VISIBLE int epoll_wait(int set, epoll_event* events, int most, int timeout) {
    GENUINE(epoll_wait);
    return fails({EINTR}) ? -1 : genuine_epoll_wait(set, events, most, timeout);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name, performance-no-int-to-ptr)
