// The transactions of the five interfaces without their C++ types, for tools: what is in them, and how JSON
// becomes a request and parcels become JSON.
#pragma once

#include <binder/Parcel.h>
#include <json/json.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tools/rows/Description.h"
#include "tools/rows/Errors.h"

namespace accessory::tools {

/// One transaction. Immutable; any thread may use it.
class Operation {
  public:
    Operation(const char* operationName, uint32_t operationCode) : name(operationName), code(operationCode) {}
    virtual ~Operation() = default;
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    /// Writes the header and the fields.
    /// @param arguments an object of the fields of the request by name, all but the nullable ones given.
    /// @throws ArgumentError for what is missing, unknown or does not fit.
    virtual void encode(const Json::Value& arguments, android::Parcel* request) const = 0;

    /// The fields as a receiver gets them, whatever the sender meant.
    /// @return an object of them by name.
    /// @throws UndecodableParcel when a stub would refuse @p request; never ends the process.
    virtual Json::Value decodeRequest(const android::Parcel& request) const = 0;

    /// @return an object of the fields of the reply by name, and "result".
    /// @throws UndecodableParcel for a reply that ends early or reports an exception.
    virtual Json::Value decodeReply(const android::Parcel& reply) const = 0;

    const std::string name;
    const uint32_t code;
    bool onlySent = false;  ///< shares its code with another one, as which every receiver takes it
    std::string result;     ///< "a number" or "a text"
    std::vector<FieldDescription> fields;
};

/// An interface with all its transactions.
struct Interface {
    std::string name;         ///< "IAppleiAP2Manager"
    std::string descriptor;   ///< "accessory.AppleiAP2Manager", also the name of its service
    bool isNotifier = false;  ///< a client implements it, there is no service
    bool replyHasHeader = false;
    std::vector<std::unique_ptr<const Operation>> operations = {};  ///< in the order of their codes
};

/// All five.
const std::vector<const Interface*>& allInterfaces();

/// By name, name without the leading I, or descriptor, in any case of letters; null when there is none.
const Interface* findInterface(const std::string& name);

/// All of that name, in any case of letters, first those that a stub serves.
std::vector<const Operation*> findOperations(const Interface& interface, const std::string& name);

/// As which a stub takes @p code; null when it serves none.
const Operation* servedOperation(const Interface& interface, uint32_t code);

/// An object with an example of every field of the request.
Json::Value exampleArguments(const Operation& operation);

bool sameName(const std::string& one, const std::string& other);

}  // namespace accessory::tools
