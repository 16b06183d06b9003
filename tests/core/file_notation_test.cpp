#include "core/file_notation.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace kestrum {
namespace {

using std::string_literals::operator""s;

TEST(FileNumber, WritesTheShortestSingle)
{
    struct Case {
        float value;
        const char* text;
    };
    const Case cases[] = {
        {0, "0"},
        {-0.0f, "0"},
        {1, "1"},
        {-3, "-3"},
        {0.85f, ".85"},
        {-0.5f, "-.5"},
        {1.05f, "1.05"},
        {-1.5f, "-1.5"},
        {10, "10"},
        {210000, "210000"},
        {1.0f / 3.0f, ".33333334"},
        {0.1f, ".1"},
        {0.0001f, ".0001"},
        {0.00012f, ".00012"},
        {0.00009f, "9E-05"},
        {0.000012345f, "1.2345E-05"},
        {9999999, "9999999"},
        {10000000, "1E+07"},
        {-12345678, "-1.2345678E+07"},
        {1185000000.0f, "1.185E+09"},
        {7569000103936.0f, "7.569E+12"},
        {3.4028235e38f, "3.4028235E+38"},
        {1e-45f, "1E-45"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FileNumber(c.value), c.text);
    }
}

TEST(FileNumber, WritesTheShortestDouble)
{
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {0, "0"},
        {0.75, ".75"},
        {1.05, "1.05"},
        {1.0 / 3.0, ".3333333333333333"},
        {11.5, "11.5"},
        {123456789012, "123456789012"},
        {999999999999999, "999999999999999"},
        {1e15, "1E+15"},
        {-2.5e20, "-2.5E+20"},
        {1.7976931348623157e308, "1.7976931348623157E+308"},
        {0.0001, ".0001"},
        {0.00005, "5E-05"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FileNumber(c.value), c.text);
    }
}

TEST(FileNumber, ReadsBackToTheSameValue)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 100000; ++i) {
        const std::uint64_t bits = random();
        const auto low = static_cast<std::uint32_t>(bits);
        float single = 0;
        std::memcpy(&single, &low, sizeof single);
        double real = 0;
        std::memcpy(&real, &bits, sizeof real);
        if (std::isfinite(single)) {
            float back = 1;
            ValueReader(FileNumber(single)).Take("x", back);
            ASSERT_EQ(back, single) << FileNumber(single);
        }
        if (std::isfinite(real)) {
            double back = 1;
            ValueReader(FileNumber(real)).Take("x", back);
            ASSERT_EQ(back, real) << FileNumber(real);
        }
    }
}

TEST(ValueWriter, EndsEachValueWithItsLine)
{
    ValueWriter writer;
    writer.Put(i16{-7});
    writer.Put(0.25f);
    writer.Put(1.05);
    writer.PutTruth(kTrue);
    writer.PutTruth(kFalse);
    writer.PutTruth(1);
    writer.PutText("EU");
    writer.PutText("");
    writer.PutLine("a, \"b\"");
    EXPECT_EQ(writer.Finish(), "-7\r\n.25\r\n1.05\r\n#TRUE#\r\n#FALSE#\r\n#TRUE#\r\n\"EU\"\r\n"
                               "\"\"\r\na, \"b\"\r\n");
}

// A result that is no number never makes a file that cannot be read.
TEST(FileNumber, IsZeroForWhatIsNone)
{
    EXPECT_EQ(FileNumber(std::numeric_limits<float>::infinity()), "0");
    EXPECT_EQ(FileNumber(-std::numeric_limits<double>::infinity()), "0");
    EXPECT_EQ(FileNumber(std::numeric_limits<double>::quiet_NaN()), "0");
}

TEST(ValueWriter, KeepsATextOnItsLine)
{
    ValueWriter writer;
    writer.PutText("a\r\nb\n");
    writer.PutLine("c\rd");
    EXPECT_EQ(writer.Finish(), "\"a  b \"\r\nc d\r\n");
}

// --- reading ---

template <class T> T Taken(std::string_view text, std::string* fault = nullptr)
{
    T value{};
    ValueReader reader(text);
    reader.Take("x", value);
    if (fault != nullptr) {
        *fault = reader.fault().what;
    } else {
        EXPECT_TRUE(reader.ok()) << reader.fault().what;
    }
    return value;
}

TEST(ValueReader, ReadsNumbersInEverySpelling)
{
    for (const char* text : {"1.5", "  1.5", "\t1.5 ", "+1.5", "1.5\r\n", "1.5\n", "1.5,", "1.5 ,2",
                             "15E-1", "15e-01", "15D-1", ".15d+1", "1.50000"}) {
        EXPECT_EQ(Taken<float>(text), 1.5f) << text;
        EXPECT_EQ(Taken<double>(text), 1.5) << text;
    }
    EXPECT_EQ(Taken<float>("1185000000"), Taken<float>("1.185E+09"));
    EXPECT_EQ(Taken<double>("-.5"), -0.5);
    EXPECT_EQ(Taken<double>("5."), 5);
}

TEST(ValueReader, RoundsAFractionForAWholeNumberToTheEven)
{
    EXPECT_EQ(Taken<i16>("2.5"), 2);
    EXPECT_EQ(Taken<i16>("3.5"), 4);
    EXPECT_EQ(Taken<i16>("-32768"), -32768);
    EXPECT_EQ(Taken<i16>("32767.4"), 32767);
    EXPECT_EQ(Taken<i16>("1E+02"), 100);
}

TEST(ValueReader, NamesFieldAndFindingOfAWrongNumber)
{
    struct Case {
        const char* text;
        const char* found;
    };
    const Case cases[] = {
        {"abc", "abc"},     {"", nullptr},      {"\r\n", ""},         {",", ""},
        {"1.2.3", "1.2.3"}, {"1 2", "1 2"},     {"12mm", "12mm"},     {"--1", "--1"},
        {"+-1", "+-1"},     {"-", "-"},         {"+", "+"},           {".", "."},
        {"nan", "nan"},     {"inf", "inf"},     {"-inf", "-inf"},     {"0x10", "0x10"},
        {"1e", "1e"},       {"\"1\"", "\"1\""}, {"#TRUE#", "#TRUE#"}, {"1e999", "1e999"},
    };
    for (const Case& c : cases) {
        std::string fault;
        const std::string expected = c.found == nullptr
                                         ? "field x: expected a number, found the end of the file"
                                         : "field x: expected a number, found \""s + c.found + '"';
        Taken<double>(c.text, &fault);
        EXPECT_EQ(fault, expected);
        Taken<float>(c.text, &fault);
        EXPECT_EQ(fault, expected);
        Taken<i16>(c.text, &fault);
        EXPECT_EQ(fault, expected);
    }
}

TEST(ValueReader, RefusesWhatTheFieldCannotHold)
{
    std::string fault;
    for (const char* text : {"32768", "-32769", "32767.5", "1E+30"}) {
        EXPECT_EQ(Taken<i16>(text, &fault), 0);
        EXPECT_TRUE(fault.starts_with("field x: expected a whole number of 16 bits, found \""))
            << fault;
    }
    EXPECT_EQ(Taken<float>("1E+39", &fault), 0);
    EXPECT_EQ(fault, "field x: expected a number of single precision, found \"1E+39\"");
}

// A message repeats 40 bytes, and no half character: the a with ring is two bytes of UTF-8. Bytes
// that only go on with a character begin none.
TEST(ValueReader, AMessageRepeatsTheBeginningOfALongValue)
{
    const std::string odd = "x" + std::string(18, 'y') + "\xC3\xA5";  // 21 bytes
    std::string rings = "x", fault;
    for (int i = 0; i < 30; ++i) {
        rings += "\xC3\xA5";
    }
    const std::string expected = "field x: expected a number, found \"";
    Taken<double>(odd + odd, &fault);
    EXPECT_EQ(fault, expected + odd + "x" + std::string(18, 'y') + "...\"");
    Taken<double>(rings, &fault);
    EXPECT_EQ(fault, expected + rings.substr(0, 39) + "...\"");
    Taken<double>(std::string(50, '\x80'), &fault);
    EXPECT_EQ(fault, expected + "...\"");
    Taken<double>(std::string(40, 'z'), &fault);
    EXPECT_EQ(fault, expected + std::string(40, 'z') + '"');
}

TEST(ValueReader, ReadsTruthValues)
{
    struct Case {
        const char* text;
        i16 value;
    };
    for (const Case& c : {Case{"#TRUE#", kTrue},
                          {"#true#", kTrue},
                          {" #True# ", kTrue},
                          {"-1", kTrue},
                          {"1", kTrue},
                          {"#FALSE#", kFalse},
                          {"#false#", kFalse},
                          {"0", kFalse}}) {
        i16 value = 5;
        ValueReader reader(c.text);
        reader.TakeTruth("x", value);
        EXPECT_TRUE(reader.ok());
        EXPECT_EQ(value, c.value) << c.text;
    }
    for (const char* text : {"TRUE", "#TRUE", "2", "yes", "\"#TRUE#\"", "{true}", "#TRUE_#"}) {
        i16 value = 5;
        ValueReader reader(text);
        reader.TakeTruth("x", value);
        EXPECT_EQ(reader.fault().what,
                  "field x: expected #TRUE# or #FALSE#, found \""s + text + '"');
        EXPECT_EQ(value, 5);
    }
}

TEST(ValueReader, EndsATextAtItsQuote)
{
    struct Case {
        const char* text;
        const char* value;
        i16 next;
    };
    const Case cases[] = {
        {"\"EU\"\r\n7", "EU", 7},  {"  \"EU\" , 7", "EU", 7},
        {"\"a,b\",7", "a,b", 7},   {"\"\"\r\n7", "", 7},
        {"EU\r\n7", "EU", 7},      {"EU , 7", "EU", 7},
        {"\r\n7", "", 7},          {"\"a\"b\"\r\n7", "a", 7},
        {"\"a\"b,7\r\n8", "a", 7}, {"\"5\" pipe, thick\"\r\n7", "5", 7},
        {"\"\"\"\r\n7", "", 7},    {"\"open\r\n7", "\"open", 7},
    };
    for (const Case& c : cases) {
        std::string value = "before";
        i16 next = 0;
        ValueReader reader(c.text);
        reader.TakeText("t", value);
        reader.Take("n", next);
        EXPECT_TRUE(reader.ok()) << c.text << reader.fault().what;
        EXPECT_EQ(value, c.value) << c.text;
        EXPECT_EQ(next, c.next) << c.text;
    }
}

TEST(ValueReader, TakesALineAsItStands)
{
    std::string first, second, third;
    ValueReader reader(" a, \"b\" \r\n\nlast");
    reader.TakeLine("1", first);
    reader.TakeLine("2", second);
    reader.TakeLine("3", third);
    EXPECT_TRUE(reader.ok());
    EXPECT_EQ(first, " a, \"b\" ");
    EXPECT_EQ(second, "");
    EXPECT_EQ(third, "last");
    reader.TakeLine("4", third);
    EXPECT_EQ(reader.fault().what, "field 4: expected a line, found the end of the file");
    EXPECT_EQ(third, "last");
}

TEST(ValueReader, CountsLines)
{
    i16 value = 0;
    std::string text;
    ValueReader reader("1,2\n3\r\nline, text\n\"t\"\nabc\n");
    reader.Take("a", value);
    reader.Take("b", value);
    reader.Take("c", value);
    EXPECT_EQ(value, 3);
    reader.TakeLine("d", text);
    reader.TakeText("e", text);
    EXPECT_TRUE(reader.ok());
    reader.Take("l", value);
    EXPECT_EQ(reader.fault().line, 5);
    EXPECT_EQ(FaultText("/tmp/x.kst", reader.fault()),
              "/tmp/x.kst:5: field l: expected a number, found \"abc\"");
}

TEST(ValueReader, TakesNothingBehindAFault)
{
    i16 whole = 1;
    float single = 2;
    double real = 3;
    i16 truth = 4;
    std::string text = "t", line = "l";
    ValueReader reader("abc\n5\n6\n7\n#TRUE#\n\"text\"\nline\n");
    reader.Take("a", real);
    reader.Take("b", whole);
    reader.Take("c", single);
    reader.Take("d", real);
    reader.TakeTruth("e", truth);
    reader.TakeText("f", text);
    reader.TakeLine("g", line);
    EXPECT_EQ(whole, 1);
    EXPECT_EQ(single, 2);
    EXPECT_EQ(real, 3);
    EXPECT_EQ(truth, 4);
    EXPECT_EQ(text, "t");
    EXPECT_EQ(line, "l");
    EXPECT_EQ(reader.fault().line, 1);
    EXPECT_EQ(reader.fault().what, "field a: expected a number, found \"abc\"");
}

// --- encoding ---

TEST(ValueReader, KeepsUtf8)
{
    for (const char* text : {"St\xC3\xBCtze \xE2\x82\xAC", "\xF0\x9F\x98\x80", "plain"}) {
        std::string value;
        ValueReader(text).TakeLine("x", value);
        EXPECT_EQ(value, text);
    }
}

// RFC 3629: no surrogates, no longer forms of a character, nothing beyond U+10FFFF.
TEST(IsUtf8, TakesCharactersInTheirOneForm)
{
    for (const char* text : {"", "plain", "\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF",
                             "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsUtf8(text)) << text;
    }
    for (const char* text : {"\x80", "\xC1\xBF", "\xC3", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE2\x82",
                             "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
        EXPECT_FALSE(IsUtf8(text)) << text;
    }
}

TEST(ValueReader, TakesOtherBytesAsWindows1252)
{
    struct Case {
        const char* bytes;
        const char* text;
    };
    const Case cases[] = {
        {"St\xFCtze", "St\xC3\xBCtze"},              // u umlaut
        {"\x80 5", "\xE2\x82\xAC 5"},                // euro sign
        {"\x93x\x94", "\xE2\x80\x9Cx\xE2\x80\x9D"},  // curly quotes
        {"a\x81", "a?"},                             // no character
        {"\xC3", "\xC3\x83"},                        // cut in the middle of a character
        {"\xED\xFF", "\xC3\xAD\xC3\xBF"},
    };
    for (const Case& c : cases) {
        std::string value;
        ValueReader(c.bytes).TakeLine("x", value);
        EXPECT_EQ(value, c.text);
    }
}

TEST(ValueReader, ShowsAWrongValueShortAndReadable)
{
    std::string fault;
    Taken<float>("a\x01\x7F"
                 "b"s +
                     "\0"s + "c",
                 &fault);
    EXPECT_EQ(fault, "field x: expected a number, found \"a??b?c\"");
    Taken<float>(std::string(41, 'z'), &fault);
    EXPECT_EQ(fault, "field x: expected a number, found \"" + std::string(40, 'z') + "...\"");
    Taken<float>(std::string(39, 'z') + "\xC3\xBC" + "zz", &fault);  // no half character
    EXPECT_EQ(fault, "field x: expected a number, found \"" + std::string(39, 'z') + "...\"");
    Taken<float>("\xFC", &fault);
    EXPECT_EQ(fault, "field x: expected a number, found \"\xC3\xBC\"");
}

// --- any bytes ---

TEST(ValueReader, TakesVeryLongLines)
{
    const std::size_t kMany = 10'000'000;
    std::string fault;
    Taken<double>(std::string(kMany, 'a'), &fault);
    EXPECT_FALSE(fault.empty());
    EXPECT_LT(fault.size(), 100U);
    Taken<double>(std::string(kMany, '9'), &fault);
    EXPECT_FALSE(fault.empty());
    EXPECT_EQ(Taken<double>("." + std::string(kMany, '0') + "\n", &fault), 0);
    EXPECT_EQ(Taken<i16>(std::string(kMany, ' ') + "7"), 7);
    std::string text;
    const std::string quotes(kMany, '"');
    ValueReader reader(quotes);
    reader.TakeText("x", text);
    EXPECT_TRUE(reader.ok());
    ValueReader(std::string(kMany, 'n')).TakeLine("x", text);
    EXPECT_EQ(text.size(), kMany);
}

TEST(ValueReader, StopsAtWhatIsNoTextOfLines)
{
    for (const std::string& bytes : {"\xFF\xFE"
                                     "1\0003\0001\000\r\000\n\000"s,
                                     "131\r5\r6\r"s, "\0\0\0\0"s,
                                     "\xEF\xBB\xBF"
                                     "131\r\n"s}) {
        i16 value = 9;
        ValueReader reader(bytes);
        reader.Take("version", value);
        EXPECT_FALSE(reader.ok());
        EXPECT_EQ(reader.fault().line, 1);
        EXPECT_EQ(value, 9);
    }
}

}  // namespace
}  // namespace kestrum
