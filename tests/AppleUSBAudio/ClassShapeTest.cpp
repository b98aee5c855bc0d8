// The shape of the public classes that other binaries are compiled against: order of the virtual functions,
// bases, types.
#include <accessory/IAppleUSBAudioManager.h>
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

namespace accessory::test {
namespace {

using android::sp;

/// The place of a virtual function in the table of its class: the Itanium ABI keeps it as a byte offset in a
/// pointer to member, plus 1 on most machines.
template <typename Member>
size_t slotOf(Member member) {
    uintptr_t place = 0;
    static_assert(sizeof(member) == 2 * sizeof(place));
    std::memcpy(&place, &member, sizeof(place));
    return (place & ~uintptr_t{1}) / sizeof(void*);
}

template <typename Derived, typename Base, typename = void>
inline constexpr bool kHasVirtualBase = std::is_base_of_v<Base, Derived>;
template <typename Derived, typename Base>
inline constexpr bool
    kHasVirtualBase<Derived, Base, std::void_t<decltype(static_cast<Derived*>(std::declval<Base*>()))>> =
        false;

void expectConsecutive(const std::vector<size_t>& slots) {
    for (size_t i = 1; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], slots[0] + i) << "operation " << i;
}

TEST(IAppleUSBAudioManager, HasItsOperationsInTheirOrder) {
    using I = IAppleUSBAudioManager;
    expectConsecutive({slotOf(&I::startup), slotOf(&I::shutdown), slotOf(&I::setNotifier),
                       slotOf(&I::clearNotifier), slotOf(&I::getIds), slotOf(&I::setVolume),
                       slotOf(&I::setSampleRate), slotOf(&I::start), slotOf(&I::stop), slotOf(&I::play),
                       slotOf(&I::pause)});
    EXPECT_EQ(slotOf(&I::getInterfaceDescriptor) + 1, slotOf(&I::startup));
}

TEST(IAppleUSBAudioManager, ReturnsStatuses) {
    using I = IAppleUSBAudioManager;
    EXPECT_TRUE((
        std::is_same_v<decltype(&I::setNotifier), int32_t (I::*)(const sp<IAppleUSBAudioManagerNotifier>&)>));
    EXPECT_TRUE((std::is_same_v<decltype(&I::getIds), int32_t (I::*)(unsigned int*, unsigned int*)>));
    EXPECT_TRUE((std::is_same_v<decltype(&I::setVolume), int32_t (I::*)(unsigned int, unsigned int)>));
    EXPECT_TRUE(std::is_abstract_v<I>);
}

TEST(IAppleUSBAudioManagerNotifier, HasAttachBeforeDetach) {
    using I = IAppleUSBAudioManagerNotifier;
    expectConsecutive({slotOf(&I::getInterfaceDescriptor), slotOf(&I::attach), slotOf(&I::detach)});
    EXPECT_TRUE((std::is_same_v<decltype(&I::detach), int32_t (I::*)(unsigned int)>));
}

TEST(AppleUSBAudioManagerNotifierItf, HasAttachBeforeDetach) {
    using I = AppleUSBAudioManagerNotifierItf;
    expectConsecutive({slotOf(&I::attach), slotOf(&I::detach)});
    EXPECT_TRUE((kHasVirtualBase<I, android::RefBase>));
    EXPECT_TRUE((kHasVirtualBase<AppleUSBAudioManagerNotifier, I>));
}

TEST(AppleUSBAudioManagerNotifierImplItf, HasAttachBeforeDetach) {
    using I = AppleUSBAudioManagerNotifierImplItf;
    expectConsecutive({slotOf(&I::attach), slotOf(&I::detach)});
    EXPECT_TRUE((kHasVirtualBase<I, android::RefBase>));
}

TEST(AppleUSBAudioManagerImplItf, IsAbstractAndCountedThroughAVirtualBase) {
    EXPECT_TRUE(std::is_abstract_v<AppleUSBAudioManagerImplItf>);
    EXPECT_TRUE((kHasVirtualBase<AppleUSBAudioManagerImplItf, android::RefBase>));
}

TEST(AppleUSBAudioClasses, DeriveFromThePlatformsBases) {
    EXPECT_TRUE((std::is_base_of_v<android::BnInterface<IAppleUSBAudioManager>, BnAppleUSBAudioManager>));
    EXPECT_TRUE((std::is_base_of_v<android::BpInterface<IAppleUSBAudioManager>, BpAppleUSBAudioManager>));
    EXPECT_TRUE((std::is_base_of_v<android::IBinder::DeathRecipient, AppleUSBAudioNotifierDeathRecipient>));
    EXPECT_EQ(sizeof(BpAppleUSBAudioManagerNotifier),
              sizeof(android::BpInterface<IAppleUSBAudioManagerNotifier>));
}

}  // namespace
}  // namespace accessory::test
