// Sides: which classes stand on the serving side of each of the five interfaces.
#pragma once

#include <accessory/IAccessoryManager.h>
#include <accessory/IAppleUSBAudioManager.h>
#include <accessory/IAppleUSBAudioManagerNotifier.h>
#include <accessory/IAppleiAP2Manager.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>

namespace accessory::testkit {

/// The serving side of one interface.
/// @tparam ItsStub           hands requests to the implementation.
/// @tparam ItsImplementation what a service, or a client for its events, implements.
/// @tparam registers         whether the interface begins with setNotifier().
template <typename ItsStub, typename ItsImplementation, bool registers>
struct ServingSide {
    using Stub = ItsStub;                          ///< hands requests to the implementation
    using Implementation = ItsImplementation;      ///< what is implemented
    static constexpr bool kRegisters = registers;  ///< whether the interface begins with setNotifier()
};

/// @name Serving sides
/// @{

/// The serving side of an interface.
template <typename Interface>
struct Sides;
template <>
struct Sides<IAccessoryManager> : ServingSide<BnAccessoryManager, AccessoryManagerImplItf, false> {};
template <>
struct Sides<IAppleiAP2Manager> : ServingSide<BnAppleiAP2Manager, AppleiAP2ManagerImplItf, true> {};
template <>
struct Sides<IAppleiAP2ManagerNotifier>
    : ServingSide<BnAppleiAP2ManagerNotifier, AppleiAP2ManagerNotifierImplItf, false> {};
template <>
struct Sides<IAppleUSBAudioManager> : ServingSide<BnAppleUSBAudioManager, AppleUSBAudioManagerImplItf, true> {
};
template <>
struct Sides<IAppleUSBAudioManagerNotifier>
    : ServingSide<BnAppleUSBAudioManagerNotifier, AppleUSBAudioManagerNotifierImplItf, false> {};

/// @}

}  // namespace accessory::testkit
