#include "core/annexes.h"
#include "core/member_choices.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/member_drawing.h"
#include "report/page_diagrams.h"
#include "report/page_header.h"
#include "report/page_loading.h"
#include "report/page_notes.h"
#include "report/page_quantities.h"
#include "report/page_standard.h"
#include "report/panel.h"
#include "report/stages.h"
#include "sections/families.h"
#include "service/modal.h"
#include "stability/buckling_rows.h"

#include <algorithm>
#include <utility>

namespace kestrum {

namespace {

bool HasSprings(const ProjectState& s)
{
    return s.supportcase == SupportCase::springs || s.supportcase == SupportCase::pinned_spring;
}

constexpr double kGap = 3;  // mm between columns
constexpr std::string_view kNotApplicable = "N/A";

std::string Whole(i16 value)
{
    return FormatNum(static_cast<float>(value), "#0");
}

// --- General ------------------------------------------------------------------------------------

// The class that the load factors of the annex depend on; empty where they depend on none.
std::string ClassLine(const ProjectState& s)
{
    const std::string name(AnnexClassName(s.annexindex));
    if (name.empty()) {
        return {};
    }
    const bool two = s.annexindex == kAnnexNo;  // Norway tells two kinds of classes apart
    return name + ": " + (two ? s.safetyclass == 1 ? "1" : "2-4" : Whole(s.safetyclass));
}

std::string_view PlateBucklingText(const ProjectState& s)
{
    if (s.checkflangebuck != kFalse && s.checkwebbuck != kFalse) {
        return " Flange/Web buckling not taken into account";
    }
    if (s.checkwebbuck != kFalse) {
        return " Web buckling not taken into account";
    }
    return s.checkflangebuck != kFalse ? " Flange buckling not taken into account" : "";
}

void General(PageWriter& page, const ProjectState& s)
{
    double x = page.Write(kPageLeft, "General: ", {.bold = true, .size = kPageHeading});
    x = page.Write(x + kGap, "Material: ");
    x = page.Write(x, "fy = " + FormatNum(s.fyk, "###") +
                          " MPa    E = " + FormatNum(s.e, "0.000E+0") + " MPa    ");
    const std::string cls = ClassLine(s);
    x = page.Write(x, cls.empty() ? cls : cls + "    ");
    page.Write(x, "gm0/gm1 =" + FormatNum(s.gammam0, "#.00") + "/" + FormatNum(s.gammam1, "#.00"));
    page.Row();
    x = kPageLeft;
    if (s.checkelastic != kFalse) {
        x = page.Write(x, "Cross Section Class 1-2: ");
        x = page.Write(x, "Elastic design   ");
    }
    const double end = page.Write(x, PlateBucklingText(s));
    if (end > kPageLeft) {
        page.Row();
    }
    page.Row(kPageSpace);
}

// --- Profile ------------------------------------------------------------------------------------

// "h=75  b=75  t=6.0 (mm)  alfa=45.0 deg": the unit of the lengths once, behind the last of them.
std::string Joined(const std::vector<Quantity>& quantities)
{
    constexpr std::string_view kLength = "mm";
    std::string lengths, others;
    for (const Quantity& quantity : quantities) {
        const bool length = quantity.unit == kLength;
        std::string& text = length ? lengths : others;
        text += text.empty() ? "" : "  ";
        text += quantity.symbol + "=" + quantity.value + (length ? "" : " " + quantity.unit);
    }
    lengths += lengths.empty() ? "" : " (mm)";
    return lengths + (lengths.empty() || others.empty() ? "" : "  ") + others;
}

void ShortProfile(PageWriter& page, const Library& library, const ProjectState& s)
{
    double x = page.Write(kPageLeft, Is(s, Kind::general) ? "Identification: " : "Profile: ",
                          {.bold = true, .size = kPageHeading});
    x = page.Write(x, ProfileText(library, s, true), {.bold = true, .size = kPageHeading});
    const std::string sizes = Joined(DimensionsOf(s));
    if (!sizes.empty()) {
        const bool beside = x + kGap + TextWidth(sizes, kPageText) <= kPageRight;
        if (!beside) {
            page.Row();
        }
        page.Write(beside ? x + kGap : kPageLeft, sizes);
    }
    page.Row();
    const bool plate = Traits(s).lists.stiffener_iz;
    x = page.Write(kPageLeft, "A = " + FormatNum(s.a, "#0") +
                                  " mm2    Iy = " + FormatNum(s.iy, "0.000E+0") +
                                  " mm4    Iz = " + FormatNum(s.iz, "0.000E+0") + " mm4" +
                                  (plate ? " (profile)" : "") +
                                  "    G = " + FormatNum(s.weight, "#0.0") + " kg/m    ");
    page.Write(x, std::string(ClassHeading(s)) + ClassText(s));
    page.Row();
    page.Row(kPageSpace);
}

// --- Geometry and loading -----------------------------------------------------------------------

void Geometry(PageWriter& page, const ProjectState& s, double right)
{
    page.WriteBold(kPageLeft, "Geometry/Loading:", right);
    const Drawing member = DrawMember(s);
    const double scale = std::min(1.0, (right - kPageLeft) / member.width);
    page.Picture(member, {kPageLeft, page.y() + 1}, scale);
    page.MoveTo(page.y() + 1 + member.height * scale + kPageRow);
    if (HasSprings(s)) {
        page.Write(kPageLeft,
                   "Spring restraint: " + FormatNum(static_cast<float>(s.spring), "00") + "%", {},
                   right);
        page.Row();
    }
    page.Write(kPageLeft, std::string("End Supports: ") + (s.endstiff == 1 ? "Rigid" : "Non-rigid"),
               {}, right);
    page.Row();
    if (s.webstiff == 1) {
        page.Write(kPageLeft, "Web stiffener: c/c " + FormatNum(s.webstiffa, "##0 mm"), {}, right);
        page.Row();
    }
}

void GeometryAndLoading(PageWriter& page, const ProjectState& s, bool low)
{
    const double top = page.y();
    Geometry(page, s, kPageMiddle - kGap);
    if (s.loadmode == 1) {
        PrintLoadOptions(page, s, kPageLeft, kPageMiddle - kGap);
    }
    const bool beside = s.loadmode == 1 && CombinationWidth(s) <= kPageMiddle - kGap - kPageLeft;
    if (beside) {
        PrintCombination(page, s);
    }
    const double below_geometry = page.y();
    page.MoveTo(top);
    if (s.loadmode == 1) {
        page.WriteBold(kPageMiddle, "Loading/Moment: (kN/kNm/m)");
        page.Row();
        PrintLoading(page, s, kPageMiddle, kPageRight, low);
    } else {
        PrintEndForces(page, s, kPageMiddle, kPageRight);
    }
    page.MoveTo(std::max(page.y(), below_geometry));
    if (s.loadmode == 1 && !beside) {
        PrintCombination(page, s);
    }
    page.Row(kPageSpace);
}

// --- Buckling parameters ------------------------------------------------------------------------

struct AxisBuckling {
    bool buckles;
    float factor;
    Literal curve;
    double slenderness, reduction, critical, resistance;
};

void BucklingTable(PageWriter& page, const ProjectState& s, double right)
{
    const bool angle = Is(s, Kind::angle);
    const bool ran = StagesOf(s).axial;
    const AxisBuckling first =
        angle
            ? AxisBuckling{ran && BucklesAboutY(s), s.ly, s.curvez, s.lamu, s.chiu, s.ncru, s.nburd}
            : AxisBuckling{
                  ran && BucklesAboutY(s), s.ly, s.curvey, s.lamy, s.chiy, s.ncry, s.nbyrd};
    const AxisBuckling second =
        angle
            ? AxisBuckling{ran && BucklesAboutZ(s), s.lz, s.curvez, s.lamv, s.chiv, s.ncrv, s.nbvrd}
            : AxisBuckling{
                  ran && BucklesAboutZ(s), s.lz, s.curvez, s.lamz, s.chiz, s.ncrz, s.nbzrd};

    const double stop1 = kPageLeft + 0.68 * (right - kPageLeft);
    const auto row = [&](std::string_view name, std::string_view one, std::string_view two,
                         bool bold = false) {
        page.Write(kPageLeft, name, {.bold = bold}, stop1);
        page.Write(stop1, one, {.bold = bold, .align = Align::right});
        page.Write(right, two, {.bold = bold, .align = Align::right});
        page.Row();
    };
    const auto values = [&](std::string_view name, double AxisBuckling::*value,
                            std::string_view pattern) {
        const auto text = [&](const AxisBuckling& axis) {
            return axis.buckles ? FormatNum(axis.*value, pattern) : std::string(kNotApplicable);
        };
        row(name, text(first), text(second));
    };
    // British channels have none on a first run (D205).
    const auto curve = [](const AxisBuckling& axis) {
        return !axis.buckles ? kNotApplicable : axis.curve.empty() ? "none" : axis.curve.text();
    };
    row("Buckling parameters:", angle ? "U-axis" : "Y-axis", angle ? "V-axis" : "Z-axis", true);
    row("Buckling length factor", FormatNum(first.factor, "0.00#"),
        FormatNum(second.factor, "0.00#"));
    row("Buckling Curve", curve(first), curve(second));
    values("Slenderness", &AxisBuckling::slenderness, "0.000");
    values("Reduction factor", &AxisBuckling::reduction, "0.000");
    values("Ncr (kN)", &AxisBuckling::critical, "#0.0");
    values("Nb,Rd (kN)", &AxisBuckling::resistance, "#0.0");
}

void LateralParameters(PageWriter& page, const ProjectState& s, double left)
{
    const StagesRun run = StagesOf(s);
    page.WriteBold(left, "Lateral buckling parameters:");
    page.Row();
    page.Write(left, "Lateral torsional buckling length factor, k = " + FormatNum(s.ltbk, "0.00#"));
    page.Row();
    page.Write(left, "Mb,Rd = " + (run.lateral ? FormatNum(s.xlt * s.mltrd, "#0.0") + " kNm"
                                               : std::string(kNotApplicable)));
    page.Row();
    page.Write(left, "Number of lateral restraint of compression flange: " + Whole(s.restraints));
    page.Row();
    if (run.lateral) {
        page.Write(left, "Mcr = " + FormatNum(s.mcr / 1e6, "#0.0") +  // Nmm to kNm
                             " kNm    Slenderness = " + FormatNum(s.lamlt, "0.000"));
        page.Row();
    }
}

void StabilityParameters(PageWriter& page, const ProjectState& s)
{
    const bool axial = HasBuckleBlock(s.family) && !Is(s, Kind::plate);
    const double top = page.y();
    double bottom = top;
    if (axial) {
        BucklingTable(page, s, kPageMiddle - 4 * kGap);
        bottom = page.y();
    }
    page.MoveTo(top);
    const double left = axial ? kPageMiddle : kPageLeft;
    if (s.ltb != 0) {
        LateralParameters(page, s, left);
    } else if (LateralBucklingLeftOut(s)) {
        page.WriteBold(left, "Lateral torsional buckling: not checked");
        page.Row();
    }
    bottom = std::max(bottom, page.y());
    page.MoveTo(bottom);
    if (bottom > top) {
        page.Row(kPageSpace);
    }
}

// --- Results ------------------------------------------------------------------------------------

// On paper a ratio above its limit says so in words.
std::string Worded(const TextRun& run)
{
    return run.text + std::string(AboveWord(run.colour));
}

double WidthOf(const std::vector<TextRun>& runs, double size)
{
    double width = 0;
    for (const TextRun& run : runs) {
        width += TextWidth(Worded(run), size, run.bold);
    }
    return width;
}

void WriteRuns(PageWriter& page, double x, const std::vector<TextRun>& runs, double size)
{
    for (const TextRun& run : runs) {
        const Ink ink = run.colour == kWithin  ? Ink::good
                        : run.colour == kAbove ? Ink::bad
                                               : Ink::text;
        x = page.Write(x, Worded(run),
                       {.bold = run.bold, .underline = run.underline, .ink = ink, .size = size});
    }
}

// The ratios of a block stand in one column. A block that is too wide for the page gets smaller
// text first; then what would pass the edge moves to the left, or onto a line of its own.
void ResultBlock(PageWriter& page, const PanelBlock& block)
{
    constexpr double kColumnGap = 1.5;
    constexpr double kRight = kPageRight - 0.1;  // widths are sums; none must end beyond the edge
    constexpr double kFull = kRight - kPageLeft;
    const auto column = [&](double size) {
        double widest = kLeastColumn;
        for (const PanelLine& line : block) {
            if (!line.result.empty()) {
                widest = std::max(widest, WidthOf(line.left, size));
            }
        }
        return widest + kColumnGap;
    };
    const auto width = [&](double size) {
        double widest = 0;
        for (const PanelLine& line : block) {
            widest = std::max(widest, WidthOf(line.result, size));
        }
        return column(size) + widest;
    };
    const double size = width(kPageText) <= kFull ? kPageText : kPageSmallText;
    double before = block.front().y;
    for (const PanelLine& line : block) {
        page.Row(line.y - before);
        before = line.y;
        WriteRuns(page, kPageLeft, line.left, size);
        if (line.result.empty()) {
            continue;
        }
        const double x = std::min(kPageLeft + column(size), kRight - WidthOf(line.result, size));
        if (x < kPageLeft + WidthOf(line.left, size) + kColumnGap / 2) {
            page.Row();
        }
        WriteRuns(page, x, line.result, size);
    }
    page.Row(1.2);
}

void Results(PageWriter& page, const ProjectState& s)
{
    for (const PanelBlock& block : ShowResults(s, true)) {
        ResultBlock(page, block);
    }
    page.Row(kPageSpace / 2);
}

void Modal(PageWriter& page, const ProjectState& s)
{
    if (s.modal != 1) {
        return;
    }
    const double x = page.WriteBold(kPageLeft, "Modal analysis:");
    page.Write(x, " (Selfweigth + q-loads)");
    page.Row();
    if (HasSprings(s)) {
        page.Write(kPageLeft, " Modal analysis not possible for spring supports ");
        page.Row();
        return;
    }
    double at = page.Write(kPageLeft, "Mass m = " + FormatNum(s.modalmass, "#0") + " kg/m");
    for (int mode = 1; mode <= 3; ++mode) {
        at = page.Write(at + 2 * kGap, ModeText(s, mode));
    }
    page.Row();
}

// --- Pages --------------------------------------------------------------------------------------

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
    StabilityParameters(page, control.s);
    Results(page, control.s);
    Modal(page, control.s);
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
    General(page, control.s);
    ShortProfile(page, control.library, control.s);
    GeometryAndLoading(page, control.s, plan.low);
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
