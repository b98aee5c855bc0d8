#include "tests/AppleiAP2/notifier/Show.h"

#include <algorithm>
#include <cstdio>
#include <numeric>

namespace accessory::test {
namespace {

std::string hex(const uint8_t* bytes, size_t size) {
    std::string text;
    for (size_t i = 0; i < size; ++i) {
        char two[4];
        std::snprintf(two, sizeof(two), "%02x", bytes[i]);
        text += (i == 0 ? "" : " ") + std::string(two);
    }
    return text;
}

/// What a pointer names, or "null".
template <typename Value>
std::string showAt(const Value* value) {
    return value == nullptr ? "null" : show(*value);
}

/// A field: strings are pointers themselves.
std::string showField(const char* text) { return show(text); }
template <typename Value>
std::string showField(const Value* value) {
    return showAt(value);
}

template <typename First, typename... Others>
std::string list(const First& first, const Others&... others) {
    std::string text = "{";
    text += first;
    ((text += " ", text += others), ...);
    return text += "}";
}

template <typename... Fields>
std::string showFields(const Fields*... fields) {
    return list(showField(fields)...);
}

template <typename Attributes>
std::string showAttributes(const Attributes* attributes) {
    if (attributes == nullptr) return "null";
    return list(show(attributes->available), show(attributes->text));
}

std::string showApp(const AppleAppList& app) {
    return list(show(app.value16), show(app.string1), show(app.string2), show(app.value32),
                app.buffer == nullptr ? "null" : show(View{app.buffer, app.bufferLength}),
                show(app.bufferLength));
}

}  // namespace

std::string show(bool value) { return value ? "true" : "false"; }

std::string show(const char* text) { return text == nullptr ? "null" : "\"" + std::string(text) + "\""; }

std::string show(const View& view) {
    constexpr size_t kMany = 64;
    if (view.size == 0) return "[]";
    if (view.data == nullptr) return "null";
    const auto* bytes = static_cast<const uint8_t*>(view.data);
    if (view.size <= kMany) return "[" + hex(bytes, view.size) + "]";
    const auto sum = std::accumulate(bytes, bytes + view.size, uint64_t{0});
    return "[" + std::to_string(view.size) + " bytes, sum " + std::to_string(sum) + "]";
}

std::string show(const AppView& apps) {
    if (apps.list == nullptr) return "null";
    std::string text = "[";
    std::for_each(apps.list, apps.list + apps.count,
                  [&](const AppleAppList& app) { text += (text == "[" ? "" : " ") + showApp(app); });
    return text + "]";
}

std::string show(const FileTransferSetup* setup) {
    if (setup == nullptr) return "null";
    return list(show(setup->value1), show(setup->value2), show(setup->value3), show(setup->value4),
                show(setup->value5),
                setup->buffer == nullptr ? "null" : show(View{setup->buffer, setup->bufferLength}),
                show(setup->bufferLength), show(setup->value8));
}

std::string show(const CallStateUpdateParam& param) {
    return showFields(param.field1, param.field2, param.field3, param.field4, param.field5, param.field6,
                      param.field7, param.field8, param.field9, param.field10, param.field11, param.field12);
}

std::string show(const CommunicationsUpdateParam* param) {
    if (param == nullptr) return "null";
    return showFields(param->field1, param->field2, param->field3, param->field4, param->field5,
                      param->field6, param->field7, param->field8, param->field9, param->field10,
                      param->field11, param->field12, param->field13, param->field14, param->field15,
                      param->field16, param->field17);
}

std::string show(const DestinationInfo* info) {
    if (info == nullptr) return "null";
    const size_t bytes = info->points == nullptr ? 0 : info->pointCount * sizeof(DestinationInfo::Point);
    return list(show(info->mask), show(info->firstString), show(info->secondString),
                show(View{info->eightBytes, 8}), show(info->thirdString), show(info->pointCount),
                info->points == nullptr ? "null" : show(View{info->points, bytes}), show(info->value),
                show(info->fourthString), show(info->fifthString));
}

std::string show(const CPAvailabilityWiredAttributes* attributes) { return showAttributes(attributes); }
std::string show(const CPAvailabilityWirelessAttributes* attributes) { return showAttributes(attributes); }

std::string show(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : " ") + show(text.c_str());
    return "{" + all + "}";
}

}  // namespace accessory::test
