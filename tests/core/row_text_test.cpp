#include "core/row_text.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

ResultRow AxialRow()
{
    ResultRow row{};
    row.label = {"IR = NEd/Nc,Rd", "", ""};
    row.calculation = {"={F}/{F}", "", ""};
    row.number = {100.04, 500.05};
    row.ir = 0.2;
    row.judged = true;
    row.status = kWithin;
    return row;
}

TEST(RowText, WritesLabelCalculationResultAndLimit)
{
    ResultRow row = AxialRow();
    row.limit = {" ({r}L; Ch 6.2.4)", ""};
    row.place = {static_cast<double>(0.35f)};
    const RowText text = TextOf(row, 1.0f);
    EXPECT_EQ(text.label, "IR = NEd/Nc,Rd");
    EXPECT_EQ(text.calculation, "=100.0/500.1");
    EXPECT_EQ(text.result, "0.20");
    EXPECT_EQ(text.limit, " < 1.0 (0.35L; Ch 6.2.4)");
}

TEST(RowText, JoinsPiecesAndTakesNumbersInOrder)
{
    ResultRow row = AxialRow();
    row.label = {"IR", " = N", "+My"};
    row.calculation = {"{F}/{f}", "+{R}*{r}", " n={i}"};
    row.number = {1, 2, 3, 4, 5};
    row.limit = {" (Ch 6.3.2; {r}L", " part {i})"};
    row.place = {0.5, 2};
    const RowText text = TextOf(row, 1.0f);
    EXPECT_EQ(text.label, "IR = N+My");
    EXPECT_EQ(text.calculation, "1.0/2.0+3.00*4.00 n=5");
    EXPECT_EQ(text.limit, " < 1.0 (Ch 6.3.2; 0.50L part 2)");
}

// With seven digits 12345.649 is 12345.65, whose half goes up; with fifteen there is no half.
TEST(RowText, CountsDigitsByThePrecisionOfTheNumber)
{
    ResultRow row = AxialRow();
    row.calculation = {"{f} {F} ", "{r} {R}", ""};
    row.number = {12345.649, 12345.649, 0.00499999998, 0.00499999998};
    EXPECT_EQ(TextOf(row, 1.0f).calculation, "12345.7 12345.6 0.01 0.00");
}

// Tension of 55 kN, -1.2 and 2.5 kNm at a point where the first moment counts with its own sign and
// the second against it: |55/300 - 1.2/4 - 2.5/10| = 0.37, as the reader adds it up.
TEST(RowText, ShowsSignedTermsAsTheyAddUp)
{
    ResultRow row = AxialRow();
    row.calculation = {"{F}/{F}+{F}/{F}+{F}/{F} = ", "", ""};
    row.number = {-55, 300, -1.2, 4, 2.5, 10, -1, 1, -1};
    EXPECT_EQ(ShownTextOf(row, 1.0f).calculation, "55.0/300.0-1.2/4.0-2.5/10.0 = ");
    EXPECT_EQ(TextOf(row, 1.0f).calculation, "-55.0/300.0+-1.2/4.0+2.5/10.0 = ");
    row.number[0] = 0;
    EXPECT_EQ(ShownTextOf(row, 1.0f).calculation, "0.0/300.0-1.2/4.0-2.5/10.0 = ");
}

// Tension takes part in the linear sum with its size: 50/1000 + 30/120 = 0.30.
TEST(RowText, ShowsTensionInASumWithItsSize)
{
    ResultRow row = AxialRow();
    row.label = {"IR = NEd/NRd+My,Ed/My,Rd = ", "", ""};
    row.calculation = {"{F}/{F}+{F}/{F} = ", "", ""};
    row.number = {-50, 1000, 30, 120};
    EXPECT_EQ(ShownTextOf(row, 1.0f).calculation, "50.0/1000.0+30.0/120.0 = ");
    row.label = {"IR = NEd/NRd = ", "", ""};
    row.calculation = {"{F}/{F} = ", "", ""};
    row.number = {-50, 1000};
    EXPECT_EQ(ShownTextOf(row, 1.0f).calculation, "-50.0/1000.0 = ");  // tension by its sign
}

TEST(RowText, ShowsARowWithoutSignsAsItStands)
{
    EXPECT_EQ(ShownTextOf(AxialRow(), 1.0f), TextOf(AxialRow(), 1.0f));
}

TEST(RowText, LeavesResultAndLimitOfARemarkEmpty)
{
    ResultRow row{};
    row.label = {"No Buckling", "", ""};
    row.limit = {" (Ch 6.3.1)", ""};
    EXPECT_EQ(TextOf(row, 1.0f), (RowText{"No Buckling", "", "", ""}));
}

TEST(RowText, IsEmptyForAnUnusedRow)
{
    EXPECT_EQ(TextOf(ResultRow{}, 1.0f), RowText{});
    ResultRow row = AxialRow();
    row.label = {};
    EXPECT_EQ(TextOf(row, 1.0f), RowText{});
}

TEST(RowText, ShowsTheLimitAndTheRatioRounded)
{
    ResultRow row = AxialRow();
    row.ir = 1.000001;
    row.status = kAbove;
    EXPECT_EQ(TextOf(row, 0.95f).result, "1.00");
    EXPECT_EQ(TextOf(row, 0.95f).limit, " < 1.0");  // 0.95 in "0.0"
    EXPECT_EQ(TextOf(row, 0.9f).limit, " < 0.9");
    row.ir = 12.345;
    EXPECT_EQ(TextOf(row, 1.0f).result, "12.35");
}

}  // namespace
}  // namespace kestrum
