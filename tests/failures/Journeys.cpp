#include "tests/failures/Journeys.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

#include "tests/failures/NthFailure.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {

namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

sp<IBinder> gService;
std::unique_ptr<ServiceProcess> gVictim;

String16 text(const std::string& plain) { return String16(plain.c_str()); }

/// What @p make returns, without a failure in between.
template <typename Make>
auto own(const Make& make) {
    const TestsOwn calls;
    return make();
}

sp<IBinder> newObject() {
    return own([] {
        return sp<IBinder>(new FunctionObject(
            [](uint32_t, const Parcel&, Parcel* reply, uint32_t) { return reply->writeInt32(7); }));
    });
}

Outcome outcomeOf(status_t status) {
    // A process that lives is never told dead because memory or descriptors ran out.
    if (status == DEAD_OBJECT) return Outcome::kWrong;
    return status == NO_ERROR ? Outcome::kArrived : Outcome::kRefused;
}

void nothing(const std::string& /*service*/) {}
void useRuntime(const std::string& /*service*/) { ProcessState::self()->startThreadPool(); }

void findService(const std::string& service) {
    useRuntime(service);
    gService = defaultServiceManager()->checkService(text(service));
    EXPECT_NE(nullptr, gService);
}

void findVictim(const std::string& service) {
    findService(service);
    gVictim = std::make_unique<ServiceProcess>();
}

Outcome check(const std::string& service) {
    return defaultServiceManager()->checkService(text(service)) != nullptr ? Outcome::kArrived
                                                                           : Outcome::kRefused;
}

Outcome get(const std::string& service) {
    return defaultServiceManager()->getService(text(service)) != nullptr ? Outcome::kArrived
                                                                         : Outcome::kRefused;
}

Outcome add(const std::string& service) {
    const String16 name = own([&] { return text(service + ".added"); });
    return outcomeOf(defaultServiceManager()->addService(name, newObject()));
}

Outcome list(const std::string& service) {
    const Vector<String16> names = defaultServiceManager()->listServices();
    const bool listed = std::find(names.begin(), names.end(), text(service)) != names.end();
    return listed ? Outcome::kArrived : Outcome::kRefused;
}

Outcome callSmall(const std::string& /*service*/) {
    Call call(gService, kEcho);
    call << 5;
    const Outcome outcome = outcomeOf(call.run());
    if (outcome == Outcome::kArrived && call.reply.readInt32() != 5) return Outcome::kWrong;
    return outcome;
}

Outcome callLarge(const std::string& /*service*/) {
    constexpr size_t kSize = size_t{512} * 1024;
    Call call(gService, kEcho);
    const status_t prepared = call.request.setDataSize(kSize);
    const Outcome outcome = outcomeOf(prepared == NO_ERROR ? call.run() : prepared);
    if (outcome == Outcome::kArrived && call.reply.dataSize() != kSize) return Outcome::kWrong;
    return outcome;
}

/// The parcel's own error, which a caller who checks no write finds at the call.
status_t fillWithObjects(Parcel* request) {
    request->writeStrongBinder(newObject());
    request->writeStrongBinder(gService);
    request->writeFileDescriptor(STDIN_FILENO);
    return request->errorCheck();
}

Outcome callWithObjects(const std::string& /*service*/) {
    Call call(gService, kEcho);
    const status_t prepared = fillWithObjects(&call.request);
    const Outcome outcome = outcomeOf(prepared == NO_ERROR ? call.run() : prepared);
    if (outcome != Outcome::kArrived) return outcome;
    const sp<IBinder> back = call.reply.readStrongBinder();
    const sp<IBinder> service = call.reply.readStrongBinder();
    const int fd = call.reply.readFileDescriptor();
    // What found no room is missing, as the documentation says of descriptors; never something else.
    if (back == nullptr || service == nullptr || fd < 0) return Outcome::kRefused;
    return back->localBinder() != nullptr && service == gService ? Outcome::kArrived : Outcome::kWrong;
}

Outcome sendOneway(const std::string& /*service*/) {
    Call call(gService, kRecord);
    call << 0 << 1;
    return outcomeOf(call.send());
}

/// A process is called back on an object of its own.
Outcome callBack(const std::string& /*service*/) {
    Call call(gService, kCallerAround);
    call << newObject();
    return outcomeOf(call.run());
}

Outcome dump(const std::string& /*service*/) { return dumpOf(gService); }

/// The process that dies is another one at every run.
Outcome hearOfDeath(const std::string& /*service*/) {
    if (gVictim == nullptr) gVictim = std::make_unique<ServiceProcess>();
    const sp<Recipient> recipient = own([] { return sp<Recipient>(new Recipient); });
    const status_t linked = gVictim->object()->linkToDeath(recipient);
    const bool told = own([&] {
        gVictim->kill();
        const bool heard = linked != NO_ERROR || recipient->isTold();
        gVictim = nullptr;
        return heard;
    });
    return told ? outcomeOf(linked) : Outcome::kWrong;
}

}  // namespace

Outcome dumpOf(const sp<IBinder>& object) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return Outcome::kRefused;
    Vector<String16> args;
    args.add(String16("one"));
    const Outcome outcome = outcomeOf(object->dump(ends[1], args));
    close(ends[0]);
    close(ends[1]);
    return outcome;
}

std::vector<Journey> runtimeJourneys() {
    return {
        {"FirstUse", nothing, check},
        {"GetService", useRuntime, get},
        {"AddService", useRuntime, add},
        {"AddServiceAtFirst", nothing, add},
        {"ListServices", useRuntime, list},
        {"SmallCall", findService, callSmall},
        {"LargeCall", findService, callLarge},
        {"CallWithObjects", findService, callWithObjects},
        {"OnewayCall", findService, sendOneway},
        {"CallBack", findService, callBack},
        {"Dump", findService, dump},
        {"Death", findVictim, hearOfDeath},
    };
}

const std::vector<Journey>& journeys() {
    static const auto* const all = [] {
        auto* const journeys = new std::vector<Journey>(runtimeJourneys());
        const std::vector<Journey> ofLibrary = libraryJourneys();
        journeys->insert(journeys->end(), ofLibrary.begin(), ofLibrary.end());
        return journeys;
    }();
    return *all;
}

const Journey& journeyNamed(const std::string& name) {
    for (const Journey& journey : journeys()) {
        if (journey.name == name) return journey;
    }
    throw std::invalid_argument(name);
}

}  // namespace accessory::test
