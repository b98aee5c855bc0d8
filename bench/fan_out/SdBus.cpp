// sd-bus signals through a private dbus-daemon, which sends each of them on to every client that asked for
// it. Nobody waits for answers; what is measured ends when the last client has the signal.
#include "bench/peers/SdBus.h"

#include "bench/fan_out/FanOut.h"
#include "bench/support/BusDaemon.h"

namespace accessory::bench {
namespace {

constexpr char kPath[] = "/com/example/Events";
constexpr char kInterface[] = "com.example.Events";
constexpr char kSignal[] = "Happened";

std::string busPath(const std::string& folder) { return folder + "/events-bus"; }

class SdBusBroadcaster : public Broadcaster {
  public:
    explicit SdBusBroadcaster(SdBus bus) : mBus(std::move(bus)) {}

    void raise(uint32_t event) override {
        checked(sd_bus_emit_signal(mBus.get(), kPath, kInterface, kSignal, "uu", kAccessory, event), "emit");
        checked(sd_bus_flush(mBus.get()), "flush");
    }

  private:
    const SdBus mBus;
};

std::unique_ptr<Broadcaster> broadcast(const std::string& folder) {
    startBusDaemon(busPath(folder));
    return std::make_unique<SdBusBroadcaster>(joinBus(busPath(folder)));
}

int happened(sd_bus_message* message, void* data, sd_bus_error* /*error*/) {
    uint32_t accessory = 0;
    uint32_t event = 0;
    const int status = sd_bus_message_read(message, "uu", &accessory, &event);
    if (status >= 0 && accessory == kAccessory) (*static_cast<const Heard*>(data))(event);
    return status;
}

void listen(const std::string& folder, const Heard& heard, const Registered& registered) {
    const SdBus bus = joinBus(busPath(folder));
    checked(sd_bus_match_signal(bus.get(), nullptr, nullptr, kPath, kInterface, kSignal, happened,
                                const_cast<Heard*>(&heard)),
            "match_signal");
    registered();
    for (;;) {
        const int processed = checked(sd_bus_process(bus.get(), nullptr), "process");
        if (processed == 0) checked(sd_bus_wait(bus.get(), UINT64_MAX), "wait");
    }
}

const FanOutRegistration kSdBus({"sd-bus, dbus-daemon", 10, broadcast, listen});

}  // namespace
}  // namespace accessory::bench
