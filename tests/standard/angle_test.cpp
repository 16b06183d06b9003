// Angles by the standard basis. L 100x10 of EN 10056-1: A 1915, e 28.22, Iy 1.767e6, Iu 2.803e6, Iv
// 7.301e5. S235 (class 3: 100/10 is within 15 and 11.5), gammaM0 = gammaM1 = 1.0.

#include "standard/angle.h"

#include "engine/section_dispatch.h"
#include "standard/standard_member.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace kestrum {
namespace {

using standard::CheckId;

Member Equal(float length)
{
    return Unloaded(length, 235).Section("L 100x10");
}

// D182, D55: My 2 kNm about y and z with their product of inertia: stresses at the five corners
// -77.3 (heel), 95.3 and 105.5 (upper tip), 24.0 and 41.3 (lower tip); 105.468/235.
TEST(Angle, StressesAreThoseOfTheCorners)
{
    Member s = Equal(3);
    s.EndForces(0, 2, 0);
    EXPECT_NEAR(Ratio(s, CheckId::section_my), 0.448801, 1e-5);
    s.EndForces(-50, 2, 0);  // stretched: the heel, 77.304 + 50000/1915
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), (77.3045 + 26.1097) / 235, 1e-5);
}

// The reflection in the u axis turns My into -Mz and Mz into -My.
TEST(Angle, EqualLegsAreSymmetric)
{
    Member s = Equal(3);
    s.EndForces(20, 1.5F, 0.4F);
    const double one = Ratio(s, CheckId::section_nm);
    s.EndForces(20, -0.4F, -1.5F);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), one, 1e-6);
    s.EndForces(20, -1.5F, 0.4F);
    EXPECT_GT(std::abs(Ratio(s, CheckId::section_nm) - one), 0.01);
}

// D179, 6.2.8: the leg h carries Vz, (100 - 10) 10/1.5 235/sqrt 3 = 81.406 kN; at 0.75 a quarter of
// the strength of that leg is gone.
TEST(Angle, ShearReducesTheStrengthOfItsLeg)
{
    Member s = Equal(3);
    s.EndForces(0, 2, 0);
    s.vz1 = s.vz2 = 0.75F * 81.4064F;
    EXPECT_NEAR(Ratio(s, CheckId::section_vz), 0.75, 1e-5);
    EXPECT_NEAR(Ratio(s, CheckId::section_my), 0.448801 / 0.75, 1e-4);
}

// 6.3.1, curve b, L 3: y 0.39354, v (lam 1.6360) 0.74902. 6.3.1.4: NT 1749.87, Nu 645.51, beta
// 0.58147: Ncr,TF 551.77 kN, 0.33710. BB.1.2, two bolts in a leg: v 0.35 + 0.7 1.6360: 0.64596.
TEST(Angle, BucklesAboutPrincipalAxes)
{
    Member s = Equal(3);
    s.nload[1] = 100;
    const auto result = Rated(s);
    EXPECT_NEAR(Ratio(result, CheckId::flexural_y), 0.393538, 1e-5);
    EXPECT_NEAR(Ratio(result, CheckId::flexural_z), 0.749016, 1e-5);
    EXPECT_NEAR(Ratio(result, CheckId::torsional), 0.337098, 1e-4);
    s.lopt = 2;
    EXPECT_NEAR(Ratio(s, CheckId::flexural_z), 0.645957, 1e-5);
}

// BB.1.2, two bolts, L 1, Ncr = pi^2 E I/L^2: y 0.5 + 0.7 lam_y; about v the larger of 0.35 + 0.7
// 0.545 = 0.732 and, of the leg about z, 0.5 + 0.7 0.3506 = 0.745.
TEST(Angle, EffectiveSlendernessOfStockyWebMembers)
{
    Member s = Equal(1);
    s.nload[1] = 100;
    s.lopt = 2;
    const double squash = 1915 * 235.0;
    const auto lam = [&](double inertia) {
        return std::sqrt(squash * 1e6 / (std::numbers::pi * std::numbers::pi * 210000 * inertia));
    };
    const auto ratio = [&](double slenderness) {  // curve b
        const double phi = 0.5 * (1 + 0.34 * (slenderness - 0.2) + slenderness * slenderness);
        return 100e3 * (phi + std::sqrt(phi * phi - slenderness * slenderness)) / squash;
    };
    const double leg = 0.5 + 0.7 * lam(1.767e6);
    EXPECT_GT(leg, 0.35 + 0.7 * lam(7.301e5) + 0.01);
    const auto result = Rated(s);
    EXPECT_NEAR(Ratio(result, CheckId::flexural_y), ratio(leg), 1e-5);
    EXPECT_NEAR(Ratio(result, CheckId::flexural_z), ratio(leg), 1e-4);
}

// D182: half of NRd in tension beside Mz, Iz 1.767e6 mm4: -2 kNm adds at the heel, 28.22 mm from
// the axis, 0.5 + 2e6 28.22/(1.767e6 235) = 0.635920; +2 kNm at the tip, 71.78 mm: 0.845724.
TEST(Angle, SumByAxesUnderMz)
{
    standard::StandardSection q{};
    q.fy = 235;
    q.gammam0 = 1;
    q.iy = q.iz = 1.767e6;
    q.above = q.right = 71.78;
    q.below = q.left = 28.22;
    EXPECT_NEAR(standard::AngleSumByAxes(q, -0.5, 0, -2e6), 0.635920, 1e-6);
    EXPECT_NEAR(standard::AngleSumByAxes(q, -0.5, 0, 2e6), 0.845724, 1e-6);
    q.gammam0 = 1.1;
    EXPECT_NEAR(standard::AngleSumByAxes(q, 0, 0, 2e6), 1.1 * 0.345724, 1e-6);
}

// D226, 6.3.2.2: uniform My 2 gives Mu 1.4142; Mcr = pi/L sqrt(EIv GIt) = 29.327 kNm with It 63333,
// Wu = Iu/(100/sqrt 2) = 39640, lam 0.5636; without a reduction up to 0.4 (0.2 here), curve d.
TEST(Angle, EqualAngleBucklesLaterallyAboutU)
{
    Member s = Equal(3);
    s.lamdalt0 = 0.2F;
    s.EndForces(0, 2, 0);
    EXPECT_NEAR(Ratio(s, CheckId::ltb), 0.206542, 2e-4);
    // Mv alone does not buckle it: Mu = 0 with Mz = -My.
    s.EndForces(0, 2, -2);
    EXPECT_LT(Ratio(s, CheckId::ltb), 0);
}

// D181, EN 1993-1-5, 4.4 (2): L 50x3, 16.67 > 15: lam 0.8950 by the whole leg, rho 0.88266: legs of
// 44.133, Aeff 262.50; the centroid moves 2.1133 along u, and N 20 about v adds to its stress: the
// heel or the tips at 113.2 MPa.
TEST(Angle, SlenderLegsShiftTheCentroid)
{
    Member s = Unloaded(1, 235).Section("L 50x3");
    s.nload[1] = 20;
    const auto result = Rated(s);
    EXPECT_NEAR(Ratio(result, CheckId::section_n), 20 / 61.68697, 1e-5);
    EXPECT_NEAR(Ratio(result, CheckId::section_nm), 0.48172, 1e-4);
}

// The parts that both legs lose, and with D181 switched back those of the straight parts alone,
// here at 355 MPa: 40 mm, lam 40/3/(28.4 eps sqrt 0.43) = 0.880.
TEST(Angle, PartsThatSlenderLegsLose)
{
    Member s = Unloaded(1, 235).Section("L 50x3");
    CalcSection(Delivered(), s);
    const Basis basis = Basis::Standard();
    std::vector<standard::LostPart> lost;
    EffectiveAngle(standard::SectionOf(Delivered(), s, basis), basis, &lost);
    ASSERT_EQ(lost.size(), 2U);
    for (const standard::LostPart& part : lost) {
        EXPECT_NEAR(part.lam, 0.8950, 1e-4);
        EXPECT_NEAR(part.rho, 0.88266, 1e-5);
        EXPECT_NEAR(part.Area(), 17.6, 0.01);
    }
    s.Steel(355);
    CalcSection(Delivered(), s);
    const auto q = standard::SectionOf(Delivered(), s, basis);
    const double straight = 50 - 3 - q.r;
    const double lam = straight / 3 / (28.4 * std::sqrt(235.0 / 355) * std::sqrt(0.43));
    const double rho = (lam - 0.188) / (lam * lam);
    ASSERT_LT(rho, 0.95);
    EXPECT_NEAR(EffectiveAngle(q, Basis::StandardBut(Dev::d181)).a,
                q.a - 2 * (1 - rho) * straight * 3, 1e-3);
}

// zj = ws - integral of (s^2 + w^2) w dA/(2 Iu), here over the solid legs in squares of 0.5 mm.
TEST(Angle, AsymmetryOfUnequalLegs)
{
    Member s = Unloaded(3, 235).Section("L 150x75x9");
    CalcSection(Delivered(), s);
    const standard::StandardSection q = standard::SectionOf(Delivered(), s, Basis::Standard());
    const double cosine = std::cos(q.angle.alfa);
    const double sine = std::sin(q.angle.alfa);
    double integral = 0;
    constexpr double kStep = 0.5;
    for (double y = kStep / 2; y < q.b; y += kStep) {
        for (double z = kStep / 2; z < q.h; z += kStep) {
            if (y < q.tw || z < q.tw) {
                const double w = (z - q.below) * cosine - (y - q.left) * sine;
                const double square = std::pow(y - q.left, 2) + std::pow(z - q.below, 2);
                integral += square * w * kStep * kStep;
            }
        }
    }
    const double ws = q.centre_z * cosine - q.centre_y * sine;
    const double zj = ws - integral / (2 * q.angle.iu);
    EXPECT_GT(std::abs(zj), 20);
    EXPECT_NEAR(standard::AsymmetryOfAngle(q), zj, 0.03 * std::abs(zj));
}

// The same over the middles of the legs, which the formula takes, in steps of a thousandth.
TEST(Angle, AsymmetryOfTheMiddlesOfUnequalLegs)
{
    Member s = Unloaded(3, 235).Section("L 150x75x9");
    CalcSection(Delivered(), s);
    const standard::StandardSection q = standard::SectionOf(Delivered(), s, Basis::Standard());
    const double cosine = std::cos(q.angle.alfa);
    const double sine = std::sin(q.angle.alfa);
    double integral = 0;
    const auto add = [&](double y, double z, double area) {
        integral += (y * y + z * z) * (z * cosine - y * sine) * area;
    };
    constexpr int kSteps = 1000;
    const double up = q.h - q.tw / 2, across = q.b - q.tw / 2;
    for (int i = 0; i < kSteps; ++i) {
        const double t = (i + 0.5) / kSteps;
        add(q.centre_y, q.centre_z + t * up, up * q.tw / kSteps);
        add(q.centre_y + t * across, q.centre_z, across * q.tw / kSteps);
    }
    const double zj = q.centre_z * cosine - q.centre_y * sine - integral / (2 * q.angle.iu);
    EXPECT_NEAR(standard::AsymmetryOfAngle(q), zj, 1e-4 * std::abs(zj));
}

TEST(Angle, EqualLegsHaveNoAsymmetry)
{
    Member s = Equal(3);
    CalcSection(Delivered(), s);
    EXPECT_NEAR(standard::AsymmetryOfAngle(standard::SectionOf(Delivered(), s, Basis::Standard())),
                0, 0.01);
}

// Unequal legs: the moment that compresses the larger part has the larger critical moment.
TEST(Angle, UnequalLegsBuckleByTheSignOfTheMoment)
{
    Member s = Unloaded(4, 235).Section("L 150x75x9").EndForces(0, 5, 0);
    const double up = Ratio(s, CheckId::ltb);
    s.EndForces(0, -5, 0);
    const double down = Ratio(s, CheckId::ltb);
    EXPECT_GT(up, 0);
    EXPECT_GT(std::abs(up - down), 0.01 * up);
}

}  // namespace
}  // namespace kestrum
