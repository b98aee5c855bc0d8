// Sockets that take and give a few bytes at a time.
#pragma once

#include <cstddef>

namespace accessory::test {

/// Cuts every transfer of this process on a socket to 1 to 7 bytes from here on.
void shortenTransfers();

/// For the stand-ins: as many of @p size bytes as may be transferred.
size_t shortened(size_t size);

}  // namespace accessory::test
