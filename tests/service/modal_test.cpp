#include "service/modal.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

// HEA 100 with 5 kN/m on 5 m.
Member Beam(int supportcase)
{
    Member s = Member::Bare().Supports(supportcase);
    s.iy = 3.492e6F;
    s.weight = 16.67F;
    s.qload[1] = 5;
    return s;
}

ProjectState Analysed(ProjectState s)
{
    CalcModal(s, s, s);
    return s;
}

// m = 16.67 + 510 = 526.67; sqrt(733320/(625*526.67)) = 1.4926; times 1.57, 6.28, 14.1.
TEST(Modal, PinnedBeam)
{
    const ProjectState s = Analysed(Beam(0));
    EXPECT_NEAR(s.modalmass, 526.67, 1e-3);
    EXPECT_NEAR(s.freq[1], 2.3434, 1e-4);
    EXPECT_NEAR(s.freq[2], 9.3734, 1e-4);
    EXPECT_NEAR(s.freq[3], 21.045, 1e-3);
}

TEST(Modal, WithoutLoadsTheMassIsThatOfTheProfile)
{
    Member s = Beam(0);
    s.qload[1] = 0;
    EXPECT_EQ(Analysed(s).modalmass, 16.67F);
}

// D252: 102 kg/m; 1000/9.81 = 101.94.
TEST(Modal, AKilonewtonPerMetreAdds102KilogramsD252)
{
    Member s = Beam(0);
    s.weight = 0;
    s.qload[1] = 1;
    EXPECT_EQ(Analysed(s).modalmass, 102);
}

// D251: 2 + 3 + 4 - 1 = 8 kN/m whatever category and direction; no other row.
TEST(Modal, EveryUniformRowCountsPlainAndNoOtherD251)
{
    Member s = Beam(0);
    s.weight = 0;
    s.qload = {9, 2, 3, 4, -1};
    s.qtype = {0, 0, 1, 2, 0};
    s.qdir = {1, 1, 0, 1, 0};
    s.psi2 = 0.3F;
    s.qt1[1] = s.qt2[1] = 50;
    s.pm[1] = 500;
    EXPECT_EQ(Analysed(s).modalmass, 816);
}

TEST(Modal, ALoadInYLeavesTheFrequencyAboutY)
{
    Member s = Beam(0);
    s.qdir[1] = 0;
    EXPECT_EQ(Analysed(s).freq, Analysed(Beam(0)).freq);
}

// D253: within 0.3 % of lambda2/(2 pi) with lambda of the exact frequency equations of a beam:
// pi, 2 pi, 3 pi; 3.9266, 7.0686, 10.2102; 4.7300, 7.8532, 10.9956; 1.8751, 4.6941, 7.8548.
TEST(Modal, ConstantsLieCloseToBeamTheoryD253)
{
    const std::pair<int, std::array<double, 3>> exact[] = {{0, {1.5708, 6.2832, 14.137}},
                                                           {1, {2.4539, 7.9522, 16.592}},
                                                           {2, {3.5608, 9.8155, 19.242}},
                                                           {4, {0.5596, 3.5069, 9.8194}}};
    for (const auto& [supportcase, constants] : exact) {
        Member s = Beam(supportcase);
        s.qload[1] = 0;
        s.weight = 210000;
        s.iy = 1e6F;
        s.l = 1;  // base frequency 1 Hz
        CalcModal(s, s, s);
        for (std::size_t n = 0; n < 3; ++n) {
            EXPECT_NEAR(s.freq[n + 1], constants[n], 0.003 * constants[n]);
        }
    }
    EXPECT_NEAR(Analysed(Beam(2)).freq[1] / Analysed(Beam(0)).freq[1], 3.56 / 1.57, 1e-6);
}

TEST(Modal, SpringsHaveNoFrequencies)
{
    Member both = Beam(3);
    both.freq = {0, 1, 2, 3};
    CalcModal(both, both, both);
    EXPECT_NEAR(both.modalmass, 526.67, 1e-3);
    EXPECT_EQ(both.freq, (Rows<float, 3>{0, 1, 2, 3}));

    Member one = Beam(5);
    const ProjectState before = one;
    CalcModal(one, one, one);
    EXPECT_EQ(one, before);
}

TEST(Modal, AMassOfZeroOrBelowFails)
{
    for (const float q : {-0.5F, 0.0F}) {
        Member s = Beam(0);
        s.weight = 0;
        s.qload[1] = q;
        ArmTrap();
        CalcModal(s, s, s);
        EXPECT_THROW(CheckTrap(), CalculationStop) << q;
        ArmTrap();
    }
}

// 1/2.3434 = 0.4267 s.
TEST(Modal, TextsShowFrequencyAndPeriod)
{
    const ProjectState s = Analysed(Beam(0));
    EXPECT_EQ(MassText(s), "Mass: m = 527 kg/m");
    EXPECT_EQ(ModeText(s, 1), "Mode 1: 2.34 Hz/0.43s");
    EXPECT_EQ(ModeText(s, 2), "Mode 2: 9.37 Hz/0.11s");
    EXPECT_EQ(ModeText(s, 3), "Mode 3: 21.05 Hz/0.05s");
}

TEST(Modal, PeriodIsTheReciprocalOfTheFrequency)
{
    ProjectState s{};
    s.freq[1] = 0.05F;
    EXPECT_EQ(ModeText(s, 1), "Mode 1: 0.05 Hz/20.00s");
}

TEST(Modal, TextsAreEmptyBeforeTheFirstCalculation)
{
    const ProjectState s = Analysed(Beam(3));
    EXPECT_EQ(MassText(s), "Mass: m = 527 kg/m");
    EXPECT_EQ(ModeText(s, 1), "");
    EXPECT_EQ(MassText(Beam(5)), "");
    EXPECT_THROW(ModeText(s, 4), CalculationStop);
}

}  // namespace
}  // namespace kestrum
