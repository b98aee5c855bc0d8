// The built library as a file: what it runs when it is loaded, and what it exports.
#include <cxxabi.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/ElfFile.h"

namespace {

using accessory::test::ElfFile;

std::string demangled(const std::string& name) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? text.get() : name;
}

bool belongsToTheLibrary(const std::string& symbol) {
    static const std::regex ours(
        "((vtable|typeinfo|typeinfo name|VTT|construction vtable) for |(non-virtual|virtual|covariant "
        "return) thunk to )?"
        "(accessory::|IAPAutoTrace(::|$)).*");
    return std::regex_match(demangled(symbol), ours);
}

/// Instantiations of the platform's and the standard library's templates, and the abstract DeathRecipient,
/// are compiled anew into every library that uses them; the dynamic linker merges them, so they cannot be
/// hidden.
bool isAnInstantiation(const std::string& symbol) {
    static const std::regex platform(
        "(vtable|typeinfo|typeinfo name) for "
        "android::(B[np]Interface<accessory::.*|IBinder::DeathRecipient)");
    static const std::regex mangledInStd("_Z(TV|TI|TS|GV)?Z?N?K?(S[tabsiod]|9__gnu_cxx).*");
    return std::regex_match(demangled(symbol), platform) || std::regex_match(symbol, mangledInStd);
}

/// The classes that others derive from, hold or are handed.
constexpr const char* kOnlyOffered[] = {"AccessoryManagerImplItf",
                                        "AccessoryManagerNotifierDeathRecipient",
                                        "AppleUSBAudioManagerImplItf",
                                        "AppleUSBAudioManagerNotifierImplItf",
                                        "AppleUSBAudioManagerNotifierItf",
                                        "AppleiAP2ManagerImplItf",
                                        "AppleiAP2ManagerNotifierImplItf",
                                        "AppleiAP2ManagerNotifierItf",
                                        "IAccessoryManager",
                                        "IAppleUSBAudioManager",
                                        "IAppleUSBAudioManagerNotifier",
                                        "IAppleiAP2Manager",
                                        "IAppleiAP2ManagerNotifier",
                                        "LaneGuidanceInfo",
                                        "MediaItemMask",
                                        "MediaLibDataMask",
                                        "MediaLibUpdateInfo",
                                        "MediaPlaylistMask",
                                        "RouteGuidaceUpdateInfo",
                                        "RuoteGuidanceManeuverUpdateInfo",
                                        "iAP2ItemAttribute",
                                        "iAP2ItemAttributeMask",
                                        "iAP2MediaItem",
                                        "iAP2MediaItemDelId",
                                        "iAP2MediaLibData",
                                        "iAP2MediaLibGroupData",
                                        "iAP2MediaPlayback",
                                        "iAP2MediaPlaybackMask",
                                        "iAP2MediaPlaylist",
                                        "iAP2MediaPlaylistDelId",
                                        "iAP2PowerUpdate",
                                        "iAP2PowerUpdateMask"};

/// Those of them that others make, through a constructor that is in the library. The masks and the requests
/// for updates are made by constructors in the headers.
constexpr const char* kMadeByOthers[] = {"AppleUSBAudioManagerNotifier",
                                         "AppleUSBAudioNotifierDeathRecipient",
                                         "AppleiAP2ManagerNotifier",
                                         "AppleiAP2NotifierDeathRecipient",
                                         "BnAccessoryManager",
                                         "BnAppleUSBAudioManager",
                                         "BnAppleUSBAudioManagerNotifier",
                                         "BnAppleiAP2Manager",
                                         "BnAppleiAP2ManagerNotifier",
                                         "BpAccessoryManager",
                                         "BpAppleUSBAudioManager",
                                         "BpAppleUSBAudioManagerNotifier",
                                         "BpAppleiAP2Manager",
                                         "BpAppleiAP2ManagerNotifier",
                                         "ILaneGuidanceInformation",
                                         "IRouteGuidaceUpdateInfo",
                                         "IRuoteGuidanceManeuverUpdateInfo",
                                         "IiAP2ItemAttribute",
                                         "IiAP2MediaItem",
                                         "IiAP2MediaItemDelId",
                                         "IiAP2MediaLibData",
                                         "IiAP2MediaPlayback",
                                         "IiAP2MediaPlaylist",
                                         "IiAP2MediaPlaylistDelId",
                                         "IiAP2PowerUpdate"};

class LibraryFile : public testing::Test {
  protected:
    void SetUp() override {
#ifdef LIBRARY_IS_SANITIZED
        GTEST_SKIP() << "sanitizers add constructors and symbols of their own";
#endif
    }

    /// What the library offers, readable.
    std::set<std::string> offered() const {
        std::set<std::string> names;
        for (const std::string& symbol : mLibrary.exports())
            names.insert(demangled(symbol));
        return names;
    }

    const ElfFile mLibrary{LIBRARY_FILE};
};

TEST_F(LibraryFile, ConstructsNothingButTheInterfaceDescriptorsWhenItIsLoaded) {
    constexpr size_t kInterfaces = 5;
    constexpr size_t kOfTheCRuntime = 1;
    EXPECT_EQ(mLibrary.initializers(), kInterfaces + kOfTheCRuntime);
}

TEST_F(LibraryFile, ExportsNothingButItsDocumentedNames) {
    constexpr char kReadByTracingRuntimes[] = "binder_trace_note";
    std::vector<std::string> strangers;
    for (const std::string& symbol : mLibrary.exports()) {
        if (symbol == kReadByTracingRuntimes) continue;
        if (!belongsToTheLibrary(symbol) && !isAnInstantiation(symbol))
            strangers.push_back(demangled(symbol));
    }
    EXPECT_THAT(strangers, testing::IsEmpty());
}

/// Fails for a class whose table or type is not among @p names.
void expectClass(const std::string& name, const std::set<std::string>& names) {
    for (const char* of :
         {"vtable for accessory::", "typeinfo for accessory::", "typeinfo name for accessory::"})
        EXPECT_EQ(names.count(of + name), 1u) << of << name;
}

TEST_F(LibraryFile, ExportsEveryClassThatOthersUse) {
    const std::set<std::string> names = offered();
    for (const char* name : kOnlyOffered)
        expectClass(name, names);
    for (const char* name : kMadeByOthers) {
        expectClass(name, names);
        const std::string constructor = std::string("accessory::") + name + "::" + name + "(";
        const auto first = names.lower_bound(constructor);
        EXPECT_TRUE(first != names.end() && first->rfind(constructor, 0) == 0) << constructor;
    }
}

TEST_F(LibraryFile, TellsTracingRuntimesTheDigestOfItsTables) {
    EXPECT_THAT(mLibrary.exports(), testing::Contains("binder_trace_note"));
}

TEST_F(LibraryFile, ExportsTheTraceObject) {
    EXPECT_THAT(offered(), testing::Contains("IAPAutoTrace::~IAPAutoTrace()"));
}

}  // namespace
