#include <binder/IInterface.h>

namespace android {

IBinder::IBinder() = default;
IBinder::~IBinder() = default;

sp<IInterface> IBinder::queryLocalInterface(const String16& /*descriptor*/) { return nullptr; }
bool IBinder::checkSubclass(const void* /*subclassID*/) const { return false; }
BBinder* IBinder::localBinder() { return nullptr; }
BpBinder* IBinder::remoteBinder() { return nullptr; }

BpRefBase::BpRefBase(const sp<IBinder>& o) : mRemote(o) {}
BpRefBase::~BpRefBase() = default;

IInterface::IInterface() = default;
IInterface::~IInterface() = default;

sp<IBinder> IInterface::asBinder(const IInterface* interface) {
    return interface != nullptr ? const_cast<IInterface*>(interface)->onAsBinder() : nullptr;
}

sp<IBinder> IInterface::asBinder(const sp<IInterface>& interface) { return asBinder(interface.get()); }

}  // namespace android
