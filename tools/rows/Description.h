// What a person or a program is told about a field of a transaction.
#pragma once

#include <json/json.h>

#include <string>
#include <vector>

namespace accessory::tools {

/// What a value looks like outside of a parcel.
enum class Shape { kNumber, kTruth, kText, kBytes, kList, kMask, kStructure, kBinder };

/// A field of a request or reply, or a member of a structure.
struct FieldDescription {
    std::string name;
    std::string kind;  ///< name of the parcel form; empty for a member
    Shape shape = Shape::kNumber;
    std::string expects;  ///< "a number from 0 to 255"
    Json::Value example;  ///< a value that can be sent; none for what travels in the reply
    bool nullable = false;
    bool inReply = false;                        ///< the operation fills it in
    std::vector<FieldDescription> members = {};  ///< of a structure
    std::vector<std::string> choices = {};       ///< bits of a mask
};

}  // namespace accessory::tools
