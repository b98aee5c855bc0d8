// What comes back in a reply besides a status.
#pragma once

#include <cstdint>
#include <tuple>

#include "common/IdList.h"
#include "common/Kinds.h"

namespace accessory::wire::iap2_manager {

/// Application identifiers. The service sends them; the client counts them and stores none: they reach an
/// application by events. For each it logs what its own caller's array holds at that place.
struct AppIds {
    static constexpr const char* kKind = "application identifiers";
    static constexpr bool kAnswers = true;
    using Arguments = std::tuple<const char**, unsigned int*>;

    const char* name = nullptr;
    const char* countName = nullptr;

    static void readReply(Reader& in, const char** appIds, unsigned int* count);

    struct Slot {
        const char* ids[kMostIds] = {};
        unsigned int count = 0;

        Arguments arguments() { return {ids, &count}; }
        void writeReply(Writer& out);
    };
};

/// A number that the operation fills in.
struct OutWord {
    static constexpr const char* kKind = "i32";
    static constexpr bool kAnswers = true;
    using Arguments = std::tuple<int*>;

    const char* name = nullptr;

    static void readReply(Reader& in, int* value) { *value = in.i32(); }

    struct Slot {
        int value = 0;

        Arguments arguments() { return {&value}; }
        void writeReply(Writer& out) { out.i32(value); }
    };
};

/// The answer about a feature: a string without which the request fails.
struct FeatureAnswer {
    static GiveUp write(Writer& out, const char* feature, const char* check);
    /// Kept for the thread until its next question.
    static const char* read(Reader& in);
};

/// The version: a string that may be missing.
struct VersionAnswer {
    static GiveUp write(Writer& out, const char* version, const char* check);
    /// Kept for the thread until its next question.
    static const char* read(Reader& in);
};

constexpr AppIds appIds(const char* name, const char* count) { return {name, count}; }
constexpr OutWord outI32(const char* name) { return {name}; }
constexpr IdList accessoryIds(const char* name, const char* count) { return {name, count}; }

}  // namespace accessory::wire::iap2_manager
