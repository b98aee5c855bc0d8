// FaultInjector: decides, call by call, which faults happen.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "simulator/faults/Fault.h"

namespace accessory::simulator {

/// What is to happen to one call.
struct Mishap {
    uint32_t delayMs = 0;
    bool hasStatus = false;
    int32_t status = 0;
    bool empty = false;
    bool dies = false;
    int32_t exitStatus = 0;
};

/// Any thread may call it.
class FaultInjector {
  public:
    explicit FaultInjector(std::vector<Fault> faults);

    /// Counts a call of @p operation of @p interface. @return what all faults that are due now do together.
    Mishap onCall(const char* interface, const char* operation);

    /// The faults and how often each happened.
    void describe(std::string* out) const;

  private:
    struct Armed {
        Fault fault;
        std::map<std::string, uint32_t> calls;  ///< by operation
        uint32_t fired = 0;
    };

    static bool isDue(Armed* armed, const std::string& interface, const std::string& operation);

    mutable std::mutex mLock;
    std::vector<Armed> mArmed;
};

/// The status that the call served by this thread is to be answered with, if any: set by the stub, read by
/// whoever carries the operation out.
class ForcedStatus {
  public:
    explicit ForcedStatus(const Mishap& mishap);
    ~ForcedStatus();

    ForcedStatus(const ForcedStatus&) = delete;
    ForcedStatus& operator=(const ForcedStatus&) = delete;

    /// Null when the operation is to be carried out. The nested call of a callback has one of its own.
    static const int32_t* current();

  private:
    const Mishap mMishap;
    const ForcedStatus* const mOuter;
};

}  // namespace accessory::simulator
