// A navigation display: follows the phone's route guidance and shows the road, the next maneuver and the
// lanes.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>

#include <map>
#include <mutex>
#include <string>

#include "ManagerConnection.h"

using accessory::IAppleiAP2Manager;
using android::sp;

namespace {

/// The display component of this head unit, as it identified itself to the phone.
constexpr int kDisplay = 1;

/// Events come on the Binder runtime's threads; their strings live as long as the call, so what the display
/// keeps it copies.
class NavigationDisplay : public accessory::AppleiAP2ManagerNotifierAdapter {
  public:
    explicit NavigationDisplay(IAppleiAP2Manager& manager) : mManager(manager) {}

    int attach(unsigned int accId) override {
        int display = kDisplay;
        const int status = mManager.StartRouteGuidanceUpdate(accId, &display, 1, 0);
        printf("phone %u: %s\n", accId, status == 0 ? "waiting for a route" : "has no route guidance");
        return 0;
    }

    int RouteGuidanceUpdates(unsigned int /*accId*/,
                             const sp<accessory::RouteGuidaceUpdateInfo>& info) override {
        const uint32_t mask = info->getMask();
        const std::lock_guard<std::mutex> guard(mLock);
        if ((mask & Route::kDestinationName) != 0) showIfNew("to", info->getDestinationName(), &mDestination);
        if ((mask & Route::kCurrentRoadName) != 0) showIfNew("on", info->getCurrentRoadName(), &mRoad);
        const std::string distance = textOf(info->getDistanceToNextManeuverDisplayStr());
        if (!distance.empty()) printf("in %s: %s\n", distance.c_str(), nextManeuver(*info).c_str());
        return 0;
    }

    int RouteGuidanceManeuverUpdates(unsigned int /*accId*/,
                                     const sp<accessory::RuoteGuidanceManeuverUpdateInfo>& info) override {
        const std::lock_guard<std::mutex> guard(mLock);
        if ((info->getMask() & Maneuver::kManeuverDescription) != 0) {
            mManeuvers[info->getIndex()] = textOf(info->getManeuverDescription());
        }
        return 0;
    }

    int LaneGuidanceInformation(unsigned int /*accId*/,
                                const sp<accessory::LaneGuidanceInfo>& info) override {
        if ((info->getMask() & Lanes::kLaneGuidanceDescription) == 0) return 0;
        printf("%u lanes: %s\n", info->getLaneInformationCnt(),
               textOf(info->getLaneGuidanceDescription()).c_str());
        return 0;
    }

  private:
    using Route = accessory::IRouteGuidaceUpdateInfo;
    using Maneuver = accessory::IRuoteGuidanceManeuverUpdateInfo;
    using Lanes = accessory::ILaneGuidanceInformation;

    /// A text may be null although its bit is set.
    static std::string textOf(const char* text) { return text != nullptr ? text : ""; }

    /// Updates repeat what has not changed.
    static void showIfNew(const char* word, const char* text, std::string* shown) {
        if (*shown == textOf(text)) return;
        *shown = textOf(text);
        if (!shown->empty()) printf("%s %s\n", word, shown->c_str());
    }

    std::string nextManeuver(const accessory::RouteGuidaceUpdateInfo& info) {
        const bool listed = (info.getMask() & Route::kRouteGuidanceManeuverCurrentList) != 0 &&
                            info.getRouteGuidanceManeuverInCurrentListCnt() > 0;
        if (listed) mNext = info.getRouteGuidanceManeuverCurrentList()[0];
        const auto found = mManeuvers.find(mNext);
        return found != mManeuvers.end() ? found->second : "the route begins";
    }

    IAppleiAP2Manager& mManager;
    std::mutex mLock;
    std::map<unsigned int, std::string> mManeuvers;  // by index
    unsigned int mNext = 0;
    std::string mDestination;
    std::string mRoad;
};

}  // namespace

int main() {
    examples::endOnRequest();
    setvbuf(stdout, nullptr, _IOLBF, 0);
    examples::ManagerConnection connection;
    if (!connection.isOpen()) return 1;
    const sp<NavigationDisplay> display = new NavigationDisplay(connection.manager());
    if (!connection.listen(display)) return 1;
    for (const unsigned int phone : connection.phones())
        display->attach(phone);
    const bool inGoodOrder = connection.waitForTheEnd();
    printf(inGoodOrder ? "bye\n" : "the service has ended\n");
    return 0;
}
