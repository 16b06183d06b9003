#pragma once

// For tests of the section design: material and settings put straight into the record, one check
// section with given forces, and the texts of a result row before its numbers go in.

#include "core/project_state.h"
#include "support/rows.h"

#include <cmath>
#include <string>

namespace kestrum {

// gammaM0 = gammaM1 = eta = 1, limit 1.0, all options off, stiffener spacing 5 m.
inline void SetSteel(ProjectState& s, float fyk)
{
    s.fyk = fyk;
    s.fyd = fyk;
    s.eps = static_cast<float>(std::sqrt(235.0 / fyk));
    s.e = 210000;
    s.gammam0 = 1;
    s.gammam1 = 1;
    s.neta = 1;
    s.irlimit = 1;
    s.webstiffa = 5000;
}

struct EndForces {
    double n, my, mz, vz, vy;  // kN, kNm
};

// The same forces at the one check section, x = 0.
inline void SetForces(ProjectState& s, const EndForces& f)
{
    s.npts = 0;
    s.xi[0] = 0;
    s.ned = f.n;
    s.mysec[0] = f.my;
    s.mzsec[0] = static_cast<float>(f.mz);
    s.vzsec[0] = f.vz;
    s.vysec[0] = f.vy;
}

}  // namespace kestrum
