#include "core/number_format.h"
#include "core/project_state.h"
#include "report/page_header.h"
#include "report/page_notes.h"
#include "report/page_standard.h"
#include "report/section_figure.h"
#include "sections/families.h"
#include "service/vortex.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kValueStop = 92;  // values end here, units follow

void PrintValue(PageWriter& page, std::string_view name, std::string_view value,
                std::string_view unit = {})
{
    page.Write(kPageLeft, name, {}, kValueStop);
    page.Write(kValueStop, value, {.align = Align::right});
    page.Write(kValueStop + 1.5, unit);
    page.Row();
}

// "  RHS ", "  CFRHS ", "  Box ", "  Tube " with dimensions.
std::string Profile(const ProjectState& s)
{
    const auto size = [](float value) { return FormatNum(value, "##0.0"); };
    const FamilyTraits& family = Traits(s);
    const std::string name = "  " + std::string(family.text) + " ";
    if (family.kind == Kind::tube) {
        return name + size(s.d) + "x" + size(s.tw);
    }
    const std::string sides = name + size(s.h) + "x" + size(s.b) + "x" + size(s.tw);
    return family.kind == Kind::box ? sides + "x" + size(s.tf) : sides;
}

std::string_view TerrainName(int terrain)
{
    const auto at = static_cast<std::size_t>(terrain);
    return terrain >= 0 && at < kTerrains.size() ? kTerrains[at].name : "";
}

void ProfileBlock(PageWriter& page, const ProjectState& s)
{
    page.Heading(kPageLeft, "Profile/Member");
    PrintValue(page, "Material: E =", FormatNum(s.e, "0.000E+0"), "MPa");
    PrintValue(page, "Profile", Profile(s), "mm");
    PrintValue(page, "Mass", FormatNum(s.weight, "#0.0"), "kg/m");
    PrintValue(page, "Iy", FormatNum(s.iy, "0.000E+0"), "mm4");
    PrintValue(page, "Strouhal number", FormatNum(s.st, "0.00"));
    PrintValue(page, "L", FormatNum(s.l, "#0.000"), "m ");
    PrintValue(page, "Natural frequency", FormatNum(s.freq[1], "#0.00"), "Hz ");
    PrintValue(page, "Member Restraint:", VortexRestraint(s));
    if (VortexSupportDiffers(s)) {
        PrintValue(page, "but the member itself:", MemberSupport(s));
    }
    page.Row(0.7);
}

void WindBlock(PageWriter& page, const ProjectState& s)
{
    page.Heading(kPageLeft, "Wind data");
    PrintValue(page, "Wind speed vb (10min, 10 m)", FormatNum(s.vb, "#0.0"), "m/s ");
    PrintValue(page, "Heigth, z", FormatNum(s.zh, "#0.0"), "m");
    PrintValue(page, "Wind speed Vm", FormatNum(s.vm, "#0.0"), "m/s ");
    PrintValue(page, "Terrain category", TerrainName(s.terrain));
    page.Row(0.7);
}

void ResultBlock(PageWriter& page, const ProjectState& s)
{
    page.Heading(kPageLeft, "Results:");
    PrintValue(page, "Critical windspeed, Vcrit", FormatNum(s.vcrit, "#0.0"), "m/s ");
    PrintValue(page, "1.25 Vm", FormatNum(1.25 * s.vm, "#0.0"), "m/s ");
    const double x = page.Write(kPageLeft, "Control eq E.1: Vcrit >= 1.25Vm");
    page.Write(x + 2, VortexVerdict(s),
               {.bold = true, .ink = VortexAccepted(s) ? Ink::good : Ink::bad});
    page.Row();
}

}  // namespace

PrintedReport PrintVortex(const Library& library, const ProjectState& s, const PrintStamp& stamp,
                          const standard::StandardResult* known)
{
    constexpr double kFigure = 80;
    const std::string title = "Vortex shedding";
    PageWriter page(title);
    PageHeader(page, library, s, stamp, kVortexTitle);
    const Drawing figure = DrawSection(s);
    const double bottom = page.y() + kFigure + kPageRow;
    page.Picture(figure, {kPageRight - kFigure, page.y()}, kFigure / kSectionPicture);
    ProfileBlock(page, s);
    WindBlock(page, s);
    ResultBlock(page, s);
    page.MoveTo(std::max(page.y(), bottom));
    const auto next = [&] {
        PageWriter further(title);
        PageHeader(further, library, s, stamp, kVortexTitle);
        return further;
    };
    return WithNotes(std::move(page), DesignNotes(s),
                     RatiosText(library, s, OutcomeOf(s, true), known), next);
}

}  // namespace kestrum
