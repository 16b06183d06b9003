#include "calculation/effective_figure.h"

#include "report/figure_tools.h"
#include "report/section_outline.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

using standard::LostPart;

constexpr double kPicture = 70, kRoom = 6;

// The gross section with the lost parts taken out, and the way of the centroid.
Drawing DrawEffective(const ProjectState& s, const std::vector<LostPart>& lost, double yc,
                      double zc)
{
    const SectionOutline outline = OutlineOf(ShapeOf(s));
    Drawing d;
    d.width = d.height = kPicture;
    d.title = "Effective section";
    const double scale = (kPicture - 2 * kRoom) / std::max({outline.width, outline.height, 1.0});
    const Point corner{(kPicture - scale * outline.width) / 2,
                       (kPicture - scale * outline.height) / 2};
    const auto view = [&](Point p) {
        return Point{corner.x + scale * p.x, corner.y + scale * p.y};
    };
    PolygonMark whole{{}, Ink::steel, true, Ink::member, kThin};
    for (const auto& ring : outline.rings) {
        std::vector<Point> points(ring.size());
        std::transform(ring.begin(), ring.end(), points.begin(), view);
        whole.rings.push_back(std::move(points));
    }
    d.marks.emplace_back(std::move(whole));
    const Point centre = CentroidOf(outline);
    for (const LostPart& part : lost) {
        const double left = centre.x + part.y - part.wide / 2, right = left + part.wide;
        const double top = centre.y - part.z - part.high / 2, bottom = top + part.high;
        PolygonMark gap{{}, Ink::paper, true, Ink::bad, kThin};
        gap.rings.push_back(
            {view({left, top}), view({right, top}), view({right, bottom}), view({left, bottom})});
        d.marks.emplace_back(std::move(gap));
    }
    const auto cross = [&](Point p, Ink ink) {
        constexpr double kArm = 2.5;
        const Point at = view(p);
        AddLine(d, {at.x - kArm, at.y}, {at.x + kArm, at.y}, ink, 0.3);
        AddLine(d, {at.x, at.y - kArm}, {at.x, at.y + kArm}, ink, 0.3);
    };
    cross(centre, Ink::faint);
    if (std::hypot(yc, zc) > 0) {
        cross({centre.x + yc, centre.y - zc}, Ink::moment);
    }
    return d;
}

}  // namespace

void AddEffectiveFigures(const ProjectState& s, const standard::EffectiveStudy& study,
                         bool compression, Document& d)
{
    std::vector<Figure> figures;
    if (compression && !study.compression.empty()) {
        const bool shifts = study.Shifts();
        figures.push_back({DrawEffective(s, study.compression, shifts ? study.compressed.yc : 0,
                                         shifts ? study.compressed.zc : 0),
                           "Compression", 58});
    }
    if (!study.sagging.empty()) {
        figures.push_back({DrawEffective(s, study.sagging, 0, 0), "Sagging My", 58});
    }
    if (!study.hogging.empty() && study.Shifts()) {
        figures.push_back({DrawEffective(s, study.hogging, 0, 0), "Hogging My", 58});
    }
    if (!figures.empty()) {
        d.Say("What does not count has a red edge, by EN 1993-1-5, 4.4 as written. The centroid is "
              "grey, that of what counts in compression red.",
              Paragraph::Kind::remark);
        d.Show(std::move(figures));
    }
}

}  // namespace kestrum
