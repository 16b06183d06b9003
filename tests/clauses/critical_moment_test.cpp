#include "clauses/critical_moment.h"

#include "clauses/lateral_problem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <utility>
#include <vector>

namespace kestrum {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kPi2 = kPi * kPi;
constexpr double kLength = 8000;

// A section by its ratio K = sqrt(pi^2 EIw/(GIt L^2)), the usual measure of warping.
LateralSection ByWarping(double k, double zj = 0)
{
    const double eiz = 210000 * 1.3e7;
    const double git = 80769 * 2.1e5;
    return {eiz, k * k * git * kLength * kLength / kPi2, git, zj};
}

// sqrt(EIz GIt)/L, the unit of critical moments.
double Unit(const LateralSection& s, double length = kLength)
{
    return std::sqrt(s.eiz * s.git) / length;
}

constexpr LateralSupports kForks{LateralEnd::fork, LateralEnd::fork, {}};
constexpr LateralSupports kCantilever{LateralEnd::clamped, LateralEnd::free, {}};

struct Line {
    std::vector<MomentPiece> pieces;
    std::vector<PointTorque> points;
    double length = kLength;
    MomentLine View() const { return {length, pieces, points}; }
};

Line Straight(double start, double end)
{
    return {{{0, kLength, {start, (end - start) / kLength, 0, 0}, 0, 0}}, {}};
}

// Simple beam under q, N/mm, at the height zg.
Line Uniform(double q, double zg)
{
    return {{{0, kLength, {0, q * kLength / 2, -q / 2, 0}, q * zg, q * zg}}, {}};
}

Line MidPoint(double p, double zg)
{
    const double half = kLength / 2;
    return {
        {{0, half, {0, p / 2, 0, 0}, 0, 0}, {half, kLength, {p * kLength / 4, -p / 2, 0, 0}, 0, 0}},
        {{half, p * zg}}};
}

double Factor(const LateralSection& s, const Line& line, const LateralSupports& supports = kForks)
{
    return CriticalLoadFactor(s, supports, line.View());
}

// --- A second solution: sine series for v and phi of a member on forks, restraints as stiff
// springs.

class Series {
public:
    Series(const LateralSection& s, const std::function<double(double)>& m,
           const std::function<double(double)>& qz, std::vector<PointTorque> points,
           std::vector<double> held)
        : matrix_(2 * kTerms * 2 * kTerms)
    {
        constexpr int kSteps = 1000;
        elastic_.assign(matrix_, 0);
        geometric_.assign(matrix_, 0);
        for (int n = 0; n < kTerms; ++n) {
            const double w = (n + 1) * kPi;
            At(elastic_, n, n) = w * w * w * w / 2;
            At(elastic_, kTerms + n, kTerms + n) =
                w * w / 2 + s.eiw / (s.git * kLength * kLength) * w * w * w * w / 2;
        }
        const double unit = Unit(s);
        for (int step = 0; step < kSteps; ++step) {  // midpoint rule
            const double x = (step + 0.5) / kSteps;
            const double mu = m(x * kLength) / unit;
            const double qzl = qz(x * kLength) * kLength * kLength / s.git;
            const double zj = 2 * m(x * kLength) * s.zj / s.git;
            for (int i = 0; i < kTerms; ++i) {
                const double wi = (i + 1) * kPi;
                for (int j = 0; j < kTerms; ++j) {
                    const double wj = (j + 1) * kPi;
                    const double sines = std::sin(wi * x) * std::sin(wj * x) / kSteps;
                    At(geometric_, i, kTerms + j) -= mu * wi * wi * sines;
                    At(geometric_, kTerms + j, i) -= mu * wi * wi * sines;
                    At(geometric_, kTerms + i, kTerms + j) +=
                        zj * wi * wj * std::cos(wi * x) * std::cos(wj * x) / kSteps - qzl * sines;
                }
            }
        }
        for (const PointTorque& point : points) {
            Spring(geometric_, kTerms, point.x / kLength, -point.pz * kLength / s.git);
        }
        for (const double x : held) {
            Spring(elastic_, 0, x / kLength, 1e7);
            Spring(elastic_, kTerms, x / kLength, 1e7);
        }
    }

    double Factor(double high) const
    {
        double low = 0;
        while (high - low > 1e-6 * high) {
            const double middle = 0.5 * (low + high);
            (Stable(middle) ? low : high) = middle;
        }
        return low;
    }

private:
    static constexpr int kTerms = 16;
    double& At(std::vector<double>& matrix, int i, int j) const
    {
        return matrix[static_cast<std::size_t>(i * 2 * kTerms + j)];
    }
    void Spring(std::vector<double>& matrix, int first, double x, double stiffness) const
    {
        for (int i = 0; i < kTerms; ++i) {
            for (int j = 0; j < kTerms; ++j) {
                At(matrix, first + i, first + j) +=
                    stiffness * std::sin((i + 1) * kPi * x) * std::sin((j + 1) * kPi * x);
            }
        }
    }
    // Cholesky's decomposition exists.
    bool Stable(double alpha) const
    {
        std::vector<double> a(matrix_);
        for (std::size_t i = 0; i < matrix_; ++i) {
            a[i] = elastic_[i] + alpha * geometric_[i];
        }
        for (int i = 0; i < 2 * kTerms; ++i) {
            for (int j = 0; j <= i; ++j) {
                double sum = At(a, i, j);
                for (int k = 0; k < j; ++k) {
                    sum -= At(a, i, k) * At(a, j, k);
                }
                if (i == j && sum <= 0) {
                    return false;
                }
                At(a, i, j) = i == j ? std::sqrt(sum) : sum / At(a, j, j);
            }
        }
        return true;
    }

    std::size_t matrix_;
    std::vector<double> elastic_, geometric_;
};

double SeriesFactor(const LateralSection& s, const Line& line, double high,
                    std::vector<double> held = {})
{
    const auto piece = [&line](double x) -> const MomentPiece& {
        std::size_t i = 0;
        while (i + 1 < line.pieces.size() && line.pieces[i].x1 < x) {
            ++i;
        }
        return line.pieces[i];
    };
    const auto m = [&](double x) {
        const MomentPiece& p = piece(x);
        const double d = x - p.x0;
        return p.m[0] + p.m[1] * d + p.m[2] * d * d + p.m[3] * d * d * d;
    };
    const auto qz = [&](double x) {
        const MomentPiece& p = piece(x);
        return p.qz0 + (p.qz1 - p.qz0) * (x - p.x0) / (p.x1 - p.x0);
    };
    return Series(s, m, qz, line.points, std::move(held)).Factor(high);
}

// --- Closed forms

// Mcr = pi/L sqrt(EIz GIt (1 + K^2)), any K.
TEST(UniformMoment, OnForksIsExact)
{
    for (const double k : {0.0, 0.01, 0.1, 0.3, 1.0, 4.0}) {
        const LateralSection s = ByWarping(k);
        EXPECT_NEAR(Factor(s, Straight(1e6, 1e6)) * 1e6 / (kPi * Unit(s) * std::sqrt(1 + k * k)), 1,
                    1e-5)
            << "K = " << k;
    }
}

// Mcr = Ncr (sqrt(is^2 + (zj)^2) + zj), Ncr is^2 = GIt (1 + K^2) with Ncr of the weak axis.
TEST(UniformMoment, OfUnequalFlangesIsExactForBothSigns)
{
    for (const double zj : {120.0, -120.0}) {
        const LateralSection s = ByWarping(0.8, zj);
        const double ncr = kPi2 * s.eiz / (kLength * kLength);
        const double square = s.git * (1 + 0.64) / ncr;
        const double sagging = ncr * (std::sqrt(square + zj * zj) + zj);
        const double hogging = ncr * (std::sqrt(square + zj * zj) - zj);
        EXPECT_NEAR(Factor(s, Straight(1e6, 1e6)) * 1e6 / sagging, 1, 1e-5);
        EXPECT_NEAR(Factor(s, Straight(-1e6, -1e6)) * 1e6 / hogging, 1, 1e-5);
    }
}

// Clamped for v and phi at both ends: the buckling length is halved. With n restraints under
// uniform moment each piece buckles alone.
TEST(UniformMoment, BetweenClampsAndRestraintsIsThatOfThePiece)
{
    const LateralSection s = ByWarping(0.7);
    const LateralSupports clamps{LateralEnd::clamped, LateralEnd::clamped, {}};
    const auto of_length = [&](double part) {
        return kPi / part * Unit(s) * std::sqrt(1 + 0.49 / (part * part));
    };
    EXPECT_NEAR(Factor(s, Straight(1e6, 1e6), clamps) * 1e6 / of_length(0.5), 1, 1e-4);
    for (const int n : {1, 2, 3, 5}) {
        std::vector<double> held;
        for (int i = 1; i <= n; ++i) {
            held.push_back(kLength * i / (n + 1));
        }
        const LateralSupports restrained{LateralEnd::fork, LateralEnd::fork, held};
        EXPECT_NEAR(Factor(s, Straight(1e6, 1e6), restrained) * 1e6 / of_length(1.0 / (n + 1)), 1,
                    1e-4)
            << n << " restraints";
    }
}

// S. P. Timoshenko, J. M. Gere, Theory of Elastic Stability, 2nd ed., 6.3 (narrow rectangle):
// simple beam (qL)cr = 28.3, Pcr = 16.94, cantilever Pcr = 4.013 and (qL)cr = 12.85, times sqrt(EIz
// GIt)/L^2.
TEST(NarrowRectangle, MatchesTimoshenko)
{
    const LateralSection s = ByWarping(0);
    const double unit = Unit(s) / kLength;
    EXPECT_NEAR(Factor(s, Uniform(1, 0)) * kLength / unit, 28.3, 0.05);
    EXPECT_NEAR(Factor(s, MidPoint(1, 0)) / unit, 16.94, 0.005);
    const Line tip{{{0, kLength, {-kLength, 1, 0, 0}, 0, 0}}, {}};
    EXPECT_NEAR(Factor(s, tip, kCantilever) / unit, 4.013, 0.0005);
    const Line spread{{{0, kLength, {-kLength * kLength / 2, kLength, -0.5, 0}, 0, 0}}, {}};
    EXPECT_NEAR(Factor(s, spread, kCantilever) * kLength / unit, 12.85, 0.005);
}

// --- Against the series

TEST(AgainstSeries, LinearMoments)
{
    for (const double k : {0.3, 1.0, 4.0}) {
        const LateralSection s = ByWarping(k);
        for (const double psi : {0.5, 0.0, -0.5, -1.0}) {
            const Line line = Straight(1e6, psi * 1e6);
            const double alpha = Factor(s, line);
            EXPECT_NEAR(SeriesFactor(s, line, 2 * alpha) / alpha, 1, 5e-4)
                << "K = " << k << ", psi = " << psi;
        }
    }
}

TEST(AgainstSeries, LoadsAtThreeHeights)
{
    for (const double k : {0.4, 1.5}) {
        const LateralSection s = ByWarping(k);
        for (const double zg : {150.0, 0.0, -150.0}) {
            for (const double sign : {1.0, -1.0}) {
                for (const Line& line : {Uniform(sign * 3, zg), MidPoint(sign * 9000, zg)}) {
                    const double alpha = Factor(s, line);
                    EXPECT_NEAR(SeriesFactor(s, line, 2 * alpha) / alpha, 1, 1e-3)
                        << "K = " << k << ", zg = " << zg << ", sign " << sign;
                }
            }
        }
    }
}

TEST(AgainstSeries, RestraintsAndUnequalFlanges)
{
    const LateralSection s = ByWarping(0.9, 70);
    for (const Line& line : {Uniform(3, 100), Straight(1e6, -4e5), Straight(-1e6, 2e5)}) {
        for (const std::vector<double>& held :
             {std::vector<double>{}, {kLength / 2}, {kLength / 3, 2 * kLength / 3}}) {
            const double alpha = Factor(s, line, {LateralEnd::fork, LateralEnd::fork, held});
            EXPECT_NEAR(SeriesFactor(s, line, 2 * alpha, held) / alpha, 1, 2e-3)
                << held.size() << " restraints";
        }
    }
}

// A load that rises from 0 to q: M = q L x/6 - q x^3/(6 L), a line of the third degree.
TEST(AgainstSeries, TriangularLoads)
{
    const LateralSection s = ByWarping(0.7);
    for (const double zg : {120.0, -120.0}) {
        constexpr double kMost = 4;  // N/mm
        const Line line{
            {{0, kLength, {0, kMost * kLength / 6, 0, -kMost / (6 * kLength)}, 0, kMost * zg}}, {}};
        const double alpha = Factor(s, line);
        EXPECT_NEAR(SeriesFactor(s, line, 2 * alpha) / alpha, 1, 1e-3) << "zg = " << zg;
    }
}

// --- Laws

TEST(Laws, AFactorOfTheLoadDividesTheFactorAndMirroringKeepsIt)
{
    const LateralSection s = ByWarping(0.6, 40);
    const double alpha = Factor(s, Uniform(2, 120));
    EXPECT_NEAR(Factor(s, Uniform(6, 120)) * 3, alpha, 1e-8 * alpha);
    EXPECT_NEAR(Factor(s, Straight(1e6, -3e5)), Factor(s, Straight(-3e5, 1e6)), 1e-5);
    const LateralSection turned = ByWarping(0.6, -40);  // upside down: M and zg change sign
    EXPECT_NEAR(Factor(turned, Uniform(-2, -120)), alpha, 1e-8 * alpha);
}

TEST(Laws, ARestraintMoreNeverLowersTheFactor)
{
    const LateralSection s = ByWarping(0.5, -30);
    for (const Line& line : {Uniform(2, 150), MidPoint(7000, 150), Straight(1e6, -1e6)}) {
        double before = Factor(s, line);
        std::vector<double> held;
        for (const double x : {4000.0, 2000.0, 6000.0, 3000.0, 700.0}) {
            held.insert(std::lower_bound(held.begin(), held.end(), x), x);
            const double alpha = Factor(s, line, {LateralEnd::fork, LateralEnd::fork, held});
            EXPECT_GE(alpha, before * (1 - 1e-4)) << "restraint at " << x;
            before = alpha;
        }
    }
}

// By the definition: the energy is positive definite just below the factor and no longer just
// above, for lines and supports whose next factor is close, far, or above the first guess.
TEST(Laws, TheFactorIsTheLeastAtWhichTheEnergyLosesItsDefiniteness)
{
    constexpr double kHair = 2e-9;
    const std::vector<Line> lines = {Straight(1e6, 1e6),  Straight(1e6, -1e6),  Straight(1e6, 0),
                                     Uniform(10, 150),    Uniform(-3, -150),    MidPoint(2e4, 0),
                                     MidPoint(-1e4, 200), Straight(1e-3, 2e-3), Straight(4e9, 0)};
    std::vector<LateralSupports> supports = {kForks, kCantilever};
    const std::vector<double> places = {2000, 4000, 6000};
    for (std::size_t first = 0; first < places.size(); ++first) {
        for (std::size_t count = 1; first + count <= places.size(); ++count) {
            supports.push_back({LateralEnd::fork, LateralEnd::fork, {&places[first], count}});
            supports.push_back({LateralEnd::clamped, LateralEnd::clamped, {&places[first], count}});
        }
    }
    for (const double warping : {0.0, 0.3, 3.0}) {
        const LateralSection section = ByWarping(warping, warping > 1 ? 40 : 0);
        for (const Line& line : lines) {
            for (const LateralSupports& held : supports) {
                const double factor = Factor(section, line, held);
                LateralProblem problem(section, held, line.View());
                EXPECT_EQ(problem.At((1 - kHair) * factor).negative, 0)
                    << factor << " is above a factor; warping " << warping;
                EXPECT_GT(problem.At((1 + kHair) * factor).negative, 0)
                    << factor << " is below the least factor; warping " << warping;
            }
        }
    }
}

TEST(Laws, SplittingThePiecesOfALineChangesNothing)
{
    const LateralSection s = ByWarping(0.5);
    Line split;
    const int parts = 100;
    for (int i = 0; i < parts; ++i) {
        const double x = kLength * i / parts;
        const double q = 2;
        split.pieces.push_back({x,
                                kLength * (i + 1) / parts,
                                {q * x * (kLength - x) / 2, q * (kLength / 2 - x), -q / 2, 0},
                                q * 100,
                                q * 100});
    }
    EXPECT_NEAR(Factor(s, split) / Factor(s, Uniform(2, 100)), 1, 1e-5);
}

TEST(Laws, NoMomentNeverBuckles)
{
    EXPECT_TRUE(std::isinf(Factor(ByWarping(1), Straight(0, 0))));
}

TEST(Bounds, WhatTheModelDoesNotTakeIsNotANumber)
{
    const LateralSection s = ByWarping(1);
    EXPECT_TRUE(std::isnan(Factor(s, Straight(1, 1), {LateralEnd::fork, LateralEnd::free, {}})));
    EXPECT_TRUE(std::isnan(Factor(s, Straight(1, 1), {LateralEnd::free, LateralEnd::fork, {}})));
    std::vector<double> most;
    for (std::size_t i = 1; i <= kMaxHeld; ++i) {
        most.push_back(kLength * static_cast<double>(i) / (kMaxHeld + 1));
    }
    EXPECT_GT(Factor(s, Straight(1, 1), {LateralEnd::fork, LateralEnd::fork, most}), 0);
    const std::vector<double> many(kMaxHeld + 1, 100.0);
    EXPECT_TRUE(std::isnan(Factor(s, Straight(1, 1), {LateralEnd::fork, LateralEnd::fork, many})));
}

// A layer of warping thinner than any element: the factor goes over into that without warping.
TEST(Bounds, SmallWarpingNearsNoWarping)
{
    const std::vector<double> held = {2500};
    const LateralSupports supports{LateralEnd::fork, LateralEnd::clamped, held};
    const double none = Factor(ByWarping(0), Uniform(2, 60), supports);
    EXPECT_NEAR(Factor(ByWarping(1e-4), Uniform(2, 60), supports) / none, 1, 1e-3);
    EXPECT_NEAR(Factor(ByWarping(0.01), Uniform(2, 60), supports) / none, 1, 3e-2);
}

// --- Shape

// Under uniform moment twist and deflection are sines with EIz v'' = -Mcr phi.
TEST(BuckledShape, OfUniformMomentIsASine)
{
    const LateralSection s = ByWarping(0.5);
    const Line line = Straight(1e6, 1e6);
    const double alpha = CriticalLoadFactor(s, kForks, line.View());
    const BucklingShape shape = BucklingShapeAt(alpha, s, kForks, line.View());
    const double amplitude = alpha * 1e6 * kLength * kLength / (kPi2 * s.eiz);
    for (std::size_t j = 0; j < kShapePoints; ++j) {
        const double sine = std::sin(kPi * static_cast<double>(j) / 50);
        EXPECT_NEAR(shape.phi[j], sine, 2e-3);
        EXPECT_NEAR(shape.v[j], amplitude * sine, 2e-3 * amplitude);
    }
}

TEST(BuckledShape, KeepsItsRestraintsAndClamps)
{
    const LateralSection s = ByWarping(0.5);
    const std::vector<double> held = {3200};
    const LateralSupports supports{LateralEnd::clamped, LateralEnd::clamped, held};
    const Line line = Uniform(2, 100);
    const BucklingShape shape =
        BucklingShapeAt(CriticalLoadFactor(s, supports, line.View()), s, supports, line.View());
    const double largest =
        *std::max_element(shape.v.begin(), shape.v.end(),
                          [](double a, double b) { return std::abs(a) < std::abs(b); });
    for (const std::size_t j : {std::size_t{0}, std::size_t{20}, std::size_t{50}}) {
        EXPECT_NEAR(shape.phi[j], 0, 1e-6);
        EXPECT_NEAR(shape.v[j] / largest, 0, 1e-4);
    }
    EXPECT_LT(std::abs(shape.v[1] / largest), 0.05);  // clamped: it leaves the end without a slope
}

// Read from the other end, with uneven restraints, the member buckles into the mirrored shape.
TEST(BuckledShape, OfAMirroredMemberIsMirrored)
{
    const LateralSection s = ByWarping(0.5);
    const std::vector<double> held = {1000, 3200, 5600}, mirrored = {2400, 4800, 7000};
    const auto shape_of = [&](const Line& line, const std::vector<double>& restraints) {
        const LateralSupports supports{LateralEnd::fork, LateralEnd::fork, restraints};
        return BucklingShapeAt(Factor(s, line, supports), s, supports, line.View());
    };
    const BucklingShape a = shape_of(Straight(1e6, -3e5), held);
    const BucklingShape b = shape_of(Straight(-3e5, 1e6), mirrored);
    const auto sizes = [](double x, double y) { return std::abs(x) < std::abs(y); };
    const double largest = std::abs(*std::max_element(a.v.begin(), a.v.end(), sizes));
    for (std::size_t j = 0; j < kShapePoints; ++j) {
        const std::size_t other = kShapePoints - 1 - j;
        EXPECT_NEAR(std::abs(a.phi[j]), std::abs(b.phi[other]), 1e-4);
        EXPECT_NEAR(std::abs(a.v[j]), std::abs(b.v[other]), 1e-4 * largest);
    }
    EXPECT_NEAR(a.bending / b.bending, 1, 1e-4);
    EXPECT_NEAR(a.warping / b.warping, 1, 1e-4);
    EXPECT_NEAR(a.torsion / b.torsion, 1, 1e-4);
}

// The factor is what the shape stores over what the loads give, whatever acts and holds.
TEST(BuckledShape, EnergiesGiveTheFactor)
{
    const std::vector<double> held = {3200}, many = {1000, 2000, 3000, 4200, 5500, 6500};
    const std::vector<double> thrice = {1000, 3200, 6100};
    const LateralSupports restrained{LateralEnd::fork, LateralEnd::clamped, held};
    const LateralSupports by_many{LateralEnd::clamped, LateralEnd::clamped, thrice};
    struct Case {
        LateralSection section;
        Line line;
        LateralSupports supports;
    };
    const Case cases[] = {
        {ByWarping(0.5), Straight(1e6, -4e5), kForks},
        {ByWarping(0.5, 80), Uniform(2, 100), restrained},
        {ByWarping(0), MidPoint(3e4, -150), kForks},
        {ByWarping(2), MidPoint(3e4, 150), {LateralEnd::clamped, LateralEnd::clamped, {}}},
        {ByWarping(0.8, -40), Straight(2e6, 0), kCantilever},
        {ByWarping(0), Straight(2e6, 1e6), {LateralEnd::fork, LateralEnd::fork, many}},
        {ByWarping(0.6), Uniform(30, 100), by_many},
        {ByWarping(0), Straight(4e6, -1e6), by_many},
    };
    for (const Case& c : cases) {
        const double alpha = Factor(c.section, c.line, c.supports);
        const BucklingShape shape = BucklingShapeAt(alpha, c.section, c.supports, c.line.View());
        const double stored = shape.bending + shape.warping + shape.torsion;
        EXPECT_NEAR(stored / (shape.moments + shape.asymmetry + shape.levels) / alpha, 1, 1e-6);
        // v makes the energy least: its own is half of what the moments give with it.
        EXPECT_NEAR(2 * shape.bending / (shape.moments * alpha), 1, 1e-6);
    }
}

// Uniform moment with the sines above: EIz v''^2 = (Mcr phi)^2/EIz, mean square of a sine 1/2.
TEST(BuckledShape, EnergiesOfUniformMomentByHand)
{
    const LateralSection s = ByWarping(0.5);
    const Line line = Straight(1e6, 1e6);
    const double alpha = Factor(s, line), wave = kPi / kLength, quarter = kLength / 4;
    const BucklingShape shape = BucklingShapeAt(alpha, s, kForks, line.View());
    EXPECT_NEAR(shape.bending / (alpha * alpha * 1e12 / s.eiz * quarter), 1, 5e-3);
    EXPECT_NEAR(shape.warping / (s.eiw * std::pow(wave, 4) * quarter), 1, 5e-3);
    EXPECT_NEAR(shape.torsion / (s.git * wave * wave * quarter), 1, 5e-3);
    EXPECT_NEAR(shape.moments / (alpha * 1e12 / s.eiz * 2 * quarter), 1, 5e-3);
    EXPECT_EQ(shape.levels, 0);
    EXPECT_EQ(shape.asymmetry, 0);
}

// The largest twist is 1, wherever it is: of a cantilever at its tip.
TEST(BuckledShape, TheTipOfACantileverTwistsMost)
{
    for (const double warping : {0.0, 0.8}) {
        const LateralSection s = ByWarping(warping);
        const Line line = Straight(2e6, 0);
        const BucklingShape shape =
            BucklingShapeAt(Factor(s, line, kCantilever), s, kCantilever, line.View());
        EXPECT_NEAR(std::abs(shape.phi[kShapePoints - 1]), 1, 1e-12);
        for (const double twist : shape.phi) {
            EXPECT_LE(std::abs(twist), 1 + 1e-12);
        }
    }
}

// A force and a moment beside the middle: the line bends and jumps, and the mirrored member buckles
// into the mirrored shape.
TEST(BuckledShape, OfALineWithForceAndMomentIsMirrored)
{
    const LateralSection s = ByWarping(0.5);
    const double at = 2900, rest = kLength - at;
    const auto line = [](double x, double m0, double m1, double m2, double m3) {
        return Line{{{0, x, {m0, (m1 - m0) / x, 0, 0}, 0, 0},
                     {x, kLength, {m2, (m3 - m2) / (kLength - x), 0, 0}, 0, 0}},
                    {{x, 3e5}}};
    };
    const Line one = line(at, 2e5, 9e5, 6e5, -1e5), other = line(rest, -1e5, 6e5, 9e5, 2e5);
    const BucklingShape a = BucklingShapeAt(Factor(s, one), s, kForks, one.View());
    const BucklingShape b = BucklingShapeAt(Factor(s, other), s, kForks, other.View());
    EXPECT_NEAR(Factor(s, one) / Factor(s, other), 1, 1e-8);
    const auto sizes = [](double x, double y) { return std::abs(x) < std::abs(y); };
    const double largest = std::abs(*std::max_element(a.v.begin(), a.v.end(), sizes));
    for (std::size_t j = 0; j < kShapePoints; ++j) {
        const std::size_t mirrored = kShapePoints - 1 - j;
        EXPECT_NEAR(std::abs(a.phi[j]), std::abs(b.phi[mirrored]), 1e-5);
        EXPECT_NEAR(std::abs(a.v[j]), std::abs(b.v[mirrored]), 1e-5 * largest);
    }
}

// Restraints cut the member into seven pieces under even moment, each without warping: pi sqrt(EIz
// GIt)/(L/7).
TEST(UniformMoment, BetweenManyRestraintsWithoutWarpingIsThatOfThePiece)
{
    const LateralSection s = ByWarping(0);
    std::vector<double> held;
    for (int i = 1; i < 7; ++i) {
        held.push_back(kLength * i / 7);
    }
    const double m = 1e6;
    const double alpha = Factor(s, Straight(m, m), {LateralEnd::fork, LateralEnd::fork, held});
    EXPECT_NEAR(alpha * m / (7 * kPi * Unit(s)), 1, 1e-4);
}

// What was solved before, with more elements and restraints, leaves nothing behind.
TEST(Laws, AProblemDoesNotDependOnTheOneBefore)
{
    std::vector<double> held;
    for (int i = 1; i <= 16; ++i) {
        held.push_back(kLength * i / 17);
    }
    const LateralSupports many{LateralEnd::clamped, LateralEnd::clamped, held};
    const LateralSupports few{LateralEnd::clamped, LateralEnd::fork, {held.data() + 5, 1}};
    for (const double warping : {0.0, 0.5}) {
        const LateralSection s = ByWarping(warping, 30);
        const Line line = MidPoint(2e4, 100), other = Straight(3e6, -2e6);
        const auto solve = [&] {
            const double alpha = Factor(s, line, few);
            return std::pair(alpha, BucklingShapeAt(alpha, s, few, line.View()));
        };
        const auto alone = solve();
        BucklingShapeAt(Factor(s, other, many), s, many, other.View());
        const auto after = solve();
        EXPECT_EQ(alone.first, after.first);
        EXPECT_EQ(alone.second.v, after.second.v);
        EXPECT_EQ(alone.second.phi, after.second.phi);
        EXPECT_EQ(alone.second.bending, after.second.bending);
    }
}

// A load that rises from nothing to q, at a height: seen from the other end it falls.
TEST(Laws, ARisingLoadIsAFallingOneFromTheOtherEnd)
{
    const LateralSection s = ByWarping(0.5, 20);
    for (const double zg : {-150.0, 150.0}) {
        const double q = 4, l = kLength;
        const Line rising = {{{0, l, {0, q * l / 6, 0, -q / (6 * l)}, 0, q * zg}}, {}};
        const Line falling = {{{0, l, {0, q * l / 3, -q / 2, q / (6 * l)}, q * zg, 0}}, {}};
        EXPECT_NEAR(Factor(s, rising) / Factor(s, falling), 1, 1e-7);
        // On the right half alone, and on the left: q L/24 at the far end.
        const double r = q * l / 24, h = l / 2;
        const Line right = {
            {{0, h, {0, r, 0, 0}, 0, 0}, {h, l, {r * h, r, 0, -q / (3 * l)}, 0, q * zg}}, {}};
        const Line left = {{{0, h, {0, q * h * h / l - r, -q * h / l, q / (3 * l)}, q * zg, 0},
                            {h, l, {r * h, -r, 0, 0}, 0, 0}},
                           {}};
        EXPECT_NEAR(Factor(s, right) / Factor(s, left), 1, 1e-7);
    }
}

// A torque of P zg alone, no moment to speak of, without warping: GIt (1/x + 1/(L - x)) of forks
// and GIt/L of a cantilever are used up by P zg.
TEST(Bounds, TorquesTwistTheMemberWhereTheyAct)
{
    const LateralSection s = ByWarping(0);
    const double pz = 1e6;
    for (const double share : {0.3, 0.5, 0.8}) {
        const double x = share * kLength;
        Line line = Straight(1e-3, 1e-3);
        line.points = {{x, pz}};
        const double expected = s.git * (1 / x + 1 / (kLength - x)) / pz;
        EXPECT_NEAR(Factor(s, line) / expected, 1, 1e-6) << share;
    }
    // An even one, q zg: GIt phi'' + q zg phi = 0.
    Line even = Straight(1e-3, 1e-3);
    even.pieces[0].qz0 = even.pieces[0].qz1 = 200;
    EXPECT_NEAR(Factor(s, even) / (s.git * kPi2 / (kLength * kLength * 200)), 1, 1e-5);
    Line tip = Straight(1e-3, 0);
    tip.points = {{kLength, pz}};
    EXPECT_NEAR(Factor(s, tip, kCantilever) / (s.git / kLength / pz), 1, 1e-6);
}

// One restraint of a member on forks, beside the middle: nothing moves sideways there.
TEST(BuckledShape, IsHeldByItsOnlyRestraint)
{
    const std::vector<double> held = {3200};
    const LateralSupports supports{LateralEnd::fork, LateralEnd::fork, held};
    const LateralSection s = ByWarping(0.5);
    const Line line = Straight(1e6, -4e5);
    const BucklingShape shape =
        BucklingShapeAt(Factor(s, line, supports), s, supports, line.View());
    const auto sizes = [](double x, double y) { return std::abs(x) < std::abs(y); };
    const double largest = std::abs(*std::max_element(shape.v.begin(), shape.v.end(), sizes));
    EXPECT_NEAR(shape.v[20] / largest, 0, 1e-4);
    EXPECT_NEAR(shape.phi[20], 0, 1e-6);
}

}  // namespace
}  // namespace kestrum
