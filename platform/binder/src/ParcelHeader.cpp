// The headers of requests and replies.
#include <android/log.h>
#include <binder/IBinder.h>
#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

namespace android {

namespace {

/// Set in every request's policy: the platform gathers strict-mode violations for the caller.
constexpr uint32_t kGatherViolations = 1u << 31;

constexpr int32_t kNoException = 0;
constexpr int32_t kServiceSpecific = -8;
constexpr int32_t kParcelable = -9;
constexpr int32_t kHasReplyHeader = -128;
constexpr int32_t kTransactionFailed = -129;

int32_t requestPolicy(const IPCThreadState* state) {
    const int32_t policy = state != nullptr ? state->getStrictModePolicy() : 0;
    return static_cast<int32_t>(static_cast<uint32_t>(policy) | kGatherViolations);
}

int32_t requestWorkSource(const IPCThreadState* state) {
    const bool propagate = state != nullptr && state->shouldPropagateWorkSource();
    return propagate ? static_cast<int32_t>(state->getCallingWorkSourceUid())
                     : IPCThreadState::kUnsetWorkSource;
}

/// Takes over what the caller's header says; nobody waits for the violations of a one-way call.
void applyHeader(IPCThreadState& state, int32_t policy, int32_t workSource) {
    const bool oneWay = (state.getLastTransactionBinderFlags() & IBinder::FLAG_ONEWAY) != 0;
    state.setStrictModePolicy(oneWay ? 0 : policy);
    state.setCallingWorkSourceUidWithoutPropagation(static_cast<uid_t>(workSource));
}

void logMismatch(const String16& wanted, const char16_t* name, size_t len) {
    const String8 found = name != nullptr ? String8(name, len) : String8();
    __android_log_print(ANDROID_LOG_WARN, "Parcel", "The request is for '%s', not for '%s'", found.string(),
                        String8(wanted).string());
}

/// Moves @p parcel behind a reply header, whose size counts itself. @return whether the size makes sense.
bool skipReplyHeader(const Parcel& parcel) {
    const size_t start = parcel.dataPosition();
    const size_t avail = parcel.dataAvail();
    int32_t size = 0;
    if (parcel.readInt32(&size) != NO_ERROR) return false;
    if (size < static_cast<int32_t>(sizeof size) || static_cast<size_t>(size) > avail) return false;
    parcel.setDataPosition(start + static_cast<size_t>(size));
    return true;
}

/// Moves @p parcel behind a block of bytes that its int32 size goes before, if it is all there.
void skipBlock(const Parcel& parcel) {
    int32_t size = 0;
    if (parcel.readInt32(&size) != NO_ERROR || size < 0) return;
    const size_t left = parcel.dataAvail();
    if (static_cast<size_t>(size) <= left)
        parcel.setDataPosition(parcel.dataPosition() + static_cast<size_t>(size));
}

/// Moves @p parcel behind what describes the exception @p code: a message, a stack trace, and what some kinds
/// add.
void skipException(const Parcel& parcel, int32_t code) {
    size_t messageLen = 0;
    parcel.readString16Inplace(&messageLen);
    skipBlock(parcel);
    if (code == kServiceSpecific) parcel.readInt32();
    if (code == kParcelable) skipReplyHeader(parcel);
}

}  // namespace

status_t Parcel::writeInterfaceToken(const String16& interface) {
    const IPCThreadState* const state = IPCThreadState::self();
    writeInt32(requestPolicy(state));
    writeInt32(requestWorkSource(state));
    return writeString16(interface);
}

bool Parcel::enforceInterface(const String16& interface, IPCThreadState* threadState) const {
    const int32_t policy = readInt32();
    const int32_t workSource = readInt32();
    IPCThreadState* const state = threadState != nullptr ? threadState : IPCThreadState::self();
    if (state != nullptr) applyHeader(*state, policy, workSource);
    size_t len = 0;
    const char16_t* const name = readString16Inplace(&len);
    if (strzcmp16(name, len, interface.string(), interface.size()) == 0) return true;
    logMismatch(interface, name, len);
    return false;
}

bool Parcel::checkInterface(IBinder* binder) const {
    return enforceInterface(binder->getInterfaceDescriptor());
}

status_t Parcel::writeNoException() { return writeInt32(kNoException); }

int32_t Parcel::readExceptionCode() const {
    int32_t code = 0;
    if (readInt32(&code) != NO_ERROR) return kTransactionFailed;
    if (code == kNoException) return kNoException;
    if (code == kHasReplyHeader) return skipReplyHeader(*this) ? kNoException : kTransactionFailed;
    skipException(*this, code);
    return code;
}

}  // namespace android
