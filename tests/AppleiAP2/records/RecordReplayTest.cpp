// The fuzzers' property over a fixed set of inputs: every parcel form spelt by hand, whole, cut at every
// byte, and with every byte disturbed.
#include <gtest/gtest.h>

#include "fuzz/records/RecordProperty.h"
#include "tests/AppleiAP2/records/RecordVectors.h"

namespace accessory::test {
namespace {

template <typename Record>
class RecordReplay : public testing::Test {
  protected:
    const std::vector<Words> mVectors = vectorsOf<Record>();

    static bool survives(const std::vector<uint8_t>& bytes, size_t size) {
        return fuzz::readsToAFixedPoint<Record>(bytes.data(), size);
    }
};

using Readers =
    testing::Types<IiAP2MediaItem, IiAP2MediaPlaylist, IiAP2MediaItemDelId, IiAP2MediaPlaylistDelId,
                   IiAP2MediaLibData, IiAP2ItemAttribute, IiAP2MediaPlayback, IiAP2PowerUpdate,
                   IRouteGuidaceUpdateInfo, IRuoteGuidanceManeuverUpdateInfo, ILaneGuidanceInformation>;

struct ReaderNames {
    template <typename>
    static std::string GetName(int reader) {
        constexpr const char* kNames[] = {"MediaItem",     "MediaPlaylist", "MediaItemDelId", "PlaylistDelId",
                                          "MediaLibData",  "ItemAttribute", "MediaPlayback",  "PowerUpdate",
                                          "RouteGuidance", "Maneuver",      "LaneGuidance"};
        return kNames[reader];
    }
};

TYPED_TEST_SUITE(RecordReplay, Readers, ReaderNames);

TYPED_TEST(RecordReplay, SurvivesEveryVectorCutAtEveryByte) {
    for (const Words& vector : this->mVectors) {
        for (size_t size = 0; size <= vector.size(); ++size) {
            EXPECT_TRUE(this->survives(vector.bytes(), size))
                << testing::PrintToString(vector) << " cut to " << size;
        }
    }
}

TYPED_TEST(RecordReplay, SurvivesEveryVectorWithAnyByteDisturbed) {
    for (const Words& vector : this->mVectors) {
        std::vector<uint8_t> bytes = vector.bytes();
        for (size_t at = 0; at < bytes.size(); ++at) {
            for (const uint8_t flip : {0x01, 0x80}) {
                bytes[at] ^= flip;
                EXPECT_TRUE(this->survives(bytes, bytes.size()))
                    << testing::PrintToString(vector) << " byte " << at << " ^ " << int{flip};
                bytes[at] ^= flip;
            }
        }
    }
}

}  // namespace
}  // namespace accessory::test
