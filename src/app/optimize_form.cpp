#include "app/optimize_form.h"

#include "app/answer_line.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kestrum {

namespace {

constexpr std::string_view kBasis =
    ",verdict_standard,ir_standard,standard_check,standard_clause,case_standard,x_standard";

void PutCheck(AnswerLine& line, const WorstCase& worst, bool standard)
{
    line.Text(standard ? "standard_check" : "control", worst.control);
    line.Text(standard ? "standard_clause" : "clause", worst.clause);
    line.Text(standard ? "case_standard" : "case", worst.load_case);
    line.Number(standard ? "x_standard" : "x", static_cast<float>(worst.x), std::isfinite(worst.x));
}

// The member in the candidate; null where the search did not come to it.
const MemberAnswer* AnswerOf(const RatedCandidate* rated, std::size_t member)
{
    return rated != nullptr && member < rated->answers.size() ? &rated->answers[member] : nullptr;
}

std::vector<std::string> Notes(const MemberAnswer& answer, Bases bases)
{
    if (answer.counts.cases > 0) {
        return NotesOf(answer, bases);
    }
    std::vector<std::string> notes;
    if (bases != Bases::standard) {
        notes = answer.program.notes;
    }
    for (const std::string& note : answer.standard.notes) {
        notes.push_back("standard: " + note);
    }
    return notes;
}

}  // namespace

std::string OptimizeForm::Header() const
{
    if (form() == TableForm::ndjson) {
        return {};
    }
    return CsvNames("member,verdict,ir,control,clause,case,x" +
                        std::string(bases_ == Bases::both ? kBasis : "") +
                        ",group,rank,section,steel,mass,h,b,surface,price,section_before,"
                        "steel_before,mass_before,lighter,lighter_fails,notes,message\n",
                    csv_);
}

void OptimizeForm::AppendLine(std::string& out, const OptimizedMember& of,
                              const OptimizeAnswer* answer, const RatedCandidate* rated,
                              std::size_t rank) const
{
    static const MemberAnswer kNone{};
    const MemberAnswer* const own = AnswerOf(rated, of.member);
    const MemberAnswer& member = own != nullptr ? *own : kNone;
    const bool by_standard = bases_ == Bases::standard;
    const WorstCase& worst = by_standard ? member.standard : member.program;
    AnswerLine line(out, form(), csv_);
    line.Text("member", of.key);
    line.Text("verdict", VerdictWord(own != nullptr        ? own->VerdictIn(bases_)
                                     : !of.refusal.empty() ? of.refused
                                                           : Verdict::not_checked));
    line.Number("ir", worst.ir, member.RatedIn(bases_) && std::isfinite(worst.ir));
    PutCheck(line, worst, false);
    if (bases_ == Bases::both) {
        const WorstCase& other = member.standard;
        line.Text("verdict_standard", other.any ? VerdictWord(other.verdict) : std::string_view{});
        line.Number("ir_standard", other.ir, other.any && !other.failed && std::isfinite(other.ir));
        PutCheck(line, other, true);
    }
    static const SectionFigures kNoFigures{};
    const SectionFigures& figures = rated != nullptr ? rated->figures : kNoFigures;
    const bool known = rank > 0;  // else it only comes nearest
    line.Text("group", of.group);
    line.Number("rank", rank, rank > 0);
    line.Text("section", known ? std::string_view(rated->name) : std::string_view{});
    line.Text("steel", known ? std::string_view(rated->steelname) : std::string_view{});
    line.Number("mass", static_cast<float>(figures.mass), known);
    line.Number("h", static_cast<float>(figures.h), known);
    line.Number("b", static_cast<float>(figures.b), known);
    line.Number("surface", static_cast<float>(figures.surface), known);
    line.Number("price", figures.price.value_or(0), known && figures.price.has_value());
    line.Text("section_before", of.section);
    line.Text("steel_before", of.steel);
    line.Number("mass_before", of.figures ? static_cast<float>(of.figures->mass) : 0.0F,
                of.figures.has_value());
    const RatedCandidate* const lighter =
        rank == 1 && answer->lighter ? &*answer->lighter : nullptr;
    line.Text("lighter", lighter != nullptr ? std::string_view(lighter->name) : std::string_view{});
    line.Text("lighter_fails", lighter != nullptr ? WhyText(*lighter, bases_) : std::string{});
    line.List("notes", own != nullptr ? Notes(*own, bases_) : std::vector<std::string>{});
    line.Text("message", !of.refusal.empty()              ? of.refusal
                         : answer != nullptr && rank == 0 ? answer->message
                                                          : std::string{});
    line.End();
}

double OptimizeForm::RatioOf(const MemberAnswer& answer) const
{
    return bases_ == Bases::both ? std::max(answer.program.ir, answer.standard.ir)
                                 : answer.RatioIn(bases_);
}

void OptimizeForm::AppendLines(std::string& out, const OptimizedMember& of,
                               const OptimizeAnswer* answer) const
{
    if (answer == nullptr || answer->found.empty()) {
        const bool best = answer != nullptr && answer->best;
        return AppendLine(out, of, answer, best ? &*answer->best : nullptr, 0);
    }
    for (std::size_t i = 0; i < answer->found.size(); ++i) {
        AppendLine(out, of, answer, &answer->found[i], i + 1);
    }
}

Verdict OptimizeForm::VerdictFor(const OptimizedMember& of, const OptimizeAnswer* answer) const
{
    if (answer == nullptr || !of.refusal.empty()) {
        return of.refused;
    }
    if (!answer->found.empty()) {
        return Verdict::within;
    }
    const MemberAnswer* const own = answer->best ? AnswerOf(&*answer->best, of.member) : nullptr;
    return own != nullptr ? own->VerdictIn(bases_) : Verdict::not_checked;
}

}  // namespace kestrum
