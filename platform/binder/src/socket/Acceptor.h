// The door of this process: takes connections in and finds out what they are for.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "Frame.h"
#include "Limits.h"
#include "Quota.h"
#include "Reactor.h"
#include "RuntimeFd.h"
#include "Socket.h"

namespace android::runtime {

class Node;

/// Runs on the reactor's thread.
class Acceptor {
  public:
    explicit Acceptor(Node& node);

  private:
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

    void open();
    void acceptAll();
    void pause();
    void greet(const std::shared_ptr<Greeting>& greeting);
    void listenOn(const std::shared_ptr<Greeting>& greeting);
    void end(Greeting* greeting);
    void endOldest();
    void sweepLater();
    void sweep();
    void admit(RuntimeFd fd, const Hello& hello);

    Node& mNode;
    RuntimeFd mListener;
    uint64_t mWatch = 0;
    Quota mQuota{kMostGreetings};
    std::map<uint64_t, std::shared_ptr<Greeting>> mGreetings;  // by watch, so the oldest first
    bool mSweeping = false;                                    // a timer looks for late ones
};

}  // namespace android::runtime
