#include "tests/hostile/Endings.h"

#include <binder/Parcel.h>

#include <stdexcept>

namespace accessory::test {

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

namespace {

const Bytes kHeader = i32(0);

bool beginsWithTheToken(const Subject& subject, const Bytes& request) {
    android::Parcel parcel;
    fill(&parcel, request);
    return parcel.enforceInterface(subject.stub->getInterfaceDescriptor());
}

Bytes headerOf(const Subject& subject) { return subject.interface.replyHasHeader ? kHeader : Bytes(); }

/// A missing std::string raises what making one from null raises.
bool mayRaise(const tools::Operation& operation) {
    return operation.name == "setProperty" || operation.name == "CarPlayAvailableDigitalCarKeys";
}

/// The stubs keep the register of notifiers themselves.
bool isOfTheRegister(const tools::Operation& operation) {
    return operation.name == "setNotifier" || operation.name == "clearNotifier";
}

AssertionResult failure(const Ending& ending) {
    return AssertionFailure() << "status " << ending.status << ", replied "
                              << testing::PrintToString(ending.reply) << ", told " << ending.told
                              << (ending.raised ? ", raised" : "");
}

AssertionResult isLeftEarly(const Subject& subject, const Ending& ending) {
    const bool status = ending.status == android::NO_ERROR || ending.status == android::BAD_VALUE;
    return status && ending.reply == headerOf(subject) ? AssertionSuccess() : failure(ending);
}

AssertionResult isAnswered(const Subject& subject, const Ending& ending) {
    const Bytes header = headerOf(subject);
    const bool answered = ending.status == android::NO_ERROR && ending.told <= 1 &&
                          ending.reply.size() > header.size() && cut(ending.reply, header.size()) == header;
    return answered ? AssertionSuccess() : failure(ending);
}

}  // namespace

Ending endOf(const Subject& subject, uint32_t code, const android::Parcel& request) {
    Ending ending;
    android::Parcel reply;
    try {
        ending.status = subject.stub->transact(code, request, &reply, 0);
    } catch (const std::logic_error&) {
        ending.raised = true;
    }
    ending.reply = bytesOf(reply);
    ending.told = subject.takeTold();
    return ending;
}

Ending endOf(const Subject& subject, uint32_t code, const Bytes& request) {
    android::Parcel parcel;
    fill(&parcel, request);
    return endOf(subject, code, parcel);
}

AssertionResult isRefused(const Subject& subject, const Ending& ending, android::status_t status) {
    const bool refused =
        ending.status == status && !ending.raised && ending.told == 0 && ending.reply == headerOf(subject);
    return refused ? AssertionSuccess() : failure(ending);
}

AssertionResult isAllowed(const Subject& subject, const tools::Operation& operation, const Bytes& request,
                          const Ending& ending) {
    if (!beginsWithTheToken(subject, request)) return isRefused(subject, ending, android::PERMISSION_DENIED);
    if (ending.raised) return mayRaise(operation) && ending.told == 0 ? AssertionSuccess() : failure(ending);
    const bool answered = ending.told > 0 || isOfTheRegister(operation);
    return answered ? isAnswered(subject, ending) : isLeftEarly(subject, ending);
}

}  // namespace accessory::test
