// Reading plain values, whole, cut short and hostile.
#include <gtest/gtest.h>

#include <functional>

#include "tests/platform/ParcelBytes.h"

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using accessory::test::fill;
using accessory::test::kHostileSizes;

namespace {

/// Every read of a plain value, by status and by value, and the bytes that it takes.
struct Reading {
    const char* name;
    size_t size;
    std::function<status_t(const Parcel&)> byStatus;
    std::function<double(const Parcel&)> byValue;
};

template <typename T>
Reading reading(const char* name, size_t size, status_t (Parcel::*byStatus)(T*) const,
                T (Parcel::*byValue)() const) {
    const auto status = [byStatus](const Parcel& parcel) {
        T ignored{};
        return (parcel.*byStatus)(&ignored);
    };
    return {name, size, status,
            [byValue](const Parcel& parcel) { return static_cast<double>((parcel.*byValue)()); }};
}

const Reading kReadings[] = {
    reading<int32_t>("Int32", 4, &Parcel::readInt32, &Parcel::readInt32),
    reading<uint32_t>("Uint32", 4, &Parcel::readUint32, &Parcel::readUint32),
    reading<int64_t>("Int64", 8, &Parcel::readInt64, &Parcel::readInt64),
    reading<uint64_t>("Uint64", 8, &Parcel::readUint64, &Parcel::readUint64),
    reading<float>("Float", 4, &Parcel::readFloat, &Parcel::readFloat),
    reading<double>("Double", 8, &Parcel::readDouble, &Parcel::readDouble),
    reading<bool>("Bool", 4, &Parcel::readBool, &Parcel::readBool),
    reading<int8_t>("Byte", 4, &Parcel::readByte, &Parcel::readByte),
    reading<char16_t>("Char", 4, &Parcel::readChar, &Parcel::readChar),
};

TEST(ParcelRead, ReadsIntegers) {
    Parcel parcel;
    fill(parcel, "78 56 34 12 fe ff ff ff ef cd ab 89 67 45 23 01 10 32 54 76 98 ba dc fe");
    EXPECT_EQ(0x12345678, parcel.readInt32());
    EXPECT_EQ(0xfffffffe, parcel.readUint32());
    EXPECT_EQ(0x0123456789abcdef, parcel.readInt64());
    EXPECT_EQ(0xfedcba9876543210, parcel.readUint64());
    EXPECT_EQ(0u, parcel.dataAvail());
}

TEST(ParcelRead, ReadsIntegersWithAStatus) {
    Parcel parcel;
    fill(parcel, "fe ff ff ff 03 00 00 00 ff ff ff ff ff ff ff ff 05 00 00 00 00 00 00 00");
    int32_t small = 0;
    uint32_t smallUnsigned = 0;
    int64_t large = 0;
    uint64_t largeUnsigned = 0;
    EXPECT_EQ(NO_ERROR, parcel.readInt32(&small));
    EXPECT_EQ(NO_ERROR, parcel.readUint32(&smallUnsigned));
    EXPECT_EQ(NO_ERROR, parcel.readInt64(&large));
    EXPECT_EQ(NO_ERROR, parcel.readUint64(&largeUnsigned));
    EXPECT_EQ(-2, small);
    EXPECT_EQ(3u, smallUnsigned);
    EXPECT_EQ(-1, large);
    EXPECT_EQ(5u, largeUnsigned);
}

TEST(ParcelRead, ReadsFloats) {
    Parcel parcel;
    fill(parcel, "00 00 c0 3f 00 00 00 00 00 00 00 c0");
    EXPECT_EQ(1.5f, parcel.readFloat());
    EXPECT_EQ(-2.0, parcel.readDouble());
}

TEST(ParcelRead, ReadsSmallValuesFromInt32) {
    Parcel parcel;
    fill(parcel, "00 01 00 00 00 00 00 00 80 ff ff ff ee ff 00 00");
    EXPECT_TRUE(parcel.readBool());
    EXPECT_FALSE(parcel.readBool());
    EXPECT_EQ(-128, parcel.readByte());
    EXPECT_EQ(u'\xffee', parcel.readChar());
}

TEST(ParcelRead, ReportsEveryValueThatIsCutAndStaysThere) {
    for (const Reading& value : kReadings) {
        for (size_t size = 0; size < value.size; ++size) {
            SCOPED_TRACE(testing::Message() << value.name << " cut to " << size);
            Parcel parcel;
            parcel.setData(std::vector<uint8_t>(size, 0xff).data(), size);
            EXPECT_EQ(NOT_ENOUGH_DATA, value.byStatus(parcel));
            EXPECT_EQ(0, value.byValue(parcel));
            EXPECT_EQ(0u, parcel.dataPosition());
        }
    }
}

TEST(ParcelRead, ReadsEveryValueAtAPositionThatIsNotAligned) {
    for (const Reading& value : kReadings) {
        for (size_t start = 0; start < 4; ++start) {
            SCOPED_TRACE(testing::Message() << value.name << " at " << start);
            Parcel parcel;
            parcel.setDataSize(start + value.size);
            parcel.setDataPosition(start);
            EXPECT_EQ(NO_ERROR, value.byStatus(parcel));
            EXPECT_EQ(start + value.size, parcel.dataPosition());
        }
    }
    Parcel parcel;
    fill(parcel, "ff 2a 00 00 00 ef cd ab 89 67 45 23 01");
    parcel.setDataPosition(1);
    EXPECT_EQ(42, parcel.readInt32());
    EXPECT_EQ(0x0123456789abcdef, parcel.readInt64());
}

TEST(ParcelRead, ReadsNothingAtAPositionPastTheEnd) {
    for (const size_t pos : {size_t{5}, size_t{INT32_MAX}, SIZE_MAX - 3, SIZE_MAX}) {
        Parcel parcel;
        fill(parcel, "01 00 00 00");
        parcel.setDataPosition(pos);
        int32_t value = 7;
        char byte = 0;
        EXPECT_EQ(NOT_ENOUGH_DATA, parcel.readInt32(&value)) << pos;
        EXPECT_EQ(NOT_ENOUGH_DATA, parcel.read(&byte, 1)) << pos;
        EXPECT_EQ(NOT_ENOUGH_DATA, parcel.read(nullptr, 0)) << pos;
        EXPECT_EQ(nullptr, parcel.readInplace(1)) << pos;
        EXPECT_EQ(nullptr, parcel.readInplace(0)) << pos;
        EXPECT_EQ(nullptr, parcel.readCString()) << pos;
        EXPECT_EQ(7, value);
        EXPECT_EQ(0u, parcel.dataAvail());
        EXPECT_EQ(pos, parcel.dataPosition());
    }
}

TEST(ParcelRead, ReadsRawBytesWithTheirPadding) {
    Parcel parcel;
    fill(parcel, "61 62 63 64 65 00 00 00 66 67 68 00");
    char bytes[5] = {};
    EXPECT_EQ(NO_ERROR, parcel.read(bytes, 5));
    EXPECT_EQ("abcde", std::string(bytes, 5));
    EXPECT_EQ(8u, parcel.dataPosition());
    const void* const place = parcel.readInplace(3);
    EXPECT_EQ(parcel.data() + 8, place);
    EXPECT_EQ(12u, parcel.dataPosition());
}

TEST(ParcelRead, NeedsThePaddingOfRawBytes) {
    Parcel parcel;
    fill(parcel, "61 62 63 64 65 00 00");
    char bytes[5] = {};
    EXPECT_EQ(NOT_ENOUGH_DATA, parcel.read(bytes, 5));
    EXPECT_EQ(nullptr, parcel.readInplace(5));
    EXPECT_EQ(0u, parcel.dataPosition());
    EXPECT_EQ(NO_ERROR, parcel.read(bytes, 4));
}

TEST(ParcelRead, ReadsNoBytesAnywhereInTheData) {
    Parcel parcel;
    EXPECT_EQ(NO_ERROR, parcel.read(nullptr, 0));
    parcel.writeInt32(1);
    EXPECT_EQ(NO_ERROR, parcel.read(nullptr, 0));
    EXPECT_EQ(4u, parcel.dataPosition());
}

TEST(ParcelRead, RefusesLengthsThatNoParcelCanHold) {
    Parcel parcel;
    fill(parcel, "01 00 00 00 02 00 00 00");
    parcel.setDataPosition(4);
    char byte = 0;
    for (const size_t len : kHostileSizes) {
        EXPECT_EQ(BAD_VALUE, parcel.read(&byte, len)) << len;
        EXPECT_EQ(nullptr, parcel.readInplace(len)) << len;
    }
    for (const size_t len : {size_t{INT32_MAX}, size_t{0x7ffffffe}}) {
        EXPECT_EQ(NOT_ENOUGH_DATA, parcel.read(&byte, len)) << len;
        EXPECT_EQ(nullptr, parcel.readInplace(len)) << len;
    }
    EXPECT_EQ(4u, parcel.dataPosition());
}

}  // namespace
