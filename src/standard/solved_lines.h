#pragma once

// Critical load factors of a member that are solved already. A moment line that is a positive
// multiple of one of them, loads above the shear centre and all, has its factor divided by the
// multiple: arrangements of one category differ by their load factor only.

#include "clauses/critical_moment.h"
#include "standard/lines.h"

#include <array>
#include <cstddef>

namespace kestrum::standard {

class SolvedLines {
public:
    // As CriticalLoadFactor, solved where none of the last lines tells it.
    double Factor(const LateralSection& section, const LateralSupports& supports,
                  const MomentLine& line);
    std::size_t Solved() const { return solved_; }  // times

private:
    struct Entry {
        LateralSection section;
        LateralEnd start, end;
        std::array<double, kMaxHeld> held;
        double length, alpha;
        std::size_t held_count, piece_count, point_count;
        std::array<MomentPiece, kMaxLinePieces> pieces;
        std::array<PointTorque, kMaxLoads> points;

        bool Fits(const LateralSection& other, const LateralSupports& supports,
                  const MomentLine& line) const;
        double MultipleOf(const MomentLine& line) const;  // 0 where it is none
        void Keep(const LateralSection& other, const LateralSupports& supports,
                  const MomentLine& line);
    };
    static constexpr std::size_t kKept = 6;

    std::array<Entry, kKept> entries_;  // the first `solved_` are filled
    std::size_t solved_ = 0;
};

}  // namespace kestrum::standard
