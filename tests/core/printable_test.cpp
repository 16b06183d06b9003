#include "core/printable.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

struct PrintableCase {
    const char* name;
    std::string text, shown;
};

const PrintableCase kCases[] = {
    {"plain", "beam 1.kst", "beam 1.kst"},
    {"letters", "S\xC3\xB8yle \xE2\x82\xAC \xF0\x9F\x8F\x97",
     "S\xC3\xB8yle \xE2\x82\xAC \xF0\x9F\x8F\x97"},
    {"colour", "\x1B[31mred", "?[31mred"},
    {"title", std::string("a\x1B]0;x\x07z"), "a?]0;x?z"},
    {"lineEnds", "a\r\nb\tc", "a??b?c"},
    {"del", "a\x7F", "a?"},
    {"nul", std::string("a\0b", 3), "a?b"},
    {"c1OfUnicode",
     "a\xC2\x9B"
     "31m",
     "a?31m"},
    {"c1AsAByte",
     "a\x9B"
     "31m",
     "a?31m"},
    {"noBreakSpaceStays", "a\xC2\xA0z", "a\xC2\xA0z"},
    {"latin1", "S\xF8yle", "S?yle"},
    {"cutShort", "a\xE2\x82", "a??"},
    {"overlong", "\xC0\x9B", "??"},
    {"halfOfAPair", "\xED\xA0\x80", "???"},
    {"beyondUnicode", "\xF4\x90\x80\x80", "????"},
};

class PrintableText : public ::testing::TestWithParam<PrintableCase> {};

TEST_P(PrintableText, HasNothingThatATerminalObeys)
{
    EXPECT_EQ(Printable(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Cases, PrintableText, ::testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(PrintableLines, KeepsLineEndsAndTabsAlone)
{
    EXPECT_EQ(PrintableLines("a\tb\n\x1B[2Jc\r\n"), "a\tb\n?[2Jc?\n");
}

}  // namespace
}  // namespace kestrum
