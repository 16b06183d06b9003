#pragma once

// Internal forces, their extremes and the shape of the moment lines.

#include "core/state/types.h"

#include <array>

namespace kestrum {

struct Forces {
    bool operator==(const Forces&) const = default;

    std::array<float, kCheckSections> xi;  // x/L
    i16 npts;                              // last index used
    std::array<float, kDiagramPoints> mydiag, vzdiag, mzdiag, vydiag, dzdiag, dydiag;
    std::array<double, kCheckSections> mysec, vzsec, vysec;
    std::array<float, kCheckSections> mzsec;
    double ned;
    double qsum;
    double mymax, mymin, xmymax, xmymin;
    double mzmax, mzmin, xmzmax, xmzmin;
    double vzmax, vzmin, xvzmax, xvzmin;
    double vymax, vymin, xvymax, xvymin;
    double dzmax, dzmin, dymax, dymin;
    double mymaxabs, mzmaxabs, dzmaxabs, dymaxabs;
    double mydesign;  // the extreme larger in size, with its sign
    float mzdesign;   // its size
    double my0, myq1, mymid, myq3, myl;
    double mz0, mzq1, mzmid, mzq3, mzl;
    float x0my1, x0my2, x0mz1, x0mz2;
    i16 mycurved, myendsbig, mylinear;  // bool
    i16 mzcurved, mzendsbig, mzlinear;
    double psiy, psiz;
    double mypeakratio, myendratio, mzpeakratio, mzendratio;
    i16 hasyloads, haszloads;  // bool: loads bending about y, about z
};

}  // namespace kestrum
