// What tables are saved as, byte by byte and at once: the same text comes of both.

#include "app/table_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrum {
namespace {

using namespace std::string_literals;
using ::testing::HasSubstr;

struct Decoded {
    std::string text, refusal;
};

Decoded Decode(const std::string& bytes, std::size_t step)
{
    TableDecoder decoder;
    Decoded out;
    for (std::size_t at = 0; at < bytes.size() && out.refusal.empty(); at += step) {
        out.refusal = decoder.Add(std::string_view(bytes).substr(at, step), out.text);
    }
    if (out.refusal.empty()) {
        out.refusal = decoder.End(out.text);
    }
    return out;
}

std::string Utf16(const std::u16string& text, bool big)
{
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8U), low = static_cast<char>(unit & 0xFFU);
        bytes.push_back(big ? high : low);
        bytes.push_back(big ? low : high);
    }
    return bytes;
}

struct TextCase {
    const char* name;
    std::string bytes, text;
};

const TextCase kCases[] = {
    {"empty", "", ""},
    {"oneByte", "l", "l"},
    {"plain", "l,ident\n5,a\n", "l,ident\n5,a\n"},
    {"windowsLineEnds", "l\r\n5\r\n", "l\r\n5\r\n"},
    {"marked", "\xEF\xBB\xBF{\"l\": 5}\n", "{\"l\": 5}\n"},
    {"carriageReturns", "l,ident\r5,a\r6,b\r", "l,ident\n5,a\n6,b\n"},
    {"carriageReturnsWithoutTheLast", "l\r5", "l\n5"},
    {"aCarriageReturnLaterIsNone", "l\n5\r6\n", "l\n5\r6\n"},
    {"littleEndian", Utf16(u"\uFEFFl\tident\r\n5\t\u00E5\U0001F3D7\r\n", false),
     "l\tident\r\n5\t\xC3\xA5\xF0\x9F\x8F\x97\r\n"},
    {"bigEndian", Utf16(u"\uFEFFl\n5\n", true), "l\n5\n"},
    {"littleEndianUnmarked", Utf16(u"l\n5\n", false), "l\n5\n"},
    {"bigEndianUnmarked", Utf16(u"l\n5\n", true), "l\n5\n"},
    {"utf16WithCarriageReturns", Utf16(u"\uFEFFl\r5\r", false), "l\n5\n"},
    // Half a unit, and half a pair: what was cut is no number any more.
    {"cutInAUnit",
     "\xFF\xFEl\0\n\0"
     "5\0.\0"
     "2"s,
     "l\n5.\xEF\xBF\xBD"},
    {"cutInAPair", Utf16(u"\uFEFFa\xD83C", false), "a\xEF\xBF\xBD"},
    {"halfAPairInside", Utf16(u"\uFEFF\xD83Cz\xDFD7", false), "\xEF\xBF\xBDz\xEF\xBF\xBD"},
};

class TableText : public ::testing::TestWithParam<TextCase> {};

TEST_P(TableText, IsTheSameInPiecesAndAtOnce)
{
    for (const std::size_t step : {1U, 2U, 3U, 5U, 1000U}) {
        const Decoded decoded = Decode(GetParam().bytes, step);
        EXPECT_EQ(decoded.text, GetParam().text) << step;
        EXPECT_EQ(decoded.refusal, "") << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, TableText, ::testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(TableDecoder, NamesWhatIsNoTable)
{
    const std::pair<std::string, const char*> cases[] = {
        {"PK\x03\x04 and more", "XLSX"},
        {"\xD0\xCF\x11\xE0\xA1\xB1", "XLS"},
        {"\x1F\x8B\x08", "compressed"},
        {"\xFF\xFE\0\0l\0\0\0"s, "UTF-32"},
    };
    for (const auto& [bytes, what] : cases) {
        for (const std::size_t step : {1U, 1000U}) {
            EXPECT_THAT(Decode(bytes, step).refusal, HasSubstr(what)) << step;
        }
    }
}

// A program may send a line and wait for the answer.
TEST(TableDecoder, HoldsNothingBackThatIsClear)
{
    TableDecoder decoder;
    std::string text;
    EXPECT_EQ(decoder.Add("{}\n", text), "");
    EXPECT_EQ(text, "{}\n");
}

}  // namespace
}  // namespace kestrum
