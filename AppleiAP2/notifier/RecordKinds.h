// The data records in an event.
#pragma once

#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <accessory/RouteGuidanceRecords.h>

#include <tuple>

#include "common/Kinds.h"

namespace accessory::wire::iap2_notifier {

/// A record in its parcel form. A null one cannot be written: that is reported, and an empty record keeps
/// what follows in its place.
template <typename Plain, typename Parcelable, typename Argument = const android::sp<Plain>&>
struct Record {
    static constexpr const char* kKind = "record";
    using Arguments = std::tuple<Argument>;

    const char* name = nullptr;

    static void write(Writer& out, const android::sp<Plain>& record) {
        if (record == nullptr) out.step(android::BAD_VALUE);
        const android::sp<Plain> written = record != nullptr ? record : new Parcelable();
        Parcelable::writeToParcel(&out.parcel(), written);
    }

    struct Slot {
        android::sp<Plain> info;
        GiveUp read(Reader& in) {
            info = Parcelable::FromParcel(in.parcel());
            return kGoOn;
        }
        Arguments arguments() { return {info}; }
    };
};

/// A record that the stub insists on.
template <typename Plain, typename Parcelable>
struct RequiredRecord : Record<Plain, Parcelable> {
    struct Slot : Record<Plain, Parcelable>::Slot {
        GiveUp read(Reader& in) {
            Record<Plain, Parcelable>::Slot::read(in);
            if (holds(in.site(), this->info != nullptr, "info.get()")) return kGoOn;
            return android::BAD_VALUE;
        }
    };
};

constexpr Record<iAP2MediaLibData, IiAP2MediaLibData, android::sp<iAP2MediaLibData>> mediaLibData(
    const char* name) {
    return {name};
}
constexpr Record<iAP2ItemAttribute, IiAP2ItemAttribute> itemAttribute(const char* name) { return {name}; }
constexpr Record<iAP2MediaPlayback, IiAP2MediaPlayback> mediaPlayback(const char* name) { return {name}; }
constexpr Record<iAP2PowerUpdate, IiAP2PowerUpdate> power(const char* name) { return {name}; }
constexpr RequiredRecord<RouteGuidaceUpdateInfo, IRouteGuidaceUpdateInfo> routeGuidance(const char* name) {
    return {{name}};
}
constexpr RequiredRecord<RuoteGuidanceManeuverUpdateInfo, IRuoteGuidanceManeuverUpdateInfo> maneuver(
    const char* name) {
    return {{name}};
}
constexpr RequiredRecord<LaneGuidanceInfo, ILaneGuidanceInformation> laneGuidance(const char* name) {
    return {{name}};
}

}  // namespace accessory::wire::iap2_notifier
