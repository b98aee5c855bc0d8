// The state of communications: seventeen fields that are there or not, most of them yes or no.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

struct CommunicationsValues {
    int32_t field1 = -1;
    int32_t field2 = 0x12345678;
    uint8_t field10 = 0xfe;
    int32_t field11 = 11;
    bool yes = true;
    bool no = false;
};

/// Each field, when its bit of @p present is set. Yes and no take turns.
CommunicationsUpdateParam fields(uint32_t present, const CommunicationsValues& values) {
    const auto has = [present](int field) { return (present >> (field - 1) & 1) != 0; };
    CommunicationsUpdateParam param;
    if (has(1)) param.field1 = &values.field1;
    if (has(2)) param.field2 = &values.field2;
    if (has(4)) param.field4 = "carrier";
    if (has(10)) param.field10 = &values.field10;
    if (has(11)) param.field11 = &values.field11;
    const bool** const flags[] = {&param.field3,  &param.field5,  &param.field6,  &param.field7,
                                  &param.field8,  &param.field9,  &param.field12, &param.field13,
                                  &param.field14, &param.field15, &param.field16, &param.field17};
    constexpr int kFlagFields[] = {3, 5, 6, 7, 8, 9, 12, 13, 14, 15, 16, 17};
    for (size_t i = 0; i < std::size(flags); ++i)
        if (has(kFlagFields[i])) *flags[i] = i % 2 == 0 ? &values.yes : &values.no;
    return param;
}

struct Form {
    Bytes words;
    const char* text;
};

Form form(size_t field) {
    static const std::vector<Form>& all =
        *new std::vector<Form>{{i32(-1), "-1"},   {i32(0x12345678), "305419896"},
                               {i32(1), "true"},  {cstr("carrier"), R"("carrier")"},
                               {i32(0), "false"}, {i32(1), "true"},
                               {i32(0), "false"}, {i32(1), "true"},
                               {i32(0), "false"}, {i32(0xfe), "254"},
                               {i32(11), "11"},   {i32(1), "true"},
                               {i32(0), "false"}, {i32(1), "true"},
                               {i32(0), "false"}, {i32(1), "true"},
                               {i32(0), "false"}};
    return all.at(field - 1);
}

Event communicationsWith(uint32_t present) {
    Bytes bytes = i32(7);
    std::string shown = "7, {";
    for (size_t field = 1; field <= 17; ++field) {
        const bool has = (present >> (field - 1) & 1) != 0;
        bytes = parcel({bytes, i32(has ? 1 : 0), has ? form(field).words : Bytes{}});
        shown += (field == 1 ? "" : " ") + std::string(has ? form(field).text : "null");
    }
    return Event("CommunicationsUpdate", 39, bytes, shown + "}", [present](Notifier& to) {
        const CommunicationsValues values;
        CommunicationsUpdateParam param = fields(present, values);
        return to.CommunicationsUpdate(7, &param);
    });
}

}  // namespace

std::vector<Event> communicationsEvents() {
    std::vector<Event> events = {communicationsWith(0), communicationsWith(0x1ffff),
                                 communicationsWith(0x15555), communicationsWith(0xaaaa)};
    for (int field = 0; field < 17; ++field)
        events.push_back(communicationsWith(1u << field));
    return events;
}

}  // namespace accessory::test
