#include "Exports.h"

#include <algorithm>
#include <utility>

#include "../OutOfMemory.h"
#include "Limits.h"

namespace android::runtime {

namespace {

/// More than anybody counts to, and few enough that no flood of claims overflows.
constexpr int64_t kMostReferences = int64_t{1} << 40;

}  // namespace

sp<BBinder> Exports::find(const Token& token) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mByToken.find(token);
    return found != mByToken.end() ? found->second.object : nullptr;
}

Token Exports::lend(const sp<BBinder>& object, const PeerId& holder) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto known = mTokens.find(object.get());
    const auto entry = known != mTokens.end() ? mByToken.find(known->second) : enterLocked(object);
    const auto eraseNew = [&] {
        if (entry->second.holders.empty()) eraseLocked(entry);
    };
    int64_t* const count =
        elseUndo([&] { return countLocked(entry->first, &entry->second, holder); }, eraseNew);
    if (count != nullptr) {
        ++*count;
        return entry->first;
    }
    eraseNew();
    return {};
}

/// In both tables, or, when there is no memory, in neither.
Exports::Table::iterator Exports::enterLocked(const sp<BBinder>& object) {
    const Token token(Secret::random());
    const auto named = mTokens.emplace(object.get(), token).first;
    return elseUndo(
        [&] {
            return mByToken.emplace(token, Export{object, {}}).first;
        },
        [&] { mTokens.erase(named); });
}

sp<BBinder> Exports::adjust(const Token& token, const PeerId& holder, int64_t change) {
    return patiently([&] {
        const std::lock_guard<std::mutex> guard(mLock);
        return adjustLocked(token, holder, change);
    });
}

sp<BBinder> Exports::adjustLocked(const Token& token, const PeerId& holder, int64_t change) {
    const auto entry = mByToken.find(token);
    if (entry == mByToken.end()) return nullptr;
    int64_t* const count = countLocked(token, &entry->second, holder);
    if (count == nullptr) return nullptr;
    *count = std::clamp(*count + change, -kMostReferences, kMostReferences);
    if (*count == 0) {
        entry->second.holders.erase(holder);
        forgetLocked(token, holder);
    }
    return isHeld(entry->second) ? nullptr : eraseLocked(entry);
}

Exports::Objects Exports::dropHolder(const PeerId& holder) {
    return patiently([&] {
        const std::lock_guard<std::mutex> guard(mLock);
        return dropHolderLocked(holder);
    });
}

Exports::Objects Exports::dropHolderLocked(const PeerId& holder) {
    Objects unheld;
    const auto held = mHeld.find(holder);
    if (held == mHeld.end()) return unheld;
    // Room for all first, so that none is lost for want of it half way.
    unheld.reserve(held->second.size());
    const auto tokens = std::move(held->second);
    mHeld.erase(held);
    for (const Token& token : tokens) {
        const auto entry = mByToken.find(token);
        entry->second.holders.erase(holder);
        if (!isHeld(entry->second)) unheld.push_back(eraseLocked(entry));
    }
    return unheld;
}

/// The holder's count of references to an object, new or not; null when it has too many objects.
int64_t* Exports::countLocked(const Token& token, Export* entry, const PeerId& holder) {
    const auto known = entry->holders.find(holder);
    if (known != entry->holders.end()) return &known->second;
    auto& held = mHeld[holder];
    if (held.size() >= kMostObjects) return nullptr;
    const auto count = entry->holders.emplace(holder, 0).first;
    elseUndo([&] { held.insert(token); }, [&] { entry->holders.erase(count); });
    return &count->second;
}

void Exports::forgetLocked(const Token& token, const PeerId& holder) {
    const auto held = mHeld.find(holder);
    if (held == mHeld.end()) return;
    held->second.erase(token);
    if (held->second.empty()) mHeld.erase(held);
}

bool Exports::isHolder(const PeerId& holder) {
    const std::lock_guard<std::mutex> guard(mLock);
    return mHeld.count(holder) > 0;
}

size_t Exports::size() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mByToken.size();
}

bool Exports::isHeld(const Export& entry) {
    return std::any_of(entry.holders.begin(), entry.holders.end(),
                       [](const auto& holder) { return holder.second > 0; });
}

sp<BBinder> Exports::eraseLocked(Table::iterator entry) {
    for (const auto& [holder, count] : entry->second.holders)
        forgetLocked(entry->first, holder);
    sp<BBinder> object = std::move(entry->second.object);
    mTokens.erase(object.get());
    mByToken.erase(entry);
    return object;
}

}  // namespace android::runtime
