// The built library as a file: what it runs when it is loaded, and what it exports.
#include <cxxabi.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <regex>
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

class LibraryFile : public testing::Test {
  protected:
    void SetUp() override {
#ifdef LIBRARY_IS_SANITIZED
        GTEST_SKIP() << "sanitizers add constructors and symbols of their own";
#endif
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

TEST_F(LibraryFile, TellsTracingRuntimesTheDigestOfItsTables) {
    EXPECT_THAT(mLibrary.exports(), testing::Contains("binder_trace_note"));
}

TEST_F(LibraryFile, ExportsTheTraceObject) {
    std::vector<std::string> names;
    for (const std::string& name : mLibrary.exports())
        names.push_back(demangled(name));
    EXPECT_THAT(names, testing::Contains("IAPAutoTrace::~IAPAutoTrace()"));
}

}  // namespace
