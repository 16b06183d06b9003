#include "analysis/member_forces.h"

#include "analysis/end_forces.h"
#include "analysis/extremes.h"
#include "analysis/load_table.h"
#include "core/arithmetic_trap.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "sections/families.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestrum {

namespace {

// Whether loads bend the member about y and about z.
void MarkLoadedAxes(const Inputs& in, Forces& forces, const LoadTable& table)
{
    forces.hasyloads = kFalse;
    forces.haszloads = kFalse;
    for (int i = 0; i < table.count; ++i) {
        const ActingLoad& load = table.load[static_cast<std::size_t>(i)];
        if (load.checked || in.loadcomb != kBasicLoads) {
            forces.hasyloads = load.axis == BendingAxis::y ? kTrue : forces.hasyloads;
            forces.haszloads = load.axis == BendingAxis::z ? kTrue : forces.haszloads;
        }
    }
}

// From E I d [kNm3] to d [mm]. Without a section there are forces only; a section without
// stiffness fails.
double DeflectionScale(const Inputs& in, float inertia)
{
    constexpr double kUnits = 1e12;  // kNm3 = 1e12 Nmm3
    return Is(in, Kind::none) ? 0 : kUnits / (static_cast<double>(in.e) * inertia);
}

// Lines of one axis, factored and summed.
struct Sums {
    std::array<double, kDiagramPoints> m{}, v{}, d{};
    std::array<double, kCheckSections> msec{}, vsec{};
};

template <std::size_t N>
void AddFactored(std::array<double, N>& sum, double factor, const std::array<float, N>& line)
{
    for (std::size_t i = 0; i < N; ++i) {
        sum[i] += factor * line[i];
    }
}

template <std::size_t N>
void StoreSingle(const std::array<double, N>& sum, std::array<float, N>& line)
{
    std::transform(sum.begin(), sum.end(), line.begin(), F32);
}

// Axial force and the sum of uniform loads.
void CombineSums(const Inputs& in, Forces& forces, const LoadFactors& strength, bool checkedonly)
{
    forces.ned = 0;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (in.nchecked[k] != 0 || !checkedonly) {
            forces.ned += FactorOf(strength, CategoryOf(in.ntype[k])) * in.nload[k];
        }
    }
    forces.qsum = 0;
    for (std::size_t k = 0; k <= 4; ++k) {
        if (in.qchecked[k] != 0 || !checkedonly) {
            forces.qsum += FactorOf(strength, in.qtype[k]) * in.qload[k];
        }
    }
}

// Forces and deflections of the combination 0, 1, 2, 4 or 5; any other combines nothing.
void Combine(const Inputs& in, const AnnexFactors& annex, const SectionRecord& section,
             Forces& forces, const LoadTable& table, int loadcomb)
{
    const LoadFactors strength = StrengthFactors(in, annex, loadcomb);
    const LoadFactors service = ServiceFactors(in, loadcomb);
    const bool checkedonly = loadcomb == kBasicLoads;
    CombineSums(in, forces, strength, checkedonly);

    Sums y, z;
    const double scaley = DeflectionScale(in, section.iy), scalez = DeflectionScale(in, section.iz);
    for (int i = 0; i < table.count; ++i) {
        const ActingLoad& load = table.load[static_cast<std::size_t>(i)];
        if ((checkedonly && !load.checked) || load.axis == BendingAxis::none) {
            continue;
        }
        Sums& sums = load.axis == BendingAxis::y ? y : z;
        const double factor = FactorOf(strength, load.category);
        AddFactored(sums.m, factor, load.lines.m);
        AddFactored(sums.v, factor, load.lines.v);
        AddFactored(sums.msec, factor, load.lines.msec);
        AddFactored(sums.vsec, factor, load.lines.vsec);
        const double scale = load.axis == BendingAxis::y ? scaley : scalez;
        AddFactored(sums.d, FactorOf(service, load.category) * scale, load.lines.d);
    }
    StoreSingle(y.m, forces.mydiag);
    StoreSingle(y.v, forces.vzdiag);
    StoreSingle(y.d, forces.dzdiag);
    forces.mysec = y.msec;
    forces.vzsec = y.vsec;
    StoreSingle(z.m, forces.mzdiag);
    StoreSingle(z.v, forces.vydiag);
    StoreSingle(z.d, forces.dydiag);
    StoreSingle(z.msec, forces.mzsec);
    forces.vysec = z.vsec;
}

void CombineAndSearch(ProjectState& s, const LoadTable& table, int loadcomb)
{
    Combine(s, s, s, s, table, loadcomb);
    FindExtremes(s, s);
    SetDesignMoments(s, s);
}

// The largest utilisation of section and member in a combination.
double UtilisationOf(ProjectState& s, const LoadTable& table, int loadcomb,
                     void (*control)(ProjectState&))
{
    CombineAndSearch(s, table, loadcomb);
    s.irsection = 0;
    s.maxirbuckling = 0;
    CheckTrap();
    control(s);
    CheckTrap();
    return std::max(s.irsection, s.maxirbuckling);
}

// Eq 6.10a or 6.10b, whichever uses the member more; a tie gives 6.10b. An overload of the flange
// in 6.10b takes the flange loading (hsqopt) from 6.10a as well.
void CombineGoverning(ProjectState& s, const LoadTable& table, void (*control)(ProjectState&))
{
    double ir610a = UtilisationOf(s, table, kEq610a, control);
    if (s.errorflag != 0) {
        return;
    }
    const i16 option = s.hsqopt;
    const double ir610b = UtilisationOf(s, table, kEq610b, control);
    if (s.errorflag != 0) {
        return;
    }
    if (s.hsqopt != option) {
        ir610a = UtilisationOf(s, table, kEq610a, control);
    }
    s.governing = ir610a > ir610b ? 1 : 2;
    CombineAndSearch(s, table, s.governing == 1 ? kEq610a : kEq610b);
}

void ClearAxialLoads(LoadInputs& loads, PassOutcome& outcome)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if (loads.nload[k] != 0) {
            NoteDropped(outcome, {.field = "nload",
                                  .row = static_cast<i16>(k),
                                  .value = loads.nload[k],
                                  .category = KeptNumber(loads.ntype[k])});
        }
    }
    loads.nload = {};
}

void NoteUniform(const Inputs& in, PassOutcome& outcome, std::size_t k)
{
    if (in.qload[k] != 0) {
        NoteDropped(outcome, {.field = "qload",
                              .row = static_cast<i16>(k),
                              .value = in.qload[k],
                              .category = in.qtype[k],
                              .direction = in.qdir[k]});
    }
}

void ClearTransverseLoads(const Inputs& in, LoadInputs& loads, PassOutcome& outcome)
{
    for (std::size_t k = 1; k <= 4; ++k) {
        NoteUniform(in, outcome, k);
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        NoteDroppedTrapezoid(in, outcome, k, DropReason::family);
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        NoteDroppedPoint(in, outcome, k, DropReason::family);
    }
    std::fill(loads.qload.begin() + 1, loads.qload.end(), 0.0F);
    loads.qt1 = loads.qt2 = loads.qtx1 = loads.qtx2 = {};
    loads.pm = loads.pmx = {};
}

void ClearLoadsAboutZ(const Inputs& in, LoadInputs& loads, PassOutcome& outcome)
{
    for (std::size_t k = 1; k <= 4; ++k) {
        if (loads.qdir[k] == 0) {
            NoteUniform(in, outcome, k);
            loads.qload[k] = 0;
        }
        loads.qdir[k] = 1;
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (loads.qtdir[k] == 0) {
            NoteDroppedTrapezoid(in, outcome, k, DropReason::family);
            loads.qt1[k] = loads.qt2[k] = 0;
            loads.qtdir[k] = 1;
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (loads.pmdir[k] == 0) {
            NoteDroppedPoint(in, outcome, k, DropReason::family);
            loads.pm[k] = loads.pmx[k] = 0;
            loads.pmtype[k] = 0;
            loads.pmdir[k] = 1;
        }
    }
}

}  // namespace

void MakeCheckSections(const Inputs& in, Forces& forces)
{
    const double l = in.l;
    forces.xi = {};
    if (in.cpmode == 1) {
        const std::size_t count = in.cpcount == 1 ? 1 : in.cpcount == 2 ? 2 : 3;
        for (std::size_t k = 0; k < count; ++k) {
            forces.xi[k] = F32(in.cp[k + 1] / l);
        }
        forces.npts = static_cast<i16>(count - 1);
        return;
    }
    std::size_t last = 10;
    for (std::size_t k = 0; k <= last; ++k) {
        forces.xi[k] = F32(static_cast<double>(k) / 10);
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (in.pmx[k] != 0 && in.pmx[k] != in.l) {  // the step lies between the two
            forces.xi[++last] = F32(0.999 * in.pmx[k] / l);
            forces.xi[++last] = F32(1.001 * in.pmx[k] / l);
        }
    }
    forces.npts = static_cast<i16>(last);
}

void ClearInvalidLoads(const Inputs& in, LoadInputs& loads, PassOutcome& outcome)
{
    OpenDropped(in, outcome);
    const Actions& carried = Traits(in).carries.loads;
    if (!carried.n) {
        ClearAxialLoads(loads, outcome);
    }
    if (!carried.y) {
        ClearTransverseLoads(in, loads, outcome);
    } else if (!carried.z) {
        ClearLoadsAboutZ(in, loads, outcome);
    }
    CloseDropped(in, outcome);
}

void SetSelfweight(LoadInputs& loads, const SectionRecord& section)
{
    constexpr double kWeightOfMass = 0.01;  // kN per kg, D103
    const bool included = loads.selfweight == 1;
    loads.qload[0] = included ? F32(section.weight * kWeightOfMass) : 0;
    loads.qchecked[0] = included ? kTrue : kFalse;
    if (included) {
        loads.qdir[0] = 1;
        loads.qtype[0] = 0;
    }
}

void CalcMember(ProjectState& s, void (*control)(ProjectState&))
{
    MakeCheckSections(s, s);
    if (s.loadmode != 1) {
        CalcEndForceMode(s, s, s, s, s);
        return;
    }
    ClearInvalidLoads(s, s, s);
    SetSelfweight(s, s);
    LoadTable table;
    FillTable(s, SpanOf(s, s), table);
    MarkLoadedAxes(s, s, table);
    if (s.loadcomb == kEq610ab) {
        CombineGoverning(s, table, control);
    } else {
        CombineAndSearch(s, table, s.loadcomb);
    }
}

}  // namespace kestrum
