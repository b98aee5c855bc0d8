#include "tests/AccessoryManager/StubFixture.h"

#include <binder/Parcel.h>
#include <unistd.h>

#include <string>

namespace accessory::test {

bool operator==(const Answer& left, const Answer& right) {
    return left.status == right.status && left.reply == right.reply;
}

void PrintTo(const Answer& answer, std::ostream* out) {
    *out << "status " << answer.status << ", reply " << testing::PrintToString(answer.reply);
}

Answer ask(BnAccessoryManager& stub, uint32_t code, const Bytes& request) {
    android::Parcel data;
    android::Parcel reply;
    fill(&data, request);
    const android::status_t status = stub.onTransact(code, data, &reply, 0);
    return {status, bytesOf(reply)};
}

testing::Matcher<const LogLine&> calling(uint32_t code) {
    return Logged(6, kTag,
                  "Calling MSG[" + std::to_string(static_cast<int32_t>(code)) +
                      "]: PID=" + std::to_string(getpid()) + ", UID=" + std::to_string(getuid()));
}

}  // namespace accessory::test
