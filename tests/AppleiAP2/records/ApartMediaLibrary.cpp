// Records of a client that was compiled apart: it has its own declarations of the plain records, in the order
// of the virtual table that the library promises, and never saw the library's headers. When the library's
// order differs, a writer asks such a record for the wrong field.
#include <utils/RefBase.h>

#include <cstdint>

#include "tests/AppleiAP2/records/ApartRecords.h"

namespace accessory {

class __attribute__((visibility("default"))) iAP2MediaLibGroupData : public virtual android::RefBase {
  public:
    ~iAP2MediaLibGroupData() override;
    int32_t type;

  protected:
    explicit iAP2MediaLibGroupData(int32_t kind) : type(kind) {}
};

class __attribute__((visibility("default"))) iAP2MediaItem : public iAP2MediaLibGroupData {
  public:
    iAP2MediaItem() : iAP2MediaLibGroupData(0) {}
    ~iAP2MediaItem() override;
    virtual uint32_t getMask() const = 0;
    virtual uint64_t getId() const = 0;
    virtual const char* getTitle() const = 0;
    virtual int32_t getMediaType() const = 0;
    virtual int32_t getRating() const = 0;
    virtual int32_t getPlaybackDuration() const = 0;
    virtual uint64_t getAlbumId() const = 0;
    virtual const char* getAlbumTitle() const = 0;
    virtual int32_t getAlbumTrackNumber() const = 0;
    virtual int32_t getAlbumTrackCount() const = 0;
    virtual int32_t getAlbumDiscNumber() const = 0;
    virtual int32_t getAlbumDiscCount() const = 0;
    virtual uint64_t getArtistId() const = 0;
    virtual const char* getArtist() const = 0;
    virtual uint64_t getAlbumArtistId() const = 0;
    virtual const char* getAlbumArtist() const = 0;
    virtual uint64_t getGenreId() const = 0;
    virtual const char* getGenre() const = 0;
    virtual uint64_t getComposerId() const = 0;
    virtual const char* getComposer() const = 0;
    virtual int32_t getIsPartOfCompilation() const = 0;
    virtual int32_t getIsLikeSupport() const = 0;
    virtual int32_t getIsBanSupport() const = 0;
    virtual int32_t getIsLiked() const = 0;
    virtual int32_t getIsBanned() const = 0;
    virtual int32_t getIsResidenOnDevice() const = 0;
    virtual int32_t getArtworkFileTransferId() const = 0;
    virtual int32_t getChapterCount() const = 0;
};

namespace test {
namespace {

class ApartMediaItem final : public iAP2MediaItem {
  public:
    explicit ApartMediaItem(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    uint64_t getId() const override { return 0x8000000000000000; }
    const char* getTitle() const override { return "Blue in Green"; }
    int32_t getMediaType() const override { return 1002; }
    int32_t getRating() const override { return -1003; }
    int32_t getPlaybackDuration() const override { return 1004; }
    uint64_t getAlbumId() const override { return 0x8000000000000005; }
    const char* getAlbumTitle() const override { return "Kind of Blue"; }
    int32_t getAlbumTrackNumber() const override { return -1007; }
    int32_t getAlbumTrackCount() const override { return 1008; }
    int32_t getAlbumDiscNumber() const override { return -1009; }
    int32_t getAlbumDiscCount() const override { return 1010; }
    uint64_t getArtistId() const override { return 0x800000000000000b; }
    const char* getArtist() const override { return "Miles"; }
    uint64_t getAlbumArtistId() const override { return 0x800000000000000d; }
    const char* getAlbumArtist() const override { return "Miles Davis"; }
    uint64_t getGenreId() const override { return 0x800000000000000f; }
    const char* getGenre() const override { return "Jazz"; }
    uint64_t getComposerId() const override { return 0x8000000000000011; }
    const char* getComposer() const override { return "B"; }
    int32_t getIsPartOfCompilation() const override { return -1019; }
    int32_t getIsLikeSupport() const override { return -1021; }
    int32_t getIsBanSupport() const override { return 1022; }
    int32_t getIsLiked() const override { return -1023; }
    int32_t getIsBanned() const override { return 1024; }
    int32_t getIsResidenOnDevice() const override { return -1025; }
    int32_t getArtworkFileTransferId() const override { return 1026; }
    int32_t getChapterCount() const override { return -1027; }

  private:
    const uint32_t mMask;
};

}  // namespace

iAP2MediaItem* makeApartMediaItem(uint32_t mask) { return new ApartMediaItem(mask); }

}  // namespace test

class __attribute__((visibility("default"))) iAP2MediaPlaylist : public iAP2MediaLibGroupData {
  public:
    iAP2MediaPlaylist() : iAP2MediaLibGroupData(1) {}
    ~iAP2MediaPlaylist() override;
    virtual uint32_t getMask() const = 0;
    virtual uint64_t getId() const = 0;
    virtual const char* getName() const = 0;
    virtual uint64_t getParentId() const = 0;
    virtual int32_t getIsGeniusMix() const = 0;
    virtual int32_t getIsFolder() const = 0;
    virtual int32_t getContainedMediaItems() const = 0;
    virtual int32_t getIsiTunesRadioStation() const = 0;
};

namespace test {
namespace {

class ApartMediaPlaylist final : public iAP2MediaPlaylist {
  public:
    explicit ApartMediaPlaylist(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    uint64_t getId() const override { return 0x8000000000000000; }
    const char* getName() const override { return "Road trip"; }
    uint64_t getParentId() const override { return 0x8000000000000002; }
    int32_t getIsGeniusMix() const override { return -1003; }
    int32_t getIsFolder() const override { return 1004; }
    int32_t getContainedMediaItems() const override { return -1005; }
    int32_t getIsiTunesRadioStation() const override { return 1006; }

  private:
    const uint32_t mMask;
};

}  // namespace

iAP2MediaPlaylist* makeApartMediaPlaylist(uint32_t mask) { return new ApartMediaPlaylist(mask); }

}  // namespace test

class __attribute__((visibility("default"))) iAP2MediaLibData : public virtual android::RefBase {
  public:
    ~iAP2MediaLibData() override;
    virtual uint32_t getMask() const = 0;
    virtual const char* getId() const = 0;
    virtual const char* getRevision() const = 0;
    virtual int32_t getGroupDataCount() const = 0;
    virtual android::sp<iAP2MediaLibGroupData> getGroupData(unsigned int index) const = 0;
    virtual uint8_t getMediaLibReset() const = 0;
    virtual uint8_t getUpdateProgress() const = 0;
    virtual uint8_t getIsHidingRemoteItems() const = 0;
    virtual uint8_t getPlayAllSongCapable() const = 0;
};

namespace test {
namespace {

/// Its group list is a playlist with the name alone.
class ApartMediaLibData final : public iAP2MediaLibData {
  public:
    explicit ApartMediaLibData(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    const char* getId() const override { return "library"; }
    const char* getRevision() const override { return "17"; }
    int32_t getGroupDataCount() const override { return 1; }
    android::sp<iAP2MediaLibGroupData> getGroupData(unsigned int) const override {
        return makeApartMediaPlaylist(0x2);
    }
    uint8_t getMediaLibReset() const override { return 1; }
    uint8_t getUpdateProgress() const override { return 250; }
    uint8_t getIsHidingRemoteItems() const override { return 3; }
    uint8_t getPlayAllSongCapable() const override { return 4; }

  private:
    const uint32_t mMask;
};

}  // namespace

iAP2MediaLibData* makeApartMediaLibData(uint32_t mask) { return new ApartMediaLibData(mask); }

}  // namespace test

}  // namespace accessory
