// ElfFile: a program or shared library as the linker left it.
#pragma once

#include <elf.h>
#include <link.h>

#include <optional>
#include <string>
#include <vector>

namespace accessory::test {

/// A file of this machine's kind, read into memory.
class ElfFile {
  public:
    using Header = ElfW(Ehdr);
    using Segment = ElfW(Phdr);
    using Section = ElfW(Shdr);
    using Symbol = ElfW(Sym);
    using DynamicEntry = ElfW(Dyn);

    /// @throws std::runtime_error when there is no ELF file at @p path.
    explicit ElfFile(const std::string& path);

    const Header& header() const { return mHeader; }

    /// The segment of that type; a file has at most one of the types that are asked for here.
    std::optional<Segment> segment(ElfW(Word) type) const;

    /// The section of that type, likewise; all zero when there is none.
    Section section(ElfW(Word) type) const;

    /// Value of an entry for the dynamic linker; 0 without one.
    ElfW(Xword) dynamicValue(ElfW(Sxword) tag) const;

    /// Number of functions that the dynamic linker runs when it loads the file.
    size_t initializers() const { return section(SHT_INIT_ARRAY).sh_size / sizeof(ElfW(Addr)); }

    /// Mangled names of what the file offers to others.
    std::vector<std::string> exports() const;

    /// Mangled names of what the file wants from others.
    std::vector<std::string> imports() const;

  private:
    template <typename T>
    T at(size_t offset) const;
    template <typename T>
    std::vector<T> table(size_t offset, size_t count) const;
    std::vector<Section> sections() const;
    template <typename IsWanted>
    std::vector<std::string> names(const IsWanted& isWanted) const;

    const std::vector<char> mBytes;
    const Header mHeader;
};

}  // namespace accessory::test
