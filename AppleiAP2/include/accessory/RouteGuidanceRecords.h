// The route guidance records: the overall state, one maneuver, and the lanes at one point.
//
// Their shape, and how long strings must live, is told in <accessory/MediaLibraryRecords.h>. Here the mask is
// a plain member, and the parcelables own their arrays: allocated with malloc, freed with free when the
// record goes. A count or array beyond what one transaction can carry counts as a failed allocation.
#pragma once

#include <accessory/Export.h>
#include <utils/RefBase.h>

#include <cstdint>
#include <string>

namespace android {
class Parcel;
}

namespace accessory {

/// The overall state of the guidance. Units and value sets are the device's.
class ACCESSORY_EXPORT RouteGuidaceUpdateInfo : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kDisplayID = 1u << 0,
        kRouteGuidanceState = 1u << 1,
        kManeuverState = 1u << 2,
        kCurrentRoadName = 1u << 3,
        kDestinationName = 1u << 4,
        kETA = 1u << 5,
        kTimeRemainingToDestination = 1u << 6,
        kDisatnceRemaining = 1u << 7,
        kDistanceRemainingDisplayStr = 1u << 8,
        kDistanceRemainingDisplayUints = 1u << 9,
        kDistanceToNextManeuver = 1u << 10,
        kDistanceToNextManeuverDisplayStr = 1u << 11,
        kDistanceToNextManeuverDisplayUnits = 1u << 12,
        kRouteGuidanceManeuverCurrentList = 1u << 13,
        kRouteGuidanceManeuverCount = 1u << 14,
        kRouteGuidanceVisiableInApp = 1u << 15,
        kLaneGuidanceCurrentIndex = 1u << 16,
        kLaneGuidanceTotalCount = 1u << 17,
        kLaneGuidanceBeingShownInApp = 1u << 18,
        kSourceName = 1u << 19,
        kSourceSupportsRouteGuidance = 1u << 20,
        kDestinationTimeZoneOffsetMinutes = 1u << 21,
    };

    ~RouteGuidaceUpdateInfo() override;
    virtual uint32_t getMask() const = 0;                ///< the bits of the fields that are present
    virtual uint32_t getDisplayIdCnt() const = 0;        ///< how many identifiers getDisplayID() has
    virtual const uint16_t* getDisplayID() const = 0;    ///< display component identifiers
    virtual int32_t getRouteGuidanceState() const = 0;   ///< whether there is a route, and how it goes
    virtual int32_t getManeuverState() const = 0;        ///< state of the next maneuver
    virtual const char* getCurrentRoadName() const = 0;  ///< the road that the vehicle is on
    virtual const char* getDestinationName() const = 0;  ///< where the route leads
    virtual uint64_t getETA() const = 0;                 ///< estimated time of arrival
    virtual uint64_t getTimeRemainingToDestination() const = 0;      ///< until the arrival
    virtual int32_t getDisatnceRemaining() const = 0;                ///< to the destination
    virtual const char* getDistanceRemainingDisplayStr() const = 0;  ///< getDisatnceRemaining() for people
    /// Unit of getDistanceRemainingDisplayStr().
    virtual int32_t getDistanceRemainingDisplayUints() const = 0;
    virtual int32_t getDistanceToNextManeuver() const = 0;  ///< from here
    /// getDistanceToNextManeuver() for people.
    virtual const char* getDistanceToNextManeuverDisplayStr() const = 0;
    /// Unit of getDistanceToNextManeuverDisplayStr().
    virtual int32_t getDistanceToNextManeuverDisplayUnits() const = 0;
    /// How many indices getRouteGuidanceManeuverCurrentList() has.
    virtual uint32_t getRouteGuidanceManeuverInCurrentListCnt() const = 0;
    virtual const uint16_t* getRouteGuidanceManeuverCurrentList() const = 0;  ///< maneuver indices
    virtual uint16_t getRouteGuidanceManeuverCount() const = 0;               ///< of the whole route
    /// 0 or 1: an application of the device shows the guidance.
    virtual uint16_t getRouteGuidanceVisiableInApp() const = 0;
    virtual uint16_t getLaneGuidanceCurrentIndex() const = 0;     ///< which lane guidance holds now
    virtual uint16_t getLaneGuidanceTotalCount() const = 0;       ///< how many lane guidances there are
    virtual uint16_t getLaneGuidanceBeingShownInApp() const = 0;  ///< 0 or 1: as above
    virtual const char* getSourceName() const = 0;                ///< the application that guides
    /// 0 or 1: that application tells about its route.
    virtual uint16_t getSourceSupportsRouteGuidance() const = 0;
    virtual int16_t getDestinationTimeZoneOffsetMinutes() const = 0;  ///< minutes, signed
};

/// A guidance state that can be built and sent.
class ACCESSORY_EXPORT IRouteGuidaceUpdateInfo : public RouteGuidaceUpdateInfo {
  public:
    IRouteGuidaceUpdateInfo();
    ~IRouteGuidaceUpdateInfo() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null.
    /// @return null, after a log line, when an array cannot be allocated.
    static android::sp<IRouteGuidaceUpdateInfo> FromParcel(const android::Parcel& parcel);
    /// Appends any implementation of the plain record, through its getters; it must not be null. Failed
    /// writes are logged, and writing goes on. The process ends when a string or a non-empty array is marked
    /// present and null, save two strings: a null distance to the next maneuver or source name stops the
    /// writing there, and the receiver misreads what follows. Clear the bit of an absent string.
    static void writeToParcel(android::Parcel* parcel, const android::sp<RouteGuidaceUpdateInfo>& record);

    uint32_t getMask() const override { return mMask; }
    uint32_t getDisplayIdCnt() const override { return mDisplayIdCnt; }
    const uint16_t* getDisplayID() const override { return mDisplayID; }
    int32_t getRouteGuidanceState() const override { return mRouteGuidanceState; }
    int32_t getManeuverState() const override { return mManeuverState; }
    const char* getCurrentRoadName() const override { return mCurrentRoadName; }
    const char* getDestinationName() const override { return mDestinationName; }
    uint64_t getETA() const override { return mETA; }
    uint64_t getTimeRemainingToDestination() const override { return mTimeRemainingToDestination; }
    int32_t getDisatnceRemaining() const override { return mDisatnceRemaining; }
    const char* getDistanceRemainingDisplayStr() const override { return mDistanceRemainingDisplayStr; }
    int32_t getDistanceRemainingDisplayUints() const override { return mDistanceRemainingDisplayUints; }
    int32_t getDistanceToNextManeuver() const override { return mDistanceToNextManeuver; }
    const char* getDistanceToNextManeuverDisplayStr() const override {
        return mDistanceToNextManeuverDisplayStr;
    }
    int32_t getDistanceToNextManeuverDisplayUnits() const override {
        return mDistanceToNextManeuverDisplayUnits;
    }
    uint32_t getRouteGuidanceManeuverInCurrentListCnt() const override {
        return mRouteGuidanceManeuverInCurrentListCnt;
    }
    const uint16_t* getRouteGuidanceManeuverCurrentList() const override {
        return mRouteGuidanceManeuverCurrentList;
    }
    uint16_t getRouteGuidanceManeuverCount() const override { return mRouteGuidanceManeuverCount; }
    uint16_t getRouteGuidanceVisiableInApp() const override { return mRouteGuidanceVisiableInApp; }
    uint16_t getLaneGuidanceCurrentIndex() const override { return mLaneGuidanceCurrentIndex; }
    uint16_t getLaneGuidanceTotalCount() const override { return mLaneGuidanceTotalCount; }
    uint16_t getLaneGuidanceBeingShownInApp() const override { return mLaneGuidanceBeingShownInApp; }
    const char* getSourceName() const override { return mSourceName; }
    uint16_t getSourceSupportsRouteGuidance() const override { return mSourceSupportsRouteGuidance; }
    int16_t getDestinationTimeZoneOffsetMinutes() const override { return mDestinationTimeZoneOffsetMinutes; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed and must not be null. Arrays
    /// are copied; when there is no memory for the copy the field becomes absent.
    IRouteGuidaceUpdateInfo& setDisplayID(const uint16_t* values, uint32_t count);
    IRouteGuidaceUpdateInfo& setRouteGuidanceState(int32_t value) {
        return set(kRouteGuidanceState, mRouteGuidanceState, value);
    }
    IRouteGuidaceUpdateInfo& setManeuverState(int32_t value) {
        return set(kManeuverState, mManeuverState, value);
    }
    IRouteGuidaceUpdateInfo& setCurrentRoadName(const char* value) {
        return set(kCurrentRoadName, mCurrentRoadName, value);
    }
    IRouteGuidaceUpdateInfo& setDestinationName(const char* value) {
        return set(kDestinationName, mDestinationName, value);
    }
    IRouteGuidaceUpdateInfo& setETA(uint64_t value) { return set(kETA, mETA, value); }
    IRouteGuidaceUpdateInfo& setTimeRemainingToDestination(uint64_t value) {
        return set(kTimeRemainingToDestination, mTimeRemainingToDestination, value);
    }
    IRouteGuidaceUpdateInfo& setDisatnceRemaining(int32_t value) {
        return set(kDisatnceRemaining, mDisatnceRemaining, value);
    }
    IRouteGuidaceUpdateInfo& setDistanceRemainingDisplayStr(const char* value) {
        return set(kDistanceRemainingDisplayStr, mDistanceRemainingDisplayStr, value);
    }
    IRouteGuidaceUpdateInfo& setDistanceRemainingDisplayUints(int32_t value) {
        return set(kDistanceRemainingDisplayUints, mDistanceRemainingDisplayUints, value);
    }
    IRouteGuidaceUpdateInfo& setDistanceToNextManeuver(int32_t value) {
        return set(kDistanceToNextManeuver, mDistanceToNextManeuver, value);
    }
    IRouteGuidaceUpdateInfo& setDistanceToNextManeuverDisplayStr(const char* value) {
        return set(kDistanceToNextManeuverDisplayStr, mDistanceToNextManeuverDisplayStr, value);
    }
    IRouteGuidaceUpdateInfo& setDistanceToNextManeuverDisplayUnits(int32_t value) {
        return set(kDistanceToNextManeuverDisplayUnits, mDistanceToNextManeuverDisplayUnits, value);
    }
    IRouteGuidaceUpdateInfo& setRouteGuidanceManeuverCurrentList(const uint16_t* values, uint32_t count);
    IRouteGuidaceUpdateInfo& setRouteGuidanceManeuverCount(uint16_t value) {
        return set(kRouteGuidanceManeuverCount, mRouteGuidanceManeuverCount, value);
    }
    IRouteGuidaceUpdateInfo& setRouteGuidanceVisiableInApp(uint16_t value) {
        return set(kRouteGuidanceVisiableInApp, mRouteGuidanceVisiableInApp, value);
    }
    IRouteGuidaceUpdateInfo& setLaneGuidanceCurrentIndex(uint16_t value) {
        return set(kLaneGuidanceCurrentIndex, mLaneGuidanceCurrentIndex, value);
    }
    IRouteGuidaceUpdateInfo& setLaneGuidanceTotalCount(uint16_t value) {
        return set(kLaneGuidanceTotalCount, mLaneGuidanceTotalCount, value);
    }
    IRouteGuidaceUpdateInfo& setLaneGuidanceBeingShownInApp(uint16_t value) {
        return set(kLaneGuidanceBeingShownInApp, mLaneGuidanceBeingShownInApp, value);
    }
    IRouteGuidaceUpdateInfo& setSourceName(const char* value) { return set(kSourceName, mSourceName, value); }
    IRouteGuidaceUpdateInfo& setSourceSupportsRouteGuidance(uint16_t value) {
        return set(kSourceSupportsRouteGuidance, mSourceSupportsRouteGuidance, value);
    }
    IRouteGuidaceUpdateInfo& setDestinationTimeZoneOffsetMinutes(int16_t value) {
        return set(kDestinationTimeZoneOffsetMinutes, mDestinationTimeZoneOffsetMinutes, value);
    }

    /// @}

    uint32_t mMask = 0;  ///< the bits of the fields that are present

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    uint32_t mDisplayIdCnt = 0;
    uint16_t* mDisplayID = nullptr;
    int32_t mRouteGuidanceState = 0;
    int32_t mManeuverState = 0;
    const char* mCurrentRoadName = nullptr;
    const char* mDestinationName = nullptr;
    uint64_t mETA = 0;
    uint64_t mTimeRemainingToDestination = 0;
    int32_t mDisatnceRemaining = 0;
    const char* mDistanceRemainingDisplayStr = nullptr;
    int32_t mDistanceRemainingDisplayUints = 0;
    int32_t mDistanceToNextManeuver = 0;
    const char* mDistanceToNextManeuverDisplayStr = nullptr;
    int32_t mDistanceToNextManeuverDisplayUnits = 0;
    uint32_t mRouteGuidanceManeuverInCurrentListCnt = 0;
    uint16_t* mRouteGuidanceManeuverCurrentList = nullptr;
    uint16_t mRouteGuidanceManeuverCount = 0;
    uint16_t mRouteGuidanceVisiableInApp = 0;
    uint16_t mLaneGuidanceCurrentIndex = 0;
    uint16_t mLaneGuidanceTotalCount = 0;
    uint16_t mLaneGuidanceBeingShownInApp = 0;
    const char* mSourceName = nullptr;
    uint16_t mSourceSupportsRouteGuidance = 0;
    int16_t mDestinationTimeZoneOffsetMinutes = 0;

    /// @}

  private:
    template <typename T>
    IRouteGuidaceUpdateInfo& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask |= bit;
        return *this;
    }
};

/// One maneuver of the route. Units and value sets are the device's.
class ACCESSORY_EXPORT RuoteGuidanceManeuverUpdateInfo : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kRouteGuidanceDisplayComponentID = 1u << 0,
        kIndex = 1u << 1,
        kManeuverDescription = 1u << 2,
        kManeuverType = 1u << 3,
        kAfterManeuverRoadName = 1u << 4,
        kDistanceBetweenManeuver = 1u << 5,
        kDistanceBetweenManeuverDisplayStr = 1u << 6,
        kDistanceBetweenManeuverDisplayUnits = 1u << 7,
        kDrivingSide = 1u << 8,
        kJunctionType = 1u << 9,
        kJunctionElementAngel = 1u << 10,
        kJunctionElementExitAngel = 1u << 11,
        kLinkedLaneGuidanceInformation = 1u << 12,
        kExitInfo = 1u << 13,
    };

    ~RuoteGuidanceManeuverUpdateInfo() override;
    virtual uint32_t getMask() const = 0;  ///< the bits of the fields that are present
    /// How many identifiers the next one has.
    virtual uint32_t getRouteGuidanceDisplayComponentIDCnt() const = 0;
    /// Display component identifiers.
    virtual const uint16_t* getRouteGuidanceDisplayComponentID() const = 0;
    virtual uint16_t getIndex() const = 0;                     ///< index of the maneuver
    virtual const char* getManeuverDescription() const = 0;    ///< what to do, for people
    virtual int32_t getManeuverType() const = 0;               ///< what to do
    virtual const char* getAfterManeuverRoadName() const = 0;  ///< the road that it leads to
    virtual int32_t getDistanceBetweenManeuver() const = 0;    ///< length of the way between them
    /// getDistanceBetweenManeuver() for people.
    virtual const char* getDistanceBetweenManeuverDisplayStr() const = 0;
    /// Unit of getDistanceBetweenManeuverDisplayStr().
    virtual int32_t getDistanceBetweenManeuverDisplayUnits() const = 0;
    virtual int32_t getDrivingSide() const = 0;   ///< on which side of the road one drives
    virtual int32_t getJunctionType() const = 0;  ///< what kind of junction it is
    /// How many angles getJunctionElementAngel() has.
    virtual uint32_t getJunctionElementAngelCnt() const = 0;
    virtual const int16_t* getJunctionElementAngel() const = 0;     ///< angles of the junction's elements
    virtual int16_t getJunctionElementExitAngel() const = 0;        ///< angle of the road to take
    virtual uint16_t getLinkedLaneGuidanceInformation() const = 0;  ///< index of the linked lane guidance
    virtual const char* getExitInfo() const = 0;                    ///< number or name of the exit
};

/// A maneuver that can be built and sent.
class ACCESSORY_EXPORT IRuoteGuidanceManeuverUpdateInfo : public RuoteGuidanceManeuverUpdateInfo {
  public:
    IRuoteGuidanceManeuverUpdateInfo();
    ~IRuoteGuidanceManeuverUpdateInfo() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null.
    /// @return null, after a log line, when an array cannot be allocated.
    static android::sp<IRuoteGuidanceManeuverUpdateInfo> FromParcel(const android::Parcel& parcel);
    /// Appends any implementation of the plain record, through its getters; it must not be null. Failed
    /// writes are logged, and writing goes on. The process ends when a string or a non-empty array is marked
    /// present and null.
    static void writeToParcel(android::Parcel* parcel,
                              const android::sp<RuoteGuidanceManeuverUpdateInfo>& record);

    uint32_t getMask() const override { return mMask; }
    uint32_t getRouteGuidanceDisplayComponentIDCnt() const override {
        return mRouteGuidanceDisplayComponentIDCnt;
    }
    const uint16_t* getRouteGuidanceDisplayComponentID() const override {
        return mRouteGuidanceDisplayComponentID;
    }
    uint16_t getIndex() const override { return mIndex; }
    const char* getManeuverDescription() const override { return mManeuverDescription; }
    int32_t getManeuverType() const override { return mManeuverType; }
    const char* getAfterManeuverRoadName() const override { return mAfterManeuverRoadName; }
    int32_t getDistanceBetweenManeuver() const override { return mDistanceBetweenManeuver; }
    const char* getDistanceBetweenManeuverDisplayStr() const override {
        return mDistanceBetweenManeuverDisplayStr;
    }
    int32_t getDistanceBetweenManeuverDisplayUnits() const override {
        return mDistanceBetweenManeuverDisplayUnits;
    }
    int32_t getDrivingSide() const override { return mDrivingSide; }
    int32_t getJunctionType() const override { return mJunctionType; }
    uint32_t getJunctionElementAngelCnt() const override { return mJunctionElementAngelCnt; }
    const int16_t* getJunctionElementAngel() const override { return mJunctionElementAngel; }
    int16_t getJunctionElementExitAngel() const override { return mJunctionElementExitAngel; }
    uint16_t getLinkedLaneGuidanceInformation() const override { return mLinkedLaneGuidanceInformation; }
    const char* getExitInfo() const override { return mExitInfo; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed and must not be null. Arrays
    /// are copied; when there is no memory for the copy the field becomes absent.
    IRuoteGuidanceManeuverUpdateInfo& setRouteGuidanceDisplayComponentID(const uint16_t* values,
                                                                         uint32_t count);
    IRuoteGuidanceManeuverUpdateInfo& setIndex(uint16_t value) { return set(kIndex, mIndex, value); }
    IRuoteGuidanceManeuverUpdateInfo& setManeuverDescription(const char* value) {
        return set(kManeuverDescription, mManeuverDescription, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setManeuverType(int32_t value) {
        return set(kManeuverType, mManeuverType, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setAfterManeuverRoadName(const char* value) {
        return set(kAfterManeuverRoadName, mAfterManeuverRoadName, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setDistanceBetweenManeuver(int32_t value) {
        return set(kDistanceBetweenManeuver, mDistanceBetweenManeuver, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setDistanceBetweenManeuverDisplayStr(const char* value) {
        return set(kDistanceBetweenManeuverDisplayStr, mDistanceBetweenManeuverDisplayStr, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setDistanceBetweenManeuverDisplayUnits(int32_t value) {
        return set(kDistanceBetweenManeuverDisplayUnits, mDistanceBetweenManeuverDisplayUnits, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setDrivingSide(int32_t value) {
        return set(kDrivingSide, mDrivingSide, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setJunctionType(int32_t value) {
        return set(kJunctionType, mJunctionType, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setJunctionElementAngel(const int16_t* values, uint32_t count);
    IRuoteGuidanceManeuverUpdateInfo& setJunctionElementExitAngel(int16_t value) {
        return set(kJunctionElementExitAngel, mJunctionElementExitAngel, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setLinkedLaneGuidanceInformation(uint16_t value) {
        return set(kLinkedLaneGuidanceInformation, mLinkedLaneGuidanceInformation, value);
    }
    IRuoteGuidanceManeuverUpdateInfo& setExitInfo(const char* value) {
        return set(kExitInfo, mExitInfo, value);
    }

    /// @}

    uint32_t mMask = 0;  ///< the bits of the fields that are present

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    uint32_t mRouteGuidanceDisplayComponentIDCnt = 0;
    uint16_t* mRouteGuidanceDisplayComponentID = nullptr;
    uint16_t mIndex = 0;
    const char* mManeuverDescription = nullptr;
    int32_t mManeuverType = 0;
    const char* mAfterManeuverRoadName = nullptr;
    int32_t mDistanceBetweenManeuver = 0;
    const char* mDistanceBetweenManeuverDisplayStr = nullptr;
    int32_t mDistanceBetweenManeuverDisplayUnits = 0;
    int32_t mDrivingSide = 0;
    int32_t mJunctionType = 0;
    uint32_t mJunctionElementAngelCnt = 0;
    int16_t* mJunctionElementAngel = nullptr;
    int16_t mJunctionElementExitAngel = 0;
    uint16_t mLinkedLaneGuidanceInformation = 0;
    const char* mExitInfo = nullptr;

    /// @}

  private:
    template <typename T>
    IRuoteGuidanceManeuverUpdateInfo& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask |= bit;
        return *this;
    }
};

/// One lane. Its own mask says which of its fields are present.
struct LaneInformation {
    /// Each is the presence of the field that has its name.
    enum Bit : uint32_t {
        kLaneField0 = 1u << 0,
        kLaneField1 = 1u << 1,
        kLaneAngle = 1u << 2,
        kLaneField3 = 1u << 3,
    };

    uint32_t mask = 0;             ///< the bits of the fields that are present
    uint16_t laneField0 = 0;       ///< means what the device says
    int32_t laneField1 = 0;        ///< means what the device says
    uint32_t laneAngleCnt = 0;     ///< how many angles there are
    int16_t* laneAngle = nullptr;  ///< of a lane in a record: owned by the record
    uint16_t laneField3 = 0;       ///< travels sign-extended
};

/// The lanes at one point of the route. Units and value sets are the device's.
class ACCESSORY_EXPORT LaneGuidanceInfo : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kRouteGuidanceDisplayComponentID = 1u << 0,
        kLaneGuidanceIndex = 1u << 1,
        kLaneInformation = 1u << 2,
        kLaneGuidanceDescription = 1u << 3,
    };

    ~LaneGuidanceInfo() override;
    virtual uint32_t getMask() const = 0;  ///< the bits of the fields that are present
    /// How many identifiers the next one has.
    virtual uint32_t getRouteGuidanceDisplayComponentIDCnt() const = 0;
    /// Display component identifiers.
    virtual const uint16_t* getRouteGuidanceDisplayComponentID() const = 0;
    virtual uint16_t getLaneGuidanceIndex() const = 0;   ///< by which maneuvers refer to it
    virtual uint32_t getLaneInformationCnt() const = 0;  ///< how many lanes getLaneInformation() has
    virtual const LaneInformation* getLaneInformation() const = 0;  ///< the lanes
    virtual const char* getLaneGuidanceDescription() const = 0;     ///< what to do, for people
};

/// Lane guidance that can be built and sent.
class ACCESSORY_EXPORT ILaneGuidanceInformation : public LaneGuidanceInfo {
  public:
    ILaneGuidanceInformation();
    ~ILaneGuidanceInformation() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null.
    /// @return null, after a log line, when an array cannot be allocated.
    static android::sp<ILaneGuidanceInformation> FromParcel(const android::Parcel& parcel);
    /// Appends any implementation of the plain record, through its getters; it must not be null. Failed
    /// writes are logged, and writing goes on. The process ends when a string or a non-empty array is marked
    /// present and null. Without a lane array only the lane count is written.
    static void writeToParcel(android::Parcel* parcel, const android::sp<LaneGuidanceInfo>& record);

    uint32_t getMask() const override { return mMask; }
    uint32_t getRouteGuidanceDisplayComponentIDCnt() const override {
        return mRouteGuidanceDisplayComponentIDCnt;
    }
    const uint16_t* getRouteGuidanceDisplayComponentID() const override {
        return mRouteGuidanceDisplayComponentID;
    }
    uint16_t getLaneGuidanceIndex() const override { return mLaneGuidanceIndex; }
    uint32_t getLaneInformationCnt() const override { return mLaneInformationCnt; }
    const LaneInformation* getLaneInformation() const override { return mLaneInformation; }
    const char* getLaneGuidanceDescription() const override { return mLaneGuidanceDescription; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed and must not be null. Arrays
    /// are copied; when there is no memory for the copy the field becomes absent.
    ILaneGuidanceInformation& setRouteGuidanceDisplayComponentID(const uint16_t* values, uint32_t count);
    ILaneGuidanceInformation& setLaneGuidanceIndex(uint16_t value) {
        return set(kLaneGuidanceIndex, mLaneGuidanceIndex, value);
    }
    ILaneGuidanceInformation& setLaneInformation(const LaneInformation* values, uint32_t count);
    ILaneGuidanceInformation& setLaneGuidanceDescription(const char* value) {
        return set(kLaneGuidanceDescription, mLaneGuidanceDescription, value);
    }

    /// @}

    uint32_t mMask = 0;  ///< the bits of the fields that are present

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    uint32_t mRouteGuidanceDisplayComponentIDCnt = 0;
    uint16_t* mRouteGuidanceDisplayComponentID = nullptr;
    uint16_t mLaneGuidanceIndex = 0;
    uint32_t mLaneInformationCnt = 0;
    LaneInformation* mLaneInformation = nullptr;
    const char* mLaneGuidanceDescription = nullptr;

    /// @}

  private:
    template <typename T>
    ILaneGuidanceInformation& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask |= bit;
        return *this;
    }
};

/// @name For people
/// @{

/// The record for a reader: its name and the fields that are present, e.g.
/// `RouteGuidaceUpdateInfo{displayID: [1, 2], currentRoadName: "High Street"}`.
ACCESSORY_EXPORT std::string toString(const RouteGuidaceUpdateInfo& record);
ACCESSORY_EXPORT std::string toString(const RuoteGuidanceManeuverUpdateInfo& record);
ACCESSORY_EXPORT std::string toString(const LaneInformation& lane);
ACCESSORY_EXPORT std::string toString(const LaneGuidanceInfo& record);

/// @}

}  // namespace accessory
