#include "app/view_diagram.h"

#include "core/load_combination.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/member_drawing.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr double kSteps = kDiagramPoints - 1;

}  // namespace

double StepReading(std::optional<double> x, int steps)
{
    const double before =
        x ? std::round((*x - kMemberStart) / kMemberWidth * kSteps) + steps : kSteps / 2;
    return kMemberStart + std::clamp(before, 0.0, kSteps) / kSteps * kMemberWidth;
}

std::string DeflectionReading(const ProjectState& s, LoadAxis axis, double x)
{
    const double part = (x - kMemberStart) / kMemberWidth;
    if (!(part >= 0 && part <= 1) || s.loadmode != 1) {
        return {};
    }
    const bool z = axis == LoadAxis::z;
    const auto at = static_cast<std::size_t>(std::lround(part * kSteps));
    const float deflection = z ? s.dzdiag.at(at) : s.dydiag.at(at);
    return (z ? "dz = " : "dy = ") + FormatNum(deflection, "0.0") + " mm";
}

void NameCombinations(const ProjectState& s, Utilisation& along)
{
    const bool all = s.loadmode == 1 && s.loadcomb >= kEq610 && s.loadcomb <= kEq610ab;
    along.programof = all ? LoadCombinationName(s.loadcomb) : "";
    along.standardof = all ? "all combinations" : "";
}

std::string UtilisationReading(const Utilisation& along, double x)
{
    const double part = (x - kMemberStart) / kMemberWidth;
    if (!(part >= 0 && part <= 1)) {
        return {};
    }
    return UtilisationText(along, static_cast<std::size_t>(std::lround(part * kSteps)));
}

}  // namespace kestrum
