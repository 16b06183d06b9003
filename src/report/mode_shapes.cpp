#include "report/mode_shapes.h"

#include "core/member_choices.h"
#include "core/project_inputs.h"
#include "report/figure_tools.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

constexpr int kModes = 3;
constexpr int kSteps = 60;

// Roots of the frequency equations, beam theory: cos b cosh b = -1, tan b = tanh b, cos b cosh b =
// 1.
constexpr std::array<double, kModes> kCantilever{1.875104, 4.694091, 7.854757};
constexpr std::array<double, kModes> kFixedPinned{3.926602, 7.068583, 10.210176};
constexpr std::array<double, kModes> kFixedFixed{4.730041, 7.853205, 10.995608};

// A beam fixed at x = 0, its other end free or held.
double FromFixedEnd(double root, bool free, double x)
{
    const double share =
        free ? (std::sinh(root) - std::sin(root)) / (std::cosh(root) + std::cos(root))
             : (std::cosh(root) - std::cos(root)) / (std::sinh(root) - std::sin(root));
    const double b = root * x;
    return std::cosh(b) - std::cos(b) - share * (std::sinh(b) - std::sin(b));
}

double Unscaled(int supportcase, std::size_t mode, double x)
{
    switch (supportcase) {
    case SupportCase::pinned:
        return std::sin(static_cast<double>(mode + 1) * std::numbers::pi * x);
    case SupportCase::pinned_fixed:  // fixed at the far end
        return FromFixedEnd(kFixedPinned[mode], false, 1 - x);
    case SupportCase::fixed:
        return FromFixedEnd(kFixedFixed[mode], false, x);
    case SupportCase::cantilever:
        return FromFixedEnd(kCantilever[mode], true, x);
    default:
        return 0;
    }
}

}  // namespace

double ModeShape(int supportcase, int mode, double x)
{
    if (mode < 1 || mode > kModes) {
        return 0;
    }
    const auto index = static_cast<std::size_t>(mode - 1);
    double most = 0;
    for (int i = 0; i <= kSteps; ++i) {
        most = std::max(most, std::abs(Unscaled(supportcase, index, 1.0 * i / kSteps)));
    }
    return most == 0 ? 0 : Unscaled(supportcase, index, x) / most;
}

Drawing DrawModeShape(const ProjectState& member, int mode)
{
    const ProjectInputs& s = InputsOf(member);
    constexpr double kAxis = 8, kSwing = 6;
    Drawing d;
    d.width = kPictureWidth;
    d.height = 2 * kAxis;
    d.title = "Mode " + std::to_string(mode);

    const EndSupports ends = SupportsOf(s.supportcase);
    const double start = kMemberStart, end = kMemberStart + kMemberWidth;
    AddLine(d, {start, kAxis}, {end, kAxis}, Ink::faint, kThin, true);
    AddSupport(d, {start, kAxis}, ends.left, -1, 3);
    AddSupport(d, {end, kAxis}, ends.right, 1, 3);
    std::vector<Point> curve;
    for (int i = 0; i <= kSteps; ++i) {
        const double x = 1.0 * i / kSteps;
        curve.push_back(
            {start + x * kMemberWidth, kAxis - kSwing * ModeShape(s.supportcase, mode, x)});
    }
    AddCurve(d, std::move(curve), Ink::moment, 0.4);
    return d;
}

}  // namespace kestrum
