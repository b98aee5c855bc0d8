// The records of Show.h.
#include <cstdio>

#include "tests/AppleiAP2/notifier/Show.h"

namespace accessory::test {
namespace {

/// An array field; none when it is empty.
template <typename Entry>
struct Many {
    const Entry* entries;
    uint32_t count;
};
template <typename Entry>
Many(const Entry*, uint32_t) -> Many<Entry>;

/// Collects "place:value".
class Fields {
  public:
    explicit Fields(uint32_t mask) {
        char text[16];
        std::snprintf(text, sizeof(text), "{0x%x", mask);
        mText = text;
    }

    void add(const char* value) {
        ++mPlace;
        if (value != nullptr) append(show(value));
    }

    template <typename Number>
    void add(Number value) {
        ++mPlace;
        if (value != 0) append(show(value));
    }

    template <typename Entry>
    void add(const Many<Entry>& many);

    void add(const std::string& value) {
        ++mPlace;
        if (!value.empty()) append(value);
    }

    std::string text() const { return mText + "}"; }

  private:
    void append(const std::string& value) { mText += " " + std::to_string(mPlace) + ":" + value; }

    std::string mText;
    int mPlace = -1;
};

template <typename... Values>
std::string fields(uint32_t mask, const Values&... values) {
    Fields all(mask);
    (all.add(values), ...);
    return all.text();
}

std::string show(const LaneInformation& lane) {
    return fields(lane.mask, lane.laneField0, lane.laneField1, Many{lane.laneAngle, lane.laneAngleCnt},
                  lane.laneField3);
}

using test::show;

template <typename Entry>
void Fields::add(const Many<Entry>& many) {
    ++mPlace;
    if (many.count == 0) return;
    std::string text;
    for (uint32_t i = 0; many.entries != nullptr && i < many.count; ++i)
        text += (i == 0 ? "" : " ") + show(many.entries[i]);
    append(many.entries == nullptr ? "null" : "[" + text + "]");
}

std::string show(const iAP2MediaItem& item) {
    return "item" + fields(item.getMask(), item.getId(), item.getTitle(), item.getMediaType(),
                           item.getRating(), item.getPlaybackDuration(), item.getAlbumId(),
                           item.getAlbumTitle(), item.getAlbumTrackNumber(), item.getAlbumTrackCount(),
                           item.getAlbumDiscNumber(), item.getAlbumDiscCount(), item.getArtistId(),
                           item.getArtist(), item.getAlbumArtistId(), item.getAlbumArtist(),
                           item.getGenreId(), item.getGenre(), item.getComposerId(), item.getComposer(),
                           item.getIsPartOfCompilation(), item.getIsLikeSupport(), item.getIsBanSupport(),
                           item.getIsLiked(), item.getIsBanned(), item.getIsResidenOnDevice(),
                           item.getArtworkFileTransferId(), item.getChapterCount());
}

std::string show(const iAP2MediaPlaylist& list) {
    return "playlist" + fields(list.getMask(), list.getId(), list.getName(), list.getParentId(),
                               list.getIsGeniusMix(), list.getIsFolder(), list.getContainedMediaItems(),
                               list.getIsiTunesRadioStation());
}

std::string showEntry(const android::sp<iAP2MediaLibGroupData>& entry) {
    if (entry == nullptr) return "null";
    switch (entry->type) {
        case iAP2MediaLibGroupData::kItem:
            return show(static_cast<const iAP2MediaItem&>(*entry));
        case iAP2MediaLibGroupData::kPlaylist:
            return show(static_cast<const iAP2MediaPlaylist&>(*entry));
        case iAP2MediaLibGroupData::kDeletedItem:
            return "gone item " + show(static_cast<const iAP2MediaItemDelId&>(*entry).getDelId());
        case iAP2MediaLibGroupData::kDeletedPlaylist:
            return "gone playlist " + show(static_cast<const iAP2MediaPlaylistDelId&>(*entry).getDelId());
        default:
            return "entry of type " + show(entry->type);
    }
}

std::string showEntries(const iAP2MediaLibData& record) {
    std::string text;
    for (int32_t i = 0; i < record.getGroupDataCount(); ++i)
        text += (i == 0 ? "" : ", ") + showEntry(record.getGroupData(static_cast<unsigned int>(i)));
    return text.empty() ? text : "[" + text + "]";
}

}  // namespace

std::string show(const iAP2MediaLibData& record) {
    return fields(record.getMask(), record.getId(), record.getRevision(), showEntries(record),
                  record.getMediaLibReset(), record.getUpdateProgress(), record.getIsHidingRemoteItems(),
                  record.getPlayAllSongCapable());
}

std::string show(const iAP2ItemAttribute& record) {
    return fields(record.getMask(), record.getID(), record.getTitle(), record.getDurationInMillSec(),
                  record.getAlbumTitle(), record.getAlbumTrackNum(), record.getAlbumTrackCount(),
                  record.getAlbumDiskNum(), record.getAlbumDiskCount(), record.getArtist(), record.getGenre(),
                  record.getComposer(), record.getIsLikeSupported(), record.getIsBanSupported(),
                  record.getIsLiked(), record.getIsBanned(), record.getArtWorkFileTransferID(),
                  record.getChapterCount());
}

std::string show(const iAP2MediaPlayback& record) {
    return fields(record.getMask(), record.getstats(), record.getElaspedTime(), record.getQueueIndex(),
                  record.getQueueCount(), record.getQueueChapterIndex(), record.getShuffMode(),
                  record.getReapedMode(), record.getAppName(), record.getLibraryUniqueldID(),
                  record.getRaidoAd(), record.getRadioStationName(), record.getRadioMediaPlayListID(),
                  record.getPlaybackSpeedValue(), record.getSetElapsedTimeAvailable(),
                  record.getPlaybackQueueListAvail(), record.getPlaybackQueueListTransferID(),
                  record.getPlaybackAppBundkeID());
}

std::string show(const iAP2PowerUpdate& record) {
    return fields(record.getMask(), record.getCurrentFromAccessory(), record.getChargeIsPresent(),
                  record.getPowerMode(), record.getExternalChargeConnected(), record.getChargeState(),
                  record.getChargeLevel());
}

std::string show(const RouteGuidaceUpdateInfo& record) {
    return fields(
        record.getMask(), Many{record.getDisplayID(), record.getDisplayIdCnt()},
        record.getRouteGuidanceState(), record.getManeuverState(), record.getCurrentRoadName(),
        record.getDestinationName(), record.getETA(), record.getTimeRemainingToDestination(),
        record.getDisatnceRemaining(), record.getDistanceRemainingDisplayStr(),
        record.getDistanceRemainingDisplayUints(), record.getDistanceToNextManeuver(),
        record.getDistanceToNextManeuverDisplayStr(), record.getDistanceToNextManeuverDisplayUnits(),
        Many{record.getRouteGuidanceManeuverCurrentList(), record.getRouteGuidanceManeuverInCurrentListCnt()},
        record.getRouteGuidanceManeuverCount(), record.getRouteGuidanceVisiableInApp(),
        record.getLaneGuidanceCurrentIndex(), record.getLaneGuidanceTotalCount(),
        record.getLaneGuidanceBeingShownInApp(), record.getSourceName(),
        record.getSourceSupportsRouteGuidance(), record.getDestinationTimeZoneOffsetMinutes());
}

std::string show(const RuoteGuidanceManeuverUpdateInfo& record) {
    return fields(
        record.getMask(),
        Many{record.getRouteGuidanceDisplayComponentID(), record.getRouteGuidanceDisplayComponentIDCnt()},
        record.getIndex(), record.getManeuverDescription(), record.getManeuverType(),
        record.getAfterManeuverRoadName(), record.getDistanceBetweenManeuver(),
        record.getDistanceBetweenManeuverDisplayStr(), record.getDistanceBetweenManeuverDisplayUnits(),
        record.getDrivingSide(), record.getJunctionType(),
        Many{record.getJunctionElementAngel(), record.getJunctionElementAngelCnt()},
        record.getJunctionElementExitAngel(), record.getLinkedLaneGuidanceInformation(),
        record.getExitInfo());
}

std::string show(const LaneGuidanceInfo& record) {
    return fields(
        record.getMask(),
        Many{record.getRouteGuidanceDisplayComponentID(), record.getRouteGuidanceDisplayComponentIDCnt()},
        record.getLaneGuidanceIndex(), Many{record.getLaneInformation(), record.getLaneInformationCnt()},
        record.getLaneGuidanceDescription());
}

}  // namespace accessory::test
