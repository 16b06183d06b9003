#include "standard/tripping.h"

#include "clauses/flexural.h"
#include "clauses/lateral_torsional.h"
#include "core/project_state.h"
#include "design/stiffened_plate_section.h"
#include "standard/units.h"

#include <cmath>

namespace kestrum::standard {

namespace {

using clauses::BucklingCurve;

// Table 6.4.
double Imperfection(const ProjectState& s, const StandardSection& q)
{
    const bool welded = Traits(s).design.lateral_curves == LateralCurves::welded;
    const bool slim = q.bottom.b > 0 && q.hw / q.bottom.b <= 2;
    return clauses::Imperfection(welded && slim ? BucklingCurve::c : BucklingCurve::d);
}

}  // namespace

LateralResult TrippingOf(const LateralCase& m)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const LineExtreme most = m.lines.LargestMoment(Axis::y);
    LateralResult r;
    r.moment = most.value;
    r.checked = CheckedMoment(m, most);
    r.place = most.x / m.lines.grid.Length();
    const double length = static_cast<double>(s.ltbk) * s.l * kMm / (s.restraints + 1);
    const double stress = PlateMcr(s, s, length) / s.wybot;
    // The rule of the program as a whole: the resistance of the section, whichever edge is
    // compressed.
    const double resistance = ModulusY(m.p, m.cls, r.moment > 0) * q.fy / kNmm;
    r.lam = std::sqrt(q.fy / stress);
    r.mcr = resistance / (r.lam * r.lam);
    r.critical = {.route = CriticalRoute::tripping, .stress = stress, .length = length};
    r.modulus = resistance * kNmm / q.fy;
    r.alpha = Imperfection(s, q);
    r.plateau = s.lamdalt0;
    r.chi = clauses::GeneralLateralReduction(r.lam, r.alpha, r.plateau);
    r.resistance = r.chi * resistance / q.gammam1;
    r.clause = "6.3.2.2";
    return r;
}

}  // namespace kestrum::standard
