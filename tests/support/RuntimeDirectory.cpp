#include "tests/support/RuntimeDirectory.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace accessory::test {
namespace {

/// Set beside BINDER_RUNTIME_DIR, to tell our own directory from one that the developer's shell names.
constexpr char kMark[] = "ACCESSORY_TEST_RUNTIME_DIR";

std::filesystem::path freshDirectory() {
    std::string path = std::filesystem::temp_directory_path() / "accessory-test-XXXXXX";
    if (mkdtemp(path.data()) == nullptr) throw std::system_error(errno, std::generic_category(), path);
    return path;
}

}  // namespace

RuntimeDirectory::RuntimeDirectory() {
    if (std::getenv(kMark) != nullptr) return;
    mOwned = freshDirectory();
    setenv(kMark, mOwned.c_str(), 1);
    setenv("BINDER_RUNTIME_DIR", mOwned.c_str(), 1);
}

RuntimeDirectory::~RuntimeDirectory() {
    std::error_code ignored;  // what a dying child still puts there is left to the system's own cleanup
    if (!mOwned.empty()) std::filesystem::remove_all(mOwned, ignored);
}

}  // namespace accessory::test
