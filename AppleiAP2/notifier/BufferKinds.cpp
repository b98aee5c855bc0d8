#include "AppleiAP2/notifier/BufferKinds.h"

namespace accessory::wire::iap2_notifier {

namespace {

/// Where the stub reads its requests, for the assertion's report.
constexpr char kOnTransact[] =
    "virtual android::status_t accessory::BnAppleiAP2ManagerNotifier::onTransact(uint32_t, const "
    "android::Parcel&, android::Parcel*, uint32_t)";

}  // namespace

void TransferSetup::write(Writer& out, const FileTransferSetup* setup) {
    static const FileTransferSetup kNone;
    if (setup == nullptr) out.step(android::BAD_VALUE);
    const FileTransferSetup& written = setup != nullptr ? *setup : kNone;
    constexpr uint32_t kBufferWord = 0;
    const uint32_t words[8] = {written.value1, written.value2, written.value3,       written.value4,
                               written.value5, kBufferWord,    written.bufferLength, written.value8};
    out.raw(words, sizeof(words));
    out.i32(static_cast<int32_t>(written.bufferLength));
    if (written.bufferLength != 0) out.raw(written.buffer, written.bufferLength);
}

GiveUp TransferSetup::Slot::read(Reader& in) {
    uint32_t words[8] = {};
    in.raw(words, sizeof(words));
    const auto length = static_cast<uint32_t>(in.i32());
    if (length != 0 && buffer.allocate(length)) {
        in.raw(buffer.get(), length);
    } else if (length != 0) {
        in.step(android::NO_MEMORY);
    }
    setup = {
        words[0], words[1], words[2], words[3], words[4], buffer.get(), buffer.get() != nullptr ? length : 0,
        words[7]};
    return kGoOn;
}

GiveUp LinkKeyBytes::Slot::read(Reader& in) {
    length = static_cast<uint32_t>(in.i32());
    if (!bytes.allocate(length)) {
        assertionFailed(kiAP2NotifierUnit, "malloc a buff for OOBBTP link info in binder transact failed!!!",
                        __LINE__, kOnTransact);
    }
    in.raw(bytes.get(), length);
    return kGoOn;
}

GiveUp AppIcon::Slot::read(Reader& in) {
    length = static_cast<uint32_t>(in.i32());
    if (!bytes.allocate(length)) {
        __android_log_print(ANDROID_LOG_ERROR, kiAP2NotifierUnit.tag, "malloc failed for appIconId!");
        return android::NO_ERROR;
    }
    in.raw(bytes.get(), length);
    return kGoOn;
}

}  // namespace accessory::wire::iap2_notifier
