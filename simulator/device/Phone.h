// Phone: the device's calls and network, and the events about them.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "simulator/device/Feature.h"
#include "simulator/device/PhoneFields.h"
#include "simulator/device/Profile.h"
#include "simulator/engine/Timer.h"
#include "simulator/model/CallList.h"

namespace accessory::simulator {

class Phone : public Feature {
  public:
    /// Second argument of AcceptCall().
    enum AcceptAction : int { kHoldAndAccept = 0, kEndAndAccept = 1 };
    /// Second argument of EndCall().
    enum EndAction : int { kEndOne = 0, kEndAll = 1 };
    /// InitiateCallParam::type.
    enum CallType : int { kToDestination = 0, kToVoicemail = 1, kRedial = 2 };
    static constexpr int kHighestTone = 11;  ///< 0 to 9, 10 star, 11 pound

    Phone(Stage& stage, unsigned int id, const DeviceProfile& profile);

    void reset();

    int startCallStates(const CallFields& asked);
    int stopCallStates();
    int startCommunications(const CommunicationsFields& asked);
    int stopCommunications();

    int accept(int action, const char* uuid);
    int end(int action, const char* uuid);
    int initiate(int type, const char* destination, int32_t service, const char* addressBookId);
    int swap() { return publish(mCalls.swap()); }
    int merge() { return publish(mCalls.merge()); }
    int hold(bool held, const char* uuid) { return publish(mCalls.hold(uuid, held)); }
    int mute(bool muted);
    int tone(int tone, const char* uuid);

    /// Somebody calls, and gives up after @p patience unless accepted; 0: never.
    void ring(Call call, milliseconds patience);
    /// The other end hangs up whatever call there is.
    void hangUp() { publish(mCalls.endAll()); }
    void setNetwork(const Network& network);
    const Network& network() const { return mNetwork; }

    void describe(std::string* out) const;

  private:
    int publish(bool done);
    void tellCall(const Call& call);
    void tellCommunications();
    CommunicationsView communications() const;
    int32_t deviceTime() const;
    void later(const std::string& uuid, milliseconds delay, Stage::Action action);

    const DeviceProfile& mProfile;
    Network mNetwork;
    CallList mCalls;
    bool mMuted = false;
    std::string mLastDialled;
    std::string mTones;
    std::optional<CallFields> mAskedCalls;
    std::optional<CommunicationsFields> mAskedCommunications;
    CommunicationsView mTold;
    std::map<std::string, std::unique_ptr<Timer>> mTimers;  ///< by call
};

}  // namespace accessory::simulator
