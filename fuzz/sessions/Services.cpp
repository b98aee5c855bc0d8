// The two services of a session: the stubs over implementations that read all they are given.
#include <accessory/AppleUSBAudioManagerNotifier.h>
#include <accessory/AppleiAP2ManagerNotifier.h>

#include "fuzz/sessions/Session.h"
#include "tests/AppleUSBAudio/AudioParts.h"
#include "tests/AppleiAP2/manager/ManagerRecorder.h"

namespace accessory::fuzz {

namespace {

constexpr unsigned int kAccessory = 7;

template <typename Registry, typename Broadcaster>
android::String8 listOf(const android::sp<Broadcaster>& broadcaster) {
    android::String8 text;
    dynamic_cast<Registry&>(*broadcaster).dump({}, text);
    return text;
}

Service makeiAP2Service() {
    const android::sp<test::ManagerRecorder> recorder = new test::ManagerRecorder;
    const android::sp<android::IBinder> stub = new BnAppleiAP2Manager(recorder);
    const auto broadcaster = recorder->broadcaster;
    return {stub,
            u"accessory.AppleiAP2Manager",
            -1,
            [broadcaster] { return broadcaster->attach(kAccessory); },
            [broadcaster] { return listOf<AppleiAP2ManagerNotifier>(broadcaster); },
            [recorder] { recorder->takeTold(); }};
}

Service makeAudioService() {
    const android::sp<test::AudioService> recorder = new test::AudioService;
    const android::sp<android::IBinder> stub = new BnAppleUSBAudioManager(recorder);
    const auto broadcaster = recorder->broadcasters.at(0);
    return {stub,
            u"accessory.AppleUSBAudioManager",
            0,
            [broadcaster] { return broadcaster->attach(kAccessory); },
            [broadcaster] { return listOf<AppleUSBAudioManagerNotifier>(broadcaster); },
            [recorder] { recorder->told(); }};
}

}  // namespace

Service& iAP2Service() {
    static Service& service = *new Service(makeiAP2Service());
    return service;
}

Service& audioService() {
    static Service& service = *new Service(makeAudioService());
    return service;
}

}  // namespace accessory::fuzz
