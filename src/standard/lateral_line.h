#pragma once

// The moment line of a member as the numerical solution of the critical moment takes it.

#include "clauses/critical_moment.h"
#include "standard/lines.h"

#include <array>
#include <cstddef>

namespace kestrum::standard {

constexpr double kSamePlace = 1e-6;  // m: places that are one

// In N and mm from x0 to x1 (m), stretched.
class LateralLine {
public:
    LateralLine(const CombinedLines& lines, double x0, double x1, double stretch);

    // Loads above the shear centre, mm.
    void AddLevels(const MemberLoads& loads, const LoadFactors& factors, double level,
                   double centre);
    MomentLine Line() const
    {
        return {length_, {pieces_.data(), count_}, {points_.data(), point_count_}};
    }
    double At(double x) const;  // of a place of the member, m

private:
    void Add(const CombinedLines& lines, std::size_t i, double from, double to);
    void AddLine(const LineLoad& load, double times);

    double x0_, k_, length_ = 0;
    std::array<MomentPiece, kMaxLinePieces> pieces_;  // the first `count_`
    std::size_t count_ = 0;
    std::array<PointTorque, kMaxLoads> points_;  // the first `point_count_`
    std::size_t point_count_ = 0;
};

}  // namespace kestrum::standard
