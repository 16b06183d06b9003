#include "report/page_stability.h"

#include "core/number_format.h"
#include "core/project_state.h"
#include "report/page_quantities.h"
#include "report/page_writer.h"
#include "report/panel.h"
#include "report/stages.h"
#include "sections/families.h"
#include "stability/buckling_rows.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kestrum {

namespace {

constexpr std::string_view kNotApplicable = "N/A";
constexpr double kBetween = 12;  // mm, from the table to the middle of the page

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
    page.Write(left, "Number of lateral restraint of compression flange: " +
                         std::to_string(s.restraints));
    page.Row();
    if (run.lateral) {
        page.Write(left, "Mcr = " + FormatNum(s.mcr / 1e6, "#0.0") +  // Nmm to kNm
                             " kNm    Slenderness = " + FormatNum(s.lamlt, "0.000"));
        page.Row();
    }
}

}  // namespace

void PrintStability(PageWriter& page, const ProjectState& s)
{
    const bool axial = HasBuckleBlock(s.family) && !Is(s, Kind::plate);
    const double top = page.y();
    double bottom = top;
    if (axial) {
        BucklingTable(page, s, kPageMiddle - kBetween);
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

}  // namespace kestrum
