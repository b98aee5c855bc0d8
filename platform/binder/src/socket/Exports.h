// The objects of this process that others hold.
#pragma once

#include <binder/Binder.h>

#include <cstdint>
#include <mutex>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Identity.h"

namespace android::runtime {

/// Keeps a lent object alive as long as any process holds a reference to it, and finds it when they call.
///
/// References are counted per holder, and a count may be negative for a while: a holder that got the object
/// from a third process can give it back before word of the passing-on arrives here. Only the holders with
/// more than zero keep the object.
///
/// A holder has references to so many different objects at most, see Limits.h.
///
/// Changes wait for memory, up to a few seconds: a count that is wrong is one that nobody could be told of.
///
/// mLock is a leaf; objects are released outside it, by whoever called.
class Exports {
  public:
    using Objects = std::vector<sp<BBinder>>;

    /// The object a token was handed out for, or null.
    sp<BBinder> find(const Token& token);

    /// Counts one reference for @p holder. @return the object's token, the same as long as it is lent; none
    /// when the holder has too many others.
    Token lend(const sp<BBinder>& object, const PeerId& holder);

    /// Adds @p change to the references of @p holder. Unknown tokens are ignored: what they named is gone. So
    /// is a change that would give a holder too many objects.
    /// @return the object when nobody holds it any more, to be released by the caller.
    sp<BBinder> adjust(const Token& token, const PeerId& holder, int64_t change);

    /// Forgets a process that has ended. @return the objects that nobody holds any more.
    Objects dropHolder(const PeerId& holder);

    /// Whether there is anything that is counted for @p holder.
    bool isHolder(const PeerId& holder);

    /// How many objects are lent.
    size_t size();

  private:
    struct Export {
        sp<BBinder> object;
        std::unordered_map<PeerId, int64_t, SecretHash> holders;
    };
    using Table = std::unordered_map<Token, Export, SecretHash>;

    static bool isHeld(const Export& entry);
    Table::iterator enterLocked(const sp<BBinder>& object);
    sp<BBinder> adjustLocked(const Token& token, const PeerId& holder, int64_t change);
    Objects dropHolderLocked(const PeerId& holder);
    int64_t* countLocked(const Token& token, Export* entry, const PeerId& holder);
    void forgetLocked(const Token& token, const PeerId& holder);
    sp<BBinder> eraseLocked(Table::iterator entry);

    std::mutex mLock;
    Table mByToken;
    std::unordered_map<const BBinder*, Token> mTokens;
    std::unordered_map<PeerId, std::unordered_set<Token, SecretHash>, SecretHash> mHeld;  // by holder
};

}  // namespace android::runtime
