#include "tools/rows/RowOperation.h"

#include <algorithm>

namespace accessory::tools {

DescribedOperation::DescribedOperation(const wire::OperationInfo& info, const wire::Manners& manners,
                                       const android::String16& descriptor)
    : Operation(info.name, info.code), mManners(manners), mDescriptor(descriptor) {}

void DescribedOperation::describeField(FieldDescription described, const wire::FieldInfo& info) {
    described.kind = info.kind;
    described.inReply = info.inReply;
    fields.push_back(std::move(described));
}

void DescribedOperation::checkNames(const Json::Value& arguments) const {
    for (const std::string& given : arguments.getMemberNames()) {
        const auto isGiven = [&given](const FieldDescription& field) {
            return !field.inReply && field.name == given;
        };
        if (std::none_of(fields.begin(), fields.end(), isGiven)) {
            throw ArgumentError(name, "no '" + given + "'", compactJson(arguments[given]));
        }
    }
    for (const FieldDescription& field : fields) {
        const bool missing = !field.inReply && !field.nullable && !arguments.isMember(field.name);
        if (missing) throw ArgumentError(field.name, field.expects, "nothing");
    }
}

void DescribedOperation::skipRequestHeader(const android::Parcel& request) const {
    request.setDataPosition(0);
    if (request.enforceInterface(mDescriptor)) return;
    throw UndecodableParcel("not a request of " + std::string(android::String8(mDescriptor).string()),
                            android::PERMISSION_DENIED);
}

void DescribedOperation::skipReplyHeader(const android::Parcel& reply) const {
    reply.setDataPosition(0);
    if (!mManners.replyHasHeader) return;
    const int32_t exception = reply.readExceptionCode();
    if (exception != 0) throw UndecodableParcel("the reply reports exception " + std::to_string(exception));
}

void DescribedOperation::checkResult(const android::Parcel& reply) {
    if (reply.dataAvail() < sizeof(int32_t)) throw UndecodableParcel("the reply ends before its result");
}

void DescribedOperation::giveUp(const char* field, android::status_t status) {
    throw UndecodableParcel("a receiver gives up at '" + std::string(field) + "'", status);
}

}  // namespace accessory::tools
