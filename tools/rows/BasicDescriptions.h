// How numbers, texts and bytes are described, and an example of each.
#pragma once

#include <string>

#include "tools/rows/Description.h"
#include "tools/rows/Values.h"

namespace accessory::tools {

/// Examples differ from place to place, so that two fields that were mixed up show.
inline Json::Value numberExample(unsigned position) { return Json::Value(position + 1); }

inline Json::Value bytesExample(size_t count) {
    Bytes raw(count);
    for (size_t i = 0; i < count; ++i)
        raw[i] = static_cast<uint8_t>(0xa0 + i);
    return bytesToJson(raw.data(), raw.size());
}

template <typename T>
FieldDescription describeScalar(const char* name, unsigned position) {
    FieldDescription made;
    made.name = name;
    made.shape = Scalar<T>::kIsTruth ? Shape::kTruth : Shape::kNumber;
    made.expects = Scalar<T>::expects();
    made.example = Scalar<T>::kIsTruth ? Json::Value(true) : numberExample(position);
    return made;
}

inline FieldDescription describeText(const char* name, bool nullable) {
    FieldDescription made;
    made.name = name;
    made.shape = Shape::kText;
    made.expects = std::string(kTextExpected) + (nullable ? " or null" : "");
    made.example = std::string("some-") + name;
    made.nullable = nullable;
    return made;
}

inline FieldDescription describeBytes(const char* name, size_t exactly, size_t example) {
    FieldDescription made;
    made.name = name;
    made.shape = Shape::kBytes;
    made.expects = bytesExpected(exactly);
    made.example = bytesExample(example);
    return made;
}

}  // namespace accessory::tools
