// What reading a hostile request asks of the heap: little more than the request has, and the zeroed entries
// of an array whose count says more than came, which end where a transaction would.
#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "AccessoryManager/AccessoryManagerRows.h"
#include "AppleUSBAudio/USBAudioRows.h"
#include "AppleiAP2/manager/ManagerRows.h"
#include "AppleiAP2/notifier/NotifierRows.h"
#include "common/Buffer.h"
#include "tests/hostile/Examples.h"
#include "tests/hostile/MeteredHeap.h"
#include "tests/hostile/Turned.h"
#include "tools/rows/Interfaces.h"

namespace accessory::test {
namespace {

/// Bytes for every byte of the request, and for any request: a block of entries, the text of an exception.
constexpr size_t kPerByte = 8;
constexpr size_t kAlways = size_t{64} * 1024;

/// What the zeroed entries of a request may take, for each array as much as a transaction could have brought
/// of it; the entries of two kinds are larger in memory than in a parcel.
size_t mostZeroedBytes(const std::string& operation) {
    constexpr size_t kMostApplications = size_t{2} * 65535;
    constexpr size_t kMostLibraryEntries = kMostTransactionBytes / (2 * sizeof(uint32_t));
    constexpr size_t kAround = 144;  // a head, a count of references, a place in a list that grows by halves
    if (operation == "AppDiscoveryUpdate")
        return kMostApplications * (sizeof(AppleAppList) + sizeof(void*)) + kMostTransactionBytes;
    if (operation == "mediaLibUpdateDataReady")
        return kMostLibraryEntries * (sizeof(IiAP2MediaItem) + kAround);
    return 2 * kMostTransactionBytes;
}

/// Reads the fields of a request as a stub does. @return the most memory that it held meanwhile.
template <typename Operation, typename Result, typename ReplyKind, typename... Fields>
size_t memoryOf(const wire::Row<Operation, Result, ReplyKind, Fields...>& row, const wire::Manners& manners,
                const android::Parcel& request) {
    const HeapMeter meter;
    wire::Reader in(manners, row.name, request);
    std::tuple<typename Fields::Slot...> slots;
    const auto readAll = [&in](auto&... slot) {
        static_cast<void>((!wire::readSlot<Fields>(in, slot).has_value() && ...));
    };
    try {
        std::apply(readAll, slots);
    } catch (const std::logic_error&) {  // a std::string is missing
    }
    return meter.peak();
}

/// Holds the memory of @p row against what @p turned may take.
template <typename Row>
void expectBounded(const Row& row, const wire::Manners& manners, const tools::Interface& interface,
                   const Turned& turned) {
    const tools::Operation& operation = *tools::servedOperation(interface, row.code);
    if (endsTheProcess(operation, turned.bytes)) return;
    android::Parcel request;
    fill(&request, turned.bytes);
    if (!request.enforceInterface(android::String16(interface.descriptor.c_str()))) return;
    const size_t most = kAlways + kPerByte * turned.bytes.size() + mostZeroedBytes(row.name);
    EXPECT_LE(memoryOf(row, manners, request), most) << row.name << ' ' << turned.how;
}

template <typename... Rows>
void expectBounded(const std::tuple<Rows...>& rows, const wire::Manners& manners,
                   const tools::Interface& interface) {
    const auto expectAll = [&](const auto& row) {
        const Bytes example = exampleRequest(*tools::servedOperation(interface, row.code));
        for (const Turned& turned : turnedInEveryWay(example))
            expectBounded(row, manners, interface, turned);
    };
    std::apply([&](const auto&... row) { (expectAll(row), ...); }, rows);
}

TEST(MemoryOfARequest, IsBoundedByWhatItBringsForTheAccessoryManager) {
    namespace rows = wire::accessory_manager;
    expectBounded(rows::kRows, rows::kManners, tools::accessoryManager());
}

TEST(MemoryOfARequest, IsBoundedByWhatItBringsForTheiAP2Manager) {
    namespace rows = wire::iap2_manager;
    expectBounded(rows::kRows, rows::kManners, tools::iap2Manager());
}

TEST(MemoryOfARequest, IsBoundedByWhatItBringsForTheiAP2Notifier) {
    namespace rows = wire::iap2_notifier;
    expectBounded(rows::kRows, rows::kManners, tools::iap2Notifier());
}

TEST(MemoryOfARequest, IsBoundedByWhatItBringsForUSBAudio) {
    namespace manager = wire::usb_audio_manager;
    namespace notifier = wire::usb_audio_notifier;
    expectBounded(manager::kRows, manager::kManners, tools::usbAudioManager());
    expectBounded(notifier::kRows, notifier::kManners, tools::usbAudioNotifier());
}

}  // namespace
}  // namespace accessory::test
