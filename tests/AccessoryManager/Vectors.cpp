#include "tests/AccessoryManager/Vectors.h"

namespace accessory::test {

std::vector<Bytes> accessoryVectors() {
    std::vector<Bytes> vectors;
    for (uint32_t code = 0; code <= 5; ++code) {
        for (const Bytes& arguments : {Bytes{}, i32(7), i32(-1), string8("/dev/x"), string8(""),
                                       parcel({i32(4), {'a', 'b', 'c', 'd'}}),
                                       parcel({i32(0x7fffffff), i32(0)}), parcel({i32(1), i32(2), i32(3)})})
            vectors.push_back(parcel({i32(code), arguments}));
    }
    vectors.push_back(parcel({i32(kWholeRequest | 1), token()}));
    vectors.push_back(parcel({i32(kWholeRequest | 4), token(), string8("/dev/x")}));
    vectors.push_back(parcel({i32(kWholeRequest | 2), token(u"accessory.AppleiAP2Manager"), i32(7)}));
    return vectors;
}

AccessoryRequest accessoryRequest(const uint8_t* data, size_t size) {
    AccessoryRequest request;
    if (size < 4) return {0, token()};
    for (int i = 0; i < 4; ++i)
        request.code |= static_cast<uint32_t>(data[i]) << (8 * i);
    request.bytes.assign(data + 4, data + size);
    if ((request.code & kWholeRequest) == 0) request.bytes = parcel({token(), request.bytes});
    request.code &= ~kWholeRequest;
    return request;
}

}  // namespace accessory::test
