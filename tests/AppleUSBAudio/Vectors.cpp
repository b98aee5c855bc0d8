#include "tests/AppleUSBAudio/Vectors.h"

namespace accessory::test {
namespace {

constexpr char16_t kManager[] = u"accessory.AppleUSBAudioManager";
constexpr char16_t kNotifier[] = u"accessory.AppleUSBAudioManagerNotifier";

/// Every code up to one behind the last, with no, one, two and three arguments.
std::vector<Bytes> codesUpTo(uint32_t last) {
    std::vector<Bytes> vectors;
    for (uint32_t code = 0; code <= last + 1; ++code) {
        for (const Bytes& arguments :
             {Bytes{}, i32(7), parcel({i32(0x80000000), i32(-1)}), parcel({i32(1), i32(2), i32(3)})})
            vectors.push_back(parcel({i32(code), arguments}));
    }
    return vectors;
}

/// The flat picture of an object, which plain bytes cannot turn into one.
Bytes flatObject(uint32_t type) {
    return parcel({i32(type), i32(0x17f), i32(0x1000), i32(0), i32(0x2000), i32(0)});
}

}  // namespace

std::vector<Bytes> audioManagerVectors() {
    std::vector<Bytes> vectors = codesUpTo(11);
    for (const uint32_t type : {0x73622a85u, 0x77622a85u, 0x73682a85u, 0x66642a85u, 0u})
        vectors.push_back(parcel({i32(1), flatObject(type)}));
    vectors.push_back(parcel({i32(kWhole | 3), token(kManager)}));
    vectors.push_back(parcel({i32(kWhole | 5), token(kManager)}));
    vectors.push_back(parcel({i32(kWhole | 7), token(kNotifier), i32(1), i32(2)}));
    return vectors;
}

std::vector<Bytes> audioNotifierVectors() {
    std::vector<Bytes> vectors = codesUpTo(2);
    vectors.push_back(parcel({i32(kWhole | 1), token(kNotifier), i32(7)}));
    vectors.push_back(parcel({i32(kWhole | 2), token(kManager), i32(7)}));
    return vectors;
}

}  // namespace accessory::test
