// The shape of the public classes that other binaries are compiled against: order of the virtual functions,
// bases, fields, return types.
#include <accessory/IAccessoryManager.h>
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>
#include <utility>

namespace accessory::test {
namespace {

using android::sp;
using android::String8;

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

/// What the stub is to consist of.
class StubFields : public android::BnInterface<IAccessoryManager> {
    using Recipient = sp<AccessoryManagerNotifierDeathRecipient>;

    sp<AccessoryManagerImplItf> mImpl;
    android::SortedVector<android::key_value_pair_t<unsigned int, Recipient>> mNotifierDeathRecipients;
};

TEST(IAccessoryManager, HasItsOperationsInTheOrderOfTheInterface) {
    const size_t first = slotOf(&IAccessoryManager::getDeviceCount);
    EXPECT_EQ(slotOf(&IAccessoryManager::getFeature), first + 1);
    EXPECT_EQ(slotOf(&IAccessoryManager::getPath), first + 2);
    EXPECT_EQ(slotOf(&IAccessoryManager::getAccessoryId), first + 3);
}

TEST(IAccessoryManager, HasItsOperationsBehindTheDescriptorsGetter) {
    EXPECT_EQ(slotOf(&IAccessoryManager::getInterfaceDescriptor) + 1,
              slotOf(&IAccessoryManager::getDeviceCount));
}

TEST(IAccessoryManager, ReturnsInt32ValuesAndTheStringItself) {
    static_assert(
        std::is_same_v<decltype(&IAccessoryManager::getDeviceCount), int32_t (IAccessoryManager::*)()>);
    static_assert(std::is_same_v<decltype(&IAccessoryManager::getFeature),
                                 int32_t (IAccessoryManager::*)(unsigned int)>);
    static_assert(
        std::is_same_v<decltype(&IAccessoryManager::getPath), String8 (IAccessoryManager::*)(unsigned int)>);
    static_assert(std::is_same_v<decltype(&IAccessoryManager::getAccessoryId),
                                 int32_t (IAccessoryManager::*)(const String8&)>);
    static_assert(std::is_abstract_v<IAccessoryManager>);
}

TEST(AccessoryManagerImplItf, HasTheDestructorBetweenTheOperationsAndTheDump) {
    EXPECT_EQ(slotOf(&AccessoryManagerImplItf::getDeviceCount), 0u);
    EXPECT_EQ(slotOf(&AccessoryManagerImplItf::getFeature), 1u);
    EXPECT_EQ(slotOf(&AccessoryManagerImplItf::getPath), 2u);
    EXPECT_EQ(slotOf(&AccessoryManagerImplItf::getAccessoryId), 3u);
    // A destructor takes two places: one destroys, the other deletes as well.
    EXPECT_EQ(slotOf(&AccessoryManagerImplItf::dump), 6u);
}

TEST(AccessoryManagerImplItf, IsAbstractAndCountedThroughAVirtualBase) {
    static_assert(std::is_abstract_v<AccessoryManagerImplItf>);
    static_assert(kHasVirtualBase<AccessoryManagerImplItf, android::RefBase>);
}

TEST(BnAccessoryManager, HoldsTheImplementationAndTheListAndNothingElse) {
    static_assert(std::is_base_of_v<android::BnInterface<IAccessoryManager>, BnAccessoryManager>);
    static_assert(std::is_constructible_v<BnAccessoryManager, const sp<AccessoryManagerImplItf>&>);
    EXPECT_EQ(sizeof(BnAccessoryManager), sizeof(StubFields));
}

TEST(BpAccessoryManager, IsAProxyMadeOfTheRemoteObjectAlone) {
    static_assert(std::is_base_of_v<android::BpInterface<IAccessoryManager>, BpAccessoryManager>);
    static_assert(std::is_constructible_v<BpAccessoryManager, const sp<android::IBinder>&>);
    EXPECT_EQ(sizeof(BpAccessoryManager), sizeof(android::BpInterface<IAccessoryManager>));
}

TEST(AccessoryManagerNotifierDeathRecipient, IsADeathRecipient) {
    static_assert(
        std::is_base_of_v<android::IBinder::DeathRecipient, AccessoryManagerNotifierDeathRecipient>);
}

}  // namespace
}  // namespace accessory::test
