// External Accessory sessions and file transfer through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using M = IAppleiAP2Manager;

namespace {

/// Four words, each its own, the last two with the highest bit.
const Bytes kFour = parcel({i32(7), i32(2), i32(0x80000003), i32(0xfffffff4)});
constexpr char kFourTold[] = "7, 2, 2147483651, 4294967284";

std::vector<Example> accessorySessions() {
    return {
        {"getEASessionCount", 37, i32(7), "7", [](M& to) { return to.getEASessionCount(7); }},
        Example("getEASessionId", 38, parcel({i32(7), i32(-1)}), "7, -1, clear",
                [](M& to) {
                    int first = 0;
                    int second = 0;
                    return to.getEASessionId(7, -1, &first, &second);
                })
            .brings(parcel({i32(-5), i32(0x01020304)}), 2),
        {"registerEASessionChannel", 39, kFour, kFourTold,
         [](M& to) { return to.registerEASessionChannel(7, 2, 0x80000003, 0xfffffff4); }},
        {"unregisterEASessionChannel", 40, kFour, kFourTold,
         [](M& to) { return to.unregisterEASessionChannel(7, 2, 0x80000003, 0xfffffff4); }},
        {"EASessionSendDataReady", 41, parcel({i32(7), i32(2), i32(0x80000003)}), "7, 2, 2147483651",
         [](M& to) { return to.EASessionSendDataReady(7, 2, 0x80000003); }},
        {"updateEAPStatus", 42, parcel({i32(7), i32(2), i32(0x80000003)}), "7, 2, 2147483651",
         [](M& to) { return to.updateEAPStatus(7, 2, 0x80000003); }},
    };
}

std::vector<Example> files() {
    return {
        {"fileTransferRecvInit", 47, parcel({i32(7), i32(0x80000002), i64(0x8877665544332211)}),
         "7, 2147483650, 9833440827789222417",
         [](M& to) { return to.fileTransferRecvInit(7, 0x80000002, 0x8877665544332211); }},
        {"fileTransferRecvStart", 48, parcel({i32(7), i32(0x80000002)}), "7, 2147483650",
         [](M& to) { return to.fileTransferRecvStart(7, 0x80000002); }},
        {"fileTransferRecvPause", 49, parcel({i32(7), i32(0x80000002)}), "7, 2147483650",
         [](M& to) { return to.fileTransferRecvPause(7, 0x80000002); }},
        {"fileTransferRecvCancel", 50, parcel({i32(7), i32(0x80000002)}), "7, 2147483650",
         [](M& to) { return to.fileTransferRecvCancel(7, 0x80000002); }},
        {"registerFileTransferChannel", 51, kFour, kFourTold,
         [](M& to) { return to.registerFileTransferChannel(7, 2, 0x80000003, 0xfffffff4); }},
        {"unregisterFileTransferChannel", 52, kFour, kFourTold,
         [](M& to) { return to.unregisterFileTransferChannel(7, 2, 0x80000003, 0xfffffff4); }},
    };
}

}  // namespace

std::vector<Example> sessionExamples() {
    std::vector<Example> examples = accessorySessions();
    for (const Example& more : files())
        examples.push_back(more);
    return examples;
}

}  // namespace accessory::test
