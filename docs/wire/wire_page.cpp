// Writes the tables of docs/WIRE.md from the rows, or tells whether they are as the rows say.
//
//   wire_page FILE            replaces everything between <!-- NAME --> and <!-- end --> by the table NAME
//   wire_page --check FILE    ends with 1 when that would change the file
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>

#include "AccessoryManager/AccessoryManagerRows.h"
#include "AppleUSBAudio/USBAudioRows.h"
#include "AppleiAP2/manager/ManagerRows.h"
#include "AppleiAP2/notifier/NotifierRows.h"
#include "AppleiAP2/records/MediaLibraryTables.h"
#include "AppleiAP2/records/NowPlayingTables.h"
#include "AppleiAP2/records/PowerTables.h"
#include "AppleiAP2/records/RouteGuidanceTables.h"
#include "common/RowInfo.h"

namespace {

using accessory::describe;
using accessory::FieldInfo;
using accessory::kAlwaysPresent;
namespace wire = accessory::wire;

std::string fieldList(const wire::OperationInfo& operation, bool inReply) {
    std::string list;
    for (const wire::FieldInfo& field : operation.fields) {
        if (field.inReply != inReply) continue;
        list += (list.empty() ? "" : ", ") + std::string(field.kind) + " `" + field.name + "`";
    }
    return list;
}

template <typename Rows>
std::string operationTable(const Rows& rows) {
    std::string table =
        "| Code | Operation | Request after the token | Reply before the result |\n|---|---|---|---|\n";
    for (const wire::OperationInfo& operation : wire::describeAll(rows)) {
        table += "| " + std::to_string(operation.code) + " | `" + operation.name + "` | " +
                 fieldList(operation, false) + " | " + fieldList(operation, true) + " |\n";
    }
    return table;
}

std::string bitNumber(uint32_t bit) {
    return bit == kAlwaysPresent ? "always" : std::to_string(__builtin_ctz(bit));
}

template <typename Table>
std::string recordTable() {
    std::string table = "| Bit | Field | Parcel form |\n|---|---|---|\n";
    for (const FieldInfo& field : describe(Table::kFields)) {
        table += "| " + bitNumber(field.bit) + " | `" + field.name + "` | " + field.kind + " |\n";
    }
    return table;
}

const std::map<std::string, std::function<std::string()>>& tables() {
    static const std::map<std::string, std::function<std::string()>> all = {
        {"IAccessoryManager", [] { return operationTable(wire::accessory_manager::kRows); }},
        {"IAppleiAP2Manager", [] { return operationTable(wire::iap2_manager::kRows); }},
        {"IAppleiAP2ManagerNotifier", [] { return operationTable(wire::iap2_notifier::kRows); }},
        {"IAppleUSBAudioManager", [] { return operationTable(wire::usb_audio_manager::kRows); }},
        {"IAppleUSBAudioManagerNotifier", [] { return operationTable(wire::usb_audio_notifier::kRows); }},
        {"iAP2MediaItem", recordTable<accessory::MediaItemTable>},
        {"iAP2MediaPlaylist", recordTable<accessory::MediaPlaylistTable>},
        {"iAP2MediaLibData", recordTable<accessory::MediaLibDataTable>},
        {"iAP2ItemAttribute", recordTable<accessory::ItemAttributeTable>},
        {"iAP2MediaPlayback", recordTable<accessory::MediaPlaybackTable>},
        {"iAP2PowerUpdate", recordTable<accessory::PowerUpdateTable>},
        {"RouteGuidaceUpdateInfo", recordTable<accessory::RouteGuidanceTable>},
        {"RuoteGuidanceManeuverUpdateInfo", recordTable<accessory::ManeuverTable>},
        {"LaneGuidanceInfo", recordTable<accessory::LaneGuidanceTable>},
    };
    return all;
}

/// The name in a line "<!-- NAME -->"; empty in any other.
std::string markedName(const std::string& line) {
    constexpr char kBegin[] = "<!-- ";
    constexpr char kEnd[] = " -->";
    if (line.rfind(kBegin, 0) != 0 || line.size() < strlen(kBegin) + strlen(kEnd)) return {};
    return line.substr(strlen(kBegin), line.size() - strlen(kBegin) - strlen(kEnd));
}

std::string withTables(std::istream& page) {
    std::string written;
    bool inTable = false;
    for (std::string line; std::getline(page, line);) {
        const std::string name = markedName(line);
        if (name == "end") inTable = false;
        if (!inTable) written += line + "\n";
        const auto table = tables().find(name);
        if (table == tables().end()) continue;
        written += table->second();
        inTable = true;
    }
    return written;
}

std::string contentOf(const char* path) {
    std::stringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

}  // namespace

int main(int argc, char** argv) {
    const bool check = argc == 3 && strcmp(argv[1], "--check") == 0;
    if (argc != 2 && !check) {
        fprintf(stderr, "wire_page: expected a file, or --check and a file. Type: wire_page docs/WIRE.md\n");
        return 2;
    }
    const char* const path = argv[argc - 1];
    const std::string before = contentOf(path);
    std::istringstream page(before);
    const std::string after = withTables(page);
    if (after == before) return 0;
    if (check) {
        fprintf(stderr, "%s is not as the rows say. Type: build/release/docs/wire_page docs/WIRE.md\n", path);
        return 1;
    }
    std::ofstream(path) << after;
    return 0;
}
