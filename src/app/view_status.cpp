#include "app/view_status.h"

#include "app/aside.h"
#include "app/locale_text.h"
#include "app/view_section.h"
#include "app/view_standard.h"
#include "core/load_combination.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/kept_values.h"
#include "report/panel_text.h"
#include "report/standard_text.h"
#include "sections/families.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr std::string_view kHalfRead = "not checked: the file was read in part";

StatusKind KindOf(const Outcome& outcome)
{
    switch (outcome.verdict) {
    case Verdict::within:
        return outcome.notes.empty() ? StatusKind::good : StatusKind::caution;
    case Verdict::nothing_acts:
    case Verdict::not_checked:
    case Verdict::loads_dropped:
        return StatusKind::caution;
    default:
        return StatusKind::bad;
    }
}

std::string HeadOf(const Outcome& outcome)
{
    std::string text = VerdictText(outcome);
    if (outcome.designed() || outcome.verdict == Verdict::unstable) {
        text += ":  IR " + FormatNum(outcome.ir, "0.00");
    }
    if (!outcome.control.empty()) {
        text += ",  " + outcome.control + "  (Ch " + outcome.clause + ")";
    }
    return text;
}

// What is being looked at: section, mass of a metre and of the member, combination. Of a section
// that could not be calculated the mass is not known.
std::string FactsOf(const Session& session)
{
    const ProjectState& s = session.state();
    std::string text = SectionName(session.library(), s);
    if (!session.failed() && s.weight > 0) {
        const double weight = s.weight;
        text += (text.empty() ? "" : ",  ") + FormatNum(weight, "#0.0") + " kg/m,  " +
                FormatNum(weight * s.l, "#0") + " kg";
    }
    const std::string_view combination =
        s.loadmode == 1 ? LoadCombinationName(s.loadcomb) : "given end forces";
    if (!combination.empty()) {
        text += (text.empty() ? "" : ",  ") + std::string(combination);
    }
    return text;
}

// Lateral torsional buckling that the family can have and that nobody controls.
bool LateralUnchecked(const ProjectState& s)
{
    const FamilyTraits* const family = FindFamily(s.family);
    return family != nullptr && family->design.lateral != LateralBuckling::off && s.ltb != 1 &&
           s.mydesign != 0;
}

std::string LateralText(const Session& session)
{
    std::string text = "Lateral torsional buckling is not checked: ";
    const FamilyTraits* const family = FindFamily(session.lateraloff());
    return text + (family != nullptr ? "the section " + std::string(family->text) +
                                           ", chosen in between, has switched its control off."
                                     : "its control is switched off.");
}

// The standard's verdict; of a file that was read in part it is not the file's either.
void AddStandard(StatusView& view, const Session& session, const standard::StandardResult& result)
{
    if (session.halfread()) {
        return;
    }
    view.standard = std::string("EN 1993-1-1 as written: ");
    if (result.rated) {
        view.standard += std::string(standard::VerdictOf(result)) + ":  ";
    }
    view.standard += StandardWords(result);
    view.standardkind = result.above    ? StatusKind::bad
                        : !result.rated ? StatusKind::caution
                                        : StatusKind::good;
}

}  // namespace

StatusView StatusOf(const Session& session, const standard::StandardResult* standard)
{
    const Outcome& outcome = session.outcome();
    const ProjectState& s = session.state();
    StatusView view{KindOf(outcome), HeadOf(outcome), FactsOf(session), {}, {}, {}};
    const auto add = [&](std::string text) { view.lines.push_back(std::move(text)); };
    if (session.halfread()) {
        view.kind = StatusKind::bad;
        view.head = kHalfRead;
        add("Half-read file: " + session.filefault + ". The results are not those of the file.");
    }
    if (session.failed()) {
        add(FailureText(s.failure) + ". The results below are those of the last calculation that "
                                     "ended.");
    } else if (!outcome.message.empty() && outcome.dropped.empty()) {
        add(outcome.message);
    }
    for (const std::string& load : outcome.dropped) {
        add("Load dropped: " + load);
    }
    for (const std::string& fault : session.library().faults) {
        add(fault);
    }
    if (!session.failed() && LateralUnchecked(s)) {
        add(LateralText(session));
    }
    for (const KeptValue& kept : KeptValues(s)) {
        add("Older than the input: " + std::string(kept.text));
    }
    if (const std::string problem = session.aside != nullptr ? session.aside->problem() : "";
        !problem.empty()) {
        add("Unsaved work is not set aside: " + problem);
    }
    if (session.disk.gone()) {
        add("The file is no longer on the disk; the next save writes it again.");
    }
    if (!view.lines.empty()) {
        view.kind = std::max(view.kind, StatusKind::caution);
    }
    if (standard != nullptr) {
        AddStandard(view, session, *standard);
    }
    return view;
}

std::string ResultsAsText(const Session& session, const standard::StandardResult* standard)
{
    const StatusView status = StatusOf(session, standard);
    std::string text = session.title() + "\n" + status.facts + "\n" + status.head + "\n";
    text += status.standard.empty() ? "" : status.standard + "\n";
    for (const std::string& line : status.lines) {
        text += line + "\n";
    }
    text += "\n" + PanelText(session.shown());
    if (standard != nullptr && !session.halfread()) {
        for (const StandardGroup& group : StandardGroups(session.shown(), *standard)) {
            text += group.present ? GroupText(group) + "\n" : "";
        }
        for (const DeviationRow& row : DeviationRows(*standard, true, nullptr)) {
            text += row.id + " " + row.cost + (row.cost.empty() ? "" : "  ") +
                    (row.change.empty() ? "" : "(" + row.change + ")  ") + row.text + "\n";
        }
    }
    return ForLocale(std::move(text), session.decimalcomma());
}

}  // namespace kestrum
