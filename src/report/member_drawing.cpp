#include "report/member_drawing.h"

#include "core/number_format.h"
#include "core/project_inputs.h"
#include "report/figure_tools.h"

namespace kestrum {

namespace {

constexpr double kSupport = 3.6;  // height of a support

void AddSpringText(Drawing& d, const ProjectInputs& s, Support support, double x, double y,
                   Align align)
{
    if (support == Support::spring) {
        TextMark text{{x, y}, FormatNum(1.0 * s.spring, "#0") + " %", kLabelSize};
        text.align = align;
        AddText(d, std::move(text));
    }
}

}  // namespace

void AddMember(Drawing& d, const ProjectInputs& s, double y, const MemberSpan& span,
               double dimension)
{
    const EndSupports ends = SupportsOf(s.supportcase);
    const double start = span.At(0), end = span.At(1);
    AddLine(d, {start, y}, {end, y}, Ink::member, 0.6);
    AddSupport(d, {start, y}, ends.left, -1, kSupport);
    AddSupport(d, {end, y}, ends.right, 1, kSupport);
    AddSpringText(d, s, ends.left, start - 4, y + 4, Align::right);
    AddSpringText(d, s, ends.right, end + 4, y + 4, Align::left);

    const double dim = y + dimension;
    for (const double x : {start, end}) {
        AddLine(d, {x, dim - 1.2}, {x, dim + 1.2}, Ink::faint);
    }
    const double middle = (start + end) / 2;
    const std::string length = "L = " + FormatNum(s.l, "#0.000") + " m";
    const double half = TextWidth(length, kLabelSize) / 2 + 1;
    AddArrow(d, {middle - half, dim}, {start, dim}, Ink::faint, kThin, 1.4);
    AddArrow(d, {middle + half, dim}, {end, dim}, Ink::faint, kThin, 1.4);
    TextMark text{{middle, dim + 0.35 * kLabelSize}, length, kLabelSize};
    text.align = Align::centre;
    AddText(d, std::move(text));
}

Drawing DrawMember(const ProjectState& member)
{
    const ProjectInputs& s = InputsOf(member);
    Drawing d;
    d.width = kPictureWidth;
    d.height = kMemberAbove + kMemberBelow;
    d.title = "Member";
    AddMember(d, s, kMemberAbove);
    return d;
}

}  // namespace kestrum
