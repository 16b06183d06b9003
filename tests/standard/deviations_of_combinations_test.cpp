// Deviations of the class that combinations take, of elastic design, of shear buckling and of the
// factors of Annexes A and B: the value of the standard and, with one of them switched back, that
// of the program. Both by hand.

#include "engine/section_dispatch.h"
#include "standard/lateral.h"
#include "standard/standard_member.h"

#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::MemberTerms;
using standard::StandardSection;

constexpr double kPi = std::numbers::pi;

Member FlatBar(float h, float t)
{
    return Unloaded(1, 235).Section(FormP28{h, t}).EndForces(0, 0, 0);
}

double Euler(double inertia, double length)
{
    return kPi * kPi * 210000 * inertia / (length * length);
}

// --- Class ---------------------------------------------------------------------------------------

// Web 600x10 between flanges 300x15, A 15000 mm2. N = 0.4 Npl, My 10 kNm: at yield psi = -0.2 and
// class 3 up to 42/0.604 = 69.5; the stresses that act, 94 and 3 MPa, have psi near 1: class 4
// above 42 for the web of 60. Aeff: lam = 60/56.8, rho 0.7496 of 6000 mm2; the web bent alone is
// whole.
TEST(DeviationsOfCombinations, D42StressesThatAct)
{
    Member s = Unloaded(4, 235).Section(FormP21{630, 300, 10, 15}).EndForces(1410, 10, 0);
    const double iy = (300 * std::pow(630, 3) - 290 * std::pow(600, 3)) / 12;
    const double m = 10e6 / (iy / 315 * 235);
    ProjectState of = s;
    CalcSection(Delivered(), of);
    const double lam = of.d / 10.0 / 56.8;
    const double rho = (lam - 0.22) / (lam * lam);
    const double area = 15000 - (1 - rho) * of.d * 10;
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), 1410e3 / (15000 * 235.0) + m, 1e-5);
    EXPECT_NEAR(Back(s, Dev::d42, CheckId::section_nm), 1410e3 / (area * 235) + m, 1e-5);
}

// Box 600x300, webs 8 (70 t: class 4 where Mz presses them, class 1 bent by My), flanges 16. One
// class takes Wel,y (in class 4 nothing of the bent web is lost: 70 below 0.874 x 28.4 sqrt 23.9);
// the program Wpl,y for My and the effective modulus for Mz.
TEST(DeviationsOfCombinations, D153EachMomentWithItsOwnClass)
{
    Member s = Unloaded(4, 235).Section(FormP23{600, 300, 8, 16, 0}).EndForces(0, 200, 50);
    const double iy = (300 * std::pow(600, 3) - 284 * std::pow(568, 3)) / 12;
    const double wpl = 2 * 4800 * 292 + 2 * 8 * 568 * 568 / 4.0;
    const double elastic = 200e6 / (iy / 300 * 235);
    const double plastic = 200e6 / (wpl * 235);
    EXPECT_NEAR(Ratio(s, CheckId::section_my), elastic, 1e-5);
    EXPECT_NEAR(Back(s, Dev::d153, CheckId::section_my), plastic, 1e-5);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm) - Back(s, Dev::d153, CheckId::section_nm),
                elastic - plastic, 1e-5);
}

// I 630x300, web 600x5 (120 t, class 3 in bending). Under a tension of 0.3 Npl alpha is 0: class 1,
// and My is reduced from Mpl; the program starts from the elastic resistance of My alone.
TEST(DeviationsOfCombinations, D153TensionDoesNotBetterTheMoment)
{
    Member s = Unloaded(4, 235).Section(FormP21{630, 300, 5, 15}).EndForces(-846, 300, 0);
    const double iy = (300 * std::pow(630, 3) - 295 * std::pow(600, 3)) / 12;
    const double wpl = 2 * 4500 * 307.5 + 5 * 600 * 600 / 4.0;
    const double rest = (1 - 846e3 / (12000 * 235)) / (1 - 0.5 * 0.25);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), 300e6 / (wpl * rest * 235), 1e-4);
    EXPECT_NEAR(Back(s, Dev::d153, CheckId::section_nm), 300e6 / (iy / 315 * rest * 235), 1e-4);
}

// --- Elastic design ------------------------------------------------------------------------------

// I 400x300, web 15, flanges 20: A 17400 mm2, webs 5400 of it. The elastic resistances by 6.2.9.2;
// by 6.2.9.1 (5) with them.
TEST(DeviationsOfCombinations, D43ElasticResistancesInPlasticFormulas)
{
    Member s = Unloaded(4, 235).Section(FormP21{400, 300, 15, 20}).EndForces(0, 0, 0);
    s.checkelastic = kTrue;
    s.EndForces(-1500, 200, 0);
    const double iy = (300 * std::pow(400, 3) - 285 * std::pow(360, 3)) / 12;
    const double n = 1500e3 / (17400 * 235);
    const double m = 200e6 / (iy / 200 * 235);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), n + m, 1e-6);
    EXPECT_NEAR(Back(s, Dev::d43, CheckId::section_nm), m * (1 - 0.5 * 5400 / 17400) / (1 - n),
                1e-6);
}

// Annex B, even moments, Cmy 1: kyy has 0.6 lam in the elastic column, lam - 0.2 in the plastic
// one.
TEST(DeviationsOfCombinations, D43ElasticDesignInTheColumnsOfAnnexB)
{
    Member s = Unloaded(2, 235).Section("RHS 100x6.3");
    s.method = 2;
    s.checkelastic = kTrue;
    s.EndForces(100, 5, 0);
    const MemberTerms terms = TermsOf(s, Basis::Standard());
    const double lam = terms.interaction.lamy;
    const double n = Ratio(s, CheckId::flexural_y);
    const double m = Ratio(s, CheckId::section_my);
    EXPECT_NEAR(Ratio(s, CheckId::eq661), n + (1 + 0.6 * lam * n) * m, 1e-6);
    EXPECT_NEAR(Back(s, Dev::d43, CheckId::eq661), n + (1 + (lam - 0.2) * n) * m, 1e-6);
}

// Bar 100x10: h^2 t/6; the program designs it plastically, h^2 t/4.
TEST(DeviationsOfCombinations, D43FlatBarStaysPlastic)
{
    Member s = FlatBar(100, 10);
    s.checkelastic = kTrue;
    s.EndForces(0, 2, 0);
    EXPECT_NEAR(Ratio(s, CheckId::section_my), 2e6 / (100000 / 6.0 * 235), 1e-6);
    EXPECT_NEAR(Back(s, Dev::d43, CheckId::section_my), 2e6 / (25000 * 235.0), 1e-6);
}

// A tension of 1.1 Npl,Rd: the sum of the ratios; the program has none.
TEST(DeviationsOfCombinations, D44BeyondTheAxialResistance)
{
    Member s = Unloaded(4, 235)
                   .Section(FormP21{400, 300, 15, 20})
                   .EndForces(static_cast<float>(-1.1 * 17400 * 0.235), 100, 0);
    const double m = Ratio(s, CheckId::section_my);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), 1.1 + m, 1e-6);
    EXPECT_EQ(Back(s, Dev::d44, CheckId::section_nm), -1);
    EXPECT_NEAR(Back(s, Dev::d44, CheckId::section_n), 1.1, 1e-6);
}

// I 400x300, web 15, flanges 20, tension 1500 kN: n 0.3668, MN,y (1 - n)/(1 - 0.1552) of 650 kNm;
// My 300, Mz 1: Eq (6.41) has the square of the first; the program the ratio itself.
TEST(DeviationsOfCombinations, D48RatiosOfTheSingleMoments)
{
    Member s = Unloaded(4, 235).Section(FormP21{400, 300, 15, 20}).EndForces(-1500, 300, 1);
    const double n = 1500e3 / (17400 * 235);
    const double wpl = 2 * 6000 * 190 + 15 * 360 * 360 / 4.0;
    const double my = 300e6 / (wpl * 235) * (1 - 0.5 * 5400 / 17400) / (1 - n);
    const double wplz = 2 * 20 * 300 * 300 / 4.0 + 360 * 15 * 15 / 4.0;
    const double a = 5400.0 / 17400;
    const double over = (n - a) / (1 - a);
    const double mz = 1e6 / (wplz * 235 * (1 - over * over));
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), my * my + std::pow(mz, 5 * n), 1e-5);
    EXPECT_NEAR(Back(s, Dev::d48, CheckId::section_nm), my, 1e-5);
}

// --- Shear ---------------------------------------------------------------------------------------

// RHS 400x8, S460: hw/t 48 above 60 eps = 42.9, chi = 0.83/lam. Two walls of the clear height; the
// program has A/2 of 6.2.6. With chi above 1 the plastic resistance of A/2 holds both (D47), which
// the program drops.
TEST(DeviationsOfCombinations, D45D47WallsThatBuckleInShear)
{
    Member s = Unloaded(4, 460).Section("RHS 400x8");
    s.neta = 1.2F;
    s.EndForces(0, 0, 0);
    s.vz1 = s.vz2 = 100;
    ProjectState of = s;
    CalcSection(Delivered(), of);
    const double ratio = of.hw / 8.0;
    ASSERT_GT(ratio, 60 * std::sqrt(235 / 460.0));
    const double chi = 0.83 * 86.4 * std::sqrt(235 / 460.0) / ratio;
    const double tau = 460 / kRoot3;
    const double walls = 2.0 * of.hw * 8;
    ASSERT_GT(chi * walls, of.a / 2);
    EXPECT_NEAR(Ratio(s, CheckId::section_vz), 100e3 / (of.a / 2 * tau), 1e-6);
    EXPECT_NEAR(Back(s, Dev::d47, CheckId::section_vz), 100e3 / (chi * walls * tau), 1e-6);
    s.neta = 1;  // 0.83/lam counts for slender walls only: 72 eps
    s.fyk = 700;
    const double eps = std::sqrt(235 / 700.0);
    ASSERT_GT(ratio, 72 * eps);
    const double below = 0.83 * 86.4 * eps / ratio;
    EXPECT_NEAR(Ratio(s, CheckId::section_vz), 100e3 * kRoot3 / (below * walls * 700), 1e-6);
    EXPECT_NEAR(Back(s, Dev::d45, CheckId::section_vz), 100e3 * kRoot3 / (below * of.a / 2 * 700),
                1e-6);
}

// HEA 1000, S460, stiffeners at 600 mm: k = 4 + 5.34 (928/600)^2 = 16.8, stocky up to 31 eps
// sqrt(k)/1.2 = 75.6 for 56.2, so that Av of 6.2.6 counts; the program asks for 72 eps/1.2 = 42.9
// and takes the limit eta hw tw.
TEST(DeviationsOfCombinations, D46StiffenedWebsThatDoNotBuckle)
{
    Member s = Unloaded(6, 460).Section("HEA 1000");
    s.neta = 1.2F;
    s.webstiff = 1;
    s.webstiffa = 600;
    s.EndForces(0, 0, 0);
    s.vz1 = s.vz2 = 1000;
    ProjectState of = s;
    CalcSection(Delivered(), of);
    const double area = of.a - 2 * 300 * 31 + (16.5 + 60) * 31;
    const double ir = 1000e3 * kRoot3 / 460;
    EXPECT_NEAR(Ratio(s, CheckId::section_vz), ir / area, 1e-5);
    EXPECT_NEAR(Back(s, Dev::d46, CheckId::section_vz), ir / (1.2 * 928 * 16.5), 1e-5);
}

// --- Annexes A and B -----------------------------------------------------------------------------

// Bar 100x10, EIw = 0, 1 m with k = 0.5: pi/L sqrt(EIz GIt) of the whole length; 1.05 of the half.
TEST(DeviationsOfCombinations, D244UniformMomentOfTheWholeLength)
{
    Member s = FlatBar(100, 10);
    s.ltbk = 0.5F;
    CalcSection(Delivered(), s);
    const StandardSection q = standard::SectionOf(Delivered(), s, Basis::Standard());
    const double stiffness = 210000 * std::sqrt(100 * 1000 / 12.0 * (100 * 1000 / 3.0) / 2.6);
    EXPECT_NEAR(standard::UniformCriticalMoment(s, q, Basis::Standard()).mcr,
                kPi / 1000 * stiffness / 1e6, 1e-6);
    EXPECT_NEAR(standard::UniformCriticalMoment(s, q, Basis::StandardBut(Dev::d244)).mcr,
                1.05 * kPi / 500 * stiffness / 1e6, 1e-6);
    s.ltbk = 0.75F;  // half-way: C1 1.025
    s.restraints = 1;
    EXPECT_NEAR(standard::UniformCriticalMoment(s, q, Basis::Standard()).mcr,
                kPi / 500 * stiffness / 1e6, 1e-5);
    EXPECT_NEAR(standard::UniformCriticalMoment(s, q, Basis::StandardBut(Dev::d244)).mcr,
                1.025 * kPi / 375 * stiffness / 1e6, 1e-5);
}

// HEA 200, elastic, even moments, no lateral torsional control: Cmy = Cmy,0 = 1 + 0.2412 n and CmLT
// 1; the program goes from lambda0 to Cmy and CmLT of members that twist, with Ncr,T.
TEST(DeviationsOfCombinations, D245HeldMembersDoNotTwist)
{
    Member s = Unloaded(6, 235).Section("HEA 200");
    s.method = 1;
    s.checkelastic = kTrue;
    s.EndForces(200, 20, 0);
    const MemberTerms held = TermsOf(s, Basis::Standard());
    const MemberTerms twists = TermsOf(s, Basis::StandardBut(Dev::d245));
    const double n = 200e3 / Euler(36.92e6, 6000);
    const double cmy0 = 1 + 0.36 * 0.67 * n;
    EXPECT_NEAR(held.found_a.cmy, cmy0, 1e-4);
    EXPECT_EQ(held.found_a.cmlt, 1);
    const double eps = std::sqrt(20e6 / 200e3 * 5383 / (36.92e6 / 95));
    const double alt = 1 - 20.98e4 / 36.92e6;
    const double cmy = cmy0 + (1 - cmy0) * eps * alt / (1 + eps * alt);
    EXPECT_NEAR(twists.found_a.cmy, cmy, 1e-4);
    const double i0 = (36.92e6 + 13.36e6) / 5383;
    const double ncrt = (210000 / 2.6 * 20.98e4 + Euler(108e9, 6000)) / i0;
    const double nz = 200e3 / Euler(13.36e6, 6000);
    EXPECT_NEAR(twists.found_a.cmlt, cmy * cmy * alt / std::sqrt((1 - nz) * (1 - 200e3 / ncrt)),
                2e-3);
}

// HEA 200, elastic, My from 20 kNm to none, Mz even, N 0: epsilon_y beyond bounds, Cmy 1; the
// program takes Cmy,0 = 0.79. CmLT is 1 either way (aLT below 1).
TEST(DeviationsOfCombinations, D246MomentsWithoutAnAxialForce)
{
    Member s = Unloaded(6, 235).Section("HEA 200");
    s.method = 1;
    s.ltb = 1;
    s.checkelastic = kTrue;
    s.EndForces(0, 20, 2);
    s.my2 = 0;
    EXPECT_EQ(TermsOf(s, Basis::Standard()).k.kyy, 1);
    EXPECT_NEAR(TermsOf(s, Basis::StandardBut(Dev::d246)).k.kyy, 0.79, 1e-6);
}

// I 630x300, web 600x5 of class 4 in compression, class 3 in bending. N of 0.2 Npl: class 4 with My
// too. Aeff of N; the program's epsilon_y has A 12000 mm2 and Wel,y.
TEST(DeviationsOfCombinations, D247EpsilonOfClassFour)
{
    Member s = Unloaded(4, 235).Section(FormP21{630, 300, 5, 15}).EndForces(0, 0, 0);
    s.method = 1;
    s.EndForces(564, 100, 0);
    ProjectState of = s;
    CalcSection(Delivered(), of);
    const double lam = of.d / 5.0 / 56.8;
    const double rho = (lam - 0.22) / (lam * lam);
    const double area = 12000 - (1 - rho) * of.d * 5;
    const MemberTerms standard = TermsOf(s, Basis::Standard());
    const MemberTerms program = TermsOf(s, Basis::StandardBut(Dev::d247));
    EXPECT_NEAR(standard.a.a_epsy, area, 1e-3 * area);
    EXPECT_NEAR(program.a.a_epsy, 12000, 1e-3);
    const double iy = (300 * std::pow(630, 3) - 295 * std::pow(600, 3)) / 12;
    EXPECT_NEAR(program.a.w_elastic_y, iy / 315, 1e-6 * iy / 315);
    EXPECT_LE(standard.a.w_elastic_y, iy / 315 * (1 + 1e-9));
}

// HEA 200 of 30 m, Annex B: 400 kN above Ncr,z = 308 kN. The check fails with NEd/Nb,Rd; the
// program goes on with kyy and kzy.
TEST(DeviationsOfCombinations, D248BeyondTheCriticalForce)
{
    Member s = Unloaded(30, 235).Section("HEA 200");
    s.method = 2;
    s.EndForces(400, 5, 0);
    ASSERT_GT(400e3, Euler(13.36e6, 30000));
    const double nz = Ratio(s, CheckId::flexural_z);
    EXPECT_NEAR(Ratio(s, CheckId::n_above_ncr), nz, 1e-12);
    EXPECT_EQ(Ratio(s, CheckId::eq662), -1);
    EXPECT_EQ(Back(s, Dev::d248, CheckId::n_above_ncr), -1);
    // Equal end moments: Cmy 1, class 1: kyy = 1 + 0.8 ny, kzy = 0.6 kyy.
    const double ny = Ratio(s, CheckId::flexural_y);
    const double my = Ratio(s, CheckId::section_my);
    EXPECT_NEAR(Back(s, Dev::d248, CheckId::eq662), nz + 0.6 * (1 + 0.8 * ny) * my, 1e-6);
}

// Uniform load on the left half: M = q (3/8 x - x^2/2), largest 9/128 at 0.375 L, which is neither
// a check section nor one of 51 points: at 0.38 L it is 0.0703.
TEST(DeviationsOfCombinations, D249LargestMomentBetweenPoints)
{
    Member s = Unloaded(4, 235).Section("HEA 200");
    s.nload[1] = 10;
    s.qt1[1] = s.qt2[1] = 10;
    s.qtx1[1] = 0;
    s.qtx2[1] = 2;
    s.qtdir[1] = 1;
    EXPECT_NEAR(TermsOf(s, Basis::Standard()).my, 10 * 16 * 9 / 128.0 * 1e6, 1e-3);
    EXPECT_NEAR(TermsOf(s, Basis::StandardBut(Dev::d249)).my, 10 * 16 * 0.0703 * 1e6, 1e-3);
}

// Cantilever with moments M at 0.2 L and 0.6 L from its support: 2 M, M, nothing. Table A.2 has the
// deflection (0.2 x 0.9 + 0.6 x 0.7) M L^2/EI beside 2 M: 1 + (0.3 pi^2 - 1) n. The moment at
// mid-span is the mean of the ends, which counts as a straight line: 0.79 - 0.36 x 0.33 n, ratio of
// end moments 0.
TEST(DeviationsOfCombinations, D107StraightByTheMiddle)
{
    Member s = Unloaded(2, 235).Section("RHS 100x6.3");
    s.method = 1;
    s.supportcase = 4;
    s.nload[1] = 50;
    s.pmkind[1] = s.pmkind[2] = 1;
    s.pm[1] = s.pm[2] = 5;
    s.pmx[1] = 0.4F;
    s.pmx[2] = 1.2F;
    ProjectState of = s;
    CalcSection(Delivered(), of);
    const double n = 50e3 / Euler(of.iy, 2000);
    EXPECT_NEAR(TermsOf(s, Basis::Standard()).a.cmy0, 1 + (0.3 * kPi * kPi - 1) * n, 1e-5);
    EXPECT_NEAR(TermsOf(s, Basis::StandardBut(Dev::d107)).a.cmy0, 0.79 - 0.36 * 0.33 * n, 1e-5);
}

// --- Shear with axial force ----------------------------------------------------------------------

// Bar 100x10, Vz three quarters of its resistance: rho 0.25 of the whole bar. N counts with what is
// left of the area; with all of it.
TEST(DeviationsOfCombinations, D151BarsAndTubesLoseArea)
{
    Member s = FlatBar(100, 10);
    s.EndForces(-100, 1, 0);
    s.vz1 = s.vz2 = static_cast<float>(0.75 * 1000 / 1.5 * 235 / kRoot3 / 1000);
    const auto ir = [](double area) {
        const double n = 100e3 / (area * 235);
        return 1e6 / (0.75 * 25000 * 235 * (1 - n * n));
    };
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), ir(750), 1e-5);
    EXPECT_NEAR(Back(s, Dev::d151, CheckId::section_nm), ir(1000), 1e-5);
}

}  // namespace
}  // namespace kestrum
