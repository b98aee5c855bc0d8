// Wi-Fi, External Accessory sessions, file transfer.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

std::vector<Event> sessions() {
    return {
        Event("WiFiInformation", 18, parcel({i32(7), i32(-1), cstr("net"), cstr("pass word")}),
              R"(7, -1, "net", "pass word")",
              [](Notifier& to) {
                  return to.WiFiInformation(7, static_cast<requestWiFiStatues>(-1), "net", "pass word");
              }),
        Event("requestAccWiFiConfigInfo", 19, i32(7), "7",
              [](Notifier& to) { return to.requestAccWiFiConfigInfo(7); }),
        Event("EASessionStart", 20, parcel({i32(7), i32(-1), i32(0x7fffffff)}), "7, -1, 2147483647",
              [](Notifier& to) { return to.EASessionStart(7, -1, 0x7fffffff); }),
        Event("EASessionStop", 21, parcel({i32(7), i32(-4)}), "7, -4",
              [](Notifier& to) { return to.EASessionStop(7, -4); }),
        Event("EASessionRecvDataReady", 22, parcel({i32(7), i32(4), i32(-5)}), "7, 4, -5",
              [](Notifier& to) { return to.EASessionRecvDataReady(7, 4, -5); }),
    };
}

FileTransferSetup setupWith(void* buffer, uint32_t length) {
    FileTransferSetup setup;
    setup.value1 = 0xf0000001;
    setup.value2 = 2;
    setup.value3 = 3;
    setup.value4 = 4;
    setup.value5 = 5;
    setup.buffer = buffer;
    setup.bufferLength = length;
    setup.value8 = 8;
    return setup;
}

/// 32 bytes: five values, no pointer, the length, one more value.
Bytes setupWords(uint32_t length) {
    return parcel({i32(0xf0000001), i32(2), i32(3), i32(4), i32(5), i32(0), i32(length), i32(8)});
}

std::vector<Event> fileTransfers() {
    return {
        Event("fileTransferSetup", 23,
              parcel({i32(7), setupWords(5), i32(5), raw({0xb1, 0xb2, 0xb3, 0xb4, 0xb5})}),
              "7, {4026531841 2 3 4 5 [b1 b2 b3 b4 b5] 5 8}",
              [](Notifier& to) {
                  unsigned char bytes[] = {0xb1, 0xb2, 0xb3, 0xb4, 0xb5};
                  FileTransferSetup setup = setupWith(bytes, 5);
                  return to.fileTransferSetup(7, &setup);
              }),
        Event("fileTransferSetup", 23, parcel({i32(7), setupWords(0), i32(0)}),
              "7, {4026531841 2 3 4 5 null 0 8}",
              [](Notifier& to) {
                  FileTransferSetup setup = setupWith(nullptr, 0);
                  return to.fileTransferSetup(7, &setup);
              }),
        Event("fileTransferStart", 24, parcel({i32(7), i32(0xffffffff)}), "7, 4294967295",
              [](Notifier& to) { return to.fileTransferStart(7, 0xffffffff); }),
        Event("fileTransferPause", 25, parcel({i32(7), i32(1)}), "7, 1",
              [](Notifier& to) { return to.fileTransferPause(7, 1); }),
        Event("fileTransferCancel", 26, parcel({i32(7), i32(2)}), "7, 2",
              [](Notifier& to) { return to.fileTransferCancel(7, 2); }),
        Event("fileTransferRecvFinish", 27, parcel({i32(7), i32(0x80000003)}), "7, 2147483651",
              [](Notifier& to) { return to.fileTransferRecvFinish(7, 0x80000003); }),
    };
}

}  // namespace

std::vector<Event> sessionEvents() {
    std::vector<Event> events = sessions();
    for (const Event& event : fileTransfers())
        events.push_back(event);
    return events;
}

}  // namespace accessory::test
