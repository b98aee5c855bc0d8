// The arithmetic of a parcel's data.
#pragma once

#include <cstddef>
#include <cstdint>

#include "FlatObject.h"

namespace android::runtime {

/// Sizes and positions travel as int32, so no parcel is larger.
constexpr size_t kMaxParcelSize = INT32_MAX;
constexpr size_t kFlatSize = sizeof(flat_binder_object);

/// @p len filled up to whole cells of four bytes; @p len is at most kMaxParcelSize.
constexpr size_t padded(size_t len) { return (len + 3) & ~size_t{3}; }

}  // namespace android::runtime
