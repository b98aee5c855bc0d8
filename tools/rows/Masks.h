// Field masks by the names of their bits.
#pragma once

#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>

#include <string>
#include <vector>

#include "AppleiAP2/records/MediaLibraryTables.h"
#include "AppleiAP2/records/NowPlayingTables.h"
#include "AppleiAP2/records/PowerTables.h"
#include "tools/rows/Values.h"

namespace accessory::tools {

struct MaskBit {
    std::string name;
    uint32_t bit;
};
using MaskBits = std::vector<MaskBit>;

template <typename Table>
MaskBits maskBitsOf() {
    MaskBits bits;
    for (const FieldInfo& field : describe(Table::kFields)) {
        if (field.bit != kAlwaysPresent) bits.push_back({field.name, field.bit});
    }
    return bits;
}

/// The bits of a mask class, from the table of its record.
template <typename MaskClass>
MaskBits maskBits();

template <>
inline MaskBits maskBits<MediaItemMask>() {
    return maskBitsOf<MediaItemTable>();
}
template <>
inline MaskBits maskBits<MediaPlaylistMask>() {
    return maskBitsOf<MediaPlaylistTable>();
}
template <>
inline MaskBits maskBits<iAP2ItemAttributeMask>() {
    return maskBitsOf<ItemAttributeTable>();
}
template <>
inline MaskBits maskBits<iAP2MediaPlaybackMask>() {
    return maskBitsOf<MediaPlaybackTable>();
}
template <>
inline MaskBits maskBits<iAP2PowerUpdateMask>() {
    return maskBitsOf<PowerUpdateTable>();
}
/// The four bits of the group list have no rows.
template <>
inline MaskBits maskBits<MediaLibDataMask>() {
    MaskBits bits = maskBitsOf<MediaLibDataTable>();
    bits.push_back({"items", MediaLibDataMask::kItems});
    bits.push_back({"playlists", MediaLibDataMask::kPlaylists});
    bits.push_back({"deletedItems", MediaLibDataMask::kDeletedItems});
    bits.push_back({"deletedPlaylists", MediaLibDataMask::kDeletedPlaylists});
    return bits;
}

/// "names of bits joined by '|', 'all', or a number".
std::string maskExpected();

/// An array of names, as which bits without one are "bit20".
Json::Value maskToJson(uint32_t mask, const MaskBits& bits);

/// An array of names, names joined by '|', "all" for those with a name, or a number.
uint32_t maskFromJson(const Json::Value& value, const MaskBits& bits, const std::string& where);

}  // namespace accessory::tools
