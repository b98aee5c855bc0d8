// The transport that needs nothing but Unix sockets.

#include <algorithm>
#include <atomic>
#include <mutex>
#include <unordered_map>

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

    void startThreadPool() override { mNode.workers.start(); }
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
    const std::lock_guard<std::mutex> guard(mLock);
    const Token token = mNode.exports.lend(service, mNode.id);
    if (!token) return NO_MEMORY;
    const status_t status = mDirectory.publish(name, {mNode.id, token});
    if (status != NO_ERROR) {
        withdraw(token);
        return status;
    }
    const auto [published, isNew] = mPublished.try_emplace(name, token);
    if (!isNew) withdraw(published->second);
    published->second = token;
    return NO_ERROR;
}

void SocketTransport::withdraw(const Token& token) {
    sp<BBinder> unheld = mNode.exports.adjust(token, mNode.id, -1);
    if (unheld != nullptr) mNode.letGo({std::move(unheld)});
}

sp<IBinder> SocketTransport::find(const std::string& name, std::chrono::milliseconds patience) {
    sp<IBinder> service = findNow(name);
    if (service != nullptr || patience.count() == 0) return service;
    mDirectory.waitUntil(std::chrono::steady_clock::now() + patience, [&] {
        service = findNow(name);
        return service != nullptr;
    });
    return service;
}

sp<IBinder> SocketTransport::findNow(const std::string& name) {
    ServiceEntry entry;
    if (!mDirectory.read(name, &entry)) return nullptr;
    if (entry.owner == mNode.id) return mNode.exports.find(entry.token);
    return mNode.peers.get(entry.owner)->acquire(entry.token);
}

std::vector<std::string> SocketTransport::names() {
    std::vector<std::string> names = mDirectory.names();
    const auto isDead = [this](const std::string& name) {
        ServiceEntry entry;
        return !mDirectory.read(name, &entry) ||
               (entry.owner != mNode.id && !mDirectory.isAlive(entry.owner));
    };
    names.erase(std::remove_if(names.begin(), names.end(), isDead), names.end());
    return names;
}

}  // namespace

Transport& Transport::instance() {
    Node::instance();  // refuses in a forked child
    static auto* const transport = new SocketTransport();
    return *transport;
}

bool Transport::isRunning() { return gRunning; }

}  // namespace android::runtime
