// sdbus-c++ through a private dbus-daemon; this version has no direct connections.
//
// The bytes travel as a string: version 1.2 writes and reads arrays element by element, which would be many
// times slower. The basic interface rather than the convenience one, which its tutorial calls the quicker;
// the service runs its event loop on its own thread, calls are synchronous.
#include <sdbus-c++/sdbus-c++.h>

#include "bench/support/BusDaemon.h"
#include "bench/support/Contender.h"

namespace accessory::bench {
namespace {

constexpr char kName[] = "com.example.Echo";
constexpr char kPath[] = "/com/example/Echo";
constexpr char kMethod[] = "Take";

std::string busPath(const std::string& folder) { return folder + "/sdbuscpp-bus"; }

std::unique_ptr<sdbus::IConnection> joinBus(const std::string& folder) {
    return sdbus::createSessionBusConnectionWithAddress("unix:path=" + busPath(folder));
}

void take(sdbus::MethodCall call) {
    std::string text;
    call >> text;
    auto reply = call.createReply();
    reply << answerTo(text.data(), text.size());
    reply.send();
}

void serve(const std::string& folder, const Ready& ready) {
    startBusDaemon(busPath(folder));
    const auto connection = joinBus(folder);
    const auto object = sdbus::createObject(*connection, kPath);
    object->registerMethod(kName, kMethod, "s", "u", take);
    object->finishRegistration();
    connection->requestName(kName);
    ready();
    connection->enterEventLoop();
}

class SdBusCppCaller : public Caller {
  public:
    explicit SdBusCppCaller(const std::string& folder)
        : mConnection(joinBus(folder)), mProxy(sdbus::createProxy(*mConnection, kName, kPath)) {}

    uint32_t call(const Payload& payload) override {
        auto request = mProxy->createMethodCall(kName, kMethod);
        request << payload.data();
        uint32_t answer = 0;
        mProxy->callMethod(request) >> answer;
        return answer;
    }

  private:
    const std::unique_ptr<sdbus::IConnection> mConnection;
    const std::unique_ptr<sdbus::IProxy> mProxy;
};

std::unique_ptr<Caller> connect(const std::string& folder) {
    return std::make_unique<SdBusCppCaller>(folder);
}

const ContenderRegistration kSdBusCpp({"sdbus-c++, dbus-daemon", 22, connect, serve});

}  // namespace
}  // namespace accessory::bench
