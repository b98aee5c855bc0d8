// All clients are there from the beginning; in every round 1 of them calls, then 2, and so on up to 64. They
// begin at an agreed moment and call without a pause.
#include <algorithm>
#include <ctime>
#include <map>
#include <stdexcept>

#include "bench/scale/Part.h"
#include "bench/scale/ScaleService.h"
#include "bench/scale/SocketFloor.h"
#include "bench/support/Clock.h"
#include "bench/support/Folder.h"
#include "bench/support/ManagerService.h"
#include "bench/support/Payload.h"
#include "bench/support/Progress.h"
#include "bench/support/Statistics.h"

namespace accessory::bench {
namespace {

constexpr uint64_t kMillisecond = 1'000'000;
constexpr double kSecond = 1e9;
/// Time for all clients to get their order.
constexpr uint64_t kLeadTime = 20 * kMillisecond;

void sleepUntil(uint64_t moment) {
    const timespec time{static_cast<time_t>(moment / 1'000'000'000),
                        static_cast<long>(moment % 1'000'000'000)};
    clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &time, nullptr);
}

/// @param call  sends a payload and returns the answer.
/// @return the time of each call that began before the end, in nanoseconds.
template <typename Call>
Words callUntil(Call call, uint64_t end) {
    Payload payload(kSmallestPayload);
    Words times;
    for (uint64_t before = nanoseconds(); before < end;) {
        payload.stamp();
        if (call(payload) != payload.expected()) throw std::runtime_error("a wrong answer");
        const uint64_t after = nanoseconds();
        times.push_back(after - before);
        before = after;
    }
    return times;
}

/// Each order is when to begin and when to end.
template <typename Call>
void obey(Channel& conductor, Call call) {
    conductor.send({});
    for (Words order; conductor.receive(&order);) {
        sleepUntil(order.at(0));
        conductor.send(callUntil(call, order.at(1)));
    }
}

void playClient(Channel& conductor, const Arguments& /*arguments*/) {
    const auto manager = managerNamed(kScaleService);
    obey(conductor, [&](const Payload& payload) {
        return static_cast<uint32_t>(manager->AcceptCall(kAccessory, 0, payload.data()));
    });
}

/// Arguments: the folder.
void playFloorClient(Channel& conductor, const Arguments& arguments) {
    const FloorConnection connection(arguments.at(0));
    obey(conductor, [&](const Payload& payload) { return connection.call(payload); });
}

constexpr char kLibraryClient[] = "calling client";
constexpr char kFloorClient[] = "floor client";
const RoleRegistration kClient(kLibraryClient, playClient);
const RoleRegistration kFloor(kFloorClient, playFloorClient);

struct Rounds {
    std::vector<double> perSecond;
    std::vector<double> p50;
    std::vector<double> p99;
    std::vector<double> p999;
};

using Clients = std::vector<std::unique_ptr<Child>>;

void playRound(const Clients& clients, size_t count, uint64_t duration, Rounds* rounds) {
    const uint64_t begin = nanoseconds() + kLeadTime;
    for (size_t i = 0; i < count; ++i)
        clients[i]->tell({begin, begin + duration});
    std::vector<double> times;
    for (size_t i = 0; i < count; ++i) {
        for (const uint64_t time : clients[i]->answer())
            times.push_back(static_cast<double>(time) / 1000);
    }
    rounds->perSecond.push_back(static_cast<double>(times.size()) * kSecond / static_cast<double>(duration));
    rounds->p50.push_back(percentile(times, 0.5));
    rounds->p99.push_back(percentile(times, 0.99));
    rounds->p999.push_back(percentile(times, 0.999));
}

using RoundsByCount = std::map<size_t, Rounds>;

void report(const std::string& prefix, const RoundsByCount& all, Results* results) {
    for (const auto& [count, rounds] : all) {
        const auto add = [&, what = std::to_string(count)](const char* name,
                                                           const std::vector<double>& values) {
            results->push_back({"", what, prefix + name, "clients at once", "", median(values)});
        };
        add("calls a second", rounds.perSecond);
        add("p50, us", rounds.p50);
        add("p99, us", rounds.p99);
        add("p99.9, us", rounds.p999);
    }
}

Clients startClients(size_t count, const char* role, const std::string& folder) {
    Clients clients;
    for (size_t i = 0; i < count; ++i) {
        clients.push_back(std::make_unique<Child>(role, Arguments{folder}));
        clients.back()->answer();
    }
    return clients;
}

}  // namespace

void measureClientsAtOnce(const Options& options, Results* results) {
    const auto most = options.pick<size_t>(64, 64, 4);
    const auto rounds = options.pick<size_t>(9, 3, 1);
    const auto duration = options.pick<uint64_t>(200, 60, 5) * kMillisecond;
    progress("clients at once: " + std::to_string(rounds) + " rounds of 1 to " + std::to_string(most) +
             " clients, the library's and the floor's in turn");
    const Folder folder;
    const auto service = startScaleService();
    const auto floorService = startFloorService(folder.path());
    const Clients clients = startClients(most, kLibraryClient, folder.path());
    const Clients floorClients = startClients(most, kFloorClient, folder.path());
    RoundsByCount all;
    RoundsByCount floor;
    for (size_t round = 0; round < rounds; ++round) {
        for (size_t count = 1; count <= most; count *= 2) {
            playRound(clients, count, duration, &all[count]);
            playRound(floorClients, count, duration, &floor[count]);
        }
    }
    report("", all, results);
    report("Unix socket: ", floor, results);
}

}  // namespace accessory::bench
