// Child: another process of a benchmark program. It is the same program started afresh, never a bare fork, in
// one of the roles that the program registered, and talks with the conductor, which started it, in rows of
// numbers.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace accessory::bench {

using Words = std::vector<uint64_t>;
using Arguments = std::vector<std::string>;

/// One end of the conversation. For one thread at a time.
class Channel {
  public:
    /// @param descriptor a connected stream socket; owned from here on.
    explicit Channel(int descriptor) : mDescriptor(descriptor) {}
    ~Channel();
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;

    /// @return false when the other end is gone.
    bool send(const Words& words);
    /// Waits for as long as it takes. @return false when the other end is gone.
    bool receive(Words* words);

  private:
    const int mDescriptor;
};

/// What a child does; its process ends with it.
using Role = void (*)(Channel& conductor, const Arguments& arguments);

/// Makes a role known; a namespace-scope constant, so that it is there before main().
struct RoleRegistration {
    RoleRegistration(const char* name, Role role);
};

/// @return whether this process is a child, in which case it has done its part.
bool runAsChild(int argc, char** argv);

/// The conductor's end. The thread that starts a child outlives it: the kernel ends the child with it.
class Child {
  public:
    /// @throw std::system_error when there can be no process.
    explicit Child(const std::string& role, const Arguments& arguments = {});
    /// Kills and reaps it.
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    pid_t pid() const { return mPid; }

    /// These throw std::runtime_error, with the role's name, when the child has ended.
    void tell(const Words& words);
    Words answer();
    Words ask(const Words& words);

  private:
    Child(const std::string& role, const Arguments& arguments, std::pair<int, int> ends);

    const std::string mName;
    Channel mChannel;
    const pid_t mPid;
};

}  // namespace accessory::bench
