// Records of a client that was compiled apart: it has its own declarations of the plain records, in the order
// of the virtual table that the library promises, and never saw the library's headers. When the library's
// order differs, a writer asks such a record for the wrong field.
#include <utils/RefBase.h>

#include <cstdint>

#include "tests/AppleiAP2/records/ApartRecords.h"

namespace accessory {

class __attribute__((visibility("default"))) iAP2ItemAttribute : public virtual android::RefBase {
  public:
    ~iAP2ItemAttribute() override;
    virtual uint32_t getMask() const = 0;
    virtual uint64_t getID() const = 0;
    virtual const char* getTitle() const = 0;
    virtual int32_t getDurationInMillSec() const = 0;
    virtual const char* getAlbumTitle() const = 0;
    virtual int32_t getAlbumTrackNum() const = 0;
    virtual int32_t getAlbumTrackCount() const = 0;
    virtual int32_t getAlbumDiskNum() const = 0;
    virtual int32_t getAlbumDiskCount() const = 0;
    virtual const char* getArtist() const = 0;
    virtual const char* getGenre() const = 0;
    virtual const char* getComposer() const = 0;
    virtual int32_t getIsLikeSupported() const = 0;
    virtual int32_t getIsBanSupported() const = 0;
    virtual int32_t getIsLiked() const = 0;
    virtual int32_t getIsBanned() const = 0;
    virtual int32_t getArtWorkFileTransferID() const = 0;
    virtual int32_t getChapterCount() const = 0;
};

namespace test {
namespace {

class ApartItemAttribute final : public iAP2ItemAttribute {
  public:
    explicit ApartItemAttribute(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    uint64_t getID() const override { return 0x8000000000000000; }
    const char* getTitle() const override { return "Blue in Green"; }
    int32_t getDurationInMillSec() const override { return 1004; }
    const char* getAlbumTitle() const override { return "Kind of Blue"; }
    int32_t getAlbumTrackNum() const override { return -1007; }
    int32_t getAlbumTrackCount() const override { return 1008; }
    int32_t getAlbumDiskNum() const override { return -1009; }
    int32_t getAlbumDiskCount() const override { return 1010; }
    const char* getArtist() const override { return "Miles"; }
    const char* getGenre() const override { return "Jazz"; }
    const char* getComposer() const override { return "B"; }
    int32_t getIsLikeSupported() const override { return -1021; }
    int32_t getIsBanSupported() const override { return 1022; }
    int32_t getIsLiked() const override { return -1023; }
    int32_t getIsBanned() const override { return 1024; }
    int32_t getArtWorkFileTransferID() const override { return 1026; }
    int32_t getChapterCount() const override { return -1027; }

  private:
    const uint32_t mMask;
};

}  // namespace

iAP2ItemAttribute* makeApartItemAttribute(uint32_t mask) { return new ApartItemAttribute(mask); }

}  // namespace test

class __attribute__((visibility("default"))) iAP2MediaPlayback : public virtual android::RefBase {
  public:
    ~iAP2MediaPlayback() override;
    virtual uint32_t getMask() const = 0;
    virtual int32_t getstats() const = 0;
    virtual int32_t getElaspedTime() const = 0;
    virtual int32_t getQueueIndex() const = 0;
    virtual int32_t getQueueCount() const = 0;
    virtual int32_t getQueueChapterIndex() const = 0;
    virtual int32_t getShuffMode() const = 0;
    virtual int32_t getReapedMode() const = 0;
    virtual const char* getAppName() const = 0;
    virtual const char* getLibraryUniqueldID() const = 0;
    virtual int32_t getRaidoAd() const = 0;
    virtual const char* getRadioStationName() const = 0;
    virtual uint64_t getRadioMediaPlayListID() const = 0;
    virtual int32_t getPlaybackSpeedValue() const = 0;
    virtual int32_t getSetElapsedTimeAvailable() const = 0;
    virtual int32_t getPlaybackQueueListAvail() const = 0;
    virtual int32_t getPlaybackQueueListTransferID() const = 0;
    virtual const char* getPlaybackAppBundkeID() const = 0;
};

namespace test {
namespace {

class ApartMediaPlayback final : public iAP2MediaPlayback {
  public:
    explicit ApartMediaPlayback(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    int32_t getstats() const override { return 1000; }
    int32_t getElaspedTime() const override { return -1001; }
    int32_t getQueueIndex() const override { return 1002; }
    int32_t getQueueCount() const override { return -1003; }
    int32_t getQueueChapterIndex() const override { return 1004; }
    int32_t getShuffMode() const override { return -1005; }
    int32_t getReapedMode() const override { return 1006; }
    const char* getAppName() const override { return "Music"; }
    const char* getLibraryUniqueldID() const override { return "A1B2-C3"; }
    int32_t getRaidoAd() const override { return -1009; }
    const char* getRadioStationName() const override { return ""; }
    uint64_t getRadioMediaPlayListID() const override { return 0x800000000000000b; }
    int32_t getPlaybackSpeedValue() const override { return 1012; }
    int32_t getSetElapsedTimeAvailable() const override { return -1013; }
    int32_t getPlaybackQueueListAvail() const override { return 1014; }
    int32_t getPlaybackQueueListTransferID() const override { return -1015; }
    const char* getPlaybackAppBundkeID() const override { return "com.example.music"; }

  private:
    const uint32_t mMask;
};

}  // namespace

iAP2MediaPlayback* makeApartMediaPlayback(uint32_t mask) { return new ApartMediaPlayback(mask); }

}  // namespace test

class __attribute__((visibility("default"))) iAP2PowerUpdate : public virtual android::RefBase {
  public:
    virtual uint32_t getMask() const = 0;
    virtual int32_t getCurrentFromAccessory() const = 0;
    virtual int32_t getChargeIsPresent() const = 0;
    virtual int32_t getPowerMode() const = 0;
    virtual int32_t getExternalChargeConnected() const = 0;
    virtual int32_t getChargeState() const = 0;
    virtual int32_t getChargeLevel() const = 0;
    ~iAP2PowerUpdate() override;
};

namespace test {
namespace {

class ApartPowerUpdate final : public iAP2PowerUpdate {
  public:
    explicit ApartPowerUpdate(uint32_t mask) : mMask(mask) {}
    uint32_t getMask() const override { return mMask; }
    int32_t getCurrentFromAccessory() const override { return 1000; }
    int32_t getChargeIsPresent() const override { return -1001; }
    int32_t getPowerMode() const override { return 1002; }
    int32_t getExternalChargeConnected() const override { return -1003; }
    int32_t getChargeState() const override { return 1004; }
    int32_t getChargeLevel() const override { return -1005; }

  private:
    const uint32_t mMask;
};

}  // namespace

iAP2PowerUpdate* makeApartPowerUpdate(uint32_t mask) { return new ApartPowerUpdate(mask); }

}  // namespace test

}  // namespace accessory
