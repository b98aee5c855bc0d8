// A destination, field by field of its mask.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

/// Everything a destination can hold; @p mask decides what travels.
DestinationInfo destination(uint32_t mask, DestinationInfo::Point* points) {
    DestinationInfo info;
    info.mask = mask;
    info.firstString = "first";
    info.secondString = "second";
    for (uint8_t i = 0; i < 8; ++i)
        info.eightBytes[i] = static_cast<uint8_t>(0xd0 + i);
    info.thirdString = "third";
    info.pointCount = 2;
    info.points = points;
    info.value = 0xfffffff6;
    info.fourthString = "fourth";
    info.fifthString = "fifth";
    return info;
}

Event destinationEvent(uint32_t mask, const Bytes& fields, const char* hexMask, const std::string& rest,
                       const std::string& given) {
    return Event("DestinationInformation", 43, parcel({i32(7), i32(mask), fields}),
                 "7, {" + std::to_string(mask) + " " + rest + "}",
                 [mask](Notifier& to) {
                     DestinationInfo::Point points[2] = {{{1, 2, 3, 4, 5, 6, 7, 8}},
                                                         {{9, 10, 11, 12, 13, 14, 15, 16}}};
                     const DestinationInfo info = destination(mask, points);
                     return to.DestinationInformation(7, &info);
                 })
        .gives("7, {" + std::to_string(mask) + " " + given + "}")
        .proxyLogs({debug("DestinationInformation out")})
        .stubLogs({debug(std::string("DestinationInfo onTransact mask ") + hexMask),
                   debug("DestinationInformation enter")});
}

constexpr char kNoBytes[] = "[00 00 00 00 00 00 00 00]";
constexpr char kEverything[] =
    R"("first" "second" [d0 d1 d2 d3 d4 d5 d6 d7] "third" 2 )"
    R"([01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10] 4294967286 "fourth" "fifth")";

Bytes eight() { return raw({0xd0, 0xd1, 0xd2, 0xd3, 0xd4, 0xd5, 0xd6, 0xd7}); }
Bytes points() { return parcel({i32(2), raw({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16})}); }

/// All fields absent but the one that @p place says.
std::string alone(int place, const std::string& value) {
    const std::string absent[] = {"null", "null", kNoBytes, "null", "0 null", "0", "null", "null"};
    std::string text;
    for (int i = 0; i < 8; ++i)
        text += (i == 0 ? "" : " ") + (i == place ? value : absent[i]);
    return text;
}

}  // namespace

std::vector<Event> destinationEvents() {
    const Bytes all = parcel({cstr("first"), cstr("second"), eight(), cstr("third"), points(),
                              i32(0xfffffff6), cstr("fourth"), cstr("fifth")});
    const std::string pointText = "2 [01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10]";
    return {
        destinationEvent(0xff, all, "0xff", kEverything, kEverything),
        destinationEvent(0xffffffff, all, "0xffffffff", kEverything, kEverything),
        destinationEvent(0, {}, "0x0", alone(-1, ""), kEverything),
        destinationEvent(0x01, cstr("first"), "0x1", alone(0, R"("first")"), kEverything),
        destinationEvent(0x02, cstr("second"), "0x2", alone(1, R"("second")"), kEverything),
        destinationEvent(0x04, eight(), "0x4", alone(2, "[d0 d1 d2 d3 d4 d5 d6 d7]"), kEverything),
        destinationEvent(0x08, cstr("third"), "0x8", alone(3, R"("third")"), kEverything),
        destinationEvent(0x10, points(), "0x10", alone(4, pointText), kEverything),
        destinationEvent(0x20, i32(0xfffffff6), "0x20", alone(5, "4294967286"), kEverything),
        destinationEvent(0x40, cstr("fourth"), "0x40", alone(6, R"("fourth")"), kEverything),
        destinationEvent(0x80, cstr("fifth"), "0x80", alone(7, R"("fifth")"), kEverything),
    };
}

}  // namespace accessory::test
