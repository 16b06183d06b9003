#include "core/number_format.h"
#include "core/project_state.h"
#include "report/page_header.h"
#include "report/page_notes.h"
#include "report/page_quantities.h"
#include "report/page_standard.h"
#include "report/section_figure.h"
#include "sections/families.h"

#include <algorithm>

namespace kestrum {

namespace {

void MaterialRow(PageWriter& page, const ProjectState& s)
{
    constexpr double kGap = 3;
    const double head = page.Write(kPageLeft, "Material: ", {.bold = true, .size = kPageHeading});
    const Quantity values[] = {{"fy", FormatNum(s.fyk, "###"), "MPa"},
                               {"fd", FormatNum(s.fyd, "##.0"), "MPa"},
                               {"E", FormatNum(s.e, "0.000E+0"), "MPa"},
                               {"gm0", FormatNum(s.gammam0, "#.00"), ""}};
    page.Quantities(values, 4, head + kGap, kPageRight);
    page.Row(0.7);
}

}  // namespace

PrintedReport PrintProperties(const Library& library, const ProjectState& s,
                              const PrintStamp& stamp, const standard::StandardResult* known)
{
    constexpr double kFigure = 88;  // width and height of the section's picture on the page
    const std::string title = "Section property and capacity";
    PageWriter page(title);
    PageHeader(page, library, s, stamp, kDesignTitle);
    MaterialRow(page, s);

    const double name =
        page.Write(kPageLeft, Is(s, Kind::general) ? "Identification:  " : "Profile: ",
                   {.bold = true, .size = kPageHeading});
    page.Write(name + 1.5, ProfileText(library, s, false), {.bold = true, .size = kPageHeading});
    page.Row(1.4);

    const double top = page.y();
    const Drawing figure = DrawSection(s);
    page.Picture(figure, {kPageRight - kFigure, top - kPageRow}, kFigure / kSectionPicture);

    const double right = kPageRight - kFigure - 4;
    page.Heading(kPageLeft, "Dimensions and weight:");
    page.Quantities(DimensionsOf(s), 2, kPageLeft, right);
    page.Row(0.3);
    page.Quantities(WeightsOf(s), 2, kPageLeft, right);
    page.Row(0.7);
    page.Heading(kPageLeft, "Section property:");
    page.Quantities(SectionPropertiesOf(s), 2, kPageLeft, right);
    page.Row(0.7);
    page.Heading(kPageLeft, "Capacity:");
    const double cls = page.Write(kPageLeft, ClassHeading(s));
    page.Write(cls, ClassText(s));
    page.Row();
    page.Quantities(CapacitiesOf(s), 2, kPageLeft, right);
    for (const std::string& line : MomentSidesText(s)) {
        page.Write(kPageLeft, line, {.size = kPageSmallText}, right);
        page.Row();
    }
    page.MoveTo(std::max(page.y(), top + kFigure));
    const auto next = [&] {
        PageWriter further(title);
        PageHeader(further, library, s, stamp, kDesignTitle);
        return further;
    };
    return WithNotes(std::move(page), DesignNotes(s),
                     RatiosText(library, s, OutcomeOf(s, true), known), next);
}

}  // namespace kestrum
