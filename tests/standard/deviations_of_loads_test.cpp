// Deviations of actions, material and analysis: the standard's value and, with one deviation
// switched back, the program's. Both by hand; a moment ratio is that of the factored loads.

#include "core/annexes.h"
#include "core/load_combination.h"
#include "standard/standard_member.h"

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

using standard::CheckId;

Member Beam(int annex, i16 selector)
{
    Member s = Unloaded(8, 235).Section("HEB 300");
    s.annexindex = static_cast<i16>(annex);
    s.loadcomb = selector;
    s.safetyclass = 2;
    ApplyAnnexLoads(s, s, annex);
    return s;
}

void Uniform(ProjectState& s, std::size_t row, float q, i16 category)
{
    s.qload[row] = q;
    s.qtype[row] = category;
}

// Bending ratio of the factored load of 1 kN/m.
double PerLoad()
{
    Member s = Unloaded(8, 235).Section("HEB 300");
    s.qload[1] = 1;
    return Ratio(s, CheckId::section_my);
}

void ExpectLoads(const ProjectState& s, Dev deviation, double standard, double program)
{
    EXPECT_NEAR(Ratio(s, CheckId::section_my) / PerLoad(), standard, 1e-6 * standard);
    EXPECT_NEAR(Back(s, deviation, CheckId::section_my) / PerLoad(), program, 1e-6 * program);
}

// Danish class CC1: 0.9 in Eq 6.10 too; 1.0. G 10 with 1.35.
TEST(DeviationsOfLoads, D25ClassFactorOfEq610)
{
    Member s = Beam(kAnnexDk, kEq610);
    s.safetyclass = 1;
    ApplyAnnexLoads(s, s, s.annexindex);
    Uniform(s, 1, 10, 0);
    ExpectLoads(s, Dev::d25, 0.9 * 13.5, 13.5);
}

// G 10: 1.35 x 10; Denmark 1.1 x 10.
TEST(DeviationsOfLoads, D23PermanentLoadsOfEq610)
{
    Member s = Beam(kAnnexDk, kEq610);
    Uniform(s, 1, 10, 0);
    ExpectLoads(s, Dev::d23, 13.5, 11);
}

TEST(DeviationsOfLoads, D26PermanentLoadsOfEq610aInTheUsersAnnex)
{
    Member s = Beam(kAnnexUd, kEq610a);
    Uniform(s, 1, 10, 0);
    ExpectLoads(s, Dev::d26, 13.5, 11);
}

// G 5, Q -10: 1.0 x 5 - 15; 1.35 x 5 - 15 = -8.25.
TEST(DeviationsOfLoads, D27FavourablePermanentLoads)
{
    Member s = Beam(kAnnexEu, kEq610);
    Uniform(s, 1, 5, 0);
    Uniform(s, 2, -10, 1);
    ExpectLoads(s, Dev::d27, 10, 8.25);
}

// Q1 10 leads, Q2 5 with its 0.6, 15 + 4.5; with the 0.2 of Q1, 15 + 1.5.
TEST(DeviationsOfLoads, D28CombinationValueOfTheOtherLoad)
{
    Member s = Beam(kAnnexEu, kEq610);
    s.psi1 = 0.2F;
    s.psi2 = 0.6F;
    Uniform(s, 1, 10, 1);
    Uniform(s, 2, 5, 2);
    ExpectLoads(s, Dev::d28, 19.5, 16.5);
}

// G 5, Q -3: 6.75 without Q; 6.75 - 4.5.
TEST(DeviationsOfLoads, D35VariableLoadsThatRelieve)
{
    Member s = Beam(kAnnexEu, kEq610);
    Uniform(s, 1, 5, 0);
    Uniform(s, 2, -3, 1);
    ExpectLoads(s, Dev::d35, 6.75, 2.25);
}

// Eq 6.10b, psi 0.7 and 0.5: 1.5 (0.7 x 2 + 8); 1.5 (2 + 0.5 x 8).
TEST(DeviationsOfLoads, D36EachVariableLoadLeads)
{
    Member s = Beam(kAnnexEu, kEq610b);
    s.psi1 = 0.7F;
    s.psi2 = 0.5F;
    Uniform(s, 1, 2, 1);
    Uniform(s, 2, 8, 2);
    ExpectLoads(s, Dev::d36, 14.1, 9);
}

// HEB 300 of the table, 117 kg/m: 117 x 0.00981; 117 x 0.01.
TEST(DeviationsOfLoads, D103WeightOfAKilogram)
{
    Member s = Beam(kAnnexEu, kUserFactors);
    s.selfweight = 1;
    const double standard = Ratio(s, CheckId::section_my);
    EXPECT_NEAR(standard / Back(s, Dev::d103, CheckId::section_my), 0.981, 1e-9);
}

// A uniform load on the left half, reaction 3/8 q L: the moment 0.375^2/2 q L^2 = 0.0703125 q L^2
// at 0.375 L; 0.4 x 0.375 - 0.4^2/2 = 0.07 at the check section 0.4 L.
TEST(DeviationsOfLoads, D109ExtremesBetweenCheckSections)
{
    Member s = Beam(kAnnexEu, kUserFactors);
    s.qt1[1] = s.qt2[1] = 10;
    s.qtx1[1] = 0;
    s.qtx2[1] = 4;
    s.qtdir[1] = 1;
    ExpectLoads(s, Dev::d109, 8 * 0.703125, 8 * 0.7);
}

Member Bar()
{
    return Unloaded(2, 235).Section(FormP28{200, 20});
}

// 200x20: Wpl,z 200 x 20^2/4 = 20000 mm3, 4.7 kNm; 4 kN/m x 2^2/8 = 2 kNm.
TEST(DeviationsOfLoads, D106BarsBendAcrossTheirThickness)
{
    Member s = Bar();
    s.qload[1] = 4;
    s.qdir[1] = 0;
    EXPECT_NEAR(Ratio(s, CheckId::section_mz), 2 / 4.7, 1e-6);
    EXPECT_LT(Back(s, Dev::d106, CheckId::section_mz), 0);
}

TEST(DeviationsOfLoads, D178BarsTakeEndMomentsAcrossTheirThickness)
{
    Member s = Bar();
    s.EndForces(0, 0, 2);
    EXPECT_NEAR(Ratio(s, CheckId::section_mz), 2 / 4.7, 1e-6);
    EXPECT_LT(Back(s, Dev::d178, CheckId::section_mz), 0);
}

Member WeldedI(float tf, float fy)
{
    return Unloaded(4, fy).Section(FormP21{400, 300, 15, tf});
}

// 690 MPa: eta 1.0; 1.2 as left from another steel. hw 360, tw 15.
TEST(DeviationsOfLoads, D20ShearAreaFactorOfHighStrengthSteel)
{
    Member s = WeldedI(20, 690);
    s.annexindex = kAnnexEu;
    s.neta = 1.2F;
    s.EndForces(0, 0, 0);
    s.vz1 = s.vz2 = 500;
    const double area = 360 * 15;
    EXPECT_NEAR(Ratio(s, CheckId::section_vz), 500e3 * std::sqrt(3) / (area * 690), 1e-6);
    EXPECT_NEAR(Back(s, Dev::d20, CheckId::section_vz), 500e3 * std::sqrt(3) / (1.2 * area * 690),
                1e-6);
}

// S355 H over 40 mm: 335 MPa; 355. A = 2 x 300 x 50 + 300 x 15 = 34500 mm2 in tension.
TEST(DeviationsOfLoads, D21StrengthOfHollowSectionSteelOver40Mm)
{
    Member s = WeldedI(50, 355);
    s.fykindex = 17;
    s.nload[1] = -1000;
    EXPECT_NEAR(Ratio(s, CheckId::section_n), 1e6 / (34500 * 335.0), 1e-5);
    EXPECT_NEAR(Back(s, Dev::d21, CheckId::section_n), 1e6 / (34500 * 355.0), 1e-5);
}

// Flanges of 90 mm: no strength in Table 3.1; A = 2 x 300 x 90 + 220 x 15 = 57300 mm2 with the 335
// MPa of S355 over 40 mm.
TEST(DeviationsOfLoads, D22ThicknessAbove80Mm)
{
    Member s = WeldedI(90, 355);
    s.fykindex = 2;
    s.nload[1] = -1000;
    EXPECT_FALSE(Rated(s).rated);
    EXPECT_NEAR(Back(s, Dev::d22, CheckId::section_n), 1e6 / (57300 * 335.0), 1e-5);
}

// Germany: 1.1 against 1.0 in every row of 6.3.1.
TEST(DeviationsOfLoads, D24GermanFactorOfInstability)
{
    Member s = Unloaded(8, 235).Section("HEB 300");
    s.annexindex = kAnnexGe;
    s.gammam1 = 1;
    s.nload[1] = 500;
    EXPECT_NEAR(Ratio(s, CheckId::flexural_z), 1.1 * Back(s, Dev::d24, CheckId::flexural_z), 1e-9);
}

// Triangle of 12 kN/m at the right end of 6 m, q L^2/(9 sqrt(3)) at L/sqrt(3); twenty point loads
// of its strips, largest moment under one of them.
TEST(DeviationsOfLoads, D101TrapezoidalLoadAsPointLoads)
{
    Member s = Unloaded(6, 235).Section(FormP21{400, 300, 15, 20});
    s.qt1[1] = 0;
    s.qt2[1] = 12;
    s.qtx1[1] = 0;
    s.qtx2[1] = 6;
    double reaction = 0, largest = 0;
    const auto x = [](int n) { return (n + 0.5) * 0.3; };
    const auto p = [](int n) { return 12 * (n + 0.5) / 20 * 0.3; };
    for (int n = 0; n < 20; ++n) {
        reaction += p(n) * (6 - x(n)) / 6;
    }
    for (int at = 0; at < 20; ++at) {
        double moment = reaction * x(at);
        for (int n = 0; n < at; ++n) {
            moment -= p(n) * (x(at) - x(n));
        }
        largest = std::max(largest, moment);
    }
    const double exact = 12 * 36 / (9 * std::sqrt(3.0));
    const double ratio = Ratio(s, CheckId::section_my);
    EXPECT_GT(std::abs(largest / exact - 1), 1e-4);
    EXPECT_NEAR(Back(s, Dev::d101, CheckId::section_my), ratio * largest / exact, 1e-9);
}

// 10 kN at 0.3 L of 5 m: P a (L^2 - a^2)^1.5/(9 sqrt(3) L EI); the largest of the line at 51
// points.
TEST(DeviationsOfLoads, D261LargestDeflectionBetweenPoints)
{
    Member s = Unloaded(5, 235).Section("HEB 200");
    s.pm[1] = 10;
    s.pmx[1] = 1.5F;
    s.deflimitz = 300;
    const double ei = 210000 * 56.96e6, a = 1500, l = 5000;
    const double exact = 1e4 * a * std::pow(l * l - a * a, 1.5) / (9 * std::sqrt(3.0) * l * ei);
    double read = 0;
    for (int j = 15; j <= 50; ++j) {
        const double x = l * j / 50;
        read = std::max(read, 1e4 * a * (l - x) * (2 * l * x - x * x - a * a) / (6 * l * ei));
    }
    EXPECT_GT(exact / read, 1 + 1e-5);
    EXPECT_NEAR(Ratio(s, CheckId::deflection_z), exact / (l / 300), 1e-7);
    EXPECT_NEAR(Back(s, Dev::d261, CheckId::deflection_z), read / (l / 300), 1e-7);
}

}  // namespace
}  // namespace kestrum
