// Loading the library constructs the five interface descriptors, in one order, and no other string. This
// program stands in for the constructor that they go through and writes down what it was asked for before
// main() began.
#include <dlfcn.h>
#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

constexpr size_t kMost = 64;
const char* constructed[kMost];
size_t constructions = 0;
bool mainHasBegun = false;

/// Whether the caller is the library that is looked at.
bool comesFromTheLibrary(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 &&
           std::string(info.dli_fname).find("libaccessory.so") != std::string::npos;
}

}  // namespace

/// String16(const char*), for every library of this process; the platform's own does the work.
extern "C" __attribute__((visibility("default"))) void constructString16(void* string, const char* text) asm(
    "_ZN7android8String16C1EPKc");

void constructString16(void* string, const char* text) {
    using Constructor = void (*)(void*, const char*);
    static const auto own = reinterpret_cast<Constructor>(dlsym(RTLD_NEXT, "_ZN7android8String16C1EPKc"));
    if (!mainHasBegun && comesFromTheLibrary(__builtin_return_address(0)) && constructions < kMost)
        constructed[constructions++] = text;
    own(string, text);
}

namespace {

TEST(LoadingTheLibrary, ConstructsTheFiveDescriptorsInTheirOrder) {
    const std::vector<std::string> descriptors(constructed, constructed + constructions);
    EXPECT_THAT(descriptors,
                testing::ElementsAre("accessory.AccessoryManager", "accessory.AppleiAP2Manager",
                                     "accessory.AppleiAP2ManagerNotifier", "accessory.AppleUSBAudioManager",
                                     "accessory.AppleUSBAudioManagerNotifier"));
}

}  // namespace

int main(int argc, char** argv) {
    mainHasBegun = true;
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
