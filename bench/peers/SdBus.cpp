#include "bench/peers/SdBus.h"

#include <system_error>

namespace accessory::bench {

int checked(int result, const char* what) {
    if (result < 0) throw std::system_error(-result, std::generic_category(), what);
    return result;
}

SdBus joinBus(const std::string& path) {
    sd_bus* bus = nullptr;
    checked(sd_bus_new(&bus), "sd_bus_new");
    SdBus owner(bus);
    checked(sd_bus_set_address(bus, ("unix:path=" + path).c_str()), "sd_bus_set_address");
    checked(sd_bus_set_bus_client(bus, 1), "sd_bus_set_bus_client");
    checked(sd_bus_start(bus), "sd_bus_start");
    return owner;
}

}  // namespace accessory::bench
