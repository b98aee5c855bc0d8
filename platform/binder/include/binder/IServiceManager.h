// IServiceManager: finding services by name.
#pragma once

#include <binder/IInterface.h>
#include <utils/Vector.h>

namespace android {

/// Names are not empty, at most 127 characters of the ASCII graphic set, and contain no '/'.
class BINDER_EXPORT IServiceManager : public IInterface {
  public:
    /// @name Dump flags
    /// @{

    /// Accepted as on the platform; this runtime makes no difference between services.
    static const int DUMP_FLAG_PRIORITY_DEFAULT = 1 << 3;
    static const int DUMP_FLAG_PRIORITY_ALL = (1 << 4) - 1;

    /// @}

    /// As checkService(), but waits up to 5 s for the service to appear; an attempt that has begun by then is
    /// not cut off.
    virtual sp<IBinder> getService(const String16& name) const = 0;

    /// The service if it is there now, else null, after up to 5 s at the door of a process that lets nobody
    /// in.
    virtual sp<IBinder> checkService(const String16& name) const = 0;

    /// Publishes @p service and keeps it alive until this process ends or publishes another under the name.
    /// @return NO_ERROR; ALREADY_EXISTS when another live process has the name; BAD_VALUE for an unusable
    ///         name or an object that is not of this process; else why the entry could not be written.
    virtual status_t addService(const String16& name, const sp<IBinder>& service, bool allowIsolated = false,
                                int dumpsysFlags = DUMP_FLAG_PRIORITY_DEFAULT) = 0;

    /// The names of the services whose processes are alive, in ascending order.
    virtual Vector<String16> listServices(int dumpsysFlags = DUMP_FLAG_PRIORITY_ALL) = 0;

    /// The name of the service manager's own interface.
    virtual const String16& getInterfaceDescriptor() const;
};

/// The one service manager of this process; any thread may use it.
BINDER_EXPORT sp<IServiceManager> defaultServiceManager();

/// Finds a service and gives its typed view, waiting up to 5 s.
/// @return NO_ERROR, or NAME_NOT_FOUND with @p outService null.
template <typename INTERFACE>
status_t getService(const String16& name, sp<INTERFACE>* outService) {
    *outService = interface_cast<INTERFACE>(defaultServiceManager()->getService(name));
    return *outService != nullptr ? NO_ERROR : NAME_NOT_FOUND;
}

}  // namespace android
