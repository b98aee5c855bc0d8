// Bluetooth: out-of-band pairing, connections, pairing.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

}  // namespace

std::vector<Event> pairingEvents() {
    return {
        Event("startOOBBTP", 29, i32(7), "7", [](Notifier& to) { return to.startOOBBTP(7); }),
        // The key begins with a small number: where it is cut, the address takes that for its length.
        Event("OOBBTPLinkKeyInfo", 30,
              parcel({i32(7), i32(5), raw({1, 2, 0, 0, 0xff}), i32(3), raw({0xc1, 0, 0xc3})}),
              "7, [01 02 00 00 ff], 5, [c1 00 c3], 3",
              [](Notifier& to) {
                  unsigned char key[] = {1, 2, 0, 0, 0xff};
                  unsigned char mac[] = {0xc1, 0, 0xc3};
                  return to.OOBBTPLinkKeyInfo(7, key, 5, mac, 3);
              }),
        Event("OOBBTPLinkKeyInfo", 30, parcel({i32(7), i32(0), i32(1), raw({9})}), "7, [], 0, [09], 1",
              [](Notifier& to) {
                  unsigned char mac[] = {9};
                  return to.OOBBTPLinkKeyInfo(7, mac, 0, mac, 1);
              }),
        Event("stopOOBBTP", 31, i32(7), "7", [](Notifier& to) { return to.stopOOBBTP(7); }),
        Event("BTConnectionUpdate", 32, parcel({i32(7), i32(0xfffffff1), i32(0xfffffff2)}),
              "7, 4294967281, 4294967282",
              [](Notifier& to) { return to.BTConnectionUpdate(7, 0xfffffff1, 0xfffffff2); }),
        Event("StartBluetoothPairing", 41, parcel({i32(7), i32(65534), i32(1), raw({1, 2, 3, 4, 5, 0xfe})}),
              "7, 65534, [01 02 03 04 05 fe]",
              [](Notifier& to) {
                  unsigned char mac[] = {1, 2, 3, 4, 5, 0xfe};
                  return to.StartBluetoothPairing(7, 65534, mac);
              }),
        Event("StartBluetoothPairing", 41, parcel({i32(7), i32(1), i32(0)}), "7, 1, null",
              [](Notifier& to) { return to.StartBluetoothPairing(7, 1, nullptr); }),
        Event("StopBluetoothPairing", 42, parcel({i32(7), i32(65535), i32(0xffffffff)}),
              "7, 65535, 4294967295",
              [](Notifier& to) { return to.StopBluetoothPairing(7, 65535, 0xffffffff); }),
    };
}

}  // namespace accessory::test
