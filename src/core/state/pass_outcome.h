#pragma once

// How the last pass ended.

#include "core/failure.h"
#include "core/state/types.h"

#include <bitset>
#include <cstddef>
#include <optional>

namespace kestrum {

constexpr std::size_t kMostDeviations = 192;  // places in core/deviation.h

struct PassOutcome {
    bool operator==(const PassOutcome&) const = default;

    i16 errorflag;          // 0, or -1: the axial force exceeds an elastic critical force
    bool calculationerror;  // the pass ended in the one message
    bool flangeoverload;    // the pass has switched the flange loading off (family 24, 25)
    Failure failure;        // why it ended so; the step that runs while a pass is on its way
    // Deviations that act on the unsafe side, by their places in the list; none of a pass behind
    // which nobody has measured them (report/design_notes.h).
    std::optional<std::bitset<kMostDeviations>> acting;
};

}  // namespace kestrum
