#pragma once

// Outlines of rolled sections from the dimensions of the record.

#include "core/project_state.h"
#include "support/outline.h"

namespace outline {

// I section about y = 0. The flange has its nominal thickness at a distance `at` from the middle.
inline Polygon ISection(const kestrum::ProjectState& s, double slope, double at, double toe)
{
    const double h = s.h, b = s.b, w = s.tw / 2.0, r = s.r;
    const double tip = s.tf - slope * (b / 2 - at);
    const double root = s.tf + slope * (at - w);
    return Trace({{-b / 2, 0},
                  {b / 2, 0},
                  {b / 2, tip, toe},
                  {w, root, r},
                  {w, h - root, r},
                  {b / 2, h - tip, toe},
                  {b / 2, h},
                  {-b / 2, h},
                  {-b / 2, h - tip, toe},
                  {-w, h - root, r},
                  {-w, root, r},
                  {-b / 2, tip, toe}});
}

// Channel with the web back at y = 0 and the nominal flange thickness at y = `at`.
inline Polygon Channel(const kestrum::ProjectState& s, double slope, double at)
{
    const double h = s.h, b = s.b, t = s.tw, r = s.r, toe = s.r2;
    const double tip = s.tf - slope * (b - at);
    const double root = s.tf + slope * (at - t);
    return Trace({{0, 0},
                  {b, 0},
                  {b, tip, toe},
                  {t, root, r},
                  {t, h - root, r},
                  {b, h - tip, toe},
                  {b, h},
                  {0, h}});
}

}  // namespace outline
