#pragma once

// Interaction of axial force and bending, EN 1993-1-1, 6.3.3, Eq (6.61) and (6.62).

namespace kestrum::clauses {

struct InteractionFactors {
    double kyy, kyz, kzy, kzz;
};

}  // namespace kestrum::clauses
