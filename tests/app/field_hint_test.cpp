#include "app/field_hint.h"

#include <gtest/gtest.h>

#include <array>

namespace kestrum {
namespace {

TEST(Distance, CountsSlipsWithoutCapitals)
{
    EXPECT_EQ(Distance("family", "family"), 0U);
    EXPECT_EQ(Distance("Family", "family"), 0U);
    EXPECT_EQ(Distance("famly", "family"), 1U);    // missing
    EXPECT_EQ(Distance("ffamily", "family"), 1U);  // too many
    EXPECT_EQ(Distance("famuly", "family"), 1U);   // another
    EXPECT_EQ(Distance("faimly", "family"), 1U);   // exchanged
    EXPECT_EQ(Distance("", "ly"), 2U);
    EXPECT_EQ(Distance(std::string(100, 'x'), "l"), 24U);  // longer than any name
}

TEST(Nearest, IsOneSlipAwayTwoInLongWords)
{
    const std::array<std::string_view, 3> words = {"check", "table", "sections"};
    EXPECT_EQ(Nearest("chek", words), "check");
    EXPECT_EQ(Nearest("sectoins", words), "sections");
    EXPECT_EQ(Nearest("tbl", words), "");
    EXPECT_EQ(Nearest("x", words), "");
    EXPECT_EQ(Nearest("", words), "");
}

TEST(FieldHint, NamesTheNearestFields)
{
    EXPECT_EQ(FieldHint("famly", FieldsMeant::inputs), "; did you mean family?");
    EXPECT_EQ(FieldHint("L", FieldsMeant::inputs), "; did you mean l?");
    EXPECT_EQ(FieldHint("qlaod[1]", FieldsMeant::inputs), "; did you mean qload[1] to qload[4]?");
    EXPECT_EQ(FieldHint("gammam", FieldsMeant::inputs), "; did you mean gammam0 or gammam1?");
    EXPECT_EQ(FieldHint("irsectoin", FieldsMeant::all), "; did you mean irsection?");
    EXPECT_EQ(FieldHint("irsectoin", FieldsMeant::inputs), "");
    EXPECT_EQ(FieldHint("nonsense", FieldsMeant::all), "");
    EXPECT_EQ(FieldHint("", FieldsMeant::all), "");
}

TEST(FieldHint, NamesFieldsByTheWordsOfTheirBoxes)
{
    EXPECT_EQ(FieldHint("length", FieldsMeant::inputs), "; did you mean l?");
    EXPECT_EQ(FieldHint("lenght", FieldsMeant::inputs), "; did you mean l?");
    EXPECT_EQ(FieldHint("fy", FieldsMeant::inputs), "; did you mean fyk?");
    EXPECT_EQ(FieldHint("stiffeners", FieldsMeant::inputs), "; did you mean webstiffa?");
}

TEST(FieldHint, TellsTheRowsOfAList)
{
    EXPECT_EQ(FieldHint("qload", FieldsMeant::inputs), "; the list is qload[1] to qload[4]");
    EXPECT_EQ(FieldHint("pmx[9]", FieldsMeant::inputs), "; the list is pmx[1] to pmx[8]");
    EXPECT_EQ(FieldHint("l[1]", FieldsMeant::inputs), "; l is one value");
}

}  // namespace
}  // namespace kestrum
