// An implementation that writes into what it is given: the stub still frees its own buffers, once each.
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;

/// Puts its own memory into every place that holds the stub's. The sanitizers see what is freed.
class Tamperer : public Recorder {
  public:
    int fileTransferSetup(unsigned int, FileTransferSetup* setup) override {
        setup->buffer = mOwn;
        setup->bufferLength = 0xffffffff;
        return 1;
    }
    int AppDiscoveryUpdate(unsigned int, unsigned int, AppleAppList* list1, unsigned short count1,
                           unsigned int, AppleAppList*, unsigned short) override {
        for (unsigned short i = 0; i < count1; ++i) {
            list1[i].buffer = i % 2 == 0 ? mOwn : nullptr;
            list1[i].bufferLength = 0xffffffff;
        }
        return 2;
    }
    int DestinationInformation(unsigned int, const DestinationInfo* info) override {
        auto* mine = const_cast<DestinationInfo*>(info);
        mine->points = reinterpret_cast<DestinationInfo::Point*>(mOwn);
        mine->pointCount = 0xffffffff;
        return 3;
    }
    int CommunicationsUpdate(unsigned int, CommunicationsUpdateParam* param) override {
        *param = {};
        param->field4 = mOwn;
        return 4;
    }

  private:
    char mOwn[8] = {};
};

TEST(Tampering, LeavesTheStubsBuffersAlone) {
    const sp<BnAppleiAP2ManagerNotifier> stub = new BnAppleiAP2ManagerNotifier(new Tamperer);
    const Bytes element = parcel({i32(2), cstr("a"), cstr("b"), i32(3), i32(4), i32(5)});
    EXPECT_EQ(ask(*stub, 23, request(parcel({i32(7), repeated(8, i32(1)), i32(4), i32(5)}))), answered(1));
    EXPECT_EQ(ask(*stub, 36, request(parcel({i32(7), i32(1), i32(2), i32(1), element, element, i32(2)}))),
              answered(2));
    EXPECT_EQ(ask(*stub, 43, request(parcel({i32(7), i32(0x10), i32(1), i64(5)}))), answered(3));
    EXPECT_EQ(ask(*stub, 39, request(parcel({i32(7), i32(1), i32(5)}))), answered(4));
}

}  // namespace
}  // namespace accessory::test
