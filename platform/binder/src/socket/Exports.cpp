#include "Exports.h"

#include <algorithm>
#include <utility>

namespace android::runtime {

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
    ++mByToken[known->second].holders[holder];
    return known->second;
}

sp<BBinder> Exports::adjust(const Token& token, const PeerId& holder, int64_t change) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto entry = mByToken.find(token);
    if (entry == mByToken.end()) return nullptr;
    auto& holders = entry->second.holders;
    int64_t& count = holders[holder];
    count += change;
    if (count == 0) holders.erase(holder);
    return isHeld(entry->second) ? nullptr : eraseLocked(entry);
}

Exports::Objects Exports::dropHolder(const PeerId& holder) {
    Objects unheld;
    const std::lock_guard<std::mutex> guard(mLock);
    for (auto entry = mByToken.begin(); entry != mByToken.end();) {
        const auto current = entry++;
        if (current->second.holders.erase(holder) > 0 && !isHeld(current->second)) {
            unheld.push_back(eraseLocked(current));
        }
    }
    return unheld;
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
    sp<BBinder> object = std::move(entry->second.object);
    mTokens.erase(object.get());
    mByToken.erase(entry);
    return object;
}

}  // namespace android::runtime
