// A number that changes whenever what travels does: made of every transaction's row and every record's table.
//
// Two sides with the same number understand each other; captures carry it, so that who reads one knows
// whether his tables are those of the program that wrote it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>

#include "AccessoryManager/AccessoryManagerRows.h"
#include "AppleUSBAudio/USBAudioRows.h"
#include "AppleiAP2/manager/ManagerRows.h"
#include "AppleiAP2/notifier/NotifierRows.h"
#include "AppleiAP2/records/LaneList.h"
#include "AppleiAP2/records/MediaLibraryTables.h"
#include "AppleiAP2/records/NowPlayingTables.h"
#include "AppleiAP2/records/PowerTables.h"
#include "AppleiAP2/records/RouteGuidanceTables.h"
#include "common/Rows.h"

namespace accessory::wire {

/// FNV-1a over 64 bits.
class Digest {
  public:
    constexpr void add(uint32_t value) {
        for (int shift = 0; shift < 32; shift += 8)
            mValue = (mValue ^ ((value >> shift) & 0xff)) * kPrime;
    }
    /// With its NUL, so that two texts in a row are not taken for another two.
    constexpr void add(const char* text) {
        do {
            mValue = (mValue ^ static_cast<uint8_t>(*text)) * kPrime;
        } while (*text++ != '\0');
    }
    constexpr uint64_t value() const { return mValue; }

  private:
    static constexpr uint64_t kPrime = 0x100000001b3;
    uint64_t mValue = 0xcbf29ce484222325;
};

/// The sizes of what a kind carries as it lies in memory; 0 for a kind that puts it together from words.
template <typename Field, typename = void>
inline constexpr uint32_t kStructureSizeOf = 0;
template <typename Field>
inline constexpr uint32_t kStructureSizeOf<Field, std::void_t<typename Field::Structure>> =
    sizeof(typename Field::Structure);

template <typename Field, typename = void>
inline constexpr uint32_t kElementSizeOf = 0;
template <typename Field>
inline constexpr uint32_t kElementSizeOf<Field, std::void_t<typename Field::Element>> =
    sizeof(typename Field::Element);

template <typename Field>
constexpr void addField(Digest* digest, const Field& field) {
    digest->add(field.name);
    digest->add(Field::kKind);
    digest->add(kStructureSizeOf<Field>);
    digest->add(kElementSizeOf<Field>);
    digest->add(uint32_t{isInReply<Field> ? 1U : 0U});
}

template <typename Row>
constexpr void addRow(Digest* digest, const Row& row) {
    digest->add(row.code);
    digest->add(row.name);
    std::apply([digest](const auto&... field) { (addField(digest, field), ...); }, row.fields);
}

template <typename Rows>
constexpr void addInterface(Digest* digest, const char* name, const Rows& rows) {
    digest->add(name);
    std::apply([digest](const auto&... row) { (addRow(digest, row), ...); }, rows);
}

template <typename Fields>
constexpr void addRecord(Digest* digest, const char* name, const Fields& fields) {
    digest->add(name);
    for (const FieldInfo& field : describe(fields)) {
        digest->add(field.bit);
        digest->add(field.name);
        digest->add(field.kind);
    }
}

template <typename... Tables>
constexpr void addRecords(Digest* digest) {
    (addRecord(digest, Tables::kName, Tables::kFields), ...);
}

/// The digest of all five interfaces and all records.
constexpr uint64_t tablesDigest() {
    Digest digest;
    addInterface(&digest, "IAccessoryManager", accessory_manager::kRows);
    addInterface(&digest, "IAppleiAP2Manager", iap2_manager::kRows);
    addRow(&digest, iap2_manager::kStartMediaLibUpdatesByMasks);
    addInterface(&digest, "IAppleiAP2ManagerNotifier", iap2_notifier::kRows);
    addInterface(&digest, "IAppleUSBAudioManager", usb_audio_manager::kRows);
    addInterface(&digest, "IAppleUSBAudioManagerNotifier", usb_audio_notifier::kRows);
    addRecords<MediaItemTable, MediaPlaylistTable, MediaLibDataTable, ItemAttributeTable, MediaPlaybackTable,
               PowerUpdateTable, RouteGuidanceTable, ManeuverTable, LaneGuidanceTable>(&digest);
    addRecord(&digest, "LaneInformation", LaneTable::kFields);
    return digest.value();
}

}  // namespace accessory::wire
