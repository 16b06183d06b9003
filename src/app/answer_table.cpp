#include "app/answer_table.h"

#include "app/batch.h"
#include "app/cell_reader.h"
#include "app/table_record.h"
#include "app/view_section.h"
#include "core/csv_cell.h"
#include "core/held_state.h"
#include "core/utf8_text.h"
#include "engine/prepared.h"
#include "report/outcome.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <unordered_map>

namespace kestrum {

namespace {

constexpr std::string_view kNoRatio = "no ratio";

std::optional<double> NumberIn(std::string_view text)
{
    double value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = fault == std::errc() && end == text.data() + text.size();
    return whole && !std::isnan(value) ? std::optional(value) : std::nullopt;
}

// The columns of answers that a summary reads.
enum class Cell : std::size_t {
    member,
    verdict,
    ir,
    control,
    clause,
    load_case,
    x,
    verdict_standard,
    ir_standard,
    standard_check,
    standard_clause,
    case_standard,
    x_standard,
    cases,
    rank,
    section,
    section_before,
    mass,
    mass_before,
    lighter,
    weight,
    l,
    irlimit,
    notes,
    message,
};
constexpr std::array<std::string_view, static_cast<std::size_t>(Cell::message) + 1> kNames = {
    "member",
    "verdict",
    "ir",
    "control",
    "clause",
    "case",
    "x",
    "verdict_standard",
    "ir_standard",
    "standard_check",
    "standard_clause",
    "case_standard",
    "x_standard",
    "cases",
    "rank",
    "section",
    "section_before",
    "mass",
    "mass_before",
    "lighter",
    "weight",
    "l",
    "irlimit",
    "notes",
    "message"};

class Record {
public:
    std::string TakeHeader(std::string_view line)
    {
        separator_ = SeparatorOf(line);
        places_.fill(kNone);
        for (CellReader cells(line, separator_); cells.Next(); ++columns_) {
            const auto name = std::find(kNames.begin(), kNames.end(), Trimmed(cells.cell()));
            if (name != kNames.end()) {
                places_[static_cast<std::size_t>(name - kNames.begin())] = columns_;
            }
        }
        for (const Cell cell : {Cell::member, Cell::verdict, Cell::ir}) {
            if (!Has(cell)) {
                return "no answers: there is no column \"" +
                       std::string(kNames[static_cast<std::size_t>(cell)]) + "\"";
            }
        }
        return {};
    }

    std::string TakeLine(std::string_view line)
    {
        CellReader cells(line, separator_);
        std::size_t count = 0;
        cells_.resize(columns_);
        for (; cells.Next(); ++count) {
            if (count < columns_) {
                cells_[count] = AsUtf8(WithoutMark(cells.cell()));
            }
        }
        return !cells.fault().empty() ? std::string(cells.fault())
               : count != columns_    ? "not as many cells as columns"
                                      : std::string{};
    }

    bool Has(Cell cell) const { return places_[static_cast<std::size_t>(cell)] != kNone; }

    // Empty for a column that is not there.
    const std::string& Text(Cell cell) const
    {
        const std::size_t place = places_[static_cast<std::size_t>(cell)];
        return place != kNone ? cells_[place] : nothing_;
    }
    // With a decimal comma where no comma stands between the cells.
    std::optional<double> Number(Cell cell) const
    {
        std::string digits = Text(cell);
        if (separator_ != ',') {
            std::replace(digits.begin(), digits.end(), ',', '.');
        }
        return NumberIn(digits);
    }

    std::string_view separator() const { return {&separator_, 1}; }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    char separator_ = ',';
    std::array<std::size_t, kNames.size()> places_{};
    std::size_t columns_ = 0;
    std::vector<std::string> cells_;
    const std::string nothing_{};
};

Standing StandingOf(std::optional<Verdict> verdict, bool rated)
{
    return verdict == Verdict::above             ? Standing::above
           : verdict == Verdict::within && rated ? Standing::within
                                                 : Standing::unrated;
}

// Of the basis that the answers are in, or the program's of both. Returns what is wrong, or
// nothing.
std::string TakeResult(const Record& record, SummaryResult& result)
{
    result.verdict = record.Text(Cell::verdict);
    const std::optional<Verdict> verdict = VerdictOf(result.verdict);
    if (!verdict) {
        return "verdict \"" + result.verdict + "\" is none";
    }
    const std::optional<double> ir = record.Number(Cell::ir);
    if (!ir && !record.Text(Cell::ir).empty()) {
        return "ir: " + record.Text(Cell::ir) + " is no number";
    }
    result.standing = StandingOf(verdict, ir.has_value());
    result.ir = ir.value_or(std::numeric_limits<double>::infinity());
    result.check = record.Text(Cell::control);
    result.clause = record.Text(Cell::clause);
    result.load_case = record.Text(Cell::load_case);
    result.x = record.Number(Cell::x).value_or(kUnknown);
    return {};
}

SummaryResult StandardResultOf(const Record& record)
{
    SummaryResult result;
    const std::optional<double> ir = record.Number(Cell::ir_standard);
    result.ir = ir.value_or(std::numeric_limits<double>::infinity());
    if (record.Has(Cell::verdict_standard)) {
        result.verdict = record.Text(Cell::verdict_standard);
        result.standing = StandingOf(VerdictOf(result.verdict), ir.has_value());
    } else if (ir) {
        const double limit = record.Number(Cell::irlimit).value_or(1);
        result.standing = *ir > limit ? Standing::above : Standing::within;
        result.verdict =
            VerdictWord(result.standing == Standing::above ? Verdict::above : Verdict::within);
    }
    result.verdict = result.verdict.empty() ? kNoRatio : result.verdict;
    result.check = record.Text(Cell::standard_check);
    result.clause = record.Text(Cell::standard_clause);
    result.load_case = record.Text(Cell::case_standard);
    result.x = record.Number(Cell::x_standard).value_or(kUnknown);
    return result;
}

void Merge(const MemberSummary& summary, SummaryMember& member, SummaryMember other)
{
    if (Worse(summary.GoverningOf(other), summary.GoverningOf(member))) {
        member.notes = std::move(other.notes);
        member.message = std::move(other.message);
    }
    if (Worse(other.result, member.result)) {
        member.result = std::move(other.result);
    }
    if (Worse(other.standard, member.standard)) {
        member.standard = std::move(other.standard);
    }
}

MemberSummary EmptySummary(const Record& record)
{
    MemberSummary summary;
    summary.both = record.Has(Cell::ir_standard);
    summary.has_case = record.Has(Cell::load_case);
    summary.has_place = record.Has(Cell::x);
    summary.has_section = record.Has(Cell::section);
    summary.has_mass = record.Has(Cell::l) && (record.Has(Cell::mass) || record.Has(Cell::weight));
    summary.has_before = record.Has(Cell::mass_before);
    return summary;
}

// Returns what is wrong with its line, or nothing.
std::string TakeMember(const Record& record, bool both, SummaryMember& member)
{
    std::string fault = TakeResult(record, member.result);
    if (both) {
        member.standard = StandardResultOf(record);
    }
    member.name = record.Text(Cell::member);
    member.notes = record.Text(Cell::notes);
    member.message = record.Text(Cell::message);
    if (VerdictOf(member.result.verdict) != Verdict::bad) {  // else it has no inputs
        member.section = record.Text(Cell::section);
        member.section_before = record.Text(Cell::section_before);
        member.length = record.Number(Cell::l).value_or(kUnknown);
        member.weight =
            record.Number(record.Has(Cell::mass) ? Cell::mass : Cell::weight).value_or(kUnknown);
        member.weight_before = record.Number(Cell::mass_before).value_or(kUnknown);
    }
    return fault;
}

// A key as it is read back from an answer.
std::string AsAnswered(const std::string& key)
{
    std::string cell;
    AppendCell(cell, key);
    CellReader reader(cell, ',');
    reader.Next();
    return std::string(reader.cell());
}

}  // namespace

std::string AnswerTable::Take(std::string_view text, const std::string& table)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) {
        return table + ": holds no answers";
    }
    if (text[first] == '{' || text[first] == '[') {
        return table + ": answers are read from a CSV, not from JSON";
    }
    RecordWalk walk(text);
    Record record;
    std::string fault = record.TakeHeader(walk.Next(kAnySeparator));
    summary = EmptySummary(record);
    const bool optimized = record.Has(Cell::lighter);
    by_number = !record.Has(Cell::cases) && !optimized;
    std::unordered_map<std::string, std::size_t> places;
    while (fault.empty() && !walk.done()) {
        const std::string_view cells = walk.Next(record.separator());
        if (cells.empty()) {
            continue;
        }
        SummaryMember member;
        fault = record.TakeLine(cells);
        if (optimized && record.Number(Cell::rank).value_or(1) > 1) {
            continue;  // another section that would do
        }
        fault = fault.empty() ? TakeMember(record, summary.both, member) : fault;
        const auto [at, fresh] = places.try_emplace(member.name, summary.members.size());
        if (fresh) {
            summary.members.push_back(std::move(member));
        } else {
            Merge(summary, summary.members[at->second], std::move(member));
        }
    }
    if (!fault.empty()) {
        return Printable(table + ":" + std::to_string(walk.line()) + ": " + fault);
    }
    summary.Sort();
    return summary.members.empty() ? table + ": holds no answers" : std::string{};
}

std::size_t AnswerTable::AddMembers(const MemberList& list, const Library& library,
                                    const ProjectState& base, Manner manner)
{
    std::unordered_map<std::string, std::size_t> places;
    for (std::size_t i = 0; by_number && i < list.size(); ++i) {
        places.try_emplace(std::to_string(list.RowOf(i)), i);
    }
    for (std::size_t i = 0; i < list.size(); ++i) {
        places.try_emplace(AsAnswered(list.Key(i)), i);
    }
    std::size_t strangers = 0;
    for (SummaryMember& member : summary.members) {
        const auto at = places.find(member.name);
        if (at == places.end()) {
            ++strangers;
            continue;
        }
        member.name = AsAnswered(list.Key(at->second));
        HeldState s = base;
        if (!list.Apply(at->second, library, s, manner).empty()) {
            continue;
        }
        if (member.section.empty()) {
            member.section = SectionName(library, s);
        }
        const PreparedMember prepared = Prepare(library, s);
        if (prepared.usable) {
            member.length = prepared.Length();
            member.weight = std::isfinite(member.weight) ? member.weight : prepared.Mass();
        }
    }
    summary.has_section = summary.has_mass = true;
    return strangers;
}

std::string SummaryCsv(const MemberSummary& summary, const CsvForm& csv)
{
    std::string out = "order,member,verdict,ir,control,clause";
    const std::string place =
        std::string(summary.has_case ? ",case" : "") + (summary.has_place ? ",x" : "");
    out += place;
    if (summary.both) {
        out += ",verdict_standard,ir_standard,standard_check,standard_clause";
        out += std::string(summary.has_case ? ",case_standard" : "") +
               (summary.has_place ? ",x_standard" : "");
    }
    out += std::string(summary.has_section ? ",section" : "") +
           (summary.has_before ? ",section_before,mass_before,kg_before" : "") +
           (summary.has_mass ? ",mass,l,kg" : "") + ",notes,message\n";
    out = CsvNames(out, csv);

    const auto text = [&](const std::string& value, bool wanted = true) {
        if (wanted) {
            out.push_back(csv.delimiter);
            AppendCell(out, value, csv.texts);
        }
    };
    const auto put = [&](auto value, bool wanted) {
        out.append(wanted ? 1 : 0, csv.delimiter);
        if (wanted && std::isfinite(value)) {
            const std::size_t first = out.size();
            AppendNumber(out, value);
            SetPoint(out, first, csv);
        }
    };
    const auto number = [&](double value, bool wanted = true) { put(value, wanted); };
    const auto single = [&](double value, bool wanted) {  // as the fields of a member are
        put(static_cast<float>(value), wanted);
    };
    const auto result = [&](const SummaryResult& each) {
        text(each.verdict);
        number(each.ir);
        text(each.check);
        text(each.clause);
        text(each.load_case, summary.has_case);
        number(each.x, summary.has_place);
    };
    for (std::size_t rank = 0; rank < summary.Listed(); ++rank) {
        const SummaryMember& member = summary.members[rank];
        AppendNumber(out, rank + 1);
        text(member.name);
        result(member.result);
        if (summary.both) {
            result(member.standard);
        }
        text(member.section, summary.has_section);
        text(member.section_before, summary.has_before);
        single(member.weight_before, summary.has_before);
        number(member.MassBefore(), summary.has_before);
        single(member.weight, summary.has_mass);
        single(member.length, summary.has_mass);
        number(member.Mass(), summary.has_mass);
        text(member.notes);
        text(member.message);
        out.push_back('\n');
    }
    return out;
}

}  // namespace kestrum
