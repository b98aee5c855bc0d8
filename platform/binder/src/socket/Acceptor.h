// The door of this process: takes connections in and finds out what they are for.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>

#include "Access.h"
#include "Frame.h"
#include "RuntimeFd.h"
#include "Socket.h"

namespace android::runtime {

class Node;

/// Runs on the reactor's thread, once it is open.
class Acceptor {
  public:
    explicit Acceptor(Node& node) : mNode(node) {}

    /// Opens the door unless it is open: what is missing, or was taken away with the runtime folder, is made
    /// again. Any thread. @return false, which is logged, when it cannot be opened.
    bool open();

  private:
    using Listener = std::shared_ptr<const RuntimeFd>;

    /// A connection whose Hello is not complete yet.
    struct Greeting {
        RuntimeFd fd;
        Hello hello;
        size_t bytes = 0;
        uint64_t watch = 0;
    };

    bool isOpenLocked() const;
    uint64_t watchListener(const Listener& listener);
    void rewatch();
    void acceptAll(const Listener& listener);
    void pause(const Listener& listener);
    void greet(const std::shared_ptr<Greeting>& greeting);
    void listenOn(const std::shared_ptr<Greeting>& greeting);
    void admit(RuntimeFd* fd, const Hello& hello);

    Node& mNode;
    std::mutex mLock;  // guards the listener and its watch
    Listener mListener;
    uint64_t mWatch = 0;
    RefusalLog mRefusals;
};

}  // namespace android::runtime
