// Matchers of records: of single fields, and of a whole record with a list of what differs.
//
//     EXPECT_CALL(*events, nowPlayingUpdate(1, HasTitle("First Light"), HasStats(testing::Gt(0))));
//     EXPECT_THAT(record, SameRecordAs(ItemAttribute().title("First Light").isLiked(1)));
//
// Has<Field>(value or matcher) matches a record, or an sp<> of one, in which the field is present and its
// value matches; texts match as std::string, lists as std::vector.
#pragma once

#include <accessory/testing/FieldMatcher.h>
#include <accessory/testing/RecordDifference.h>

#include <vector>

namespace accessory::testkit {

/// One matcher: Has<Name>, for a bit k<Name> of the mask and the expression @p value of `record`.
#define ACCESSORY_RECORD_VALUE_AS(Name, value)                                   \
    struct Name##Field {                                                         \
        static constexpr char name[] = #Name;                                    \
        template <typename Record>                                               \
        static constexpr uint32_t bitIn([[maybe_unused]] const Record& record) { \
            return std::remove_pointer_t<decltype(bitsOf(record))>::k##Name;     \
        }                                                                        \
        template <typename Record>                                               \
        static auto valueIn(const Record& record) {                              \
            return presentValue(value);                                          \
        }                                                                        \
    };                                                                           \
    template <typename Expected>                                                 \
    FieldMatcher<Name##Field, Expected> Has##Name(Expected expected) {           \
        return FieldMatcher<Name##Field, Expected>(expected);                    \
    }

/// For a field whose getter is called otherwise than its bit.
#define ACCESSORY_RECORD_VALUE(Name, getter) ACCESSORY_RECORD_VALUE_AS(Name, record.getter())
/// For a field whose getter has its name.
#define ACCESSORY_RECORD_FIELD(Name) ACCESSORY_RECORD_VALUE_AS(Name, record.get##Name())
/// For an array, with the getter of its length.
#define ACCESSORY_RECORD_LIST(Name, count) \
    ACCESSORY_RECORD_VALUE_AS(Name, std::vector(record.get##Name(), record.get##Name() + record.count()))

// What plays.
ACCESSORY_RECORD_FIELD(ID)
ACCESSORY_RECORD_FIELD(Title)
ACCESSORY_RECORD_FIELD(DurationInMillSec)
ACCESSORY_RECORD_FIELD(AlbumTitle)
ACCESSORY_RECORD_FIELD(AlbumTrackNum)
ACCESSORY_RECORD_FIELD(AlbumTrackCount)
ACCESSORY_RECORD_FIELD(AlbumDiskNum)
ACCESSORY_RECORD_FIELD(AlbumDiskCount)
ACCESSORY_RECORD_FIELD(Artist)
ACCESSORY_RECORD_FIELD(Genre)
ACCESSORY_RECORD_FIELD(Composer)
ACCESSORY_RECORD_FIELD(IsLikeSupported)
ACCESSORY_RECORD_FIELD(IsBanSupported)
ACCESSORY_RECORD_FIELD(IsLiked)
ACCESSORY_RECORD_FIELD(IsBanned)
ACCESSORY_RECORD_FIELD(ArtWorkFileTransferID)
ACCESSORY_RECORD_FIELD(ChapterCount)
ACCESSORY_RECORD_VALUE(Stats, getstats)
ACCESSORY_RECORD_FIELD(ElaspedTime)
ACCESSORY_RECORD_FIELD(QueueIndex)
ACCESSORY_RECORD_FIELD(QueueCount)
ACCESSORY_RECORD_FIELD(QueueChapterIndex)
ACCESSORY_RECORD_FIELD(ShuffMode)
ACCESSORY_RECORD_FIELD(ReapedMode)
ACCESSORY_RECORD_FIELD(AppName)
ACCESSORY_RECORD_FIELD(LibraryUniqueldID)
ACCESSORY_RECORD_FIELD(RaidoAd)
ACCESSORY_RECORD_FIELD(RadioStationName)
ACCESSORY_RECORD_FIELD(RadioMediaPlayListID)
ACCESSORY_RECORD_FIELD(PlaybackSpeedValue)
ACCESSORY_RECORD_FIELD(SetElapsedTimeAvailable)
ACCESSORY_RECORD_FIELD(PlaybackQueueListAvail)
ACCESSORY_RECORD_FIELD(PlaybackQueueListTransferID)
ACCESSORY_RECORD_FIELD(PlaybackAppBundkeID)

// Power.
ACCESSORY_RECORD_FIELD(CurrentFromAccessory)
ACCESSORY_RECORD_FIELD(ChargeIsPresent)
ACCESSORY_RECORD_FIELD(PowerMode)
ACCESSORY_RECORD_FIELD(ExternalChargeConnected)
ACCESSORY_RECORD_FIELD(ChargeState)
ACCESSORY_RECORD_FIELD(ChargeLevel)

// The media library.
ACCESSORY_RECORD_FIELD(Id)
ACCESSORY_RECORD_FIELD(MediaType)
ACCESSORY_RECORD_FIELD(Rating)
ACCESSORY_RECORD_FIELD(PlaybackDuration)
ACCESSORY_RECORD_FIELD(AlbumId)
ACCESSORY_RECORD_FIELD(AlbumTrackNumber)
ACCESSORY_RECORD_FIELD(AlbumDiscNumber)
ACCESSORY_RECORD_FIELD(AlbumDiscCount)
ACCESSORY_RECORD_FIELD(ArtistId)
ACCESSORY_RECORD_FIELD(AlbumArtistId)
ACCESSORY_RECORD_FIELD(AlbumArtist)
ACCESSORY_RECORD_FIELD(GenreId)
ACCESSORY_RECORD_FIELD(ComposerId)
ACCESSORY_RECORD_FIELD(IsPartOfCompilation)
ACCESSORY_RECORD_FIELD(IsLikeSupport)
ACCESSORY_RECORD_FIELD(IsBanSupport)
ACCESSORY_RECORD_FIELD(IsResidenOnDevice)
ACCESSORY_RECORD_FIELD(ArtworkFileTransferId)
ACCESSORY_RECORD_FIELD(Name)
ACCESSORY_RECORD_FIELD(ParentId)
ACCESSORY_RECORD_FIELD(IsGeniusMix)
ACCESSORY_RECORD_FIELD(IsFolder)
ACCESSORY_RECORD_FIELD(ContainedMediaItems)
ACCESSORY_RECORD_FIELD(IsiTunesRadioStation)
ACCESSORY_RECORD_FIELD(Revision)
ACCESSORY_RECORD_FIELD(MediaLibReset)
ACCESSORY_RECORD_FIELD(UpdateProgress)
ACCESSORY_RECORD_FIELD(IsHidingRemoteItems)
ACCESSORY_RECORD_FIELD(PlayAllSongCapable)

// Route guidance.
ACCESSORY_RECORD_LIST(DisplayID, getDisplayIdCnt)
ACCESSORY_RECORD_FIELD(RouteGuidanceState)
ACCESSORY_RECORD_FIELD(ManeuverState)
ACCESSORY_RECORD_FIELD(CurrentRoadName)
ACCESSORY_RECORD_FIELD(DestinationName)
ACCESSORY_RECORD_FIELD(ETA)
ACCESSORY_RECORD_FIELD(TimeRemainingToDestination)
ACCESSORY_RECORD_FIELD(DisatnceRemaining)
ACCESSORY_RECORD_FIELD(DistanceRemainingDisplayStr)
ACCESSORY_RECORD_FIELD(DistanceRemainingDisplayUints)
ACCESSORY_RECORD_FIELD(DistanceToNextManeuver)
ACCESSORY_RECORD_FIELD(DistanceToNextManeuverDisplayStr)
ACCESSORY_RECORD_FIELD(DistanceToNextManeuverDisplayUnits)
ACCESSORY_RECORD_LIST(RouteGuidanceManeuverCurrentList, getRouteGuidanceManeuverInCurrentListCnt)
ACCESSORY_RECORD_FIELD(RouteGuidanceManeuverCount)
ACCESSORY_RECORD_FIELD(RouteGuidanceVisiableInApp)
ACCESSORY_RECORD_FIELD(LaneGuidanceCurrentIndex)
ACCESSORY_RECORD_FIELD(LaneGuidanceTotalCount)
ACCESSORY_RECORD_FIELD(LaneGuidanceBeingShownInApp)
ACCESSORY_RECORD_FIELD(SourceName)
ACCESSORY_RECORD_FIELD(SourceSupportsRouteGuidance)
ACCESSORY_RECORD_FIELD(DestinationTimeZoneOffsetMinutes)
ACCESSORY_RECORD_LIST(RouteGuidanceDisplayComponentID, getRouteGuidanceDisplayComponentIDCnt)
ACCESSORY_RECORD_FIELD(Index)
ACCESSORY_RECORD_FIELD(ManeuverDescription)
ACCESSORY_RECORD_FIELD(ManeuverType)
ACCESSORY_RECORD_FIELD(AfterManeuverRoadName)
ACCESSORY_RECORD_FIELD(DistanceBetweenManeuver)
ACCESSORY_RECORD_FIELD(DistanceBetweenManeuverDisplayStr)
ACCESSORY_RECORD_FIELD(DistanceBetweenManeuverDisplayUnits)
ACCESSORY_RECORD_FIELD(DrivingSide)
ACCESSORY_RECORD_FIELD(JunctionType)
ACCESSORY_RECORD_LIST(JunctionElementAngel, getJunctionElementAngelCnt)
ACCESSORY_RECORD_FIELD(JunctionElementExitAngel)
ACCESSORY_RECORD_FIELD(LinkedLaneGuidanceInformation)
ACCESSORY_RECORD_FIELD(ExitInfo)
ACCESSORY_RECORD_FIELD(LaneGuidanceIndex)
ACCESSORY_RECORD_FIELD(LaneGuidanceDescription)

#undef ACCESSORY_RECORD_LIST
#undef ACCESSORY_RECORD_FIELD
#undef ACCESSORY_RECORD_VALUE
#undef ACCESSORY_RECORD_VALUE_AS

}  // namespace accessory::testkit
