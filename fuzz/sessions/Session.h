// A service and up to eight clients, taken through any sequence of registrations, deaths, events and
// requests, beside a model of who must be registered.
#pragma once

#include <binder/IBinder.h>
#include <utils/String8.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "fuzz/sessions/SessionClient.h"

namespace accessory::fuzz {

/// A manager's stub and what a session needs of its family.
struct Service {
    android::sp<android::IBinder> stub;
    std::u16string name;         ///< of the interface
    int32_t clearOfStranger;     ///< answer to a deregistration of a process that is not registered
    std::function<int()> raise;  ///< an event to everyone registered
    std::function<android::String8()> list;  ///< the register's dump
    std::function<void()> forget;            ///< what the implementation has noted down
};

/// The iAP2 and the USB audio service; made once, since stubs stay.
Service& iAP2Service();
Service& audioService();

/// One fuzzer input: steps of two bytes, what and who. For one thread.
class Session {
  public:
    explicit Session(Service& service);
    /// Deregisters everyone.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// @return whether everything went as the interface promises.
    bool run(const uint8_t* data, size_t size);

  private:
    struct Registered {
        size_t client;
        bool isWatched;
    };

    bool step(uint8_t what, uint8_t who, const uint8_t* rest, size_t size);
    bool registers(int pid, size_t client);
    bool registersNobody(int pid);
    bool deregisters(int pid);
    bool dies(size_t client);
    bool everyoneHears();
    bool isListed() const;
    void asks(uint8_t code, const uint8_t* rest, size_t size);
    int32_t answerTo(int pid, uint32_t code, const android::Parcel& request) const;
    android::Parcel& begin(android::Parcel* request) const;

    Service& mService;
    std::vector<android::sp<SessionClient>> mClients;
    std::map<int, Registered> mRegistered;  // by process, as the register has them
};

}  // namespace accessory::fuzz
