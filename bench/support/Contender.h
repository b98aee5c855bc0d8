// Contender: one way of sending bytes to another process and getting an answer.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/support/Payload.h"

namespace accessory::bench {

/// The calling end of a contender, in a process of its own; connected as long as it lives.
class Caller {
  public:
    virtual ~Caller() = default;
    /// Sends the payload and waits for the answer to it. @return what answerTo() made of what arrived.
    /// @throw std::exception when there is no answer.
    virtual uint32_t call(const Payload& payload) = 0;
};

/// To be called by a service once it can be reached.
using Ready = std::function<void()>;

struct Contender {
    const char* name;
    int place;  ///< in the tables; ours come first
    /// Connects to the service that the other process serves. @param folder  where the two of them meet.
    std::unique_ptr<Caller> (*connect)(const std::string& folder);
    /// Serves until the process is killed.
    void (*serve)(const std::string& folder, const Ready& ready);
};

/// Makes a contender known to the program that its source is linked into; a namespace-scope constant.
struct ContenderRegistration {
    explicit ContenderRegistration(const Contender& contender);
};

/// In the order of their places.
const std::vector<Contender>& contenders();

}  // namespace accessory::bench
