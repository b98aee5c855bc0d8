// The arithmetic of a parcel's data.
#pragma once

#include <cstddef>
#include <cstdint>

#include "FlatObject.h"

namespace android::runtime {

/// Sizes and positions travel as int32, so no parcel is larger.
constexpr size_t kMaxParcelSize = INT32_MAX;
constexpr size_t kFlatSize = sizeof(flat_binder_object);

constexpr size_t kCellSize = 4;

/// @p len filled up to whole cells; @p len is at most kMaxParcelSize.
constexpr size_t padded(size_t len) { return (len + kCellSize - 1) & ~(kCellSize - 1); }

}  // namespace android::runtime
