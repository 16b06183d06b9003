// A pass that cannot answer says so: impossible sections, resistances that are not positive, inputs
// out of their lists, loads that a family cannot take.

#include "core/field_table.h"
#include "core/project_state.h"
#include "engine/validate.h"
#include "report/outcome.h"
#include "report/state_json.h"
#include "sections/families.h"
#include "support/members.h"
#include "support/random_project.h"
#include "support/rows.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <string>

namespace kestrum {
namespace {

using testing::HasSubstr;

Outcome Ended(ProjectState& s)
{
    return OutcomeOf(s, EndsWell(s));
}

// h - 2 tf = 100 - 2 x 60 = -20 mm.
TEST(ImpossibleSection, FlangesThickerThanTheSection)
{
    Member s = Member().Family(21).BasicLoads();
    s.p21.isth = 100;
    s.p21.isttf = 60;
    const Outcome outcome = Ended(s);
    EXPECT_EQ(outcome.verdict, Verdict::not_checked);
    EXPECT_EQ(ExitCode(outcome.verdict), 2);
    EXPECT_EQ(outcome.message, "section: impossible section, clear web height hw = -20 mm");
    EXPECT_EQ(s.failure.stage, Stage::section);
    EXPECT_EQ(s.failure.cause, Cause::impossible_section);
    EXPECT_EQ(s.failure.value, -20);
}

struct Overlap {
    i16 family;
    void (*spoil)(ProjectState& s);
    const char* part;
};

// One overlap in each family that has dimensions of its own.
TEST(ImpossibleSection, IsNamedInEveryFamilyOfDimensions)
{
    const Overlap overlaps[] = {
        {21, [](ProjectState& s) { s.p21.istb1 = 15; }, "flange outstand beyond the weld c"},
        {22, [](ProjectState& s) { s.p22.isttf2 = 590; }, "clear web height hw"},
        {22, [](ProjectState& s) { s.p22.istb1 = 15; }, "top flange outstand beyond the weld c"},
        {23, [](ProjectState& s) { s.p23.ista = 295; }, "clear width between the webs"},
        {24, [](ProjectState& s) { s.p24.isttw = 160; }, "clear width between the webs"},
        {25, [](ProjectState& s) { s.p25.isttf1 = 300; }, "clear web height hw"},
        {26, [](ProjectState& s) { s.p26.isttf1 = 210; }, "clear web height hw"},
        {27, [](ProjectState& s) { s.p27.istc = 300; }, "clear width between the webs"},
        {31, [](ProjectState& s) { s.p31.isttw = 150; }, "inner diameter"},
        {51, [](ProjectState& s) { s.p51.istb1 = 12; }, "plate beyond the stiffener"},
        {52, [](ProjectState& s) { s.p52.istb1 = 5; }, "plate beyond the stiffener"},
        {53, [](ProjectState& s) { s.p53.isttf2 = 300; }, "clear web height hw"},
        {54, [](ProjectState& s) { s.p54.istb1 = 5; }, "plate beyond the stiffener"},
        {56, [](ProjectState& s) { s.p56.istb2 = 12; }, "stiffener flange beyond the weld c"},
    };
    for (const Overlap& overlap : overlaps) {
        SCOPED_TRACE(testing::Message() << overlap.family << " " << overlap.part);
        Member s = Member().Family(overlap.family).BasicLoads();
        overlap.spoil(s);
        const Outcome outcome = Ended(s);
        EXPECT_EQ(outcome.verdict, Verdict::not_checked);
        EXPECT_THAT(outcome.message, HasSubstr(overlap.part));
    }
}

TEST(ImpossibleSection, NoRowOfATableIsOne)
{
    for (const FamilyTraits& family : Families()) {
        Member s = Member().Family(family.id).BasicLoads();
        for (std::size_t table = 0; table < kTables; ++table) {
            for (int row = 0; row < Delivered().tables[table].rows; ++row) {
                s.row[table] = static_cast<i16>(row);
                for (const i16 series : {i16{1}, i16{2}, i16{3}}) {
                    s.series101 = series;
                    s.series103 = series;
                    EndsWell(s);
                    ASSERT_NE(s.failure.cause, Cause::impossible_section)
                        << family.id << " " << table << " " << row << " " << FailureText(s.failure);
                }
            }
        }
    }
}

// No field of the record ever makes a force disappear: dimensions, loads and selectors at random,
// far beyond what the boxes take.
TEST(AbsurdInputs, NeverEndWithinLimitsWithoutAResistance)
{
    constexpr int kMembers = 6000;
    Dice dice(20260131);
    int within = 0, stopped = 0;
    for (int i = 0; i < kMembers; ++i) {
        const FamilyTraits& family = Families()[static_cast<std::size_t>(i) % Families().size()];
        Member s = Member().Family(family.id).BasicLoads();
        for (const Field& field : AllFields()) {
            const bool form =
                field.name.starts_with('p') && field.name.find('.') != std::string::npos;
            if (form && field.kind != FieldKind::text && dice.Happens(0.4)) {
                const double factor = std::pow(10.0, dice.Between(-2, 1));
                const double value = NumberOf(s, field, 0) * (dice.Happens(0.1) ? -factor : factor);
                void* const at = field.locate(s, 0);
                if (field.kind == FieldKind::single) {
                    *static_cast<float*>(at) = static_cast<float>(value);
                } else if (field.kind == FieldKind::real) {
                    *static_cast<double*>(at) = value;
                }
            }
        }
        s.nload[1] = static_cast<float>(dice.Between(-1, 1));
        s.qload[1] = static_cast<float>(dice.Between(-1, 1));
        s.loadmode = dice.Happens(0.3) ? 0 : 1;
        s.mz1 = static_cast<float>(dice.Between(-1, 1));
        const Outcome outcome = Ended(s);
        SCOPED_TRACE(InputsJson(s));
        if (outcome.verdict != Verdict::within && outcome.verdict != Verdict::above) {
            ++stopped;
            continue;
        }
        ++within;
        const bool sideways =
            family.id < 24 || family.id == 31 || family.id == 41 || family.id > 100;
        for (int k = 0; k <= s.npts; ++k) {
            const auto at = static_cast<std::size_t>(k);
            ASSERT_TRUE(s.mysec[at] == 0 || s.myrd > 0);
            ASSERT_TRUE(s.vzsec[at] == 0 || (s.vbrd > 0 && !SectionRow(s, 3).empty()));
            ASSERT_TRUE(!sideways || s.mzsec[at] == 0 || s.mzrd > 0);
            ASSERT_TRUE(!sideways || s.vysec[at] == 0 ||
                        (s.vcyrd > 0 && !SectionRow(s, 3).empty()));
        }
        ASSERT_TRUE(s.ned == 0 || (s.nplrd > 0 && s.ncrd > 0 && !SectionRow(s, 1).empty()));
        for (const Check& check : s.checklist.checks) {
            ASSERT_GE(check.ratio, 0);
        }
    }
    EXPECT_GT(within, kMembers / 20);  // both ends are reached
    EXPECT_GT(stopped, kMembers / 20);
}

struct BadField {
    const char* name;
    void (*spoil)(ProjectState& s);
};

TEST(Validate, NamesEachInputThatCannotBeCalculated)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    static float not_a_number = 0;
    not_a_number = nan;
    const BadField fields[] = {
        {"loadcomb = 6", [](ProjectState& s) { s.loadcomb = 6; }},
        {"qtype[1] = 3", [](ProjectState& s) { s.qtype[1] = 3; }},
        {"qtype[1] = 7", [](ProjectState& s) { s.qtype[1] = 7; }},
        {"ntype[1] = 6", [](ProjectState& s) { s.ntype[1] = 6; }},
        {"qdir[1] = 2", [](ProjectState& s) { s.qdir[1] = 2; }},
        {"loadmode = 2", [](ProjectState& s) { s.loadmode = 2; }},
        {"l = -7.2 m", [](ProjectState& s) { s.l = -7.2F; }},
        {"l = not a number", [](ProjectState& s) { s.l = not_a_number; }},
        {"gammam1 = -1", [](ProjectState& s) { s.gammam1 = -1; }},
        {"gammam0 = 0", [](ProjectState& s) { s.gammam0 = 0; }},
        {"neta = 3", [](ProjectState& s) { s.neta = 3; }},
        {"method = 0", [](ProjectState& s) { s.method = 0; }},
        {"e = 0 MPa", [](ProjectState& s) { s.e = 0; }},
        {"deflimitz = -300", [](ProjectState& s) { s.deflimitz = -300; }},
        {"supportcase = 6", [](ProjectState& s) { s.supportcase = 6; }},
        {"spring = 150 %",
         [](ProjectState& s) {
             s.supportcase = 3;
             s.spring = 150;
         }},
        {"webstiffa = 0 mm", [](ProjectState& s) { s.webstiffa = 0; }},
        {"bcy = 9", [](ProjectState& s) { s.bcy = 9; }},
        {"ly = -1", [](ProjectState& s) { s.ly = -1; }},
        {"ltb = 2", [](ProjectState& s) { s.ltb = 2; }},
        {"ltbk = -1", [](ProjectState& s) { s.ltbk = -1; }},
        {"ltbcurve = 7", [](ProjectState& s) { s.ltbcurve = 7; }},
        {"restraints = 6", [](ProjectState& s) { s.restraints = 6; }},
        {"loadlevel = 5", [](ProjectState& s) { s.loadlevel = 5; }},
        {"selfweight = -1", [](ProjectState& s) { s.selfweight = -1; }},
        {"nload[2] = not a number", [](ProjectState& s) { s.nload[2] = not_a_number; }},
        {"pmx[3] = 9 m",
         [](ProjectState& s) {
             s.pm[3] = 10;
             s.pmx[3] = 9;
         }},
        {"pmkind[3] = 2",
         [](ProjectState& s) {
             s.pm[3] = 10;
             s.pmx[3] = 2;
             s.pmkind[3] = 2;
             s.pmchecked[3] = kTrue;
         }},
        {"qttype[1] = 0.5",
         [](ProjectState& s) {
             s.qt1[1] = 10;
             s.qtx2[1] = 2;
             s.qttype[1] = 0.5F;
         }},
        {"qtx1[1] = 3 m",
         [](ProjectState& s) {
             s.qt1[1] = 10;
             s.qtx1[1] = 3;
             s.qtx2[1] = 2;
         }},
        {"cp[1] = 7 m",
         [](ProjectState& s) {
             s.cpmode = 1;
             s.cp[1] = 7;
         }},
        {"row.hea = -1", [](ProjectState& s) { s.row[0] = -1; }},
        {"row.hea = 4000", [](ProjectState& s) { s.row[0] = 4000; }},
        {"p21.isttw = -12 mm",
         [](ProjectState& s) {
             s.family = 21;
             s.p21.isttw = -12;
         }},
        {"lfulsq1 = -1.5",
         [](ProjectState& s) {
             s.loadcomb = 4;
             s.lfulsq1 = -1.5F;
         }},
        {"psi1index = 20",
         [](ProjectState& s) {
             s.loadcomb = 0;
             s.psi1index = 20;
         }},
    };
    for (const BadField& field : fields) {
        SCOPED_TRACE(field.name);
        Member s = Member().BasicLoads();
        s.annexindex = 8;  // the user's own factors
        field.spoil(s);
        const Outcome outcome = Ended(s);
        EXPECT_EQ(outcome.verdict, Verdict::not_checked);
        EXPECT_THAT(outcome.message,
                    HasSubstr("input: " + std::string(field.name) + ", allowed: "));
        EXPECT_EQ(outcome.ir, 0);
        EXPECT_FALSE(outcome.rated());
    }
}

TEST(Validate, NamesAllOfThem)
{
    Member s = Member().BasicLoads();
    s.loadcomb = 6;
    s.l = -1;
    EXPECT_EQ(Ended(s).message, "input: loadcomb = 6, allowed: 0 to 5; "
                                "input: l = -1 m, allowed: 0.05 and more");
}

TEST(Validate, LetsEveryDefaultThrough)
{
    for (const FamilyTraits& family : Families()) {
        const Member s = Member().Family(family.id).BasicLoads();
        EXPECT_EQ(Validate(s, &Delivered()).count, 0) << family.id;
    }
    // Agreed meanings: the user's own strength, no buckling, no entry chosen.
    Member s;
    s.fykindex = -1;
    s.ly = 0.001F;
    s.lz = 0;
    s.psi1index = -1;
    s.beampart = 9;
    s.rectaxis = 7;
    s.series101 = 0;
    EXPECT_EQ(Validate(s, &Delivered()).count, 0);
}

TEST(DroppedLoads, AreNamedAndLiveUntilTheLoadsChange)
{
    Member s = Member().Family(27).BasicLoads();
    s.l = 6;
    s.nload[1] = 3000;
    s.ntype[1] = 1;
    s.qload[2] = 12;
    s.qdir[2] = 0;
    for (int pass = 0; pass < 3; ++pass) {
        const Outcome outcome = Ended(s);
        EXPECT_EQ(outcome.verdict, Verdict::loads_dropped);
        EXPECT_EQ(ExitCode(outcome.verdict), 2);
        EXPECT_THAT(outcome.dropped,
                    testing::ElementsAre(
                        "nload[1]: axial force 3000 kN (Q1), not taken by this section family",
                        "qload[2]: line load y 12 kN/m (G), not taken by this section family"));
        EXPECT_FALSE(outcome.rated());
        s.l += 1;  // what is no load changes nothing
    }
    s.family = 1;  // would take them; they are gone all the same
    EXPECT_EQ(Ended(s).verdict, Verdict::loads_dropped);
    s.nload[1] = 100;
    EXPECT_EQ(Ended(s).verdict, Verdict::within);
    s.family = 27;
    EXPECT_EQ(Ended(s).dropped.size(), 1U);
    NewProject(Delivered(), s);
    EXPECT_TRUE(Ended(s).dropped.empty());
}

TEST(DroppedLoads, TakeAllOfAT)
{
    Member s = Member().Family(26).BasicLoads();
    s.qt1[1] = 5;
    s.qt2[1] = 8;
    s.qtx2[1] = 2;
    s.pm[4] = 20;
    s.pmx[4] = 2.5F;
    s.pmkind[4] = 1;
    const Outcome outcome = Ended(s);
    EXPECT_THAT(outcome.dropped,
                testing::ElementsAre(
                    "qload[1]: line load z 10 kN/m (G), not taken by this section family",
                    "qt1[1]: line load z 5 to 8 kN/m, x = 0 to 2 m (G), not taken by this section "
                    "family",
                    "pm[4]: moment My 20 kNm, x = 2.5 m (G), not taken by this section family"));
}

TEST(DroppedLoads, HoldEndForces)
{
    Member s = Member().Family(51).BasicLoads();
    s.loadmode = 0;
    s.ne = 40;
    s.mz2 = 3;
    EXPECT_THAT(Ended(s).dropped,
                testing::ElementsAre("ne: axial force 40 kN, not taken by this section family",
                                     "mz2: moment Mz 3 kNm, not taken by this section family"));
    s.family = 1;  // they were passed over, not emptied, and count again
    EXPECT_TRUE(Ended(s).dropped.empty());
    s.family = 28;
    for (int pass = 0; pass < 2; ++pass) {
        EXPECT_THAT(Ended(s).dropped,
                    testing::ElementsAre("mz2: moment Mz 3 kNm, not taken by this section family"));
    }
}

// NEd above Ncr,z of an HEA 200 of 12 m: pi^2 x 210000 x 1336e4 / 12000^2 = 192.3 kN.
TEST(Failure, OfAnUnstableMemberHasStageCauseAndNumbers)
{
    Member s = Member().BasicLoads();
    s.row[0] = 5;  // HEA 200
    s.l = 12;
    s.method = 1;
    s.nload[1] = 512;
    const Outcome outcome = Ended(s);
    EXPECT_EQ(outcome.verdict, Verdict::unstable);
    EXPECT_EQ(ExitCode(outcome.verdict), 3);
    EXPECT_THAT(outcome.message, HasSubstr(std::string(kCalculationError)));
    EXPECT_THAT(outcome.message, HasSubstr("(buckling control: NEd 512 kN, Ncr,z 192.3 kN)"));
    EXPECT_NEAR(outcome.ir, 512 / 192.3, 0.001);
    EXPECT_TRUE(outcome.rated());
    s.method = 2;  // goes on
    EXPECT_TRUE(EndsWell(s));
    EXPECT_FALSE(s.failure.any());
}

// Without an axial force no interaction factor is formed, and the class of the section control
// stays: the larger of the two signs.
TEST(Pass, KeepsTheClassOfUnequalFlangesWithoutInteraction)
{
    Member s = Member().Family(22).BasicLoads();
    s.p22.istb1 = 500;  // c/t = (500 - 12)/2 - 6 over 10: class 4 on top
    s.p22.isttf1 = 10;
    s.nload = {};
    s.qload[1] = -10;  // compresses the bottom flange
    ASSERT_TRUE(EndsWell(s));
    ASSERT_NE(s.classmytop, s.classmybot);
    EXPECT_EQ(s.classmy, std::max(s.classmytop, s.classmybot));
    s.nload[1] = 100;  // now the factors take the class of the compressed side
    ASSERT_TRUE(EndsWell(s));
    EXPECT_EQ(s.classmy, s.classmybot);
}

TEST(Outcome, NothingActs)
{
    Member s = Member().BasicLoads();
    s.nload = {};
    s.qload = {};
    const Outcome outcome = Ended(s);
    EXPECT_EQ(outcome.verdict, Verdict::nothing_acts);
    EXPECT_EQ(ExitCode(outcome.verdict), 2);
    EXPECT_EQ(VerdictText(outcome), "nothing acts");
    s.selfweight = 1;
    EXPECT_EQ(Ended(s).verdict, Verdict::within);
}

TEST(Outcome, CountsTheNotes)
{
    Outcome outcome{.verdict = Verdict::within};
    EXPECT_EQ(VerdictText(outcome), "within limits");
    outcome.notes = {{"D201", ""}};
    EXPECT_EQ(VerdictText(outcome), "within limits, 1 note on the unsafe side");
    outcome.notes = {{"D201", ""}, {"D208", ""}};
    EXPECT_EQ(VerdictText(outcome), "within limits, 2 notes on the unsafe side");
    outcome.verdict = Verdict::above;
    EXPECT_EQ(VerdictText(outcome), "above limit");
    EXPECT_EQ(GraverExit(3, 2), 2);
    EXPECT_EQ(GraverExit(1, 3), 3);
    EXPECT_EQ(GraverExit(1, 0), 1);
}

}  // namespace
}  // namespace kestrum
