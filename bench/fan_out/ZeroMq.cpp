// ZeroMQ PUB and SUB over ipc: the publisher's I/O thread writes to every subscriber in turn. Nobody waits
// for answers; what is measured ends when the last client has the message.
//
// The publisher is an XPUB, which tells of subscriptions, so that no event is raised before all have arrived.
#include <zmq.hpp>

#include <cstring>
#include <stdexcept>

#include "bench/fan_out/FanOut.h"

namespace accessory::bench {
namespace {

struct Event {
    uint32_t accessory = kAccessory;
    uint32_t number = 0;
};

std::string addressIn(const std::string& folder) { return "ipc://" + folder + "/events-zeromq"; }

class ZeroMqBroadcaster : public Broadcaster {
  public:
    explicit ZeroMqBroadcaster(const std::string& address) {
        mContext.set(zmq::ctxopt::max_sockets, kMostSockets);
        mSocket.set(zmq::sockopt::xpub_verbose, 1);
        mSocket.bind(address);
    }

    void await(uint32_t clients) override {
        for (zmq::message_t subscription; mClients < clients; ++mClients) {
            if (!mSocket.recv(subscription)) throw std::runtime_error("no subscription");
        }
    }
    void raise(uint32_t number) override {
        Event event;
        event.number = number;
        mSocket.send(zmq::const_buffer(&event, sizeof(event)), zmq::send_flags::none);
    }

  private:
    static constexpr int kMostSockets = 4096;

    zmq::context_t mContext;
    zmq::socket_t mSocket{mContext, zmq::socket_type::xpub};
    uint32_t mClients = 0;
};

std::unique_ptr<Broadcaster> broadcast(const std::string& folder) {
    return std::make_unique<ZeroMqBroadcaster>(addressIn(folder));
}

void listen(const std::string& folder, const Heard& heard, const Registered& registered) {
    zmq::context_t context;
    zmq::socket_t socket(context, zmq::socket_type::sub);
    socket.connect(addressIn(folder));
    socket.set(zmq::sockopt::subscribe, "");
    registered();
    for (zmq::message_t message;;) {
        if (!socket.recv(message) || message.size() != sizeof(Event)) throw std::runtime_error("no event");
        Event event;
        std::memcpy(&event, message.data(), sizeof(event));
        if (event.accessory == kAccessory) heard(event.number);
    }
}

const FanOutRegistration kZeroMq({"ZeroMQ", 20, broadcast, listen});

}  // namespace
}  // namespace accessory::bench
