// FaultyStub: a manager's stub whose calls meet the faults that were asked for.
#pragma once

#include <binder/Parcel.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include "simulator/faults/FaultInjector.h"
#include "simulator/faults/Operations.h"

namespace accessory::simulator {

/// Takes one line for each fault that happens.
using FaultReport = std::function<void(const std::string& line)>;

/// @tparam Stub one of the three managers' stubs.
template <typename Stub>
class FaultyStub : public Stub {
  public:
    /// @param hosted what @p Stub serves. @param faults outlives the stub.
    template <typename Implementation>
    FaultyStub(const android::sp<Implementation>& implementation, const HostedInterface& hosted,
               FaultInjector& faults, FaultReport report)
        : Stub(implementation), mHosted(hosted), mFaults(faults), mReport(std::move(report)) {}

  protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override {
        const char* const operation = mHosted.nameOf(code);
        const Mishap mishap = mFaults.onCall(mHosted.name, operation);
        report(operation, mishap);
        std::this_thread::sleep_for(std::chrono::milliseconds(mishap.delayMs));
        // As abrupt as a crash: nothing is flushed, nobody is told.
        if (mishap.dies) _exit(mishap.exitStatus);
        const ForcedStatus forced(mishap);
        const android::status_t status = Stub::onTransact(code, data, reply, flags);
        if (mishap.empty && reply != nullptr) reply->setDataSize(0);
        return status;
    }

  private:
    void report(const char* operation, const Mishap& mishap) {
        const std::string name = std::string(mHosted.name) + '.' + operation;
        if (mishap.delayMs > 0) mReport(name + " is delayed by " + std::to_string(mishap.delayMs) + " ms");
        if (mishap.dies) mReport(name + " ends the process");
        if (mishap.hasStatus) mReport(name + " is answered with " + std::to_string(mishap.status));
        if (mishap.empty) mReport(name + " is answered with nothing");
    }

    const HostedInterface& mHosted;
    FaultInjector& mFaults;
    const FaultReport mReport;
};

}  // namespace accessory::simulator
