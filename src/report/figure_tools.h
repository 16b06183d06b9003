#pragma once

// What the figures share: strokes, arrows, supports and texts that keep out of each other's way.

#include "report/drawing.h"

#include <string>
#include <vector>

namespace kestrum {

constexpr double kThin = 0.18;  // of outlines, rules and dimension lines

void AddLine(Drawing& d, Point from, Point to, Ink ink, double width = kThin, bool dashed = false);
void AddCurve(Drawing& d, std::vector<Point> points, Ink ink, double width = kThin);
void AddFilled(Drawing& d, std::vector<Point> points, Ink ink);
void AddText(Drawing& d, TextMark text);

// A line with a filled head at `tip`.
void AddArrow(Drawing& d, Point from, Point tip, Ink ink, double width, double head);

// Part of a circle as points; angles in degrees, counterclockwise from the x axis as seen.
std::vector<Point> Arc(Point centre, double radius, double from, double to, int steps);

// A turning arrow of three quarters of a circle, counterclockwise when `positive`.
void AddTurn(Drawing& d, Point centre, double radius, bool positive, Ink ink, double width);

// Supports of a beam whose axis passes through `at`. `side` is -1 at the left and +1 at the right
// end; `size` is the height of the triangle.
enum class Support { none, pinned, roller, fixed, spring };
void AddSupport(Drawing& d, Point at, Support support, double side, double size);

// The supports of the two ends in the six support cases.
struct EndSupports {
    Support left, right;
};
EndSupports SupportsOf(int supportcase);

// Places texts one after the other so that none covers another, a line already drawn, or the edge.
class TextPlacer {
public:
    explicit TextPlacer(Drawing& drawing) : drawing_(drawing) {}

    // What texts have to keep clear of: lines and curves at their course, the rest by its box.
    void Avoid(const Mark& mark) { obstacles_.push_back(mark); }
    void AvoidAll();  // everything drawn so far

    // Adds the text at the first place from `start` on that is free, searching outwards in the
    // given direction (-1 up, +1 down) and to both sides, within the drawing.
    void Add(TextMark text, double direction);

private:
    bool Free(const Bounds& box) const;

    Drawing& drawing_;
    std::vector<Mark> obstacles_;
};

}  // namespace kestrum
