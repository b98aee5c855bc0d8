// A process whose threads call without a pause: CHILD_ROLE(caller).
//
// Arguments: the service's name, how many threads, for how many seconds. It begins when told to, and answers
// with a line a thread: calls, failures, and the longest wait for an answer in ms.
#include <binder/IServiceManager.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"
#include "tests/support/ChildRole.h"

namespace accessory::load {
namespace {

using namespace accessory::test;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using std::chrono::steady_clock;

bool isEchoed(const android::sp<android::IBinder>& service, int32_t number) {
    Call call(service, kEcho);
    call << number << ~number;
    return call.run() == android::NO_ERROR && call.reply.readInt32() == number &&
           call.reply.readInt32() == ~number;
}

/// @return the line that tells of it.
std::string callUntil(steady_clock::time_point end, const android::sp<android::IBinder>& service) {
    int32_t calls = 0;
    int failures = 0;
    steady_clock::duration longest{0};
    for (auto begin = steady_clock::now(); begin < end;) {
        if (!isEchoed(service, ++calls)) ++failures;
        const auto now = steady_clock::now();
        longest = std::max(longest, now - begin);
        begin = now;
    }
    return std::to_string(calls) + ' ' + std::to_string(failures) + ' ' +
           std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(longest).count());
}

CHILD_ROLE(caller) {
    const auto service = android::defaultServiceManager()->getService(android::String16(args.at(0).c_str()));
    const std::chrono::seconds time(std::stoi(args.at(2)));
    parent.send("ready");
    parent.expectLine();
    std::vector<std::string> lines(std::stoul(args.at(1)));
    std::vector<std::thread> threads;
    threads.reserve(lines.size());
    for (std::string& line : lines)
        threads.emplace_back([&] { line = callUntil(steady_clock::now() + time, service); });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& line : lines)
        parent.send(line);
    return 0;
}

}  // namespace
}  // namespace accessory::load
