// Between two processes and within one: what all contenders of the library's share have in common.
#pragma once

#include <binder/IBinder.h>

#include <memory>
#include <string>

#include "bench/support/Contender.h"

namespace accessory::bench {

inline constexpr char kLibraryAcross[] = "library";
inline constexpr char kByHandAcross[] = "by hand";
inline constexpr char kBareAcross[] = "bare transact";
inline constexpr char kLibraryWithin[] = "library, one process";
inline constexpr char kByHandWithin[] = "by hand, one process";
inline constexpr char kBareWithin[] = "bare transact, one process";

/// Of AcceptCall, whose parcel all of them send.
inline constexpr uint32_t kAcceptCallCode = 67;
inline constexpr unsigned int kAccessory = 1;

/// Publishes @p object and serves it until the process is killed.
[[noreturn]] void serveObject(const android::sp<android::IBinder>& object, const std::string& name,
                              const Ready& ready);
/// @throw std::runtime_error when there is none.
android::sp<android::IBinder> objectNamed(const std::string& name);
/// The service of a contender within one process: it has nothing to do.
void serveNothing(const std::string& folder, const Ready& ready);

/// @tparam Kind    a Caller, made of the binder that it calls.
/// @tparam Object  makes the binder: the service's object.
template <typename Kind, android::sp<android::IBinder> (*makeObject)()>
struct Places {
    static void serve(const std::string& /*folder*/, const Ready& ready) {
        serveObject(makeObject(), Kind::kName, ready);
    }
    static std::unique_ptr<Caller> connectAcross(const std::string& /*folder*/) {
        return std::make_unique<Kind>(objectNamed(Kind::kName));
    }
    static std::unique_ptr<Caller> connectWithin(const std::string& /*folder*/) {
        return std::make_unique<Kind>(makeObject());
    }
};

}  // namespace accessory::bench
