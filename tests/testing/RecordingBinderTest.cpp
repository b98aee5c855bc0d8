// RecordingBinder: what it keeps of a call, how it fails one, and its death.
#include <accessory/testing/MockAccessoryManager.h>
#include <accessory/testing/RecordingBinder.h>
#include <binder/Parcel.h>

namespace accessory::testkit {
namespace {

using android::DEAD_OBJECT;
using android::IBinder;
using android::sp;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;
using testing::SizeIs;
using testing::StrictMock;

constexpr uint32_t kGetDeviceCount = 1;
constexpr uint32_t kGetFeature = 2;

/// The token of IAccessoryManager: policy, work source, 26 units of UTF-16 with their NUL.
const Words kToken = {0x80000000, 0xffffffff, 26,         0x00630061, 0x00650063, 0x00730073,
                      0x0072006f, 0x002e0079, 0x00630041, 0x00650063, 0x00730073, 0x0072006f,
                      0x004d0079, 0x006e0061, 0x00670061, 0x00720065, 0x00000000};

Words requestOf(const Words& arguments) {
    Words words = kToken;
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

/// Counts its calls.
class Mourner : public IBinder::DeathRecipient {
  public:
    void binderDied(const android::wp<IBinder>& who) override {
        ++notices;
        last = who;
    }
    int notices = 0;
    android::wp<IBinder> last;
};

class Recording : public testing::Test {
  protected:
    const sp<StrictMock<MockAccessoryManagerImpl>> accessories{new StrictMock<MockAccessoryManagerImpl>};
    const sp<RecordingBinder> binder{new RecordingBinder(new BnAccessoryManager(accessories))};
    const sp<IAccessoryManager> manager = IAccessoryManager::asInterface(binder);
    const sp<Mourner> mourner{new Mourner};
};

TEST_F(Recording, MakesAProxyOfAStubInThisProcess) {
    EXPECT_NE(dynamic_cast<BpAccessoryManager*>(manager.get()), nullptr);
    EXPECT_EQ(binder->getInterfaceDescriptor(), IAccessoryManager::descriptor);
}

TEST_F(Recording, KeepsRequestAndReplyWordByWord) {
    EXPECT_CALL(*accessories, getFeature(7)).WillOnce(Return(-3));
    EXPECT_EQ(manager->getFeature(7), -3);
    ASSERT_THAT(binder->transactions(), SizeIs(1));
    const Transaction call = binder->transactions()[0];
    EXPECT_EQ(call.code, kGetFeature);
    EXPECT_EQ(call.flags, 0u);
    EXPECT_EQ(wordsOf(call.request), requestOf({7}));
    EXPECT_EQ(wordsOf(call.reply), (Words{0, 0xfffffffd}));
    EXPECT_EQ(call.status, android::NO_ERROR);
}

TEST_F(Recording, KeepsTheCallsInOrderUntilTheyAreForgotten) {
    EXPECT_CALL(*accessories, getFeature).WillRepeatedly(Return(0));
    EXPECT_CALL(*accessories, getDeviceCount).WillOnce(Return(0));
    manager->getFeature(1);
    manager->getDeviceCount();
    manager->getFeature(2);
    EXPECT_THAT(binder->transactions(), SizeIs(3));
    EXPECT_EQ(binder->transactions()[1].code, kGetDeviceCount);
    ASSERT_THAT(binder->transactions(kGetFeature), SizeIs(2));
    EXPECT_EQ(wordsOf(binder->transactions(kGetFeature)[1].request).back(), 2u);
    binder->forget();
    EXPECT_THAT(binder->transactions(), IsEmpty());
}

TEST_F(Recording, AnswersInPlaceOfTheTargetUntilItIsToldToPassOn) {
    binder->answer(kGetDeviceCount, bytesOf(Words{0, 12}));
    EXPECT_EQ(manager->getDeviceCount(), 12);
    binder->passOn(kGetDeviceCount);
    EXPECT_CALL(*accessories, getDeviceCount).WillOnce(Return(5));
    EXPECT_EQ(manager->getDeviceCount(), 5);
}

TEST_F(Recording, FailsOneOperationAndServesTheOthers) {
    binder->fail(kGetFeature, android::FAILED_TRANSACTION);
    EXPECT_EQ(manager->getFeature(7), 0);
    EXPECT_EQ(binder->transactions()[0].status, android::FAILED_TRANSACTION);
    EXPECT_THAT(binder->transactions()[0].reply, IsEmpty());
    EXPECT_CALL(*accessories, getDeviceCount).WillOnce(Return(5));
    EXPECT_EQ(manager->getDeviceCount(), 5);
}

TEST_F(Recording, DiesOnceForEveryRecipientThatIsStillLinked) {
    const sp<Mourner> unlinked = new Mourner;
    EXPECT_EQ(binder->linkToDeath(mourner), android::NO_ERROR);
    EXPECT_EQ(binder->linkToDeath(unlinked), android::NO_ERROR);
    EXPECT_EQ(binder->unlinkToDeath(unlinked), android::NO_ERROR);
    EXPECT_EQ(binder->unlinkToDeath(unlinked), android::NAME_NOT_FOUND);
    EXPECT_TRUE(binder->isBinderAlive());
    binder->die();
    binder->die();
    EXPECT_EQ(mourner->notices, 1);
    EXPECT_EQ(mourner->last, android::wp<IBinder>(binder));
    EXPECT_EQ(unlinked->notices, 0);
}

TEST_F(Recording, ReachesNobodyOnceItIsDead) {
    binder->die();
    EXPECT_FALSE(binder->isBinderAlive());
    EXPECT_EQ(binder->pingBinder(), DEAD_OBJECT);
    EXPECT_EQ(binder->linkToDeath(mourner), DEAD_OBJECT);
    EXPECT_EQ(binder->unlinkToDeath(mourner), DEAD_OBJECT);
    EXPECT_EQ(binder->dump(1, {}), DEAD_OBJECT);
    EXPECT_EQ(manager->getDeviceCount(), 0);
    EXPECT_EQ(binder->transactions()[0].status, DEAD_OBJECT);
}

TEST_F(Recording, DiesWithinACallWhoseAnswerIsLost) {
    binder->linkToDeath(mourner);
    binder->dieIn(kGetFeature);
    EXPECT_CALL(*accessories, getFeature(7)).WillOnce(Return(9));
    EXPECT_EQ(manager->getFeature(7), 0);
    EXPECT_EQ(binder->transactions()[0].status, DEAD_OBJECT);
    EXPECT_THAT(binder->transactions()[0].reply, IsEmpty());
    EXPECT_EQ(mourner->notices, 1);
}

TEST_F(Recording, FindsALinkByItsCookie) {
    int cookie = 0;
    android::wp<IBinder::DeathRecipient> taken;
    binder->linkToDeath(mourner, &cookie);
    EXPECT_EQ(binder->unlinkToDeath(nullptr, &cookie, 0, &taken), android::NO_ERROR);
    EXPECT_EQ(taken.promote(), mourner);
}

TEST_F(Recording, KeepsRecipientsWeakly) {
    android::wp<Mourner> weak;
    {
        const sp<Mourner> brief = new Mourner;
        weak = brief;
        binder->linkToDeath(brief);
    }
    EXPECT_EQ(weak.promote(), nullptr);
    binder->die();
}

TEST(RecordingBinder, AnswersByHandWhereThereIsNoTarget) {
    const sp<RecordingBinder> binder = new RecordingBinder;
    const sp<IAccessoryManager> manager = IAccessoryManager::asInterface(binder);
    EXPECT_EQ(manager->getDeviceCount(), 0);
    EXPECT_EQ(binder->transactions()[0].status, android::UNKNOWN_TRANSACTION);
    binder->answer(kGetDeviceCount, bytesOf(Words{0, 3}));
    EXPECT_EQ(manager->getDeviceCount(), 3);
}

TEST(Transactions, AreShownInWords) {
    const Transaction call{5, 1, bytesOf(Words{7, 0x80000000}), {}, -32};
    EXPECT_EQ(testing::PrintToString(call),
              "code 5, flags 1, request 00000007 80000000; status -32, reply nothing");
    EXPECT_THAT(wordsOf({1, 0, 0, 0, 2}), ElementsAre(1, 2));
}

}  // namespace
}  // namespace accessory::testkit
