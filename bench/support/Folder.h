// A folder for the sockets of one run, where the Binder runtime meets too.
#pragma once

#include <string>

namespace accessory::bench {

class Folder {
  public:
    /// Makes it, and names it to the Binder runtime of this process and its children.
    Folder();
    /// Removes it with all that is in it.
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& path() const { return mPath; }

  private:
    std::string mPath;
};

}  // namespace accessory::bench
