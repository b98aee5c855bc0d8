// A service in the test's own process, so that the test sees what the runtime logs and keeps: whoever speaks
// to it by hand is a peer like any other.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {

/// Answers every call with its own parcel. At its end it is served as it was, and this process has no more
/// descriptors than before.
class OwnService : public testing::Test {
  protected:
    OwnService();
    ~OwnService() override;

    const RawAddress& address() const { return mAddress; }

    /// A call of the service with @p dataSize bytes.
    RawHeader callHeader(uint32_t dataSize = 0) const;
    /// A whole call, sound in every way.
    std::string soundCall() const { return bytesOf(callHeader(4)) + "abcd"; }
    /// Whether @p peer is answered as after a soundCall().
    static bool isAnswered(RawPeer& peer);
    /// Whether a peer that behaves gets an answer.
    bool serves() const;

    /// Whether it is logged that somebody is refused because of @p why.
    bool hasRefused(const std::string& why) const;
    /// Whether @p act, once or again and again, leads to that line; it comes at most once a second.
    template <typename Act>
    testing::AssertionResult leadsTo(const std::string& why, Act act) const {
        return eventually([&] {
            act();
            return hasRefused(why);
        });
    }

    LogCatcher log;

  private:
    int openDescriptorsWhileServing() const;

    const RawAddress mAddress;
    const int mDescriptors;
};

/// What a peer says first.
inline RawHello helloFor(uint32_t kind) {
    RawHello hello;
    hello.kind = kind;
    return hello;
}

inline constexpr uint32_t kLink = 1;
inline constexpr uint32_t kCalls = 2;
inline constexpr uint32_t kOneway = 3;

}  // namespace accessory::test
