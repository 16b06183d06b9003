// A check of a member behind the interface.

#include "core/field_table.h"
#include "engine/calculate.h"
#include "library/handles.h"
#include "report/diagrams.h"
#include "report/panel_text.h"
#include "report/section_figure.h"
#include "report/state_json.h"
#include "report/svg_writer.h"

#include <string_view>

namespace {

using kestrum::Outcome;
using kestrum::ProjectState;
using kestrum::library::Answer;
using kestrum::library::Answered;
using kestrum::library::Guarded;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredOut;
using kestrum::library::RequiredText;
using kestrum::standard::StandardResult;

void TakeProgram(const Outcome& outcome, kestrum_result& result)
{
    result.program = kestrum::library::ProgramAnswer(outcome);
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
    result.standard = kestrum::library::StandardAnswer(standard);
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
    kestrum::library::RequireBasis(basis);
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
    const kestrum::FieldRef ref = kestrum::library::FieldOf(RequiredText(name, "name"));
    return kestrum::NumberOf(s, *ref.field, ref.index);
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
