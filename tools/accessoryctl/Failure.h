// Failure: why a verb ends, what to type instead, and with which exit status.
#pragma once

#include <json/json.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace accessory::ctl {

enum ExitStatus : int {
    kDone = 0,
    kFailed = 1,      ///< the call failed, or nothing matched
    kWrongUsage = 2,  ///< the command line is wrong
    kNoService = 3,   ///< the service is not there
    kTimedOut = 4,    ///< the service did not answer in time
    kServiceDied = 5  ///< the service's process ended meanwhile
};

class Failure : public std::runtime_error {
  public:
    Failure(ExitStatus exitStatus, const std::string& message, std::string whatToType = {})
        : std::runtime_error(message), status(exitStatus), advice(std::move(whatToType)) {}

    Failure& with(const char* name, Json::Value value) {
        details[name] = std::move(value);
        return *this;
    }

    const ExitStatus status;
    const std::string advice;                              ///< a command line; empty for none
    Json::Value details = Json::Value(Json::objectValue);  ///< more members of the JSON form
};

}  // namespace accessory::ctl
