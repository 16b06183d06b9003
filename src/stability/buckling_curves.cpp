#include "stability/buckling_curves.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"

namespace kestrum {
namespace {

struct Curve {
    Literal name;
    double alpha;  // imperfection factor, Table 6.1
};

constexpr Curve kA0{"a0", 0.13};
constexpr Curve kA{"a", 0.21};
constexpr Curve kB{"b", 0.34};
constexpr Curve kC{"c", 0.49};
constexpr Curve kD{"d", 0.76};

// Null: the axis keeps the curve it has.
struct Pair {
    const Curve* y;
    const Curve* z;
};

// Deviation D203: the better curves of S460 begin above 440 MPa. Table 6.2 has them for S460 only,
// so that a typed strength between 440 and 460 gets them early, and S460 with a strength reduced to
// 440 or less for its thickness does not get them.
bool HighStrength(const Inputs& in)
{
    return in.fyk > 440.0f;
}

Pair RolledI(const Inputs& in, const SectionRecord& section)
{
    const double b = section.b;
    const bool high = HighStrength(in);
    if (1.2 * b < section.h) {
        if (section.tf <= 40.0f) {
            return high ? Pair{&kA0, &kA0} : Pair{&kA, &kB};
        }
        return high ? Pair{&kA, &kA} : Pair{&kB, &kC};
    }
    if (section.tf <= 100.0f) {
        return high ? Pair{&kA, &kA} : Pair{&kB, &kC};
    }
    return high ? Pair{&kC, &kC} : Pair{&kD, &kD};
}

// Deviation D204: curve b for slender plates (b/tf or h/tw from 30 on) and with the thick weld
// option, c otherwise. Table 6.2 has b in general and c for thick welds of stocky plates.
Pair Box(const Inputs& in, const SectionRecord& section)
{
    const double b = section.b;
    const double h = section.h;
    const bool better = b / section.tf >= 30.0 || h / section.tw >= 30.0 || in.weldopt == 1;
    return better ? Pair{&kB, &kB} : Pair{&kC, &kC};
}

// Deviation D205: British channels (103) and the families without a buckling check have no row; the
// axis keeps name and factor of the run before, nothing after a start. Table 6.2 has c for
// channels.
Pair Automatic(const Inputs& in, const SectionRecord& section)
{
    switch (Traits(in).design.curves) {
    case FlexuralCurves::rolled_i:
        return RolledI(in, section);
    case FlexuralCurves::c:
        return {&kC, &kC};
    case FlexuralCurves::hot_hollow:
        return HighStrength(in) ? Pair{&kA0, &kA0} : Pair{&kA, &kA};
    case FlexuralCurves::b:
        return {&kB, &kB};
    case FlexuralCurves::welded_i:
        return section.tmax <= 40.0f ? Pair{&kB, &kC} : Pair{&kC, &kD};
    case FlexuralCurves::box:
        return Box(in, section);
    case FlexuralCurves::tube:
        if (in.tubehot != 1) {
            return {&kC, &kC};
        }
        return HighStrength(in) ? Pair{&kA0, &kA0} : Pair{&kA, &kA};
    case FlexuralCurves::none:
        break;
    }
    return {nullptr, nullptr};
}

const Curve* Chosen(int choice, const Curve* automatic)
{
    switch (choice) {
    case 0:
        return automatic;
    case 1:
        return &kA0;
    case 2:
        return &kA;
    case 3:
        return &kB;
    case 4:
        return &kC;
    default:
        return &kD;
    }
}

}  // namespace

// EN 1993-1-1, 6.3.1.2 (2), Tables 6.1, 6.2.
//   in   bcy, bcz, family, b, h, tf, tw, tmax [mm], fyk [MPa], weldopt, tubehot
//   out  curvey, curvez, alphay, alphaz [-]
// Deviations D203, D204, D205: see above.
void BucklingCurves(const Inputs& in, const SectionRecord& section, Carry& carry)
{
    const Pair automatic = Automatic(in, section);
    if (const Curve* y = Chosen(in.bcy, automatic.y)) {
        carry.curvey = y->name;
        carry.alphay = y->alpha;
    }
    if (const Curve* z = Chosen(in.bcz, automatic.z)) {
        carry.curvez = z->name;
        carry.alphaz = F32(z->alpha);
    }
}

}  // namespace kestrum
