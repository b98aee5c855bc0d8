// The way of one-way calls to one other process: their order, and what becomes of them when it falls behind.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "Connection.h"

namespace android::runtime {

class Reactor;

/// A receiver that takes nothing in any more must not hold a sender up for ever, however large the call. So
/// no thread waits for all of a call to be sent: when its beginning is in the socket, it is accepted, and
/// after some patience the rest is left to the reactor. Until that is out, more calls are refused.
///
/// mOrder is held while a sender waits. mLock is taken after it, and alone by the reactor; under it nothing
/// waits, and only Reactor::mLock is taken. The connection is replaced with both held.
class OnewayLane : public std::enable_shared_from_this<OnewayLane> {
  public:
    /// Makes a connection, or says why there is none.
    using Open = std::function<std::unique_ptr<Connection>(status_t* status)>;

    /// @param open called when there is no connection, by the thread that sends.
    OnewayLane(Reactor& reactor, Open open) : mReactor(reactor), mOpen(std::move(open)) {}

    /// Sends after all that was sent before.
    /// @return NO_ERROR; FAILED_TRANSACTION when the receiver takes nothing in; what Connection::send() or
    /// the
    ///         lack of a connection says.
    status_t send(const FrameHeader& header, const void* data, const std::vector<ObjectRecord>& records,
                  const std::vector<int>& fds);

    /// Closes the connection. Waits for a thread that sends.
    void drop();

  private:
    void use(std::unique_ptr<Connection> connection);
    bool flush();
    bool flushWithin(int milliseconds);
    void flushLater();
    void goOn();
    void noteFull();

    Reactor& mReactor;
    const Open mOpen;
    std::mutex mOrder;
    bool mIsFull = false;
    std::mutex mLock;
    std::unique_ptr<Connection> mConnection;
    uint64_t mWatch = 0;
};

}  // namespace android::runtime
