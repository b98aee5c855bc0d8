#include "bench/support/Folder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace accessory::bench {

Folder::Folder() : mPath("/tmp/accessory-bench-XXXXXX") {
    if (mkdtemp(mPath.data()) == nullptr) throw std::system_error(errno, std::generic_category(), "mkdtemp");
    setenv("BINDER_RUNTIME_DIR", (mPath + "/binder").c_str(), 1);
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
}

}  // namespace accessory::bench
