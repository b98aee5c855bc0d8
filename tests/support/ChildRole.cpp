#include "tests/support/ChildRole.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <map>

#include "tests/support/ChildProcess.h"

namespace accessory::test {
namespace {

const std::string kChildFlag = "--child=";

std::map<std::string, RoleBody>& roles() {
    static std::map<std::string, RoleBody> byName;
    return byName;
}

[[noreturn]] void abandon(const std::string& reason) {
    std::cerr << "child " << getpid() << ": " << reason << std::endl;
    // Other threads of the role may be in the middle of anything: no destructors.
    _exit(kLostParent);
}

/// No child outlives its test, even one that crashes. Without the check, a test that died before the
/// request was made would be missed.
void dieWithParent(pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) abandon("the test is already gone");
}

bool anExpectationFailed() { return testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed(); }

}  // namespace

RoleRegistration::RoleRegistration(const char* name, RoleBody body) { roles()[name] = body; }

void ChildSide::send(const std::string& line) {
    if (!mChannel.send(line)) abandon("nobody reads '" + line + "'");
}

std::string ChildSide::expectLine(std::chrono::milliseconds patience) {
    const auto line = mChannel.receive(patience);
    if (!line) abandon(mChannel.ended() ? "the test hung up" : "the test said nothing in time");
    return *line;
}

bool isChild(int argc, char** argv) {
    return argc >= 3 && std::string(argv[1]).compare(0, kChildFlag.size(), kChildFlag) == 0;
}

int runChild(int argc, char** argv) {
    dieWithParent(static_cast<pid_t>(std::atol(argv[2])));
    const std::string name = std::string(argv[1]).substr(kChildFlag.size());
    const auto role = roles().find(name);
    if (role == roles().end()) {
        std::cerr << "child " << getpid() << ": no CHILD_ROLE(" << name << ") in this program" << std::endl;
        return kUnknownRole;
    }
    ChildSide parent(kChildDescriptor);
    const int status = role->second(parent, RoleArguments(argv + 3, argv + argc));
    return status == 0 && anExpectationFailed() ? kFailedExpectation : status;
}

}  // namespace accessory::test
