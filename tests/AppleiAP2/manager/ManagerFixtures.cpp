#include "tests/AppleiAP2/manager/ManagerFixtures.h"

#include <binder/Parcel.h>

#include <ostream>

namespace accessory::test {

bool operator==(const Answer& left, const Answer& right) {
    return left.status == right.status && left.reply == right.reply;
}

void PrintTo(const Answer& answer, std::ostream* out) {
    *out << "status " << answer.status << ", reply " << testing::PrintToString(answer.reply);
}

Answer ask(BnAppleiAP2Manager& stub, uint32_t code, const Bytes& bytes) {
    android::Parcel data;
    android::Parcel reply;
    fill(&data, bytes);
    const android::status_t status = stub.onTransact(code, data, &reply, 0);
    return {status, bytesOf(reply)};
}

ExpectedLine failedStep(const std::string& function) {
    return {ANDROID_LOG_ERROR, function + " #:check return value failed"};
}

ExpectedLine failedCheck(const std::string& condition) {
    return {ANDROID_LOG_ERROR, "[onTransact][#] check '" + condition + "' failed"};
}

testing::Matcher<const std::vector<LogLine>&> areLines(const ExpectedLines& lines) {
    std::vector<testing::Matcher<const LogLine&>> matchers;
    matchers.reserve(lines.size());
    for (const ExpectedLine& line : lines)
        matchers.push_back(Logged(line.priority, kTag, line.pattern));
    return testing::ElementsAreArray(matchers);
}

ExpectedLines stubLinesOf(const Example& example) {
    switch (example.code) {
        case 11:
            return {{ANDROID_LOG_INFO, "getSupportFeature --> yes, it does :"}};
        case 23:
        case 26:
            return {{ANDROID_LOG_DEBUG, "onTransact --> Id[lib]"}};
        case 91:
            if (example.told == "CarPlayAvailableDigitalCarKeys(7, {})")
                return {{ANDROID_LOG_WARN, "there is no keyidentifier to send!"}};
            return {};
        default:
            return {};
    }
}

std::string ManagerStubFixture::toldOf(uint32_t code, const Bytes& arguments) {
    last = ask(*stub, code, managerRequest(arguments));
    std::string all;
    for (const std::string& call : recorder->takeTold())
        all += (all.empty() ? "" : " and ") + call;
    return all;
}

}  // namespace accessory::test
