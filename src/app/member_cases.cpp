#include "app/member_cases.h"

#include "core/check_text.h"
#include "core/failure.h"
#include "core/project_state.h"
#include "design/resistance.h"
#include "engine/prepared.h"
#include "report/state_json.h"
#include "sections/families.h"
#include "standard/costs.h"
#include "standard/solved_lines.h"
#include "standard/station_cases.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace kestrum {

namespace {

constexpr std::string_view kRules = "loads not known: rules for lines from loads";
constexpr std::string_view kVaries =
    "N varies: sections take N at the place, buckling the largest compression";

double Square(double x)
{
    return x * x;
}

// kNm, St. Venant torsion to the shear yield strength: of a closed section by its cell (Bredt), of
// an open one by its thickest plate.
double YieldTorque(const ProjectState& s)
{
    constexpr double kNmm = 1e6;
    const double tau = ShearStrength(s);
    const double wall = s.tf > 0 ? std::min(s.tw, s.tf) : s.tw;
    if (Is(s, Kind::tube)) {
        constexpr double kQuarterPi = 0.7853981633974483;
        return 2 * kQuarterPi * Square(s.h - wall) * wall * tau / kNmm;
    }
    if (Is(s, Kind::hollow, Kind::box) && wall > 0) {
        return 2.0 * (s.h - s.tf) * (s.b - s.tw) * wall * tau / kNmm;
    }
    return s.tmax > 0 ? s.it / s.tmax * tau / kNmm : 0;
}

// What the family does not carry as a share of the elastic resistance; infinite without one.
double ShareNotCarried(const ProjectState& s, const NotCarried& beyond)
{
    const auto share = [&](double force, double resistance) {
        return force == 0       ? 0
               : resistance > 0 ? force / resistance
                                : std::numeric_limits<double>::infinity();
    };
    constexpr double kN = 1e3, kNmm = 1e6;
    return std::max({share(beyond.n, s.a * s.fyk / kN), share(beyond.y, s.wely * s.fyk / kNmm),
                     share(beyond.z, s.welz * s.fyk / kNmm)});
}

std::string NotCarriedText(const NotCarried& beyond)
{
    std::string text;
    const auto add = [&](double size, std::string_view name, std::string_view unit) {
        if (size > 0) {
            text.append(text.empty() ? "" : ", ").append(name).append(" up to ");
            text.append(ShortNumber(size)).append(" ").append(unit);
        }
    };
    add(beyond.n, "N", "kN");
    add(beyond.y, "My or Vz", "kNm or kN");
    add(beyond.z, "Mz or Vy", "kNm or kN");
    return text + " not taken by this section family";
}

// Of the check that governs, the first of several as in its verdict.
double PlaceOf(const ProjectState& s)
{
    const Check* most = nullptr;
    for (std::size_t row = 0; row < static_cast<std::size_t>(ResultRow::deflection_z); ++row) {
        const Check& check = s.checklist.row(static_cast<ResultRow>(row));
        if (IsJudged(check) && (most == nullptr || check.ratio > most->ratio)) {
            most = &check;
        }
    }
    const bool placed = most != nullptr && most->place.kind == CheckPlace::Kind::section;
    return placed ? most->place.x * s.l : kNowhere;
}

}  // namespace

bool WorstCase::Worse(bool other_failed, double other_ir, std::size_t other_line) const
{
    if (!any || failed != other_failed) {
        return !any || other_failed;
    }
    // Failed cases have no order but that of the table.
    return (!failed && other_ir > ir) || ((failed || other_ir == ir) && other_line < line);
}

void MemberAnswer::Add(MemberAnswer other)
{
    const auto take = [](WorstCase& mine, WorstCase& its) {
        if (its.any && mine.Worse(its.failed, its.ir, its.line)) {
            mine = std::move(its);
        }
    };
    take(program, other.program);
    take(standard, other.standard);
    counts.cases += other.counts.cases;
    counts.above += other.counts.above;
    counts.failed += other.counts.failed;
    counts.above_standard += other.counts.above_standard;
    counts.failed_standard += other.counts.failed_standard;
    torque = std::max(torque, other.torque);
    mx = std::max(mx, other.mx);
    nvaried = nvaried || other.nvaried;
    if (refusal.empty()) {
        refusal = std::move(other.refusal);
        refused = other.refused;
    }
}

Verdict MemberAnswer::VerdictIn(Bases bases) const
{
    const WorstCase& worst = bases == Bases::standard ? standard : program;
    return !refusal.empty() ? refused : worst.any ? worst.verdict : Verdict::not_checked;
}

bool MemberAnswer::RatedIn(Bases bases) const
{
    return refusal.empty() && Outcome{.verdict = VerdictIn(bases)}.rated();
}

double MemberAnswer::RatioIn(Bases bases) const
{
    return bases == Bases::standard ? standard.ir : program.ir;
}

std::vector<std::string> NotesOf(const MemberAnswer& answer, Bases bases)
{
    std::vector<std::string> notes;
    if (bases != Bases::standard && answer.program.any) {
        notes = answer.program.notes;
        notes.emplace_back(kRules);
    }
    if (bases != Bases::program) {
        for (const std::string& note : answer.standard.notes) {
            notes.push_back("standard: " + note);
        }
    }
    if (answer.nvaried) {
        notes.emplace_back(kVaries);
    }
    if (answer.torque > kNamedShare) {
        const bool known = std::isfinite(answer.torque);
        notes.push_back(
            "Mx up to " + ShortNumber(answer.mx) + " kNm" +
            (known ? " (" + ShortNumber(100 * answer.torque) + " percent of the yield torque)"
                   : std::string{}) +
            " not covered");
    }
    return notes;
}

// --- Cases ---------------------------------------------------------------------------------------

void CaseRows::Clear()
{
    stations.clear();
    lines.clear();
    fault.clear();
}

namespace {

// Tables also run from the end to the start, or in no order at all.
void Settle(CaseRows& rows)
{
    const auto falls = [](const Station& a, const Station& b) { return a.x > b.x; };
    const auto rises = [](const Station& a, const Station& b) { return a.x < b.x; };
    std::vector<Station>& stations = rows.stations;
    if (std::is_sorted(stations.begin(), stations.end(), rises)) {
        return;
    }
    if (std::is_sorted(stations.begin(), stations.end(), falls)) {
        std::reverse(stations.begin(), stations.end());
        std::reverse(rows.lines.begin(), rows.lines.end());
        return;
    }
    std::stable_sort(stations.begin(), stations.end(), rises);
    std::fill(rows.lines.begin(), rows.lines.end(), rows.line);
}

}  // namespace

// A member with all that its cases share.
struct MemberCases::Prepared {
    std::string refusal{};
    PreparedMember program{};
    std::optional<standard::StationCases> standard{};
    double yield_torque = 0;
    double length = 0;
    ProjectState read{};  // the member before any pass
    StationRun run{};
};

MemberCases::MemberCases(const Library& library, Bases bases, bool every)
    : library_(library), bases_(bases), every_(every), prepared_(std::make_unique<Prepared>())
{
}

MemberCases::~MemberCases() = default;
MemberCases::MemberCases(MemberCases&&) noexcept = default;

const std::string& MemberCases::refusal() const
{
    return prepared_->refusal;
}

void MemberCases::Refuse(std::string why)
{
    prepared_->refusal = std::move(why);
}

void MemberCases::Prepare(const ProjectState& member)
{
    Prepared& p = *prepared_;
    p.refusal.clear();
    p.read = member;
    p.program = kestrum::Prepare(library_, member);
    if (!p.program.usable) {
        return Refuse(FailureText(p.program.state->failure));
    }
    p.length = p.program.Length();
    p.yield_torque = YieldTorque(*p.program.state);
    p.standard.reset();
    if (bases_ != Bases::program) {
        p.standard.emplace(library_, member);
    }
}

void MemberCases::Fail(const CaseRows& rows, const std::string& why, MemberAnswer& answer) const
{
    const WorstCase failed{.any = true,
                           .verdict = Verdict::bad,
                           .failed = true,
                           .line = rows.line,
                           .load_case = rows.name,
                           .message = why};
    if (bases_ != Bases::standard) {
        answer.program = failed;
        answer.counts.failed = 1;
    }
    if (bases_ != Bases::program) {
        answer.standard = failed;
        answer.counts.failed_standard = 1;
    }
}

MemberAnswer MemberCases::Answer(CaseRows& rows, const MemberAnswer* worst, CaseFault& fault)
{
    const Prepared& p = *prepared_;
    MemberAnswer answer;
    answer.counts.cases = 1;
    Settle(rows);
    const StationCheck check = CheckStations(rows.stations, p.length);
    if (!p.refusal.empty()) {
        answer.refusal = p.refusal;
    } else if (!rows.fault.empty()) {
        Fail(rows, rows.fault, answer);
    } else if (check.fault != StationFault::none) {
        fault = {rows.lines[std::min(check.row, rows.lines.size() - 1)],
                 StationFaultText(check, rows.stations, p.length)};
        Fail(rows, fault.what, answer);
    } else {
        for (const Station& at : rows.stations) {
            answer.mx = std::max(answer.mx, std::abs(at.mx));
        }
        answer.torque = answer.mx == 0       ? 0
                        : p.yield_torque > 0 ? answer.mx / p.yield_torque
                                             : std::numeric_limits<double>::infinity();
        if (bases_ != Bases::standard) {
            Program(rows, worst, answer);
        }
        if (bases_ != Bases::program) {
            Standard(rows, worst, answer);
        }
    }
    return answer;
}

void MemberCases::Program(const CaseRows& rows, const MemberAnswer* worst, MemberAnswer& answer)
{
    Prepared& p = *prepared_;
    WorstCase& mine = answer.program;
    const bool well = p.run.Case(p.program, rows.stations);
    const ProjectState& s = p.run.state();
    answer.nvaried = p.run.NVaried();
    const NotCarried beyond = NotCarriedBy(s, rows.stations);
    const double ratio = well ? RatioOf(s) : 0;
    const bool dropped = beyond.any() && ShareNotCarried(s, beyond) > kNamedShare;
    mine.any = true;
    mine.line = rows.line;
    mine.ir = ratio;
    mine.verdict = ratio > s.irlimit ? Verdict::above : Verdict::within;
    // Only a case that may govern is put into words.
    if (well && ratio > 0 && !dropped) {
        answer.counts.above = ratio > s.irlimit ? 1 : 0;
        if (!every_ && worst != nullptr && !worst->program.Worse(false, ratio, rows.line)) {
            mine.any = false;
            return;
        }
    }
    Outcome outcome = OutcomeOf(s, well);
    if (outcome.verdict == Verdict::nothing_acts) {
        outcome.verdict = Verdict::within;
    } else if (dropped && well) {
        outcome.verdict = Verdict::loads_dropped;
        outcome.message = NotCarriedText(beyond);
    } else if (beyond.any() && well) {
        mine.notes.push_back(NotCarriedText(beyond));
    }
    mine.verdict = outcome.verdict;
    mine.failed = outcome.verdict != Verdict::within && outcome.verdict != Verdict::above;
    answer.counts.failed = mine.failed ? 1 : 0;
    mine.ir = outcome.rated() ? outcome.ir : 0;
    mine.load_case = rows.name;
    mine.control = std::move(outcome.control);
    mine.clause = std::move(outcome.clause);
    mine.x = mine.failed ? kNowhere : PlaceOf(s);
    mine.message = std::move(outcome.message);
    if (well && !every_) {
        mine.stations = rows.stations;
    }
}

void MemberCases::Measure(WorstCase& program)
{
    Prepared& p = *prepared_;
    const std::vector<Station> stations = std::exchange(program.stations, {});
    if (stations.empty() || !p.run.Case(p.program, stations)) {
        return;
    }
    ProjectState s = p.run.state();
    standard::SolvedLines solved;
    const auto by = [&](const Basis& basis) {
        return standard::StationCases(library_, p.read, basis, &s, &solved).ResultOf(stations);
    };
    standard::StandardResult result = by(Basis::Standard());
    standard::CalculateCosts(
        [&](const Basis& basis, const standard::StandardResult&) { return by(basis); }, result);
    KeepNotes(result, s);
    const std::vector<DesignNote> notes = DesignNotes(s);
    std::transform(notes.begin(), notes.end(), std::inserter(program.notes, program.notes.begin()),
                   [](const DesignNote& note) { return std::string(note.id); });
}

void MemberCases::Standard(const CaseRows& rows, const MemberAnswer* worst, MemberAnswer& answer)
{
    Prepared& p = *prepared_;
    WorstCase& mine = answer.standard;
    const bool compared = !every_ && worst != nullptr;
    const double limit = p.program.state->irlimit;
    // A ratio above the limit is counted, so that it must be known.
    const double enough =
        compared && !worst->standard.failed ? std::min(worst->standard.ir, limit) : 0;
    const standard::StationResult result = p.standard->Case(rows.stations, enough);
    const bool nothing = !result.rated && result.reason == standard::kNoForceActs;
    mine.any = true;
    mine.line = rows.line;
    mine.failed = !result.rated && !nothing;
    mine.ir = result.ir;
    mine.verdict = mine.failed         ? Verdict::not_checked
                   : result.ir > limit ? Verdict::above
                                       : Verdict::within;
    answer.counts.failed_standard = mine.failed ? 1 : 0;
    answer.counts.above_standard = mine.verdict == Verdict::above ? 1 : 0;
    if (compared && !worst->standard.Worse(mine.failed, mine.ir, mine.line)) {
        mine.any = false;
        return;
    }
    mine.load_case = rows.name;
    mine.notes = p.standard->outside();
    if (mine.failed) {
        mine.message = result.reason;
        return;
    }
    if (result.rated) {
        mine.control = standard::NameOf(result.governing);
        mine.clause = result.check.clause;
        mine.x = result.check.place * p.length;  // nowhere stays nowhere
    }
}

}  // namespace kestrum
