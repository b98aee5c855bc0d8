#include "Node.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "RuntimeFolder.h"

namespace android::runtime {

namespace {

/// How long to wait for descriptors when there are none to reach a process with.
constexpr std::chrono::milliseconds kPause{50};

/// Holds the references of objects that are on their way back to this process, so that the sender's own
/// reference may end before they arrive.
const PeerId& homecoming() {
    static const auto* const holder = new PeerId(Secret::random());
    return *holder;
}

/// Other processes recognise a dead one without this; it only keeps the folder tidy.
void removeSocket() {
    // A forked child ends in its own right, and the socket is its parent's.
    if (RuntimeFd::isForkedChild()) return;
    const Node& node = Node::instance();
    unlink(node.folder.pathOf(node.id.toString()).c_str());
}

[[noreturn]] void refuseForkedChild() {
    __android_log_print(ANDROID_LOG_FATAL, "Binder",
                        "process %d was forked off from one that had used Binder; it may only exec. Fork "
                        "before the first use, or start the child with posix_spawn.",
                        getpid());
    abort();
}

}  // namespace

Node& Node::instance() {
    if (RuntimeFd::isForkedChild()) refuseForkedChild();
    static Node* const node = patiently([] { return new Node(); });
    static const int registered = std::atexit(removeSocket);
    static_cast<void>(registered);
    return *node;
}

Node::Node()
    : folder(chooseRuntimeFolder()),
      peers(*this),
      notices([this] { patiently([this] { reactor.after(kPause, [this] { notices.ensureRunning(); }); }); }),
      mAcceptor(*this) {}

bool Node::prepare() {
    const std::lock_guard<std::mutex> guard(mPreparing);
    return prepareRuntimeFolder(folder.path(), access) && reactor.start() && workers.open() &&
           mAcceptor.open();
}

sp<IBinder> Node::comeHome(const Token& token) {
    const sp<BBinder> object = exports.find(token);
    if (object == nullptr) return nullptr;
    letGo(patiently([&] { return exports.adjust(token, homecoming(), -1); }));
    return object;
}

sp<BBinder> Node::credit(const Token& token, const PeerId& beneficiary, int64_t change) {
    const PeerId& holder = beneficiary == id ? homecoming() : beneficiary;
    sp<BBinder> unheld = patiently([&] { return exports.adjust(token, holder, change); });
    // Connecting may wait, which the reactor must not.
    if (beneficiary != id) notify([this, beneficiary] { watchOver(beneficiary); });
    return unheld;
}

void Node::watchOver(const PeerId& holder) {
    const std::shared_ptr<Peer> peer = patiently([&] { return peers.get(holder); });
    // One that is found dead loses its references at once.
    if (patiently([&] { return peer->ensureLinked(); }) || peer->isDead()) return;
    patiently(
        [&] { reactor.after(kPause, [this, holder] { notify([this, holder] { watchOver(holder); }); }); });
}

/// The notice empties what it shares with this function, so that the last reference ends there.
void Node::letGo(Exports::Objects objects) {
    if (objects.empty()) return;
    const auto kept = patiently([&] { return std::make_shared<Exports::Objects>(std::move(objects)); });
    patiently([&] { notices.post([kept] { kept->clear(); }); });
}

void Node::letGo(sp<BBinder> object) {
    if (object == nullptr) return;
    const auto kept = patiently([&] { return std::make_shared<sp<BBinder>>(std::move(object)); });
    patiently([&] { notices.post([kept] { *kept = nullptr; }); });
}

void Node::startWorkers() {
    if (!workers.start()) patiently([this] { reactor.after(kPause, [this] { startWorkers(); }); });
}

}  // namespace android::runtime
