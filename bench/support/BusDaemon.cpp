// A bus of our own: nobody else's traffic, no limits in the way, no access rules to go through.
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <stdexcept>

#include "bench/support/BusDaemon.h"

namespace accessory::bench {
namespace {

void writeConfiguration(const std::string& file, const std::string& socket) {
    std::ofstream(file)
        << "<!DOCTYPE busconfig PUBLIC '-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN'\n"
           "  'http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd'>\n"
           "<busconfig>\n"
           "  <type>session</type>\n"
           "  <listen>unix:path="
        << socket
        << "</listen>\n"
           "  <auth>EXTERNAL</auth>\n"
           "  <policy context='default'>\n"
           "    <allow send_destination='*' eavesdrop='true'/>\n"
           "    <allow eavesdrop='true'/>\n"
           "    <allow own='*'/>\n"
           "  </policy>\n"
           "  <limit name='max_completed_connections'>100000</limit>\n"
           "  <limit name='max_connections_per_user'>100000</limit>\n"
           "  <limit name='max_incoming_bytes'>1000000000</limit>\n"
           "  <limit name='max_outgoing_bytes'>1000000000</limit>\n"
           "  <limit name='max_message_size'>1000000000</limit>\n"
           "  <limit name='max_match_rules_per_connection'>50000</limit>\n"
           "</busconfig>\n";
}

/// It complains about limits that it cannot raise and does not need.
void keepQuiet(const std::string& log) {
    const int fd = open(log.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    if (fd >= 0) dup2(fd, STDERR_FILENO);
}

[[noreturn]] void becomeDaemon(const std::string& configuration, int address) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    keepQuiet(configuration + ".log");
    const std::string file = "--config-file=" + configuration;
    const std::string print = "--print-address=" + std::to_string(address);
    execlp("dbus-daemon", "dbus-daemon", "--nofork", "--nopidfile", file.c_str(), print.c_str(), nullptr);
    _exit(127);
}

}  // namespace

void startBusDaemon(const std::string& path) {
    const std::string configuration = path + ".conf";
    writeConfiguration(configuration, path);
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe to the bus daemon");
    if (fork() == 0) {
        close(ends[0]);
        becomeDaemon(configuration, ends[1]);
    }
    close(ends[1]);
    // It tells its address once it listens.
    char address = 0;
    const bool listens = read(ends[0], &address, 1) == 1;
    close(ends[0]);
    if (!listens) throw std::runtime_error("dbus-daemon does not start");
}

}  // namespace accessory::bench
