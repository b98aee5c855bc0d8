// ZeroMQ, REQ and REP over ipc, one I/O thread on either side, as its guide recommends below a gigabyte a
// second.
//
// The request is sent from the caller's memory without a copy, which it may be since the caller waits for the
// answer. The guide recommends that for large messages, so what fits a message's own 33 bytes is copied.
#include <zmq.hpp>

#include <cstring>
#include <stdexcept>

#include "bench/support/Contender.h"

namespace accessory::bench {
namespace {

constexpr size_t kCopied = 33;

std::string addressIn(const std::string& folder) { return "ipc://" + folder + "/zeromq"; }

void serve(const std::string& folder, const Ready& ready) {
    zmq::context_t context;
    zmq::socket_t socket(context, zmq::socket_type::rep);
    socket.bind(addressIn(folder));
    ready();
    zmq::message_t request;
    for (;;) {
        if (!socket.recv(request)) throw std::runtime_error("no request");
        const uint32_t answer = answerTo(request.data<char>(), request.size());
        socket.send(zmq::const_buffer(&answer, sizeof(answer)), zmq::send_flags::none);
    }
}

void keep(void* /*bytes*/, void* /*hint*/) {}

class ZeroMqCaller : public Caller {
  public:
    explicit ZeroMqCaller(const std::string& address) { mSocket.connect(address); }

    uint32_t call(const Payload& payload) override {
        mSocket.send(messageOf(payload), zmq::send_flags::none);
        if (!mSocket.recv(mReply) || mReply.size() != sizeof(uint32_t)) throw std::runtime_error("no answer");
        uint32_t answer = 0;
        std::memcpy(&answer, mReply.data(), sizeof(answer));
        return answer;
    }

  private:
    static zmq::message_t messageOf(const Payload& payload) {
        if (payload.size() <= kCopied) return {payload.data(), payload.size()};
        return {const_cast<char*>(payload.data()), payload.size(), keep};
    }

    zmq::context_t mContext;
    zmq::socket_t mSocket{mContext, zmq::socket_type::req};
    zmq::message_t mReply;
};

std::unique_ptr<Caller> connect(const std::string& folder) {
    return std::make_unique<ZeroMqCaller>(addressIn(folder));
}

const ContenderRegistration kZeroMq({"ZeroMQ", 50, connect, serve});

}  // namespace
}  // namespace accessory::bench
