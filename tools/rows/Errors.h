// What goes wrong between JSON and parcels.
#pragma once

#include <utils/Errors.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace accessory::tools {

/// A value that a request cannot carry.
class ArgumentError : public std::runtime_error {
  public:
    ArgumentError(std::string where, std::string expects, std::string got)
        : std::runtime_error(where + " expects " + expects + ", got " + got),
          field(std::move(where)),
          expected(std::move(expects)),
          given(std::move(got)) {}

    const std::string field;  ///< its name, with members behind dots: `param.destinationId`
    const std::string expected;
    const std::string given;
};

/// A parcel of which a receiver makes nothing.
class UndecodableParcel : public std::runtime_error {
  public:
    explicit UndecodableParcel(const std::string& why, android::status_t stubStatus = android::BAD_VALUE)
        : std::runtime_error(why), status(stubStatus) {}

    const android::status_t status;  ///< what a stub answers to it
};

}  // namespace accessory::tools
