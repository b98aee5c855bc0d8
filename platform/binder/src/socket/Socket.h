// Unix stream sockets: opening, connecting, and moving bytes whatever signals and full buffers say.
#pragma once

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <sys/un.h>

#include <string>
#include <utility>

#include "RuntimeFd.h"

namespace android::runtime {

/// Who is at the other end, as the kernel knows it.
struct Credentials {
    pid_t pid = 0;
    uid_t uid = 0;
};

/// A folder that sockets lie in. Reaches them however long its path is.
class SocketFolder {
  public:
    explicit SocketFolder(std::string path) : mPath(std::move(path)) {}

    const std::string& path() const { return mPath; }
    std::string pathOf(const std::string& name) const { return mPath + "/" + name; }

    /// A listening socket under @p name, in the place of what may lie there; closed when it cannot be had,
    /// with errno set.
    /// @param mode of its file: who may write to it may connect.
    RuntimeFd listen(const std::string& name, mode_t mode) const;
    /// A connection to the socket @p name; closed when nobody listens there, with errno set.
    /// @param wait whether to wait a few seconds when the listener has no room for the moment, instead of
    ///             EAGAIN at once.
    RuntimeFd connect(const std::string& name, bool wait) const;

    /// Whether somebody listens at the socket @p name, though he may have no room for the moment.
    bool isAlive(const std::string& name) const;

  private:
    bool address(const std::string& name, sockaddr_un* out, RuntimeFd* folder) const;

    const std::string mPath;
};

/// Whether that error of a socket passes: the socket is as good as before, and the same may go well next
/// time.
bool isPassing(int error);
/// Whether that error of sending says that nobody will ever read there again.
bool isHangUp(int error);

/// Waits until one of @p events, or the other end's hanging up, comes to @p fd, whatever signals come
/// meanwhile.
/// @param milliseconds -1 for as long as it takes. @return whether it came.
bool awaitEvents(int fd, short events, int milliseconds);

/// @return false when the kernel does not say.
bool readCredentials(int fd, Credentials* out);

/// sendmsg() and recvmsg() without the C library's point of cancellation: a thread that is ended in the
/// middle of a frame would leave a connection that nobody can use, and in a program with threads it costs as
/// much as the rest of the way into the kernel.
ssize_t sendMessage(int fd, const msghdr* message, int flags);
ssize_t receiveMessage(int fd, msghdr* message, int flags);

/// How to wait for a socket beyond its own time limit.
class Patience {
  public:
    /// Returns when @p fd is ready for @p events of poll(), its end included.
    /// @param lapsed whether the socket's time limit is over; else it was not waited for, or a signal came in
    ///               between.
    virtual void await(int fd, short events, bool lapsed) = 0;

  protected:
    ~Patience() = default;
};

/// As @p patience does it, else quietly for ever.
void awaitSocket(int fd, short events, bool lapsed, Patience* patience);

enum class Sent {
    kAll,
    kBegun,    ///< the socket is full; the bytes that it has not taken are in @c rest
    kNothing,  ///< the kernel takes it not at all, @c errno says why; the socket is as good as before
    kGone,     ///< the other end is gone, or has got a part and will never get the rest
};

/// Sends everything, or fails. Never raises SIGPIPE.
/// @param parts    changed while sending.
/// @param fds      travel with the first byte.
/// @param rest     null to wait while the socket is full. Otherwise nothing waits: kNothing with EAGAIN when
/// the
///                 socket takes no byte, kBegun when it does not take all of them.
/// @param patience how to wait; may be null.
Sent sendAll(int fd, iovec* parts, size_t partCount, const int* fds, size_t fdCount,
             std::string* rest = nullptr, Patience* patience = nullptr);

}  // namespace android::runtime
