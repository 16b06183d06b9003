#include "cli/standard_output.h"

#include "core/number_format.h"
#include "report/check_key.h"
#include "report/standard_text.h"
#include "report/state_json.h"
#include "standard/costs.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kestrum::cli {

namespace {

using standard::Check;
using standard::CheckId;
using standard::StandardResult;

std::string Number(double value)
{
    return std::isfinite(value) ? JsonNumber(value) : "null";
}

// Clause, ratio, place and combination of a check.
std::string Members(const Check& check)
{
    return "\"clause\": " + JsonText(check.clause) + ", \"ir\": " + Number(check.ir) +
           ", \"place\": " + Number(check.place) +
           ", \"case\": " + JsonText(NameOf(check.load_case));
}

// The deviations that act in the check: its ratio is another one by the program's rule.
std::string ActingJson(const StandardResult& result, CheckId id)
{
    std::string text;
    for (const standard::DeviationCost& at : result.deviations) {
        if (standard::ActsIn(result, at, id)) {
            text += (text.empty() ? "" : ", ") + JsonText(NameOf(at.deviation));
        }
    }
    return "[" + text + "]";
}

std::string Members(CheckId id, const Check& check)
{
    return KeyJson(standard::NameOf(id)) + ", " + Members(check);
}

// One kind of check by its largest ratio, with all of its parts where it has such.
std::string KindJson(const StandardResult& result, const std::vector<CheckId>& kind)
{
    const auto larger = [&](CheckId a, CheckId b) {
        return result.checks[a].ir < result.checks[b].ir;
    };
    const CheckId largest = *std::max_element(kind.begin(), kind.end(), larger);
    std::string parts;
    for (const CheckId id : kind) {
        const CheckKey key = KeyOf(standard::NameOf(id));
        if (!key.part.empty()) {
            parts += (parts.empty() ? "" : ", ") + ("{\"part\": " + JsonText(key.part)) + ", " +
                     Members(result.checks[id]) + ", \"deviations\": " + ActingJson(result, id) +
                     "}";
        }
    }
    return "{" + Members(largest, result.checks[largest]) +
           ", \"deviations\": " + ActingJson(result, largest) +
           (parts.empty() ? "" : ", \"parts\": [" + parts + "]") + "}";
}

std::string ChecksJson(const StandardResult& result)
{
    std::vector<std::vector<CheckId>> kinds;
    for (std::size_t i = 0; i < standard::kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        if (!result.checks[id].present) {
            continue;
        }
        const std::string_view check = KeyOf(standard::NameOf(id)).check;
        const auto same = std::find_if(kinds.begin(), kinds.end(), [&](const auto& kind) {
            return KeyOf(standard::NameOf(kind.front())).check == check;
        });
        if (same == kinds.end()) {
            kinds.push_back({id});
        } else {
            same->push_back(id);
        }
    }
    std::string text;
    for (const auto& kind : kinds) {
        text += (text.empty() ? "" : ", ") + KindJson(result, kind);
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

// The check that the deviation changes most, null where it changes none by itself or there is no
// value.
std::string ChangeJson(const standard::DeviationCost& at)
{
    return std::isnan(at.change) || at.change == 0 ? "null"
                                                   : "{" + KeyJson(standard::NameOf(at.most)) +
                                                         ", \"change\": " + Number(at.change) + "}";
}

std::string DeviationsJson(const StandardResult& result)
{
    std::string text;
    for (const standard::DeviationCost& at : result.deviations) {
        text += (text.empty() ? "" : ", ") +
                ("{\"id\": " + JsonText(NameOf(at.deviation)) + ", \"cost\": " + Number(at.cost) +
                 ", \"without\": " + Number(at.without) +
                 ", \"largest_change\": " + ChangeJson(at) + ", \"unsafe\": ") +
                (at.unsafe() ? "true" : "false") + ", \"text\": " + JsonText(RuleOf(at.deviation)) +
                "}";
    }
    return "[" + text + "]";
}

std::string Padded(std::string text, std::size_t width)
{
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

// Those whose cost shows one in a line; the others, which touch checks that do not govern, in one.
std::string DeviationsText(const StandardResult& result, const Outcome& program)
{
    if (result.deviations.empty()) {
        return NoCostsText(result, program) + "\n";
    }
    const CostList costs = CostsOf(result);
    if (costs.lines.empty()) {
        return "Deviations that act, none of them in the largest ratio: " + costs.others + "\n";
    }
    std::string text = "Deviations that act, with what each alone adds to the standard's ratio:\n";
    for (const CostLine& line : costs.lines) {
        text += "  " + Padded(std::string(line.id), 4) + " " + Padded(line.cost, 6) + "  " +
                std::string(line.text) + "\n";
    }
    return text + (costs.others.empty() ? "" : "  in other checks: " + costs.others + "\n");
}

}  // namespace

std::string StandardText(const StandardResult& result, const Outcome& program)
{
    const std::string frequencies = FrequenciesText(result);
    std::string text = frequencies.empty() ? "" : frequencies + "\n";
    for (const std::string& reason : result.outside) {
        text += "standard: " + reason + "\n";
    }
    if (!result.rated) {
        return text;
    }
    const standard::Check& check = result.checks[result.governing];
    if (program.rated()) {
        // Above a critical force there is a ratio without a check.
        const std::string of = program.control.empty()
                                   ? VerdictText(program)
                                   : program.control + " (" + program.clause + ")";
        text += "Rules of the program:   IR = " + FormatNum(program.ir, "0.000") + ", " + of + "\n";
    }
    text += "EN 1993-1-1 as written: IR = " + FormatNum(check.ir, "0.000") + ", " +
            std::string(standard::NameOf(result.governing)) + " (" + std::string(check.clause) +
            "), " + NameOf(check.load_case);
    if (std::isfinite(check.place)) {
        text += ", x/L = " + FormatNum(check.place, "0.000");
    }
    text += ": " + std::string(standard::VerdictOf(result)) + "\n";
    return text + (VerdictsDiffer(result, program) ? "The two verdicts differ.\n" : "") +
           DeviationsText(result, program);
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
