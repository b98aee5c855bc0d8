#include "tools/accessoryctl/BinderCalls.h"

#include <binder/IServiceManager.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <future>
#include <memory>
#include <thread>

#include "tools/accessoryctl/FolderState.h"

namespace accessory::ctl {

using android::IBinder;
using android::sp;
using android::status_t;

namespace {

std::atomic<bool> gLeftThreadBehind{false};

}  // namespace

bool leftThreadBehind() { return gLeftThreadBehind; }

void within(const Options& options, const std::string& what, std::function<void()> work) {
    auto task = std::make_shared<std::packaged_task<void()>>(std::move(work));
    std::future<void> done = task->get_future();
    std::thread([task] { (*task)(); }).detach();
    if (done.wait_for(std::chrono::duration<double>(options.timeout)) == std::future_status::ready) {
        return done.get();
    }
    gLeftThreadBehind = true;
    char seconds[32];
    snprintf(seconds, sizeof(seconds), "%g", options.timeout);
    throw Failure(kTimedOut, what + " did not answer within " + seconds + " s");
}

sp<IBinder> look(const Options& options, const std::string& service) {
    auto found = std::make_shared<sp<IBinder>>();
    within(options, service, [found, service] {
        *found = android::defaultServiceManager()->checkService(android::String16(service.c_str()));
    });
    return *found;
}

sp<IBinder> reach(const Options& options, const std::string& service) {
    const sp<IBinder> found = look(options, service);
    if (found != nullptr) return found;
    requireUsableFolder();
    throw noService(service);
}

std::shared_ptr<Outcome> transact(const Options& options, const sp<IBinder>& binder, uint32_t code,
                                  const std::string& what,
                                  const std::function<void(android::Parcel*)>& write) {
    auto request = std::make_shared<android::Parcel>();
    auto outcome = std::make_shared<Outcome>();
    write(request.get());
    within(options, what, [binder, code, request, outcome] {
        outcome->status = binder->transact(code, *request, &outcome->reply, 0);
    });
    return outcome;
}

std::string statusName(status_t status) {
    switch (status) {
        case android::NO_ERROR:
            return "NO_ERROR";
        case android::DEAD_OBJECT:
            return "DEAD_OBJECT";
        case android::FAILED_TRANSACTION:
            return "FAILED_TRANSACTION";
        case android::UNKNOWN_TRANSACTION:
            return "UNKNOWN_TRANSACTION";
        case android::PERMISSION_DENIED:
            return "PERMISSION_DENIED";
        case android::UNKNOWN_ERROR:
            return "UNKNOWN_ERROR";
        case android::NAME_NOT_FOUND:
            return "NAME_NOT_FOUND";
        case android::ALREADY_EXISTS:
            return "ALREADY_EXISTS";
        case android::NO_INIT:
            return "NO_INIT";
        case android::BAD_VALUE:
            return "BAD_VALUE";
        case android::BAD_TYPE:
            return "BAD_TYPE";
        case android::NO_MEMORY:
            return "NO_MEMORY";
        case android::INVALID_OPERATION:
            return "INVALID_OPERATION";
        case android::NOT_ENOUGH_DATA:
            return "NOT_ENOUGH_DATA";
        case android::WOULD_BLOCK:
            return "WOULD_BLOCK";
        case android::TIMED_OUT:
            return "TIMED_OUT";
        default:
            return "status " + std::to_string(status);
    }
}

Failure noService(const std::string& service) {
    Failure failure(kNoService, "the service " + service + " is not there", "accessoryctl wait " + service);
    failure.with("service", service);
    return failure;
}

Failure transportFailure(const std::string& what, status_t status) {
    const bool died = status == android::DEAD_OBJECT;
    Failure failure(died ? kServiceDied : kFailed,
                    what + (died ? " died" : " refused the call") + ": " + statusName(status));
    failure.with("status", statusName(status));
    return failure;
}

}  // namespace accessory::ctl
