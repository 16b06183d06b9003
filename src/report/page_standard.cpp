#include "report/page_standard.h"

#include "core/project_state.h"
#include "engine/calculate.h"
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

NoteList ListOf(const standard::StandardResult& result, const Outcome& outcome)
{
    constexpr double kGap = 2;  // mm behind number and cost
    const CostList costs = CostsOf(result);
    double numbers = 0;
    for (const CostLine& line : costs.lines) {
        numbers = std::max(numbers, TextWidth(Numbered(line), kPageSmallText, true) + kGap);
    }
    NoteList list{numbers > 0
                      ? "Deviations from EN 1993-1-1 that act, with what each alone adds to its "
                        "ratio:"
                      : "To the result by EN 1993-1-1 as written:",
                  kPageLeft + numbers};
    for (const CostLine& line : costs.lines) {
        list.Add(Numbered(line), line.text);
    }
    if (!costs.others.empty()) {
        list.Add("", "In checks that do not govern: " + costs.others);
    }
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
    return list;
}

}  // namespace

StandardPart::StandardPart(const Library& library, const ProjectState& s, const Outcome& outcome)
    : list_{}
{
    const ProjectState given = AsGiven(s);
    standard::StandardResult result = standard::CalculateStandard(library, given);
    standard::CalculateCosts(library, given, &s, result);
    line_ = "Program: " + ProgramWords(outcome) +
            ".  By EN 1993-1-1 as written: " + StandardWords(result) +
            (VerdictsDiffer(result, outcome) ? ". The two verdicts differ." : "");
    list_ = ListOf(result, outcome);
}

void StandardPart::PrintLine(PageWriter& page)
{
    page.Row(kSpaceAbove);
    PrintWrapped(page, line_, kLineStyle);
    line_.clear();
}

void StandardPart::PrintIfRoom(PageWriter& page, bool list)
{
    const double rows = kSpaceAbove + static_cast<double>(RowsOf(line_, kLineStyle)) - 1;
    if (page.Room() < rows * kPageRow) {
        return;
    }
    PrintLine(page);
    if (list && page.Room() >= list_.Height() - kPageRow) {
        next_ = PrintNotes(page, list_, 0);
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
