#include "RuntimeThread.h"

#include <pthread.h>

#include <csignal>
#include <exception>
#include <thread>
#include <utility>

#include "../Log.h"

namespace android::runtime {

namespace {

/// Blocks all signals for the calling thread, which new threads inherit.
class SignalsBlocked {
  public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &mBefore);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &mBefore, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

  private:
    sigset_t mBefore{};
};

}  // namespace

bool startRuntimeThread(const char* name, std::function<void()> body) {
    const SignalsBlocked blocked;
    try {
        std::thread thread(std::move(body));
        pthread_setname_np(thread.native_handle(), name);
        thread.detach();
        return true;
    } catch (const std::exception& error) {
        BINDER_LOGE("thread %s cannot be started: %s", name, error.what());
        return false;
    }
}

}  // namespace android::runtime
