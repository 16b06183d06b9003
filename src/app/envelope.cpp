#include "app/envelope.h"

#include "app/cell_reader.h"
#include "core/check_text.h"
#include "core/failure.h"
#include "core/utf8_text.h"
#include "report/outcome.h"
#include "report/state_json.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>
#include <memory>
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
    const double tau = s.fyk / std::sqrt(3.0);
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

// --- The lines -----------------------------------------------------------------------------------

namespace {

// A line from its cells: of a CSV in the order of the columns, of an object with their names.
class Line {
public:
    Line(std::string& out, TableForm form, CsvTexts texts)
        : out_(out), json_(form == TableForm::ndjson), texts_(texts)
    {
        out_.append(json_ ? "{" : "");
    }
    void Text(std::string_view name, std::string_view text)
    {
        Name(name);
        if (json_) {
            out_.append(JsonText(text));
        } else {
            AppendCell(out_, text, texts_);
        }
    }
    template <class T> void Number(std::string_view name, T value, bool given = true)
    {
        Name(name);
        if (given) {
            AppendNumber(out_, value);
        } else {
            out_.append(json_ ? "null" : "");
        }
    }
    void List(std::string_view name, const std::vector<std::string>& texts)
    {
        Name(name);
        std::string joined;
        for (const std::string& text : texts) {
            joined.append(joined.empty() ? "" : json_ ? "," : "; ");
            joined.append(json_ ? JsonText(text) : text);
        }
        if (json_) {
            out_.append("[").append(joined).append("]");
        } else {
            AppendCell(out_, joined);
        }
    }
    void End() { out_.append(json_ ? "}\n" : "\n"); }

private:
    void Name(std::string_view name)
    {
        out_.append(first_ ? "" : ",");
        first_ = false;
        if (json_) {
            out_.append("\"").append(name).append("\":");
        }
    }

    std::string& out_;
    bool json_;
    CsvTexts texts_;
    bool first_ = true;
};

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

}  // namespace

std::string EnvelopeForm::Header() const
{
    if (form() == TableForm::ndjson) {
        return {};
    }
    std::string line = "member,verdict,ir,control,clause,case,x";
    if (bases_ == Bases::both) {
        line += ",verdict_standard,ir_standard,standard_check,standard_clause,case_standard,"
                "x_standard";
    }
    line += ",cases,above,failed";
    if (bases_ == Bases::both) {
        line += ",above_standard,failed_standard";
    }
    return line + ",notes,message\n";
}

void EnvelopeForm::AppendLine(std::string& out, std::string_view member,
                              const MemberAnswer& answer) const
{
    const bool by_standard = bases_ == Bases::standard;
    const WorstCase& worst = by_standard ? answer.standard : answer.program;
    const EnvelopeCounts& n = answer.counts;
    Line line(out, form(), texts_);
    line.Text("member", member);
    line.Text("verdict", VerdictWord(answer.VerdictIn(bases_)));
    line.Number("ir", worst.ir, answer.RatedIn(bases_) && std::isfinite(worst.ir));
    line.Text("control", worst.control);
    line.Text("clause", worst.clause);
    line.Text("case", worst.load_case);
    line.Number("x", static_cast<float>(worst.x), std::isfinite(worst.x));
    if (bases_ == Bases::both) {
        const WorstCase& other = answer.standard;
        const bool rated = other.any && !other.failed && answer.refusal.empty();
        line.Text("verdict_standard", other.any ? VerdictWord(other.verdict) : std::string_view{});
        line.Number("ir_standard", other.ir, rated && std::isfinite(other.ir));
        line.Text("standard_check", other.control);
        line.Text("standard_clause", other.clause);
        line.Text("case_standard", other.load_case);
        line.Number("x_standard", static_cast<float>(other.x), std::isfinite(other.x));
    }
    line.Number("cases", n.cases);
    line.Number("above", by_standard ? n.above_standard : n.above);
    line.Number("failed", by_standard ? n.failed_standard : n.failed);
    if (bases_ == Bases::both) {
        line.Number("above_standard", n.above_standard);
        line.Number("failed_standard", n.failed_standard);
    }
    line.List("notes", NotesOf(answer, bases_));
    std::string message = answer.refusal.empty() ? worst.message : answer.refusal;
    if (bases_ == Bases::both && !answer.standard.message.empty() &&
        answer.standard.message != message) {
        message += (message.empty() ? "standard: " : "; standard: ") + answer.standard.message;
    }
    line.Text("message", message);
    line.End();
}

// --- The work ------------------------------------------------------------------------------------

// A member with all that its cases share.
struct EnvelopeWorker::Prepared {
    std::size_t member = MemberList::kNone;
    std::string refusal{};
    PreparedMember program{};
    std::optional<standard::StationCases> standard{};
    double yield_torque = 0;
    double length = 0;
    StationRun run{};
};

EnvelopeWorker::EnvelopeWorker(const EnvelopePlan& plan, ForceColumns columns, std::string table)
    : plan_(plan), columns_(std::move(columns)), table_(std::move(table)),
      prepared_(std::make_unique<Prepared>())
{
}

EnvelopeWorker::~EnvelopeWorker() = default;
EnvelopeWorker::EnvelopeWorker(EnvelopeWorker&&) noexcept = default;

void EnvelopeWorker::Fault(ForcePiece& piece, std::size_t line, const std::string& what) const
{
    constexpr std::size_t kMost = 1000;  // of a piece; the rest is counted
    if (++piece.faults <= kMost) {
        piece.fault += Printable(table_ + ":" + std::to_string(line) + ": " + what) + "\n";
    }
}

void EnvelopeWorker::Prepare(std::size_t member)
{
    Prepared& p = *prepared_;
    if (p.member == member) {
        return;
    }
    p.member = member;
    ProjectState s = plan_.base;
    p.refusal = plan_.members.Apply(member, plan_.library, s, plan_.manner);
    if (!p.refusal.empty()) {
        return;
    }
    p.program = kestrum::Prepare(plan_.library, s);
    if (!p.program.usable) {
        p.refusal = FailureText(p.program.state->failure);
        return;
    }
    p.length = p.program.Length();
    p.yield_torque = YieldTorque(*p.program.state);
    p.standard.reset();
    if (plan_.bases != Bases::program) {
        p.standard.emplace(plan_.library, s);
    }
}

std::string EnvelopeWorker::RefusalOf(std::size_t member)
{
    Prepare(member);
    return prepared_->refusal;
}

void EnvelopeWorker::Work(ForcePiece& piece)
{
    piece.answers.clear();
    piece.fault.clear();
    piece.faults = piece.rows = piece.cases = 0;
    open_ = false;
    std::string_view rest = piece.lines;
    std::size_t line = piece.line;
    for (std::size_t i = 0; !rest.empty(); ++i) {
        const char* const before = rest.data();
        const std::string_view record = TakeRecord(rest, columns_.separator());
        const std::size_t number = i < piece.numbers.size() ? piece.numbers[i] : line;
        if (!record.empty()) {
            Record(piece, record, number);
        }
        const bool several = record.find('\n') != std::string_view::npos;
        line += several ? static_cast<std::size_t>(std::count(before, rest.data(), '\n')) : 1;
    }
    CloseMember(piece);
}

void EnvelopeWorker::Record(ForcePiece& piece, std::string_view record, std::size_t line)
{
    ++piece.rows;
    std::string_view fault =
        record.size() > kLongestLine ? "the line is too long" : columns_.Parse(record, row_);
    if (row_.member.empty()) {
        return Fault(piece, line, std::string(fault));  // of nobody
    }
    if (!open_ || row_.member != key_) {
        OpenMember(piece, row_.member, line);
    }
    if (member_ == MemberList::kNone) {
        return;
    }
    if (row_.load_case.empty()) {
        return Fault(piece, line, std::string(fault));
    }
    if (stations_.empty() || row_.load_case != case_) {
        CloseCase(piece);
        case_ = row_.load_case;
        case_line_ = line;
    }
    if (!fault.empty()) {
        Fault(piece, line, std::string(fault));
        case_fault_ = case_fault_.empty()
                          ? "line " + std::to_string(line) + ": " + std::string(fault)
                          : case_fault_;
    }
    stations_.push_back(row_.at);
    lines_.push_back(line);
}

void EnvelopeWorker::OpenMember(ForcePiece& piece, std::string_view key, std::size_t line)
{
    CloseMember(piece);
    open_ = true;
    key_ = key;
    member_ = plan_.members.Find(key_);
    if (member_ == MemberList::kNone) {
        return Fault(piece, line, "member \"" + key_ + "\" is not in the table of members");
    }
    Prepare(member_);
}

// Tables also run from the end to the start, or in no order at all.
void EnvelopeWorker::Settle()
{
    const auto falls = [](const Station& a, const Station& b) { return a.x > b.x; };
    const auto rises = [](const Station& a, const Station& b) { return a.x < b.x; };
    if (std::is_sorted(stations_.begin(), stations_.end(), rises)) {
        return;
    }
    if (std::is_sorted(stations_.begin(), stations_.end(), falls)) {
        std::reverse(stations_.begin(), stations_.end());
        std::reverse(lines_.begin(), lines_.end());
        return;
    }
    std::stable_sort(stations_.begin(), stations_.end(), rises);
    std::fill(lines_.begin(), lines_.end(), case_line_);
}

void EnvelopeWorker::Fail(MemberAnswer& answer, const std::string& why) const
{
    const WorstCase failed{.any = true,
                           .verdict = Verdict::bad,
                           .failed = true,
                           .line = case_line_,
                           .load_case = case_,
                           .message = "case " + case_ + ": " + why};
    if (plan_.bases != Bases::standard) {
        answer.program = failed;
        answer.counts.failed = 1;
    }
    if (plan_.bases != Bases::program) {
        answer.standard = failed;
        answer.counts.failed_standard = 1;
    }
}

void EnvelopeWorker::Keep(MemberAnswer answer)
{
    if (kept_.empty() || plan_.all) {
        kept_.push_back(std::move(answer));
        return;
    }
    if (plan_.top == 0) {
        kept_.front().Add(std::move(answer));
        return;
    }
    kept_.push_back(std::move(answer));
}

void EnvelopeWorker::CloseCase(ForcePiece& piece)
{
    if (stations_.empty()) {
        return;
    }
    ++piece.cases;
    MemberAnswer answer;
    answer.member = member_;
    answer.counts.cases = 1;
    Settle();
    const StationCheck check = CheckStations(stations_, prepared_->length);
    if (!prepared_->refusal.empty()) {
        answer.refusal = prepared_->refusal;
    } else if (!case_fault_.empty()) {
        Fail(answer, case_fault_);
    } else if (check.fault != StationFault::none) {
        const std::string why = StationFaultText(check, stations_, prepared_->length);
        Fault(piece, lines_[std::min(check.row, lines_.size() - 1)],
              "member \"" + key_ + "\", case \"" + case_ + "\": " + why);
        Fail(answer, why);
    } else {
        for (const Station& at : stations_) {
            answer.mx = std::max(answer.mx, std::abs(at.mx));
        }
        answer.torque = answer.mx == 0                ? 0
                        : prepared_->yield_torque > 0 ? answer.mx / prepared_->yield_torque
                                                      : std::numeric_limits<double>::infinity();
        if (plan_.bases != Bases::standard) {
            Program(answer);
        }
        if (plan_.bases != Bases::program) {
            Standard(answer);
        }
    }
    Keep(std::move(answer));
    stations_.clear();
    lines_.clear();
    case_fault_.clear();
}

void EnvelopeWorker::Program(MemberAnswer& answer)
{
    Prepared& p = *prepared_;
    WorstCase& mine = answer.program;
    const bool well = p.run.Case(p.program, stations_);
    const ProjectState& s = p.run.state();
    answer.nvaried = p.run.NVaried();
    const NotCarried beyond = NotCarriedBy(s, stations_);
    const double ratio = well ? RatioOf(s) : 0;
    const bool dropped = beyond.any() && ShareNotCarried(s, beyond) > kNamedShare;
    mine.any = true;
    mine.line = case_line_;
    mine.ir = ratio;
    mine.verdict = ratio > s.irlimit ? Verdict::above : Verdict::within;
    // Only a case that may govern is put into words.
    const bool single = plan_.all || plan_.top > 0 || kept_.empty();
    if (well && ratio > 0 && !dropped) {
        answer.counts.above = ratio > s.irlimit ? 1 : 0;
        if (!single && !kept_.front().program.Worse(false, ratio, case_line_)) {
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
    mine.load_case = case_;
    mine.control = std::move(outcome.control);
    mine.clause = std::move(outcome.clause);
    mine.x = mine.failed ? kNowhere : PlaceOf(s);
    mine.message =
        outcome.message.empty() ? std::string{} : "case " + case_ + ": " + outcome.message;
    mine.notes.insert(mine.notes.begin(), outcome.notes.begin(), outcome.notes.end());
}

void EnvelopeWorker::Standard(MemberAnswer& answer)
{
    Prepared& p = *prepared_;
    WorstCase& mine = answer.standard;
    const bool single = plan_.all || plan_.top > 0 || kept_.empty();
    const double enough = single || kept_.front().standard.failed ? 0 : kept_.front().standard.ir;
    const standard::StationResult result = p.standard->Case(stations_, enough);
    const double limit = p.program.state->irlimit;
    const bool nothing = !result.rated && result.reason == standard::kNoForceActs;
    mine.any = true;
    mine.line = case_line_;
    mine.failed = !result.rated && !nothing;
    mine.ir = result.ir;
    mine.verdict = mine.failed         ? Verdict::not_checked
                   : result.ir > limit ? Verdict::above
                                       : Verdict::within;
    answer.counts.failed_standard = mine.failed ? 1 : 0;
    answer.counts.above_standard = mine.verdict == Verdict::above ? 1 : 0;
    if (!single && !kept_.front().standard.Worse(mine.failed, mine.ir, mine.line)) {
        mine.any = false;
        return;
    }
    mine.load_case = case_;
    mine.notes = p.standard->outside();
    if (mine.failed) {
        mine.message = "case " + case_ + ": " + std::string(result.reason);
        return;
    }
    if (result.rated) {
        mine.control = standard::NameOf(result.governing);
        mine.clause = result.check.clause;
        mine.x = result.check.place * p.length;  // nowhere stays nowhere
    }
}

void EnvelopeWorker::CloseMember(ForcePiece& piece)
{
    if (open_ && member_ != MemberList::kNone) {
        CloseCase(piece);
        std::move(kept_.begin(), kept_.end(), std::back_inserter(piece.answers));
    }
    stations_.clear();
    lines_.clear();
    case_fault_.clear();
    kept_.clear();
    open_ = false;
}

}  // namespace kestrum
