// Writes the parcel forms spelt by hand as files: WriteCorpus <folder>, one folder per record in it.
#include <filesystem>
#include <fstream>

#include "fuzz/records/RecordProperty.h"
#include "tests/AppleiAP2/records/RecordVectors.h"

namespace {

using accessory::test::Words;

void write(const std::filesystem::path& folder, const std::vector<Words>& vectors) {
    std::filesystem::create_directories(folder);
    for (size_t i = 0; i < vectors.size(); ++i) {
        const std::vector<uint8_t>& bytes = vectors[i].bytes();
        std::ofstream file(folder / std::to_string(i), std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
}

}  // namespace

#define WRITE(record) write(folder / #record, accessory::test::vectorsOf<accessory::record>())

int main(int argc, char** argv) {
    if (argc != 2) return EXIT_FAILURE;
    const std::filesystem::path folder = argv[1];
    WRITE(IiAP2MediaItem);
    WRITE(IiAP2MediaPlaylist);
    WRITE(IiAP2MediaItemDelId);
    WRITE(IiAP2MediaPlaylistDelId);
    WRITE(IiAP2MediaLibData);
    WRITE(IiAP2ItemAttribute);
    WRITE(IiAP2MediaPlayback);
    WRITE(IiAP2PowerUpdate);
    WRITE(IRouteGuidaceUpdateInfo);
    WRITE(IRuoteGuidanceManeuverUpdateInfo);
    WRITE(ILaneGuidanceInformation);
    return EXIT_SUCCESS;
}
