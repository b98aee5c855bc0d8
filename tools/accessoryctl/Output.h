// Where results go: lines for people, or one JSON object a line for programs.
#pragma once

#include <json/json.h>

#include <string>

#include "tools/accessoryctl/Failure.h"

namespace accessory::ctl {

/// What all verbs are told.
struct Options {
    bool json = false;
    double timeout = 5;  ///< seconds that a service has for anything
};

/// Puts "schema" and "type" into @p object. @return it as a line of JSON, without a newline.
std::string jsonLine(const char* type, Json::Value object);

/// Prints @p object as JSON, or @p text, which ends its last line itself; whichever was asked for.
void print(const Options& options, const char* type, const Json::Value& object, const std::string& text);

/// Prints a failure: JSON to the standard output, text to the standard error.
void report(const Options& options, const Failure& failure);

/// @p text in bold on a terminal, unless NO_COLOR is set.
std::string bold(const std::string& text);
std::string red(const std::string& text);
std::string green(const std::string& text);

}  // namespace accessory::ctl
