// Call states, communications and call control through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using M = IAppleiAP2Manager;

namespace {

const Bytes kTwelve = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0xff};
/// Its fill-up to whole words follows.
const Bytes kSeventeen = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 0xff};

std::vector<Example> updates() {
    return {
        {"StartCallStateUpdates", 63, parcel({i32(7), raw(kTwelve)}),
         "7, [01 02 03 04 05 06 07 08 09 0a 0b ff]",
         [](M& to) {
             const StartCallStateUpdateParam param{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0xff};
             return to.StartCallStateUpdates(7, param);
         }},
        {"StopCallStateUpdates", 64, i32(7), "7", [](M& to) { return to.StopCallStateUpdates(7); }},
        {"StartCommunicationsUpdates", 65, parcel({i32(7), raw(kSeventeen)}),
         "7, [01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10 ff]",
         [](M& to) {
             const StartCommunicationsUpdatesParam param{1,  2,  3,  4,  5,  6,  7,  8,   9,
                                                         10, 11, 12, 13, 14, 15, 16, 0xff};
             return to.StartCommunicationsUpdates(7, &param);
         }},
        {"StopCommunicationsUpdates", 66, i32(7), "7", [](M& to) { return to.StopCommunicationsUpdates(7); }},
    };
}

std::vector<Example> begunAndEnded() {
    return {
        {"AcceptCall", 67, parcel({i32(7), i32(-2), i32(1), cstr("uuid")}), "7, -2, \"uuid\"",
         [](M& to) { return to.AcceptCall(7, -2, "uuid"); }},
        {"AcceptCall", 67, parcel({i32(7), i32(-2), i32(0)}), "7, -2, null",
         [](M& to) { return to.AcceptCall(7, -2, nullptr); }},
        {"EndCall", 68, parcel({i32(7), i32(-2), i32(1), cstr("")}), "7, -2, \"\"",
         [](M& to) { return to.EndCall(7, -2, ""); }},
        {"EndCall", 68, parcel({i32(7), i32(-2), i32(0)}), "7, -2, null",
         [](M& to) { return to.EndCall(7, -2, nullptr); }},
        {"InitiateCall", 69, parcel({i32(7), i32(-1), i32(1), cstr("+49 1"), i32(-2), i32(1), cstr("book")}),
         R"(7, {-1 "+49 1" -2 "book"})",
         [](M& to) {
             InitiateCallParam param{-1, "+49 1", -2, "book"};
             return to.InitiateCall(7, &param);
         }},
        {"InitiateCall", 69, parcel({i32(7), i32(3), i32(0), i32(4), i32(1), cstr("book")}),
         "7, {3 null 4 \"book\"}",
         [](M& to) {
             InitiateCallParam param{3, nullptr, 4, "book"};
             return to.InitiateCall(7, &param);
         }},
        {"InitiateCall", 69, parcel({i32(7), i32(3), i32(1), cstr("d"), i32(4), i32(0)}),
         "7, {3 \"d\" 4 null}",
         [](M& to) {
             InitiateCallParam param{3, "d", 4, nullptr};
             return to.InitiateCall(7, &param);
         }},
    };
}

std::vector<Example> whileTheyLast() {
    return {
        {"SwapCalls", 70, i32(7), "7", [](M& to) { return to.SwapCalls(7); }},
        {"MergeCalls", 71, i32(7), "7", [](M& to) { return to.MergeCalls(7); }},
        {"HoldStatusUpdate", 72, parcel({i32(7), i32(1), i32(1), cstr("u")}), "7, true, \"u\"",
         [](M& to) { return to.HoldStatusUpdate(7, true, "u"); }},
        {"HoldStatusUpdate", 72, parcel({i32(7), i32(0), i32(0)}), "7, false, null",
         [](M& to) { return to.HoldStatusUpdate(7, false, nullptr); }},
        {"MuteStatusUpdate", 73, parcel({i32(7), i32(1)}), "7, true",
         [](M& to) { return to.MuteStatusUpdate(7, true); }},
        {"MuteStatusUpdate", 73, parcel({i32(7), i32(0)}), "7, false",
         [](M& to) { return to.MuteStatusUpdate(7, false); }},
        {"SendDTMF", 74, parcel({i32(7), i32(-11), i32(1), cstr("u")}), "7, -11, \"u\"",
         [](M& to) { return to.SendDTMF(7, -11, "u"); }},
        {"SendDTMF", 74, parcel({i32(7), i32(11), i32(0)}), "7, 11, null",
         [](M& to) { return to.SendDTMF(7, 11, nullptr); }},
    };
}

}  // namespace

std::vector<Example> callExamples() {
    std::vector<Example> examples = updates();
    for (const std::vector<Example>& more : {begunAndEnded(), whileTheyLast()})
        examples.insert(examples.end(), more.begin(), more.end());
    return examples;
}

}  // namespace accessory::test
