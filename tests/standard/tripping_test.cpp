// A stiffener that trips about its root, as it is told to the report: flat bar 200x10 below a plate
// 600x10, S235, 5 m. A 8000 mm2, centroid (6000 205 + 2000 100)/8000 = 178.75 above the tip,
// Iy 600 10^3/12 + 6000 26.25^2 + 10 200^3/12 + 2000 78.75^2 = 23.2542e6 mm4, W 130093 mm3.

#include "standard/tripping.h"

#include "standard/member.h"
#include "standard/standard_member.h"

#include <cmath>

namespace kestrum {
namespace {

using standard::LateralResult;

constexpr double kIy = 50000 + 6000 * 26.25 * 26.25 + 10 * 8e6 / 12 + 2000 * 78.75 * 78.75;
constexpr double kW = kIy / 178.75;

Member FlatBar()
{
    Member s =
        Unloaded(5, 235).Section(FormP51{.isth = 200, .istb1 = 600, .isttw = 10, .isttf1 = 10});
    s.ltb = 1;
    s.lamdalt0 = 0.2F;
    return s;
}

// -12 kNm at 2 m, nothing at the ends.
LateralResult Tripping(ProjectState s)
{
    const Basis basis = Basis::Standard();
    EXPECT_EQ(standard::PrepareState(Delivered(), s, basis), "");
    const auto p = standard::Prepare(standard::SectionOf(Delivered(), s, basis), basis);
    standard::CombinedLines lines{};
    lines.grid.pieces = 2;
    lines.grid.x = {0, 2, 5};
    lines.y.m.m[0] = {0, -6, 0, 0};
    lines.y.m.m[1] = {-12, 4, 0, 0};
    const standard::MemberLoads loads{};
    const LoadFactors factors{1, 1, 1};
    standard::SolvedLines solved;
    return standard::TrippingOf({s, basis, nullptr, p, solved, loads, factors, lines, 3});
}

// Stress (10/210)^2 (1 + 2 (200/5000)^2) 210000/2.6.
constexpr double kStress = 100.0 / 44100 * (1 + 2 * 0.0016) * 210000 / 2.6;

TEST(Tripping, TermsOfAFlatBar)
{
    const LateralResult r = Tripping(FlatBar());
    EXPECT_DOUBLE_EQ(r.moment, -12);
    EXPECT_DOUBLE_EQ(r.checked, 12);
    EXPECT_NEAR(r.place, 0.4, 1e-9);
    EXPECT_NEAR(r.critical.stress, kStress, 1e-5 * kStress);
    EXPECT_NEAR(r.critical.length, 5000, 1e-6);
    EXPECT_NEAR(r.modulus, kW, 1e-5 * kW);
    EXPECT_NEAR(r.mcr, kW * kStress / 1e6, 1e-5 * r.mcr);
    EXPECT_NEAR(r.lam, std::sqrt(235 / kStress), 1e-5);
    EXPECT_EQ(r.alpha, 0.76);
    const double phi = 0.5 * (1 + 0.76 * (r.lam - 0.2) + r.lam * r.lam);
    const double chi = 1 / (phi + std::sqrt(phi * phi - r.lam * r.lam));
    EXPECT_NEAR(r.chi, chi, 1e-6);
    EXPECT_NEAR(r.resistance, chi * kW * 235 / 1e6, 1e-5 * r.resistance);
}

TEST(Tripping, PartialFactorDividesTheResistance)
{
    Member s = FlatBar();
    const double whole = Tripping(s).resistance;
    s.gammam1 = 1.1F;
    EXPECT_NEAR(Tripping(s).resistance, whole / 1.1, 1e-6 * whole);
}

// kL between two restraints: 0.9 5000/3 = 1500 mm.
TEST(Tripping, LengthBetweenRestraints)
{
    Member s = FlatBar();
    s.ltbk = 0.9F;
    s.restraints = 2;
    const LateralResult r = Tripping(s);
    EXPECT_NEAR(r.critical.length, 1500, 1e-3);
    const double stress = 100.0 / 44100 * (1 + 2 * std::pow(200.0 / 1500, 2)) * 210000 / 2.6;
    EXPECT_NEAR(r.critical.stress, stress, 1e-5 * stress);
}

// Table 6.4: curve c up to h/b = 2 of a welded section, here web 200 over flange 100 or 99; d
// beyond.
TEST(Tripping, CurveOfAWeldedTee)
{
    const auto alpha = [](double flange) {
        return Tripping(Unloaded(5, 235).Section(FormP56{.isth = 210,
                                                         .istb1 = 600,
                                                         .istb2 = flange,
                                                         .isttw = 10,
                                                         .isttf1 = 10,
                                                         .isttf2 = 10}))
            .alpha;
    };
    EXPECT_EQ(alpha(100), 0.49);
    EXPECT_EQ(alpha(99), 0.76);
}

}  // namespace
}  // namespace kestrum
