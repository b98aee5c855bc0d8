// The door of this process: takes connections in and finds out what they are for.
#pragma once

#include <cstdint>
#include <memory>

#include "Access.h"
#include "Frame.h"
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
    };

    void open();
    void acceptSome();
    void pause();
    void greet(const std::shared_ptr<Greeting>& greeting);
    void listenOn(const std::shared_ptr<Greeting>& greeting);
    void admit(RuntimeFd fd, const Hello& hello);

    Node& mNode;
    RuntimeFd mListener;
    uint64_t mWatch = 0;
    RefusalLog mRefusals;
};

}  // namespace android::runtime
