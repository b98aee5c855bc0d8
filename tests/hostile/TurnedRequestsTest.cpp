// Every request of every interface, turned in every way that Turned.h knows. The stubs' implementations read
// all they are given, so that a sanitizer tells what is not there.
#include <gtest/gtest.h>

#include "tests/hostile/Endings.h"
#include "tests/hostile/Turned.h"

namespace accessory::test {
namespace {

class TurnedRequests : public testing::TestWithParam<std::string> {
  protected:
    using Turn = std::vector<Turned> (*)(const Bytes& request);

    /// Hands the stub what @p turn makes of the example of every operation; then the example, which is served
    /// as if nothing had been.
    void expectAllowed(Turn turn) {
        for (const auto& operation : subject.interface.operations) {
            const Bytes example = exampleRequest(*operation);
            for (const Turned& turned : turn(example))
                expectAllowed(*operation, turned);
            if (!operation->onlySent) expectServed(*operation, example);
        }
    }

    void expectServed(const tools::Operation& operation, const Bytes& example) {
        const Ending ending = endOf(subject, operation.code, example);
        EXPECT_TRUE(isAllowed(subject, operation, example, ending)) << operation.name;
        EXPECT_FALSE(ending.raised) << operation.name;
    }

    void expectAllowed(const tools::Operation& operation, const Turned& turned) {
        if (endsTheProcess(operation, turned.bytes)) return;
        const Ending ending = endOf(subject, operation.code, turned.bytes);
        EXPECT_TRUE(isAllowed(subject, operation, turned.bytes, ending))
            << operation.name << ' ' << turned.how;
    }

    const Subject subject = subjectOf(GetParam());
};

TEST_P(TurnedRequests, EndAsPromisedWhereverTheyAreCut) { expectAllowed(&cutAtEveryByte); }

TEST_P(TurnedRequests, EndAsPromisedWithBytesBehindThem) { expectAllowed(&withMoreBehind); }

TEST_P(TurnedRequests, EndAsPromisedWithAnyWordReplaced) { expectAllowed(&withEveryWordReplaced); }

TEST_P(TurnedRequests, EndAsPromisedWithStringsThatDoNotEnd) { expectAllowed(&withStringsThatDoNotEnd); }

TEST_P(TurnedRequests, EndAsPromisedUnderAnotherOperationsCode) {
    for (const auto& operation : subject.interface.operations) {
        for (const auto& other : subject.interface.operations)
            expectAllowed(*other, {"as " + operation->name, exampleRequest(*operation)});
    }
}

INSTANTIATE_TEST_SUITE_P(Of, TurnedRequests, testing::ValuesIn(interfaceNames()),
                         [](const auto& interface) { return interface.param; });

}  // namespace
}  // namespace accessory::test
