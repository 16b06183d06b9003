#include "report/page_diagrams.h"

#include "report/diagrams.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

constexpr double kGap = 5;         // between columns, units of the diagrams
constexpr double kHead = 5;        // for the name of an axis
constexpr double kHighestGap = 1;  // empty band across a picture
constexpr double kPoint = 25.4 / 72;

// The smallest texts of the diagrams have 7 points where that can be had, and never less than 6.
constexpr double kGoodScale = 7 * kPoint / kLabelSize;
constexpr double kSmallestScale = 6 * kPoint / kLabelSize;

// Moves marks up so that no empty band across the picture is higher than allowed. The marks stay in
// their order: later ones cover earlier ones.
Drawing WithoutGaps(Drawing picture)
{
    struct Extent {
        double top, bottom;
        std::size_t mark;
    };
    std::vector<Extent> extents;
    for (const Mark& mark : picture.marks) {
        const Bounds bounds = BoundsOf(mark);
        extents.push_back({bounds.top, bounds.bottom, extents.size()});
    }
    std::stable_sort(extents.begin(), extents.end(),
                     [](const Extent& one, const Extent& other) { return one.top < other.top; });
    std::vector<double> lifts(extents.size());
    double reached = extents.empty() ? 0 : extents.front().top;
    double lift = 0;
    for (const Extent& extent : extents) {
        lift += std::max(0.0, extent.top - reached - kHighestGap);
        reached = std::max(reached, extent.bottom);
        lifts[extent.mark] = lift;
    }
    Drawing close;
    for (std::size_t i = 0; i < lifts.size(); ++i) {
        Drawing one;
        one.marks.push_back(std::move(picture.marks[i]));
        Place(close, one, {0, -lifts[i]});
    }
    return close;
}

// Two columns with the same top, without the empty margins of their pictures.
Drawing SideBySide(const Drawing& left, const Drawing& right)
{
    const Bounds one = BoundsOf(left), other = BoundsOf(right);
    Drawing both;
    Place(both, left, {-one.left, 0});
    Place(both, right, {one.right - one.left + kGap - other.left, 0});
    return both;
}

// The name of an axis, its base line above `top`.
void AddHead(Drawing& column, std::string_view head, double top)
{
    constexpr double kAbove = 1.5;
    TextMark text{{BoundsOf(column).left, top - kAbove}, std::string(head), kHeadingSize};
    text.bold = true;
    column.marks.emplace_back(std::move(text));
}

struct Pictures {
    AxisPictures z, y;
};

// One column for each axis, the loads above the diagrams. The members of both stand at one height.
Drawing LoadsAbove(const Pictures& pictures, bool loads)
{
    const double below =
        kHead + (loads ? std::max(pictures.z.load.height, pictures.y.load.height) : 0);
    const auto column = [&](const AxisPictures& axis, std::string_view head) {
        Drawing drawing;
        if (loads) {
            Place(drawing, axis.load, {0, below - axis.load.height});
        }
        Place(drawing, axis.moment, {0, below});
        AddHead(drawing, head, kHead);
        return drawing;
    };
    return WithoutGaps(SideBySide(column(pictures.z, "Z-axis"), column(pictures.y, "Y-axis")));
}

// The loads of both axes in one column, their diagrams in another: lower than the other arrangement
// where one axis has many loads and the other has few.
Drawing LoadsBeside(const Pictures& pictures)
{
    const auto column = [&](const Drawing& z, const Drawing& y) {
        Drawing drawing;
        const double second = kHead + z.height + kHead;
        Place(drawing, z, {0, kHead});
        Place(drawing, y, {0, second});
        AddHead(drawing, "Z-axis", kHead);
        AddHead(drawing, "Y-axis", second);
        return WithoutGaps(drawing);
    };
    return SideBySide(column(pictures.z.load, pictures.y.load),
                      column(pictures.z.moment, pictures.y.moment));
}

Drawing LoadsOnly(const Pictures& pictures)
{
    const double below = kHead + std::max(pictures.z.load.height, pictures.y.load.height);
    const auto column = [&](const Drawing& load, std::string_view head) {
        Drawing drawing;
        Place(drawing, load, {0, below - load.height});
        AddHead(drawing, head, kHead);
        return drawing;
    };
    return WithoutGaps(
        SideBySide(column(pictures.z.load, "Z-axis"), column(pictures.y.load, "Y-axis")));
}

// The largest scale, at most 1, in which the drawing fits the width of the page and the height.
double ScaleOf(const Drawing& drawing, double height)
{
    const Bounds bounds = BoundsOf(drawing);
    return std::min({1.0, (kPageRight - kPageLeft) / (bounds.right - bounds.left),
                     height / (bounds.bottom - bounds.top)});
}

Drawing Arranged(const Pictures& pictures, Figures figures, double height)
{
    if (figures == Figures::loads) {
        return LoadsOnly(pictures);
    }
    Drawing above = LoadsAbove(pictures, figures == Figures::all);
    if (figures == Figures::all && ScaleOf(above, height) < kGoodScale) {
        Drawing beside = LoadsBeside(pictures);
        if (ScaleOf(beside, height) > ScaleOf(above, height)) {
            return beside;
        }
    }
    return above;
}

}  // namespace

Legibility PrintFigures(PageWriter& page, const ProjectState& s, Figures figures, double below)
{
    const double height = page.Room() - below - kPageSpace * kPageRow;
    const Pictures pictures{DrawAll(s, LoadAxis::z), DrawAll(s, LoadAxis::y)};
    const Drawing drawing = Arranged(pictures, figures, height);
    const double scale = ScaleOf(drawing, height);
    if (scale < kSmallestScale) {
        return Legibility::none;
    }
    const Bounds bounds = BoundsOf(drawing);
    const double top = page.y() - kPageRow;
    page.Picture(drawing, {kPageLeft - bounds.left * scale, top - bounds.top * scale}, scale);
    page.MoveTo(top + (bounds.bottom - bounds.top) * scale + kPageRow);
    page.Row(kPageSpace);
    return scale < kGoodScale ? Legibility::small : Legibility::good;
}

}  // namespace kestrum
