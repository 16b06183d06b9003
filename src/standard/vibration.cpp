#include "standard/vibration.h"

#include "core/member_choices.h"
#include "core/project_state.h"
#include "service/vortex.h"
#include "standard/lines.h"
#include "standard/member.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace kestrum::standard {

namespace {

constexpr double kGravity = 9.81;  // m/s2
constexpr double kNewton = 1e3;    // of kN

enum class Held { pinned, pinned_fixed, fixed, cantilever };

// Roots of sin x, tan x = tanh x, cos x cosh x = 1 and -1.
constexpr std::array<std::array<double, kModes>, 4> kRoots = {
    {{std::numbers::pi, 2 * std::numbers::pi, 3 * std::numbers::pi},
     {3.926602312047919, 7.068582745628732, 10.210176122813031},
     {4.730040744862704, 7.853204624095838, 10.995607838001671},
     {1.875104068711961, 4.694091132974175, 7.854757438237613}}};

std::optional<Held> HeldAs(const ProjectState& s)
{
    switch (s.supportcase) {
    case SupportCase::pinned:
        return Held::pinned;
    case SupportCase::pinned_fixed:
        return Held::pinned_fixed;
    case SupportCase::fixed:
        return Held::fixed;
    case SupportCase::cantilever:
        return Held::cantilever;
    default:
        return std::nullopt;
    }
}

// Mode shapes over the share t of the length; the integral of phi^2 is 1.
class ModeShape {
public:
    ModeShape(Held held, std::size_t mode)
        : held_(held), root_(kRoots[static_cast<std::size_t>(held)][mode])
    {
        const double x = root_;
        factor_ = held == Held::cantilever
                      ? (std::sinh(x) - std::sin(x)) / (std::cosh(x) + std::cos(x))
                      : (std::cosh(x) - std::cos(x)) / (std::sinh(x) - std::sin(x));
    }
    double Root() const { return root_; }
    double At(double t) const
    {
        if (held_ == Held::pinned) {
            return std::numbers::sqrt2 * std::sin(root_ * t);
        }
        const double x = root_ * (held_ == Held::pinned_fixed ? 1 - t : t);  // from the fixed end
        return std::cosh(x) - std::cos(x) - factor_ * (std::sinh(x) - std::sin(x));
    }

private:
    Held held_;
    double root_, factor_;
};

double MassFactor(const ProjectState& s, int category)
{
    return category == 0 ? 1 : category == 1 ? s.psi1 : s.psi2;
}

// Mass times phi^2 of a line load over its length, kg.
double Moved(const LineLoad& load, double l, const ModeShape& shape)
{
    constexpr int kSteps = 64;  // Simpson's rule
    double sum = 0;
    for (int i = 0; i <= kSteps; ++i) {
        const double share = static_cast<double>(i) / kSteps;
        const double phi = shape.At((load.x1 + share * (load.x2 - load.x1)) / l);
        const double q = load.q1 + share * (load.q2 - load.q1);
        const int weight = i == 0 || i == kSteps ? 1 : i % 2 == 1 ? 4 : 2;
        sum += weight * std::abs(q) * phi * phi;
    }
    return sum / (3 * kSteps) * (load.x2 - load.x1) * kNewton / kGravity;
}

bool Even(const LineLoad& load, double l)
{
    return load.q1 == load.q2 && load.x1 == 0 && load.x2 == l;
}

// Mass of one load that moves with the mode, kg.
double MovedBy(const Load& load, double factor, double l, const ModeShape& shape)
{
    if (load.point) {
        const double phi = shape.At(load.at.x / l);
        return factor * std::abs(load.at.force) * phi * phi * kNewton / kGravity;
    }
    return Even(load.line, l) ? factor * std::abs(load.line.q1) * l * kNewton / kGravity
                              : factor * Moved(load.line, l, shape);
}

// Mass of the mode, kg: that of a member whose every point moves as its mean square.
double MovedMass(const ProjectState& s, const MemberLoads& loads, const ModeShape& shape)
{
    const double l = s.l;
    double mass = s.weight * l;
    for (std::size_t i = 0; i < loads.count; ++i) {
        const Load& load = loads.load[i];
        if (!load.self_weight) {
            mass += MovedBy(load, MassFactor(s, load.category), l, shape);
        }
    }
    return mass;
}

// kN.
double SizeOf(const Load& load)
{
    return load.point ? std::abs(load.at.force)
                      : (std::abs(load.line.q1) + std::abs(load.line.q2)) / 2 *
                            (load.line.x2 - load.line.x1);
}

double AllMass(const ProjectState& s, const MemberLoads& loads)
{
    double mass = s.weight * s.l;
    for (std::size_t i = 0; i < loads.count; ++i) {
        const Load& load = loads.load[i];
        if (!load.self_weight) {
            mass += MassFactor(s, load.category) * SizeOf(load) * kNewton / kGravity;
        }
    }
    return mass;
}

// Hz, of the root of a mode and the mass that moves with it, kg.
double Frequency(const ProjectState& s, double root, double mass)
{
    const double stiffness = static_cast<double>(s.iy) * s.e * 1e-6;  // Nm2
    const double l = s.l;
    return root * root * std::sqrt(stiffness / (mass * l * l * l)) / (2 * std::numbers::pi);
}

constexpr i16 kTruss = 4;

double FirstFrequency(const ProjectState& s)
{
    const MemberLoads loads = LoadsOf(s, Basis::Standard());
    if (s.vortexcase == kTruss) {
        return Frequency(s, kVortexSupports[kTruss].n, AllMass(s, loads));
    }
    const ModeShape shape(HeldAs(s).value_or(Held::pinned), 0);
    return Frequency(s, shape.Root(), MovedMass(s, loads, shape));
}

VibrationStudy StudyOf(const ProjectState& s, Held held)
{
    const MemberLoads loads = LoadsOf(s, Basis::Standard());
    const double l = s.l;
    VibrationStudy study{};
    for (std::size_t mode = 0; mode < kModes; ++mode) {
        const ModeShape shape(held, mode);
        study.root[mode] = shape.Root();
        study.moved[mode] = MovedMass(s, loads, shape);
    }
    for (std::size_t i = 0; i < loads.count; ++i) {
        const Load& load = loads.load[i];
        const double size = SizeOf(load);
        if (load.self_weight || size == 0) {
            continue;
        }
        MovedLoad moved{load.point, load.line.x1, load.line.x2, MassFactor(s, load.category), size,
                        {}};
        if (load.point) {
            moved.x1 = moved.x2 = load.at.x;
        }
        for (std::size_t mode = 0; mode < kModes; ++mode) {
            moved.share[mode] =
                MovedBy(load, 1, l, ModeShape(held, mode)) * kGravity / kNewton / size;
        }
        study.loads.push_back(moved);
    }
    return study;
}

}  // namespace

std::optional<Vibration> VibrationOf(const ProjectState& s)
{
    const std::optional<Held> held = HeldAs(s);
    if (!held || !NoLoadsReason(s).empty()) {
        return std::nullopt;
    }
    const MemberLoads loads = LoadsOf(s, Basis::Standard());
    Vibration vibration{AllMass(s, loads) / s.l, {}};
    for (std::size_t mode = 0; mode < kModes; ++mode) {
        const ModeShape shape(*held, mode);
        vibration.freq[mode] = Frequency(s, shape.Root(), MovedMass(s, loads, shape));
    }
    return vibration;
}

std::optional<VibrationStudy> VibrationStudyOf(const Library& library, const ProjectState& project)
{
    std::optional<VibrationStudy> study;
    WithMember(library, project, Basis::Standard(), nullptr, [&](const Member& member) {
        const std::optional<Held> held = HeldAs(member.s);
        if (held && NoLoadsReason(member.s).empty()) {
            study = StudyOf(member.s, *held);
        }
    });
    return study;
}

std::optional<VortexShedding> VortexSheddingOf(const ProjectState& s)
{
    if (!VortexFamily(s.family) || !NoLoadsReason(s).empty()) {
        return std::nullopt;
    }
    // EN 1991-1-4, Table 4.1, category III; the others are as the program has them.
    constexpr i16 kThird = 3;
    constexpr double kRoughnessThird = 0.3;  // m
    const Terrain& terrain = kTerrains[static_cast<std::size_t>(s.terrain)];
    const double z0 = s.terrain == kThird ? kRoughnessThird : terrain.z0;
    const double kr = 0.19 * std::pow(z0 / 0.05, 0.07);
    const double z = std::max<double>(s.zh, terrain.zmin);
    VortexShedding result{};
    result.z0 = z0;
    result.freq = FirstFrequency(s);
    result.vcrit = s.stb * result.freq / s.st;
    result.vm = s.vb * kr * std::log(z / z0);
    result.accepted = result.vcrit > 1.25 * result.vm;
    return result;
}

std::optional<VibrationStudy> VortexStudyOf(const ProjectState& s)
{
    if (!VortexFamily(s.family) || !NoLoadsReason(s).empty()) {
        return std::nullopt;
    }
    VibrationStudy study = StudyOf(s, HeldAs(s).value_or(Held::pinned));
    if (s.vortexcase == kTruss) {  // all of it moves
        study.root[0] = kVortexSupports[kTruss].n;
        study.moved[0] = AllMass(s, LoadsOf(s, Basis::Standard()));
        for (MovedLoad& load : study.loads) {
            load.share[0] = 1;
        }
    }
    return study;
}

}  // namespace kestrum::standard
