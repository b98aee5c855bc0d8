#include "tests/ElfFile.h"

#include <cstring>
#include <fstream>
#include <stdexcept>

namespace accessory::test {

namespace {

std::vector<char> contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    std::vector<char> bytes(static_cast<size_t>(file.tellg()));
    file.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

}  // namespace

template <typename T>
T ElfFile::at(size_t offset) const {
    if (offset + sizeof(T) > mBytes.size()) throw std::out_of_range("beyond the end of the file");
    T value{};
    std::memcpy(&value, mBytes.data() + offset, sizeof(T));
    return value;
}

template <typename T>
std::vector<T> ElfFile::table(size_t offset, size_t count) const {
    std::vector<T> rows;
    for (size_t row = 0; row < count; ++row)
        rows.push_back(at<T>(offset + row * sizeof(T)));
    return rows;
}

ElfFile::ElfFile(const std::string& path) : mBytes(contents(path)), mHeader(at<Header>(0)) {
    if (std::memcmp(mHeader.e_ident, ELFMAG, SELFMAG) != 0) throw std::runtime_error(path + ": not ELF");
}

std::vector<ElfFile::Section> ElfFile::sections() const {
    return table<Section>(mHeader.e_shoff, mHeader.e_shnum);
}

std::optional<ElfFile::Segment> ElfFile::segment(ElfW(Word) type) const {
    for (const Segment& segment : table<Segment>(mHeader.e_phoff, mHeader.e_phnum)) {
        if (segment.p_type == type) return segment;
    }
    return std::nullopt;
}

ElfFile::Section ElfFile::section(ElfW(Word) type) const {
    for (const Section& section : sections()) {
        if (section.sh_type == type) return section;
    }
    return {};
}

ElfW(Xword) ElfFile::dynamicValue(ElfW(Sxword) tag) const {
    const Section dynamic = section(SHT_DYNAMIC);
    for (const DynamicEntry& entry :
         table<DynamicEntry>(dynamic.sh_offset, dynamic.sh_size / sizeof(DynamicEntry))) {
        if (entry.d_tag == tag) return entry.d_un.d_val;
    }
    return 0;
}

template <typename IsWanted>
std::vector<std::string> ElfFile::names(const IsWanted& isWanted) const {
    const Section dynamic = section(SHT_DYNSYM);
    const size_t strings = sections().at(dynamic.sh_link).sh_offset;
    std::vector<std::string> names;
    for (const Symbol& symbol : table<Symbol>(dynamic.sh_offset, dynamic.sh_size / sizeof(Symbol))) {
        if (isWanted(symbol)) names.emplace_back(&mBytes.at(strings + symbol.st_name));
    }
    return names;
}

std::vector<std::string> ElfFile::exports() const {
    return names([](const Symbol& symbol) {
        return symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL;
    });
}

std::vector<std::string> ElfFile::imports() const {
    return names([](const Symbol& symbol) { return symbol.st_shndx == SHN_UNDEF && symbol.st_name != 0; });
}

}  // namespace accessory::test
