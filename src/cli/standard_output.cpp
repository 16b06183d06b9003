#include "cli/standard_output.h"

#include "core/number_format.h"
#include "report/state_json.h"

#include <cmath>

namespace kestrum::cli {

namespace {

using standard::Check;
using standard::CheckId;
using standard::StandardResult;

std::string Number(double value)
{
    return std::isfinite(value) ? JsonNumber(value) : "null";
}

// The words between check, place and combination of a ratio.
std::string Members(CheckId id, const Check& check)
{
    return "\"check\": " + JsonText(standard::NameOf(id)) +
           ", \"clause\": " + JsonText(check.clause) + ", \"ir\": " + Number(check.ir) +
           ", \"place\": " + Number(check.place) +
           ", \"case\": " + JsonText(NameOf(check.load_case));
}

std::string ChecksJson(const StandardResult& result)
{
    std::string text;
    for (std::size_t i = 0; i < standard::kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        if (result.checks[id].present) {
            text += (text.empty() ? "{" : ", {") + Members(id, result.checks[id]) + "}";
        }
    }
    return "[" + text + "]";
}

std::string OutsideJson(const StandardResult& result)
{
    std::string text;
    for (const std::string& reason : result.outside) {
        text += (text.empty() ? "" : ", ") + JsonText(reason);
    }
    return "[" + text + "]";
}

std::string VibrationText(const StandardResult& result)
{
    if (!result.vibration) {
        return "";
    }
    std::string text = "Frequencies by EN 1990, A1.4.4: mass " +
                       FormatNum(result.vibration->mass, "0.0") + " kg/m with psi Q:";
    for (const double f : result.vibration->freq) {
        text += " " + FormatNum(f, "0.00");
    }
    return text + " Hz\n";
}

std::string VibrationJson(const StandardResult& result)
{
    if (!result.vibration) {
        return "";
    }
    std::string text;
    for (const double f : result.vibration->freq) {
        text += (text.empty() ? "" : ", ") + Number(f);
    }
    return ", \"frequencies\": {\"mass\": " + Number(result.vibration->mass) + ", \"f\": [" + text +
           "]}";
}

std::string DeviationsJson(const StandardResult& result)
{
    std::string text;
    for (const standard::DeviationCost& at : result.deviations) {
        text += (text.empty() ? "" : ", ") +
                ("{\"id\": " + JsonText(NameOf(at.deviation)) + ", \"cost\": " + Number(at.cost) +
                 ", \"without\": " + Number(at.without) + ", \"unsafe\": ") +
                (at.unsafe ? "true" : "false") + ", \"text\": " + JsonText(TextOf(at.deviation)) +
                "}";
    }
    return "[" + text + "]";
}

// A cost that three decimals show; one without a value decides whether there is a ratio.
bool Shows(const standard::DeviationCost& at)
{
    constexpr double kShown = 5e-4;
    return std::isnan(at.cost) || std::abs(at.cost) >= kShown;
}

std::string CostText(double cost)
{
    if (!std::isfinite(cost)) {
        return std::isnan(cost) ? "      " : cost > 0 ? "  +inf" : "  -inf";
    }
    return (cost < 0 ? "-" : "+") + FormatNum(std::abs(cost), "0.000");
}

// Those whose cost shows one in a line; the others, which touch checks that do not govern, in one.
std::string DeviationsText(const StandardResult& result, const Outcome& program)
{
    constexpr double kEqual = 1e-4;
    if (result.deviations.empty()) {
        const bool equal =
            program.rated() && std::abs(program.ir - result.ir) <= kEqual * std::abs(result.ir);
        return equal ? "No deviation acts: both are equal.\n"
                     : "No deviation alone changes this result.\n";
    }
    std::string text, others;
    for (const standard::DeviationCost& at : result.deviations) {
        const std::string name(NameOf(at.deviation));
        if (Shows(at)) {
            text += "  " + name + std::string(name.size() < 4 ? 2 : 1, ' ') + CostText(at.cost) +
                    "  " + std::string(TextOf(at.deviation)) + "\n";
        } else {
            others += (others.empty() ? "" : ", ") + name;
        }
    }
    if (text.empty()) {
        return "Deviations that act, none of them in the largest ratio: " + others + "\n";
    }
    return "Deviations that act, with what each alone adds to the standard's ratio:\n" + text +
           (others.empty() ? "" : "  in other checks: " + others + "\n");
}

}  // namespace

std::string StandardText(const StandardResult& result, const Outcome& program)
{
    std::string text = VibrationText(result);
    for (const std::string& reason : result.outside) {
        text += "standard: " + reason + "\n";
    }
    if (!result.rated) {
        return text;
    }
    const Check& check = result.checks[result.governing];
    if (program.rated()) {
        text += "Rules of the program:   IR = " + FormatNum(program.ir, "0.000") + ", " +
                program.control + " (" + program.clause + ")\n";
    }
    text += "EN 1993-1-1 as written: IR = " + FormatNum(check.ir, "0.000") + ", " +
            std::string(standard::NameOf(result.governing)) + " (" + std::string(check.clause) +
            "), " + NameOf(check.load_case);
    if (std::isfinite(check.place)) {
        text += ", x/L = " + FormatNum(check.place, "0.000");
    }
    text += ": " + std::string(standard::VerdictOf(result)) + "\n";
    const bool within = program.verdict == Verdict::within;
    const bool above = program.verdict == Verdict::above || program.verdict == Verdict::unstable;
    const bool differ = result.above ? within : above;
    return text + (differ ? "The two verdicts differ.\n" : "") + DeviationsText(result, program);
}

std::string StandardJson(const StandardResult& result)
{
    std::string text = "{\"verdict\": " + JsonText(standard::VerdictOf(result));
    if (result.rated) {
        text += ", " + Members(result.governing, result.checks[result.governing]);
    } else {
        text += ", \"ir\": null";
    }
    return text + ", \"checks\": " + ChecksJson(result) +
           ", \"deviations\": " + DeviationsJson(result) + ", \"outside\": " + OutsideJson(result) +
           VibrationJson(result) + "}";
}

std::string VortexStandardText(const standard::VortexShedding& v)
{
    return "EN 1991-1-4 as written: f = " + FormatNum(v.freq, "#0.0") +
           " Hz, vcrit = " + FormatNum(v.vcrit, "#0.0") + " m/s, vm = " + FormatNum(v.vm, "#0.0") +
           " m/s, vcrit > 1.25 vm:" + (v.accepted ? " OK \n" : " NOK \n");
}

std::string VortexStandardJson(const standard::VortexShedding& v)
{
    return "{\"freq\": " + Number(v.freq) + ", \"vcrit\": " + Number(v.vcrit) +
           ", \"vm\": " + Number(v.vm) + ", \"ok\": " + (v.accepted ? "true" : "false") + "}";
}

int StandardExit(const StandardResult& result)
{
    return !result.rated ? 2 : result.above ? 1 : 0;
}

}  // namespace kestrum::cli
