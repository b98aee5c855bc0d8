// sd-bus, twice: the two processes connected with each other, and both connected to a private dbus-daemon.
//
// The bytes travel as an array of bytes, added and read as one block, as the manual recommends for fixed-size
// elements; the message is made for each call, which sd-bus requires. Calls are synchronous, the service
// waits in sd_bus_wait().
#include "bench/peers/SdBus.h"

#include <sys/socket.h>

#include "bench/support/BusDaemon.h"
#include "bench/support/Contender.h"
#include "bench/support/UnixSocket.h"

namespace accessory::bench {
namespace {

constexpr char kName[] = "com.example.Echo";
constexpr char kPath[] = "/com/example/Echo";
constexpr char kMethod[] = "Take";

std::string directPath(const std::string& folder) { return folder + "/sdbus-direct"; }
std::string busPath(const std::string& folder) { return folder + "/sdbus-bus"; }

int take(sd_bus_message* message, void* /*data*/, sd_bus_error* /*error*/) {
    const void* bytes = nullptr;
    size_t size = 0;
    const int status = sd_bus_message_read_array(message, 'y', &bytes, &size);
    if (status < 0) return status;
    return sd_bus_reply_method_return(message, "u", answerTo(static_cast<const char*>(bytes), size));
}

const sd_bus_vtable kVtable[] = {SD_BUS_VTABLE_START(0),
                                 SD_BUS_METHOD(kMethod, "ay", "u", take, SD_BUS_VTABLE_UNPRIVILEGED),
                                 SD_BUS_VTABLE_END};

[[noreturn]] void serveOn(sd_bus* bus) {
    for (;;) {
        const int processed = checked(sd_bus_process(bus, nullptr), "sd_bus_process");
        if (processed == 0) checked(sd_bus_wait(bus, UINT64_MAX), "sd_bus_wait");
    }
}

void publish(sd_bus* bus) {
    checked(sd_bus_add_object_vtable(bus, nullptr, kPath, kName, kVtable, nullptr), "vtable");
}

SdBus serverEnd(int fd) {
    sd_bus* bus = nullptr;
    checked(sd_bus_new(&bus), "sd_bus_new");
    SdBus owner(bus);
    sd_id128_t id;
    checked(sd_id128_randomize(&id), "sd_id128_randomize");
    checked(sd_bus_set_fd(bus, fd, fd), "sd_bus_set_fd");
    checked(sd_bus_set_server(bus, 1, id), "sd_bus_set_server");
    publish(bus);
    checked(sd_bus_start(bus), "sd_bus_start");
    return owner;
}

void serveDirectly(const std::string& folder, const Ready& ready) {
    const int listening = listenAt(directPath(folder));
    ready();
    const SdBus bus = serverEnd(acceptOne(listening));
    serveOn(bus.get());
}

void serveOnBus(const std::string& folder, const Ready& ready) {
    startBusDaemon(busPath(folder));
    const SdBus bus = joinBus(busPath(folder));
    publish(bus.get());
    checked(sd_bus_request_name(bus.get(), kName, 0), "sd_bus_request_name");
    ready();
    serveOn(bus.get());
}

class SdBusCaller : public Caller {
  public:
    SdBusCaller(SdBus bus, const char* destination) : mBus(std::move(bus)), mDestination(destination) {}

    uint32_t call(const Payload& payload) override {
        const SdBusMessage request = requestFor(payload);
        sd_bus_message* answer = nullptr;
        checked(sd_bus_call(mBus.get(), request.get(), 0, nullptr, &answer), "sd_bus_call");
        const SdBusMessage owner(answer);
        uint32_t value = 0;
        checked(sd_bus_message_read(answer, "u", &value), "read");
        return value;
    }

  private:
    SdBusMessage requestFor(const Payload& payload) {
        sd_bus_message* message = nullptr;
        checked(sd_bus_message_new_method_call(mBus.get(), &message, mDestination, kPath, kName, kMethod),
                "new_method_call");
        SdBusMessage owner(message);
        checked(sd_bus_message_append_array(message, 'y', payload.data(), payload.size()), "append_array");
        return owner;
    }

    const SdBus mBus;
    const char* const mDestination;
};

std::unique_ptr<Caller> connectDirectly(const std::string& folder) {
    sd_bus* bus = nullptr;
    checked(sd_bus_new(&bus), "sd_bus_new");
    SdBus owner(bus);
    const int fd = connectTo(directPath(folder));
    checked(sd_bus_set_fd(bus, fd, fd), "sd_bus_set_fd");
    checked(sd_bus_start(bus), "sd_bus_start");
    return std::make_unique<SdBusCaller>(std::move(owner), nullptr);
}

std::unique_ptr<Caller> connectToBus(const std::string& folder) {
    return std::make_unique<SdBusCaller>(joinBus(busPath(folder)), kName);
}

const ContenderRegistration kDirect({"sd-bus, direct", 20, connectDirectly, serveDirectly});
const ContenderRegistration kBus({"sd-bus, dbus-daemon", 21, connectToBus, serveOnBus});

}  // namespace
}  // namespace accessory::bench
