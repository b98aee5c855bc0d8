// A fuzz target for the runtime's frames: any bytes, in any pieces, with and without descriptors, are a
// broken connection, or frames whose parcels can be read to their end.
#include <android/log.h>

#include <algorithm>
#include <cstdlib>

#include "fuzz/frames/Reading.h"
#include "fuzz/frames/Stream.h"
#include "socket/ParcelCodec.h"
#include "socket/Peer.h"

// In liblog's place: the runtime logs what it refuses, which is most of what a fuzzer makes up.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*, const char*,
                                                                          ...) {
    return 0;
}

namespace {

using namespace android::runtime;
using android::runtime::fuzz::Input;
using android::runtime::fuzz::Stream;

/// Whether the frame is as sound as its receiver may expect.
bool isSound(const Frame& frame) {
    return isPlausible(frame.header) && frame.fds.size() == frame.header.descriptorCount &&
           areRecordsSound(frame.header, frame.body.bytes());
}

/// @return whether the parcel holds what the frame announced; an object that is gone is none.
bool readsToItsEnd(Frame* frame, Peer& sender) {
    const FrameHeader header = frame->header;
    android::Parcel parcel;
    decode(frame, &parcel, sender);
    fuzz::readEverything(parcel);
    return parcel.dataSize() == header.dataSize && parcel.objectsCount() <= header.objectCount;
}

/// Takes all frames that have come. @return false when there can be no more.
bool takeFrames(Connection& connection) {
    for (;;) {
        Frame frame;
        const Received received = connection.receive(&frame, Wait::kNo);
        if (received != Received::kFrame) return received == Received::kNothing;
        if (!isSound(frame) || !readsToItsEnd(&frame, *connection.peer())) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    static char folder[] = "/tmp/fuzz_frames-XXXXXX";
    if (mkdtemp(folder) == nullptr) std::abort();
    return setenv("BINDER_RUNTIME_DIR", folder, 1);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < Input::kHead) return 0;
    const Input input(data, size);
    Stream stream(input.kind());
    std::vector<int> fds = fuzz::descriptorsOf(input);
    for (size_t sent = 0; sent < input.byteCount();) {
        const size_t piece = std::min(input.pieceBytes(), input.byteCount() - sent);
        stream.send(input.bytes() + sent, piece, fds);
        fds.clear();
        sent += piece;
        if (!takeFrames(stream.connection())) break;
    }
    return 0;
}
