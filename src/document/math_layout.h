#pragma once

// Formulas set for paper: fractions with bars, roots, raised and lowered signs, as marks of a
// drawing.

#include "document/document.h"

namespace kestrum {

// What is set, around the left end of its base line at (0, 0), y downwards.
struct MathBox {
    double width = 0, above = 0, below = 0;
    std::vector<Mark> marks{};
    std::vector<double> breaks{};  // where a line may end
};

// The parts of the equation: "N = formula", "= numbers", "= value unit". `size`: of the letters.
std::vector<MathBox> EquationBoxes(const Equation& equation, double size, char decimal);

// Leaves in the box what has room in `width`, up to the last place where it may be broken, and
// returns the rest; a box without such a place stays whole and leaves none.
MathBox TakeRest(MathBox& box, double width);

// A line of text with its changes of style, not wrapped.
MathBox LineBox(const Line& line, double size, char decimal, Ink ink = Ink::text,
                bool bold = false);

// Appends the box with the left end of its base line at the point, all of it scaled.
void PlaceBox(Drawing& drawing, const MathBox& box, Point at, double scale = 1);

}  // namespace kestrum
