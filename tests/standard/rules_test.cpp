// Single rules of the standard basis against arithmetic by hand.

#include "core/project_state.h"
#include "engine/section_dispatch.h"
#include "standard/effective.h"
#include "standard/standard_member.h"

#include <cmath>

namespace kestrum {
namespace {

using standard::CheckId;

// EN 1990, Table A1.2(B): G 5 and an uplift Q of 10 kN/m: 1.0 G with 1.5 Q is the worst, 5 - 15 =
// -10 kN/m, not 1.35 G with 1.5 Q, -8.25 kN/m.
TEST(Rules, FavourablePermanentLoadsKeepTheirLowerFactor)
{
    Member s = Unloaded(8, 235).Section("HEB 300");
    s.qload[1] = 5;
    s.qload[2] = -10;
    s.qtype[2] = 1;
    ProjectState alone = s;
    alone.lfulsg = 1;
    alone.lfulsq1 = 1.5F;
    s.loadcomb = kEq610;
    const auto result = Rated(s);
    EXPECT_EQ(NameOf(result.checks[CheckId::section_my].load_case), "6.10 G inf + Q1");
    EXPECT_DOUBLE_EQ(Ratio(result, CheckId::section_my), Ratio(alone, CheckId::section_my));
}

// 6.2.9.1 (3): bar 200x20, fy 235: Npl 940 kN, Mpl 47 kNm; n 0.5 leaves 47 (1 - 0.25) = 35.25.
TEST(Rules, FlatBarKeepsAMomentBesideAnAxialForce)
{
    Member s = Unloaded(1, 235).Section(FormP28{200, 20});
    for (const float n : {470.0F, -470.0F}) {
        s.EndForces(n, 20, 0);
        EXPECT_NEAR(Ratio(s, CheckId::section_nm), 20 / 35.25, 1e-6);
    }
}

// 6.2.1 (7): a channel has no formula of its own for N and My.
TEST(Rules, ChannelsSumTheRatios)
{
    Member s = Unloaded(3, 235).Section("UPE 200").EndForces(-200, 20, 0);
    const auto result = Rated(s);
    EXPECT_NEAR(Ratio(result, CheckId::section_nm),
                Ratio(result, CheckId::section_n) + Ratio(result, CheckId::section_my), 1e-12);
}

// 6.2.9.1 (5): box 400x200x10, S235: A 11600. af (A - 2 h tw)/A with the whole depth, (11600 -
// 8000)/11600 = 0.310345; aw (A - 2 b tf)/A = 7600/11600, 0.5 at most. Half of Npl:
// Mpl,z/2/(1 - 0.155172) and Mpl,y/2/0.75.
//   Wpl,z 2 10 200^2/4 + 7600 95 = 922 cm3; Wpl,y 4000 195 + 2 10 380^2/4 = 1502 cm3
TEST(Rules, BoxesKeepAMomentBesideAnAxialForce)
{
    Member s = Unloaded(1, 235).Section(FormP23{400, 200, 10, 10, 0});
    const float half = 11600 * 0.235F / 2;
    s.EndForces(-half, 0, 50);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), 50 / (922 * 0.235 * 0.5 / 0.844828), 1e-5)
        << "N with Mz of a box: the webs count with the whole depth h";
    s.EndForces(-half, 80, 0);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), 80 / (1502 * 0.235 * 0.5 / 0.75), 1e-5);
}

// EN 1993-1-5, 4.4: box 610x610x5, S235. Webs between the welds 592, flanges 600 mm wide.
//   lam = 592/5/56.8 = 2.084507, rho = (lam - 0.22)/lam^2 = 0.429097, lost 2 592 5 0.570903 =
//   3379.7 lam = 600/5/56.8 = 2.112676, rho = 0.424046,                      lost 2 600 5 0.575954
//   = 3455.7 A = 12100, Aeff = 5264.5 mm2; NRd 1237.2 kN
TEST(Rules, BoxOfClassFourLosesThePartsThatBuckle)
{
    Member s = Unloaded(3, 235).Section(FormP23{610, 610, 5, 5, 0});
    s.nload[1] = 500;
    EXPECT_NEAR(Ratio(s, CheckId::section_n), 500 / 1237.2, 1e-4);
}

// 6.3.2.2 (2): z_j = z_s - integral of (y^2 + z^2) z dA/(2 Iy), here summed in strips of 0.01 mm.
TEST(Rules, AsymmetryOfAnUnequalI)
{
    Member s = Unloaded(6, 355).Section(FormP22{500, 300, 150, 10, 20, 15});
    CalcSection(Delivered(), s);
    const standard::StandardSection q = standard::SectionOf(Delivered(), s, Basis::Standard());
    double integral = 0;
    constexpr double kStep = 0.01;
    for (double z = -q.below + kStep / 2; z < q.above; z += kStep) {
        const double b = z < -q.below + 15 ? 150 : z > q.above - 20 ? 300 : 10;
        integral += (b * z * z + b * b * b / 12) * z * kStep;
    }
    const double top = 300.0 * 300 * 300 * 20 / 12;
    const double bottom = 150.0 * 150 * 150 * 15 / 12;
    const double zs = top / (top + bottom) * 482.5 + 7.5 - q.below;
    EXPECT_NEAR(q.zj, zs - integral / (2 * q.iy), 0.01);
}

// Table 3.1 ends at 80 mm.
TEST(Rules, BeyondTheTableOfStrengthsThereIsNoRatio)
{
    Member s = Unloaded(6, 355).Section(FormP21{900, 400, 30, 100});
    s.qload[1] = 10;
    EXPECT_TRUE(Rated(s).rated);  // a strength of the user's own
    s.fykindex = 1;
    const auto result = Rated(s);
    EXPECT_FALSE(result.rated);
    ASSERT_EQ(result.outside.size(), 1U);
    EXPECT_NE(result.outside[0].find("80 mm"), std::string::npos);
}

// What the program does not check is not checked by the standard either.
TEST(Rules, InputsThatCannotBeCalculatedHaveNoRatio)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.qload[1] = 1;
    EXPECT_TRUE(Rated(s).rated);
    s.supportcase = 9;
    EXPECT_FALSE(Rated(s).rated);
    s.supportcase = 0;
    s.ltb = 1;
    s.cmanual = kTrue;
    s.c1 = -1;
    EXPECT_FALSE(Rated(s).rated);
}

// Table 5.2, sheet 3: 90 eps^2 is the end of class 3.
TEST(Rules, TubesOfClassFourHaveNoRatio)
{
    Member s = Unloaded(6, 235).Family(31);
    s.qload[1] = 1;
    s.p31 = {450, 5};  // 90
    EXPECT_TRUE(Rated(s).rated);
    s.p31 = {451, 5};
    EXPECT_FALSE(Rated(s).rated);
}

// A load off the member is refused, not calculated.
TEST(Rules, LoadsOffTheMemberAreRefused)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.pm[1] = 10;
    s.pmdir[1] = 1;
    s.pmx[1] = 6.5F;
    EXPECT_FALSE(Rated(s).rated);
    s.pmx[1] = -0.5F;
    EXPECT_FALSE(Rated(s).rated);
    s.pmx[1] = 5;
    EXPECT_TRUE(Rated(s).rated);
}

// EN 1993-1-5, Table 5.1: web 484x4, lam 484/(4 37.4 sqrt 5.34): 1.37/(0.7 + lam) with a rigid end
// post, 0.83/lam without; the part of the flanges is the same.
TEST(Rules, RigidEndPostsRaiseTheShearResistance)
{
    Member s = Unloaded(5, 235).Section(FormP21{500, 300, 4, 8}).EndForces(0, 0, 0);
    s.webstiff = 0;
    s.vz1 = s.vz2 = 100;
    s.endstiff = 0;
    const double bare = 100e3 / Ratio(s, CheckId::section_vz);
    s.endstiff = 1;
    const double rigid = 100e3 / Ratio(s, CheckId::section_vz);
    const double lam = 484 / (4 * 37.4 * std::sqrt(5.34));
    const double gain = (1.37 / (0.7 + lam) - 0.83 / lam) * 484 * 4 * 235 / kRoot3;
    EXPECT_NEAR(rigid - bare, gain, 0.01 * gain);
}

// EN 1993-1-5, 7.1: I 500x300, flanges 8, web 6, S235, V 300 and M 260 all along.
//   outstand (300 - 6 - 8)/2 = 143: lam = 143/8/(28.4 sqrt 0.43) = 0.95983, rho 0.83779
//   compressed flange 253.607x8 = 2028.9 mm2, the stretched one 2400, web 484x6
//   Mf = 2028.9 492 235 = 234.58 kNm; plastic axis 211.07 above the lower flange: Mpl = 337.26 kNm
//   lam_w = 484/(86.4 6) = 0.93364, Vbw = 0.83/0.93364 235/sqrt 3 2904 = 350.27 kN
//   eta3 = 0.85648: 260/337.26 + (1 - 234.58/337.26) 0.71297^2 = 0.92568
TEST(Rules, SlenderWebsCombineMomentAndShear)
{
    Member s = Unloaded(5, 235).Section(FormP21{500, 300, 6, 8});
    s.endstiff = 0;
    s.webstiff = 0;
    s.EndForces(0, 260, 0);
    s.vz1 = s.vz2 = 300;
    EXPECT_NEAR(Ratio(s, CheckId::section_mv), 0.92568, 2e-5);
    s.my1 = s.my2 = 230;  // the flanges alone carry it
    EXPECT_LT(Ratio(s, CheckId::section_mv), 0);
}

// 6.3.3: NEd above Ncr,z is a failed check with a ratio. IPE 300, L 8: Ncr,z = pi^2 210 6038/8000^2
// = 195.5 kN.
TEST(Rules, AxialForceAboveTheCriticalForceFails)
{
    Member s = Unloaded(8, 235).Section("IPE 300");
    s.nload[1] = 250;
    s.qload[1] = 1;
    const auto result = Rated(s);
    EXPECT_GT(Ratio(result, CheckId::n_above_ncr), 250 / 195.5);
    EXPECT_TRUE(std::isfinite(Ratio(result, CheckId::n_above_ncr)));
    EXPECT_TRUE(result.above);
}

}  // namespace
}  // namespace kestrum
