// The built libraries and programs as files: what must have been asked of the compiler and the linker.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/ElfFile.h"

namespace accessory::test {
namespace {

/// BUILT_FILES are paths, each with a ':' behind it.
std::vector<std::string> builtFiles() {
    const std::string list = BUILT_FILES;
    std::vector<std::string> files;
    for (size_t begin = 0; begin < list.size();) {
        const size_t end = list.find(':', begin);
        files.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return files;
}

class BuiltFile : public testing::TestWithParam<std::string> {
  protected:
    bool isProgram() const { return file.segment(PT_INTERP).has_value(); }

    const ElfFile file{GetParam()};
};

TEST_P(BuiltFile, HasTablesThatAreReadOnlyOnceItRuns) {
    EXPECT_TRUE(file.segment(PT_GNU_RELRO).has_value());
    EXPECT_NE(file.dynamicValue(DT_FLAGS) & DF_BIND_NOW, 0u);
    EXPECT_NE(file.dynamicValue(DT_FLAGS_1) & DF_1_NOW, 0u);
}

TEST_P(BuiltFile, HasAStackThatDoesNotRun) {
    ASSERT_TRUE(file.segment(PT_GNU_STACK).has_value());
    EXPECT_EQ(file.segment(PT_GNU_STACK)->p_flags & PF_X, 0u);
}

TEST_P(BuiltFile, LiesAtARandomAddress) {
    EXPECT_EQ(file.header().e_type, ET_DYN);
    EXPECT_EQ((file.dynamicValue(DT_FLAGS_1) & DF_1_PIE) != 0, isProgram());
}

TEST_P(BuiltFile, GuardsItsStack) { EXPECT_THAT(file.imports(), testing::Contains("__stack_chk_fail")); }

TEST_P(BuiltFile, ChecksItsCopiesAndTexts) {
#ifndef FILES_ARE_FORTIFIED
    GTEST_SKIP() << "the checked functions need the optimizer, and no sanitizer";
#endif
    EXPECT_THAT(file.imports(), testing::Contains(testing::EndsWith("_chk")));
}

INSTANTIATE_TEST_SUITE_P(Of, BuiltFile, testing::ValuesIn(builtFiles()), [](const auto& file) {
    std::string name = std::filesystem::path(file.param).filename().string();
    name.erase(std::min(name.find('.'), name.size()));
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
});

}  // namespace
}  // namespace accessory::test
