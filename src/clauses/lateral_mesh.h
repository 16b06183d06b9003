#pragma once

// The mesh on which the critical moment is solved: element boundaries at every place where twist or
// moment change their course, refined where warping dies away quickly. Places are shares of the
// length.

#include "clauses/critical_moment.h"

#include <array>
#include <cstddef>

namespace kestrum {

constexpr std::size_t kMaxElements = 160;

struct LateralMesh {
    std::array<double, kMaxElements + 1> x;
    std::size_t elements;
};

// `layer` is sqrt(EIw/GIt)/L, the share of the length over which warping dies away; 0 without
// warping.
LateralMesh MeshOf(const LateralSupports& supports, const MomentLine& line, double layer);

}  // namespace kestrum
