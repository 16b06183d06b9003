#include "app/box_cases.h"
#include "app/box_help.h"
#include "app/cell_reader.h"
#include "core/field_table.h"
#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace kestrum {
namespace {

int FirstRow(const Box& box)
{
    return FindField(box.field)->shape == FieldShape::array ? 1 : 0;
}

BoxOutcome Enter(ProjectState& s, const char* form, const char* id, const char* text)
{
    const Box* const box = FindBox(form, id);
    EXPECT_NE(box, nullptr) << form << "." << id;
    return Commit(s, *box, FirstRow(*box), text, false);
}

void Check(const BoxCase& c)
{
    SCOPED_TRACE(std::string(c.form) + "." + c.id);
    for (const char* text : c.good) {
        Member s;
        const BoxOutcome outcome = Enter(s, c.form, c.id, text);
        EXPECT_TRUE(outcome.taken) << text;
        EXPECT_EQ(outcome.message, "") << text;
    }
    for (const char* text : c.bad) {
        Member s;
        const BoxOutcome outcome = Enter(s, c.form, c.id, text);
        EXPECT_FALSE(outcome.taken) << text;
        EXPECT_EQ(outcome.message, c.message) << text;
    }
}

TEST(InputBoxes, KeepTheirLimits)
{
    for (const BoxCase& c : BoxCases()) {
        Check(c);
    }
}

TEST(InputBoxes, LoadsAndEndForcesTakeAnyNumber)
{
    for (const Box* const box : FreeBoxes()) {
        ASSERT_NE(box, nullptr);
        for (const char* text : {"-1000", "0", "", "1E6"}) {
            Member s;
            EXPECT_TRUE(Commit(s, *box, FirstRow(*box), text, false).taken)
                << box->id << " " << text;
        }
    }
}

// Whatever is refused, the user reads what is allowed in the unit of the box.
TEST(InputBoxes, WhatIsAllowedHasItsUnit)
{
    const Member s;
    int with = 0;
    for (const Box& box : InputBoxes()) {
        SCOPED_TRACE(std::string(box.form) + "." + std::string(box.id));
        if (!FindField(box.field)->unit.empty()) {
            ++with;
            const std::string_view unit = Trimmed(HelpOf(box).unit);
            EXPECT_FALSE(unit.empty());
            EXPECT_TRUE(AllowedText(s, box).ends_with(unit)) << AllowedText(s, box);
        }
    }
    EXPECT_GT(with, 80);
}

TEST(InputBoxes, AllOfThemHaveTheirLimitsTested)
{
    std::set<const Box*> tested(FreeBoxes().begin(), FreeBoxes().end());
    for (const BoxCase& c : BoxCases()) {
        tested.insert(FindBox(c.form, c.id));
    }
    EXPECT_EQ(tested.count(nullptr), 0U);
    EXPECT_EQ(tested.size(), InputBoxes().size());
}

TEST(InputBoxes, EveryOneNamesAFieldAndNoTwoShareAPlace)
{
    std::set<std::string> places;
    for (const Box& box : InputBoxes()) {
        EXPECT_NE(FindField(box.field), nullptr) << box.field;
        EXPECT_TRUE(places.insert(std::string(box.form) + "." + std::string(box.id)).second)
            << box.id;
    }
    EXPECT_EQ(FindBox("kestrum", "nothing"), nullptr);
    EXPECT_EQ(BoxOfField("ned"), nullptr);
}

TEST(InputBoxes, ARefusedValueStaysInTheRecord)
{
    Member s;
    EXPECT_FALSE(Enter(s, "kestrum", "il", "0.0499").taken);
    EXPECT_EQ(s.l, 0.0499f);
}

TEST(InputBoxes, ARefusedPositionBecomesZero)
{
    Member s;
    s.pmx[1] = 2;
    EXPECT_FALSE(Enter(s, "Loading", "ipmx", "7").taken);
    EXPECT_EQ(s.pmx[1], 0);
}

TEST(InputBoxes, RelativePositionsAreKeptInMetres)
{
    Member s;
    s.qtrelative = s.pmrelative = s.cprelative = 1;
    EXPECT_TRUE(Enter(s, "Loading", "iqtx1", "0.5").taken);
    EXPECT_EQ(s.qtx1[1], 2.5f);
    EXPECT_EQ(BoxText(s, *FindBox("Loading", "iqtx1"), 1), "0.500");
    EXPECT_TRUE(Enter(s, "Loading", "ipmx", "1").taken);
    EXPECT_EQ(s.pmx[1], 5);
    EXPECT_EQ(Enter(s, "Loading", "iqtx1", "1.001").message, " 0 < x1 <= 1 ");
    EXPECT_EQ(Enter(s, "Loading", "iqtx2", "1.001").message, " 0 < x2 <= 1 ");
    EXPECT_EQ(Enter(s, "Loading", "ipmx", "-0.1").message, " 0 < x <= 1 ");
    EXPECT_EQ(Enter(s, "chpoints", "icp", "2").message, " 0 <= x <= 1 ");
}

TEST(InputBoxes, RubbishIsReportedUnderACommaLocaleOnly)
{
    Member s;
    const Box& box = *FindBox("kestrum", "il");
    const BoxOutcome comma = Commit(s, box, 0, "abc", true);
    EXPECT_FALSE(comma.taken);
    EXPECT_EQ(comma.message, kMismatch);
    EXPECT_EQ(s.l, 5);
    const BoxOutcome point = Commit(s, box, 0, "abc", false);
    EXPECT_EQ(point.message, " L >= 0.050 ");
    EXPECT_EQ(s.l, 0);
    EXPECT_TRUE(Commit(s, box, 0, "0.05", true).taken);
    EXPECT_TRUE(Commit(s, box, 0, "0,05", true).taken);
}

TEST(InputBoxes, WholeNumbersAreRoundedHalvesToTheEvenOne)
{
    Member s;
    EXPECT_TRUE(Enter(s, "kestrum", "ispring", "98.5").taken);
    EXPECT_EQ(s.spring, 98);
    EXPECT_TRUE(Enter(s, "kestrum", "ispring", "1.5").taken);
    EXPECT_EQ(s.spring, 2);
    EXPECT_EQ(Enter(s, "kestrum", "ispring", "40000").message, kMismatch);
    EXPECT_EQ(s.spring, 2);
}

TEST(InputBoxes, DoubleFieldsTakeTheDecimalThatWasTyped)
{
    Member s;
    EXPECT_TRUE(Enter(s, "setup", "igammam0", "1.05").taken);
    EXPECT_EQ(s.gammam0, 1.05);
    EXPECT_TRUE(Enter(s, "p53", "isttw", "11.7").taken);
    EXPECT_EQ(s.p53.isttw, 11.7);
}

TEST(InputBoxes, RulesFollowTheOtherFieldsOfTheForm)
{
    Member s;
    s.p25.istc = 200;  // 430 - 200 leaves 230
    EXPECT_FALSE(Enter(s, "p25", "istb1", "230").taken);
    EXPECT_TRUE(Enter(s, "p25", "istb1", "229").taken);
    s.l = 5.5f;
    EXPECT_TRUE(Enter(s, "endstiff", "iweba", "5000").taken);
}

TEST(InputBoxes, RulesCountInTheDigitsThatAreTyped)
{
    Member s;
    s.l = 4.3F;  // a little more than 4300 mm as a float
    EXPECT_FALSE(Enter(s, "endstiff", "iweba", "4300").taken);
    EXPECT_TRUE(Enter(s, "endstiff", "iweba", "4299").taken);
    s.p24.isttw = 6.3F;
    EXPECT_TRUE(Enter(s, "p24", "istb2", "287.4").taken);  // 300 - 2 x 6.3
    EXPECT_FALSE(Enter(s, "p24", "istb2", "287.3").taken);
    s.p23.isttw = 6.7F;
    EXPECT_FALSE(Enter(s, "p23", "ista", "293.3").taken);  // 600/2 - 6.7
    s.p27.isttw = 10.1;
    s.p27.istc = 25.2F;
    EXPECT_EQ(Enter(s, "p27", "istb1", "70.6").message, "");  // 70.6/2 - 10.1 is just enough
    EXPECT_EQ(Enter(s, "p27", "istb1", "60.8").message, " c adjusted ");
    EXPECT_EQ(s.p27.istc, 20.3F);  // 60.8/2 - 10.1
}

TEST(InputBoxes, ANarrowerTopFlangeMovesTheOverhang)
{
    Member s;  // tw 10, c 25
    EXPECT_EQ(Enter(s, "p27", "istb1", "70").message, "");
    EXPECT_EQ(s.p27.istc, 25);  // 70/2 - 10 is just enough
    const BoxOutcome moved = Enter(s, "p27", "istb1", "60");
    EXPECT_TRUE(moved.taken);
    EXPECT_EQ(moved.message, " c adjusted ");
    EXPECT_EQ(s.p27.istc, 20);
    s.p27.isttw = 40;
    EXPECT_TRUE(Enter(s, "p27", "istb1", "60").taken);
    EXPECT_EQ(s.p27.istc, 0);
}

TEST(InputBoxes, ShowTheirFormat)
{
    Member s;
    s.fyk = 50;
    s.e = 210000;
    s.p52.istb1 = 612.5;
    s.p52.istt1 = 10.1f;
    s.qload[2] = -12.25f;
    EXPECT_EQ(BoxText(s, *FindBox("kestrum", "il"), 0), "5.000");
    EXPECT_EQ(BoxText(s, *FindBox("kestrum", "ifyk"), 0), "050");
    s.fyk = 45;  // refused: as the box writes it
    EXPECT_EQ(BoxText(s, *FindBox("kestrum", "ifyk"), 0), "45");
    EXPECT_EQ(BoxText(s, *FindBox("setup", "ie"), 0), "2.10E+5");
    EXPECT_EQ(BoxText(s, *FindBox("p52", "istb1"), 0), "612.5");
    EXPECT_EQ(BoxText(s, *FindBox("p52", "istt1"), 0), "10.1");
    EXPECT_EQ(BoxText(s, *FindBox("Loading", "iq"), 2), "-12.3");
}

}  // namespace
}  // namespace kestrum
