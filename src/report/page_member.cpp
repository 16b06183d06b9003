#include "report/page_member.h"

#include "core/annexes.h"
#include "core/member_choices.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/member_drawing.h"
#include "report/page_header.h"
#include "report/page_loading.h"
#include "report/page_quantities.h"
#include "report/page_writer.h"
#include "sections/families.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kGap = 3;  // mm between columns

std::string Whole(i16 value)
{
    return FormatNum(static_cast<float>(value), "#0");
}

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

}  // namespace

bool HasSprings(const ProjectState& s)
{
    return s.supportcase == SupportCase::springs || s.supportcase == SupportCase::pinned_spring;
}

void PrintGeneral(PageWriter& page, const ProjectState& s)
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

void PrintProfile(PageWriter& page, const Library& library, const ProjectState& s)
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

void PrintMember(PageWriter& page, const ProjectState& s, bool low)
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

}  // namespace kestrum
