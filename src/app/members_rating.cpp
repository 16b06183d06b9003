#include "app/members_rating.h"

#include "app/force_table.h"
#include "app/optimize.h"
#include "app/table_record.h"
#include "app/table_text.h"
#include "core/number_format.h"

#include <array>
#include <cmath>
#include <optional>

namespace kestrum {

// --- Forces --------------------------------------------------------------------------------------

std::string ForceCases::Take(std::string_view bytes, const std::string& name)
{
    std::string text;
    std::string refusal = DecodeTable(bytes, text);
    if (!refusal.empty()) {
        return name + " " + refusal;
    }
    name_ = name;
    cases_.clear();
    RecordWalk walk(text);
    ForceColumns columns;
    refusal = columns.TakeHeader(walk.Next(kAnySeparator), {});
    if (!refusal.empty()) {
        return name + ":1: " + refusal;
    }
    // Rows of a case need not be together; a search for each would take the square of the cases.
    std::unordered_map<std::string, std::unordered_map<std::string, std::size_t>> places;
    ForceRow row;
    while (!walk.done()) {
        const std::string_view record = walk.Next(columns.separator());
        const std::size_t line = walk.line();
        const std::string fault(columns.Parse(record, row));
        if (row.member.empty() || row.load_case.empty()) {
            if (record.find_first_not_of(" \t,;") != std::string_view::npos) {
                return name + ":" + std::to_string(line) + ": " +
                       (fault.empty() ? "expected a member and a case" : fault);
            }
            continue;
        }
        const std::string member(row.member);
        std::vector<CaseRows>& cases = cases_[member];
        const auto [place, fresh] =
            places[member].try_emplace(std::string(row.load_case), cases.size());
        if (fresh) {
            cases.push_back(CaseRows{place->first, line, {}, {}, {}});
        }
        CaseRows& rows = cases[place->second];
        if (!fault.empty() && rows.fault.empty()) {
            rows.fault = "line " + std::to_string(line) + ": " + fault;
        }
        rows.stations.push_back(row.at);
        rows.lines.push_back(line);
    }
    return cases_.empty() ? name + ": holds no forces" : std::string{};
}

const std::vector<CaseRows>* ForceCases::Of(std::string_view member) const
{
    const auto at = cases_.find(std::string(member));
    return at != cases_.end() ? &at->second : nullptr;
}

std::size_t ForceCases::cases() const
{
    std::size_t sum = 0;
    for (const auto& [member, cases] : cases_) {
        sum += cases.size();
    }
    return sum;
}

// --- Ratios --------------------------------------------------------------------------------------

namespace {

constexpr double kNoLimit = std::numeric_limits<double>::infinity();
constexpr bool kNotes = false;  // no column has them, and they take longer than both ratios

// A member of a line with what acts on it.
struct Line {
    HeldState member;
    std::vector<CaseRows> cases{};
    std::unique_ptr<SectionRater> rater{};
    std::string refusal{}, remarks{};
};

Line Read(const LineSource& source, std::string_view record, std::string_view name)
{
    Line line{*source.base};
    LineExtras extras;
    line.refusal =
        source.reader->Apply(*source.library, line.member, record, Assignment::checked, &extras);
    for (const Remark& remark : extras.remarks) {
        line.remarks += (line.remarks.empty() ? "" : "; ") + remark.name + ": " + remark.what;
    }
    if (!line.refusal.empty()) {
        return line;
    }
    if (source.forces == nullptr) {
        line.rater = std::make_unique<LoadRater>(*source.library, line.member, kNotes);
    } else if (const std::vector<CaseRows>* const cases = source.forces->Of(name)) {
        line.cases = *cases;
        line.rater = std::make_unique<CaseRater>(*source.library, line.member, line.cases, kNotes);
    } else {
        line.refusal =
            source.forces->name() + " has no forces of member \"" + std::string(name) + "\"";
    }
    return line;
}

std::string CheckText(const WorstCase& worst)
{
    std::string text = worst.control;
    text += worst.clause.empty() ? "" : " (" + worst.clause + ")";
    text += worst.load_case.empty() ? "" : ", case " + worst.load_case;
    return text;
}

}  // namespace

bool LineRating::passes() const
{
    const auto within = [](const WorstCase& worst) {
        return !worst.any || worst.verdict == Verdict::within;
    };
    return refusal.empty() && answer.refusal.empty() && answer.program.any &&
           within(answer.program) && within(answer.standard);
}

std::string RatioText(const LineRating& rating, bool standard)
{
    if (!rating.refusal.empty() || !rating.answer.refusal.empty()) {
        return standard ? "" : "not checked";
    }
    const WorstCase& worst = standard ? rating.answer.standard : rating.answer.program;
    if (!worst.any || worst.failed || !std::isfinite(worst.ir)) {
        return worst.any ? std::string(VerdictWord(worst.verdict)) : "";
    }
    const std::string ratio = FormatNum(worst.ir, "#0.00");
    return worst.verdict == Verdict::above ? ratio + " > limit" : ratio;
}

std::string GoverningText(const LineRating& rating)
{
    if (!rating.refusal.empty()) {
        return rating.refusal;
    }
    const WorstCase &program = rating.answer.program, &standard = rating.answer.standard;
    std::string text = !rating.answer.refusal.empty() ? rating.answer.refusal
                       : !program.message.empty()     ? program.message
                                                      : CheckText(program);
    if (standard.any && standard.verdict != program.verdict) {
        text +=
            "; EN 1993-1-1: " + (standard.message.empty() ? CheckText(standard) : standard.message);
    }
    return text;
}

LineRating RateLine(const LineSource& source, std::string_view record, std::string_view name)
{
    Line line = Read(source, record, name);
    LineRating rating{line.refusal, line.remarks};
    if (line.refusal.empty()) {
        HeldState s = line.member;
        rating.answer = line.rater->Rate(s, Bases::both, kNoLimit, true);
    }
    return rating;
}

LightestLine FindLightestLine(const LineSource& source, std::string_view record,
                              std::string_view name, const std::vector<std::string>& words)
{
    Line line = Read(source, record, name);
    SectionPool pool;
    for (const std::string& word : words) {
        if (line.refusal.empty()) {
            line.refusal = pool.Add(*source.library, word);
        }
    }
    line.refusal = line.refusal.empty() ? pool.Finish(*source.library) : line.refusal;
    if (line.refusal.empty() && !pool.Fields().empty()) {
        line.refusal = "plates have no name that a table can hold";
    }
    if (!line.refusal.empty()) {
        return {line.refusal, {}, {}};
    }
    Optimizer optimizer(*source.library, pool, {});
    std::array<SectionRater*, 1> group{line.rater.get()};
    const OptimizeAnswer answer = optimizer.Choose(group);
    if (answer.found.empty()) {
        return {answer.message.empty() ? "no section passes" : answer.message, {}, {}};
    }
    const RatedCandidate& found = answer.found.front();
    return {{}, found.name, found.steelname, found.figures.mass};
}

}  // namespace kestrum
