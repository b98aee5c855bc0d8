// How many descriptors the processes of a benchmark may have.
#pragma once

namespace accessory::bench {

/// As many as the system lets them, from here on, in this process and its children: a service with thousands
/// of clients needs more than the usual 1,024.
void allowManyDescriptors();

}  // namespace accessory::bench
