// The door of this process: takes connections in and finds out what they are for.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

#include "Frame.h"
#include "Limits.h"
#include "Quota.h"
#include "Reactor.h"
#include "RuntimeFd.h"
#include "Socket.h"

namespace android::runtime {

class Node;
class Peer;

/// Runs on the reactor's thread, once it is open.
class Acceptor {
  public:
    explicit Acceptor(Node& node) : mNode(node) {}

    /// Opens the door unless it is open: what is missing, or was taken away with the runtime folder, is made
    /// again. Any thread. @return false, which is logged, when it cannot be opened.
    bool open();

    /// How often nobody was found at the door, now included: who stood there when it was less has been let in
    /// since. On the reactor's thread.
    uint64_t timesDeserted();

  private:
    using Listener = std::shared_ptr<const RuntimeFd>;

    /// A connection whose Hello is not complete yet.
    struct Greeting {
        RuntimeFd fd;
        Hello hello;
        size_t bytes = 0;
        uint64_t watch = 0;
        Credentials who;
        Reactor::Clock::time_point deadline;
        Quota::Share share;
    };

    enum class Admission {
        kEnded,    ///< it is taken over, or may be closed
        kUnclear,  ///< to be asked again
    };

    bool isOpenLocked() const;
    uint64_t watchListener(const Listener& listener);
    void rewatch();
    void acceptAll(const Listener& listener);
    void pause(const Listener& listener);
    void greet(const std::shared_ptr<Greeting>& greeting);
    void listenOn(const std::shared_ptr<Greeting>& greeting);
    uint64_t watch(const std::shared_ptr<Greeting>& greeting);
    void end(Greeting* greeting);
    void endOldest();
    void sweepLater();
    void sweep();
    void admit(const std::shared_ptr<Greeting>& greeting);
    bool mayWait(const std::shared_ptr<Greeting>& greeting);
    Admission admit(RuntimeFd* fd, const Hello& hello, Credentials* who);
    Admission refuse(const Credentials& who, const char* why);
    void takeOver(RuntimeFd* fd, ConnectionKind kind, const std::shared_ptr<Peer>& peer,
                  const Credentials& who);

    Node& mNode;
    std::mutex mLock;  // guards the listener and its watch
    Listener mListener;
    uint64_t mWatch = 0;
    Quota mQuota{kMostGreetings};
    std::map<uint64_t, std::shared_ptr<Greeting>> mGreetings;  // by watch, so the oldest first
    uint64_t mTimesDeserted = 0;
    bool mSweeping = false;  // a timer looks for late ones
};

}  // namespace android::runtime
