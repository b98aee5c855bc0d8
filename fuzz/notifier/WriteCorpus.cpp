// Writes the requests spelt by hand as files: WriteCorpus <folder>.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/AppleiAP2/notifier/Vectors.h"

int main(int argc, char** argv) {
    if (argc != 2) return EXIT_FAILURE;
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    int number = 0;
    for (const accessory::test::Bytes& input : accessory::test::stubVectors()) {
        std::ofstream file(folder / std::to_string(number++), std::ios::binary);
        file.write(reinterpret_cast<const char*>(input.data()), static_cast<std::streamsize>(input.size()));
    }
    return EXIT_SUCCESS;
}
