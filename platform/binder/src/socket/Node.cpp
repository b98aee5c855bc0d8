#include "Node.h"

#include <unistd.h>

#include <cstdlib>
#include <utility>

#include "../Log.h"
#include "../trace/Trace.h"
#include "RuntimeFolder.h"

namespace android::runtime {

namespace {

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
    static Node* const node = [] {
        auto* const made = new Node();
        return made;
    }();
    static const int registered = std::atexit(removeSocket);
    static_cast<void>(registered);
    return *node;
}

Node::Node() : id(Secret::random()), folder(prepareRuntimeFolder(access)), peers(*this), mAcceptor(*this) {
    trace::startIfAsked();
}

sp<IBinder> Node::comeHome(const Token& token, Peer& sender) {
    const sp<BBinder> object = exports.find(token);
    if (object == nullptr) return nullptr;
    sp<BBinder> unheld = exports.adjust(token, sender.homecoming(), -1);
    if (unheld != nullptr) letGo({std::move(unheld)});
    return object;
}

sp<BBinder> Node::credit(const Token& token, const PeerId& beneficiary, int64_t change, Peer& passer) {
    if (beneficiary == id) return exports.adjust(token, passer.homecoming(), change);
    if (exports.find(token) == nullptr) return nullptr;
    sp<BBinder> unheld = exports.adjust(token, beneficiary, change);
    // One that is found dead loses its references at once.
    if (peers.get(beneficiary)->seekLink() || unheld != nullptr) return unheld;
    refusals.tell(passer.credentials(), "it passes objects on to too many that cannot be reached");
    return exports.adjust(token, beneficiary, -change);
}

void Node::letGo(Exports::Objects objects) {
    if (objects.empty()) return;
    notices.post("releasing objects that nobody holds",
                 [objects = std::move(objects)]() mutable { objects.clear(); });
}

}  // namespace android::runtime
