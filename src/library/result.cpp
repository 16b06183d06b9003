// A check of a member behind the interface.

#include "app/field_hint.h"
#include "core/field_table.h"
#include "engine/calculate.h"
#include "library/handles.h"
#include "report/diagrams.h"
#include "report/panel_text.h"
#include "report/section_figure.h"
#include "report/state_json.h"
#include "report/svg_writer.h"

#include <limits>
#include <string_view>

namespace {

using kestrum::Outcome;
using kestrum::ProjectState;
using kestrum::Verdict;
using kestrum::library::Answer;
using kestrum::library::Answered;
using kestrum::library::Guarded;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredOut;
using kestrum::library::RequiredText;
using kestrum::standard::StandardResult;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

kestrum_status StatusOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::within:
        return KESTRUM_WITHIN;
    case Verdict::above:
        return KESTRUM_ABOVE;
    case Verdict::unstable:
        return KESTRUM_UNSTABLE;
    case Verdict::failed:
        return KESTRUM_FAILED;
    case Verdict::loads_dropped:
        return KESTRUM_LOADS_DROPPED;
    case Verdict::nothing_acts:
        return KESTRUM_NOTHING_ACTS;
    default:
        return KESTRUM_NOT_CHECKED;
    }
}

void TakeProgram(const Outcome& outcome, kestrum_result& result)
{
    result.program = {StatusOf(outcome.verdict),
                      outcome.rated() ? outcome.ir : kNone,
                      kestrum::VerdictText(outcome),
                      outcome.control,
                      outcome.clause,
                      outcome.message};
    for (const std::string& dropped : outcome.dropped) {
        result.program.message += (result.program.message.empty() ? "" : "; ") + dropped;
    }
    const kestrum::Failure& failure = result.state.failure;
    if (failure.any()) {
        result.failure = {std::string(kestrum::StageName(failure.stage)),
                          std::string(kestrum::CauseName(failure.cause)),
                          std::string(failure.quantity), std::string(failure.unit)};
    }
    for (const kestrum::DesignNote& note : kestrum::DesignNotes(result.state)) {
        result.notes.push_back({std::string(note.id), std::string(note.text)});
    }
}

void TakeStandard(const StandardResult& standard, kestrum_result& result)
{
    Answer& answer = result.standard;
    answer.status = !standard.rated  ? KESTRUM_NOT_CHECKED
                    : standard.above ? KESTRUM_ABOVE
                                     : KESTRUM_WITHIN;
    answer.ratio = standard.rated ? standard.ir : kNone;
    answer.verdict = kestrum::standard::VerdictOf(standard);
    if (standard.rated) {
        answer.governing = kestrum::standard::NameOf(standard.governing);
        answer.clause = standard.checks[standard.governing].clause;
    }
    for (const std::string& reason : standard.outside) {
        answer.message += (answer.message.empty() ? "" : "; ") + reason;
    }
    for (std::size_t i = 0; i < kestrum::standard::kCheckIds; ++i) {
        const auto id = static_cast<kestrum::standard::CheckId>(i);
        const kestrum::standard::Check& check = standard.checks[id];
        if (check.present) {
            result.checks.push_back({std::string(kestrum::standard::NameOf(id)),
                                     std::string(check.clause), NameOf(check.load_case),
                                     check.place, check.ir});
        }
    }
}

kestrum_result Checked(const kestrum_member& member, unsigned basis)
{
    if (basis < KESTRUM_BASIS_PROGRAM || basis > KESTRUM_BASIS_BOTH) {
        throw Refusal{KESTRUM_REFUSED, "basis: 1, 2 or 3 is expected", "basis"};
    }
    kestrum_result result;
    result.state = member.state;
    if ((basis & KESTRUM_BASIS_STANDARD) != 0) {
        TakeStandard(kestrum::standard::CalculateStandard(*member.library, result.state), result);
    }
    // The rules of the program also fill the record that values and pictures are read from.
    const bool well = kestrum::Calculate(*member.library, result.state);
    TakeProgram(kestrum::OutcomeOf(result.state, well), result);
    return result;
}

const Answer& AnswerOf(const kestrum_result* result, unsigned basis)
{
    static const Answer kNoAnswer;
    if (result == nullptr) {
        return kNoAnswer;
    }
    return basis == KESTRUM_BASIS_STANDARD ? result->standard : result->program;
}

template <class List> const auto& Row(const List& list, size_t index)
{
    if (index >= list.size()) {
        throw Refusal{KESTRUM_UNKNOWN_NAME,
                      "index " + std::to_string(index) + " of " + std::to_string(list.size()),
                      "index"};
    }
    return list[index];
}

double NumberOf(const ProjectState& s, const char* name)
{
    const auto ref = kestrum::ResolveField(RequiredText(name, "name"));
    if (!ref) {
        throw Refusal{KESTRUM_UNKNOWN_NAME, std::string(name) + ": no such field", name,
                      kestrum::NearestField(name, kestrum::FieldsMeant::all)};
    }
    if (ref->field->kind == kestrum::FieldKind::text ||
        ref->field->kind == kestrum::FieldKind::literal) {
        throw Refusal{KESTRUM_REFUSED, std::string(name) + " is a text", name};
    }
    return kestrum::NumberOf(s, *ref->field, ref->index);
}

// Pictures and panel of a calculation that stopped would show values that it has not reached.
const ProjectState& Finished(const kestrum_result* result)
{
    const ProjectState& s = Required(result, "result").state;
    if (s.failure.any()) {
        throw Refusal{KESTRUM_REFUSED, kestrum::FailureText(s.failure)};
    }
    return s;
}

std::string Diagram(const ProjectState& s, char axis)
{
    if (axis != 'z' && axis != 'y') {
        throw Refusal{KESTRUM_REFUSED, "axis: 'z' or 'y' is expected", "axis"};
    }
    constexpr double kPixels = 7;  // of a unit: a picture of 700 pixels
    const auto which = axis == 'z' ? kestrum::LoadAxis::z : kestrum::LoadAxis::y;
    return kestrum::WriteSvg(kestrum::DrawSheet(s, which), kPixels);
}

std::string SectionPicture(const ProjectState& s)
{
    constexpr double kPixels = 4;
    return kestrum::WriteSvg(kestrum::DrawSection(s), kPixels);
}

}  // namespace

kestrum_code kestrum_member_check(const kestrum_member* member, unsigned basis,
                                  kestrum_result** out, kestrum_error** error)
{
    return Answered(out, error, [&] { return Checked(Required(member, "member"), basis); });
}

void kestrum_result_free(kestrum_result* result)
{
    delete result;
}

kestrum_status kestrum_result_status(const kestrum_result* result, unsigned basis)
{
    return AnswerOf(result, basis).status;
}

double kestrum_result_ratio(const kestrum_result* result, unsigned basis)
{
    return AnswerOf(result, basis).ratio;
}

const char* kestrum_result_verdict(const kestrum_result* result, unsigned basis)
{
    return AnswerOf(result, basis).verdict.c_str();
}

const char* kestrum_result_governing(const kestrum_result* result, unsigned basis)
{
    return AnswerOf(result, basis).governing.c_str();
}

const char* kestrum_result_clause(const kestrum_result* result, unsigned basis)
{
    return AnswerOf(result, basis).clause.c_str();
}

const char* kestrum_result_message(const kestrum_result* result, unsigned basis)
{
    return AnswerOf(result, basis).message.c_str();
}

kestrum_failure kestrum_result_failure(const kestrum_result* result)
{
    if (result == nullptr) {
        return {"", "", "", 0, 0, ""};
    }
    return {result->failure.stage.c_str(),    result->failure.cause.c_str(),
            result->failure.quantity.c_str(), result->state.failure.value,
            result->state.failure.limit,      result->failure.unit.c_str()};
}

size_t kestrum_result_checks(const kestrum_result* result)
{
    return result == nullptr ? 0 : result->checks.size();
}

kestrum_code kestrum_result_check(const kestrum_result* result, size_t index, kestrum_check* out,
                                  kestrum_error** error)
{
    return Guarded(error, [&] {
        const auto& check = Row(Required(result, "result").checks, index);
        RequiredOut(out, "out") = {check.check.c_str(), check.clause.c_str(),
                                   check.load_case.c_str(), check.place, check.ratio};
    });
}

size_t kestrum_result_notes(const kestrum_result* result)
{
    return result == nullptr ? 0 : result->notes.size();
}

kestrum_code kestrum_result_note(const kestrum_result* result, size_t index, kestrum_note* out,
                                 kestrum_error** error)
{
    return Guarded(error, [&] {
        const auto& note = Row(Required(result, "result").notes, index);
        RequiredOut(out, "out") = {note.id.c_str(), note.text.c_str()};
    });
}

kestrum_code kestrum_result_number(const kestrum_result* result, const char* name, double* out,
                                   kestrum_error** error)
{
    return Guarded(error, [&] {
        double& number = RequiredOut(out, "out");
        number = NumberOf(Finished(result), name);
    });
}

kestrum_code kestrum_result_json(const kestrum_result* result, kestrum_text** out,
                                 kestrum_error** error)
{
    return Answered(out, error, [&] {
        return kestrum_text{kestrum::StateJson(Required(result, "result").state)};
    });
}

kestrum_code kestrum_result_panel(const kestrum_result* result, kestrum_text** out,
                                  kestrum_error** error)
{
    return Answered(out, error, [&] { return kestrum_text{kestrum::PanelText(Finished(result))}; });
}

kestrum_code kestrum_result_diagram_svg(const kestrum_result* result, char axis, kestrum_text** out,
                                        kestrum_error** error)
{
    return Answered(out, error, [&] { return kestrum_text{Diagram(Finished(result), axis)}; });
}

kestrum_code kestrum_result_section_svg(const kestrum_result* result, kestrum_text** out,
                                        kestrum_error** error)
{
    return Answered(out, error, [&] { return kestrum_text{SectionPicture(Finished(result))}; });
}
