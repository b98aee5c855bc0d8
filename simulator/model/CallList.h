// CallList: the calls of a device and how they go from ringing to their end.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace accessory::simulator {

/// The numbers of these three are those that travel.
enum class CallState : int32_t {
    kDisconnected = 0,
    kDialling = 1,
    kRinging = 2,
    kConnecting = 3,
    kActive = 4,
    kHeld = 5,
};
enum class CallDirection : int32_t { kUnknown = 0, kIncoming = 1, kOutgoing = 2 };
enum class DisconnectReason : int32_t { kEnded = 0, kDeclined = 1, kFailed = 2 };

struct Call {
    std::string uuid;
    std::string remoteId;  ///< a number or address
    std::string name;
    std::string label;  ///< e.g. "mobile"
    std::string addressBookId;
    int32_t service = 1;  ///< 1 telephony, 2 audio over the network, 3 video over the network
    CallState state = CallState::kDisconnected;
    CallDirection direction = CallDirection::kUnknown;
    bool conference = false;
    DisconnectReason reason = DisconnectReason::kEnded;
    int32_t startTime = 0;  ///< seconds of the device's clock at which it became active
};

/// What the device could do now.
struct CallAbilities {
    bool initiate = false;
    bool endAndAccept = false;
    bool holdAndAccept = false;
    bool swap = false;
    bool merge = false;
    bool hold = false;
};

/// Every operation: @return false when the calls are not such that it could be done. A null @p uuid means
/// the call that is meant most likely: the ringing one, the active one, the held one.
class CallList {
  public:
    /// @return the new call's identifier.
    std::string incoming(Call call);
    std::string outgoing(Call call);

    bool connecting(const std::string& uuid);
    bool connected(const std::string& uuid, int32_t time);

    /// Accepts a ringing call. @param endOthers ends the active calls, which are held otherwise.
    bool accept(const char* uuid, bool endOthers, int32_t time);
    bool end(const char* uuid);
    bool endAll();
    bool swap();
    bool merge();
    bool hold(const char* uuid, bool held);

    /// Whether there is such a call, in that state or, without an identifier, any.
    const Call* find(const char* uuid, CallState state) const;
    bool contains(const std::string& uuid) const { return byUuid(uuid) != nullptr; }

    const std::vector<Call>& calls() const { return mCalls; }
    CallAbilities abilities() const;

    /// The calls that changed since the last time, those that ended too.
    std::vector<Call> takeChanged();

    void clear() { *this = CallList(); }

  private:
    std::string add(Call call, CallState state, CallDirection direction);
    Call* byUuid(const std::string& uuid);
    const Call* byUuid(const std::string& uuid) const;
    Call* pick(const char* uuid, std::initializer_list<CallState> states);
    size_t count(CallState state) const;
    /// Moves every call from one state to another. @return whether there was one.
    bool moveAll(CallState from, CallState to);
    void changed(Call* call, CallState state);
    void endCall(Call* call);
    /// Drops what ended; one call alone is no conference.
    void tidy();

    std::vector<Call> mCalls;
    std::vector<Call> mChanged;
    uint32_t mMade = 0;
};

}  // namespace accessory::simulator
