// Writes the requests spelt by hand as files: WriteCorpus <folder>, one folder per stub in it.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/AppleUSBAudio/Vectors.h"

namespace {

void write(const std::filesystem::path& folder, const std::vector<accessory::test::Bytes>& vectors) {
    std::filesystem::create_directories(folder);
    int number = 0;
    for (const accessory::test::Bytes& input : vectors) {
        std::ofstream file(folder / std::to_string(number++), std::ios::binary);
        file.write(reinterpret_cast<const char*>(input.data()), static_cast<std::streamsize>(input.size()));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return EXIT_FAILURE;
    const std::filesystem::path folder = argv[1];
    write(folder / "manager", accessory::test::audioManagerVectors());
    write(folder / "notifier", accessory::test::audioNotifierVectors());
    return EXIT_SUCCESS;
}
