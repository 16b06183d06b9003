// Values by name, what a value says about the member, and what is worth a word.

#include "app/assign_run.h"
#include "app/choices.h"
#include "core/project_state.h"
#include "sections/family_table.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace kestrum {
namespace {

using Values = std::vector<std::pair<std::string, std::string>>;

std::string Text(const std::vector<Remark>& remarks)
{
    std::string text;
    for (const Remark& remark : remarks) {
        text += remark.name + ": " + remark.what + "\n";
    }
    return text;
}

// Runs the values over a record; "" or "name: why".
std::string SetAll(ProjectState& s, const Values& values, Manner manner = Assignment::checked,
                   std::string* remarks = nullptr)
{
    AssignRun run(Delivered(), s, manner);
    for (const auto& [name, text] : values) {
        AssignTarget target;
        std::string refusal = FindTarget(name, target);
        refusal = refusal.empty() ? run.Assign(target, text) : refusal;
        if (!refusal.empty()) {
            return name + ": " + refusal;
        }
    }
    const Refused refused = run.Finish();
    if (remarks != nullptr) {
        *remarks = Text(run.Remarks());
    }
    return refused.empty() ? std::string{} : refused.name + ": " + refused.what;
}

std::string RowOf(const ProjectState& s)
{
    const Table table = TableOf(s);
    return RowName(Delivered(), table, s.row[static_cast<std::size_t>(table)]);
}

TEST(AssignNames, AMemberIsWrittenInNames)
{
    ProjectState s = Member();
    EXPECT_EQ(SetAll(s, {{"family", "ipe"},
                         {"section", "IPE 300"},
                         {"steel", "s355"},
                         {"supportcase", "Cantilever"},
                         {"qtype[1]", "q1"},
                         {"qdir[1]", "Y"},
                         {"annex", "uk"},
                         {"method", "b"},
                         {"loadcomb", "6.10a"},
                         {"ltb", "off"},
                         {"checksls", "yes"},
                         {"bucklingcasez", "pinned-fixed"}}),
              "");
    EXPECT_EQ(s.family, 4);
    EXPECT_EQ(RowOf(s), "IPE 300");
    EXPECT_EQ(s.fykindex, 2);
    EXPECT_EQ(s.supportcase, 4);
    EXPECT_EQ(s.qtype[1], 1);
    EXPECT_EQ(s.qdir[1], 0);
    EXPECT_EQ(s.annexcode, "UK");
    EXPECT_EQ(s.annexindex, 4);
    EXPECT_EQ(s.method, 2);
    EXPECT_EQ(s.loadcomb, 1);
    EXPECT_EQ(s.ltb, 0);
    EXPECT_EQ(s.checksls, kTrue);
    EXPECT_EQ(s.bucklingcasez, 3);
    EXPECT_EQ(SetAll(s, {{"loadcomb", "Eq 6.10"}}), "");
    EXPECT_EQ(s.loadcomb, 0);
    EXPECT_EQ(SetAll(s, {{"loadcomb", "6.10"}}), "");
    EXPECT_EQ(s.loadcomb, 0);
    EXPECT_EQ(SetAll(s, {{"annex", "Norway"}}), "");
    EXPECT_EQ(s.annexcode, "NO");
    EXPECT_EQ(SetAll(s, {{"annex", "norsok"}}), "");
    EXPECT_EQ(s.annexcode, "NK");
    EXPECT_EQ(SetAll(s, {{"annex", "User defined"}}), "");
    EXPECT_EQ(s.annexcode, "UD");
}

// Every name of every list gives its value back, and every value of a list has a name.
TEST(AssignNames, NamesAndValuesAgree)
{
    const Library& library = Delivered();
    std::size_t named = 0;
    for (const Field& field : AllFields()) {
        const Choice* const choice = ChoiceOf(field);
        for (int value = -1; choice != nullptr && value < 200; ++value) {
            const std::string name = NameOfValue(library, *choice, value);
            if (!name.empty()) {
                EXPECT_EQ(ValueOfName(library, *choice, name), value) << field.name << " " << name;
                ++named;
            }
            EXPECT_TRUE(!name.empty() || !Offers(library, *choice, value) || choice->named.empty());
        }
    }
    EXPECT_GT(named, 1000U);
}

TEST(AssignNames, ASectionBringsFamilyAndSeries)
{
    ProjectState s = Member("family=22");
    EXPECT_EQ(SetAll(s, {{"section", "UC 203x203x60"}}), "");
    EXPECT_EQ(s.family, 101);
    EXPECT_EQ(s.series101, 2);
    EXPECT_EQ(RowOf(s), "UC 203x203x60");
    EXPECT_EQ(SetAll(s, {{"family", "PFC"}}), "");
    EXPECT_EQ(s.family, 103);
    EXPECT_EQ(s.series103, 2);
}

TEST(AssignNames, UnknownNamesAreRefusedWithTheNearest)
{
    ProjectState s = Member();
    const ProjectState before = s;
    EXPECT_TRUE(SetAll(s, {{"section", "IPE 310"}})
                    .starts_with("section: no such section; `kestrum sections "
                                 "FAMILY` lists the names; did you mean IPE 3"));
    EXPECT_EQ(SetAll(s, {{"steel", "S354"}}),
              "steel: no such name in the list (0 to 26); did you mean S355?");
    EXPECT_EQ(SetAll(s, {{"supportcase", "cantilver"}}),
              "supportcase: no such name in the list (0 pinned-pinned, 1 pinned-fixed, 2 "
              "fixed-fixed, 3 springs, 4 cantilever, 5 pinned-spring); did you mean cantilever?");
    EXPECT_EQ(SetAll(s, {{"family", "HSQ"}}),
              "family: no such name in the list of `kestrum sections`; did you mean 24 HSQ - "
              "Symmetric flange or 25 HSQ - Non symmetric flange?");
    EXPECT_TRUE(SetAll(s, {{"annex", "Utopia"}})
                    .starts_with("annex: no such annex; there are EU, NO, SW, DK, UK, FI, GE, NK"));
    EXPECT_EQ(s, before);
}

TEST(AssignNames, ADimensionOrRowChoosesTheFamily)
{
    const std::pair<Values, int> chosen[] = {
        {{{"row.ipe", "3"}}, 4},
        {{{"p22.isth", "500"}}, 22},
        {{{"tubehot", "2"}}, 31},
        {{{"row.uc", "4"}}, 101},
        {{{"p41ident", "X"}}, 41},
        {{{"weldopt", "1"}}, 23},
        {{{"p52.istb1", "500"}, {"row.l3", "2"}}, 52},
        {{{"row.rhs", "1"}, {"rectaxis", "2"}}, 7},
    };
    for (const auto& [values, family] : chosen) {
        ProjectState s = Member("family=15");
        EXPECT_EQ(SetAll(s, values), "") << family;
        EXPECT_EQ(s.family, family);
    }
    ProjectState s = Member();
    EXPECT_EQ(SetAll(s, {{"row.uc", "4"}}), "");
    EXPECT_EQ(s.series101, 2);
    s = Member("family=15");
    EXPECT_EQ(SetAll(s, {{"row.ipe", "3"}}, Assignment::raw), "");
    EXPECT_EQ(s.family, 15);
}

TEST(AssignNames, ContradictionsAreRefusedByName)
{
    const std::pair<Values, std::string> refused[] = {
        {{{"family", "21"}, {"row.ipe", "3"}},
         "row.ipe: of family 4 IPE, the family is 21 I - double symmetric"},
        {{{"row.ipe", "3"}, {"family", "21"}},
         "row.ipe: of family 4 IPE, the family is 21 I - double symmetric"},
        {{{"row.hea", "3"}, {"row.ipe", "3"}}, "row.ipe: of family 4 IPE, the family is 1 HEA"},
        {{{"section", "IPE 300"}, {"family", "HEA"}},
         "section: of family 4 IPE, the family is 1 HEA"},
        {{{"section", "IPE 300"}, {"p22.isth", "300"}},
         "p22.isth: of family 22 I - single symmetric, the family is 4 IPE"},
        {{{"family", "UB"}, {"row.uc", "3"}},
         "row.uc: of family 101 U, series 2, the family is 101 U, series 1"},
        {{{"rectaxis", "2"}},
         "rectaxis: of family 7 RHS - Rect (Hotformed) or 9 CFRHS - Rect (Coldformed), the family "
         "is 1 HEA"},
        {{{"ne", "5"}, {"qload[2]", "5"}},
         "ne: an end force, qload[2] is a load; a member has one or the other, or loadmode "
         "chooses"},
        {{{"loadmode", "1"}, {"my1", "5"}}, "my1: an end force, the member has loads (loadmode 1)"},
        {{{"loadmode", "0"}, {"pm[3]", "5"}, {"pmx[3]", "1"}},
         "pm[3]: a load, the member has given end forces (loadmode 0)"},
        {{{"vz2", "5"}, {"selfweight", "1"}},
         "selfweight: a load, the member has given end forces (loadmode 0)"},
    };
    for (const auto& [values, text] : refused) {
        ProjectState s = Member();
        EXPECT_EQ(SetAll(s, values), text);
        s = Member();
        EXPECT_EQ(SetAll(s, values, Assignment::raw).find("of family 4 IPE, the family is 21"),
                  std::string::npos);
    }
}

// Zeros fill the cells of a table; they are no forces.
TEST(AssignNames, GivenForcesChooseTheMode)
{
    ProjectState s = Member();
    EXPECT_EQ(SetAll(s, {{"ne", "0"}, {"qload[1]", "4"}}), "");
    EXPECT_EQ(s.loadmode, 1);
    EXPECT_EQ(SetAll(s, {{"my1", "7"}, {"qload[1]", "0"}}), "");
    EXPECT_EQ(s.loadmode, 0);
    EXPECT_EQ(SetAll(s, {{"ne", "0"}}), "");
    EXPECT_EQ(s.loadmode, 0);
    EXPECT_EQ(SetAll(s, {{"nload[2]", "-3"}}), "");
    EXPECT_EQ(s.loadmode, 1);
    EXPECT_EQ(SetAll(s, {{"selfweight", "1"}}), "");
    EXPECT_EQ(s.loadmode, 1);
}

TEST(AssignNames, WhatHasNoEffectIsToldOfWhatWasGiven)
{
    ProjectState s = Member();
    std::string said;
    EXPECT_EQ(
        SetAll(s, {{"spring", "20"}, {"l", "4"}, {"gammam0", "1.2"}}, Assignment::checked, &said),
        "");
    EXPECT_EQ(said, "spring: without effect, no support has springs (supportcase 3 or 5)\n"
                    "gammam0: without effect, set by the national annex EU\n");
    EXPECT_EQ(SetAll(s, {{"spring", "20"}, {"supportcase", "springs"}}, Assignment::checked, &said),
              "");
    EXPECT_EQ(said, "");
}

TEST(AssignNames, AsksWhetherTheUnitIsMeant)
{
    ProjectState s = Member();
    std::string said;
    EXPECT_EQ(SetAll(s, {{"l", "6000"}}, Assignment::checked, &said), "");
    EXPECT_EQ(said, "l: is 6000 m meant? The unit is m\n");
    EXPECT_EQ(s.l, 6000);
    EXPECT_EQ(SetAll(s, {{"l", "6"}, {"ne", "9e9"}}, Assignment::checked, &said), "");
    EXPECT_EQ(said, "ne: is 9e+09 kN meant? The unit is kN\n");
    EXPECT_EQ(
        SetAll(s, {{"l", "60"}, {"ne", "9000"}, {"my1", "-9000"}}, Assignment::checked, &said), "");
    EXPECT_EQ(said, "");
}

// Compression is positive in the record; a table that says otherwise means the axial forces alone.
TEST(AssignNames, TensionMayBePositive)
{
    ProjectState s = Member();
    const Manner tension(Assignment::checked, true);
    EXPECT_EQ(SetAll(s,
                     {{"nload[1]", "50"},
                      {"nload[2]", "-20"},
                      {"qload[1]", "3"},
                      {"pm[1]", "4"},
                      {"pmx[1]", "2"}},
                     tension),
              "");
    EXPECT_EQ(s.nload[1], -50);
    EXPECT_EQ(s.nload[2], 20);
    EXPECT_EQ(s.qload[1], 3);
    EXPECT_EQ(s.pm[1], 4);
    EXPECT_EQ(SetAll(s, {{"ne", "50"}, {"my1", "5"}, {"vz1", "6"}}, tension), "");
    EXPECT_EQ(s.ne, -50);
    EXPECT_EQ(s.my1, 5);
    EXPECT_EQ(s.vz1, 6);
    EXPECT_EQ(SetAll(s, {{"ne", "0"}}, tension), "");
    EXPECT_FALSE(std::signbit(s.ne));
}

TEST(AssignNames, AMessageOfABoxHasValueLimitAndUnit)
{
    ProjectState s = Member();
    EXPECT_EQ(SetAll(s, {{"l", "0.01"}}), "l:  L >= 0.050 (0.01 m is given; at least 0.05 m)");
    EXPECT_EQ(SetAll(s, {{"spring", "150"}}),
              "spring:  1 < Spring-restraint  > 99 (150 % is given; at least 1 and at most 99 %)");
    EXPECT_EQ(SetAll(s, {{"lfulsg", "4"}}),
              "lfulsg:  0 < Loadfactor < 4.0 (4 is given; above 0 and below 4)");
    EXPECT_EQ(SetAll(s, {{"pmx[1]", "9"}}), "pmx[1]:  0 < x <= l (9 m is given; 0 to 5 m)");
    EXPECT_EQ(SetAll(s, {{"p24.istb2", "260"}}),
              "p24.istb2:  b2 >= b1-2*tw (260 mm is given; above 50 and at least 288 mm)");
}

}  // namespace
}  // namespace kestrum
