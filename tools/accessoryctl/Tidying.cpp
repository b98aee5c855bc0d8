#include "tools/accessoryctl/Tidying.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>

#include "tools/accessoryctl/RuntimeView.h"

namespace accessory::ctl {

namespace {

/// A socket is bound a moment before it is listened on; one that is older than this will not be.
constexpr time_t kSecondsToListen = 5;

bool isOld(const std::string& path) {
    struct stat state {};
    return lstat(path.c_str(), &state) == 0 && time(nullptr) - state.st_mtime > kSecondsToListen;
}

/// Keeps processes from publishing services meanwhile, as they keep each other from it.
class FolderLock {
  public:
    explicit FolderLock(const std::string& folder)
        : mFile(open((folder + "/lock").c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK)) {
        mHeld = mFile >= 0 && flock(mFile, LOCK_EX | LOCK_NB) == 0;
    }
    ~FolderLock() {
        if (mFile >= 0) close(mFile);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    bool isHeld() const { return mHeld; }

  private:
    const int mFile;
    bool mHeld = false;
};

size_t removeAll(const std::vector<std::string>& paths) {
    return static_cast<size_t>(
        std::count_if(paths.begin(), paths.end(), [](auto& path) { return unlink(path.c_str()) == 0; }));
}

}  // namespace

size_t tidyFolder(const std::string& folder) {
    size_t gone = 0;
    const FolderLock lock(folder);
    if (lock.isHeld()) gone += removeAll(staleEntriesIn(folder));
    std::vector<std::string> sockets = staleSocketsIn(folder);
    sockets.erase(std::remove_if(sockets.begin(), sockets.end(), [](auto& path) { return !isOld(path); }),
                  sockets.end());
    return gone + removeAll(sockets);
}

}  // namespace accessory::ctl
