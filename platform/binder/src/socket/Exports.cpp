#include "Exports.h"

#include <algorithm>
#include <new>
#include <utility>

namespace android::runtime {

sp<BBinder> Exports::find(const Token& token) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mByToken.find(token);
    return found != mByToken.end() ? found->second.object : nullptr;
}

Token Exports::lend(const sp<BBinder>& object, const PeerId& holder) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto known = mTokens.find(object.get());
    if (known == mTokens.end()) return enterLocked(object, holder);
    ++mByToken[known->second].holders[holder];
    return known->second;
}

/// In both tables, or, when there is no memory, in neither.
Token Exports::enterLocked(const sp<BBinder>& object, const PeerId& holder) {
    const Token token(Secret::random());
    Export entry{object, {{holder, 1}}};
    const auto named = mTokens.emplace(object.get(), token).first;
    try {
        mByToken.emplace(token, std::move(entry));
    } catch (const std::bad_alloc&) {
        mTokens.erase(named);
        throw;
    }
    return token;
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
    // Room for all first, so that none is lost for want of it half way.
    unheld.reserve(mByToken.size());
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
