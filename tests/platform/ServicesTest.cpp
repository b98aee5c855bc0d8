// Services by name: publishing, finding, waiting for, listing.
#include <binder/IServiceManager.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using std::chrono::steady_clock;
using testing::Contains;
using testing::Not;

String16 wide(const std::string& text) { return String16(text.c_str()); }

status_t add(const std::string& name, const sp<IBinder>& object) {
    return defaultServiceManager()->addService(wide(name), object);
}

sp<IBinder> check(const std::string& name) { return defaultServiceManager()->checkService(wide(name)); }

std::vector<std::string> listed() {
    std::vector<std::string> names;
    for (const String16& name : defaultServiceManager()->listServices())
        names.emplace_back(String8(name).string());
    return names;
}

std::filesystem::path entryOf(const std::string& name) {
    return std::filesystem::path(std::getenv("BINDER_RUNTIME_DIR")) / ("service-" + name);
}

/// Publishes an object under a name once it is told to, and tells the status.
CHILD_ROLE(publish) {
    parent.send("ready");
    parent.expectLine();
    parent.send(std::to_string(add(args.at(0), new BBinder)));
    parent.awaitHangUp();
    return 0;
}

std::string publishIn(ChildProcess* process) {
    EXPECT_EQ("ready", process->expectLine());
    process->send("go");
    return process->expectLine();
}

TEST(Service, OfTheOwnProcessIsTheObjectItself) {
    const std::string name = uniqueServiceName();
    const sp<IBinder> object = new BBinder;
    EXPECT_EQ(NO_ERROR, add(name, object));
    EXPECT_EQ(object, check(name));
    EXPECT_EQ(object, defaultServiceManager()->getService(wide(name)));
}

TEST(Service, IsReplacedByItsOwnProcess) {
    const std::string name = uniqueServiceName();
    sp<IBinder> first = new BBinder;
    const wp<IBinder> forgotten = first;
    const sp<IBinder> second = new BBinder;
    EXPECT_EQ(NO_ERROR, add(name, first));
    first = nullptr;
    EXPECT_EQ(NO_ERROR, add(name, second));
    EXPECT_EQ(second, check(name));
    EXPECT_TRUE(eventually([&] { return forgotten.promote() == nullptr; }));
}

TEST(Service, MayBeAddedAgainAndUnderTwoNames) {
    const std::string name = uniqueServiceName();
    const std::string otherName = uniqueServiceName();
    const sp<IBinder> object = new BBinder;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(NO_ERROR, add(name, object));
        EXPECT_EQ(NO_ERROR, add(otherName, object));
    }
    EXPECT_EQ(NO_ERROR, add(otherName, new BBinder));
    EXPECT_EQ(object, check(name));
}

TEST(Service, OfALiveProcessKeepsItsName) {
    const ServiceProcess service;
    EXPECT_EQ(ALREADY_EXISTS, add(service.name(), new BBinder));
    EXPECT_EQ(service.object(), check(service.name()));
}

TEST(Service, OfAStoppedProcessKeepsItsName) {
    ServiceProcess service;
    service.process().kill(SIGSTOP);
    EXPECT_EQ(ALREADY_EXISTS, add(service.name(), new BBinder));
    service.process().kill(SIGCONT);
    EXPECT_EQ(NO_ERROR, service.object()->pingBinder());
}

TEST(Service, OfAKilledProcessIsGoneAndCanBeReplaced) {
    ServiceProcess service;
    EXPECT_THAT(listed(), Contains(service.name()));
    service.kill();
    EXPECT_TRUE(std::filesystem::exists(entryOf(service.name())));
    EXPECT_EQ(nullptr, check(service.name()));
    EXPECT_THAT(listed(), Not(Contains(service.name())));
    const sp<IBinder> next = new BBinder;
    EXPECT_EQ(NO_ERROR, add(service.name(), next));
    EXPECT_EQ(next, check(service.name()));
}

TEST(Service, OfAKilledProcessNobodyKnewIsGoneToo) {
    const std::string name = uniqueServiceName();
    ChildProcess publisher("publish", {name});
    EXPECT_EQ("0", publishIn(&publisher));
    publisher.kill();
    publisher.wait();
    EXPECT_THAT(listed(), Not(Contains(name)));
    EXPECT_EQ(nullptr, check(name));
}

TEST(Service, GoesToExactlyOneOfSeveralProcessesThatWantItsName) {
    const std::string name = uniqueServiceName();
    std::vector<std::unique_ptr<ChildProcess>> publishers;
    for (int i = 0; i < 5; ++i)
        publishers.push_back(std::make_unique<ChildProcess>("publish", RoleArguments{name}));
    for (const auto& publisher : publishers)
        EXPECT_EQ("ready", publisher->expectLine());
    for (const auto& publisher : publishers)
        publisher->send("go");
    std::vector<std::string> answers;
    for (const auto& publisher : publishers)
        answers.push_back(publisher->expectLine());
    EXPECT_THAT(answers, Contains("0").Times(1));
    EXPECT_THAT(answers, Contains(std::to_string(ALREADY_EXISTS)).Times(4));
}

TEST(Service, ThatAppearsLaterIsWaitedFor) {
    const std::string name = uniqueServiceName();
    ChildProcess publisher("publish", {name});
    EXPECT_EQ("ready", publisher.expectLine());
    auto found =
        std::async(std::launch::async, [&] { return defaultServiceManager()->getService(wide(name)); });
    EXPECT_EQ(std::future_status::timeout, found.wait_for(std::chrono::milliseconds(50)));
    const auto start = steady_clock::now();
    publisher.send("go");
    EXPECT_EQ("0", publisher.expectLine());
    EXPECT_NE(nullptr, found.get());
    EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(2));
}

TEST(Service, ThatIsNotThereIsWaitedForFiveSeconds) {
    const auto start = steady_clock::now();
    EXPECT_EQ(nullptr, defaultServiceManager()->getService(wide(uniqueServiceName())));
    EXPECT_GE(steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(7));
}

TEST(Service, ThatIsNotThereIsMissedAtOnceByCheckService) {
    const auto start = steady_clock::now();
    EXPECT_EQ(nullptr, check(uniqueServiceName()));
    EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(1));
}

TEST(Services, AreListedInAscendingOrder) {
    for (const char* const name : {"list.b", "list.a", "list.c", "list.B"})
        EXPECT_EQ(NO_ERROR, add(name, new BBinder));
    const std::vector<std::string> names = listed();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    for (const char* const name : {"list.b", "list.a", "list.c", "list.B"})
        EXPECT_THAT(names, Contains(name).Times(1));
}

TEST(ServiceName, IsRefusedWhenItIsNotPrintableAsciiOrTooLong) {
    const std::string nul("a\0b", 3);
    for (const std::string& name :
         {std::string(), std::string("a/b"), std::string("../x"), std::string("a b"), std::string("a\n"),
          std::string("\x7f"), std::string(128, 'x')}) {
        EXPECT_EQ(BAD_VALUE, add(name, new BBinder)) << name;
        EXPECT_EQ(nullptr, check(name)) << name;
    }
    EXPECT_EQ(BAD_VALUE, defaultServiceManager()->addService(String16(u"gr\u00fcn"), new BBinder));
    EXPECT_EQ(BAD_VALUE, defaultServiceManager()->addService(String16(nul.data(), nul.size()), new BBinder));
}

TEST(ServiceName, MayBe127CharactersLongAndHaveDots) {
    for (const std::string& name :
         {std::string(127, 'x'), std::string("."), std::string(".."), std::string("~!@#$%^&*()'\"\\`")}) {
        const sp<IBinder> object = new BBinder;
        EXPECT_EQ(NO_ERROR, add(name, object)) << name;
        EXPECT_EQ(object, check(name)) << name;
    }
}

TEST(ServiceObject, MustBeOfThisProcess) {
    const ServiceProcess service;
    EXPECT_EQ(BAD_VALUE, add(uniqueServiceName(), nullptr));
    EXPECT_EQ(BAD_VALUE, add(uniqueServiceName(), service.object()));
}

TEST(ServiceEntry, IsNotKeptOutByWhoeverKnowsItsOwner) {
    const std::string name = uniqueServiceName();
    ASSERT_EQ(NO_ERROR, add(name, new BBinder));
    const std::filesystem::path folder = std::getenv("BINDER_RUNTIME_DIR");
    std::string owner;
    std::ifstream(folder / ("service-" + name)) >> owner;
    const std::filesystem::path obstacle = folder / ("new-" + owner);
    std::filesystem::create_directory(obstacle);
    EXPECT_EQ(NO_ERROR, add(name, new BBinder));
    std::filesystem::remove(obstacle);
}

TEST(ServiceEntry, ThatCannotBeReadCountsAsNone) {
    const std::string name = uniqueServiceName();
    const std::string digits(32, 'a');
    const std::string zeros(32, '0');
    const std::string pair = digits + " " + digits;
    const std::string ofNobody = zeros + " " + zeros + "\n";
    for (const std::string& text : {std::string(), std::string("x"), pair, digits + "\n", ofNobody,
                                    pair + "\n\n", std::string(66, 'g'), std::string(100'000, 'a')}) {
        std::ofstream(entryOf(name)) << text;
        EXPECT_EQ(nullptr, check(name)) << text.substr(0, 70);
        EXPECT_THAT(listed(), Not(Contains(name))) << text.substr(0, 70);
    }
    EXPECT_EQ(NO_ERROR, add(name, new BBinder));
}

TEST(ServiceEntry, ThatIsNoPlainFileCountsAsNone) {
    const std::string name = uniqueServiceName();
    std::filesystem::create_directory(entryOf(name));
    EXPECT_EQ(nullptr, check(name));
    EXPECT_NE(NO_ERROR, add(name, new BBinder));
    std::filesystem::remove(entryOf(name));
    ASSERT_EQ(0, mkfifo(entryOf(name).c_str(), S_IRUSR | S_IWUSR));
    EXPECT_EQ(nullptr, check(name));
    EXPECT_THAT(listed(), Not(Contains(name)));
    EXPECT_EQ(NO_ERROR, add(name, new BBinder));
    EXPECT_NE(nullptr, check(name));
}

}  // namespace
}  // namespace accessory::test
