// A fuzz target for the words of 'accessoryctl call', one a line: they are refused with a reason, or make a
// request that its receiver understands.
#include <android/log.h>
#include <binder/Parcel.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "tools/accessoryctl/Arguments.h"
#include "tools/accessoryctl/Failure.h"

// In liblog's place: reading a request logs.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*, const char*,
                                                                          ...) {
    return 0;
}

namespace {

using namespace accessory;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream rest(text);
    for (std::string line; std::getline(rest, line);)
        lines.push_back(line);
    return lines;
}

/// @return false for a request of which its receiver makes nothing.
bool isUnderstood(const ctl::Request& request) {
    android::Parcel parcel;
    request.operation->encode(request.arguments, &parcel);
    try {
        request.operation->decodeRequest(parcel);
    } catch (const tools::UndecodableParcel&) {
        return false;
    }
    return true;
}

bool isRefusedOrUnderstood(std::vector<std::string> words) {
    try {
        const std::string called = words.front();
        words.erase(words.begin());
        const std::vector<ctl::Target> targets = ctl::targetsOf(called, {"call", words});
        if (targets.front().operations.empty()) return true;
        return isUnderstood(ctl::requestOf(targets, words));
    } catch (const ctl::Failure& failure) {
        return failure.status == ctl::kWrongUsage && failure.what()[0] != '\0';
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(data, data + size);
    // A word that begins with '@' names a file, and a fuzzer is to read none.
    const bool isUsable = !text.empty() && text.find('@') == std::string::npos;
    if (isUsable && !isRefusedOrUnderstood(linesOf(text))) std::abort();
    return 0;
}
