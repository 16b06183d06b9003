#pragma once

// Critical load factors of a member that are solved already. Moment lines that are positive
// multiples of each other, loads above the shear centre and all, share one solution: arrangements
// of one category differ by their load factor only. What is solved is the line over its largest
// term, so that a factor depends on its own line only and not on those before.

#include "clauses/critical_moment.h"
#include "standard/lines.h"

#include <array>
#include <cstddef>

namespace kestrum::standard {

class SolvedLines {
public:
    // As CriticalLoadFactor, solved where the solution is not among those asked for last.
    double Factor(const LateralSection& section, const LateralSupports& supports,
                  const MomentLine& line);
    std::size_t Solved() const { return solved_; }  // times

private:
    // A line over its largest term, with its member.
    struct Entry {
        LateralSection section;
        LateralEnd start, end;
        std::array<double, kMaxHeld> held;
        double length, alpha;
        std::size_t last_asked;
        std::size_t held_count, piece_count, point_count;
        std::array<MomentPiece, kMaxLinePieces> pieces;
        std::array<PointTorque, kMaxLoads> points;

        void Keep(const LateralSection& other, const LateralSupports& supports,
                  const MomentLine& line, double largest);
        bool Is(const Entry& other) const;
        double Solve() const;
    };
    static constexpr std::size_t kKept = 8;

    std::array<Entry, kKept> entries_;  // the first `solved_` are filled
    std::size_t solved_ = 0;
    std::size_t asked_ = 0;
};

}  // namespace kestrum::standard
