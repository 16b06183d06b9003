// Angles by the standard basis. L 100x10 of EN 10056-1: A 1915, e 28.22, Iy 1.767e6, Iu 2.803e6, Iv
// 7.301e5. S235 (class 3: 100/10 is within 15 and 11.5), gammaM0 = gammaM1 = 1.0.

#include "standard/angle.h"

#include "engine/section_dispatch.h"
#include "standard/resistance.h"
#include "standard/standard_member.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
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

// --- Sections of two rectangles ------------------------------------------------------------------

// Legs h and b of the thickness t, heel at 0; about the centroid.
struct TwoLegs {
    double a, y, z, iy, iz, iyz;

    TwoLegs(double h, double b, double t)
        : a(h * t + (b - t) * t), y((h * t * t / 2 + (b - t) * t * (b + t) / 2) / a),
          z((h * t * h / 2 + (b - t) * t * t / 2) / a),
          iy(t * h * h * h / 3 + (b - t) * t * t * t / 3 - a * z * z),
          iz(h * t * t * t / 3 + t * (b * b * b - t * t * t) / 3 - a * y * y),
          iyz(h * t * t / 2 * h / 2 + (b - t) * t * (b + t) / 2 * t / 2 - a * y * z)
    {
    }
    double Mean() const { return (iy + iz) / 2; }
    double Radius() const { return std::hypot((iy - iz) / 2, iyz); }
    double Turn() const { return std::atan2(-2 * iyz, iy - iz) / 2; }
};

standard::StandardSection OfLegs(double h, double b, double t)
{
    const TwoLegs legs(h, b, t);
    standard::StandardSection q{};
    q.kind = Kind::angle;
    q.fy = 235;
    q.eps = q.gammam0 = 1;
    q.h = h;
    q.b = b;
    q.tw = t;
    q.a = legs.a;
    q.left = legs.y;
    q.below = legs.z;
    q.iy = legs.iy;
    q.iz = legs.iz;
    q.angle.alfa = legs.Turn();
    q.angle.iu = legs.Mean() + legs.Radius();
    q.angle.iv = legs.Mean() - legs.Radius();
    q.angle.to_v = legs.y * std::cos(legs.Turn()) + legs.z * std::sin(legs.Turn());
    return q;
}

// Where the table's distance of the heel from the v axis is exact, D55 moves no heel; it has the
// tips at mid-thickness.
TEST(Angle, ProgramsCornersOfUnequalLegs)
{
    const standard::StandardSection q = OfLegs(150, 75, 10);
    const auto corners = standard::WholeAngle(q, Basis::Standard()).corners;
    const auto back = standard::WholeAngle(q, Basis::StandardBut(Dev::d55)).corners;
    EXPECT_NEAR(back[0].s, corners[0].s, 1e-9);
    EXPECT_NEAR(back[0].w, corners[0].w, 1e-9);
    for (const std::size_t tip : {1U, 3U}) {
        for (const std::size_t at : {tip, tip + 1}) {
            EXPECT_NEAR(back[at].s, (corners[tip].s + corners[tip + 1].s) / 2, 1e-9);
            EXPECT_NEAR(back[at].w, (corners[tip].w + corners[tip + 1].w) / 2, 1e-9);
        }
    }
}

// EN 1993-1-5, 4.4 (2): legs 150x6 and 75x6 keep the parts of outstands in uniform compression, by
// their whole lengths; the principal axes are those of what is left.
TEST(Angle, PrincipalAxesOfSlenderUnequalLegs)
{
    const standard::StandardSection q = OfLegs(150, 75, 6);
    const auto kept = [](double leg) {
        const double lam = leg / 6 / (28.4 * std::sqrt(0.43));
        return lam <= 0.748 ? leg : leg * (lam - 0.188) / (lam * lam);
    };
    const TwoLegs left(kept(150), kept(75), 6);
    ASSERT_LT(left.a, q.a - 100);
    const auto angle = standard::EffectiveAngle(q, Basis::Standard());
    EXPECT_NEAR(angle.a, left.a, 1e-9 * left.a);
    EXPECT_NEAR(angle.yc, left.y - q.left, 1e-9 * q.h);
    EXPECT_NEAR(angle.zc, left.z - q.below, 1e-9 * q.h);
    EXPECT_NEAR(angle.iu, left.Mean() + left.Radius(), 1e-9 * angle.iu);
    EXPECT_NEAR(angle.iv, left.Mean() - left.Radius(), 1e-9 * angle.iu);
    EXPECT_NEAR(angle.alfa, left.Turn(), 1e-9);
}

// Iu 4, Iv 2, turned by cos 0.8 and sin 0.6, I 2: 2 (0.64/4 + 0.36/2), 2 (0.36/4 + 0.64/2) and 2
// 0.48 (1/4 - 1/2).
TEST(Angle, CurvaturesOfAnAngleThatIsFreeToMove)
{
    standard::AngleSection angle{};
    angle.iu = 4;
    angle.iv = 2;
    angle.cosine = 0.8;
    angle.sine = 0.6;
    EXPECT_NEAR(standard::CouplingOf(angle, 2, true).own, 0.68, 1e-12);
    EXPECT_NEAR(standard::CouplingOf(angle, 2, false).own, 0.82, 1e-12);
    for (const bool about_y : {true, false}) {
        EXPECT_NEAR(standard::CouplingOf(angle, 2, about_y).other, -0.24, 1e-12);
    }
}

// 6.2.9.3 (2): N 100 beside the centroid by 2 mm, at a corner 50 mm from v on either side: 100e3
// (1/1000 + 2 50/1e6) of 235 MPa. A tension acts in it.
TEST(Angle, CompressionActsBesideTheEffectiveCentroid)
{
    standard::StandardSection q{};
    q.fy = 235;
    q.gammam0 = 1;
    standard::AngleSection angle{};
    angle.a = 1000;
    angle.yc = 2;
    angle.iu = angle.iv = 1e6;
    angle.cosine = 1;
    for (const double side : {-50.0, 50.0}) {
        angle.corners.fill({side, 0, true, true});
        EXPECT_NEAR(standard::AngleUse(q, angle, {100e3, 0, 0, 0, 0}), 110 / 235.0, 1e-12);
        EXPECT_NEAR(standard::AngleUse(q, angle, {-100e3, 0, 0, 0, 0}), 100 / 235.0, 1e-12);
    }
}

// D182 beside half of NRd in tension: My of 2 kNm adds 0.345724 at the upper tip or 0.135920 below;
// -My and Mz both add at the tip of the other leg.
TEST(Angle, SumByAxesUnderBothMoments)
{
    standard::StandardSection q{};
    q.fy = 235;
    q.gammam0 = 1;
    q.iy = q.iz = 1.767e6;
    q.above = q.right = 71.78;
    q.below = q.left = 28.22;
    EXPECT_NEAR(standard::AngleSumByAxes(q, -0.5, 2e6, 0), 0.845724, 1e-6);
    EXPECT_NEAR(standard::AngleSumByAxes(q, -0.5, -2e6, 0), 0.635920, 1e-6);
    EXPECT_NEAR(standard::AngleSumByAxes(q, -0.5, -2e6, 2e6), 0.5 + 0.135920 + 0.345724, 1e-6);
    EXPECT_NEAR(standard::AngleSumByAxes(q, -0.5, 2e6, -2e6), 0.5 + 0.345724 + 0.135920, 1e-6);
    EXPECT_NEAR(standard::AngleSumByAxes(q, -0.5, -2e6, -2e6), 0.5 + 2 * 0.135920, 1e-6);
}

// A leg that is whole is not listed, and the other one loses its tip, whichever it is.
TEST(Angle, OneSlenderLeg)
{
    for (const bool upright : {true, false}) {
        const standard::StandardSection q = upright ? OfLegs(150, 60, 6) : OfLegs(60, 150, 6);
        std::vector<standard::LostPart> lost;
        const auto angle = standard::EffectiveAngle(q, Basis::Standard(), &lost);
        ASSERT_EQ(lost.size(), 1U);
        EXPECT_GT(upright ? lost[0].high : lost[0].wide, 50);
        EXPECT_NEAR(angle.a, q.a - lost[0].Area(), 1e-9 * q.a);
    }
}

// The shifts of the effective centroid along the principal axes of what is left.
TEST(Angle, ShiftsOfTheEffectiveCentroid)
{
    const standard::StandardSection q = OfLegs(150, 75, 6);
    const auto p = standard::Prepare(q, Basis::Standard());
    ASSERT_EQ(p.class_n, 4);
    const auto& angle = p.effective_angle;
    const double c = std::cos(angle.alfa), s = std::sin(angle.alfa);
    EXPECT_NEAR(p.effective.enz, std::abs(angle.yc * c + angle.zc * s), 1e-9);
    EXPECT_NEAR(p.effective.eny, std::abs(angle.zc * c - angle.yc * s), 1e-9);
    EXPECT_GT(p.effective.eny, 0.1);
    EXPECT_GT(p.effective.enz, 0.1);
}

standard::StandardSection UnitSection()
{
    standard::StandardSection q{};
    q.fy = 235;
    q.gammam0 = 1;
    return q;
}

// Its principal axes are y and z.
standard::AngleSection UprightAngle()
{
    standard::AngleSection angle{};
    angle.a = 1000;
    angle.iu = angle.iv = 1e6;
    angle.cosine = 1;
    return angle;
}

// Of corners that are stressed alike the first is told, with the shift in its unfavourable sense.
TEST(Angle, TermsOfTheWorstCorner)
{
    const standard::StandardSection q = UnitSection();
    standard::AngleSection angle = UprightAngle();
    for (std::size_t i = 0; i < angle.corners.size(); ++i) {
        angle.corners[i] = {10.0 * static_cast<double>(i), 5, true, true};
    }
    standard::CornerTerms terms{};
    standard::AngleUse(q, angle, {100e3, 0, 0, 0, 0}, &terms);
    EXPECT_EQ(terms.s, 0);
    EXPECT_NEAR(standard::LeastModulusV(angle), 1e6 / 40, 1e-6);
    angle.yc = 4;
    standard::AngleUse(q, angle, {100e3, 0, 0, 0, 0}, &terms);
    EXPECT_EQ(terms.s, 40);
    EXPECT_NEAR(std::abs(terms.ey), 4, 1e-12);
}

// The same at each corner: heel, upper tip, tip of the lying leg.
TEST(Angle, SumByAxesIsThatOfTheCorners)
{
    standard::StandardSection q{};
    q.fy = 235;
    q.gammam0 = 1;
    q.iy = 3e6;
    q.iz = 1e6;
    q.above = 98;
    q.below = 52;
    q.left = 15;
    q.right = 60;
    for (const double n : {0.3, -0.3}) {
        for (const double my : {4e6, 1e6, -1e6, -4e6}) {
            for (const double mz : {1e6, -1e6}) {
                const auto at = [&](double y, double z) {
                    return std::abs(-n + my * z / (q.iy * 235) + mz * y / (q.iz * 235));
                };
                const double most = std::max({at(-15, 98), at(-15, -52), at(60, -52)});
                EXPECT_NEAR(standard::AngleSumByAxes(q, n, my, mz), most, 1e-12);
            }
        }
    }
}

// Nothing of the legs 100x10 is lost: the values of the table stay to the last digit.
TEST(Angle, StockyLegsKeepTheValuesOfTheTable)
{
    Member s = Equal(3);
    CalcSection(Delivered(), s);
    const auto q = standard::SectionOf(Delivered(), s, Basis::Standard());
    const auto angle = standard::EffectiveAngle(q, Basis::Standard());
    EXPECT_EQ(angle.a, q.a);
    EXPECT_EQ(angle.iu, q.angle.iu);
    EXPECT_EQ(angle.iv, q.angle.iv);
    EXPECT_EQ(angle.alfa, q.angle.alfa);
    EXPECT_FALSE(angle.Shifted());
}

// Of two corners with one stress the first is told.
TEST(Angle, FirstOfEqualCornersIsTold)
{
    const standard::StandardSection q = UnitSection();
    standard::AngleSection angle = UprightAngle();
    angle.corners[1].w = 50;
    angle.corners[3].w = -50;
    standard::CornerTerms worst{};
    EXPECT_NEAR(standard::AngleUse(q, angle, {0, 1e6, 0, 0, 0}, &worst), 50 / 235.0, 1e-12);
    EXPECT_EQ(worst.w, 50);
}

// L 150x75x9, its heel at 0: edges from the centroid of the table, the shear centre where the
// middles of the legs meet.
TEST(Angle, EdgesAndShearCentre)
{
    Member s = Unloaded(3, 235).Section("L 150x75x9");
    CalcSection(Delivered(), s);
    const auto q = standard::SectionOf(Delivered(), s, Basis::Standard());
    EXPECT_NEAR(q.above + q.below, 150, 1e-4);
    EXPECT_NEAR(q.left + q.right, 75, 1e-4);
    EXPECT_NEAR(q.centre_y + q.left, 4.5, 1e-5);
    EXPECT_NEAR(q.centre_z + q.below, 4.5, 1e-5);
    ASSERT_GT(q.below, q.left);
}

}  // namespace
}  // namespace kestrum
