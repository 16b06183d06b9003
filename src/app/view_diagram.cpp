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

std::string DiagramTable(const ProjectState& s, LoadAxis axis, const Utilisation& along)
{
    const bool z = axis == LoadAxis::z, deflection = s.loadmode == 1;
    std::string text = z ? "x m\tMy kNm\tVz kN" : "x m\tMz kNm\tVy kN";
    text += !deflection ? "" : z ? "\tdz mm" : "\tdy mm";
    text += along.program ? "\tIR" : "";
    text += along.standard ? "\tEN 1993-1-1" : "";
    for (std::size_t j = 0; j < kDiagramPoints; ++j) {
        const auto add = [&text](double value, const char* format) {
            text += "\t" + FormatNum(value, format);
        };
        text += "\n" + FormatNum(s.l * static_cast<double>(j) / kSteps, "0.000");
        add(z ? s.mydiag[j] : s.mzdiag[j], "0.00");
        add(z ? s.vzdiag[j] : s.vydiag[j], "0.00");
        if (deflection) {
            add(z ? s.dzdiag[j] : s.dydiag[j], "0.00");
        }
        if (along.program) {
            add((*along.program)[j], "0.000");
        }
        if (along.standard) {
            add((*along.standard)[j], "0.000");
        }
    }
    return text + "\n";
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
