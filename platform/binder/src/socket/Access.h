// Who may talk to this process. The kernel says who is at the other end of a socket; nothing else is
// believed.
#pragma once

#include <sys/types.h>

#include <optional>

#include "Socket.h"

namespace android::runtime {

/// The processes of one user share a runtime folder, and root is always let in. $BINDER_RUNTIME_GROUP, a
/// group's name or number, opens the folder to the members of that group as well.
class Access {
  public:
    Access();

    const std::optional<gid_t>& group() const { return mGroup; }
    /// Of the folder: with a group, its members may add files but not touch those of others.
    mode_t folderMode() const { return mGroup ? 03770 : 0700; }
    /// Of sockets and files in it.
    mode_t fileMode() const { return mGroup ? 0660 : 0600; }

    /// Whether the process at the other end of @p fd may talk to this one.
    bool admits(int fd, const Credentials& credentials) const;

  private:
    std::optional<gid_t> mGroup;
};

}  // namespace android::runtime
