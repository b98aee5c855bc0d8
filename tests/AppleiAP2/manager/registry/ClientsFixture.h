// What the tests with clients in processes of their own share: a service under a name of its own, its clients
// in the order of their processes, and the list that its dump shows.
#pragma once

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/AppleiAP2/manager/registry/Announcer.h"
#include "tests/AppleiAP2/manager/registry/DumpOutput.h"
#include "tests/AppleiAP2/manager/registry/RegisteringClient.h"
#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {

/// No two services of one test run share a name.
inline std::string freshName() {
    static int count = 0;
    return "registry" + std::to_string(++count);
}

/// The numbers in a listing, which must be as many as it says.
inline std::vector<int> pidsIn(const std::string& text) {
    std::vector<int> pids;
    for (size_t at = text.find("pid["); at != std::string::npos; at = text.find("pid[", at + 1))
        pids.push_back(std::stoi(text.substr(at + 4)));
    EXPECT_NE(text.find("notifier size[" + std::to_string(pids.size()) + "]\n"), std::string::npos) << text;
    return pids;
}

class Clients : public RegistryFixture {
  protected:
    Clients() {
        const android::String16 published(name.c_str());
        EXPECT_EQ(android::defaultServiceManager()->addService(published, stub), 0);
        android::ProcessState::self()->startThreadPool();
    }

    /// Starts so many clients, all at once; they are kept in ascending order of their processes.
    void start(int count) {
        const size_t first = clients.size();
        for (int i = 0; i < count; ++i)
            clients.push_back(std::make_unique<RegisteringClient>(name));
        for (size_t i = first; i < clients.size(); ++i)
            clients[i]->awaitReady();
        std::sort(clients.begin(), clients.end(),
                  [](const auto& left, const auto& right) { return left->pid() < right->pid(); });
    }

    void startAndRegister(int count) {
        start(count);
        for (const auto& client : clients)
            EXPECT_EQ(client->setNotifier(), 0);
        log.clear();
    }

    RegisteringClient& client(size_t place) { return *clients.at(place); }

    /// The numbers in the list that a dump shows.
    std::vector<int> listed() {
        EXPECT_EQ(stub->dump(output.in(), dumpArguments({"notifier"})), 0);
        return pidsIn(output.only());
    }

    std::vector<int> pidsOf(std::initializer_list<size_t> places) {
        std::vector<int> pids;
        for (const size_t place : places)
            pids.push_back(client(place).pid());
        return pids;
    }

    void awaitDeath(int pid) {
        EXPECT_TRUE(log.arrives(died(pid)));
        EXPECT_TRUE(log.arrives(out(kManagerUnit, "binderDied")));
    }

    const std::string name = freshName();
    std::vector<std::unique_ptr<RegisteringClient>> clients;
    const DumpOutput output;
};

}  // namespace accessory::test
