// RuntimeDirectory: a directory of services of the test's own, so that tests never meet each other's.
#pragma once

#include <filesystem>

namespace accessory::test {

/// Makes a fresh directory under the temporary directory and names it in BINDER_RUNTIME_DIR, for this
/// process and its children; removes it in the end. A test program that was started by another one
/// (a death test starts the program over) uses that one's directory instead.
class RuntimeDirectory {
  public:
    RuntimeDirectory();
    ~RuntimeDirectory();

    RuntimeDirectory(const RuntimeDirectory&) = delete;
    RuntimeDirectory& operator=(const RuntimeDirectory&) = delete;

  private:
    std::filesystem::path mOwned;  ///< empty when the directory is another process's
};

}  // namespace accessory::test
