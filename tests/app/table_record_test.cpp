#include "app/table_record.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kestrum {
namespace {

using Records = std::vector<std::string>;

Records Cut(std::string_view text, std::string_view separators)
{
    Records records;
    while (!text.empty()) {
        records.emplace_back(TakeRecord(text, separators));
    }
    return records;
}

// As a stream in pieces: whatever is complete is taken, the rest waits for more.
Records CutInPieces(const std::string& text, std::string_view separators, std::size_t step)
{
    Records records;
    std::string rest;
    for (std::size_t at = 0; at < text.size(); at += step) {
        rest += text.substr(at, step);
        const bool whole = at + step >= text.size();
        for (std::size_t end = 0;
             !rest.empty() && (end = RecordEnd(rest, separators, whole)) != std::string::npos;) {
            std::string_view record = std::string_view(rest).substr(0, end);
            records.emplace_back(
                record.substr(0, record.size() - (record.ends_with('\r') ? 1 : 0)));
            rest.erase(0, end + 1);
        }
    }
    return records;
}

struct RecordCase {
    const char* name;
    std::string text;
    Records records;
};

const RecordCase kCases[] = {
    {"lines", "l,b\r\n5,6\n\n7,8", {"l,b", "5,6", "", "7,8"}},
    {"quotedLineEnd", "\"a\nb\",1\nc,2\n", {"\"a\nb\",1", "c,2"}},
    {"quotedLineEndOfWindows", "\"a\r\nb\",1\r\nc,2\r\n", {"\"a\r\nb\",1", "c,2"}},
    {"lastCell", "1,\"a\nb\"\r\n2,c\r\n", {"1,\"a\nb\"", "2,c"}},
    {"lastOfAll", "1,\"a\nb\"", {"1,\"a\nb\""}},
    {"lastOfAllWithMoreCells", "\"a\nb\",2", {"\"a\nb\",2"}},
    {"doubledQuotes", "\"a\"\"\n\"\"b\",1\n2\n", {"\"a\"\"\n\"\"b\",1", "2"}},
    {"severalCells", "\"a\nb\",\"c\nd\"\n2\n", {"\"a\nb\",\"c\nd\"", "2"}},
    {"separatorAndQuoteInside", "\"a\n,\"\",\nb\",1\n2\n", {"\"a\n,\"\",\nb\",1", "2"}},
    // An inch within a cell opens nothing.
    {"inchInside", "5\" pipe,1\n6\" pipe,2\n", {"5\" pipe,1", "6\" pipe,2"}},
    // A slip takes no other member along.
    {"notClosed", "\"a,1\nb,2\nc,3\n", {"\"a,1", "b,2", "c,3"}},
    {"closedInsideACell", "\"a,1\nb,2\n\"c d\",3\n", {"\"a,1", "b,2", "\"c d\",3"}},
    {"textBehindTheQuote", "\"a\nb\"c,1\n2\n", {"\"a", "b\"c,1", "2"}},
};

class TableRecord : public ::testing::TestWithParam<RecordCase> {};

TEST_P(TableRecord, EndsInTheSamePlaceHoweverTheTextComes)
{
    EXPECT_EQ(Cut(GetParam().text, ","), GetParam().records);
    for (const std::size_t step : {1U, 2U, 3U, 7U}) {
        EXPECT_EQ(CutInPieces(GetParam().text, ",", step), GetParam().records) << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, TableRecord, ::testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(TableRecordEnd, AQuoteIsSoughtNoFartherThanALineMayBeLong)
{
    const std::string text = "\"a,1\n" + std::string(kLongestQuoted, 'x') + "\n\",2\n";
    EXPECT_EQ(RecordEnd(text, ",", false), 4U);
    EXPECT_EQ(RecordEnd(text, ",", true), 4U);
    // As long as it may still be closed, more is needed.
    EXPECT_EQ(RecordEnd("\"a,1\nb", ",", false), std::string_view::npos);
}

TEST(TableRecordEnd, CellsBeginBehindTheSeparatorOfTheTable)
{
    EXPECT_EQ(Cut("1,5;\"a\nb\"\n2\n", ";"), (Records{"1,5;\"a\nb\"", "2"}));
    EXPECT_EQ(Cut("1,\"5;a\n2\n", ";"), (Records{"1,\"5;a", "2"}));
}

}  // namespace
}  // namespace kestrum
