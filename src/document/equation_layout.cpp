#include "document/equation_layout.h"

#include "document/table_layout.h"
#include "document/text_flow.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kFormula = 3.3, kSmallText = TableLayout::kText;
constexpr double kIndent = 3, kInner = 8, kContinued = 12, kSpace = 1.3, kApart = 3, kLine = 1.35;

}  // namespace

EquationLayout::EquationLayout(const Equation& equation, double width, char decimal) : width_(width)
{
    clause_ = LineBox(equation.clause.empty() ? Line() : Line("[" + equation.clause + "]"),
                      kSmallText, decimal, Ink::faint);
    std::vector<MathBox> boxes = EquationBoxes(equation, kFormula, decimal);
    Break(boxes);
    AddRemark(equation.remark, decimal);
    for (Row& row : rows_) {
        for (const MathBox& box : row.boxes) {
            row.above = std::max(row.above, box.above);
            row.below = std::max(row.below, box.below);
        }
        height_ += row.above + row.below + kSpace;
    }
    clause_below_ = rows_.back().width + kApart + clause_.width > width_;
    height_ += clause_below_ && clause_.width > 0 ? kSmallText * kLine : 0;
}

// Lines of boxes; a line begins with the sign of equality, or in what is longer than a line with
// that of an operation.
void EquationLayout::Break(std::vector<MathBox>& boxes)
{
    const auto begin = [&](double indent) { rows_.push_back({.indent = indent, .width = indent}); };
    const auto put = [&](MathBox box) {
        rows_.back().width += box.width;
        rows_.back().boxes.push_back(std::move(box));
    };
    begin(kIndent);
    for (MathBox& box : boxes) {
        if (rows_.back().width + box.width > width_ && !rows_.back().boxes.empty()) {
            begin(kInner);
        }
        while (rows_.back().width + box.width > width_) {
            MathBox rest = TakeRest(box, width_ - rows_.back().width);
            if (rest.marks.empty()) {
                break;
            }
            put(std::move(box));
            box = std::move(rest);
            begin(kContinued);
        }
        put(std::move(box));
    }
}

// Behind the value where there is room, else in lines of its own.
void EquationLayout::AddRemark(const Line& remark, char decimal)
{
    if (remark.Empty()) {
        return;
    }
    const MathBox whole = LineBox(remark, kSmallText, decimal, Ink::faint);
    if (rows_.back().width + kApart + whole.width <= width_) {
        MathBox apart;
        Drawing moved;
        PlaceBox(moved, whole, {kApart, 0});
        apart.marks = std::move(moved.marks);
        apart.width = kApart + whole.width;
        apart.above = whole.above;
        apart.below = whole.below;
        rows_.back().width += apart.width;
        rows_.back().boxes.push_back(std::move(apart));
        return;
    }
    for (const Line& line : WrapLine(remark, kSmallText, width_ - kInner, decimal)) {
        MathBox box = LineBox(line, kSmallText, decimal, Ink::faint);
        rows_.push_back({.indent = kInner, .width = kInner + box.width});
        rows_.back().boxes.push_back(std::move(box));
    }
}

void EquationLayout::Place(Drawing& drawing, Point upper_left) const
{
    double y = upper_left.y, base = y;
    for (const Row& row : rows_) {
        double x = upper_left.x + row.indent;
        base = y + row.above;
        for (const MathBox& box : row.boxes) {
            const double room = upper_left.x + width_ - x;
            PlaceBox(drawing, box, {x, base}, box.width > room ? room / box.width : 1);
            x += box.width;
        }
        y = base + row.below + kSpace;
    }
    if (clause_below_) {
        base = y + kSmallText;
    }
    PlaceBox(drawing, clause_, {upper_left.x + width_ - clause_.width, base});
}

}  // namespace kestrum
