#include "simulator/faults/FaultInjector.h"

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

thread_local const ForcedStatus* tInnermost = nullptr;

void add(const Fault& fault, Mishap* mishap) {
    switch (fault.kind) {
        case FaultKind::kDelay:
            mishap->delayMs += static_cast<uint32_t>(fault.value);
            break;
        case FaultKind::kError:
            mishap->hasStatus = true;
            mishap->status = fault.value;
            break;
        case FaultKind::kEmpty:
            mishap->empty = true;
            break;
        case FaultKind::kDie:
            mishap->dies = true;
            mishap->exitStatus = fault.value;
            break;
    }
}

}  // namespace

FaultInjector::FaultInjector(std::vector<Fault> faults) {
    for (Fault& fault : faults)
        mArmed.push_back({std::move(fault), {}, 0});
}

Mishap FaultInjector::onCall(const char* interface, const char* operation) {
    const std::lock_guard lock(mLock);
    Mishap mishap;
    for (Armed& armed : mArmed) {
        if (!isDue(&armed, interface, operation)) continue;
        ++armed.fired;
        add(armed.fault, &mishap);
    }
    return mishap;
}

void FaultInjector::describe(std::string* out) const {
    const std::lock_guard lock(mLock);
    for (const Armed& armed : mArmed)
        appendLine(out, "fault %s: happened %u times", toString(armed.fault).c_str(), armed.fired);
}

bool FaultInjector::isDue(Armed* armed, const std::string& interface, const std::string& operation) {
    const Fault& fault = armed->fault;
    const std::string full = interface + '.' + operation;
    if (fault.operation != "*" && fault.operation != operation && fault.operation != full) return false;
    // "*" counts all operations together.
    const uint32_t count = ++armed->calls[fault.operation == "*" ? "*" : full];
    return (fault.call == 0 || count == fault.call) && (fault.every == 0 || count % fault.every == 0);
}

ForcedStatus::ForcedStatus(const Mishap& mishap) : mMishap(mishap), mOuter(tInnermost) { tInnermost = this; }

ForcedStatus::~ForcedStatus() { tInnermost = mOuter; }

const int32_t* ForcedStatus::current() {
    return tInnermost != nullptr && tInnermost->mMishap.hasStatus ? &tInnermost->mMishap.status : nullptr;
}

}  // namespace accessory::simulator
