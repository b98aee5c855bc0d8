// How tests name tracks: by their identifiers.
#pragma once

#include <cstdint>
#include <vector>

#include "simulator/model/MediaLibrary.h"

namespace accessory::simulator {

inline std::vector<uint64_t> idsOf(const TrackList& tracks) {
    std::vector<uint64_t> ids;
    for (const TrackPointer& each : tracks)
        ids.push_back(each->id);
    return ids;
}

}  // namespace accessory::simulator
