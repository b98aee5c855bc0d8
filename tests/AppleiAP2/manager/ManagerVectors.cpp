#include "tests/AppleiAP2/manager/ManagerVectors.h"

#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {
namespace {

Bytes input(uint32_t code, std::initializer_list<Bytes> arguments) {
    return parcel({i32(code), i32(7), parcel(arguments)});
}

std::vector<Bytes> oddities() {
    return {
        parcel({i32(kWholeRequest | 3), managerRequest(cstr("name"))}),
        parcel({i32(kWholeRequest | 3), request(cstr("name"))}),
        i32(0),
        i32(1),
        i32(2),
        i32(16),
        i32(43),
        i32(92),
        parcel({i32(6), i32(-1)}),
        parcel({i32(6), i32(1'000'000)}),
        input(18, {i32(-1)}),
        input(21, {cstr("-1")}),
        input(24, {cstr("lib"), i32(-1)}),
        input(24, {cstr("lib"), i32(0x20000001), i64(1), i32(2)}),
        input(55, {i32(0x20000001)}),
        input(56, {i32(0x40000001)}),
        input(58, {i32(-1), i32(1)}),
        input(59, {i32(3), i32(1)}),
        input(76, {i32(2), cstr("wired"), i32(-1), cstr("w1")}),
        parcel({i32(77), i32(1), cstr("key")}),
        input(78, {i32(0x10002), i32(1), i32(5)}),
        input(78, {i32(2), i32(2), i32(3)}),
        input(89, {i32(1), i32(2), i32(3), i32(4), i32(-1)}),
        input(90, {i32(0x7fffffff)}),
        input(91, {i32(-1)}),
        input(91, {i32(1000), cstr("k")}),
    };
}

}  // namespace

std::vector<Bytes> managerVectors() {
    std::vector<Bytes> vectors = oddities();
    for (const Example& example : allExamples())
        vectors.push_back(parcel({i32(example.code), example.arguments}));
    return vectors;
}

}  // namespace accessory::test
