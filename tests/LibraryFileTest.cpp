// The built library as a file: what it runs when it is loaded, and what it exports.
#include <cxxabi.h>
#include <elf.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Header = ElfW(Ehdr);
using Section = ElfW(Shdr);
using Symbol = ElfW(Sym);

/// A shared library read into memory.
class ElfFile {
  public:
    explicit ElfFile(const std::string& path) : mBytes(contents(path)), mHeader(at<Header>(0)) {
        if (std::memcmp(mHeader.e_ident, ELFMAG, SELFMAG) != 0) throw std::runtime_error(path + ": not ELF");
    }

    std::vector<Section> sections() const { return table<Section>(mHeader.e_shoff, mHeader.e_shnum); }

    /// The section of that type; a library has at most one of the types that are asked for here.
    Section section(ElfW(Word) type) const {
        for (const Section& section : sections()) {
            if (section.sh_type == type) return section;
        }
        return {};
    }

    /// Number of functions that the dynamic linker runs when it loads the library.
    size_t initializers() const { return section(SHT_INIT_ARRAY).sh_size / sizeof(ElfW(Addr)); }

    /// Mangled names of what the library offers to others.
    std::vector<std::string> exports() const {
        const Section dynamic = section(SHT_DYNSYM);
        const size_t strings = sections().at(dynamic.sh_link).sh_offset;
        std::vector<std::string> names;
        for (const Symbol& symbol : table<Symbol>(dynamic.sh_offset, dynamic.sh_size / sizeof(Symbol))) {
            if (isExported(symbol)) names.emplace_back(&mBytes.at(strings + symbol.st_name));
        }
        return names;
    }

  private:
    static std::vector<char> contents(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        if (!file) throw std::runtime_error(path + ": cannot be read");
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    static bool isExported(const Symbol& symbol) {
        return symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL;
    }

    template <typename T>
    T at(size_t offset) const {
        if (offset + sizeof(T) > mBytes.size()) throw std::out_of_range("beyond the end of the file");
        T value{};
        std::memcpy(&value, mBytes.data() + offset, sizeof(T));
        return value;
    }

    template <typename T>
    std::vector<T> table(size_t offset, size_t count) const {
        std::vector<T> rows;
        for (size_t row = 0; row < count; ++row)
            rows.push_back(at<T>(offset + row * sizeof(T)));
        return rows;
    }

    const std::vector<char> mBytes;
    const Header mHeader;
};

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
    std::vector<std::string> strangers;
    for (const std::string& symbol : mLibrary.exports()) {
        if (!belongsToTheLibrary(symbol) && !isAnInstantiation(symbol))
            strangers.push_back(demangled(symbol));
    }
    EXPECT_THAT(strangers, testing::IsEmpty());
}

TEST_F(LibraryFile, ExportsTheTraceObject) {
    std::vector<std::string> names;
    for (const std::string& name : mLibrary.exports())
        names.push_back(demangled(name));
    EXPECT_THAT(names, testing::Contains("IAPAutoTrace::~IAPAutoTrace()"));
}

}  // namespace
