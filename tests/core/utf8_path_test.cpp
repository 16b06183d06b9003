#include "core/utf8_path.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

TEST(Utf8Path, KeepsNamesOfAnyScript)
{
    for (const char* name : {"", "x.kst", "Tr\xc3\xa4ger \xc3\xb8.kst", "\xe6\xa2\x81.kst"}) {
        EXPECT_EQ(Utf8Name(Utf8Path(name)), name);
    }
    EXPECT_EQ(Utf8Path("a/b.kst").filename(), fs::path("b.kst"));
}

TEST(OpenFile, WritesAndReadsUnderSuchAName)
{
    const fs::path path = fs::temp_directory_path() / Utf8Path("kestrum-utf8-Tr\xc3\xa4ger.txt");
    std::FILE* file = OpenFile(path, "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("12", file);
    std::fclose(file);
    EXPECT_EQ(fs::file_size(path), 2U);
    file = OpenFile(path, "ab");
    ASSERT_NE(file, nullptr);
    std::fputs("3", file);
    std::fclose(file);
    EXPECT_EQ(fs::file_size(path), 3U);
    fs::remove(path);
    EXPECT_EQ(OpenFile(path, "rb"), nullptr);
    EXPECT_EQ(errno, ENOENT);
}

}  // namespace
}  // namespace kestrum
