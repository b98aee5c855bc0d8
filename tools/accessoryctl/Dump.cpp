// dump: what a service says about itself.
#include <unistd.h>

#include <memory>
#include <thread>

#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/Targets.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

namespace {

/// A pipe whose content is gathered while a service writes into it.
class GatheringPipe {
  public:
    GatheringPipe() {
        if (pipe(mEnds) != 0) throw Failure(kFailed, "no pipe can be had");
        mReader = std::thread([this] { gather(); });
    }
    ~GatheringPipe() { finish(); }
    GatheringPipe(const GatheringPipe&) = delete;
    GatheringPipe& operator=(const GatheringPipe&) = delete;

    int writeEnd() const { return mEnds[1]; }

    /// All that was written. The other holders of the write end must have closed it.
    const std::string& finish() {
        if (mReader.joinable()) {
            close(mEnds[1]);
            mReader.join();
            close(mEnds[0]);
        }
        return mText;
    }

  private:
    void gather() {
        char block[4096];
        ssize_t count = 0;
        while ((count = read(mEnds[0], block, sizeof(block))) > 0)
            mText.append(block, static_cast<size_t>(count));
    }

    int mEnds[2] = {-1, -1};
    std::string mText;
    std::thread mReader;
};

}  // namespace

int dump(const Options& options, const std::string& name, const std::vector<std::string>& words) {
    const std::string service = serviceCalled(name);
    const android::sp<android::IBinder> binder = reach(options, service);
    struct Gathered {
        android::status_t status = android::NO_ERROR;
        std::string text;
    };
    const auto gathered = std::make_shared<Gathered>();
    within(options, service, [binder, words, gathered] {
        GatheringPipe pipe;
        android::Vector<android::String16> args;
        for (const std::string& word : words)
            args.push(android::String16(word.c_str()));
        gathered->status = binder->dump(pipe.writeEnd(), args);
        gathered->text = pipe.finish();
    });
    if (gathered->status != android::NO_ERROR) throw transportFailure(service, gathered->status);
    Json::Value object;
    object["service"] = service;
    object["text"] = gathered->text;
    print(options, "dump", object, gathered->text);
    return kDone;
}

}  // namespace accessory::ctl
