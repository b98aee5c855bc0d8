// gRPC over a Unix socket, with both of its services for C++: the synchronous one, and the callback one,
// which its performance guide recommends.
//
// Channel, stub and messages are used again; a context cannot be, as its documentation says. The caller
// blocks on its stub, which is what a call of this library does too. Compression is off, as it is by default.
#include <echo.grpc.pb.h>
#include <grpcpp/grpcpp.h>

#include <stdexcept>

#include "bench/support/Contender.h"

namespace accessory::bench {
namespace {

using grpc_echo::Echo;
using grpc_echo::Reply;
using grpc_echo::Request;

void answer(const Request& request, Reply* reply) {
    reply->set_answer(answerTo(request.bytes().data(), request.bytes().size()));
}

class SyncEcho final : public Echo::Service {
    grpc::Status Take(grpc::ServerContext* /*context*/, const Request* request, Reply* reply) override {
        answer(*request, reply);
        return grpc::Status::OK;
    }
};

class CallbackEcho final : public Echo::CallbackService {
    grpc::ServerUnaryReactor* Take(grpc::CallbackServerContext* context, const Request* request,
                                   Reply* reply) override {
        answer(*request, reply);
        auto* const reactor = context->DefaultReactor();
        reactor->Finish(grpc::Status::OK);
        return reactor;
    }
};

template <typename Service>
std::string addressIn(const std::string& folder);
template <>
std::string addressIn<SyncEcho>(const std::string& folder) {
    return "unix:" + folder + "/grpc-sync";
}
template <>
std::string addressIn<CallbackEcho>(const std::string& folder) {
    return "unix:" + folder + "/grpc-callback";
}

template <typename Service>
void serve(const std::string& folder, const Ready& ready) {
    Service service;
    grpc::ServerBuilder builder;
    builder.AddListeningPort(addressIn<Service>(folder), grpc::InsecureServerCredentials());
    builder.RegisterService(&service);
    const auto server = builder.BuildAndStart();
    if (server == nullptr) throw std::runtime_error("the server does not start");
    ready();
    server->Wait();
}

class GrpcCaller : public Caller {
  public:
    explicit GrpcCaller(const std::string& address)
        : mStub(Echo::NewStub(grpc::CreateChannel(address, grpc::InsecureChannelCredentials()))) {}

    uint32_t call(const Payload& payload) override {
        grpc::ClientContext context;
        context.set_wait_for_ready(true);
        mRequest.mutable_bytes()->assign(payload.data(), payload.size());
        const grpc::Status status = mStub->Take(&context, mRequest, &mReply);
        if (!status.ok()) throw std::runtime_error(status.error_message());
        return mReply.answer();
    }

  private:
    const std::unique_ptr<Echo::Stub> mStub;
    Request mRequest;
    Reply mReply;
};

template <typename Service>
std::unique_ptr<Caller> connect(const std::string& folder) {
    return std::make_unique<GrpcCaller>(addressIn<Service>(folder));
}

const ContenderRegistration kSync({"gRPC, sync", 40, connect<SyncEcho>, serve<SyncEcho>});
const ContenderRegistration kCallback({"gRPC, callback", 41, connect<CallbackEcho>, serve<CallbackEcho>});

}  // namespace
}  // namespace accessory::bench
