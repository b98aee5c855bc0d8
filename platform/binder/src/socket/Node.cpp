#include "Node.h"

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <utility>

#include "../Log.h"
#include "../OutOfMemory.h"
#include "../trace/Trace.h"
#include "RuntimeFolder.h"

namespace android::runtime {

namespace {

/// Other processes recognise a dead one without this; it only keeps the folder tidy.
void removeSocket() {
    // A forked child ends in its own right, and the socket is its parent's; raw clone() calls are not
    // noticed.
    if (RuntimeFd::isForkedChild()) return;
    const Node& node = Node::instance();
    if (getpid() != node.process) return;
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
    static Node* const node = patiently([] {
        RuntimeFd::noticeForks();
        return new Node();
    });
    static const int registered = std::atexit(removeSocket);
    static_cast<void>(registered);
    return *node;
}

/// A process that has no memory to be traced goes on without.
Node::Node() : folder(chooseRuntimeFolder()), peers(*this), departures(*this), mAcceptor(*this) {
    unlessExhausted([] {
        trace::startIfAsked();
        return NO_ERROR;
    });
}

bool Node::prepare() {
    const std::lock_guard<std::mutex> guard(mPreparing);
    return prepareRuntimeFolder(folder.path(), access) && reactor.start() && workers.open() &&
           mAcceptor.open();
}

sp<IBinder> Node::comeHome(const Token& token, Peer& sender) {
    const sp<BBinder> object = exports.find(token);
    if (object == nullptr) return nullptr;
    letGo(exports.adjust(token, sender.homecoming(), -1));
    return object;
}

sp<BBinder> Node::credit(const Token& token, const PeerId& beneficiary, int64_t change, Peer& passer) {
    if (beneficiary == id) return exports.adjust(token, passer.homecoming(), change);
    if (exports.find(token) == nullptr) return nullptr;
    const auto holder = patiently([&] { return peers.get(beneficiary); });
    sp<BBinder> unheld = holder->count(token, change);
    // One that is found dead loses its references at once.
    const bool sought = patiently([&] { return holder->seekLink(); });
    if (sought || unheld != nullptr) return unheld;
    refusals.tell(passer.credentials(), "it passes objects on to too many that cannot be reached");
    return holder->count(token, -change);
}

/// The notice empties what it shares with this function, so that the last reference ends there.
void Node::letGo(Exports::Objects objects) {
    if (objects.empty()) return;
    const auto kept = patiently([&] { return std::make_shared<Exports::Objects>(std::move(objects)); });
    patiently([&] { notices.post("releasing objects that nobody holds", [kept] { kept->clear(); }); });
}

void Node::letGo(sp<BBinder> object) {
    if (object == nullptr) return;
    const auto kept = patiently([&] { return std::make_shared<sp<BBinder>>(std::move(object)); });
    patiently([&] { notices.post("releasing an object that nobody holds", [kept] { *kept = nullptr; }); });
}

void Node::startWorkers() {
    if (!workers.start()) patiently([this] { reactor.after(Reactor::kPause, [this] { startWorkers(); }); });
}

}  // namespace android::runtime
