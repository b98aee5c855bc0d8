// Records of a client that was compiled apart: it has its own declarations of the plain records, in the order
// of the virtual table that the library promises, and never saw the library's headers. When the library's
// order differs, a writer asks such a record for the wrong field.
#include <utils/RefBase.h>

#include <cstdint>

#include "tests/AppleiAP2/records/ApartRecords.h"

namespace accessory {

class __attribute__((visibility("default"))) RouteGuidaceUpdateInfo : public virtual android::RefBase {
  public:
    ~RouteGuidaceUpdateInfo() override;
    virtual uint32_t getMask() const = 0;
    virtual uint32_t getDisplayIdCnt() const = 0;
    virtual const uint16_t* getDisplayID() const = 0;
    virtual int32_t getRouteGuidanceState() const = 0;
    virtual int32_t getManeuverState() const = 0;
    virtual const char* getCurrentRoadName() const = 0;
    virtual const char* getDestinationName() const = 0;
    virtual uint64_t getETA() const = 0;
    virtual uint64_t getTimeRemainingToDestination() const = 0;
    virtual int32_t getDisatnceRemaining() const = 0;
    virtual const char* getDistanceRemainingDisplayStr() const = 0;
    virtual int32_t getDistanceRemainingDisplayUints() const = 0;
    virtual int32_t getDistanceToNextManeuver() const = 0;
    virtual const char* getDistanceToNextManeuverDisplayStr() const = 0;
    virtual int32_t getDistanceToNextManeuverDisplayUnits() const = 0;
    virtual uint32_t getRouteGuidanceManeuverInCurrentListCnt() const = 0;
    virtual const uint16_t* getRouteGuidanceManeuverCurrentList() const = 0;
    virtual uint16_t getRouteGuidanceManeuverCount() const = 0;
    virtual uint16_t getRouteGuidanceVisiableInApp() const = 0;
    virtual uint16_t getLaneGuidanceCurrentIndex() const = 0;
    virtual uint16_t getLaneGuidanceTotalCount() const = 0;
    virtual uint16_t getLaneGuidanceBeingShownInApp() const = 0;
    virtual const char* getSourceName() const = 0;
    virtual uint16_t getSourceSupportsRouteGuidance() const = 0;
    virtual int16_t getDestinationTimeZoneOffsetMinutes() const = 0;
};

namespace test {
namespace {

class ApartRouteGuidance final : public RouteGuidaceUpdateInfo {
  public:
    explicit ApartRouteGuidance(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    uint32_t getDisplayIdCnt() const override { return 2; }
    const uint16_t* getDisplayID() const override { return mDisplayID; }
    int32_t getRouteGuidanceState() const override { return -1001; }
    int32_t getManeuverState() const override { return 1002; }
    const char* getCurrentRoadName() const override { return "High Street"; }
    const char* getDestinationName() const override { return "Home"; }
    uint64_t getETA() const override { return 0x8000000000000005; }
    uint64_t getTimeRemainingToDestination() const override { return 0x8000000000000006; }
    int32_t getDisatnceRemaining() const override { return -1007; }
    const char* getDistanceRemainingDisplayStr() const override { return "12"; }
    int32_t getDistanceRemainingDisplayUints() const override { return -1009; }
    int32_t getDistanceToNextManeuver() const override { return 1010; }
    const char* getDistanceToNextManeuverDisplayStr() const override { return "350"; }
    int32_t getDistanceToNextManeuverDisplayUnits() const override { return 1012; }
    uint32_t getRouteGuidanceManeuverInCurrentListCnt() const override { return 3; }
    const uint16_t* getRouteGuidanceManeuverCurrentList() const override {
        return mRouteGuidanceManeuverCurrentList;
    }
    uint16_t getRouteGuidanceManeuverCount() const override { return 65014; }
    uint16_t getRouteGuidanceVisiableInApp() const override { return 65015; }
    uint16_t getLaneGuidanceCurrentIndex() const override { return 65016; }
    uint16_t getLaneGuidanceTotalCount() const override { return 65017; }
    uint16_t getLaneGuidanceBeingShownInApp() const override { return 65018; }
    const char* getSourceName() const override { return "Maps"; }
    uint16_t getSourceSupportsRouteGuidance() const override { return 65020; }
    int16_t getDestinationTimeZoneOffsetMinutes() const override { return -300; }

  private:
    const uint32_t mMask;
    const uint16_t mDisplayID[2] = {1, 65535};
    const uint16_t mRouteGuidanceManeuverCurrentList[3] = {4, 5, 6};
};

}  // namespace

RouteGuidaceUpdateInfo* makeApartRouteGuidance(uint32_t mask) { return new ApartRouteGuidance(mask); }

}  // namespace test

class __attribute__((visibility("default"))) RuoteGuidanceManeuverUpdateInfo
    : public virtual android::RefBase {
  public:
    ~RuoteGuidanceManeuverUpdateInfo() override;
    virtual uint32_t getMask() const = 0;
    virtual uint32_t getRouteGuidanceDisplayComponentIDCnt() const = 0;
    virtual const uint16_t* getRouteGuidanceDisplayComponentID() const = 0;
    virtual uint16_t getIndex() const = 0;
    virtual const char* getManeuverDescription() const = 0;
    virtual int32_t getManeuverType() const = 0;
    virtual const char* getAfterManeuverRoadName() const = 0;
    virtual int32_t getDistanceBetweenManeuver() const = 0;
    virtual const char* getDistanceBetweenManeuverDisplayStr() const = 0;
    virtual int32_t getDistanceBetweenManeuverDisplayUnits() const = 0;
    virtual int32_t getDrivingSide() const = 0;
    virtual int32_t getJunctionType() const = 0;
    virtual uint32_t getJunctionElementAngelCnt() const = 0;
    virtual const int16_t* getJunctionElementAngel() const = 0;
    virtual int16_t getJunctionElementExitAngel() const = 0;
    virtual uint16_t getLinkedLaneGuidanceInformation() const = 0;
    virtual const char* getExitInfo() const = 0;
};

namespace test {
namespace {

class ApartManeuver final : public RuoteGuidanceManeuverUpdateInfo {
  public:
    explicit ApartManeuver(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    uint32_t getRouteGuidanceDisplayComponentIDCnt() const override { return 1; }
    const uint16_t* getRouteGuidanceDisplayComponentID() const override {
        return mRouteGuidanceDisplayComponentID;
    }
    uint16_t getIndex() const override { return 65001; }
    const char* getManeuverDescription() const override { return "Turn left"; }
    int32_t getManeuverType() const override { return -1003; }
    const char* getAfterManeuverRoadName() const override { return "Mill Lane"; }
    int32_t getDistanceBetweenManeuver() const override { return -1005; }
    const char* getDistanceBetweenManeuverDisplayStr() const override { return "1.2"; }
    int32_t getDistanceBetweenManeuverDisplayUnits() const override { return -1007; }
    int32_t getDrivingSide() const override { return 1008; }
    int32_t getJunctionType() const override { return -1009; }
    uint32_t getJunctionElementAngelCnt() const override { return 3; }
    const int16_t* getJunctionElementAngel() const override { return mJunctionElementAngel; }
    int16_t getJunctionElementExitAngel() const override { return -300; }
    uint16_t getLinkedLaneGuidanceInformation() const override { return 65012; }
    const char* getExitInfo() const override { return "Exit 7"; }

  private:
    const uint32_t mMask;
    const uint16_t mRouteGuidanceDisplayComponentID[1] = {7};
    const int16_t mJunctionElementAngel[3] = {-90, 0, 179};
};

}  // namespace

RuoteGuidanceManeuverUpdateInfo* makeApartManeuver(uint32_t mask) { return new ApartManeuver(mask); }

}  // namespace test

struct LaneInformation {
    uint32_t mask;
    uint16_t laneField0;
    int32_t laneField1;
    uint32_t laneAngleCnt;
    int16_t* laneAngle;
    uint16_t laneField3;
};

class __attribute__((visibility("default"))) LaneGuidanceInfo : public virtual android::RefBase {
  public:
    ~LaneGuidanceInfo() override;
    virtual uint32_t getMask() const = 0;
    virtual uint32_t getRouteGuidanceDisplayComponentIDCnt() const = 0;
    virtual const uint16_t* getRouteGuidanceDisplayComponentID() const = 0;
    virtual uint16_t getLaneGuidanceIndex() const = 0;
    virtual uint32_t getLaneInformationCnt() const = 0;
    virtual const LaneInformation* getLaneInformation() const = 0;
    virtual const char* getLaneGuidanceDescription() const = 0;
};

namespace test {
namespace {

class ApartLaneGuidance final : public LaneGuidanceInfo {
  public:
    explicit ApartLaneGuidance(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    uint32_t getRouteGuidanceDisplayComponentIDCnt() const override { return 1; }
    const uint16_t* getRouteGuidanceDisplayComponentID() const override {
        return mRouteGuidanceDisplayComponentID;
    }
    uint16_t getLaneGuidanceIndex() const override { return 65001; }
    uint32_t getLaneInformationCnt() const override { return 3; }
    const LaneInformation* getLaneInformation() const override { return mLanes; }
    const char* getLaneGuidanceDescription() const override { return "Keep right"; }

  private:
    const uint32_t mMask;
    const uint16_t mRouteGuidanceDisplayComponentID[1] = {7};
    int16_t mAngles[3] = {-45, 0, 45};
    const LaneInformation mLanes[3] = {{0xf, 65535, -7, 3, mAngles, 0xffff}, {}, {0x4, 0, 0, 0, mAngles, 0}};
};

}  // namespace

LaneGuidanceInfo* makeApartLaneGuidance(uint32_t mask) { return new ApartLaneGuidance(mask); }

}  // namespace test

}  // namespace accessory
