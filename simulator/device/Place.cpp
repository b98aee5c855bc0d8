#include "simulator/device/Place.h"

#include <cstring>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

/// Two 32-bit numbers: latitude and longitude in ten-millionths of a degree, in the machine's byte order.
void writeCoordinates(double latitude, double longitude, uint8_t (&bytes)[8]) {
    const int32_t words[2] = {static_cast<int32_t>(latitude * 1e7), static_cast<int32_t>(longitude * 1e7)};
    memcpy(bytes, words, sizeof(bytes));
}

/// @p points is where the waypoints are kept.
DestinationInfo infoOf(const Destination& destination, std::vector<DestinationInfo::Point>* points) {
    DestinationInfo info;
    info.mask = DestinationInfo::kFirstString | DestinationInfo::kSecondString |
                DestinationInfo::kEightBytes | DestinationInfo::kThirdString | DestinationInfo::kValue;
    info.firstString = destination.identifier.c_str();
    info.secondString = destination.name.c_str();
    writeCoordinates(destination.latitude, destination.longitude, info.eightBytes);
    info.thirdString = destination.address.c_str();
    info.value = destination.kind;
    points->resize(destination.waypoints.size());
    for (size_t i = 0; i < points->size(); ++i)
        writeCoordinates(destination.waypoints[i].first, destination.waypoints[i].second, (*points)[i].bytes);
    info.points = points->data();
    info.pointCount = static_cast<uint32_t>(points->size());
    if (!points->empty()) info.mask |= DestinationInfo::kPoints;
    info.fourthString = destination.phone.c_str();
    if (!destination.phone.empty()) info.mask |= DestinationInfo::kFourthString;
    info.fifthString = destination.category.c_str();
    if (!destination.category.empty()) info.mask |= DestinationInfo::kFifthString;
    return info;
}

}  // namespace

void Place::reset() {
    mLocating = mAsked = false;
    mUpdates = 0;
    mLastUpdate.clear();
    mDestination.reset();
    mStatus.reset();
}

void Place::startLocation(uint32_t sentences, int interval) {
    mLocating = true;
    tell(&Clients::startLocation, sentences, interval);
}

void Place::stopLocation() {
    mLocating = false;
    tell(&Clients::stopLocation);
}

int Place::update(const unsigned char* data, int length) {
    if (data == nullptr || length <= 0) return kBadArgument;
    if (!mLocating) return kWrongState;
    ++mUpdates;
    mLastUpdate.assign(data, data + length);
    return kDone;
}

int Place::start() {
    mAsked = true;
    if (mDestination) tellDestination();
    return kDone;
}

int Place::stop() {
    if (!mAsked) return kWrongState;
    mAsked = false;
    return kDone;
}

void Place::setDestination(const Destination& destination) {
    mDestination = destination;
    mStatus.reset();
    if (mAsked) tellDestination();
}

int Place::status(const char* identifier, uint32_t status) {
    if (identifier == nullptr) return kBadArgument;
    if (!mDestination || mDestination->identifier != identifier) return kNotFound;
    mStatus = status;
    return kDone;
}

void Place::describe(std::string* out) const {
    if (mLocating)
        appendLine(out, "  location: asked for, %u updates received, last %s", mUpdates,
                   quoted(mLastUpdate).c_str());
    if (mAsked) appendLine(out, "  destinations: asked for");
    if (mDestination)
        appendLine(out, "  destination: %s, status %s", quoted(mDestination->name).c_str(),
                   mStatus ? std::to_string(*mStatus).c_str() : "not told");
}

void Place::tellDestination() {
    tell([id = mId, destination = *mDestination](Clients& clients) {
        std::vector<DestinationInfo::Point> points;
        const DestinationInfo info = infoOf(destination, &points);
        clients.DestinationInformation(id, &info);
    });
}

}  // namespace accessory::simulator
