// What the tests of the rows over JSON share.
#pragma once

#include <binder/Parcel.h>
#include <gtest/gtest.h>
#include <json/json.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/AccessoryManager/Bytes.h"
#include "tools/rows/Operation.h"
#include "tools/rows/Values.h"

namespace accessory::test {

/// All operations of all interfaces, the one that is only sent among them.
inline std::vector<std::pair<const tools::Interface*, const tools::Operation*>> allOperations() {
    std::vector<std::pair<const tools::Interface*, const tools::Operation*>> all;
    for (const tools::Interface* interface : tools::allInterfaces()) {
        for (const auto& operation : interface->operations)
            all.emplace_back(interface, operation.get());
    }
    return all;
}

inline Json::Value json(const std::string& text) {
    Json::Value value;
    EXPECT_TRUE(tools::parseJson(text, &value)) << text;
    return value;
}

/// A value as it is after a trip through text, where 1 and 1u are the same.
inline Json::Value reread(const Json::Value& value) { return json(tools::compactJson(value)); }

/// "Interface", "operation": the one that is served.
inline const tools::Operation& operationOf(const std::string& interface, const std::string& name) {
    return *tools::findOperations(*tools::findInterface(interface), name).front();
}

/// The bytes of a request with these arguments.
inline Bytes encoded(const tools::Operation& operation, const std::string& arguments) {
    android::Parcel request;
    operation.encode(json(arguments), &request);
    return bytesOf(request);
}

/// What a receiver makes of the bytes of a request.
inline Json::Value decoded(const tools::Operation& operation, const Bytes& request) {
    android::Parcel parcel;
    fill(&parcel, request);
    return reread(operation.decodeRequest(parcel));
}

}  // namespace accessory::test
