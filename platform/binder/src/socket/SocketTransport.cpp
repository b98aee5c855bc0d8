// The transport that needs nothing but Unix sockets.

#include <algorithm>
#include <atomic>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "../OutOfMemory.h"
#include "../Transport.h"
#include "Node.h"
#include "ServiceDirectory.h"

namespace android::runtime {

namespace {

std::atomic<bool> gRunning{false};

/// mLock orders publications of this process; it is held while a file is written, and before any other lock.
class SocketTransport : public Transport {
  public:
    SocketTransport() : mNode(Node::instance()), mDirectory(mNode.folder, mNode.access.fileMode()) {
        gRunning = true;
    }

    void startThreadPool() override {
        unlessExhausted([this] { return mNode.prepare() ? NO_ERROR : NO_INIT; });
        mNode.startWorkers();
    }
    void setMaxThreads(size_t count) override { mNode.workers.setMaxThreads(count); }
    [[noreturn]] void joinThreadPool() override { mNode.workers.join(); }
    std::string meetingPlace() const override { return mNode.folder.path(); }

    status_t publish(const std::string& name, const sp<BBinder>& service) override;
    sp<IBinder> find(const std::string& name, std::chrono::milliseconds patience) override;
    std::vector<std::string> names() override;

  private:
    sp<IBinder> findNow(const std::string& name);
    void withdraw(const Token& token);

    Node& mNode;
    const ServiceDirectory mDirectory;
    std::mutex mLock;
    std::unordered_map<std::string, Token> mPublished;
};

/// A published object is lent to this process itself, which is how it stays alive.
status_t SocketTransport::publish(const std::string& name, const sp<BBinder>& service) {
    if (!mNode.prepare()) return NO_INIT;
    const std::lock_guard<std::mutex> guard(mLock);
    const auto published = mPublished.try_emplace(name).first;
    const Token token = mNode.exports.lend(service, mNode.id);
    const status_t status = unlessExhausted([&] {
        return token ? mDirectory.publish(name, {mNode.id, token}) : status_t{NO_MEMORY};
    });
    const Token old = status == NO_ERROR ? std::exchange(published->second, token) : token;
    if (old) withdraw(old);
    if (!published->second) mPublished.erase(published);
    return status;
}

void SocketTransport::withdraw(const Token& token) { mNode.letGo(mNode.exports.adjust(token, mNode.id, -1)); }

sp<IBinder> SocketTransport::find(const std::string& name, std::chrono::milliseconds patience) {
    if (!mNode.prepare()) return nullptr;
    if (patience.count() == 0) return findNow(name);
    sp<IBinder> service;
    mDirectory.waitUntil(std::chrono::steady_clock::now() + patience, [&] {
        service = findNow(name);
        return service != nullptr;
    });
    return service;
}

sp<IBinder> SocketTransport::findNow(const std::string& name) {
    ServiceEntry entry;
    if (mDirectory.read(name, &entry) != NO_ERROR) return nullptr;
    if (entry.owner == mNode.id) return mNode.exports.find(entry.token);
    return mNode.peers.get(entry.owner)->acquire(entry.token);
}

std::vector<std::string> SocketTransport::names() {
    if (!mNode.prepare()) return {};
    std::vector<std::string> names = mDirectory.names();
    const auto isDead = [this](const std::string& name) {
        ServiceEntry entry;
        return mDirectory.read(name, &entry) != NO_ERROR ||
               (entry.owner != mNode.id && mDirectory.probe(entry.owner) != NO_ERROR);
    };
    names.erase(std::remove_if(names.begin(), names.end(), isDead), names.end());
    return names;
}

}  // namespace

Transport& Transport::instance() {
    Node::instance();  // refuses in a forked child
    static auto* const transport = patiently([] { return new SocketTransport(); });
    return *transport;
}

bool Transport::isRunning() { return gRunning; }

}  // namespace android::runtime
