// The records of the media library: items, playlists, deleted identifiers, and the update that carries them.
//
// All data records share one shape. A plain abstract record has a getter per field; its parcelable (the same
// name with a leading I) holds the fields and knows their parcel form. A mask says which fields are present;
// an absent field is 0 or null. Records live on the heap, held by sp<>, are built by one thread and then
// only read.
//
// Strings are borrowed, never copied and never freed. A record made by FromParcel() points into that parcel:
// its strings are valid as long as the parcel is. A producer's strings must outlive the record.
#pragma once

#include <accessory/Export.h>
#include <utils/RefBase.h>
#include <utils/Vector.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace android {
class Parcel;
}

namespace accessory {

/// Which fields a media item has, or a client asks for. Bit 20 belongs to no field.
class ACCESSORY_EXPORT MediaItemMask : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kId = 1u << 0,
        kTitle = 1u << 1,
        kMediaType = 1u << 2,
        kRating = 1u << 3,
        kPlaybackDuration = 1u << 4,
        kAlbumId = 1u << 5,
        kAlbumTitle = 1u << 6,
        kAlbumTrackNumber = 1u << 7,
        kAlbumTrackCount = 1u << 8,
        kAlbumDiscNumber = 1u << 9,
        kAlbumDiscCount = 1u << 10,
        kArtistId = 1u << 11,
        kArtist = 1u << 12,
        kAlbumArtistId = 1u << 13,
        kAlbumArtist = 1u << 14,
        kGenreId = 1u << 15,
        kGenre = 1u << 16,
        kComposerId = 1u << 17,
        kComposer = 1u << 18,
        kIsPartOfCompilation = 1u << 19,
        kIsLikeSupport = 1u << 21,
        kIsBanSupport = 1u << 22,
        kIsLiked = 1u << 23,
        kIsBanned = 1u << 24,
        kIsResidenOnDevice = 1u << 25,
        kArtworkFileTransferId = 1u << 26,
        kChapterCount = 1u << 27,
    };

    ~MediaItemMask() override;

    uint32_t mask = 0;  ///< of the bits above
};

/// Which fields a playlist has, or a client asks for.
class ACCESSORY_EXPORT MediaPlaylistMask : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kId = 1u << 0,
        kName = 1u << 1,
        kParentId = 1u << 2,
        kIsGeniusMix = 1u << 3,
        kIsFolder = 1u << 4,
        kContainedMediaItems = 1u << 5,
        kIsiTunesRadioStation = 1u << 6,
    };

    ~MediaPlaylistMask() override;

    uint32_t mask = 0;  ///< of the bits above
};

/// Which fields a library update has, or a client asks for. The group list travels whatever its four bits
/// say.
class ACCESSORY_EXPORT MediaLibDataMask : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kId = 1u << 0,
        kRevision = 1u << 1,
        kItems = 1u << 2,
        kPlaylists = 1u << 3,
        kDeletedItems = 1u << 4,
        kDeletedPlaylists = 1u << 5,
        kMediaLibReset = 1u << 6,
        kUpdateProgress = 1u << 7,
        kIsHidingRemoteItems = 1u << 8,
        kPlayAllSongCapable = 1u << 9,
    };

    ~MediaLibDataMask() override;

    uint32_t mask = 0;  ///< of the bits above
};

/// One entry of a library update. #type says which of the four classes below it is.
class ACCESSORY_EXPORT iAP2MediaLibGroupData : public virtual android::RefBase {
  public:
    /// What an entry is.
    enum Kind : int32_t { kItem, kPlaylist, kDeletedItem, kDeletedPlaylist };

    ~iAP2MediaLibGroupData() override;

    int32_t type;  ///< a Kind, or another number: an entry of which only the type is sent

  protected:
    /// @param kind a Kind, or another number for an entry of which only the type is sent.
    explicit iAP2MediaLibGroupData(int32_t kind) : type(kind) {}
};

/// A song, film, episode or the like. Units and value sets are the device's.
class ACCESSORY_EXPORT iAP2MediaItem : public iAP2MediaLibGroupData {
  public:
    iAP2MediaItem() : iAP2MediaLibGroupData(kItem) {}
    ~iAP2MediaItem() override;
    virtual uint32_t getMask() const = 0;                  ///< the bits of the fields that are present
    virtual uint64_t getId() const = 0;                    ///< persistent identifier of the item
    virtual const char* getTitle() const = 0;              ///< of the item
    virtual int32_t getMediaType() const = 0;              ///< what kind of medium it is
    virtual int32_t getRating() const = 0;                 ///< what its owner gave it
    virtual int32_t getPlaybackDuration() const = 0;       ///< how long it plays
    virtual uint64_t getAlbumId() const = 0;               ///< persistent identifier of its album
    virtual const char* getAlbumTitle() const = 0;         ///< of its album
    virtual int32_t getAlbumTrackNumber() const = 0;       ///< its place on its disc
    virtual int32_t getAlbumTrackCount() const = 0;        ///< how many tracks its disc has
    virtual int32_t getAlbumDiscNumber() const = 0;        ///< which of the album's discs it is on
    virtual int32_t getAlbumDiscCount() const = 0;         ///< how many discs its album has
    virtual uint64_t getArtistId() const = 0;              ///< persistent identifier of who plays it
    virtual const char* getArtist() const = 0;             ///< who plays it
    virtual uint64_t getAlbumArtistId() const = 0;         ///< persistent identifier of whose album it is
    virtual const char* getAlbumArtist() const = 0;        ///< whose album it is
    virtual uint64_t getGenreId() const = 0;               ///< persistent identifier of its genre
    virtual const char* getGenre() const = 0;              ///< name of its genre
    virtual uint64_t getComposerId() const = 0;            ///< persistent identifier of its composer
    virtual const char* getComposer() const = 0;           ///< who wrote it
    virtual int32_t getIsPartOfCompilation() const = 0;    ///< 0 or 1: its album is one of several artists
    virtual int32_t getIsLikeSupport() const = 0;          ///< 0 or 1: it can be liked
    virtual int32_t getIsBanSupport() const = 0;           ///< 0 or 1: it can be banned
    virtual int32_t getIsLiked() const = 0;                ///< 0 or 1
    virtual int32_t getIsBanned() const = 0;               ///< 0 or 1
    virtual int32_t getIsResidenOnDevice() const = 0;      ///< 0 or 1: the device has it itself
    virtual int32_t getArtworkFileTransferId() const = 0;  ///< file transfer identifier of the artwork
    virtual int32_t getChapterCount() const = 0;           ///< how many chapters it has
};

/// A media item that can be built and sent.
class ACCESSORY_EXPORT IiAP2MediaItem : public iAP2MediaItem {
  public:
    using Mask = MediaItemMask;  ///< names the bits

    IiAP2MediaItem();
    /// @param mask not null; the item's own from now on.
    explicit IiAP2MediaItem(android::sp<MediaItemMask> mask);
    ~IiAP2MediaItem() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null.
    static android::sp<IiAP2MediaItem> FromParcel(const android::Parcel& parcel);
    /// Appends the mask and the fields that it names. Failed writes are logged, and writing goes on.
    void writeToParcel(android::Parcel* parcel) const;

    uint32_t getMask() const override { return mMask->mask; }
    uint64_t getId() const override { return mId; }
    const char* getTitle() const override { return mTitle; }
    int32_t getMediaType() const override { return mMediaType; }
    int32_t getRating() const override { return mRating; }
    int32_t getPlaybackDuration() const override { return mPlaybackDuration; }
    uint64_t getAlbumId() const override { return mAlbumId; }
    const char* getAlbumTitle() const override { return mAlbumTitle; }
    int32_t getAlbumTrackNumber() const override { return mAlbumTrackNumber; }
    int32_t getAlbumTrackCount() const override { return mAlbumTrackCount; }
    int32_t getAlbumDiscNumber() const override { return mAlbumDiscNumber; }
    int32_t getAlbumDiscCount() const override { return mAlbumDiscCount; }
    uint64_t getArtistId() const override { return mArtistId; }
    const char* getArtist() const override { return mArtist; }
    uint64_t getAlbumArtistId() const override { return mAlbumArtistId; }
    const char* getAlbumArtist() const override { return mAlbumArtist; }
    uint64_t getGenreId() const override { return mGenreId; }
    const char* getGenre() const override { return mGenre; }
    uint64_t getComposerId() const override { return mComposerId; }
    const char* getComposer() const override { return mComposer; }
    int32_t getIsPartOfCompilation() const override { return mIsPartOfCompilation; }
    int32_t getIsLikeSupport() const override { return mIsLikeSupport; }
    int32_t getIsBanSupport() const override { return mIsBanSupport; }
    int32_t getIsLiked() const override { return mIsLiked; }
    int32_t getIsBanned() const override { return mIsBanned; }
    int32_t getIsResidenOnDevice() const override { return mIsResidenOnDevice; }
    int32_t getArtworkFileTransferId() const override { return mArtworkFileTransferId; }
    int32_t getChapterCount() const override { return mChapterCount; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed, see above; they must not be
    /// null.
    IiAP2MediaItem& setId(uint64_t value) { return set(Mask::kId, mId, value); }
    IiAP2MediaItem& setTitle(const char* value) { return set(Mask::kTitle, mTitle, value); }
    IiAP2MediaItem& setMediaType(int32_t value) { return set(Mask::kMediaType, mMediaType, value); }
    IiAP2MediaItem& setRating(int32_t value) { return set(Mask::kRating, mRating, value); }
    IiAP2MediaItem& setPlaybackDuration(int32_t value) {
        return set(Mask::kPlaybackDuration, mPlaybackDuration, value);
    }
    IiAP2MediaItem& setAlbumId(uint64_t value) { return set(Mask::kAlbumId, mAlbumId, value); }
    IiAP2MediaItem& setAlbumTitle(const char* value) { return set(Mask::kAlbumTitle, mAlbumTitle, value); }
    IiAP2MediaItem& setAlbumTrackNumber(int32_t value) {
        return set(Mask::kAlbumTrackNumber, mAlbumTrackNumber, value);
    }
    IiAP2MediaItem& setAlbumTrackCount(int32_t value) {
        return set(Mask::kAlbumTrackCount, mAlbumTrackCount, value);
    }
    IiAP2MediaItem& setAlbumDiscNumber(int32_t value) {
        return set(Mask::kAlbumDiscNumber, mAlbumDiscNumber, value);
    }
    IiAP2MediaItem& setAlbumDiscCount(int32_t value) {
        return set(Mask::kAlbumDiscCount, mAlbumDiscCount, value);
    }
    IiAP2MediaItem& setArtistId(uint64_t value) { return set(Mask::kArtistId, mArtistId, value); }
    IiAP2MediaItem& setArtist(const char* value) { return set(Mask::kArtist, mArtist, value); }
    IiAP2MediaItem& setAlbumArtistId(uint64_t value) {
        return set(Mask::kAlbumArtistId, mAlbumArtistId, value);
    }
    IiAP2MediaItem& setAlbumArtist(const char* value) { return set(Mask::kAlbumArtist, mAlbumArtist, value); }
    IiAP2MediaItem& setGenreId(uint64_t value) { return set(Mask::kGenreId, mGenreId, value); }
    IiAP2MediaItem& setGenre(const char* value) { return set(Mask::kGenre, mGenre, value); }
    IiAP2MediaItem& setComposerId(uint64_t value) { return set(Mask::kComposerId, mComposerId, value); }
    IiAP2MediaItem& setComposer(const char* value) { return set(Mask::kComposer, mComposer, value); }
    IiAP2MediaItem& setIsPartOfCompilation(int32_t value) {
        return set(Mask::kIsPartOfCompilation, mIsPartOfCompilation, value);
    }
    IiAP2MediaItem& setIsLikeSupport(int32_t value) {
        return set(Mask::kIsLikeSupport, mIsLikeSupport, value);
    }
    IiAP2MediaItem& setIsBanSupport(int32_t value) { return set(Mask::kIsBanSupport, mIsBanSupport, value); }
    IiAP2MediaItem& setIsLiked(int32_t value) { return set(Mask::kIsLiked, mIsLiked, value); }
    IiAP2MediaItem& setIsBanned(int32_t value) { return set(Mask::kIsBanned, mIsBanned, value); }
    IiAP2MediaItem& setIsResidenOnDevice(int32_t value) {
        return set(Mask::kIsResidenOnDevice, mIsResidenOnDevice, value);
    }
    IiAP2MediaItem& setArtworkFileTransferId(int32_t value) {
        return set(Mask::kArtworkFileTransferId, mArtworkFileTransferId, value);
    }
    IiAP2MediaItem& setChapterCount(int32_t value) { return set(Mask::kChapterCount, mChapterCount, value); }

    /// @}

    android::sp<MediaItemMask> mMask;  ///< never null

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    uint64_t mId = 0;
    const char* mTitle = nullptr;
    int32_t mMediaType = 0;
    int32_t mRating = 0;
    int32_t mPlaybackDuration = 0;
    uint64_t mAlbumId = 0;
    const char* mAlbumTitle = nullptr;
    int32_t mAlbumTrackNumber = 0;
    int32_t mAlbumTrackCount = 0;
    int32_t mAlbumDiscNumber = 0;
    int32_t mAlbumDiscCount = 0;
    uint64_t mArtistId = 0;
    const char* mArtist = nullptr;
    uint64_t mAlbumArtistId = 0;
    const char* mAlbumArtist = nullptr;
    uint64_t mGenreId = 0;
    const char* mGenre = nullptr;
    uint64_t mComposerId = 0;
    const char* mComposer = nullptr;
    int32_t mIsPartOfCompilation = 0;
    int32_t mIsLikeSupport = 0;
    int32_t mIsBanSupport = 0;
    int32_t mIsLiked = 0;
    int32_t mIsBanned = 0;
    int32_t mIsResidenOnDevice = 0;
    int32_t mArtworkFileTransferId = 0;
    int32_t mChapterCount = 0;

    /// @}

  private:
    template <typename T>
    IiAP2MediaItem& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask->mask |= bit;
        return *this;
    }
};

/// A playlist or a folder of playlists.
class ACCESSORY_EXPORT iAP2MediaPlaylist : public iAP2MediaLibGroupData {
  public:
    iAP2MediaPlaylist() : iAP2MediaLibGroupData(kPlaylist) {}
    ~iAP2MediaPlaylist() override;
    virtual uint32_t getMask() const = 0;        ///< the bits of the fields that are present
    virtual uint64_t getId() const = 0;          ///< persistent identifier of the playlist
    virtual const char* getName() const = 0;     ///< of the playlist
    virtual uint64_t getParentId() const = 0;    ///< identifier of the parent playlist (folder)
    virtual int32_t getIsGeniusMix() const = 0;  ///< 0 or 1
    virtual int32_t getIsFolder() const = 0;     ///< 0 or 1: it holds playlists
    /// File transfer identifier of the list of its items.
    virtual int32_t getContainedMediaItems() const = 0;
    virtual int32_t getIsiTunesRadioStation() const = 0;  ///< 0 or 1
};

/// A playlist that can be built and sent.
class ACCESSORY_EXPORT IiAP2MediaPlaylist : public iAP2MediaPlaylist {
  public:
    using Mask = MediaPlaylistMask;  ///< names the bits

    IiAP2MediaPlaylist();
    ~IiAP2MediaPlaylist() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null.
    static android::sp<IiAP2MediaPlaylist> FromParcel(const android::Parcel& parcel);
    /// Appends the mask and the fields that it names. Failed writes are logged, and writing goes on.
    void writeToParcel(android::Parcel* parcel) const;

    uint32_t getMask() const override { return mMask->mask; }
    uint64_t getId() const override { return mId; }
    const char* getName() const override { return mName; }
    uint64_t getParentId() const override { return mParentId; }
    int32_t getIsGeniusMix() const override { return mIsGeniusMix; }
    int32_t getIsFolder() const override { return mIsFolder; }
    int32_t getContainedMediaItems() const override { return mContainedMediaItems; }
    int32_t getIsiTunesRadioStation() const override { return mIsiTunesRadioStation; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed, see above; they must not be
    /// null.
    IiAP2MediaPlaylist& setId(uint64_t value) { return set(Mask::kId, mId, value); }
    IiAP2MediaPlaylist& setName(const char* value) { return set(Mask::kName, mName, value); }
    IiAP2MediaPlaylist& setParentId(uint64_t value) { return set(Mask::kParentId, mParentId, value); }
    IiAP2MediaPlaylist& setIsGeniusMix(int32_t value) { return set(Mask::kIsGeniusMix, mIsGeniusMix, value); }
    IiAP2MediaPlaylist& setIsFolder(int32_t value) { return set(Mask::kIsFolder, mIsFolder, value); }
    IiAP2MediaPlaylist& setContainedMediaItems(int32_t value) {
        return set(Mask::kContainedMediaItems, mContainedMediaItems, value);
    }
    IiAP2MediaPlaylist& setIsiTunesRadioStation(int32_t value) {
        return set(Mask::kIsiTunesRadioStation, mIsiTunesRadioStation, value);
    }

    /// @}

    android::sp<MediaPlaylistMask> mMask;  ///< never null

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    uint64_t mId = 0;
    const char* mName = nullptr;
    uint64_t mParentId = 0;
    int32_t mIsGeniusMix = 0;
    int32_t mIsFolder = 0;
    int32_t mContainedMediaItems = 0;
    int32_t mIsiTunesRadioStation = 0;

    /// @}

  private:
    template <typename T>
    IiAP2MediaPlaylist& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask->mask |= bit;
        return *this;
    }
};

/// The identifier of an item that was deleted from the library.
class ACCESSORY_EXPORT iAP2MediaItemDelId : public iAP2MediaLibGroupData {
  public:
    iAP2MediaItemDelId() : iAP2MediaLibGroupData(kDeletedItem) {}
    ~iAP2MediaItemDelId() override;
    virtual uint64_t getDelId() const = 0;  ///< persistent identifier of the item
};

/// A deleted item that can be built and sent, as an entry of a library update.
class ACCESSORY_EXPORT IiAP2MediaItemDelId : public iAP2MediaItemDelId {
  public:
    IiAP2MediaItemDelId();
    ~IiAP2MediaItemDelId() override;

    /// The record at the position of @p parcel; 0 when the parcel ends before it.
    static android::sp<IiAP2MediaItemDelId> FromParcel(const android::Parcel& parcel);

    uint64_t getDelId() const override { return mDelId; }
    /// Stores the identifier.
    IiAP2MediaItemDelId& setDelId(uint64_t delId) {
        mDelId = delId;
        return *this;
    }

    uint64_t mDelId = 0;  ///< what getDelId() gives
};

/// The identifier of a playlist that was deleted from the library.
class ACCESSORY_EXPORT iAP2MediaPlaylistDelId : public iAP2MediaLibGroupData {
  public:
    iAP2MediaPlaylistDelId() : iAP2MediaLibGroupData(kDeletedPlaylist) {}
    ~iAP2MediaPlaylistDelId() override;
    virtual uint64_t getDelId() const = 0;  ///< persistent identifier of the playlist
};

/// A deleted playlist that can be built and sent, as an entry of a library update.
class ACCESSORY_EXPORT IiAP2MediaPlaylistDelId : public iAP2MediaPlaylistDelId {
  public:
    IiAP2MediaPlaylistDelId();
    ~IiAP2MediaPlaylistDelId() override;

    /// The record at the position of @p parcel; 0 when the parcel ends before it.
    static android::sp<IiAP2MediaPlaylistDelId> FromParcel(const android::Parcel& parcel);

    uint64_t getDelId() const override { return mDelId; }
    /// Stores the identifier.
    IiAP2MediaPlaylistDelId& setDelId(uint64_t delId) {
        mDelId = delId;
        return *this;
    }

    uint64_t mDelId = 0;  ///< what getDelId() gives
};

/// One update of the media library.
class ACCESSORY_EXPORT iAP2MediaLibData : public virtual android::RefBase {
  public:
    ~iAP2MediaLibData() override;
    virtual uint32_t getMask() const = 0;           ///< the bits of the fields that are present
    virtual const char* getId() const = 0;          ///< unique identifier of the media library
    virtual const char* getRevision() const = 0;    ///< library revision after this update
    virtual int32_t getGroupDataCount() const = 0;  ///< how many entries getGroupData() has
    /// @param index below getGroupDataCount(); not checked.
    virtual android::sp<iAP2MediaLibGroupData> getGroupData(unsigned int index) const = 0;
    virtual uint8_t getMediaLibReset() const = 0;        ///< 0 or 1: what was known before is to be forgotten
    virtual uint8_t getUpdateProgress() const = 0;       ///< how far the updates are
    virtual uint8_t getIsHidingRemoteItems() const = 0;  ///< 0 or 1
    virtual uint8_t getPlayAllSongCapable() const = 0;   ///< 0 or 1
};

/// A library update that can be built and sent.
class ACCESSORY_EXPORT IiAP2MediaLibData : public iAP2MediaLibData {
  public:
    using Mask = MediaLibDataMask;  ///< names the bits

    IiAP2MediaLibData();
    ~IiAP2MediaLibData() override;

    /// The record at the position of @p parcel, which must outlive the strings. What the parcel lacks is 0 or
    /// null; group entries of an unknown type are dropped, and no more entries are made than one transaction
    /// could carry.
    static android::sp<IiAP2MediaLibData> FromParcel(const android::Parcel& parcel);
    /// Appends any implementation of the plain record, through its getters; it must not be null. The process
    /// ends when the identifier or the revision is marked present and null. Entries must be of the class that
    /// their type says; a null entry is sent as a type that receivers drop. Failed writes are logged, and
    /// writing goes on.
    static void writeToParcel(android::Parcel* parcel, const android::sp<iAP2MediaLibData>& record);

    uint32_t getMask() const override { return mMask->mask; }
    const char* getId() const override { return mId; }
    const char* getRevision() const override { return mRevision; }
    int32_t getGroupDataCount() const override { return static_cast<int32_t>(mGroupData.size()); }
    android::sp<iAP2MediaLibGroupData> getGroupData(unsigned int index) const override {
        return mGroupData[index];
    }
    uint8_t getMediaLibReset() const override { return mMediaLibReset; }
    uint8_t getUpdateProgress() const override { return mUpdateProgress; }
    uint8_t getIsHidingRemoteItems() const override { return mIsHidingRemoteItems; }
    uint8_t getPlayAllSongCapable() const override { return mPlayAllSongCapable; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present. Strings are borrowed, see above; they must not be
    /// null.
    IiAP2MediaLibData& setId(const char* value) { return set(Mask::kId, mId, value); }
    IiAP2MediaLibData& setRevision(const char* value) { return set(Mask::kRevision, mRevision, value); }
    /// Appends an entry, which is shared with the caller, and marks its kind present.
    IiAP2MediaLibData& addGroupData(const android::sp<iAP2MediaLibGroupData>& entry);
    IiAP2MediaLibData& setMediaLibReset(uint8_t value) {
        return set(Mask::kMediaLibReset, mMediaLibReset, value);
    }
    IiAP2MediaLibData& setUpdateProgress(uint8_t value) {
        return set(Mask::kUpdateProgress, mUpdateProgress, value);
    }
    IiAP2MediaLibData& setIsHidingRemoteItems(uint8_t value) {
        return set(Mask::kIsHidingRemoteItems, mIsHidingRemoteItems, value);
    }
    IiAP2MediaLibData& setPlayAllSongCapable(uint8_t value) {
        return set(Mask::kPlayAllSongCapable, mPlayAllSongCapable, value);
    }

    /// @}

    android::sp<MediaLibDataMask> mMask;  ///< never null

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    const char* mId = nullptr;
    const char* mRevision = nullptr;
    android::Vector<android::sp<iAP2MediaLibGroupData>> mGroupData;
    uint8_t mMediaLibReset = 0;
    uint8_t mUpdateProgress = 0;
    uint8_t mIsHidingRemoteItems = 0;
    uint8_t mPlayAllSongCapable = 0;

    /// @}

  private:
    template <typename T>
    IiAP2MediaLibData& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask->mask |= bit;
        return *this;
    }
};

/// The request of the second form of startMediaLibUpdates. What the values mean is between the client and the
/// service; null strings are allowed. The strings are borrowed.
class ACCESSORY_EXPORT MediaLibUpdateInfo : public virtual android::RefBase {
  public:
    ~MediaLibUpdateInfo() override;

    const char* mFirstText = nullptr;   ///< the text "-1" arrives as null
    const char* mSecondText = nullptr;  ///< the text "-1" arrives as null
    int32_t mValues[5] = {};            ///< in the order in which they are sent
};

/// @name For people
/// @{

/// The record for a reader: its name and the fields that are present, e.g.
/// `iAP2MediaItem{id: 7, title: "Blue"}`.
ACCESSORY_EXPORT std::string toString(const iAP2MediaItem& record);
ACCESSORY_EXPORT std::string toString(const iAP2MediaPlaylist& record);
ACCESSORY_EXPORT std::string toString(const iAP2MediaItemDelId& record);
ACCESSORY_EXPORT std::string toString(const iAP2MediaPlaylistDelId& record);
/// As its class says; only the type for an entry of an unknown type.
ACCESSORY_EXPORT std::string toString(const iAP2MediaLibGroupData& record);
ACCESSORY_EXPORT std::string toString(const iAP2MediaLibData& record);
ACCESSORY_EXPORT std::string toString(const MediaLibUpdateInfo& record);

/// @}

}  // namespace accessory
