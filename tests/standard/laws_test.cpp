// What the standard basis must obey whatever the numbers are.

#include "core/project_state.h"
#include "engine/calculate.h"
#include "sections/families.h"
#include "standard/standard_member.h"

#include <array>
#include <cmath>
#include <string>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::kCheckIds;
using standard::StandardResult;

// A loaded member of each covered kind.
Member Loaded(int family)
{
    Member s = Unloaded(6, 355).Family(family);
    s.nload[1] = 40;
    s.qload[1] = 3;
    s.qload[2] = 2;
    s.qtype[2] = 1;
    s.qload[3] = 0.1F;
    s.qdir[3] = 0;
    s.pm[1] = 5;
    s.pmx[1] = 1.5F;
    s.pmdir[1] = 1;
    s.pmtype[1] = 2;
    s.ltb = 1;
    s.ltbcurve = 3;
    s.loadcomb = kEq610ab;
    return s;
}

constexpr int kCovered[] = {1,  2,  3,  4,  15, 21, 22, 5,  16, 6,  7,  8,  9,   23,  28, 31,
                            10, 11, 24, 25, 26, 27, 41, 51, 52, 53, 54, 56, 101, 102, 103};

void ExpectSame(const StandardResult& a, const StandardResult& b, double relative)
{
    for (std::size_t i = 0; i < kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        ASSERT_EQ(a.checks[id].present, b.checks[id].present) << standard::NameOf(id);
        const double ir = Ratio(a, id);
        EXPECT_NEAR(ir, Ratio(b, id), relative * std::abs(ir)) << standard::NameOf(id);
    }
}

TEST(Laws, EveryCoveredFamilyIsRated)
{
    for (const int family : kCovered) {
        SCOPED_TRACE(family);
        const StandardResult result = Rated(Loaded(family));
        EXPECT_TRUE(result.rated);
        EXPECT_GT(Ratio(result, CheckId::section_my), 0);
        EXPECT_GT(Ratio(result, CheckId::flexural_z), 0);
        EXPECT_GT(result.ir, 0);
    }
}

TEST(Laws, OtherFamiliesSaySo)
{
    for (const int family : {55, 60}) {
        SCOPED_TRACE(family);
        const StandardResult result = Rated(Loaded(family));
        EXPECT_FALSE(result.rated);
        EXPECT_FALSE(result.outside.empty());
    }
}

TEST(Laws, TwoRowsActAsOne)
{
    for (const int family : kCovered) {
        SCOPED_TRACE(family);
        Member one = Loaded(family);
        ProjectState two = one;
        two.qload[1] = 1;
        two.qload[4] = 2;
        two.qdir[4] = 1;
        ExpectSame(Rated(one), Rated(two), 1e-9);
    }
}

// The point load at L - x on the same pinned member.
TEST(Laws, TheMirroredMemberHasTheSameRatios)
{
    for (const int family : kCovered) {
        SCOPED_TRACE(family);
        Member left = Loaded(family);
        ProjectState right = left;
        right.pmx[1] = 4.5F;
        ExpectSame(Rated(left), Rated(right), 1e-6);
    }
}

TEST(Laws, APassLeavesNothingBehind)
{
    for (const int family : kCovered) {
        SCOPED_TRACE(family);
        Member s = Loaded(family);
        const StandardResult before = Rated(s);
        const Actions carried = TraitsOf(family).carries.loads;
        if (carried.n && carried.y && carried.z) {  // of others the pass empties rows
            Calculate(Delivered(), s);
            ExpectSame(before, Rated(s), 0);
        }
        Rated(Loaded(22));
        ExpectSame(before, Rated(s), 0);
    }
}

TEST(Laws, AHeavierLoadNeverLowersARatio)
{
    for (const int family : kCovered) {
        SCOPED_TRACE(family);
        const Member light = Loaded(family);
        ProjectState heavy = light;
        heavy.loadcomb = kUserFactors;
        double last = 0;
        for (const float factor : {0.5F, 0.8F, 1.0F, 1.2F, 1.5F}) {
            heavy.lfulsg = heavy.lfulsq1 = heavy.lfulsq2 = factor;
            const double ir = Rated(heavy).ir;
            EXPECT_GT(ir, last) << factor;
            last = ir;
        }
    }
}

TEST(Laws, ARestraintMoreNeverRaisesLateralTorsionalBuckling)
{
    for (const int family : {1, 4, 5, 21, 22, 28, 41, 51, 56}) {
        SCOPED_TRACE(family);
        Member s = Loaded(family);
        s.pm[1] = 0;
        double last = 1e9;
        for (i16 restraints = 0; restraints <= 5; ++restraints) {
            if (restraints == 2) {
                continue;  // the middle of the member loses its restraint
            }
            s.restraints = restraints;
            s.ltbcurve = 2;  // kc belongs to another piece with each restraint
            const double ir = Ratio(s, CheckId::ltb);
            EXPECT_LE(ir, last * (1 + 1e-9)) << restraints;
            last = ir;
        }
    }
}

// The members of kestrum-agreement on which no deviation acts: few forces, plain sections. The
// program keeps sections and pi in single precision.
TEST(Laws, PlatesWithoutADepartureAgreeWithTheProgram)
{
    for (const int family : {24, 25, 27, 52, 53, 54, 56}) {
        SCOPED_TRACE(family);
        Member s = Unloaded(5, 355).Family(family);
        s.hsqopt = 1;
        s.qload[1] = 4;
        const StandardResult result = Rated(s);
        ASSERT_TRUE(Calculate(Delivered(), s));
        EXPECT_NEAR(Ratio(result, CheckId::section_my), s.irrow1, 1e-6 * s.irrow1);
    }
}

// The mirrored section: a moment that presses the other side of a symmetric one.
TEST(Laws, TheSignOfAMomentIsNoMatterToSymmetricSections)
{
    for (const int family : {1, 4, 5, 7, 21, 23, 28, 31, 41}) {
        SCOPED_TRACE(family);
        Member s = Unloaded(5, 355).Family(family);
        s.ltb = 1;
        s.EndForces(30, 8, 0);
        const StandardResult up = Rated(s);
        s.EndForces(30, -8, 0);
        ExpectSame(up, Rated(s), 1e-9);
    }
}

// gammaM0 and gammaM1 divide every resistance to a force alone.
TEST(Laws, PartialFactorsDivideTheResistances)
{
    for (const int family : kCovered) {
        SCOPED_TRACE(family);
        for (const auto& [n, my, vz] : {std::array{-30.0F, 0.0F, 0.0F},
                                        {30.0F, 0.0F, 0.0F},
                                        {0.0F, 3.0F, 0.0F},
                                        {0.0F, 0.0F, 20.0F}}) {
            Member s = Unloaded(3, 355).Family(family).EndForces(n, my, 0);
            s.hsqopt = 1;
            s.vz1 = s.vz2 = vz;
            s.gammam0 = s.gammam1 = 1;
            const StandardResult one = Rated(s);
            s.gammam0 = s.gammam1 = 1.25F;
            const StandardResult more = Rated(s);
            for (const CheckId id :
                 {CheckId::section_n, CheckId::section_my, CheckId::section_vz, CheckId::flexural_y,
                  CheckId::flexural_z, CheckId::torsional}) {
                const double ir = Ratio(one, id);
                EXPECT_NEAR(Ratio(more, id), ir > 0 ? 1.25 * ir : ir, 1e-6 * std::abs(ir))
                    << standard::NameOf(id);
            }
        }
    }
}

// A member turned upside down with its moments is the same member.
TEST(Laws, UnequalFlangesUpsideDown)
{
    const FormP22 shapes[] = {{800, 300, 200, 5, 20, 12}, {500, 250, 400, 10, 16, 8}};
    for (const FormP22& shape : shapes) {
        const FormP22 turned{.isth = shape.isth,
                             .istb1 = shape.istb2,
                             .istb2 = shape.istb1,
                             .isttw = shape.isttw,
                             .isttf1 = shape.isttf2,
                             .isttf2 = shape.isttf1};
        for (const float n : {0.0F, 150.0F, -150.0F}) {
            for (const float my : {120.0F, -120.0F}) {
                SCOPED_TRACE(std::to_string(n) + " " + std::to_string(my));
                Member up = Unloaded(6, 355).Section(shape).EndForces(n, my, 0);
                Member down = Unloaded(6, 355).Section(turned).EndForces(n, -my, 0);
                up.ltb = down.ltb = 1;
                up.ltbcurve = down.ltbcurve = 2;
                up.vz1 = up.vz2 = down.vz1 = down.vz2 = 50;
                ExpectSame(Rated(up), Rated(down), 1e-5);
            }
        }
    }
}

// Where no rule of the program departs both bases agree: a column by its flexural rows. The program
// keeps sections and pi in single precision.
TEST(Laws, WithoutADepartureBothAgree)
{
    Member s = Unloaded(5, 355).Section("HEA 200");
    s.nload[1] = 300;
    const StandardResult result = Rated(s);
    ASSERT_TRUE(Calculate(Delivered(), s));
    EXPECT_NEAR(Ratio(result, CheckId::flexural_y), 300 / s.nbyrd, 1e-6);
    EXPECT_NEAR(Ratio(result, CheckId::flexural_z), 300 / s.nbzrd, 1e-6);
}

}  // namespace
}  // namespace kestrum
