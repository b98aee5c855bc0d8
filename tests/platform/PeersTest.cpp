// Peers from within: what is counted for them when they die, and how they are told apart.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include "socket/Node.h"
#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/support/Eventually.h"

namespace accessory::test {
namespace {

using namespace android;           // NOLINT(google-build-using-namespace): the tests' vocabulary
using namespace android::runtime;  // NOLINT(google-build-using-namespace): so is this

/// A process that this one has met, and that ends when the test says so.
class MetPeer : public testing::Test {
  protected:
    MetPeer() { EXPECT_TRUE(node.prepare()); }

    void end() {
        mProcess.reset();
        EXPECT_TRUE(eventually([this] { return peer->isDead() && node.peers.get(id) != peer; }));
    }

    static PeerId idOf(const RawId& id) { return PeerId(Secret{id.high, id.low}); }

    Node& node = Node::instance();

  private:
    std::unique_ptr<DeafService> mProcess = std::make_unique<DeafService>(8);

  protected:
    const PeerId id = idOf(RawAddress::of(mProcess->name()).owner);
    const std::shared_ptr<Peer> peer = node.peers.get(id);
};

TEST_F(MetPeer, HasNoReferencesTakenFromItThatItsDeathHasTakenAlready) {
    const PeerId other(Secret::random());
    const sp<BBinder> object = new BBinder;
    const Token token = node.exports.lend(object, other);
    Token lent;
    ASSERT_EQ(NO_ERROR, peer->lend(object, &lent));
    ASSERT_EQ(token, lent);
    end();
    peer->takeBack(lent);
    EXPECT_EQ(nullptr, node.exports.adjust(token, id, 1));
    EXPECT_EQ(nullptr, node.exports.adjust(token, other, -1)) << "a later process of that name holds it";
    EXPECT_EQ(object, node.exports.adjust(token, id, -1));
}

TEST_F(MetPeer, TellsOfItsDeathOnTheNoticeThreadOnly) {
    const Token token(Secret{1, 2});
    const sp<IBinder> proxy = peer->receive(token);
    const sp<Recipient> recipient = new Recipient;
    ASSERT_EQ(NO_ERROR, proxy->linkToDeath(recipient));
    Gate gate;
    node.notices.post("a test", [&] { gate.pass(); });
    EXPECT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    end();
    EXPECT_EQ(proxy, peer->receive(token));
    EXPECT_EQ(0, recipient->notices());
    gate.open();
    EXPECT_TRUE(recipient->isTold());
}

TEST(SecretHash, SpreadsSecretsThatAreAlikeInOneHalf) {
    std::unordered_set<size_t> ofLow;
    std::unordered_set<size_t> ofHigh;
    for (uint64_t i = 0; i < 1000; ++i) {
        ofLow.insert(SecretHash()(Secret{i, 5}) % 1031);
        ofHigh.insert(SecretHash()(Secret{5, i * 1031}) % 1031);
    }
    EXPECT_LT(400u, ofLow.size());
    EXPECT_LT(400u, ofHigh.size());
}

// Whoever finds a name behind which nobody listens takes its process for dead.
TEST(SocketFolder, ShowsANameOnlyWhenSomebodyListensThere) {
    const SocketFolder folder(std::getenv("BINDER_RUNTIME_DIR"));
    std::vector<std::string> names(300);
    for (std::string& name : names)
        name = Secret::random().toString();
    std::atomic<int> refused{0};
    std::thread caller([&] {
        for (const std::string& name : names) {
            while (!folder.connect(name, false).isOpen())
                refused += errno == ENOENT ? 0 : 1;
        }
    });
    std::vector<RuntimeFd> doors;
    for (const std::string& name : names)
        doors.push_back(folder.listen(name, S_IRWXU));
    caller.join();
    EXPECT_EQ(0, refused);
}

}  // namespace
}  // namespace accessory::test
