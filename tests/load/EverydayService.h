// The service of the soak: all three managers in one process, and events whenever it is told to be loud.
//
// CHILD_ROLE(everydayService) publishes them under its argument and the interfaces' names. Lines from the
// test: "loud" and "quiet", both answered with the number of rounds of events that were raised so far, the
// last of them for whoever is registered when it becomes quiet; "clients", answered with how many are
// registered with the iAP2 manager, with the USB audio manager, and by how many references the iAP2 manager
// is held.
#pragma once

#include <binder/IServiceManager.h>

#include <string>

namespace accessory::load {

/// The name under which the service called @p prefix publishes an interface.
inline android::String16 everydayName(const std::string& prefix, const android::String16& descriptor) {
    return android::String16((prefix + android::String8(descriptor).string()).c_str());
}

/// Numbers of attach events count up from here, one a round; those beyond are examples.
inline constexpr unsigned int kFirstRound = 1'000'000;
inline constexpr unsigned int kLastRound = 1'000'000'000;

}  // namespace accessory::load
