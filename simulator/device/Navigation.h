// Navigation: the route that the device guides along, and the events about it.
#pragma once

#include <optional>
#include <vector>

#include "simulator/device/Feature.h"
#include "simulator/device/Profile.h"
#include "simulator/engine/Timer.h"
#include "simulator/model/Route.h"

namespace accessory::simulator {

class Navigation : public Feature {
  public:
    Navigation(Stage& stage, unsigned int id, const DeviceProfile& profile);

    void reset();

    /// Begins events. @param displays the display components that the events will name.
    /// @param fields of RouteGuidaceUpdateInfo; 0: all.
    int start(std::vector<uint16_t> displays, uint32_t fields);
    /// Takes displays away, all of them when @p displays is empty; events end with the last one.
    int stop(const std::vector<uint16_t>& displays);

    /// @param name of a route of the profile; empty: the first one. @return false when there is none.
    bool startRoute(const std::string& name);
    void stopRoute();
    void reroute();

    void describe(std::string* out) const;

  private:
    struct Asked {
        std::vector<uint16_t> displays;
        uint32_t fields;
    };

    void step();
    void tellAll();
    void tellState();
    void tellManeuver(size_t index);
    void tellLanes(size_t index);

    const DeviceProfile& mProfile;
    Route mRoute;
    std::optional<Asked> mAsked;
    Timer mTick;
};

}  // namespace accessory::simulator
