#include "tests/hostile/Examples.h"

#include <binder/Parcel.h>

#include "common/Buffer.h"

namespace accessory::test {

namespace {

/// A length that is beyond every transaction; steps over the bytes of one that is not.
bool isBeyond(const android::Parcel& parcel) {
    const auto length = static_cast<uint32_t>(parcel.readInt32());
    if (length > kMostTransactionBytes) return true;
    parcel.readInplace(length);
    return false;
}

}  // namespace

std::vector<std::string> interfaceNames() {
    std::vector<std::string> names;
    for (const tools::Interface* interface : tools::allInterfaces())
        names.push_back(interface->name);
    return names;
}

Bytes tokenOf(const tools::Interface& interface) {
    return token(std::u16string(interface.descriptor.begin(), interface.descriptor.end()));
}

Bytes exampleRequest(const tools::Operation& operation) {
    android::Parcel request;
    operation.encode(tools::exampleArguments(operation), &request);
    return bytesOf(request);
}

bool endsTheProcess(const tools::Operation& operation, const Bytes& request) {
    if (operation.name != "OOBBTPLinkKeyInfo") return false;
    android::Parcel parcel;
    fill(&parcel, request);
    if (!parcel.enforceInterface(android::String16("accessory.AppleiAP2ManagerNotifier"))) return false;
    parcel.readInt32();
    const bool isFirstBeyond = isBeyond(parcel);
    return isFirstBeyond || isBeyond(parcel);
}

}  // namespace accessory::test
