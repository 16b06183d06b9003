// The beam formulas against laws of mechanics that do not use them: statics, and the deflection by
// integrating M/EI twice.

#include "member.h"

#include "core/project_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

namespace kestrum::test {
namespace {

// What acts on the member, for the statics of the test: forces [kN] and moments [kNm] at points, q
// [kN/m] over the whole length.
struct Action {
    double size, at;
    bool moment;
};

struct LoadCase {
    const char* name;
    std::function<void(ProjectState&)> apply;
    double q;
    std::vector<Action> actions;
};

// The 20 forces that stand for a trapezoidal load.
std::vector<Action> StripForces(double q1, double q2, double x1, double x2)
{
    std::vector<Action> forces;
    for (int i = 0; i < 20; ++i) {
        const double middle = (i + 0.5) / 20;
        forces.push_back(
            {(q1 + middle * (q2 - q1)) * (x2 - x1) / 20, x1 + middle * (x2 - x1), false});
    }
    return forces;
}

const std::vector<LoadCase>& LoadCases()
{
    static const std::vector<LoadCase> cases{
        {"q", [](ProjectState& s) { s.qload[2] = 7; }, 7, {}},
        {"force left of the middle",
         [](ProjectState& s) { AddForce(s, 1, 40, 1.3F); },
         0,
         {{40, 1.3F, false}}},
        {"force right of the middle",
         [](ProjectState& s) { AddForce(s, 8, -25, 4.9F); },
         0,
         {{-25, 4.9F, false}}},
        {"moment left of the middle",
         [](ProjectState& s) { AddMoment(s, 2, 18, 0.7F); },
         0,
         {{18, 0.7F, true}}},
        {"moment right of the middle",
         [](ProjectState& s) { AddMoment(s, 7, -30, 5.3F); },
         0,
         {{-30, 5.3F, true}}},
        {"trapezoid", [](ProjectState& s) { AddTrapezoid(s, 3, 4, 15, 0.9F, 5.1F); }, 0,
         StripForces(4, 15, 0.9F, 5.1F)},
    };
    return cases;
}

double ShearAtStart(const ProjectState& s)
{
    return s.supportcase == 4 ? -s.vzdiag[0] : s.vzdiag[0];  // D105
}

double ShearAtEnd(const ProjectState& s)
{
    return s.supportcase == 4 ? -s.vzdiag[50] : s.vzdiag[50];
}

// Moment at x by statics from the forces at the start.
double MomentByStatics(const ProjectState& s, const LoadCase& load, double x)
{
    double m = s.mydiag[0] + ShearAtStart(s) * x - load.q * x * x / 2;
    for (const Action& action : load.actions) {
        if (action.at < x) {
            m += action.moment ? action.size : -action.size * (x - action.at);
        }
    }
    return m;
}

template <class Check> void ForEachCase(Check check)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        for (const LoadCase& load : LoadCases()) {
            SCOPED_TRACE(testing::Message() << "support case " << supportcase << ", " << load.name);
            Member s = Beam(supportcase);
            s.spring = 37;
            load.apply(s);
            Analyse(s);
            check(s, load);
        }
    }
}

TEST(BeamFormulas, ReactionsBalanceTheLoads)
{
    ForEachCase([](const ProjectState& s, const LoadCase& load) {
        double force = load.q * s.l;
        for (const Action& action : load.actions) {
            force += action.moment ? 0 : action.size;
        }
        EXPECT_NEAR(ShearAtStart(s) - ShearAtEnd(s), force, 1e-5 * std::abs(force) + 1e-5);
        EXPECT_NEAR(s.mydiag[50], MomentByStatics(s, load, s.l), 1e-5 * Largest(s.mydiag) + 1e-5);
    });
}

TEST(BeamFormulas, MomentLineFollowsStatics)
{
    ForEachCase([](const ProjectState& s, const LoadCase& load) {
        for (std::size_t j = 1; j < 50; ++j) {
            const double x = static_cast<double>(j) * s.l / 50;
            EXPECT_NEAR(s.mydiag[j], MomentByStatics(s, load, x), 1e-5 * Largest(s.mydiag));
        }
        for (std::size_t k = 0; k <= static_cast<std::size_t>(s.npts); ++k) {
            const double x = static_cast<double>(s.xi[k]) * s.l;
            EXPECT_NEAR(s.mysec[k], MomentByStatics(s, load, x), 1e-5 * Largest(s.mydiag));
        }
    });
}

// Between two points without a load step the mean shear is the rise of the moment, exactly so for a
// parabola. The cantilever holds it with the opposite sign (D105).
TEST(BeamFormulas, ShearIsTheSlopeOfTheMoment)
{
    ForEachCase([](const ProjectState& s, const LoadCase& load) {
        const double sign = s.supportcase == 4 ? -1 : 1;
        const double h = s.l / 50.0;
        for (std::size_t j = 0; j < 50; ++j) {
            const double x = static_cast<double>(j) * h;
            bool stepped = false;
            for (const Action& action : load.actions) {
                stepped |= action.at >= x - 1e-6 && action.at <= x + h + 1e-6;
            }
            if (!stepped) {
                const double slope = (static_cast<double>(s.mydiag[j + 1]) - s.mydiag[j]) / h;
                const double mean = (static_cast<double>(s.vzdiag[j]) + s.vzdiag[j + 1]) / 2;
                EXPECT_NEAR(sign * mean, slope, 1e-4 * Largest(s.vzdiag)) << "j " << j;
            }
        }
    });
}

// E I d'' = -M, integrated over 60000 steps of which none holds a load inside, with d = 0 at the
// supports and no slope at a fixed end. The redundant forces of the propped and the fixed beam must
// make the deflection (and slope) of the far end vanish.
TEST(BeamFormulas, DeflectionIsTheIntegralOfTheCurvature)
{
    ForEachCase([](const ProjectState& s, const LoadCase& load) {
        constexpr std::size_t kSteps = 60000;
        const double h = static_cast<double>(s.l) / kSteps;
        std::vector<double> slope(kSteps + 1), d(kSteps + 1);
        for (std::size_t i = 1; i <= kSteps; ++i) {
            const double x = (static_cast<double>(i) - 0.5) * h;
            const double curvature = -MomentByStatics(s, load, x) / kStiffnessY;  // 1/m
            slope[i] = slope[i - 1] + curvature * h;
            d[i] = d[i - 1] + (slope[i - 1] + curvature * h / 2) * h;
        }
        const bool fixedstart = s.supportcase == 2 || s.supportcase == 4;
        const double tilt = fixedstart ? 0 : -d[kSteps] / s.l;
        const double accuracy = 2e-5 * Largest(s.dzdiag);
        for (std::size_t j = 0; j <= 50; ++j) {
            const std::size_t i = j * kSteps / 50;
            const double expected = 1000 * (d[i] + tilt * static_cast<double>(i) * h);  // mm
            EXPECT_NEAR(s.dzdiag[j], expected, accuracy) << "j " << j;
        }
        if (s.supportcase == 1 || s.supportcase == 2) {
            const double sway = 1000 * s.l * (slope[kSteps] + tilt);  // mm
            EXPECT_NEAR(sway, 0, 10 * accuracy);
        }
    });
}

// Spot values from any table of beam formulas, by hand: q 10, P 12, Mo 6, L 6.
TEST(BeamFormulas, GiveTheTextbookValues)
{
    struct Spot {
        int supportcase;
        double start, mid, end;  // My, kNm
        double dmid;             // mm
    };
    // 10*36/8 = 45; 5*10*1296/(384*16800) m = 10.04 mm; propped 10*36/16 = 22.5 at the middle;
    // fixed 30 and 15; cantilever 180 and 10*9/2 = 45.
    const Spot uniform[] = {{0, 0, 45, 0, 10.04464},
                            {1, 0, 22.5, -45, 4.017857},
                            {2, -30, 15, -30, 2.008929},
                            {4, -180, -45, 0, 34.15179}};
    for (const Spot& spot : uniform) {
        Member s = Beam(spot.supportcase);
        s.qload[1] = 10;
        Analyse(s);
        EXPECT_NEAR(s.mydiag[0], spot.start, 1e-4) << spot.supportcase;
        EXPECT_NEAR(s.mydiag[25], spot.mid, 1e-4) << spot.supportcase;
        EXPECT_NEAR(s.mydiag[50], spot.end, 1e-4) << spot.supportcase;
        EXPECT_NEAR(s.dzdiag[25], spot.dmid, 1e-5) << spot.supportcase;
    }
    // Force in the middle: PL/4 = 18; 5PL/32 = 11.25, 3PL/16 = 13.5; PL/8 = 9; PL/2 = 36.
    // PL3/48EI = 3.214286 mm; 7PL3/768EI = 1.40625; PL3/192EI = 0.8035714; P(L/2)3/3EI = 6.428571.
    const Spot force[] = {{0, 0, 18, 0, 3.214286},
                          {1, 0, 11.25, -13.5, 1.40625},
                          {2, -9, 9, -9, 0.8035714},
                          {4, -36, 0, 0, 6.428571}};
    for (const Spot& spot : force) {
        Member s = Beam(spot.supportcase);
        AddForce(s, 1, 12, 3);
        Analyse(s);
        EXPECT_NEAR(s.mydiag[0], spot.start, 1e-4) << spot.supportcase;
        EXPECT_NEAR(s.mydiag[25], spot.mid, 1e-4) << spot.supportcase;
        EXPECT_NEAR(s.mydiag[50], spot.end, 1e-4) << spot.supportcase;
        EXPECT_NEAR(s.dzdiag[25], spot.dmid, 1e-6) << spot.supportcase;
    }
}

// D105: the shear of a cantilever is negative under a load that points down.
TEST(BeamFormulas, CantileverShearHasTheOppositeSign)
{
    Member q = Beam(4, 4);
    q.qload[1] = 10;
    Analyse(q);
    EXPECT_FLOAT_EQ(q.vzdiag[0], -40);
    EXPECT_FLOAT_EQ(q.vzdiag[25], -20);
    EXPECT_FLOAT_EQ(q.vzdiag[50], 0);
    EXPECT_DOUBLE_EQ(q.vzmin, -40);
    EXPECT_DOUBLE_EQ(q.vzmax, 0);
}

TEST(BeamFormulas, ForceAtTheTipOfACantileverReachesTheLastPoint)
{
    Member tip = Beam(4, 4);
    AddForce(tip, 1, 9, 4);
    Analyse(tip);
    EXPECT_FLOAT_EQ(tip.vzdiag[50], -9);
    EXPECT_FLOAT_EQ(tip.mydiag[50], 0);
    EXPECT_FLOAT_EQ(tip.mydiag[0], -36);

    Member inner = Beam(4, 4);
    AddForce(inner, 1, 9, 3.5F);
    Analyse(inner);
    EXPECT_FLOAT_EQ(inner.vzdiag[50], 0);
    EXPECT_FLOAT_EQ(inner.vzdiag[0], -9);
}

TEST(BeamFormulas, MomentOnAPinnedEndStandsInTheDiagram)
{
    for (const auto& [a, start, end] :
         {std::array{0.0F, 7.0F, 0.0F}, std::array{4.0F, 0.0F, -7.0F}}) {
        Member s = Beam(0, 4);
        AddMoment(s, 3, 7, a);
        Analyse(s);
        EXPECT_FLOAT_EQ(s.mydiag[0], start);
        EXPECT_FLOAT_EQ(s.mydiag[50], end);
        EXPECT_FLOAT_EQ(static_cast<float>(s.mysec[10]), end);
    }
}

// A grid point exactly on the load: pinned and propped beams show the right side of the step, fixed
// beams and cantilevers the left side. Check sections show the right side but on the cantilever.
TEST(BeamFormulas, PointOnTheForceTakesItsSide)
{
    const auto shear = [](int supportcase) {
        Member s = Beam(supportcase, 5);
        AddForce(s, 1, 16, 2.5F);
        Analyse(s);
        return std::pair<double, double>{s.vzdiag[25], s.vzsec[5]};
    };
    EXPECT_EQ(shear(0), std::pair(-8.0, -8.0));
    EXPECT_EQ(shear(1), std::pair(-11.0, -11.0));  // 5P/16 = 5 left, -11P/16 right
    EXPECT_EQ(shear(2), std::pair(8.0, -8.0));
    EXPECT_EQ(shear(3), std::pair(0.0, -8.0));  // half of each side of the two beams
    EXPECT_EQ(shear(4), std::pair(-16.0, -16.0));
}

TEST(BeamFormulas, PointOnTheMomentTakesItsSide)
{
    const auto moment = [](int supportcase) {
        Member s = Beam(supportcase, 5);
        AddMoment(s, 1, 16, 2.5F);
        Analyse(s);
        return std::pair<double, double>{s.mydiag[25], s.mysec[5]};
    };
    EXPECT_EQ(moment(0), std::pair(8.0, 8.0));
    EXPECT_EQ(moment(1), std::pair(7.0, 7.0));  // V = -9/8 Mo/L: 16 - 18/5*2.5
    EXPECT_EQ(moment(2), std::pair(8.0, 8.0));
    EXPECT_EQ(moment(4), std::pair(-16.0, -16.0));
}

// A force on a support goes straight into it.
TEST(BeamFormulas, ForceOnASupportBendsNothing)
{
    for (const int supportcase : {0, 1, 2}) {
        for (const float a : {0.0F, 4.0F}) {
            Member s = Beam(supportcase, 4);
            AddForce(s, 1, 20, a);
            Analyse(s);
            EXPECT_LT(Largest(s.mydiag), 1e-5);
            EXPECT_FLOAT_EQ(s.vzdiag[0], a == 0 ? 20.0F : 0.0F);
            EXPECT_FLOAT_EQ(s.vzdiag[50], a == 0 ? 0.0F : -20.0F);
        }
    }
}

// Moments at the two ends of a fixed beam stand on the supports and bend nothing between.
TEST(BeamFormulas, MomentOnAFixedEndStaysThere)
{
    Member s = Beam(2, 4);
    AddMoment(s, 1, 7, 0);
    Analyse(s);
    EXPECT_FLOAT_EQ(s.mydiag[0], -7);  // M0 = -Mo(2 + 0 - 1)
    EXPECT_FLOAT_EQ(s.mydiag[1], 0);
    EXPECT_NEAR(s.mysec[0], 0, 1e-12);
}

}  // namespace
}  // namespace kestrum::test
