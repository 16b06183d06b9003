// The walk of the check sections with resistances put in by hand: which rows are taken, with what
// texts. Ratios are chosen so that the expectations are plain fractions.

#include "core/project_state.h"
#include "design/section_control.h"

#include "core/arithmetic_trap.h"
#include "support/members.h"
#include "support/rows.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrum {
namespace {

// A routine of the walk that gives one value.
template <double SectionChecks::*Field, int Value>
void Give(const Inputs&, const SectionRecord&, const Resistances&, const Forces&,
          SectionChecks& checks)
{
    checks.*Field = Value;
}

using ClassRoutine = decltype(SectionRoutines::class_y);

// My,Rd 100, Mz,Rd 50, N,Rd 1000 in compression and 2000 in tension, VRd 200 and 80 (Vy ratio 60).
// Reduced for the axial force 80 and 40.
SectionRoutines Fixed(ClassRoutine cls)
{
    SectionRoutines r{};
    r.class_y = cls;
    r.class_z = cls;
    r.reduce_my = Give<&SectionChecks::myrdv, 100>;
    r.reduce_mz = Give<&SectionChecks::mzrdv, 50>;
    r.reduce_mny = Give<&SectionChecks::mnyrd, 80>;
    r.reduce_mnz = Give<&SectionChecks::mnzrd, 40>;
    r.shear = [](const Inputs&, const SectionRecord&, Resistances& resistances, const Forces&,
                 SectionChecks& checks) {
        resistances.vbrd = 200;
        resistances.vcyrd = 60;
        checks.shearnote = ")";
    };
    r.exponents = [](const Resistances&, const Forces&, SectionChecks& checks) {
        checks.alfaexp = 2;
        checks.betaexp = 1;
    };
    r.shear_labels = true;
    return r;
}

i16 Class1(const Inputs&, SectionRecord&, const SectionChecks&, float, float)
{
    return 1;
}
i16 Class3(const Inputs&, SectionRecord&, const SectionChecks&, float, float)
{
    return 3;
}

ProjectState State(const SectionForces& forces)
{
    ProjectState s = Member::Bare().Steel(235);
    s.classmy = s.classmz = 1;
    s.nplrd = 2000;
    s.ncrd = 1000;
    s.vzrd = 200;
    s.vyrd = 80;
    SetForces(s, forces);
    return s;
}

struct TextCase {
    const char* name;
    SectionForces f;
    i16 pure;  // class of the single moments
    ClassRoutine cls;
    i16 conservative;
    std::size_t row;
    double ir;
    const char *label, *calculation, *limit;
};

// Half of the shear resistances: 100 for Vz, 40 for Vy.
const TextCase kTexts[] = {
    {"tension",
     {-500, 0, 0, 0, 0},
     1,
     Class1,
     0,
     1,
     0.25,
     "IR = NEd/NRd = ",
     "{F}/{F} = ",
     " (Ch 6.2.3)"},
    {"compression",
     {500, 0, 0, 0, 0},
     1,
     Class1,
     0,
     1,
     0.5,
     "IR = NEd/NRd = ",
     "{F}/{F} = ",
     " (Ch 6.2.4)"},
    {"My",
     {0, 30, 0, 99, 0},
     1,
     Class1,
     0,
     1,
     0.3,
     "IR = My,Ed/My,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.5)"},
    {"My at half VRd",
     {0, 30, 0, 100, 0},
     1,
     Class1,
     0,
     1,
     0.3,
     "IR = My,Ed/MV,y,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.8)"},
    {"My beyond half VRd",
     {0, 30, 0, 101, 0},
     1,
     Class1,
     0,
     1,
     0.3,
     "IR = My,Ed/MV,y,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.8)"},
    {"Mz",
     {0, 0, 20, 0, 39},
     1,
     Class1,
     0,
     1,
     0.4,
     "IR = Mz,Ed/Mz,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.5)"},
    {"Mz at half VRd",
     {0, 0, 20, 0, 40},
     1,
     Class1,
     0,
     1,
     0.4,
     "IR = Mz,Ed/MV,z,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.8)"},

    {"My Mz",
     {0, 30, 20, 100, 40},
     1,
     Class3,
     0,
     2,
     0.49,
     "IR = [My,Ed/My,Rd]^alfa + [Mz,Ed/Mz,Rd]^beta = ",
     "[{F}/{F}]^{R}+({F}/{F})^{R} = ",
     " (0.00L; Ch 6.2.5/6.2.9)"},
    {"My Mz, shear",
     {0, 30, 20, 101, 41},
     1,
     Class3,
     0,
     2,
     0.49,
     "IR = [My,Ed/MV,y,Rd]^alfa + [Mz,Ed/MV,z,Rd]^beta = ",
     "[{F}/{F}]^{R}+({F}/{F})^{R} = ",
     " (0.00L; Ch 6.2.5/6.2.9)"},
    {"My Mz, class 3",
     {0, 30, 20, 100, 40},
     3,
     Class1,
     0,
     2,
     0.7,
     "IR = My,Ed/My,Rd + Mz,Ed/Mz,Rd = ",
     "{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1)"},
    {"My Mz, class 3, shear",
     {0, 30, 20, 101, 41},
     3,
     Class1,
     0,
     2,
     0.7,
     "IR = My,Ed/MV,y,Rd + Mz,Ed/MV,z,Rd = ",
     "{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1)"},
    {"My Mz, conservative",
     {0, 30, 20, 0, 0},
     1,
     Class1,
     kTrue,
     2,
     0.7,
     "IR = My,Ed/My,Rd + Mz,Ed/Mz,Rd = ",
     "{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1)"},

    {"N My",
     {500, 40, 0, 100, 0},
     3,
     Class1,
     0,
     2,
     0.5,
     "IR = My,Ed/MN,y,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.9)"},
    {"N My, shear",
     {500, 40, 0, 101, 0},
     3,
     Class1,
     0,
     2,
     0.5,
     "IR = My,Ed/MVN,y,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.9)"},
    {"N My, class 3",
     {500, 40, 0, 100, 0},
     1,
     Class3,
     0,
     2,
     0.9,
     "IR = NEd/NRd+My,Ed/My,Rd = ",
     "{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1/6.2.9)"},
    {"N My, class 3, shear, tension",
     {-500, 40, 0, 101, 0},
     1,
     Class3,
     0,
     2,
     0.65,
     "IR = NEd/NRd+My,Ed/MV,y,Rd = ",
     "{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1/6.2.9)"},

    {"N Mz",
     {500, 0, 30, 0, 40},
     3,
     Class1,
     0,
     2,
     0.75,
     "IR = Mz,Ed/MN,z,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.9)"},
    {"N Mz, shear",
     {500, 0, 30, 0, 41},
     3,
     Class1,
     0,
     2,
     0.75,
     "IR = Mz,Ed/MVN,z,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.9)"},
    {"N Mz, class 3",
     {500, 0, 20, 0, 40},
     1,
     Class3,
     0,
     2,
     0.9,
     "IR = NEd/NRd+Mz,Ed/Mz,Rd = ",
     "{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1/6.2.9)"},
    {"N Mz, class 3, shear",
     {500, 0, 20, 0, 41},
     1,
     Class3,
     0,
     2,
     0.9,
     "IR = NEd/NRd+Mz,Ed/MV,z,Rd = ",
     "{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1/6.2.9)"},

    {"N My Mz",
     {500, 72, 30, 100, 40},
     1,
     Class1,
     0,
     2,
     1.56,
     "IR = (My,Ed/MN,y,Rd)^alfa  + (Mz,Ed/MN,z,Rd)^beta = ",
     "({F}/{F})^{R}+({F}/{F})^{R} = ",
     " (0.00L; Ch 6.2.9)"},
    {"N My Mz, shear",
     {500, 72, 30, 101, 41},
     1,
     Class1,
     0,
     2,
     1.56,
     "IR = (My,Ed/MVN,y,Rd)^alfa  + (Mz,Ed/MVN,z,Rd)^beta = ",
     "({F}/{F})^{R}+({F}/{F})^{R} = ",
     " (0.00L; Ch 6.2.9)"},
    {"N My Mz, class 3",
     {500, 10, 10, 100, 40},
     1,
     Class3,
     0,
     2,
     0.8,
     "IR = NEd/NRd+My,Ed/My,Rd+Mz,Ed/Mz,Rd = ",
     "{F}/{F}+{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1/6.2.9)"},
    {"N My Mz, conservative, shear",
     {-500, 10, 10, 101, 41},
     1,
     Class1,
     kTrue,
     2,
     0.55,
     "IR = NEd/NRd+My,Ed/MV,y,Rd+Mz,Ed/MV,z,Rd = ",
     "{F}/{F}+{F}/{F}+{F}/{F} = ",
     " (0.00L; Ch 6.2.1/6.2.9)"},

    {"Vz",
     {0, 0, 0, -50, 0},
     1,
     Class1,
     0,
     3,
     0.25,
     "IR = Vz,Ed/Vz,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.6)"},
    {"Vy",
     {0, 0, 0, 20, -30},
     1,
     Class1,
     0,
     3,
     0.5,
     "IR = Vy,Ed/Vy,Rd = ",
     "{F}/{F} = ",
     " (0.00L; Ch 6.2.6)"},
};

TEST(ControlSection, WritesRatioAndTextsOfEveryCase)
{
    for (const TextCase& c : kTexts) {
        ProjectState s = State(c.f);
        s.classmy = s.classmz = c.pure;
        s.checkconsercontrol = c.conservative;
        ControlSection(s, s, s, s, s, Fixed(c.cls));
        const Check& row = SectionRow(s, c.row);
        EXPECT_NEAR(row.ratio, c.ir, 1e-12) << c.name;
        const double ratios[] = {s.irrow1, s.irrow2, s.irrow3};
        EXPECT_EQ(row.ratio, ratios[c.row - 1]) << c.name;
        EXPECT_EQ(LabelOf(row), c.label) << c.name;
        EXPECT_EQ(CalculationOf(row), c.calculation) << c.name;
        EXPECT_EQ(LimitOf(row), c.limit) << c.name;
        EXPECT_TRUE(IsJudged(row)) << c.name;
        EXPECT_EQ(row.status, c.ir > 1 ? kAbove : kWithin) << c.name;
    }
}

TEST(ControlSection, KeepsTheNumbersOfTheText)
{
    ProjectState s = State({-500, 72, 30, 0, 0});
    s.xi[0] = 0.25F;
    ControlSection(s, s, s, s, s, Fixed(Class1));
    const std::array<double, 9> biaxial = {72, 80, 2, 30, 40, 1};
    EXPECT_EQ(SectionRow(s, 2).terms, biaxial);
    EXPECT_EQ(SectionRow(s, 2).place.x, 0.25);

    ControlSection(s, s, s, s, s, Fixed(Class3));
    const std::array<double, 9> linear = {-500, 2000, 72, 100, 30, 50};
    EXPECT_EQ(SectionRow(s, 2).terms, linear);
    const std::array<double, 9> single = {72, 100};
    EXPECT_EQ(SectionRow(s, 1).terms, single);
}

TEST(ControlSection, KeepsTheWorstOfAllSections)
{
    ProjectState s = State({0, 30, 0, 0, 0});
    s.npts = 3;
    s.xi[1] = 0.25F;
    s.xi[2] = 0.5F;
    s.xi[3] = 1;
    s.mysec[1] = -60;
    s.mysec[2] = 60;  // as large: the first one stays
    s.mysec[3] = 10;
    s.vzsec[3] = 150;
    ControlSection(s, s, s, s, s, Fixed(Class1));
    EXPECT_EQ(s.irrow1, 0.6);
    EXPECT_EQ(SectionRow(s, 1).place.x, 0.25);
    EXPECT_EQ(SectionRow(s, 1).terms[0], 60);
    EXPECT_EQ(s.irrow3, 0.75);
    EXPECT_EQ(SectionRow(s, 3).place.x, 1.0);
    EXPECT_EQ(s.irsection, 0.75);
}

TEST(ControlSection, ClearsWhatAnEarlierRunLeft)
{
    ProjectState s = State({500, 72, 30, 150, 30});
    s.irrow4 = s.irrow5 = s.irrow6 = 9;
    ControlSection(s, s, s, s, s, Fixed(Class1));
    SetForces(s, {0, 0, 0, 0, 0});
    ControlSection(s, s, s, s, s, Fixed(Class1));
    for (std::size_t row = 1; row <= 3; ++row) {
        EXPECT_TRUE(SectionRow(s, row).empty());
        EXPECT_EQ(SectionRow(s, row).status, kWithin);
        EXPECT_EQ(SectionRow(s, row).ratio, 0.0);
    }
    EXPECT_EQ(s.irsection, 0.0);
    EXPECT_EQ(s.irrow1 + s.irrow2 + s.irrow3, 0.0);
    EXPECT_EQ(s.irrow4 + s.irrow5 + s.irrow6, 0.0);
}

TEST(ControlSection, ColoursARowAboveTheLimitOnly)
{
    ProjectState s = State({0, 100, 0, 0, 0});
    ControlSection(s, s, s, s, s, Fixed(Class1));
    EXPECT_EQ(s.irrow1, 1.0);
    EXPECT_EQ(SectionRow(s, 1).status, kWithin);
    s.mysec[0] = 100.001;
    ControlSection(s, s, s, s, s, Fixed(Class1));
    EXPECT_EQ(SectionRow(s, 1).status, kAbove);
}

TEST(ControlSection, PlacesTheAxialRowWhereAsked)
{
    ProjectState s = State({-500, 0, 0, 0, 0});
    s.xi[0] = 0.125F;
    SectionRoutines r = Fixed(Class1);
    r.placed_axial = true;
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (0.00L; Ch 6.2.3)");
    EXPECT_EQ(SectionRow(s, 1).place.x, 0.125);
    s.ned = 500;
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (0.00L; Ch 6.2.4)");
}

// Vy of 80 kN reduces the combination beyond 40 kN; Vz does not.
TEST(ControlSection, CombinationsNameTheShearThatReducesThem)
{
    for (const double vy : {39.9, 40.0, 40.1}) {
        ProjectState s = State({500, 72, 30, 0, vy});
        ControlSection(s, s, s, s, s, Fixed(Class1));
        EXPECT_EQ(SectionRow(s, 2).shear_y, vy > 40) << vy;
        EXPECT_FALSE(SectionRow(s, 2).shear_z);
    }
}

// Without N the resistance of the whole section is shown, of 2000 kN.
TEST(ControlSection, AxialResistanceWithoutAxialForceIsThatOfTension)
{
    for (const auto& [n, resistance] : {std::pair{-1.0, 2000}, {0.0, 2000}, {1.0, 1000}}) {
        ProjectState s = State({n, 72, 30, 0, 0});
        ControlSection(s, s, s, s, s, Fixed(Class1));
        EXPECT_EQ(s.nrdint, resistance) << n;
    }
}

TEST(ControlSection, LeavesShearOutOfTheLabelsWhereAsked)
{
    SectionRoutines r = Fixed(Class1);
    r.shear_labels = false;
    ProjectState s = State({500, 72, 30, 150, 70});
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(LabelOf(SectionRow(s, 1)), "IR = My,Ed/My,Rd = ");
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (0.00L; Ch 6.2.5)");
    EXPECT_EQ(LabelOf(SectionRow(s, 2)), "IR = (My,Ed/MN,y,Rd)^alfa  + (Mz,Ed/MN,z,Rd)^beta = ");
}

TEST(ControlSection, LeavesTheZAxisOutWhereAsked)
{
    SectionRoutines r = Fixed(Class1);
    r.y_only = true;
    r.class_z = nullptr;
    r.reduce_mz = r.reduce_mnz = nullptr;
    ProjectState s = State({500, 40, 49, 20, 59});
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(LabelOf(SectionRow(s, 2)), "IR = My,Ed/MN,y,Rd = ");
    EXPECT_EQ(LabelOf(SectionRow(s, 3)), "IR = Vz,Ed/Vz,Rd = ");
    EXPECT_EQ(s.irrow3, 0.1);
}

TEST(ControlSection, WritesExponentsWithOneDecimalWhereAsked)
{
    SectionRoutines r = Fixed(Class1);
    r.tube_exponents = true;
    ProjectState s = State({500, 72, 30, 0, 0});
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(CalculationOf(SectionRow(s, 2)), "({F}/{F})^{F}+({F}/{F})^{F} = ");
    s.ned = 0;
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(CalculationOf(SectionRow(s, 2)), "[{F}/{F}]^{R}+({F}/{F})^{R} = ");
}

TEST(ControlSection, CallsTheHookWithTheSignedMoment)
{
    SectionRoutines r = Fixed(Class1);
    r.enter = [](SectionRecord& section, const SectionChecks& checks) {
        section.wytop = checks.mysigned < 0 ? 50 : 100;
    };
    r.reduce_my = [](const Inputs&, const SectionRecord& section, const Resistances&, const Forces&,
                     SectionChecks& checks) { checks.myrdv = section.wytop; };
    ProjectState s = State({0, 40, 0, 0, 0});
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(s.irrow1, 0.4);
    s.mysec[0] = -40;
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(s.irrow1, 0.8);
    EXPECT_EQ(s.myed, 40.0);
    EXPECT_EQ(s.mysigned, -40.0);
}

TEST(ControlSection, HandsTheClassesForcesAndClassInUse)
{
    SectionRoutines r = Fixed([](const Inputs&, SectionRecord&, const SectionChecks&, float n,
                                 float m) { return n == -500 && m == 40 ? i16{3} : i16{1}; });
    r.reduce_my = [](const Inputs&, const SectionRecord&, const Resistances&, const Forces&,
                     SectionChecks& checks) { checks.myrdv = checks.classmyuse == 3 ? 80 : 100; };
    ProjectState s = State({-500, -40, 0, 0, 0});
    s.classmy = 2;
    ControlSection(s, s, s, s, s, r);
    EXPECT_EQ(s.irrow1, 0.4);         // class of My alone
    EXPECT_EQ(s.irrow2, 0.25 + 0.5);  // class 3 with N
}

TEST(ControlSection, EndsInTheTrapWithoutResistance)
{
    SectionRoutines r = Fixed(Class1);
    r.reduce_mny = Give<&SectionChecks::mnyrd, 0>;
    ProjectState s = State({500, 40, 0, 0, 0});
    ArmTrap();
    ControlSection(s, s, s, s, s, r);
    EXPECT_THROW(CheckTrap(), CalculationStop);
    ArmTrap();
}

TEST(ControlSection, StopsAtAnIndexBeyondTheSections)
{
    ProjectState s = State({0, 40, 0, 0, 0});
    s.npts = kCheckSections;
    EXPECT_THROW(ControlSection(s, s, s, s, s, Fixed(Class1)), CalculationStop);
}

// My governs its row first, then Mz; the list keeps the largest of both.
TEST(TakeCheck, KeepsTheLargestOfEachCheckAndOfItsRow)
{
    ProjectState s = Member::Bare().Steel(235);
    Check* const my = TakeCheck(s, s, CheckId::my, 0.5);
    ASSERT_NE(my, nullptr);
    FillAtSection(*my, CheckForm::my, {5, 10}, 0.25);
    EXPECT_EQ(TakeCheck(s, s, CheckId::my, 0.5), nullptr);
    Check* const mz = TakeCheck(s, s, CheckId::mz, 0.4);
    ASSERT_NE(mz, nullptr);
    EXPECT_EQ(s.checklist.governs(ResultRow::single), CheckId::my);
    EXPECT_EQ(s.irrow1, 0.5);
    FillAtSection(*TakeCheck(s, s, CheckId::mz, 1.5), CheckForm::mz, {15, 10}, 0.5);
    EXPECT_EQ(s.checklist.governs(ResultRow::single), CheckId::mz);
    EXPECT_EQ(s.irrow1, 1.5);
    EXPECT_EQ(SectionRow(s, 1).status, kAbove);
    EXPECT_EQ(SectionRow(s, 1).place.x, 0.5);
    EXPECT_EQ(s.checklist[CheckId::my].ratio, 0.5);
    EXPECT_EQ(s.checklist[CheckId::my].terms[0], 5);
    EXPECT_EQ(s.checklist[CheckId::my].status, kWithin);
    EXPECT_TRUE(SectionRow(s, 2).empty());
}

// What a check held before is gone when it is taken again.
TEST(TakeCheck, ClearsTheCheck)
{
    ProjectState s = Member::Bare().Steel(235);
    Check* const before = TakeCheck(s, s, CheckId::vz, 0.5);
    before->note = "left";
    before->terms[8] = 7;
    Check* const after = TakeCheck(s, s, CheckId::vz, 0.75);
    ASSERT_EQ(after, before);
    EXPECT_TRUE(after->note.empty());
    EXPECT_EQ(after->terms[8], 0);
}

}  // namespace
}  // namespace kestrum
