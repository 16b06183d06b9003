// Resistances of cross-sections beside shear, and of webs that buckle in shear, by the parts of the
// section. EN 1993-1-1, 6.2.6 and 6.2.8; EN 1993-1-5, 5 and 7.1. N, mm, MPa.

#include "standard/resistance.h"

#include "core/annexes.h"
#include "core/material.h"
#include "engine/section_dispatch.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "standard/effective.h"
#include "standard/plates.h"
#include "standard/standard_member.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace kestrum {
namespace {

using standard::PreparedSection;
using standard::ShearInputs;
using standard::StandardSection;

StandardSection SectionFor(ProjectState s)
{
    CalcSection(Delivered(), s);
    return standard::SectionOf(Delivered(), s, Basis::Standard());
}

// Two flanges 300x20 and a web 600x10, S235.
StandardSection WeldedI()
{
    return SectionFor(Unloaded(4, 235).Section(FormP21{640, 300, 10, 20}));
}

constexpr ShearInputs kBare{0, 4000, false, false};

// 5.1 (2): a web of exactly 72 eps/eta does not buckle.
TEST(Resistances, WebsAtTheLimitOfShearBuckling)
{
    StandardSection q = WeldedI();
    q.eps = q.eta = 1;
    const Basis basis = Basis::Standard();
    const auto buckles = [&](double height, double eta) {
        q.hw = height;
        q.eta = eta;
        return ShearTermsAlongZ(Prepare(q, basis), kBare, 0, 0, basis).has_value();
    };
    EXPECT_FALSE(buckles(720, 1));
    EXPECT_TRUE(buckles(720.1, 1));
    EXPECT_FALSE(buckles(600, 1.2));
    EXPECT_TRUE(buckles(600.1, 1.2));
}

// 5.4 (1): the flange with the smaller b t^2; the upper one of equal ones, here 400x10 and 100x20.
TEST(Resistances, WeakerFlangeHoldsShear)
{
    StandardSection q = WeldedI();
    q.tw = 5;
    const auto thickness = [&](const standard::Flange& top, const standard::Flange& bottom) {
        q.top = top;
        q.bottom = bottom;
        const Basis basis = Basis::Standard();
        return ShearTermsAlongZ(Prepare(q, basis), kBare, 0, 0, basis)->flange.t;
    };
    EXPECT_EQ(thickness({400, 10}, {100, 20}), 10);
    EXPECT_EQ(thickness({401, 10}, {100, 20}), 20);
    EXPECT_EQ(thickness({399, 10}, {100, 20}), 10);
}

// A flange counts with its effective width where it is compressed: not without a stress.
TEST(Resistances, FlangesWithoutStressAreWhole)
{
    const StandardSection q = SectionFor(Unloaded(4, 460).Section(FormP21{1020, 500, 8, 10}));
    const Basis basis = Basis::Standard();
    const PreparedSection p = Prepare(q, basis);
    ASSERT_LT(p.pressed_top.b, 0.9 * q.top.b);
    const double whole = q.top.b * q.top.t;
    EXPECT_EQ(FlangeAreasUnder(p, 0, 0).top, whole);
    EXPECT_EQ(FlangeAreasUnder(p, 0, 0).bottom, whole);
    EXPECT_LT(FlangeAreasUnder(p, 1, 0).top, 0.9 * whole);
    EXPECT_LT(FlangeAreasUnder(p, 0, 1).top, 0.9 * whole);
    EXPECT_EQ(FlangeAreasUnder(p, 0, 1).bottom, whole);
}

// Square walls of 700 MPa that buckle in shear: the same along both axes, with the walls of EN
// 1993-1-5 as with the shear area of 6.2.6 (D45).
TEST(Resistances, SquareHollowSectionsShearAlike)
{
    StandardSection q = SectionFor(Unloaded(4, 460).Section("SHS 400x8"));
    q.fy = 700;
    q.eps = std::sqrt(235.0 / 700);
    q.eta = 1;
    double last = 0;
    for (const Basis& basis : {Basis::Standard(), Basis::StandardBut(Dev::d45)}) {
        const auto z = ShearAlongZ(Prepare(q, basis), kBare, 0, 0, basis);
        const auto y = ShearAlongY(Prepare(q, basis), kBare, basis);
        EXPECT_TRUE(z.slender && y.slender);
        EXPECT_NEAR(y.total, z.total, 1e-9 * z.total);
        EXPECT_GT(std::abs(z.total - last), 1e-3 * z.total);
        last = z.total;
    }
}

// --- Beside shear, 6.2.8 -------------------------------------------------------------------------

// What the elastic resistances lose to webs of 60 % of their strength.
struct Loss {
    double n, my, mz;

    Loss(const StandardSection& q, const Basis& basis)
    {
        const PreparedSection p = Prepare(q, basis);
        const auto whole = ResistanceBeside(p, 3, {0, 0}, false, true, basis);
        const auto left = ResistanceBeside(p, 3, {0.4, 0}, false, true, basis);
        const double strength = q.fy / q.gammam0;
        n = (whole.n - left.n) / strength;
        my = (whole.my - left.my) / strength;
        mz = (whole.mz - left.mz) / strength;
    }
};

// Web 364x12 of an unequal I: its second moment about the axis of the section, to the further edge.
TEST(Resistances, ElasticModulusOfAnUnequalIBesideShear)
{
    const StandardSection q =
        SectionFor(Unloaded(4, 235).Section(FormP22{400, 300, 150, 12, 20, 16}));
    const double up = q.above - 20, down = q.below - 16;
    ASSERT_NEAR(up + down, 364, 1e-3);
    const double middle = (up - down) / 2;
    const double inertia = 12 * std::pow(364, 3) / 12 + 364 * 12 * middle * middle;
    const double expected = 0.4 * inertia / std::max(q.above, q.below);
    EXPECT_NEAR(Loss(q, Basis::Standard()).my, expected, 1e-6 * expected);
}

// Sections of plates lose their webs; D41: the program takes hw^2/6 of them from the modulus.
TEST(Resistances, ElasticValuesOfPlatesBesideShear)
{
    int compared = 0;
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        const StandardSection q = SectionFor(Unloaded(4, 235).Family(family));
        if (!q.OfStrips()) {
            continue;
        }
        ++compared;
        double area = 0, about_y = 0, about_z = 0;
        for (std::size_t i = 0; i < q.strip_count; ++i) {
            const standard::Strip& strip = q.strips[i];
            if (strip.web) {
                const double y = (strip.y0 + strip.y1) / 2, z = (strip.z0 + strip.z1) / 2;
                const double b = strip.y1 - strip.y0, h = strip.z1 - strip.z0;
                area += b * h;
                about_y += b * h * (z * z + h * h / 12);
                about_z += b * h * (y * y + b * b / 12);
            }
        }
        const Loss loss(q, Basis::Standard());
        EXPECT_NEAR(loss.n, 0.4 * area, 1e-6 * area);
        const double wy = about_y / std::max(q.above, q.below);
        const double wz = about_z / std::max(q.left, q.right);
        EXPECT_NEAR(loss.my, 0.4 * wy, 1e-6 * wy);
        EXPECT_NEAR(loss.mz, 0.4 * wz, 1e-6 * wz);
        const double program = q.webs * q.tw * q.hw * q.hw / 6;
        EXPECT_NEAR(Loss(q, Basis::StandardBut(Dev::d41)).my, 0.4 * program, 1e-6 * program);
    }
    EXPECT_GT(compared, 6);
}

// Class 3 has the modulus of the whole section, whatever would be lost in class 4.
TEST(Resistances, ClassThreeIsWhole)
{
    const StandardSection q =
        SectionFor(Unloaded(4, 460).Section(FormP22{1020, 500, 400, 6, 10, 12}));
    const PreparedSection p = Prepare(q, Basis::Standard());
    for (const bool sagging : {true, false}) {
        ASSERT_LT(ModulusYCompressed(p, 4, sagging), 0.99 * q.Wely(sagging));
        EXPECT_EQ(ModulusYCompressed(p, 3, sagging), q.Wely(sagging));
    }
}

// --- EN 1993-1-5, 7.1 ----------------------------------------------------------------------------

// Plastic moment of the plates over gammaM0; beside N it is reduced by 6.2.9.1 (5) with the share
// of the web in the area, at most one half.
TEST(Resistances, PlasticMomentOfFlangesAndWeb)
{
    StandardSection q = WeldedI();
    q.gammam0 = 1.1;
    const auto expect = [&](double flanges, double web, double wpl) {
        const PreparedSection p = Prepare(q, Basis::Standard());
        const double m = wpl * 235 / 1.1;
        EXPECT_NEAR(FlangeAndWebMoment(p, 0, 0), m, 1e-9 * m);
        const double squash = (flanges + web) * 235 / 1.1;
        const double a = std::min(0.5, web / (flanges + web));
        const double beside = m * 0.6 / (1 - 0.5 * a);
        EXPECT_NEAR(FlangeAndWebMoment(p, -0.4 * squash, 0), beside, 1e-9 * m);
        EXPECT_NEAR(FlangeAndWebMoment(p, -1.1 * squash, 0), 0, 1e-9 * m);
    };
    expect(12000, 6000, 2 * 6000 * 310.0 + 10 * 600 * 600 / 4.0);
    q.top = q.bottom = {100, 20};
    expect(4000, 6000, 2 * 2000 * 310.0 + 10 * 600 * 600 / 4.0);
}

// --- Strengths -----------------------------------------------------------------------------------

// Table 3.1, hollow sections of S355 H: 355 up to 40 mm, 335 above (D21: the program keeps 355).
TEST(Resistances, StrengthOfHollowSectionsUpTo40mm)
{
    const auto strength = [](float thickness, const Basis& basis) {
        Member s = Unloaded(4, 235).Section(FormP31{500, thickness});
        for (int i = 0; i < LastMaterial(Delivered()); ++i) {
            if (Delivered().materials[static_cast<std::size_t>(i)].name == "S355 H") {
                s.fykindex = static_cast<i16>(i);
            }
        }
        CalcSection(Delivered(), s);
        return standard::SectionOf(Delivered(), s, basis).fy;
    };
    EXPECT_EQ(strength(39, Basis::Standard()), 355);
    EXPECT_EQ(strength(40, Basis::Standard()), 355);
    EXPECT_EQ(strength(41, Basis::Standard()), 335);
    EXPECT_EQ(strength(40, Basis::StandardBut(Dev::d21)), 355);
}

// --- Sections ------------------------------------------------------------------------------------

// A box turned by a right angle: its effective section about z is the other one's about y.
TEST(Resistances, BoxesTurnedByARightAngle)
{
    for (const float webs : {5.0F, 8.0F}) {
        for (const float flanges : {5.0F, 10.0F}) {
            const StandardSection q =
                SectionFor(Unloaded(4, 355).Section(FormP23{600, 400, webs, flanges, 0}));
            StandardSection turned = q;
            std::swap(turned.iy, turned.iz);
            std::swap(turned.above, turned.right);
            std::swap(turned.below, turned.left);
            for (std::size_t i = 0; i < q.wall_count; ++i) {
                const standard::Wall& wall = q.walls[i];
                turned.walls[i] = {wall.z0, wall.y0, wall.z1, wall.y1, wall.t, wall.outstand};
            }
            const auto z = standard::EffectiveAboutZ(q, true);
            const auto y = EffectiveAboutY(turned, true, Basis::Standard());
            EXPECT_LT(y.a, q.a);
            EXPECT_NEAR(z.a, y.a, 1e-9 * y.a);
            EXPECT_NEAR(z.iz, y.iy, 1e-9 * y.iy);
            EXPECT_NEAR(z.yc, y.zc, 1e-9 * q.b);
        }
    }
}

// EN 1993-1-5, 5.1 (2): 1.2 up to S460; the British annex and one's own keep the factor entered.
TEST(Resistances, ShearFactorOfTheAnnex)
{
    const auto eta = [](int annex) {
        Member s = Unloaded(4, 355).Section("HEA 200");
        s.annexindex = static_cast<i16>(annex);
        s.neta = 1.1F;
        return SectionFor(s).eta;
    };
    EXPECT_NEAR(eta(kAnnexUk), 1.1, 1e-6);
    EXPECT_NEAR(eta(kAnnexUd), 1.1, 1e-6);
    EXPECT_EQ(eta(0), 1.2);
}

// Tables whose moduli are quotients have none of their own; British ones have, and a corrected
// second moment takes them along.
TEST(Resistances, PrintedModuli)
{
    EXPECT_EQ(SectionFor(Unloaded(4, 355).Section("HEA 200")).printed_wely, 0);
    EXPECT_EQ(SectionFor(Unloaded(4, 355).Section("HEA 200")).printed_welz, 0);
    int printed = 0, corrected = 0;
    for (const int family : FamilyNumbers()) {
        Member s = Unloaded(4, 355).Family(family);
        const int rows =
            HasTable(family) ? Delivered().tables[static_cast<std::size_t>(TableOf(s))].rows : 0;
        for (int row = 0; row < rows; ++row) {
            ProjectState each = s.Row(row);
            CalcSection(Delivered(), each);
            const auto q = standard::SectionOf(Delivered(), each, Basis::Standard());
            if (q.printed_wely > 0) {
                const double expected = 1.0 * each.wely * q.iy / each.iy;
                EXPECT_NEAR(q.printed_wely, expected, 1e-6 * expected);
                corrected += std::abs(q.iy / each.iy - 1) > 1e-6;
                ++printed;
            }
            if (q.printed_welz > 0) {
                const double expected = 1.0 * each.welz * q.iz / each.iz;
                EXPECT_NEAR(q.printed_welz, expected, 1e-6 * expected);
                corrected += std::abs(q.iz / each.iz - 1) > 1e-6;
            }
        }
    }
    EXPECT_GT(printed, 50);
    EXPECT_GT(corrected, 0);
}

// Stem of a T 320x200, web 10, flange 20, pressed at its tip: psi -(78.571 - 25)/241.429.
TEST(Resistances, StressRatioOfALostPart)
{
    const StandardSection q = SectionFor(
        Unloaded(3, 235).Section(FormP26{.isth = 320, .istb1 = 200, .isttw = 10, .isttf1 = 20}));
    std::vector<standard::LostPart> lost;
    EffectiveAboutY(q, false, Basis::Standard(), &lost);
    ASSERT_EQ(lost.size(), 1U);
    EXPECT_NEAR(lost[0].psi, -0.221893, 1e-6);
}

}  // namespace
}  // namespace kestrum
