// Parcels that nobody could have meant: decoding them gives something or an error, and never ends the
// process.
#include <gtest/gtest.h>

#include <random>

#include "tests/AppleiAP2/notifier/Wire.h"
#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

/// Decodes a request and a reply from the same bytes. @return whether the request was refused.
bool isRefused(const tools::Operation& operation, const Bytes& bytes) {
    android::Parcel parcel;
    fill(&parcel, bytes);
    try {
        operation.decodeReply(parcel);
    } catch (const tools::UndecodableParcel&) {
    }
    try {
        return !operation.decodeRequest(parcel).isObject();
    } catch (const tools::UndecodableParcel&) {
        return true;
    }
}

std::string complaint(const tools::Operation& operation, const Bytes& arguments, const char16_t* descriptor,
                      android::status_t* status) {
    android::Parcel parcel;
    fill(&parcel, test::parcel({token(descriptor), arguments}));
    try {
        operation.decodeRequest(parcel);
    } catch (const tools::UndecodableParcel& error) {
        *status = error.status;
        return error.what();
    }
    return "none";
}

TEST(Undecodable, SurvivesEveryTruncationOfEveryRequest) {
    for (const auto& [interface, operation] : allOperations()) {
        SCOPED_TRACE(interface->name + "." + operation->name);
        android::Parcel request;
        operation->encode(exampleArguments(*operation), &request);
        const Bytes whole = bytesOf(request);
        const size_t header =
            token(std::u16string(interface->descriptor.begin(), interface->descriptor.end())).size();
        for (size_t length = 0; length < header; ++length)
            EXPECT_TRUE(isRefused(*operation, cut(whole, length))) << length;
        for (size_t length = header; length < whole.size(); ++length)
            isRefused(*operation, cut(whole, length));
        EXPECT_FALSE(isRefused(*operation, whole));
    }
}

TEST(Undecodable, SurvivesAnyWordsBehindTheToken) {
    std::mt19937 random(20260131);
    const int32_t likely[] = {0, 1, 2, 3, -1, 0x7fffffff, 0x00616161, 0x41414141};
    for (const auto& [interface, operation] : allOperations()) {
        SCOPED_TRACE(interface->name + "." + operation->name);
        const Bytes header =
            token(std::u16string(interface->descriptor.begin(), interface->descriptor.end()));
        for (int round = 0; round < 50; ++round) {
            Bytes request = header;
            for (size_t words = random() % 40; words > 0; --words) {
                const Bytes word =
                    i32(random() % 4 != 0 ? likely[random() % 8] : static_cast<int32_t>(random() % 300));
                request.insert(request.end(), word.begin(), word.end());
            }
            isRefused(*operation, request);
        }
    }
}

TEST(Undecodable, TellsWhatAReceiverDoes) {
    android::status_t status = 0;
    const auto& key = operationOf("IAppleiAP2ManagerNotifier", "OOBBTPLinkKeyInfo");
    EXPECT_EQ(complaint(key, parcel({i32(7), i32(-1)}), u"accessory.AppleiAP2ManagerNotifier", &status),
              "a receiver ends its process: 4294967295 bytes announced");
    EXPECT_EQ(complaint(key, i32(7), u"accessory.AppleiAP2Manager", &status),
              "not a request of accessory.AppleiAP2ManagerNotifier");
    EXPECT_EQ(status, android::PERMISSION_DENIED);
    const auto& property = operationOf("IAppleiAP2Manager", "setProperty");
    EXPECT_EQ(complaint(property, i32(7), u"accessory.AppleiAP2Manager", &status),
              "basic_string: construction from null is not valid");
    EXPECT_EQ(status, android::UNKNOWN_ERROR);
    const auto& report = operationOf("IAppleiAP2Manager", "accHIDReport");
    EXPECT_EQ(complaint(report, parcel({i32(7), i32(-1)}), u"accessory.AppleiAP2Manager", &status),
              "a receiver gives up at 'report'");
    EXPECT_EQ(status, android::BAD_VALUE);
    const auto& icons = operationOf("IAppleiAP2Manager", "RequestAppDiscoveryAppIcons");
    EXPECT_EQ(complaint(icons, i32(7), u"accessory.AppleiAP2Manager", &status),
              "a receiver gives up at 'bundleId'");
    EXPECT_EQ(status, android::NO_ERROR);
    const auto& library = operationOf("IAppleiAP2ManagerNotifier", "mediaLibUpdateDataReady");
    EXPECT_EQ(complaint(library, parcel({i32(7), i32(0), i32(100000)}), u"accessory.AppleiAP2ManagerNotifier",
                        &status),
              "a list claims 100000 entries");
}

}  // namespace
}  // namespace accessory::test
