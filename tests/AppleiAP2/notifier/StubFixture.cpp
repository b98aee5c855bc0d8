#include "tests/AppleiAP2/notifier/StubFixture.h"

#include <binder/Parcel.h>

#include <ostream>

namespace accessory::test {

bool operator==(const Answer& left, const Answer& right) {
    return left.status == right.status && left.reply == right.reply;
}

void PrintTo(const Answer& answer, std::ostream* out) {
    *out << "status " << answer.status << ", reply " << testing::PrintToString(answer.reply);
}

Answer ask(BnAppleiAP2ManagerNotifier& stub, uint32_t code, const Bytes& bytes) {
    android::Parcel data;
    android::Parcel reply;
    fill(&data, bytes);
    const android::status_t status = stub.onTransact(code, data, &reply, 0);
    return {status, bytesOf(reply)};
}

testing::Matcher<const std::vector<LogLine>&> areLines(const ExpectedLines& lines) {
    std::vector<testing::Matcher<const LogLine&>> matchers;
    matchers.reserve(lines.size());
    for (const ExpectedLine& line : lines)
        matchers.push_back(Logged(line.priority, kTag, line.pattern));
    return testing::ElementsAreArray(matchers);
}

std::string StubFixture::toldOf(uint32_t code, const Bytes& arguments) {
    last = ask(*stub, code, request(arguments));
    std::string all;
    for (const std::string& call : recorder->takeTold())
        all += (all.empty() ? "" : " and ") + call;
    return all;
}

}  // namespace accessory::test
