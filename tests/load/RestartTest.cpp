// Hundreds of clients that register at once, with a service and with each that follows it.
// ACCESSORY_LOAD_CLIENTS, 150 unless set, says how many.
#include <gtest/gtest.h>

#include <deque>
#include <iostream>
#include <memory>

#include "tests/load/Load.h"
#include "tests/platform/TestService.h"
#include "tests/support/ChildProcess.h"

namespace accessory::load {
namespace {

using accessory::test::ChildProcess;
using std::chrono::steady_clock;

int clientCount() { return numberFromEnvironment("ACCESSORY_LOAD_CLIENTS", 150); }

class LoadRestart : public testing::Test {
  protected:
    LoadRestart() {
        startService();
        for (int i = 0; i < clientCount(); ++i)
            clients.emplace_back("returningClient", accessory::test::RoleArguments{name});
        expectOfAll("ready");
    }

    void startService() {
        service = std::make_unique<ChildProcess>("eventService", accessory::test::RoleArguments{name});
        EXPECT_EQ(service->expectLine(), "ready");
    }

    void tellAll(const std::string& order) {
        for (ChildProcess& client : clients)
            client.send(order);
    }

    void expectOfAll(const std::string& answer) {
        for (ChildProcess& client : clients)
            ASSERT_EQ(client.expectLine(kLongPatience), answer);
    }

    std::string askService(const std::string& order) {
        service->send(order);
        return service->expectLine(kLongPatience);
    }

    /// Three events, whose numbers begin with @p first.
    void expectEachHears(unsigned int first) {
        EXPECT_EQ(askService("listed"), "notifier size[" + std::to_string(clients.size()) + "]");
        EXPECT_EQ(askService("raise " + std::to_string(first) + " 3"), "done");
        tellAll("told");
        std::string numbers;
        for (unsigned int event = 0; event < 3; ++event)
            numbers += std::to_string(first + event) + ' ';
        expectOfAll(numbers);
    }

    void killService() {
        service->kill();
        service->wait();
    }

    const std::string name = accessory::test::uniqueServiceName();
    std::unique_ptr<ChildProcess> service;
    std::deque<ChildProcess> clients;
};

/// Seconds that @p work took.
template <typename Work>
double timed(const Work& work) {
    const auto begin = steady_clock::now();
    work();
    return std::chrono::duration<double>(steady_clock::now() - begin).count();
}

TEST_F(LoadRestart, OfAServiceLosesNoClientAndEachHearsEveryEventOnce) {
    const double first = timed([&] {
        tellAll("register");
        expectOfAll("0");
    });
    expectEachHears(10);
    for (const unsigned int event : {20u, 30u}) {
        tellAll("return");
        killService();
        const double again = timed([&] {
            startService();
            expectOfAll("0");
        });
        expectEachHears(event);
        std::cout << clients.size() << " clients registered in " << first << " s, and in " << again
                  << " s after the service was started anew\n";
    }
}

}  // namespace
}  // namespace accessory::load
