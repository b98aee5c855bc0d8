// TraceFolder: a folder to which every process is traced that is started meanwhile.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace accessory::test {

class TraceFolder {
  public:
    TraceFolder();
    ~TraceFolder();
    TraceFolder(const TraceFolder&) = delete;
    TraceFolder& operator=(const TraceFolder&) = delete;

    std::string captureOf(pid_t pid) const;
    /// All that are there, in the order of their names.
    std::vector<std::string> captures() const;

  private:
    std::string mFolder;
};

}  // namespace accessory::test
