#pragma once

// An equation set in lines of a width, its clause at the right end.

#include "document/math_layout.h"

namespace kestrum {

class EquationLayout {
public:
    EquationLayout(const Equation& equation, double width, char decimal);

    double Height() const { return height_; }
    void Place(Drawing& drawing, Point upper_left) const;

private:
    struct Row {
        std::vector<MathBox> boxes{};
        double indent = 0, width = 0, above = 0, below = 0;
    };
    void Break(std::vector<MathBox>& boxes);
    void AddRemark(const Line& remark, char decimal);

    double width_, height_ = 0;
    std::vector<Row> rows_{};
    MathBox clause_{};
    bool clause_below_ = false;  // on a line of its own
};

}  // namespace kestrum
