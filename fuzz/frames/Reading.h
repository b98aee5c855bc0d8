// Reading a received parcel to its end, in every way that a stub could.
#pragma once

#include <binder/Parcel.h>

#include <cstddef>

namespace android::runtime::fuzz {

/// @return a sum of all that was read, so that it is read.
size_t readEverything(const Parcel& parcel);

}  // namespace android::runtime::fuzz
