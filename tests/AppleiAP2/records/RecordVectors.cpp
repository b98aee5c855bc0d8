#include "tests/AppleiAP2/records/RecordVectors.h"

#include "tests/AppleiAP2/records/MediaLibrarySamples.h"
#include "tests/AppleiAP2/records/NowPlayingSamples.h"
#include "tests/AppleiAP2/records/PowerSamples.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"

namespace accessory::test {
namespace {

/// Of the bits that a sample knows.
template <typename Sample>
std::vector<Words> vectorsOfFields(std::vector<Words> vectors = {}) {
    Words all = Words().i32(0xffffffff);
    for (const FieldWords& field : Sample::words()) {
        all += field.words;
        Words alone = Words().i32(1u << field.bit);
        alone += field.words;
        vectors.push_back(alone);
    }
    vectors.push_back(all);
    vectors.push_back(Words().i32(0));
    return vectors;
}

}  // namespace

template <>
std::vector<Words> vectorsOf<IiAP2MediaItem>() {
    return vectorsOfFields<MediaItemSample>();
}

template <>
std::vector<Words> vectorsOf<IiAP2MediaPlaylist>() {
    return vectorsOfFields<MediaPlaylistSample>();
}

template <>
std::vector<Words> vectorsOf<IiAP2MediaItemDelId>() {
    return {Words().i64(0x1122334455667788)};
}

template <>
std::vector<Words> vectorsOf<IiAP2MediaPlaylistDelId>() {
    return {Words().i64(0x1122334455667788)};
}

template <>
std::vector<Words> vectorsOf<IiAP2MediaLibData>() {
    return {
        mixedWords(),
        Words().i32(0).i32(0),
        Words().i32(0).i32(-1),
        Words().i32(0).i32(0x7fffffff),
        Words().i32(0x80).i32(2).i32(5).i32(3).i64(9).i32(12),
    };
}

template <>
std::vector<Words> vectorsOf<IiAP2ItemAttribute>() {
    return vectorsOfFields<ItemAttributeSample>({
        Words().i32(0x52).i32(0).i32(215000).i32(13).cstr("Kind of Blue"),
        Words().i32(0x42).i32(-1).i32(0x7fffffff).cstr("Kind of Blue"),
    });
}

template <>
std::vector<Words> vectorsOf<IiAP2MediaPlayback>() {
    return vectorsOfFields<MediaPlaybackSample>({Words().i32(0x180).cstr("A1B2")});
}

template <>
std::vector<Words> vectorsOf<IiAP2PowerUpdate>() {
    return vectorsOfFields<PowerUpdateSample>();
}

template <>
std::vector<Words> vectorsOf<IRouteGuidaceUpdateInfo>() {
    return vectorsOfFields<RouteGuidanceSample>({
        Words().i32(0x3).i32(0).i32(6),
        Words().i32(0x1).i32(-1),
        Words().i32(0x2001).i32(1).halves({7}).i32(0x7f000),
    });
}

template <>
std::vector<Words> vectorsOf<IRuoteGuidanceManeuverUpdateInfo>() {
    return vectorsOfFields<ManeuverSample>({Words().i32(0x401).i32(0).i32(-1)});
}

template <>
std::vector<Words> vectorsOf<ILaneGuidanceInformation>() {
    return vectorsOfFields<LaneGuidanceSample>({
        Words().i32(0x4).i32(0),
        Words().i32(0x4).i32(-1),
        Words().i32(0x4).i32(0x3f800),
        Words().i32(0x4).i32(2).i32(0x4).i32(0x40000).i32(0x4).i32(0x40000),
    });
}

}  // namespace accessory::test
