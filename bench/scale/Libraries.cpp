#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "bench/scale/Part.h"
#include "bench/support/Folder.h"
#include "bench/support/Progress.h"

namespace accessory::bench {
namespace {

/// Of a stripped copy.
double strippedKibibytes(const std::string& library, const std::string& folder) {
    const std::string copy = folder + "/stripped";
    const std::string command = std::string(STRIP_PROGRAM) + " -o '" + copy + "' '" + library + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("cannot strip " + library);
    return static_cast<double>(std::filesystem::file_size(copy)) / 1024;
}

}  // namespace

void measureLibraries(const Options& /*options*/, Results* results) {
    progress("libraries: stripped sizes");
    const Folder folder;
    results->push_back({"", "libaccessory.so", "stripped", "size", "KiB",
                        strippedKibibytes(ACCESSORY_LIBRARY, folder.path())});
    results->push_back({"", "libbinder.so, bundled", "stripped", "size", "KiB",
                        strippedKibibytes(BINDER_LIBRARY, folder.path())});
}

}  // namespace accessory::bench
