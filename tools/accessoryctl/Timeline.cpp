// timeline: captures as a document for trace viewers.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "tools/accessoryctl/OpenCaptures.h"
#include "tools/accessoryctl/Verbs.h"
#include "tools/capture/Calls.h"
#include "tools/capture/TraceEvents.h"

namespace accessory::ctl {

namespace {

/// The standard output unless a path is given.
class Output {
  public:
    explicit Output(const std::string& path)
        : mPath(path), mFile(path.empty() ? stdout : fopen(path.c_str(), "we")) {
        check(mFile != nullptr);
    }
    ~Output() {
        if (mFile != nullptr && mFile != stdout) fclose(mFile);
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void write(const std::string& text) { check(fwrite(text.data(), 1, text.size(), mFile) == text.size()); }
    void finish() { check(fflush(mFile) == 0); }

  private:
    void check(bool good) const {
        if (good) return;
        throw Failure(kFailed,
                      (mPath.empty() ? "the output" : mPath) + " cannot be written: " + strerror(errno));
    }

    const std::string mPath;
    FILE* const mFile;
};

}  // namespace

int timeline(const Options& options, const std::vector<std::string>& paths, const std::string& outputPath) {
    Options quiet = options;
    quiet.json = false;  // the output is one document
    tools::Captures captures = openCaptures(quiet, paths);
    tools::CallList calls;
    std::map<int32_t, std::string> programs;
    std::unique_ptr<Failure> damage;
    try {
        readAll(&captures, [&](const tools::Capture& capture, const tools::Packet& packet) {
            programs[packet.pid] = capture.program();
            calls.add(packet);
        });
    } catch (const Failure& failure) {
        damage = std::make_unique<Failure>(failure);  // what is in front of it is still worth seeing
    }
    Output output(outputPath);
    tools::writeTraceEvents(calls.finish(), programs,
                            [&output](const std::string& text) { output.write(text); });
    output.finish();
    if (damage != nullptr) throw Failure(*damage);
    return kDone;
}

}  // namespace accessory::ctl
