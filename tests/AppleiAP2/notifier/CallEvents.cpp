// The state of calls: twelve fields that are there or not.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

struct CallValues {
    int32_t field3 = -3;
    int32_t field4 = 4;
    int32_t field8 = 0x7fffffff;
    bool field9 = true;
    int32_t field11 = -11;
    int64_t field12 = -12;
};

/// Each field, when its bit of @p present is set.
CallStateUpdateParam fields(uint32_t present, const CallValues& values) {
    const auto has = [present](int field) { return (present >> (field - 1) & 1) != 0; };
    CallStateUpdateParam param;
    if (has(1)) param.field1 = "+49 1";
    if (has(2)) param.field2 = "";
    if (has(3)) param.field3 = &values.field3;
    if (has(4)) param.field4 = &values.field4;
    if (has(5)) param.field5 = "five";
    if (has(6)) param.field6 = "six";
    if (has(7)) param.field7 = "seven";
    if (has(8)) param.field8 = &values.field8;
    if (has(9)) param.field9 = &values.field9;
    if (has(10)) param.field10 = "ten";
    if (has(11)) param.field11 = &values.field11;
    if (has(12)) param.field12 = &values.field12;
    return param;
}

const Bytes& words(size_t field) {
    static const std::vector<Bytes>& all = *new std::vector<Bytes>{
        cstr("+49 1"), cstr(""),        i32(-3), i32(4),      cstr("five"), cstr("six"),
        cstr("seven"), i32(0x7fffffff), i32(1),  cstr("ten"), i32(-11),     i64(static_cast<uint64_t>(-12))};
    return all.at(field - 1);
}

const char* text(size_t field) {
    constexpr const char* kAll[] = {R"("+49 1")", R"("")",      "-3",   "4",        R"("five")", R"("six")",
                                    R"("seven")", "2147483647", "true", R"("ten")", "-11",       "-12"};
    return kAll[field - 1];
}

Event callStateWith(uint32_t present) {
    Bytes bytes = i32(7);
    std::string shown = "7, {";
    for (size_t field = 1; field <= 12; ++field) {
        const bool has = (present >> (field - 1) & 1) != 0;
        bytes = parcel({bytes, i32(has ? 1 : 0), has ? words(field) : Bytes{}});
        shown += (field == 1 ? "" : " ") + std::string(has ? text(field) : "null");
    }
    return Event("CallStateUpdate", 38, bytes, shown + "}", [present](Notifier& to) {
        const CallValues values;
        CallStateUpdateParam param = fields(present, values);
        return to.CallStateUpdate(7, param);
    });
}

}  // namespace

std::vector<Event> callEvents() {
    std::vector<Event> events = {callStateWith(0), callStateWith(0xfff), callStateWith(0x555),
                                 callStateWith(0xaaa)};
    for (int field = 0; field < 12; ++field)
        events.push_back(callStateWith(1u << field));
    return events;
}

}  // namespace accessory::test
