// A check of a member behind the interface.

#include "core/check_text.h"
#include "core/field_table.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "library/handles.h"
#include "report/both_bases.h"
#include "report/diagrams.h"
#include "report/panel_text.h"
#include "report/section_figure.h"
#include "report/state_json.h"
#include "report/svg_writer.h"
#include "standard/costs.h"

#include <algorithm>
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

kestrum::library::StoredCheck StoredOf(const ProjectState& s, kestrum::CheckId id)
{
    using Kind = kestrum::CheckPlace::Kind;
    const kestrum::Check& check = s.checklist[id];
    const kestrum::CheckPlace& place = check.place;
    kestrum::library::StoredCheck stored{std::string(kestrum::NameOf(id)),
                                         kestrum::FormulaOf(check),
                                         std::string(kestrum::TextsOf(check.form).clause),
                                         {},
                                         std::numeric_limits<double>::quiet_NaN(),
                                         check.ratio,
                                         check.limit};
    if (place.kind == Kind::section || place.kind == Kind::point) {
        stored.place = place.x;
    }
    if (place.kind == Kind::point) {
        stored.point = place.number;
    }
    if (place.kind == Kind::segment) {
        stored.segment = place.number;
        stored.segments = place.parts;
    }
    return stored;
}

void TakeProgram(const Outcome& outcome, kestrum_result& result)
{
    result.program = kestrum::library::ProgramAnswer(outcome);
    const kestrum::Failure& failure = result.state->failure;
    if (failure.any()) {
        result.failure = {std::string(kestrum::StageName(failure.stage)),
                          std::string(kestrum::CauseName(failure.cause)),
                          std::string(failure.quantity), std::string(failure.unit)};
    }
    if (outcome.designed()) {
        for (const kestrum::CheckId id : kestrum::RatedChecks(result.state)) {
            result.checks.push_back(StoredOf(result.state, id));
        }
    }
    for (const kestrum::DesignNote& note : outcome.notes) {
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
            result.checks_standard.push_back({std::string(kestrum::standard::NameOf(id)),
                                              {},
                                              std::string(check.clause),
                                              NameOf(check.load_case),
                                              check.place,
                                              check.ir,
                                              result.state->irlimit});
        }
    }
}

// Of the notes as far as their deviation changes the standard's result.
void TakeCosts(const StandardResult& standard, kestrum_result& result)
{
    for (const kestrum::standard::DeviationCost& at : standard.deviations) {
        const std::string id(NameOf(at.deviation));
        for (auto& note : result.notes) {
            note.cost = note.id == id ? at.cost : note.cost;
        }
        result.deviations.push_back(
            {id, std::string(RuleOf(at.deviation)), at.cost, at.without, at.unsafe()});
    }
}

kestrum_result Checked(const kestrum_member& member, unsigned basis)
{
    const bool costs = basis == (KESTRUM_BASIS_BOTH | KESTRUM_COSTS);
    if (!costs) {
        kestrum::library::RequireBasis(basis);
    }
    const kestrum::Library& library = *member.library;
    kestrum_result result;
    result.state = member.state;
    StandardResult standard;
    bool well = false;
    if (costs) {
        kestrum::BothBases both = kestrum::CalculateBoth(library, member.state, result.state);
        well = both.well;
        standard = std::move(both.standard);
    } else {
        // The rules of the program also fill the record that values and pictures are read from.
        well = kestrum::Calculate(library, result.state);
        if ((basis & KESTRUM_BASIS_STANDARD) != 0) {
            standard = kestrum::standard::CalculateStandard(library, member.state);
        }
        if ((basis & KESTRUM_BASIS_PROGRAM) != 0) {
            kestrum::MeasureNotes(library, result.state);
        }
    }
    if ((basis & KESTRUM_BASIS_STANDARD) != 0) {
        TakeStandard(standard, result);
    }
    TakeProgram(kestrum::OutcomeOf(result.state, well), result);
    TakeCosts(standard, result);
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

// Of one basis; none of any other.
const auto& ChecksOf(const kestrum_result& result, unsigned basis)
{
    static const std::vector<kestrum::library::StoredCheck> kNone;
    return basis == KESTRUM_BASIS_PROGRAM    ? result.checks
           : basis == KESTRUM_BASIS_STANDARD ? result.checks_standard
                                             : kNone;
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
            result->failure.quantity.c_str(), result->state->failure.value,
            result->state->failure.limit,     result->failure.unit.c_str()};
}

size_t kestrum_result_checks(const kestrum_result* result, unsigned basis)
{
    return result == nullptr ? 0 : ChecksOf(*result, basis).size();
}

kestrum_code kestrum_result_check(const kestrum_result* result, unsigned basis, size_t index,
                                  kestrum_check* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        const kestrum_result& of = Required(result, "result");
        const auto& check = Row(ChecksOf(of, basis), index);
        RequiredOut(out, "out") = {check.check.c_str(),  check.formula.c_str(),
                                   check.clause.c_str(), check.load_case.c_str(),
                                   check.place,          check.ratio,
                                   check.limit,          check.point,
                                   check.segment,        check.segments};
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
        RequiredOut(out, "out") = {note.id.c_str(), note.text.c_str(), note.cost};
    });
}

size_t kestrum_result_deviations(const kestrum_result* result)
{
    return result == nullptr ? 0 : result->deviations.size();
}

kestrum_code kestrum_result_deviation(const kestrum_result* result, size_t index,
                                      kestrum_deviation* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        const auto& at = Row(Required(result, "result").deviations, index);
        RequiredOut(out, "out") = {at.id.c_str(), at.text.c_str(), at.cost, at.without,
                                   at.unsafe ? 1 : 0};
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
