// Cap'n Proto RPC, two parties over a Unix socket.
//
// The request is told its size beforehand, so that it is built in one segment, and the bytes are copied into
// it once; the service reads them where they arrived. Connections are made by EzRpc, which is the two-party
// network.
#include <capnp/ez-rpc.h>
#include <echo.capnp.h>

#include "bench/support/Contender.h"

namespace accessory::bench {
namespace {

constexpr size_t kWordsBesides = 16;

std::string addressIn(const std::string& folder) { return "unix:" + folder + "/capnp"; }

class EchoServer final : public capnproto::Echo::Server {
  protected:
    kj::Promise<void> take(TakeContext context) override {
        const auto bytes = context.getParams().getBytes().asChars();
        context.getResults(capnp::MessageSize{4, 0}).setAnswer(answerTo(bytes.begin(), bytes.size()));
        return kj::READY_NOW;
    }
};

void serve(const std::string& folder, const Ready& ready) {
    capnp::EzRpcServer server(kj::heap<EchoServer>(), addressIn(folder));
    // The port is known once the socket listens; for a Unix socket it is 0.
    server.getPort().wait(server.getWaitScope());
    ready();
    kj::NEVER_DONE.wait(server.getWaitScope());
}

/// Its members may throw when they go, which a caller may not.
struct Session {
    explicit Session(const std::string& address) : client(address), echo(client.getMain<capnproto::Echo>()) {}

    capnp::EzRpcClient client;
    capnproto::Echo::Client echo;
};

class CapnProtoCaller : public Caller {
  public:
    explicit CapnProtoCaller(const std::string& address) : mSession(std::make_unique<Session>(address)) {}

    uint32_t call(const Payload& payload) override {
        const capnp::MessageSize size{payload.size() / sizeof(capnp::word) + kWordsBesides, 0};
        auto request = mSession->echo.takeRequest(size);
        request.setBytes({reinterpret_cast<const kj::byte*>(payload.data()), payload.size()});
        return request.send().wait(mSession->client.getWaitScope()).getAnswer();
    }

  private:
    const std::unique_ptr<Session> mSession;
};

std::unique_ptr<Caller> connect(const std::string& folder) {
    return std::make_unique<CapnProtoCaller>(addressIn(folder));
}

const ContenderRegistration kCapnProto({"Cap'n Proto", 30, connect, serve});

}  // namespace
}  // namespace accessory::bench
