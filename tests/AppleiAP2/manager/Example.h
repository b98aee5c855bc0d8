// Example: one example of one of the 87 operations, spelt by hand from end to end: the call, the bytes, what
// the service is told, and what its reply holds. Tests walk them for what all operations have in common.
#pragma once

#include <accessory/IAppleiAP2Manager.h>

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "tests/AppleiAP2/notifier/Wire.h"

namespace accessory::test {

inline constexpr char kTag[] = "IAppleiAP2Manager";

/// A request of the manager: its token, then @p arguments.
Bytes managerRequest(const Bytes& arguments);

/// What a stub answers: the header, @p values, and the status @p result.
Bytes replied(int32_t result, const Bytes& values = {});

/// A mask object.
template <typename Mask>
android::sp<Mask> maskOf(uint32_t bits) {
    const android::sp<Mask> mask = new Mask;
    mask->mask = bits;
    return mask;
}

struct Example {
    using Call = int (*)(IAppleiAP2Manager&);

    Example(std::string operation, uint32_t code, Bytes arguments, const std::string& told, Call call)
        : operation(std::move(operation)),
          code(code),
          arguments(std::move(arguments)),
          told(this->operation + "(" + told + ")"),
          given(this->told),
          call(call) {}

    /// When the sender gives something else than the receiver gets.
    Example& gives(const std::string& text) {
        given = operation + "(" + text + ")";
        return *this;
    }

    /// When the reply holds @p words words, @p bytes, behind its header and before the status.
    Example& brings(const Bytes& bytes, size_t words) {
        values = bytes;
        valueCount = words;
        return *this;
    }

    /// When the reply ends behind those values, and the operation returns a string; @ref call then returns 0.
    Example& hasNoStatus() {
        hasStatus = false;
        return *this;
    }

    std::string operation;
    uint32_t code;
    Bytes arguments;    ///< behind the token
    std::string told;   ///< by the stub to its implementation, as ManagerRecorder shows it
    std::string given;  ///< by the sender, likewise
    Call call;          ///< with these arguments
    Bytes values;       ///< of the reply, as ManagerRecorder answers at first
    size_t valueCount = 0;
    bool hasStatus = true;

    /// The whole reply when the implementation's status is @p status.
    Bytes replyWith(int32_t status) const {
        return hasStatus ? replied(status, values) : parcel({i32(0), values});
    }
};

void PrintTo(const Example& example, std::ostream* out);

/// The examples by subject, each operation but the two of registration at least once.
std::vector<Example> identityExamples();
std::vector<Example> lifecycleExamples();
std::vector<Example> mediaExamples();
std::vector<Example> streamExamples();
std::vector<Example> sessionExamples();
std::vector<Example> connectionExamples();
std::vector<Example> discoveryExamples();
std::vector<Example> callExamples();
std::vector<Example> carPlayExamples();

/// All of them.
const std::vector<Example>& allExamples();

}  // namespace accessory::test
