#include "tests/AppleiAP2/notifier/Vectors.h"

#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

Bytes input(uint32_t code, std::initializer_list<Bytes> arguments) {
    return parcel({i32(code), i32(7), parcel(arguments)});
}

std::vector<Bytes> oddities() {
    const Bytes element = parcel({i32(2), cstr("a"), cstr("b"), i32(3)});
    return {
        parcel({i32(kWhole | 1), request(parcel({i32(7), i32(1)}))}),
        parcel({i32(kWhole | 1), token(u"accessory.AppleiAP2Manager"), i32(7)}),
        i32(0),
        i32(28),
        i32(47),
        i32(1),
        input(10, {i32(3), i32(1024), Bytes(1024, 1)}),
        input(10, {i32(3), i32(1025), Bytes(1028, 1)}),
        input(10, {i32(3), i32(-1)}),
        input(23, {repeated(8, i32(1)), i32(-1)}),
        input(23, {repeated(8, i32(1)), i32(64), i32(1)}),
        input(30, {i32(8), i32(2)}),
        input(33, {i32(1), i32(-1)}),
        input(34, {i32(0x400), i32(0x7fffffff)}),
        input(35, {i32(4), i32(-1)}),
        input(35, {i32(4), i32(2), i32(4), i32(0x1000), i32(0xf)}),
        input(36, {i32(1), i32(65535), i32(1)}),
        input(36, {i32(1), i32(1), i32(1), element, i32(-1), i32(2)}),
        input(36, {i32(1), i32(2), i32(-1), element, i32(100), element, i32(4), i32(5)}),
        input(37, {cstr("a"), i32(1), i32(2), i32(-1)}),
        input(40, {i32(0x100), i32(0x101)}),
        input(43, {i32(0x10), i32(-1)}),
        input(43, {i32(0x10), i32(0x20000001)}),
        input(43, {i32(0xff)}),
        input(46, {i32(1000), cstr("a"), cstr("b")}),
    };
}

}  // namespace

std::vector<Bytes> stubVectors() {
    std::vector<Bytes> vectors = oddities();
    for (const Event& event : allEvents())
        vectors.push_back(parcel({i32(event.code), event.arguments}));
    return vectors;
}

}  // namespace accessory::test
