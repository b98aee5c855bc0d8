// The clients and the service of the tests with several processes. CHILD_ROLE(audioClient) registers itself
// with a service that the test hosts.
#pragma once

#include <string>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// A client in a process of its own. It answers every event with 0 unless told otherwise.
class AudioClient {
  public:
    /// attach() with this identifier does not answer before release().
    static constexpr unsigned int kWait = 0xdead;

    /// @param service the name that the test published the service under.
    explicit AudioClient(const std::string& service);

    int pid() const { return process.pid(); }

    int setNotifier() { return ask("set"); }
    int setAnotherNotifier() { return ask("set another"); }
    int setNull() { return ask("set null"); }
    int clearNotifier() { return ask("clear"); }

    /// The results of all nine other operations, each with arguments of its own; then the identifiers that
    /// getIds() gave.
    std::string callAll();

    void answer(int result);
    void begin(const std::string& request) { process.send(request); }
    int ended() { return std::stoi(process.expectLine()); }

    /// What its implementation was told since the last time, with '|' behind each call.
    std::string told();

    /// Returns once the client waits within an event.
    void awaitWaiting();
    void release();

    void kill();

    ChildProcess process;

  private:
    int ask(const std::string& request);
};

}  // namespace accessory::test
