#include "fuzz/sessions/Session.h"

#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>
#include <utils/String16.h>

#include <algorithm>
#include <stdexcept>

namespace accessory::fuzz {

namespace {

constexpr size_t kClients = 8;
constexpr int kProcesses = 16;
constexpr uint32_t kSetNotifier = 1;
constexpr uint32_t kClearNotifier = 2;

/// Makes the thread serve a call of that process.
class Calling {
  public:
    explicit Calling(int pid) {
        auto* const thread = android::IPCThreadState::self();
        mOwn = thread->clearCallingIdentity();
        thread->restoreCallingIdentity(pid);
    }
    ~Calling() { android::IPCThreadState::self()->restoreCallingIdentity(mOwn); }
    Calling(const Calling&) = delete;
    Calling& operator=(const Calling&) = delete;

  private:
    int64_t mOwn;
};

}  // namespace

Session::Session(Service& service) : mService(service) {
    for (size_t i = 0; i < kClients; ++i)
        mClients.push_back(new SessionClient);
}

Session::~Session() {
    while (!mRegistered.empty())
        deregisters(mRegistered.begin()->first);
    mService.forget();
}

bool Session::run(const uint8_t* data, size_t size) {
    for (; size >= 2; data += 2, size -= 2) {
        if (!step(data[0], data[1], data + 2, size - 2)) return false;
    }
    return isListed();
}

bool Session::step(uint8_t what, uint8_t who, const uint8_t* rest, size_t size) {
    const int pid = 1 + who % kProcesses;
    const size_t client = who / kProcesses % kClients;
    switch (what % 8) {
        case 0:
        case 1:
            return registers(pid, client);
        case 2:
            return deregisters(pid);
        case 3:
            return dies(client);
        case 4:
            return everyoneHears();
        case 5:
            return isListed();
        case 6:
            return registersNobody(pid);
        default:
            asks(who, rest, size);
            return true;
    }
}

android::Parcel& Session::begin(android::Parcel* request) const {
    request->writeInterfaceToken(android::String16(mService.name.c_str(), mService.name.size()));
    return *request;
}

int32_t Session::answerTo(int pid, uint32_t code, const android::Parcel& request) const {
    const Calling calling(pid);
    android::Parcel reply;
    if (mService.stub->transact(code, request, &reply, 0) != android::NO_ERROR)
        throw std::runtime_error("refused");
    reply.setDataPosition(0);
    if (reply.readExceptionCode() != 0) throw std::runtime_error("refused");
    return reply.readInt32();
}

/// The first registration of a process stays.
bool Session::registers(int pid, size_t client) {
    android::Parcel request;
    begin(&request).writeStrongBinder(mClients[client]);
    mRegistered.try_emplace(pid, Registered{client, mClients[client]->isBinderAlive()});
    return answerTo(pid, kSetNotifier, request) == 0;
}

/// Who is registered has registered a second time, which changes nothing.
bool Session::registersNobody(int pid) {
    android::Parcel request;
    begin(&request).writeStrongBinder(nullptr);
    const int32_t expected = mRegistered.count(pid) != 0 ? android::NO_ERROR : android::BAD_VALUE;
    return answerTo(pid, kSetNotifier, request) == expected;
}

bool Session::deregisters(int pid) {
    android::Parcel request;
    const int32_t expected = mRegistered.erase(pid) != 0 ? 0 : mService.clearOfStranger;
    return answerTo(pid, kClearNotifier, begin(&request)) == expected;
}

/// Who registered when it was dead already is watched by nobody, and stays.
bool Session::dies(size_t client) {
    for (auto entry = mRegistered.begin(); entry != mRegistered.end();) {
        const bool goes = entry->second.client == client && entry->second.isWatched;
        entry = goes ? mRegistered.erase(entry) : std::next(entry);
    }
    mClients[client]->die();
    return isListed();
}

bool Session::everyoneHears() {
    std::vector<int> expected(kClients);
    for (size_t i = 0; i < kClients; ++i)
        expected[i] = mClients[i]->events;
    for (const auto& [pid, registered] : mRegistered)
        ++expected[registered.client];
    if (mService.raise() != 0) return false;
    return std::equal(expected.begin(), expected.end(), mClients.begin(),
                      [](int events, const auto& client) { return events == client->events; });
}

/// The processes of the list, in ascending order, behind its size.
bool Session::isListed() const {
    const std::string text = mService.list().string();
    std::string pids;
    for (size_t at = text.find("pid["); at != std::string::npos; at = text.find("pid[", at + 1))
        pids += text.substr(at, text.find(']', at) - at + 1);
    std::string expected;
    for (const auto& [pid, registered] : mRegistered)
        expected += "pid[" + std::to_string(pid) + "]";
    return pids == expected &&
           text.find("size[" + std::to_string(mRegistered.size()) + "]") != std::string::npos;
}

/// Any other operation, with a client's binder somewhere in bytes that mean something else.
void Session::asks(uint8_t code, const uint8_t* rest, size_t size) {
    if (code == kSetNotifier || code == kClearNotifier) return;
    const size_t before = size / 2 & ~size_t{3};
    android::Parcel request;
    begin(&request).write(rest, before);
    request.writeStrongBinder(mClients[code % kClients]);
    request.write(rest + before, size - before);
    android::Parcel reply;
    try {
        mService.stub->transact(code, request, &reply, 0);
    } catch (const std::logic_error&) {
        // A null string in a list; what a stub throws is its runtime's to contain.
    }
}

}  // namespace accessory::fuzz
