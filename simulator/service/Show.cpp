#include "simulator/service/Show.h"

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

constexpr size_t kMostBytes = 32;

/// Collects "{1: "a", 3: 5}": the fields that are there, by their positions.
class PresentFields {
  public:
    template <typename T>
    PresentFields& add(const T* field) {
        ++mPosition;
        if (field == nullptr) return *this;
        mText += mText.size() > 1 ? ", " : "";
        mText += std::to_string(mPosition) + ": ";
        if constexpr (std::is_same_v<T, char>) {
            mText += show(field);
        } else {
            mText += show(*field);
        }
        return *this;
    }
    std::string text() const { return mText + '}'; }

  private:
    std::string mText = "{";
    int mPosition = 0;
};

std::string availability(const char* way, bool available, const char* text) {
    return std::string(way) + (available ? " " + show(text) : " no");
}

}  // namespace

std::string show(const char* text) { return text != nullptr ? quoted(text) : "null"; }
std::string show(const std::string& text) { return quoted(text); }
std::string show(bool value) { return value ? "true" : "false"; }

std::string show(const Bytes& bytes) {
    if (bytes.data == nullptr) return "null";
    const bool all = bytes.count <= kMostBytes;
    return '<' + asHex(bytes.data, all ? bytes.count : kMostBytes) +
           (all ? ">" : " ... " + std::to_string(bytes.count) + " bytes>");
}

std::string show(const std::vector<std::string>& texts) {
    std::string shown = "[";
    for (const std::string& text : texts)
        shown += (shown.size() > 1 ? ", " : "") + quoted(text);
    return shown + ']';
}

std::string show(const FileTransferSetup& setup) {
    return showCall("setup", setup.value1, setup.value2, setup.value3, setup.value4, setup.value5,
                    setup.value8, Bytes{setup.buffer, setup.bufferLength});
}

std::string show(const AppleAppList& application) {
    return showCall("app", application.value16, application.string1, application.string2,
                    application.value32);
}

std::string show(const CallStateUpdateParam& param) {
    PresentFields fields;
    fields.add(param.field1).add(param.field2).add(param.field3).add(param.field4);
    fields.add(param.field5).add(param.field6).add(param.field7).add(param.field8);
    fields.add(param.field9).add(param.field10).add(param.field11).add(param.field12);
    return fields.text();
}

std::string show(const CommunicationsUpdateParam& param) {
    PresentFields fields;
    fields.add(param.field1).add(param.field2).add(param.field3).add(param.field4);
    fields.add(param.field5).add(param.field6).add(param.field7).add(param.field8);
    fields.add(param.field9).add(param.field10).add(param.field11).add(param.field12);
    fields.add(param.field13).add(param.field14).add(param.field15).add(param.field16);
    fields.add(param.field17);
    return fields.text();
}

std::string show(const CPAvailabilityWiredAttributes& wired) {
    return availability("wired", wired.available, wired.text);
}

std::string show(const CPAvailabilityWirelessAttributes& wireless) {
    return availability("wireless", wireless.available, wireless.text);
}

std::string show(const DestinationInfo& info) {
    return showCall("destination", info.firstString, info.secondString, Bytes{info.eightBytes, 8},
                    info.thirdString, info.pointCount, info.value, info.fourthString, info.fifthString);
}

std::string show(const InitiateCallParam& param) {
    return showCall("call", param.type, param.destinationId, param.service, param.addressBookId);
}

}  // namespace accessory::simulator
