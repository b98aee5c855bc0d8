// The log catcher of the test kit, under the names that our tests have for it.
#pragma once

#include <accessory/testing/LogCatcher.h>

#include "tests/support/Eventually.h"

namespace accessory::test {

using testkit::LogCatcher;
using testkit::Logged;
using testkit::LoggedCheck;
using testkit::LoggedStatusCheck;
using testkit::LogLine;
using testkit::readsAs;

}  // namespace accessory::test
