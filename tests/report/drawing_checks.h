#pragma once

// What the tests of figures ask of a drawing.

#include "report/drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace kestrum {

template <class M> std::vector<M> MarksOf(const Drawing& d)
{
    std::vector<M> marks;
    for (const Mark& mark : d.marks) {
        if (const M* one = std::get_if<M>(&mark)) {
            marks.push_back(*one);
        }
    }
    return marks;
}

inline std::vector<std::string> TextsOf(const Drawing& d)
{
    std::vector<std::string> texts;
    for (const TextMark& mark : MarksOf<TextMark>(d)) {
        texts.push_back(mark.text);
    }
    return texts;
}

inline bool HasText(const Drawing& d, const std::string& text)
{
    for (const std::string& one : TextsOf(d)) {
        if (one == text) {
            return true;
        }
    }
    return false;
}

// Curves of the results are the polylines from end to end of the member: 51 values, the two ends on
// the axis, and what steps of loads add.
inline std::vector<PolylineMark> ResultCurves(const Drawing& d)
{
    std::vector<PolylineMark> curves;
    for (const PolylineMark& line : MarksOf<PolylineMark>(d)) {
        if (line.points.size() >= 53) {
            curves.push_back(line);
        }
    }
    return curves;
}

inline bool CrossesText(const PolylineMark& line, const Bounds& box)
{
    for (std::size_t i = 1; i < line.points.size(); ++i) {
        const Point a = line.points[i - 1], b = line.points[i];
        const int steps = 1 + static_cast<int>(10 * std::hypot(b.x - a.x, b.y - a.y));
        for (int k = 0; k <= steps; ++k) {
            const double x = a.x + (b.x - a.x) * k / steps, y = a.y + (b.y - a.y) * k / steps;
            if (x > box.left && x < box.right && y > box.top && y < box.bottom) {
                return true;
            }
        }
    }
    return false;
}

// Every text inside the drawing, none on another, none on a result curve.
inline void ExpectLegible(const Drawing& d)
{
    const Bounds all{0, 0, d.width, d.height};
    const std::vector<TextMark> texts = MarksOf<TextMark>(d);
    const std::vector<PolylineMark> curves = ResultCurves(d);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const Bounds box = BoundsOf(texts[i]);
        EXPECT_TRUE(box.Inside(all)) << texts[i].text;
        for (std::size_t k = i + 1; k < texts.size(); ++k) {
            EXPECT_FALSE(box.Overlaps(BoundsOf(texts[k])))
                << texts[i].text << " and " << texts[k].text;
        }
        for (const PolylineMark& curve : curves) {
            EXPECT_FALSE(CrossesText(curve, box)) << texts[i].text;
        }
    }
    EXPECT_TRUE(BoundsOf(d).Inside(all)) << d.title;
}

}  // namespace kestrum
