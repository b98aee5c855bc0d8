// CaptureError: what is wrong with a capture, and where.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace accessory::tools {

class CaptureError : public std::runtime_error {
  public:
    CaptureError(const std::string& path, uint64_t where, const std::string& what)
        : std::runtime_error(path + ", byte " + std::to_string(where) + ": " + what), offset(where) {}

    /// For a file of which nothing could be read.
    CaptureError(const std::string& path, const std::string& what)
        : std::runtime_error(path + ": " + what), offset(0) {}

    const uint64_t offset;
};

}  // namespace accessory::tools
