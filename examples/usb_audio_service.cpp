// A service with events: one USB audio endpoint that startup() plugs in and shutdown() out, of which all
// clients are told.
#include <accessory/IAppleUSBAudioManager.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>

#include <atomic>
#include <cstdio>
#include <cstring>

#include "EventQueue.h"

using accessory::IAppleUSBAudioManager;
using android::sp;
using android::String16;
using android::String8;

namespace {

constexpr unsigned int kEndpoint = 1;

class OneEndpoint : public accessory::AppleUSBAudioManagerImplItf {
  public:
    /// Called while the stub is made: by this object the service speaks to all its clients.
    int addNotifier(const sp<accessory::AppleUSBAudioManagerNotifierItf>& clients) override {
        mClients = clients;
        return 0;
    }

    int startup() override { return plug(true); }
    int shutdown() override { return plug(false); }

    int getIds(unsigned int* ids, unsigned int* count) override {
        ids[0] = kEndpoint;
        *count = mPluggedIn ? 1 : 0;
        return 0;
    }

    int play(unsigned int endpoint) override { return is(endpoint, "plays"); }
    int pause(unsigned int endpoint) override { return is(endpoint, "pauses"); }
    int start(unsigned int endpoint) override { return is(endpoint, "starts"); }
    int stop(unsigned int endpoint) override { return is(endpoint, "stops"); }
    int setSampleRate(unsigned int /*endpoint*/, unsigned int /*hertz*/) override { return 0; }
    int setVolume(unsigned int /*endpoint*/, unsigned int /*percent*/) override { return 0; }

    int dump(const android::Vector<String16>& /*args*/, String8& result) override {
        result.appendFormat("endpoint %u is plugged %s\n", kEndpoint, mPluggedIn ? "in" : "out");
        return 0;
    }

  private:
    /// Called by requests, which must not raise events themselves. No lock of this service is held while
    /// clients are called: one of them may call back.
    int plug(bool in) {
        mEvents.put([this, in] {
            if (mPluggedIn.exchange(in) == in) return;
            in ? mClients->attach(kEndpoint) : mClients->detach(kEndpoint);
        });
        return 0;
    }

    int is(unsigned int endpoint, const char* what) {
        if (endpoint != kEndpoint || !mPluggedIn) return android::NAME_NOT_FOUND;
        printf("endpoint %u %s\n", endpoint, what);
        return 0;
    }

    sp<accessory::AppleUSBAudioManagerNotifierItf> mClients;
    std::atomic<bool> mPluggedIn{false};
    examples::EventQueue mEvents;  // the last: its thread ends before what it uses
};

}  // namespace

int main() {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    const sp<OneEndpoint> endpoint = new OneEndpoint;
    const android::status_t status = android::defaultServiceManager()->addService(
        IAppleUSBAudioManager::descriptor, new accessory::BnAppleUSBAudioManager(endpoint));
    if (status != android::NO_ERROR) {
        fprintf(stderr, "usb_audio_service: the service cannot be published: %s\n", strerror(-status));
        return 1;
    }
    printf("serving accessory.AppleUSBAudioManager\n");
    android::IPCThreadState::self()->joinThreadPool();
}
