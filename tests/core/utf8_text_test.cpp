#include "core/utf8_text.h"

#include "core/xml_text.h"

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
    {"letters", "S\xC3\xB8yle \xE2\x82\xAC", "S\xC3\xB8yle \xE2\x82\xAC"},
    {"beyondTheFirstPlane", "\xF0\x9F\x8F\x97", "\xF0\x9F\x8F\x97"},
    {"colour", "\x1B[31mred", "?[31mred"},
    {"title", "a\x1B]0;x\x07z", "a?]0;x?z"},
    {"lineEnds", "a\r\nb\tc", "a??b?c"},
    {"del", "a\x7F", "a?"},
    {"nul", std::string("a\0b", 3), "a?b"},
    {"c1OfUnicode", "a\xC2\x9B[m", "a?[m"},
    {"noBreakSpaceStays", "a\xC2\xA0z", "a\xC2\xA0z"},
    // Windows-1252: 0x9B, which a terminal of one byte a character obeys, is a quotation mark.
    {"c1AsAByte", "a\x9B[m", "a\xE2\x80\xBA[m"},
    {"windows", "S\xF8yle", "S\xC3\xB8yle"},
    {"unusedByte", "a\x81", "a?"},
    // A character that the text ends within is none of UTF-8: 0xC3 is the A with tilde, 0xE2 and
    // 0x82 the a with circumflex and the low quotation mark of Windows-1252.
    {"cutCharacter", "a\xC3", "a\xC3\x83"},
    {"cutLongCharacter", "a\xE2\x82", "a\xC3\xA2\xE2\x80\x9A"},
};

class PrintableText : public ::testing::TestWithParam<PrintableCase> {};

TEST_P(PrintableText, HasNothingThatATerminalObeys)
{
    EXPECT_EQ(Printable(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Cases, PrintableText, ::testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

// XML 1.0, 2.4; texts of older files are in Windows-1252.
TEST(XmlText, EscapesWhatXmlMeansAndKnowsOlderFiles)
{
    EXPECT_EQ(XmlText("a < b & \"c\" > d"), "a &lt; b &amp; &quot;c&quot; &gt; d");
    EXPECT_EQ(XmlText("S\xC3\xB8yle"), "S\xC3\xB8yle");
    EXPECT_EQ(XmlText("S\xF8yle <1"), "S\xC3\xB8yle &lt;1");
}

TEST(PrintableLines, KeepsLineEndsAndTabsAlone)
{
    EXPECT_EQ(PrintableLines("a\tb\n\x1B[2Jc\r\n"), "a\tb\n?[2Jc?\n");
}

// RFC 3629, section 3: the first and last character of each length.
TEST(AppendUtf8, WritesEachLength)
{
    const std::pair<unsigned, const char*> cases[] = {{0x7F, "\x7F"},
                                                      {0x80, "\xC2\x80"},
                                                      {0x7FF, "\xDF\xBF"},
                                                      {0x800, "\xE0\xA0\x80"},
                                                      {0xFFFF, "\xEF\xBF\xBF"},
                                                      {0x10000, "\xF0\x90\x80\x80"},
                                                      {0x10FFFF, "\xF4\x8F\xBF\xBF"}};
    for (const auto& [code, bytes] : cases) {
        std::string out;
        AppendUtf8(out, code);
        EXPECT_EQ(out, bytes) << code;
    }
}

}  // namespace
}  // namespace kestrum
