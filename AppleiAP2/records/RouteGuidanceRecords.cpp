#include <accessory/RouteGuidanceRecords.h>

#include <android/log.h>

#include "AppleiAP2/records/ArrayMemory.h"
#include "AppleiAP2/records/RecordParcel.h"
#include "AppleiAP2/records/RouteGuidanceTables.h"

namespace accessory {

using android::Parcel;
using android::sp;

namespace {

constexpr char kRouteText[] = "RouteGuidaceUpdateInfo %s mask 0x%x";
constexpr char kManeuverWriterText[] = "RuoteGuidanceManeuverUpdateInfo %s mask 0x%x";
constexpr char kLaneWriterText[] = "ILaneGuidanceInformation %s mask 0x%x";
// One text for both: the lane reader logs under the maneuver's name.
constexpr char kManeuverAndLaneReaderText[] = "IRuoteGuidanceManeuverUpdateInfo %s mask 0x%x";

void logMask(const char* format, const char* function, uint32_t mask) {
    __android_log_print(ANDROID_LOG_DEBUG, kiAP2NotifierUnit.tag, format, function, mask);
}

// These records keep their mask as a plain member, and reading can fail. logText is null for a silent reader.
template <typename Table>
sp<typename Table::Parcelable> readGuidance(const Operation& operation, const Parcel& parcel,
                                            const char* logText) {
    sp<typename Table::Parcelable> record = new typename Table::Parcelable;
    RecordReader reader(parcel, operation);
    record->mMask = reader.uint32();
    if (logText != nullptr) logMask(logText, operation.function, record->mMask);
    if (!reader.fields(record->mMask, *record, Table::kFields)) return nullptr;
    return record;
}

template <typename Table>
void writeGuidance(const Operation& operation, Parcel* parcel, const typename Table::Plain& record,
                   const char* logText) {
    logMask(logText, operation.function, record.getMask());
    writeRecord<Table>(operation, parcel, record);
}

}  // namespace

RouteGuidaceUpdateInfo::~RouteGuidaceUpdateInfo() = default;
IRouteGuidaceUpdateInfo::IRouteGuidaceUpdateInfo() = default;

IRouteGuidaceUpdateInfo::~IRouteGuidaceUpdateInfo() {
    freeArray(mDisplayID);
    freeArray(mRouteGuidanceManeuverCurrentList);
}

sp<IRouteGuidaceUpdateInfo> IRouteGuidaceUpdateInfo::FromParcel(const Parcel& parcel) {
    return readGuidance<RouteGuidanceTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel, nullptr);
}

void IRouteGuidaceUpdateInfo::writeToParcel(Parcel* parcel, const sp<RouteGuidaceUpdateInfo>& record) {
    writeGuidance<RouteGuidanceTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel, *record, kRouteText);
}

std::string toString(const RouteGuidaceUpdateInfo& record) { return textOf<RouteGuidanceTable>(record); }

RuoteGuidanceManeuverUpdateInfo::~RuoteGuidanceManeuverUpdateInfo() = default;
IRuoteGuidanceManeuverUpdateInfo::IRuoteGuidanceManeuverUpdateInfo() = default;

IRuoteGuidanceManeuverUpdateInfo::~IRuoteGuidanceManeuverUpdateInfo() {
    freeArray(mRouteGuidanceDisplayComponentID);
    freeArray(mJunctionElementAngel);
}

sp<IRuoteGuidanceManeuverUpdateInfo> IRuoteGuidanceManeuverUpdateInfo::FromParcel(const Parcel& parcel) {
    return readGuidance<ManeuverTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel,
                                       kManeuverAndLaneReaderText);
}

void IRuoteGuidanceManeuverUpdateInfo::writeToParcel(Parcel* parcel,
                                                     const sp<RuoteGuidanceManeuverUpdateInfo>& record) {
    writeGuidance<ManeuverTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel, *record,
                                 kManeuverWriterText);
}

std::string toString(const RuoteGuidanceManeuverUpdateInfo& record) { return textOf<ManeuverTable>(record); }

LaneGuidanceInfo::~LaneGuidanceInfo() = default;
ILaneGuidanceInformation::ILaneGuidanceInformation() = default;

ILaneGuidanceInformation::~ILaneGuidanceInformation() {
    freeArray(mRouteGuidanceDisplayComponentID);
    freeLanes(mLaneInformation, mLaneInformationCnt);
}

sp<ILaneGuidanceInformation> ILaneGuidanceInformation::FromParcel(const Parcel& parcel) {
    return readGuidance<LaneGuidanceTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel,
                                           kManeuverAndLaneReaderText);
}

void ILaneGuidanceInformation::writeToParcel(Parcel* parcel, const sp<LaneGuidanceInfo>& record) {
    writeGuidance<LaneGuidanceTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel, *record,
                                     kLaneWriterText);
}

std::string toString(const LaneGuidanceInfo& record) { return textOf<LaneGuidanceTable>(record); }

}  // namespace accessory
