// Place: where the device is told to be, and where it wants to be driven.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/device/Feature.h"

namespace accessory::simulator {

/// What DestinationInformation() carries.
struct Destination {
    std::string identifier;
    std::string name;
    std::string address;
    std::string phone;
    std::string category;
    double latitude = 0;   ///< degrees
    double longitude = 0;  ///< degrees
    uint32_t kind = 0;
    std::vector<std::pair<double, double>> waypoints;  ///< latitude and longitude, degrees
};

class Place : public Feature {
  public:
    using Feature::Feature;

    void reset();

    /// The device asks for location data, or no longer does.
    void startLocation(uint32_t sentences, int interval);
    void stopLocation();
    int update(const unsigned char* data, int length);

    /// Begins events; a destination that was set before comes at once.
    int start();
    int stop();
    void setDestination(const Destination& destination);
    /// The head unit tells what became of a destination.
    int status(const char* identifier, uint32_t status);

    void describe(std::string* out) const;

  private:
    void tellDestination();

    bool mLocating = false;
    uint32_t mUpdates = 0;
    std::string mLastUpdate;
    bool mAsked = false;
    std::optional<Destination> mDestination;
    std::optional<uint32_t> mStatus;
};

}  // namespace accessory::simulator
