// An audio router: lets every phone offer its USB audio, plays the endpoint that came last, and goes back to
// the one before when that leaves.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAppleUSBAudioManager.h>

#include <algorithm>
#include <mutex>

#include "Enumerators.h"
#include "ManagerConnection.h"

using accessory::IAppleiAP2Manager;
using accessory::IAppleUSBAudioManager;
using android::sp;

namespace {

constexpr unsigned int kVolume = 60;

/// Has the phones offer their audio: each becomes an endpoint of the audio manager.
class Phones : public accessory::AppleiAP2ManagerNotifierAdapter {
  public:
    explicit Phones(IAppleiAP2Manager& manager) : mManager(manager) {}

    int attach(unsigned int accId) override {
        const bool offers = mManager.startUSBDeviceModeAudio(accId) == 0;
        printf("phone %u %s\n", accId, offers ? "offers audio" : "has no audio to offer");
        return 0;
    }

  private:
    IAppleiAP2Manager& mManager;
};

/// Events come on the Binder runtime's threads.
class Router : public accessory::AppleUSBAudioManagerNotifierImplItf {
  public:
    explicit Router(IAppleUSBAudioManager& audio) : mAudio(audio) {}

    int attach(unsigned int endpoint) override {
        const std::lock_guard<std::mutex> guard(mLock);
        if (std::count(mEndpoints.begin(), mEndpoints.end(), endpoint) != 0) return 0;
        if (!mEndpoints.empty()) mAudio.stop(mEndpoints.back());
        mEndpoints.push_back(endpoint);
        play();
        return 0;
    }

    int detach(unsigned int endpoint) override {
        const std::lock_guard<std::mutex> guard(mLock);
        const bool played = !mEndpoints.empty() && mEndpoints.back() == endpoint;
        mEndpoints.erase(std::remove(mEndpoints.begin(), mEndpoints.end(), endpoint), mEndpoints.end());
        if (played) play();
        return 0;
    }

  private:
    /// The last endpoint, if there is any.
    void play() {
        if (mEndpoints.empty()) {
            printf("silence\n");
            return;
        }
        const unsigned int endpoint = mEndpoints.back();
        const bool plays = mAudio.setVolume(endpoint, kVolume) == 0 && mAudio.start(endpoint) == 0 &&
                           mAudio.play(endpoint) == 0;
        printf("endpoint %u %s\n", endpoint, plays ? "plays" : "does not play");
    }

    IAppleUSBAudioManager& mAudio;
    std::mutex mLock;
    std::vector<unsigned int> mEndpoints;  // in the order in which they came; the last one plays
};

}  // namespace

int main() {
    examples::endOnRequest();
    setvbuf(stdout, nullptr, _IOLBF, 0);
    examples::ManagerConnection connection;
    const sp<IAppleUSBAudioManager> audio = IAppleUSBAudioManager::asInterface(
        android::defaultServiceManager()->getService(IAppleUSBAudioManager::descriptor));
    if (!connection.isOpen() || audio == nullptr) return 1;
    const sp<Router> router = new Router(*audio);
    audio->setNotifier(new accessory::BnAppleUSBAudioManagerNotifier(router));
    audio->startup();
    unsigned int endpoints[10];
    unsigned int count = 0;
    audio->getIds(endpoints, &count);
    for (unsigned int i = 0; i < count; ++i)
        router->attach(endpoints[i]);
    const sp<Phones> phones = new Phones(connection.manager());
    if (!connection.listen(phones)) return 1;
    for (const unsigned int phone : connection.phones())
        phones->attach(phone);
    connection.manager().startup(accessory::kTransportUSBHost);
    const bool inGoodOrder = connection.waitForTheEnd();
    if (inGoodOrder) audio->clearNotifier();
    printf(inGoodOrder ? "bye\n" : "the service has ended\n");
    return 0;
}
