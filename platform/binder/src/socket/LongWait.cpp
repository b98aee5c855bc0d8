#include "LongWait.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>

namespace android::runtime {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kUsualSpan{5000};

/// What cannot be read as a number of milliseconds up to a day counts as not said.
milliseconds configuredSpan() {
    constexpr int kDay = 24 * 60 * 60 * 1000;
    const char* const text = std::getenv("BINDER_SLOW_CALL_MS");
    if (text == nullptr) return kUsualSpan;
    const char* const end = text + std::strlen(text);
    int span = 0;
    const auto [parsed, error] = std::from_chars(text, end, span);
    const bool readable = error == std::errc() && parsed == end && span >= 0 && span <= kDay;
    return readable ? milliseconds(span) : kUsualSpan;
}

}  // namespace

milliseconds LongWait::firstSpan() {
    static const milliseconds span = configuredSpan();
    return span;
}

void LongWait::begin(Clock::time_point since) {
    mSince = since;
    mNext = firstSpan().count() != 0 ? firstSpan() : milliseconds::max();
    mTold = false;
}

milliseconds LongWait::untilTelling() const {
    if (mNext == milliseconds::max()) return mNext;
    const auto left = std::chrono::ceil<milliseconds>(mSince + mNext - Clock::now());
    return std::max(left, milliseconds(0));
}

void LongWait::told() {
    mTold = true;
    mNext *= 2;
}

double LongWait::seconds() const { return std::chrono::duration<double>(Clock::now() - mSince).count(); }

}  // namespace android::runtime
