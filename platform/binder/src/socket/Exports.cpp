#include "Exports.h"

#include <algorithm>
#include <utility>

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
    const auto [known, isNew] = mTokens.try_emplace(object.get());
    if (isNew) {
        known->second = Token(Secret::random());
        mByToken[known->second].object = object;
    }
    const auto entry = mByToken.find(known->second);
    if (int64_t* const count = countLocked(entry->first, &entry->second, holder)) {
        ++*count;
        return entry->first;
    }
    if (isNew) eraseLocked(entry);
    return {};
}

sp<BBinder> Exports::adjust(const Token& token, const PeerId& holder, int64_t change) {
    const std::lock_guard<std::mutex> guard(mLock);
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
    Objects unheld;
    const std::lock_guard<std::mutex> guard(mLock);
    const auto held = mHeld.find(holder);
    if (held == mHeld.end()) return unheld;
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
    held.insert(token);
    return &entry->holders[holder];
}

void Exports::forgetLocked(const Token& token, const PeerId& holder) {
    const auto held = mHeld.find(holder);
    if (held == mHeld.end()) return;
    held->second.erase(token);
    if (held->second.empty()) mHeld.erase(held);
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
