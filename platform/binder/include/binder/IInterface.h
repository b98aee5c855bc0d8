// What a typed remote interface is made of: the interface, its proxy base BpInterface and its stub base
// BnInterface, and the macros that give an interface its descriptor.
#pragma once

#include <binder/Binder.h>

namespace android {

/// Base of every typed interface.
class BINDER_EXPORT IInterface : public virtual RefBase {
  public:
    IInterface();

    /// @name The binder
    /// @{

    /// The binder behind a stub or a proxy; null for null.
    static sp<IBinder> asBinder(const IInterface* interface);
    static sp<IBinder> asBinder(const sp<IInterface>& interface);

    /// @}

  protected:
    ~IInterface() override;
    /// What asBinder() gives; borrowed.
    virtual IBinder* onAsBinder() = 0;
};

/// The typed view of @p obj: the object itself when it lives here, else a proxy; null for null.
template <typename INTERFACE>
inline sp<INTERFACE> interface_cast(const sp<IBinder>& obj) {
    return INTERFACE::asInterface(obj);
}

/// Base of a stub.
template <typename INTERFACE>
class BnInterface : public INTERFACE, public BBinder {
  public:
    sp<IInterface> queryLocalInterface(const String16& descriptor) override {
        const String16& own = INTERFACE::descriptor;
        const bool same = strzcmp16(descriptor.string(), descriptor.size(), own.string(), own.size()) == 0;
        return same ? sp<IInterface>(this) : nullptr;
    }
    const String16& getInterfaceDescriptor() const override { return INTERFACE::getInterfaceDescriptor(); }

  protected:
    using BaseInterface = INTERFACE;                 ///< the interface itself
    IBinder* onAsBinder() override { return this; }  ///< this object
};

/// Base of a proxy.
template <typename INTERFACE>
class BpInterface : public INTERFACE, public BpRefBase {
  public:
    /// @param remote the object behind the proxy; held as long as the proxy lives.
    explicit BpInterface(const sp<IBinder>& remote) : BpRefBase(remote) {}

  protected:
    using BaseInterface = INTERFACE;                     ///< the interface itself
    IBinder* onAsBinder() override { return remote(); }  ///< the object behind the proxy
};

}  // namespace android

/// Inside class I<INTERFACE>: the descriptor and the functions that go with it.
#define DECLARE_META_INTERFACE(INTERFACE)                                                         \
  public:                                                                                         \
    static const ::android::String16 descriptor;                                                  \
    static ::android::sp<I##INTERFACE> asInterface(const ::android::sp<::android::IBinder>& obj); \
    virtual const ::android::String16& getInterfaceDescriptor() const;                            \
    I##INTERFACE();                                                                               \
    virtual ~I##INTERFACE();

/// In one source file, in the interface's namespace, where Bp<INTERFACE> is complete.
#define IMPLEMENT_META_INTERFACE(INTERFACE, NAME)                                                         \
    const ::android::String16 I##INTERFACE::descriptor(NAME);                                             \
    const ::android::String16& I##INTERFACE::getInterfaceDescriptor() const {                             \
        return I##INTERFACE::descriptor;                                                                  \
    }                                                                                                     \
    ::android::sp<I##INTERFACE> I##INTERFACE::asInterface(const ::android::sp<::android::IBinder>& obj) { \
        if (obj == nullptr) return nullptr;                                                               \
        const ::android::sp<::android::IInterface> local = obj->queryLocalInterface(descriptor);          \
        if (local != nullptr) return static_cast<I##INTERFACE*>(local.get());                             \
        return new Bp##INTERFACE(obj);                                                                    \
    }                                                                                                     \
    I##INTERFACE::I##INTERFACE() {}                                                                       \
    I##INTERFACE::~I##INTERFACE() {}

/// First line of a stub's case: leaves onTransact() when the request was meant for another interface.
#define CHECK_INTERFACE(interface, data, reply)                                \
    do {                                                                       \
        if (!(data).checkInterface(this)) return ::android::PERMISSION_DENIED; \
    } while (false)
