// ./run demo: a drive to work on the desk. A simulated phone, a media application, a navigation display and
// 'accessoryctl watch', each a process of its own; one of them is killed on the way, and in the end what was
// raised is compared with what was received.
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "Exchange.h"
#include "Program.h"

namespace {

using demo::Program;

constexpr char kBold[] = "\033[1m";

/// Speed of the scenario, which lasts 150 s.
constexpr char kSpeed[] = "12";

/// A runtime folder of the demo's own, so that it meets no other service.
class PrivateRuntime {
  public:
    PrivateRuntime() { setenv("BINDER_RUNTIME_DIR", mkdtemp(mPath), 1); }
    ~PrivateRuntime() {
        const std::string command = std::string("rm -rf ") + mPath;
        if (system(command.c_str()) != 0) fprintf(stderr, "%s is left behind\n", mPath);
    }

  private:
    char mPath[32] = "/tmp/accessory-demo-XXXXXX";
};

void tell(const std::string& text) { demo::show("demo", kBold, text); }

/// A step that must hold for the demo to end well; says so when it does not.
bool holds(bool good, const char* what) {
    if (!good) tell(std::string("FAILED: ") + what);
    return good;
}

/// The programs of the build that this one belongs to.
std::string programOf(const char* path) {
    char self[4096];
    const ssize_t length = readlink("/proc/self/exe", self, sizeof(self));
    const std::string own(self, length > 0 ? static_cast<size_t>(length) : 0);
    return own.substr(0, own.rfind("/examples/")) + path;
}

/// What the service's dump says of its clients.
std::string registeredClients() {
    Program dump({programOf("/tools/accessoryctl/accessoryctl"), "dump", "AppleiAP2Manager", "notifier"},
                 {"dump", "\033[35m"});
    dump.wait();
    std::string all;
    for (const std::string& line : dump.lines())
        all += line + '\n';
    return all;
}

bool lists(const std::string& clients, pid_t pid) {
    return clients.find("pid[" + std::to_string(pid) + "]") != std::string::npos;
}

bool isRequestOrStep(const std::string& line) { return line.find(" event ") == std::string::npos; }

bool drive() {
    tell("a simulated phone on a drive to work, twelve times as fast");
    Program simulator(
        {programOf("/simulator/accessory-simulator"), "commute", "--speed", kSpeed, "--exit", "--verbose"},
        {"service", "\033[36m", isRequestOrStep});
    bool good = holds(simulator.says("ready"), "the simulator did not come up");
    Program watch({programOf("/tools/accessoryctl/accessoryctl"), "watch"}, {"watch", "\033[34m"});
    good = good && holds(watch.says("watching"), "accessoryctl watch did not register");
    Program navigation({programOf("/examples/navigation_application")}, {"navigation", "\033[33m"});
    Program media({programOf("/examples/media_application")}, {"media", "\033[32m"});

    good = good && holds(media.says("is on the line"), "the call never came through");
    const pid_t killed = navigation.pid();
    good = good && holds(navigation.says("Ring Road"), "the navigation display showed no way") &&
           holds(lists(registeredClients(), killed), "the navigation display was not registered");
    tell("kills the navigation display");
    navigation.signal(SIGKILL);
    good = holds(navigation.wait() == 128 + SIGKILL, "it could not be killed") && good;
    good = good && holds(simulator.says("hang-up"), "the simulator did not go on");
    good = good && holds(!lists(registeredClients(), killed), "its registration outlived it");

    good = good && holds(media.says("the service has ended"), "the media application noticed no end");
    good = holds(simulator.wait() == 0, "the simulator did not end well") && good;
    good = holds(media.wait() == 0, "the media application did not end well") && good;
    watch.wait();
    good = holds(demo::compare(demo::raisedEvents(simulator.lines()), demo::watchedEvents(watch.lines())),
                 "events were lost") &&
           good;
    int requests = 0;
    for (const auto& [name, count] : demo::servedRequests(simulator.lines()))
        requests += count;
    printf("%-40s %8d\n\n", "requests served", requests);
    return good;
}

}  // namespace

int main() {
    const PrivateRuntime runtime;
    const bool good = drive();
    tell(good ? "all went as it should" : "something went wrong");
    return good ? 0 : 1;
}
