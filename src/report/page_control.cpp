#include "core/project_state.h"
#include "report/page_diagrams.h"
#include "report/page_header.h"
#include "report/page_member.h"
#include "report/page_notes.h"
#include "report/page_results.h"
#include "report/page_stability.h"
#include "report/page_standard.h"

#include <utility>

namespace kestrum {

namespace {

// What stands on the first page; the rest goes on further ones.
struct Plan {
    bool low;  // saves height for the figures
    bool notes;
    Costs costs;
    Figures figures;
    Legibility least;
};

// From the most comfortable to the one that always fits.
constexpr Plan kPlans[] = {{false, true, Costs::whole, Figures::all, Legibility::good},
                           {true, true, Costs::whole, Figures::all, Legibility::good},
                           {true, true, Costs::brief, Figures::all, Legibility::good},
                           {true, true, Costs::whole, Figures::all, Legibility::small},
                           {true, true, Costs::brief, Figures::all, Legibility::small},
                           {true, true, Costs::elsewhere, Figures::all, Legibility::small},
                           {true, false, Costs::elsewhere, Figures::all, Legibility::small},
                           {true, false, Costs::elsewhere, Figures::diagrams, Legibility::small},
                           {true, false, Costs::elsewhere, Figures::none, Legibility::none}};

struct Control {
    const Library& library;
    const ProjectState& s;
    const PrintStamp& stamp;
    Outcome outcome;
    std::vector<DesignNote> notes;
    NoteList list;  // of the notes
    StandardPart standard;
};

// `standard` is printed as far as the plan has it here.
void BelowFigures(PageWriter& page, const Control& control, const Plan& plan,
                  StandardPart& standard)
{
    PrintStability(page, control.s);
    PrintResults(page, control.s);
    PrintModal(page, control.s);
    PrintVerdict(page, control.outcome);
    if (plan.notes) {
        PrintNotes(page, control.list, 0);
    } else if (!control.notes.empty()) {
        page.WriteBold(kPageLeft, NoteNumbers(control.notes) + " (page 2)");
        page.Row();
    }
    if (plan.costs != Costs::elsewhere) {
        standard.Print(page, plan.costs);
    }
}

// Height of what stands below the figures, to the base line of its last row.
double HeightBelow(const Control& control, const Plan& plan)
{
    constexpr double kSafety = 0.1;   // mm
    constexpr double kLastRow = 0.9;  // of a list
    PageWriter trial("");
    StandardPart standard = control.standard;
    const double top = trial.y();
    BelowFigures(trial, control, plan, standard);
    return trial.y() - top - kLastRow * kPageRow + kSafety;
}

void PointToPage2(PageWriter& page, Figures printed)
{
    if (printed != Figures::all) {
        page.Write(kPageLeft, printed == Figures::diagrams
                                  ? "Figures of the loads: page 2"
                                  : "Figures of the loads, diagrams: page 2");
        page.Row(1 + kPageSpace);
    }
}

// The first page. False where the figures come out smaller than planned.
bool WriteFirst(PageWriter& page, const Control& control, const Plan& plan, StandardPart& standard)
{
    PageHeader(page, control.library, control.s, control.stamp, kDesignTitle);
    PrintGeneral(page, control.s);
    PrintProfile(page, control.library, control.s);
    PrintMember(page, control.s, plan.low);
    PointToPage2(page, plan.figures);
    if (plan.figures != Figures::none) {
        const Legibility reached =
            PrintFigures(page, control.s, plan.figures, HeightBelow(control, plan));
        if (reached > plan.least) {
            return false;
        }
    }
    BelowFigures(page, control, plan, standard);
    return true;
}

// What the first page does not hold.
void WriteFurther(std::vector<PageWriter>& pages, const std::string& title, const Control& control,
                  const Plan& plan, StandardPart& standard)
{
    const Figures left = plan.figures == Figures::all        ? Figures::none
                         : plan.figures == Figures::diagrams ? Figures::loads
                                                             : Figures::all;
    const std::size_t lines = control.list.lines.size();
    std::size_t line = plan.notes ? lines : 0;
    bool figures = left != Figures::none;
    while (figures || line < lines || !standard.done()) {
        PageWriter& page = pages.emplace_back(title);
        PageHeader(page, control.library, control.s, control.stamp, kDesignTitle);
        if (figures && PrintFigures(page, control.s, left, 0) == Legibility::none) {
            page.Miss("figures of the loads");
        }
        figures = false;
        line = PrintNotes(page, control.list, line);
        if (line == lines) {
            standard.PrintRest(page);
        }
    }
}

}  // namespace

PrintedReport PrintControl(const Library& library, const ProjectState& s, const PrintStamp& stamp,
                           const standard::StandardResult* known)
{
    const std::string title = "Section and stability control";
    std::vector<DesignNote> notes = DesignNotes(s);
    NoteList list = ListOf(notes);
    const Outcome outcome = OutcomeOf(s, true);
    const Control control{library,
                          s,
                          stamp,
                          outcome,
                          std::move(notes),
                          std::move(list),
                          StandardPart(library, s, outcome, known)};
    std::vector<PageWriter> pages;
    for (const Plan& plan : kPlans) {
        PageWriter page(title);
        StandardPart standard = control.standard;
        if (WriteFirst(page, control, plan, standard)) {
            if (plan.costs == Costs::elsewhere) {
                standard.PrintLineIfRoom(page);
            }
            pages.push_back(std::move(page));
            WriteFurther(pages, title, control, plan, standard);
            break;
        }
    }
    return Bind(std::move(pages));
}

}  // namespace kestrum
