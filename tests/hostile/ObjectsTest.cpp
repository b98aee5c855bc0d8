// Objects in requests: none, one of another interface, one of no interface, one that is only claimed, and
// objects where an operation expects numbers or strings.
#include <binder/Binder.h>
#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include "tests/hostile/Endings.h"

namespace accessory::test {
namespace {

using android::IBinder;
using android::sp;

class ObjectsInRequests : public testing::TestWithParam<std::string> {
  protected:
    /// Null, the stub of every interface, and an object that has none.
    std::vector<sp<IBinder>> objects() const {
        std::vector<sp<IBinder>> all = {nullptr, new android::BBinder};
        for (const std::string& name : interfaceNames())
            all.push_back(subjectOf(name).stub);
        return all;
    }

    /// A token, the object, and all that the operation's example has behind its token.
    Bytes ask(const Subject& subject, const tools::Operation& operation, const sp<IBinder>& object,
              Ending* ending) {
        const Bytes token = tokenOf(subject.interface);
        const Bytes example = exampleRequest(operation);
        android::Parcel request;
        request.write(token.data(), token.size());
        request.writeStrongBinder(object);
        request.write(&example[token.size()], example.size() - token.size());
        *ending = endOf(subject, operation.code, request);
        return bytesOf(request);
    }
};

TEST_P(ObjectsInRequests, EndAsPromisedInEveryOperation) {
    for (const sp<IBinder>& object : objects()) {
        const Subject subject = subjectOf(GetParam());
        for (const auto& operation : subject.interface.operations) {
            if (operation->name == "OOBBTPLinkKeyInfo") continue;  // takes the object's bytes for a length
            Ending ending;
            const Bytes request = ask(subject, *operation, object, &ending);
            EXPECT_TRUE(isAllowed(subject, *operation, request, ending)) << operation->name;
        }
    }
}

TEST_P(ObjectsInRequests, AreNoneWhenTheirBytesAreAllThereIs) {
    android::Parcel original;
    original.writeStrongBinder(new android::BBinder);
    const Subject subject = subjectOf(GetParam());
    for (const auto& operation : subject.interface.operations) {
        if (operation->name == "OOBBTPLinkKeyInfo") continue;
        const Bytes request = parcel({tokenOf(subject.interface), bytesOf(original), bytesOf(original)});
        const Ending ending = endOf(subject, operation->code, request);
        EXPECT_TRUE(isAllowed(subject, *operation, request, ending)) << operation->name;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, ObjectsInRequests, testing::ValuesIn(interfaceNames()),
                         [](const auto& interface) { return interface.param; });

}  // namespace
}  // namespace accessory::test
