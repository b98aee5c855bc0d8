// The clients of the tests with several processes: CHILD_ROLE(registeringClient) registers itself with a
// service that the test hosts.
#pragma once

#include <string>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// A client in a process of its own. Its answer to every event is its process identifier unless told
/// otherwise.
class RegisteringClient {
  public:
    /// notify() with this event does not answer before release().
    static constexpr unsigned int kWait = 0xdead;

    /// Starts it; awaitReady() comes before anything else that is asked of it.
    /// @param service the name that the test published the service under.
    explicit RegisteringClient(const std::string& service);
    void awaitReady();

    int pid() const { return process.pid(); }

    /// The results that the client got.
    int setNotifier() { return ask("set"); }
    int setAnotherNotifier() { return ask("set another"); }
    int clearNotifier() { return ask("clear"); }
    /// A request that has nothing to do with registration.
    int request() { return ask("request"); }
    void answer(int result);

    /// Begins "set", "clear", "request", or "dump": asks the service for the list of its clients, whose
    /// result is how many are in it, -1 for a list that is not whole. ended() waits for the result; several
    /// may be begun before the first of them has ended.
    void begin(const std::string& request) { process.send(request); }
    int ended();

    /// What its implementation was told since the last time, with '|' behind each call.
    std::string told();

    /// Returns once the client waits within an event.
    void awaitWaiting();
    void release();

    /// Lets it answer every event at once, and with 0.
    void neverWait();

    void kill();

    ChildProcess process;

  private:
    int ask(const std::string& request);
};

}  // namespace accessory::test
