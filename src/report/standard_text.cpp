#include "report/standard_text.h"

#include "core/number_format.h"
#include "report/outcome.h"

#include <array>
#include <cmath>

namespace kestrum {

namespace {

using standard::DeviationCost;
using standard::StandardResult;

// A cost that three decimals show; one without a value decides whether there is a ratio.
bool Shows(const DeviationCost& at)
{
    constexpr double kShown = 5e-4;
    return std::isnan(at.cost) || std::abs(at.cost) >= kShown;
}

}  // namespace

std::string_view WordsOf(standard::CheckId id)
{
    constexpr std::array<std::string_view, standard::kCheckIds> kWords = {
        "section N",
        "section My",
        "section Mz",
        "section Vz",
        "section Vy",
        "section N, My, Mz",
        "web under M and V",
        "flexural buckling about y",
        "flexural buckling about z",
        "torsional buckling",
        "lateral torsional buckling",
        "buckling about y with bending",
        "buckling about z with bending",
        "buckling with bending",
        "N above the critical force",
        "deflection z",
        "deflection y"};
    return kWords[static_cast<std::size_t>(id)];
}

std::string RatioFigure(double ir, bool above)
{
    return (std::isfinite(ir) ? FormatNum(ir, "0.00") : "infinite") + (above ? " ABOVE" : "");
}

std::string SourceOf(standard::CheckId id, const standard::Check& check)
{
    std::string text = std::string(WordsOf(id)) + " (" + std::string(check.clause) + "), " +
                       NameOf(check.load_case);
    if (std::isfinite(check.place)) {
        text += ", x/L = " + FormatNum(check.place, "0.00");
    }
    return text;
}

std::string StandardWords(const StandardResult& result)
{
    if (!result.rated) {
        const std::string why = result.outside.empty() ? "" : ": " + result.outside.back();
        return std::string(standard::VerdictOf(result)) + why;
    }
    return "IR " + RatioFigure(result.ir, result.above) + ", " +
           SourceOf(result.governing, result.checks[result.governing]);
}

std::string ProgramWords(const Outcome& outcome)
{
    const bool dropped = outcome.verdict == Verdict::loads_dropped;
    if (!outcome.rated() && !dropped) {
        return std::string(VerdictWord(outcome.verdict));
    }
    const bool above = outcome.verdict == Verdict::above || outcome.verdict == Verdict::unstable;
    const std::string source =
        outcome.control.empty() ? "" : ", " + outcome.control + " (" + outcome.clause + ")";
    return "IR " + RatioFigure(outcome.ir, above) + source +
           (dropped ? ", of fewer loads than given" : "");
}

bool VerdictsDiffer(const StandardResult& result, const Outcome& outcome)
{
    const bool within = outcome.verdict == Verdict::within;
    const bool above = outcome.verdict == Verdict::above || outcome.verdict == Verdict::unstable;
    return result.rated && (result.above ? within : above);
}

std::string CostFigure(double cost)
{
    if (!std::isfinite(cost)) {
        return std::isnan(cost) ? "" : cost > 0 ? "+inf" : "-inf";
    }
    constexpr double kLarge = 100;  // decimals say nothing
    const double size = std::abs(cost);
    return (cost < 0 ? "-" : "+") + FormatNum(size, size < kLarge ? "0.000" : "0");
}

std::string LargestChangeText(const StandardResult& result, const DeviationCost& at)
{
    constexpr double kShown = 5e-4;  // what three decimals tell apart
    const bool as_cost = at.most == result.governing && std::abs(at.change - at.cost) < kShown;
    return std::isnan(at.change) || std::abs(at.change) < kShown || as_cost
               ? ""
               : std::string(WordsOf(at.most)) + " " + CostFigure(at.change);
}

CostList CostsOf(const StandardResult& result)
{
    CostList list;
    for (const DeviationCost& at : result.deviations) {
        const std::string_view name = NameOf(at.deviation);
        if (Shows(at)) {
            list.lines.push_back({name, CostFigure(at.cost), RuleOf(at.deviation), at.deviation,
                                  LargestChangeText(result, at)});
        } else {
            list.others += (list.others.empty() ? "" : ", ") + std::string(name);
        }
    }
    return list;
}

std::string NoCostsText(const StandardResult& result, const Outcome& outcome)
{
    constexpr double kEqual = 1e-4;
    const bool equal =
        outcome.rated() && std::abs(outcome.ir - result.ir) <= kEqual * std::abs(result.ir);
    return equal ? "No deviation acts: both are equal." : "No deviation alone changes this result.";
}

std::string FrequenciesText(const StandardResult& result)
{
    if (!result.vibration) {
        return "";
    }
    std::string text = "Frequencies by EN 1990, A1.4.4: mass " +
                       FormatNum(result.vibration->mass, "0.0") + " kg/m with psi Q:";
    for (const double f : result.vibration->freq) {
        text += " " + FormatNum(f, "0.00");
    }
    return text + " Hz";
}

}  // namespace kestrum
