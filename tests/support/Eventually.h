// eventually() of the test kit, under the names that our tests have for it.
#pragma once

#include <accessory/testing/Eventually.h>

namespace accessory::test {

using testkit::eventually;
using testkit::kPatience;

}  // namespace accessory::test
