#include "report/page_standard.h"

#include "core/held_state.h"
#include "engine/calculate.h"
#include "report/page_header.h"
#include "report/standard_text.h"
#include "standard/costs.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr TextStyle kLineStyle{.size = kPageSmallText};
constexpr double kSpaceAbove = 0.4;  // rows

std::string Numbered(const CostLine& line)
{
    return std::string(line.id) + "  " + line.cost;
}

constexpr std::string_view kOthers = "In checks that do not govern: ";
constexpr std::string_view kCostsHead =
    "Deviations from EN 1993-1-1 that act, with what each alone adds to its ratio:";
constexpr std::string_view kBriefHead = "Deviations from EN 1993-1-1 that act (theory manual, "
                                        "chapter 14), with what each alone adds: ";
constexpr std::string_view kNoCostsHead = "To the result by EN 1993-1-1 as written:";

// What is said beside the costs.
void AddRest(NoteList& list, const standard::StandardResult& result, const Outcome& outcome)
{
    if (result.rated && result.deviations.empty()) {
        list.Add("", NoCostsText(result, outcome));
    }
    for (const std::string& reason : result.outside) {
        if (result.rated) {
            list.Add("", "Not as written: " + reason);
        }
    }
    if (result.vibration) {
        list.Add("", FrequenciesText(result));
    }
}

NoteList WholeOf(const CostList& costs, const standard::StandardResult& result,
                 const Outcome& outcome)
{
    constexpr double kGap = 2;  // mm behind number and cost
    double numbers = 0;
    for (const CostLine& line : costs.lines) {
        numbers = std::max(numbers, TextWidth(Numbered(line), kPageSmallText, true) + kGap);
    }
    NoteList list{numbers > 0 ? kCostsHead : kNoCostsHead, kPageLeft + numbers};
    for (const CostLine& line : costs.lines) {
        list.Add(Numbered(line), line.text);
    }
    if (!costs.others.empty()) {
        list.Add("", std::string(kOthers) + costs.others);
    }
    AddRest(list, result, outcome);
    return list;
}

NoteList BriefOf(const CostList& costs, const standard::StandardResult& result,
                 const Outcome& outcome)
{
    NoteList list{"", kPageLeft};
    std::string text;
    for (const CostLine& line : costs.lines) {
        text += (text.empty() ? std::string(kBriefHead) : ", ") + Numbered(line);
    }
    if (!costs.others.empty()) {
        text += (text.empty() ? "" : ". ") + std::string(kOthers) + costs.others;
    }
    if (!text.empty()) {
        list.Add("", text);
    }
    AddRest(list, result, outcome);
    return list;
}

std::string LineOf(const standard::StandardResult& result, const Outcome& outcome)
{
    return "Program: " + ProgramWords(outcome) +
           ".  By EN 1993-1-1 as written: " + StandardWords(result) +
           (VerdictsDiffer(result, outcome) ? ". The two verdicts differ." : "");
}

}  // namespace

std::string RatiosText(const Library& library, const ProjectState& s, const Outcome& outcome,
                       const standard::StandardResult* known)
{
    return LineOf(known != nullptr ? *known : standard::CalculateStandard(library, AsGiven(s)),
                  outcome);
}

PrintedReport WithNotes(PageWriter page, const std::vector<DesignNote>& notes, std::string line,
                        const std::function<PageWriter()>& next)
{
    const NoteList list = ListOf(notes);
    std::vector<PageWriter> pages;
    pages.push_back(std::move(page));
    constexpr double kLeast = 3;  // rows
    std::size_t at = 0;
    if (pages.back().Room() > kLeast * kPageRow) {
        at = PrintNotes(pages.back(), list, 0);
    }
    const double rows = kSpaceAbove + static_cast<double>(RowsOf(line, kLineStyle)) - 1;
    while (at < list.lines.size() || pages.back().Room() < rows * kPageRow) {
        pages.push_back(next());
        at = PrintNotes(pages.back(), list, at);
    }
    pages.back().Row(kSpaceAbove);
    PrintWrapped(pages.back(), line, kLineStyle);
    return Bind(std::move(pages));
}

StandardPart::StandardPart(const Library& library, const ProjectState& s, const Outcome& outcome,
                           const standard::StandardResult* known)
    : list_{}, brief_{}
{
    standard::StandardResult own;
    if (known == nullptr) {
        const HeldState given = AsGiven(s);
        own = standard::CalculateStandard(library, given);
        standard::CalculateCosts(library, given, &s, own);
    }
    const standard::StandardResult& result = known != nullptr ? *known : own;
    line_ = LineOf(result, outcome);
    const CostList costs = CostsOf(result);
    list_ = WholeOf(costs, result, outcome);
    brief_ = BriefOf(costs, result, outcome);
}

void StandardPart::PrintLine(PageWriter& page)
{
    page.Row(kSpaceAbove);
    PrintWrapped(page, line_, kLineStyle);
    line_.clear();
}

void StandardPart::Print(PageWriter& page, Costs costs)
{
    PrintLine(page);
    if (costs == Costs::whole) {
        next_ = PrintNotes(page, list_, 0);
    } else if (PrintNotes(page, brief_, 0) == brief_.lines.size()) {
        next_ = list_.lines.size();
    }
}

void StandardPart::PrintLineIfRoom(PageWriter& page)
{
    const double rows = kSpaceAbove + static_cast<double>(RowsOf(line_, kLineStyle)) - 1;
    if (page.Room() >= rows * kPageRow) {
        PrintLine(page);
    }
}

void StandardPart::PrintRest(PageWriter& page)
{
    if (page.Room() >= 0 && !line_.empty()) {
        PrintLine(page);
    }
    if (line_.empty() && page.Room() >= 2 * kPageRow) {
        next_ = PrintNotes(page, list_, next_);
    }
}

}  // namespace kestrum
