// The now-playing records: the attributes of the item that is playing, and the state of the player.
//
// Their shape, and how long strings must live, is told in <accessory/MediaLibraryRecords.h>.
#pragma once

#include <accessory/Export.h>
#include <utils/RefBase.h>

#include <cstdint>
#include <string>

namespace android {
class Parcel;
}

namespace accessory {

/// Which fields an item attribute record has, or a client asks for. Other bits belong to no field.
class ACCESSORY_EXPORT iAP2ItemAttributeMask : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kID = 1u << 0,
        kTitle = 1u << 1,
        kDurationInMillSec = 1u << 4,
        kAlbumTitle = 1u << 6,
        kAlbumTrackNum = 1u << 7,
        kAlbumTrackCount = 1u << 8,
        kAlbumDiskNum = 1u << 9,
        kAlbumDiskCount = 1u << 10,
        kArtist = 1u << 12,
        kGenre = 1u << 16,
        kComposer = 1u << 18,
        kIsLikeSupported = 1u << 21,
        kIsBanSupported = 1u << 22,
        kIsLiked = 1u << 23,
        kIsBanned = 1u << 24,
        kArtWorkFileTransferID = 1u << 26,
        kChapterCount = 1u << 27,
    };

    ~iAP2ItemAttributeMask() override;

    uint32_t mask = 0;  ///< of the bits above
};

/// Which fields a playback record has, or a client asks for.
class ACCESSORY_EXPORT iAP2MediaPlaybackMask : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kStats = 1u << 0,
        kElaspedTime = 1u << 1,
        kQueueIndex = 1u << 2,
        kQueueCount = 1u << 3,
        kQueueChapterIndex = 1u << 4,
        kShuffMode = 1u << 5,
        kReapedMode = 1u << 6,
        kAppName = 1u << 7,
        kLibraryUniqueldID = 1u << 8,
        kRaidoAd = 1u << 9,
        kRadioStationName = 1u << 10,
        kRadioMediaPlayListID = 1u << 11,
        kPlaybackSpeedValue = 1u << 12,
        kSetElapsedTimeAvailable = 1u << 13,
        kPlaybackQueueListAvail = 1u << 14,
        kPlaybackQueueListTransferID = 1u << 15,
        kPlaybackAppBundkeID = 1u << 16,
    };

    ~iAP2MediaPlaybackMask() override;

    uint32_t mask = 0;  ///< of the bits above
};

/// The attributes of the item that is playing. Units and value sets, where not said here, are the device's.
class ACCESSORY_EXPORT iAP2ItemAttribute : public virtual android::RefBase {
  public:
    ~iAP2ItemAttribute() override;
    virtual uint32_t getMask() const = 0;                  ///< the bits of the fields that are present
    virtual uint64_t getID() const = 0;                    ///< persistent identifier of the item
    virtual const char* getTitle() const = 0;              ///< of the item
    virtual int32_t getDurationInMillSec() const = 0;      ///< playback duration in milliseconds
    virtual const char* getAlbumTitle() const = 0;         ///< of its album
    virtual int32_t getAlbumTrackNum() const = 0;          ///< its place on its disc
    virtual int32_t getAlbumTrackCount() const = 0;        ///< how many tracks its disc has
    virtual int32_t getAlbumDiskNum() const = 0;           ///< which of the album's discs it is on
    virtual int32_t getAlbumDiskCount() const = 0;         ///< how many discs its album has
    virtual const char* getArtist() const = 0;             ///< who plays it
    virtual const char* getGenre() const = 0;              ///< name of its genre
    virtual const char* getComposer() const = 0;           ///< who wrote it
    virtual int32_t getIsLikeSupported() const = 0;        ///< 0 or 1: it can be liked
    virtual int32_t getIsBanSupported() const = 0;         ///< 0 or 1: it can be banned
    virtual int32_t getIsLiked() const = 0;                ///< 0 or 1
    virtual int32_t getIsBanned() const = 0;               ///< 0 or 1
    virtual int32_t getArtWorkFileTransferID() const = 0;  ///< file transfer identifier of the artwork
    virtual int32_t getChapterCount() const = 0;           ///< how many chapters it has
};

/// Item attributes that can be built and sent.
class ACCESSORY_EXPORT IiAP2ItemAttribute : public iAP2ItemAttribute {
  public:
    using Mask = iAP2ItemAttributeMask;  ///< names the bits

    IiAP2ItemAttribute();
    ~IiAP2ItemAttribute() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null.
    static android::sp<IiAP2ItemAttribute> FromParcel(const android::Parcel& parcel);
    /// Appends any implementation of the plain record, through its getters; it must not be null. Failed
    /// writes are logged, and writing goes on.
    static void writeToParcel(android::Parcel* parcel, const android::sp<iAP2ItemAttribute>& record);

    uint32_t getMask() const override { return mMask->mask; }
    uint64_t getID() const override { return mID; }
    const char* getTitle() const override { return mTitle; }
    int32_t getDurationInMillSec() const override { return mDurationInMillSec; }
    const char* getAlbumTitle() const override { return mAlbumTitle; }
    int32_t getAlbumTrackNum() const override { return mAlbumTrackNum; }
    int32_t getAlbumTrackCount() const override { return mAlbumTrackCount; }
    int32_t getAlbumDiskNum() const override { return mAlbumDiskNum; }
    int32_t getAlbumDiskCount() const override { return mAlbumDiskCount; }
    const char* getArtist() const override { return mArtist; }
    const char* getGenre() const override { return mGenre; }
    const char* getComposer() const override { return mComposer; }
    int32_t getIsLikeSupported() const override { return mIsLikeSupported; }
    int32_t getIsBanSupported() const override { return mIsBanSupported; }
    int32_t getIsLiked() const override { return mIsLiked; }
    int32_t getIsBanned() const override { return mIsBanned; }
    int32_t getArtWorkFileTransferID() const override { return mArtWorkFileTransferID; }
    int32_t getChapterCount() const override { return mChapterCount; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed; null ones are sent as such.
    IiAP2ItemAttribute& setID(uint64_t value) { return set(Mask::kID, mID, value); }
    IiAP2ItemAttribute& setTitle(const char* value) { return set(Mask::kTitle, mTitle, value); }
    IiAP2ItemAttribute& setDurationInMillSec(int32_t value) {
        return set(Mask::kDurationInMillSec, mDurationInMillSec, value);
    }
    IiAP2ItemAttribute& setAlbumTitle(const char* value) {
        return set(Mask::kAlbumTitle, mAlbumTitle, value);
    }
    IiAP2ItemAttribute& setAlbumTrackNum(int32_t value) {
        return set(Mask::kAlbumTrackNum, mAlbumTrackNum, value);
    }
    IiAP2ItemAttribute& setAlbumTrackCount(int32_t value) {
        return set(Mask::kAlbumTrackCount, mAlbumTrackCount, value);
    }
    IiAP2ItemAttribute& setAlbumDiskNum(int32_t value) {
        return set(Mask::kAlbumDiskNum, mAlbumDiskNum, value);
    }
    IiAP2ItemAttribute& setAlbumDiskCount(int32_t value) {
        return set(Mask::kAlbumDiskCount, mAlbumDiskCount, value);
    }
    IiAP2ItemAttribute& setArtist(const char* value) { return set(Mask::kArtist, mArtist, value); }
    IiAP2ItemAttribute& setGenre(const char* value) { return set(Mask::kGenre, mGenre, value); }
    IiAP2ItemAttribute& setComposer(const char* value) { return set(Mask::kComposer, mComposer, value); }
    IiAP2ItemAttribute& setIsLikeSupported(int32_t value) {
        return set(Mask::kIsLikeSupported, mIsLikeSupported, value);
    }
    IiAP2ItemAttribute& setIsBanSupported(int32_t value) {
        return set(Mask::kIsBanSupported, mIsBanSupported, value);
    }
    IiAP2ItemAttribute& setIsLiked(int32_t value) { return set(Mask::kIsLiked, mIsLiked, value); }
    IiAP2ItemAttribute& setIsBanned(int32_t value) { return set(Mask::kIsBanned, mIsBanned, value); }
    IiAP2ItemAttribute& setArtWorkFileTransferID(int32_t value) {
        return set(Mask::kArtWorkFileTransferID, mArtWorkFileTransferID, value);
    }
    IiAP2ItemAttribute& setChapterCount(int32_t value) {
        return set(Mask::kChapterCount, mChapterCount, value);
    }

    /// @}

    android::sp<iAP2ItemAttributeMask> mMask;  ///< never null

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    uint64_t mID = 0;
    const char* mTitle = nullptr;
    int32_t mDurationInMillSec = 0;
    const char* mAlbumTitle = nullptr;
    int32_t mAlbumTrackNum = 0;
    int32_t mAlbumTrackCount = 0;
    int32_t mAlbumDiskNum = 0;
    int32_t mAlbumDiskCount = 0;
    const char* mArtist = nullptr;
    const char* mGenre = nullptr;
    const char* mComposer = nullptr;
    int32_t mIsLikeSupported = 0;
    int32_t mIsBanSupported = 0;
    int32_t mIsLiked = 0;
    int32_t mIsBanned = 0;
    int32_t mArtWorkFileTransferID = 0;
    int32_t mChapterCount = 0;

    /// @}

  private:
    template <typename T>
    IiAP2ItemAttribute& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask->mask |= bit;
        return *this;
    }
};

/// The state of the player. Units and value sets are the device's.
class ACCESSORY_EXPORT iAP2MediaPlayback : public virtual android::RefBase {
  public:
    ~iAP2MediaPlayback() override;
    virtual uint32_t getMask() const = 0;                  ///< the bits of the fields that are present
    virtual int32_t getstats() const = 0;                  ///< playback status
    virtual int32_t getElaspedTime() const = 0;            ///< elapsed time of the current item
    virtual int32_t getQueueIndex() const = 0;             ///< place of the current item in the queue
    virtual int32_t getQueueCount() const = 0;             ///< how many items the queue has
    virtual int32_t getQueueChapterIndex() const = 0;      ///< which of the item's chapters is playing
    virtual int32_t getShuffMode() const = 0;              ///< shuffle mode
    virtual int32_t getReapedMode() const = 0;             ///< repeat mode
    virtual const char* getAppName() const = 0;            ///< name of the playing application
    virtual const char* getLibraryUniqueldID() const = 0;  ///< unique identifier of the media library in use
    virtual int32_t getRaidoAd() const = 0;                ///< 0 or 1: a radio advertisement is playing
    virtual const char* getRadioStationName() const = 0;   ///< of the station that is playing
    virtual uint64_t getRadioMediaPlayListID() const = 0;  ///< identifier of the radio station's playlist
    virtual int32_t getPlaybackSpeedValue() const = 0;     ///< how fast it plays
    virtual int32_t getSetElapsedTimeAvailable() const = 0;  ///< 0 or 1: the elapsed time can be set
    virtual int32_t getPlaybackQueueListAvail() const = 0;   ///< 0 or 1: the queue can be fetched
    /// File transfer identifier of the queue list.
    virtual int32_t getPlaybackQueueListTransferID() const = 0;
    virtual const char* getPlaybackAppBundkeID() const = 0;  ///< bundle identifier of the playing application
};

/// A player state that can be built and sent.
class ACCESSORY_EXPORT IiAP2MediaPlayback : public iAP2MediaPlayback {
  public:
    using Mask = iAP2MediaPlaybackMask;  ///< names the bits

    IiAP2MediaPlayback();
    ~IiAP2MediaPlayback() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null.
    static android::sp<IiAP2MediaPlayback> FromParcel(const android::Parcel& parcel);
    /// Appends any implementation of the plain record, through its getters; it must not be null.
    /// A null string that is marked present is left out, and the receiver takes what follows for it: clear
    /// the bit of every absent string. Failed writes are logged, and writing goes on.
    static void writeToParcel(android::Parcel* parcel, const android::sp<iAP2MediaPlayback>& record);

    uint32_t getMask() const override { return mMask->mask; }
    int32_t getstats() const override { return mStats; }
    int32_t getElaspedTime() const override { return mElaspedTime; }
    int32_t getQueueIndex() const override { return mQueueIndex; }
    int32_t getQueueCount() const override { return mQueueCount; }
    int32_t getQueueChapterIndex() const override { return mQueueChapterIndex; }
    int32_t getShuffMode() const override { return mShuffMode; }
    int32_t getReapedMode() const override { return mReapedMode; }
    const char* getAppName() const override { return mAppName; }
    const char* getLibraryUniqueldID() const override { return mLibraryUniqueldID; }
    int32_t getRaidoAd() const override { return mRaidoAd; }
    const char* getRadioStationName() const override { return mRadioStationName; }
    uint64_t getRadioMediaPlayListID() const override { return mRadioMediaPlayListID; }
    int32_t getPlaybackSpeedValue() const override { return mPlaybackSpeedValue; }
    int32_t getSetElapsedTimeAvailable() const override { return mSetElapsedTimeAvailable; }
    int32_t getPlaybackQueueListAvail() const override { return mPlaybackQueueListAvail; }
    int32_t getPlaybackQueueListTransferID() const override { return mPlaybackQueueListTransferID; }
    const char* getPlaybackAppBundkeID() const override { return mPlaybackAppBundkeID; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed; they must not be null.
    IiAP2MediaPlayback& setstats(int32_t value) { return set(Mask::kStats, mStats, value); }
    IiAP2MediaPlayback& setElaspedTime(int32_t value) { return set(Mask::kElaspedTime, mElaspedTime, value); }
    IiAP2MediaPlayback& setQueueIndex(int32_t value) { return set(Mask::kQueueIndex, mQueueIndex, value); }
    IiAP2MediaPlayback& setQueueCount(int32_t value) { return set(Mask::kQueueCount, mQueueCount, value); }
    IiAP2MediaPlayback& setQueueChapterIndex(int32_t value) {
        return set(Mask::kQueueChapterIndex, mQueueChapterIndex, value);
    }
    IiAP2MediaPlayback& setShuffMode(int32_t value) { return set(Mask::kShuffMode, mShuffMode, value); }
    IiAP2MediaPlayback& setReapedMode(int32_t value) { return set(Mask::kReapedMode, mReapedMode, value); }
    IiAP2MediaPlayback& setAppName(const char* value) { return set(Mask::kAppName, mAppName, value); }
    IiAP2MediaPlayback& setLibraryUniqueldID(const char* value) {
        return set(Mask::kLibraryUniqueldID, mLibraryUniqueldID, value);
    }
    IiAP2MediaPlayback& setRaidoAd(int32_t value) { return set(Mask::kRaidoAd, mRaidoAd, value); }
    IiAP2MediaPlayback& setRadioStationName(const char* value) {
        return set(Mask::kRadioStationName, mRadioStationName, value);
    }
    IiAP2MediaPlayback& setRadioMediaPlayListID(uint64_t value) {
        return set(Mask::kRadioMediaPlayListID, mRadioMediaPlayListID, value);
    }
    IiAP2MediaPlayback& setPlaybackSpeedValue(int32_t value) {
        return set(Mask::kPlaybackSpeedValue, mPlaybackSpeedValue, value);
    }
    IiAP2MediaPlayback& setSetElapsedTimeAvailable(int32_t value) {
        return set(Mask::kSetElapsedTimeAvailable, mSetElapsedTimeAvailable, value);
    }
    IiAP2MediaPlayback& setPlaybackQueueListAvail(int32_t value) {
        return set(Mask::kPlaybackQueueListAvail, mPlaybackQueueListAvail, value);
    }
    IiAP2MediaPlayback& setPlaybackQueueListTransferID(int32_t value) {
        return set(Mask::kPlaybackQueueListTransferID, mPlaybackQueueListTransferID, value);
    }
    IiAP2MediaPlayback& setPlaybackAppBundkeID(const char* value) {
        return set(Mask::kPlaybackAppBundkeID, mPlaybackAppBundkeID, value);
    }

    /// @}

    android::sp<iAP2MediaPlaybackMask> mMask;  ///< never null

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    int32_t mStats = 0;
    int32_t mElaspedTime = 0;
    int32_t mQueueIndex = 0;
    int32_t mQueueCount = 0;
    int32_t mQueueChapterIndex = 0;
    int32_t mShuffMode = 0;
    int32_t mReapedMode = 0;
    const char* mAppName = nullptr;
    const char* mLibraryUniqueldID = nullptr;
    int32_t mRaidoAd = 0;
    const char* mRadioStationName = nullptr;
    uint64_t mRadioMediaPlayListID = 0;
    int32_t mPlaybackSpeedValue = 0;
    int32_t mSetElapsedTimeAvailable = 0;
    int32_t mPlaybackQueueListAvail = 0;
    int32_t mPlaybackQueueListTransferID = 0;
    const char* mPlaybackAppBundkeID = nullptr;

    /// @}

  private:
    template <typename T>
    IiAP2MediaPlayback& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask->mask |= bit;
        return *this;
    }
};

/// @name For people
/// @{

/// The record for a reader: its name and the fields that are present, e.g.
/// `iAP2MediaPlayback{queueIndex: 3}`.
ACCESSORY_EXPORT std::string toString(const iAP2ItemAttribute& record);
ACCESSORY_EXPORT std::string toString(const iAP2MediaPlayback& record);

/// @}

}  // namespace accessory
