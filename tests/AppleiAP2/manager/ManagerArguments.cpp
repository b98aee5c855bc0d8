#include "tests/AppleiAP2/manager/ManagerArguments.h"

#include <algorithm>
#include <initializer_list>

namespace accessory::test {
namespace {

std::string braced(std::initializer_list<std::string> fields) {
    std::string text;
    for (const std::string& field : fields)
        text += (text.empty() ? "" : " ") + field;
    return "{" + text + "}";
}

}  // namespace

size_t sizeOf(int count, size_t width) { return static_cast<size_t>(std::max(count, 0)) * width; }

std::string showIds(const int* ids, int count) {
    return ids == nullptr ? "null" : show(View{ids, sizeOf(count, 4)});
}

std::string show(const HIDReportAttributes* of) {
    if (of == nullptr) return "null";
    return braced({show(of->componentId), show(of->vendorId), show(of->productId),
                   show(View{of->reportDescriptor, of->reportDescriptorLen}), show(of->reportDescriptorLen),
                   show(of->countryCode)});
}

std::string show(const InitiateCallParam* param) {
    if (param == nullptr) return "null";
    return braced(
        {show(param->type), show(param->destinationId), show(param->service), show(param->addressBookId)});
}

std::string show(const CPStartSessionWiredAttributes* wired) {
    return wired == nullptr ? "null" : braced({show(wired->string1)});
}

std::string show(const CPStartSessionWirelessAttributes* wireless) {
    if (wireless == nullptr) return "null";
    return braced({show(wireless->string1), show(wireless->string2), show(wireless->value8),
                   show(wireless->string3), show(wireless->value32)});
}

std::string show(const android::sp<MediaLibUpdateInfo>& info) {
    if (info == nullptr) return "null";
    const int32_t* values = info->mValues;
    return braced({show(info->mFirstText), show(info->mSecondText), show(values[0]), show(values[1]),
                   show(values[2]), show(values[3]), show(values[4])});
}

}  // namespace accessory::test
