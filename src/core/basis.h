#pragma once

// The rules by which a pass calculates. A basis is an argument of the pass, never a global. Where
// the program departs from the standard, the formula asks the basis: `pick` for a value, `departs`
// for a routine. The basis remembers which deviations it met, and can have single ones switched
// back to the program's rule, which is how the cost of each is found.

#include "core/deviation.h"

#include <type_traits>
#include <utility>

namespace kestrum {

class Basis {
public:
    static Basis Standard() { return {}; }
    // The standard with one deviation switched back to the program's rule.
    static Basis StandardBut(Dev deviation)
    {
        Basis basis;
        basis.back_.set(IndexOf(deviation));
        return basis;
    }
    void SwitchBack(Dev deviation) { back_.set(IndexOf(deviation)); }

    // The value of this basis. Values are compared, so that a deviation is met only where both
    // differ; of routines without arguments only the one that counts is called, and the deviation
    // is met wherever the question is asked.
    template <class Program, class Standard>
    auto pick(Dev deviation, const Program& program, const Standard& standard) const
    {
        if constexpr (std::is_invocable_v<const Standard&>) {
            return departs(deviation) ? standard() : program();
        } else {
            using Value = std::common_type_t<Program, Standard>;
            const auto ours = static_cast<Value>(program);
            const auto theirs = static_cast<Value>(standard);
            if (ours == theirs) {
                return theirs;
            }
            return departs(deviation) ? theirs : ours;
        }
    }

    // Whether the standard's way is to be taken, and not that of the program.
    bool departs(Dev deviation) const
    {
        met_.set(IndexOf(deviation));
        since_.set(IndexOf(deviation));
        return !back_[IndexOf(deviation)];
    }

    // The deviations that this pass came across.
    const Deviations& met() const { return met_; }

    // Those since the last call.
    Deviations MetSince() const { return std::exchange(since_, {}); }

    // Whether one of these is switched back.
    bool Switches(const Deviations& deviations) const { return (back_ & deviations).any(); }

private:
    Deviations back_;
    mutable Deviations met_, since_;
};

}  // namespace kestrum
