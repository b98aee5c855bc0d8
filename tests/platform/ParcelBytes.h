// A parcel's data as text, so that tests can spell it out: "2a 00 00 00 ff ff ff ff".
#pragma once

#include <binder/Parcel.h>

#include <cstdint>
#include <string>
#include <vector>

namespace accessory::test {

/// Sizes that no parcel can have, such as a peer may claim.
inline constexpr size_t kHostileSizes[] = {size_t{INT32_MAX} + 1, SIZE_MAX / 2 + 1, SIZE_MAX - 3,
                                           SIZE_MAX - 1, SIZE_MAX};

/// The bytes that @p hex spells: pairs of digits with blanks between them.
std::vector<uint8_t> bytesFrom(const std::string& hex);

/// All data of @p parcel, wherever its position is.
std::string hexOf(const android::Parcel& parcel);

/// Makes the bytes that @p hex spells the content of @p parcel, to be read from their beginning.
void fill(android::Parcel& parcel, const std::string& hex);

}  // namespace accessory::test
