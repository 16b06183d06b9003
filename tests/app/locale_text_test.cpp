#include "app/locale_text.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

TEST(ForLocale, PutsTheCommaOfTheUserIntoNumbers)
{
    EXPECT_EQ(ForLocale("1.5", true), "1,5");
    EXPECT_EQ(ForLocale("1.5", false), "1.5");
    EXPECT_EQ(ForLocale("Za = -75.0 mm", true), "Za = -75,0 mm");
    EXPECT_EQ(ForLocale("IR = 100.0/512.5 = 0.20 < 1.0", true), "IR = 100,0/512,5 = 0,20 < 1,0");
    EXPECT_EQ(ForLocale("2.100E+5", true), "2,100E+5");
    EXPECT_EQ(ForLocale("Flatbar 150x12.5", true), "Flatbar 150x12,5");
}

TEST(ForLocale, LeavesReferencesAndVersionsAlone)
{
    for (const char* const text :
         {"Ch 6.2.9", " < limit (Ch 6.1)", "EN 1990 Eq 6.10a", "Table 6.2", "Version 1.3.1 ",
          "EN 1993-1-5, 5.3 and 9.3", "EN 1990, A1.3.1", "EN 1993-1-1, 6.1 (1)",
          "EN 1990, Table A1.1", "The end of a sentence 3."}) {
        EXPECT_EQ(ForLocale(text, true), text);
    }
    EXPECT_EQ(ForLocale("0.20 < 1.0 (0.50L; Ch 6.2.5/6.2.9)", true),
              "0,20 < 1,0 (0,50L; Ch 6.2.5/6.2.9)");
    EXPECT_EQ(ForLocale("(EN 1993-1-5, 5.3) 1.5 m", true), "(EN 1993-1-5, 5.3) 1,5 m");
}

TEST(ForLocale, ChangesEveryTextOfADrawingAndNothingElse)
{
    Drawing drawing;
    drawing.marks = {TextMark{{1.5, 2}, "L = 5.000 m"}, LineMark{{0, 0}, {1, 1}}};
    const Drawing comma = ForLocale(drawing, true);
    EXPECT_EQ(std::get<TextMark>(comma.marks[0]).text, "L = 5,000 m");
    EXPECT_EQ(std::get<TextMark>(comma.marks[0]).at, (Point{1.5, 2}));
    EXPECT_EQ(std::get<TextMark>(ForLocale(drawing, false).marks[0]).text, "L = 5.000 m");
}

TEST(ForLocale, ChangesBothPartsOfAPanelLine)
{
    const std::vector<PanelBlock> blocks{
        {{.y = 1, .left = {{"N 1.5/3.0 = "}}, .result = {{"0.50"}, {" < 1.0 (Ch 6.2.4)"}}}}};
    const PanelLine line = ForLocale(blocks, true)[0][0];
    EXPECT_EQ(line.left[0].text, "N 1,5/3,0 = ");
    EXPECT_EQ(line.result[0].text, "0,50");
    EXPECT_EQ(line.result[1].text, " < 1,0 (Ch 6.2.4)");
}

}  // namespace
}  // namespace kestrum
