#include "SlowCall.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <algorithm>
#include <cinttypes>
#include <climits>
#include <fstream>

#include "../Log.h"
#include "Peer.h"

namespace android::runtime {

namespace {

using std::chrono::milliseconds;

/// How long the kernel waits for the socket before it says that it lapsed.
LongWait::Clock::duration timeLimit(int fd, short events) {
    timeval limit{};
    socklen_t size = sizeof(limit);
    getsockopt(fd, SOL_SOCKET, events == POLLIN ? SO_RCVTIMEO : SO_SNDTIMEO, &limit, &size);
    return std::chrono::seconds(limit.tv_sec) + std::chrono::microseconds(limit.tv_usec);
}

bool isReady(int fd, short events, milliseconds patience) {
    pollfd state{fd, events, 0};
    const bool forEver = patience.count() > INT_MAX;
    return poll(&state, 1, forEver ? -1 : static_cast<int>(patience.count())) > 0;
}

std::string nameOf(pid_t process) {
    std::string name;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), name);
    return name.empty() ? "?" : name;
}

bool canBeInAName(char16_t letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '.' || letter == '_';
}

/// The interface that a proxy's request begins with; empty when there is nothing in its place that looks like
/// the name of one. The reading position stays.
std::string interfaceIn(const Parcel& request) {
    constexpr size_t kBehindTwoWords = 8;
    constexpr size_t kLongest = 200;
    const size_t position = request.dataPosition();
    request.setDataPosition(std::min(kBehindTwoWords, request.dataSize()));
    size_t length = 0;
    const char16_t* const name = request.readString16Inplace(&length);
    request.setDataPosition(position);
    if (name == nullptr || length > kLongest || !std::all_of(name, name + length, canBeInAName)) return {};
    const std::string text(name, name + length);
    return text.find('.') != std::string::npos ? text : "";
}

}  // namespace

SlowCall::SlowCall(Connection& connection, const FrameHeader& header, const Parcel& request)
    : mConnection(connection),
      mOuter(connection.exchangePatience(this)),
      mHeader(header),
      mRequest(request) {}

SlowCall::~SlowCall() { mConnection.exchangePatience(mOuter); }

void SlowCall::await(int fd, short events, bool lapsed) {
    if (!mWait.hasBegun()) {
        const auto waited = lapsed ? timeLimit(fd, events) : LongWait::Clock::duration::zero();
        mWait.begin(LongWait::Clock::now() - waited);
    }
    while (!isReady(fd, events, mWait.untilTelling())) {
        if (mWait.untilTelling().count() == 0) tell();
    }
}

void SlowCall::tell() {
    if (!mWait.wasTold()) {
        const pid_t process = mConnection.credentials().pid;
        mProcess = std::to_string(process) + " (" + nameOf(process) + ")";
    }
    mWait.told();
    BINDER_LOGW("%s has been waiting for process %s for %.1f s", subject().c_str(), mProcess.c_str(),
                mWait.seconds());
}

void SlowCall::ended(status_t status) const {
    if (!mWait.wasTold()) return;
    BINDER_LOGW("%s waits no longer for process %s: status %d after %.1f s", subject().c_str(),
                mProcess.c_str(), status, mWait.seconds());
}

/// "call 17 of the.Interface", as well as it is known without asking the other process.
std::string SlowCall::subject() const {
    std::string object = interfaceIn(mRequest);
    if (object.empty()) object = mConnection.peer()->nameOf(mHeader.target);
    return "call " + std::to_string(mHeader.code) + " of " + object;
}

}  // namespace android::runtime
