// The runtime's sockets spoken by hand: frames with any field wrong, from a client or from a service.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace accessory::test {

inline constexpr uint32_t kRawProtocol = 0x41424633;

/// The 128 bits that name a process or an object.
struct RawId {
    uint64_t high = 0;
    uint64_t low = 0;
};

struct RawHello {
    uint32_t protocol = kRawProtocol;
    uint32_t kind = 2;  ///< 1 a link, 2 calls, 3 one-way calls
    RawId sender{0x1111, 0x2222};
};
static_assert(sizeof(RawHello) == 24);

struct RawHeader {
    uint32_t protocol = kRawProtocol;
    uint16_t kind = 1;  ///< 1 a call, 2 a one-way call, 3 a reply
    uint8_t descriptorCount = 0;
    uint8_t sharing = 0;
    uint32_t code = 1;
    uint32_t flags = 0;
    uint32_t dataSize = 0;
    uint32_t objectCount = 0;
    RawId target;
};
static_assert(sizeof(RawHeader) == 40);

struct RawRecord {
    uint32_t offset = 0;
    uint32_t kind = 1;  ///< 1 a binder, 2 a descriptor
    RawId owner;
    RawId token;
};
static_assert(sizeof(RawRecord) == 40);

struct RawLinkMessage {
    uint32_t kind = 1;  ///< 1 acquire, 2 release, 3 transfer, 4 revoke
    uint32_t count = 0;
    RawId token;
    RawId beneficiary;
};
static_assert(sizeof(RawLinkMessage) == 40);

/// The bytes of @p value, which is one of the structures above or a word.
template <typename T>
std::string bytesOf(const T& value) {
    return {reinterpret_cast<const char*>(&value), sizeof(value)};
}

/// Where a service is to be found, as its entry in the runtime folder says.
struct RawAddress {
    std::string socket;  ///< its file
    RawId owner;
    RawId token;

    static RawAddress of(const std::string& serviceName);
};

/// One connection to a process that uses the runtime.
class RawPeer {
  public:
    /// Connects and sends nothing yet.
    explicit RawPeer(const RawAddress& address);
    /// Connects and sends @p hello.
    RawPeer(const RawAddress& address, const RawHello& hello);
    ~RawPeer();
    RawPeer(const RawPeer&) = delete;
    RawPeer& operator=(const RawPeer&) = delete;

    /// Sends @p bytes as far as the other end takes them, with @p fds beside their first one.
    void send(const std::string& bytes, const std::vector<int>& fds = {});

    /// Sends as much of @p bytes as the other end takes without a wait. @return how much that is.
    size_t offer(const std::string& bytes);

    /// Waits until the other end has taken all that was sent. @return false when it does not.
    bool isTakenIn();

    /// Whether the other end has neither said anything nor hung up.
    bool isQuiet();

    /// Ends one direction, SHUT_RD or SHUT_WR, or both.
    void shutDown(int how);

    /// The next @p count bytes, or fewer when the other end hangs up or nothing more comes.
    std::string receive(size_t count);

    /// Waits until the other end has hung up. @return false when it says something or waits instead.
    bool isHungUpOn();

  private:
    const int mSocket;
};

/// A service under a name of its own that neither takes nor reads anything.
class DeafService {
  public:
    /// @param door for so many callers, who are let in by the kernel; the next ones have to wait.
    explicit DeafService(int door);
    ~DeafService();
    DeafService(const DeafService&) = delete;
    DeafService& operator=(const DeafService&) = delete;

    const std::string& name() const { return mName; }
    /// The door, for tests that let callers in after all.
    int listener() const { return mListener; }

  private:
    const std::string mName;
    const int mListener;
};

/// A service under a name of its own that takes one client's link and first call, and answers the call with
/// bytes of the test's choice. The test makes that call before the service ends.
class RawService {
  public:
    explicit RawService(const std::string& answer);
    /// @param behave does whatever it likes with the connection, on a thread of its own, once a call has
    /// come.
    explicit RawService(std::function<void(int calls)> behave);
    ~RawService();
    RawService(const RawService&) = delete;
    RawService& operator=(const RawService&) = delete;

    const std::string& name() const { return mName; }

  private:
    void serve();

    const std::string mName;
    const std::function<void(int calls)> mBehave;
    const int mListener;
    std::atomic<int> mCalls{-1};  ///< the connection of the first call
    std::thread mThread;
};

}  // namespace accessory::test
