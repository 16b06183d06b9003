// Natural frequencies and vortex shedding of the standard basis: beam theory by hand.

#include "standard/vibration.h"

#include "engine/calculate.h"
#include "service/vortex.h"
#include "standard/standard_member.h"

#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using standard::VortexSheddingOf;

constexpr double kPi = std::numbers::pi;
constexpr double kWeight = 53.83e-4 * 7850;  // HEA 200, kg/m
constexpr double kStiffness = 210e9 * 3692e-8;

Member Beam(i16 supports)
{
    Member s = Unloaded(6, 235).Section("HEA 200");
    s.supportcase = supports;
    s.modal = 1;
    return s;
}

double First(const ProjectState& s, std::size_t mode = 0)
{
    const auto result = Rated(s);
    EXPECT_TRUE(result.vibration);
    return result.vibration ? result.vibration->freq[mode] : 0;
}

// lambda^2/(2 pi L^2) sqrt(EI/m)
double Even(double root, double mass)
{
    return root * root / (2 * kPi * 36) * std::sqrt(kStiffness / mass);
}

// D253: n^2 pi/2 of the pinned beam; 22.3733/(2 pi) of the fixed, 15.4182 of the propped, 3.51602
// of the cantilever.
TEST(Vibration, EvenMassHasTheFrequenciesOfBeamTheory)
{
    Member s = Beam(0);
    EXPECT_NEAR(First(s, 0), Even(kPi, kWeight), 1e-4 * First(s, 0));
    EXPECT_NEAR(First(s, 1), 4 * First(s, 0), 1e-9);
    EXPECT_NEAR(First(s, 2), 9 * First(s, 0), 1e-9);
    EXPECT_NEAR(First(Beam(2)), 22.37329 / (kPi * kPi) * First(s), 1e-4);
    EXPECT_NEAR(First(Beam(1)), 15.41821 / (kPi * kPi) * First(s), 1e-4);
    EXPECT_NEAR(First(Beam(4)), 3.516015 / (kPi * kPi) * First(s), 1e-4);
    EXPECT_FALSE(Rated(Beam(3)).vibration);
}

// D251, D252: G 2 and Q1 -3 kN/m with psi 0.7 sideways move (2 + 2.1)/9.81 t/m.
TEST(Vibration, EveryRowMovesWhateverItsDirection)
{
    Member s = Beam(0);
    s.qload[1] = 2;
    s.qload[2] = -3;
    s.qtype[2] = 1;
    s.qdir[2] = 0;
    s.psi1index = 6;
    s.psi1 = 0.7F;
    const double mass = kWeight + 4100 / 9.81;
    EXPECT_NEAR(Rated(s).vibration->mass, mass, 1e-2);
    EXPECT_NEAR(First(s), Even(kPi, mass), 1e-4 * First(s));
    s.selfweight = 1;  // is in the mass of the section already
    EXPECT_NEAR(First(s), Even(kPi, mass), 1e-4 * First(s));
}

// Rayleigh: pinned, M = 10/9.81 t in the middle moves with twice the mean square of the sine: m L +
// 2 M; at the tip of a cantilever with four times it.
TEST(Vibration, PointLoadsArePointMasses)
{
    Member s = Beam(0);
    s.pm[1] = -10;
    s.pmx[1] = 3;
    s.pmdir[1] = 1;
    const double point = 10000 / 9.81;
    EXPECT_NEAR(First(s), Even(kPi, kWeight + 2 * point / 6), 1e-4 * First(s));
    // the second shape stands still there
    EXPECT_NEAR(First(s, 1), Even(2 * kPi, kWeight), 1e-4 * First(s, 1));
    s = Beam(4);
    s.pm[1] = 10;
    s.pmx[1] = 6;
    s.pmdir[1] = 1;
    EXPECT_NEAR(First(s), Even(1.8751041, kWeight + 4 * point / 6), 1e-4 * First(s));
    s.pmkind[1] = 1;  // a moment has no mass
    EXPECT_NEAR(First(s), Even(1.8751041, kWeight), 1e-4 * First(s));
}

TEST(Vibration, PartsOfALoadMoveAsTheWhole)
{
    for (const int held : {0, 1, 2, 4}) {
        const auto supports = static_cast<i16>(held);
        SCOPED_TRACE(supports);
        Member whole = Beam(supports);
        whole.qload[1] = 5;
        Member parts = Beam(supports);
        parts.qt1[1] = parts.qt2[1] = parts.qt1[2] = parts.qt2[2] = 5;
        parts.qtdir[1] = parts.qtdir[2] = 1;
        parts.qtx2[1] = parts.qtx1[2] = 2.5F;
        parts.qtx2[2] = 6;
        for (std::size_t mode = 0; mode < standard::kModes; ++mode) {
            EXPECT_NEAR(First(parts, mode), First(whole, mode), 1e-5 * First(whole, mode));
        }
    }
}

// From 2 to 6 kN/m over the right half of a pinned member, u from its beginning: phi^2 = 1 + cos(pi
// u), and u cos(pi u) has the integral -2/pi^2: 3 (4 - 8/pi^2) of the 12 kN move. All of it is
// mass.
TEST(Vibration, LoadsThatRiseOverAPartOfTheMember)
{
    Member s = Beam(0);
    s.qt1[1] = 2;
    s.qt2[1] = 6;
    s.qtx1[1] = 3;
    s.qtx2[1] = 6;
    s.qtdir[1] = 1;
    const double moved = 3 * (4 - 8 / (kPi * kPi)) * 1000 / 9.81;
    EXPECT_NEAR(First(s), Even(kPi, kWeight + moved / 6), 1e-5 * First(s));
    EXPECT_NEAR(Rated(s).vibration->mass, kWeight + 12000 / 9.81 / 6, 1e-3);
    const auto study = standard::VibrationStudyOf(Delivered(), s);
    ASSERT_TRUE(study);
    ASSERT_EQ(study->loads.size(), 1U);
    EXPECT_NEAR(study->loads[0].size, 12, 1e-9);
    EXPECT_NEAR(study->loads[0].share[0], 1 - 2 / (kPi * kPi), 1e-6);
}

// The self-weight is in the mass of the section, a moment has none.
TEST(Vibration, TheStudyListsWhatHasAMassOfItsOwn)
{
    Member s = Beam(0);
    s.selfweight = 1;
    s.qload[1] = 5;
    s.pm[1] = 7;
    s.pmx[1] = 3;
    s.pmkind[1] = 1;
    const auto study = standard::VibrationStudyOf(Delivered(), s);
    ASSERT_TRUE(study);
    ASSERT_EQ(study->loads.size(), 1U);
    EXPECT_NEAR(study->loads[0].size, 30, 1e-9);
}

// Springs have no mode, loads that end before they start no mass.
TEST(Vibration, MembersWithoutAStudy)
{
    EXPECT_TRUE(standard::VibrationStudyOf(Delivered(), Beam(4)));
    EXPECT_FALSE(standard::VibrationStudyOf(Delivered(), Beam(3)));
    Member s = Beam(0);
    s.qt1[1] = s.qt2[1] = 5;
    s.qtx1[1] = 4;
    s.qtx2[1] = 2;
    EXPECT_FALSE(standard::VibrationStudyOf(Delivered(), s));
}

Member Tube()
{
    Member s = Unloaded(6, 235).Section(FormP31{200, 8});
    s.supportcase = 0;
    s.vortexcase = 2;
    s.terrain = 3;
    s.vb = 25;
    s.zh = 10;
    return s;
}

void Control(ProjectState& s)
{
    ASSERT_TRUE(Calculate(Delivered(), s));
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
}

// D254: z0 0.3: kr = 0.19 6^0.07 = 0.21539, cr = 0.21539 ln(10/0.3) = 0.75528, vm 18.882 m/s. D259,
// D256: pinned as the member, with 10 kN/m on it: A 4825.5 mm2, I 2.22744e7 mm4: 37.880 + 1019.368
// kg/m, pi/(2 36) sqrt(4.67762e6/1057.25) = 2.9023 Hz; vcrit = 0.2 2.9023/0.18 = 3.22478 m/s.
TEST(Vortex, ByTheMemberThatStandsThere)
{
    Member s = Tube();
    s.qload[1] = 10;
    Control(s);
    const auto v = VortexSheddingOf(s);
    ASSERT_TRUE(v);
    EXPECT_NEAR(v->vm, 18.882, 1e-2);
    EXPECT_NEAR(v->freq, 2.9023, 1e-3);
    EXPECT_NEAR(v->vcrit, 3.22478, 1e-3);
    EXPECT_FALSE(v->accepted);
}

// The other categories have the program's wind; without loads and held alike, D255 is left: 3.14
// against pi.
TEST(Vortex, WithoutADepartureBothAgree)
{
    Member s = Tube();
    s.terrain = 2;
    s.vortexcase = 0;
    Control(s);
    const auto v = VortexSheddingOf(s);
    ASSERT_TRUE(v);
    EXPECT_NEAR(v->vm, s.vm, 1e-5);
    EXPECT_NEAR(v->freq, s.freq[1] * std::pow(kPi / 3.14, 2), 1e-5);
    Member beam = Unloaded(6, 235).Section("HEA 200");
    EXPECT_FALSE(VortexSheddingOf(beam));
}

TEST(Vortex, NoStudyOfOtherFamiliesOrOfLoadsOffTheMember)
{
    Member s = Tube();
    Control(s);
    EXPECT_TRUE(standard::VortexStudyOf(s));
    s.pm[1] = 5;
    s.pmx[1] = 7;
    EXPECT_FALSE(standard::VortexStudyOf(s));
    EXPECT_FALSE(standard::VortexStudyOf(Beam(0).Measured()));
}

// G 1, Q1 2 with psi 0.7, Q2 3 with psi 0.3 kN/m.
TEST(Vibration, EachCategoryHasItsFactor)
{
    Member s = Beam(0);
    s.qload[1] = 1;
    s.qload[2] = 2;
    s.qload[3] = 3;
    s.qtype[2] = 1;
    s.qtype[3] = 2;
    s.psi1index = s.psi2index = 6;
    s.psi1 = 0.7F;
    s.psi2 = 0.3F;
    s.Measured();
    EXPECT_NEAR(standard::VibrationOf(s)->mass, s.weight + (1 + 1.4 + 0.9) * 1000 / 9.81, 1e-3);
}

// From 2 to 6 kN/m all over a pinned member: phi^2 is symmetric, the mean 4 moves.
TEST(Vibration, LoadsThatRiseAllOverTheMember)
{
    const auto trapezoid = [](i16 supports, float from, float to) {
        Member s = Beam(supports);
        s.qt1[1] = from;
        s.qt2[1] = to;
        s.qtx2[1] = 6;
        s.qtdir[1] = 1;
        return First(s);
    };
    EXPECT_NEAR(trapezoid(0, 2, 6) / Even(kPi, kWeight + 4000 / 9.81), 1, 1e-5);
    // the free part lies at the pinned start: a load that is larger there moves more
    EXPECT_LT(trapezoid(1, 6, 2), trapezoid(1, 2, 6));
}

// E.1.2 (2): accepted above 1.25 vm, which grows with the basic wind speed.
TEST(Vortex, AcceptedFromAQuarterAboveTheWindOn)
{
    Member s = Tube();
    Control(s);
    const auto at_25 = VortexSheddingOf(s);
    ASSERT_TRUE(at_25);
    for (const double share : {0.996, 1.004}) {
        s.vb = static_cast<float>(25 * at_25->vcrit / (1.25 * at_25->vm) * share);
        EXPECT_EQ(VortexSheddingOf(s)->accepted, share < 1);
    }
}

// A triangle from end to end moves half of its mass with the symmetric mode, from either end.
TEST(Vibration, TriangleFromEndToEnd)
{
    for (const bool rises : {true, false}) {
        Member s = Beam(0);
        s.qt1[1] = rises ? 0.0F : 4.0F;
        s.qt2[1] = rises ? 4.0F : 0.0F;
        s.qtx1[1] = 0;
        s.qtx2[1] = 6;
        s.qtdir[1] = 1;
        EXPECT_NEAR(First(s), Even(kPi, kWeight + 2000 / 9.81), 1e-4 * First(s));
    }
}

// EN 1991-1-4, E.1.2 (2): no vortex shedding where vcrit exceeds 1.25 vm.
TEST(Vortex, AcceptedFrom125OfTheWindOn)
{
    Member s = Tube();
    Control(s);
    const auto first = VortexSheddingOf(s);
    ASSERT_TRUE(first);
    const float basic = s.vb;
    const auto accepted = [&](double share) {
        s.vb = static_cast<float>(basic * first->vcrit / (first->vm * share));
        return VortexSheddingOf(s)->accepted;
    };
    EXPECT_FALSE(accepted(1.245));
    EXPECT_TRUE(accepted(1.255));
}

}  // namespace
}  // namespace kestrum
