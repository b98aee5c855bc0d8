// Makers of records that were compiled apart from the library's headers (see ApartMediaLibrary.cpp).
#pragma once

#include <cstdint>

namespace accessory {

class iAP2MediaItem;
class iAP2MediaPlaylist;
class iAP2MediaLibData;
class iAP2ItemAttribute;
class iAP2MediaPlayback;
class iAP2PowerUpdate;
class RouteGuidaceUpdateInfo;
class RuoteGuidanceManeuverUpdateInfo;
class LaneGuidanceInfo;

namespace test {

/// Each answers with the values of the sample of its name, and with @p mask.
iAP2MediaItem* makeApartMediaItem(uint32_t mask);
iAP2MediaPlaylist* makeApartMediaPlaylist(uint32_t mask);
iAP2MediaLibData* makeApartMediaLibData(uint32_t mask);
iAP2ItemAttribute* makeApartItemAttribute(uint32_t mask);
iAP2MediaPlayback* makeApartMediaPlayback(uint32_t mask);
iAP2PowerUpdate* makeApartPowerUpdate(uint32_t mask);
RouteGuidaceUpdateInfo* makeApartRouteGuidance(uint32_t mask);
RuoteGuidanceManeuverUpdateInfo* makeApartManeuver(uint32_t mask);
LaneGuidanceInfo* makeApartLaneGuidance(uint32_t mask);

}  // namespace test
}  // namespace accessory
