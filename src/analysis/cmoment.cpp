#include "analysis/cmoment.h"

#include "analysis/end_forces.h"
#include "analysis/extremes.h"
#include "analysis/load_table.h"
#include "core/arithmetic_trap.h"
#include "core/load_combination.h"
#include "sections/families.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestrum {

namespace {

// Whether loads bend the member about y and about z.
void MarkLoadedAxes(ProjectState& s, const LoadTable& table)
{
    s.hasyloads = kFalse;
    s.haszloads = kFalse;
    for (int i = 0; i < table.count; ++i) {
        const ActingLoad& load = table.load[static_cast<std::size_t>(i)];
        if (load.checked || s.loadcomb != kBasicLoads) {
            s.hasyloads = load.axis == BendingAxis::y ? kTrue : s.hasyloads;
            s.haszloads = load.axis == BendingAxis::z ? kTrue : s.haszloads;
        }
    }
}

// From E I d [kNm3] to d [mm]. Without a section there are forces only; a section without
// stiffness fails.
double DeflectionScale(const ProjectState& s, float inertia)
{
    constexpr double kUnits = 1e12;  // kNm3 = 1e12 Nmm3
    return Is(s, Kind::none) ? 0 : kUnits / (static_cast<double>(s.e) * inertia);
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
void CombineSums(ProjectState& s, const LoadFactors& strength, bool checkedonly)
{
    s.ned = 0;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.nchecked[k] != 0 || !checkedonly) {
            s.ned += FactorOf(strength, CategoryOf(s.ntype[k])) * s.nload[k];
        }
    }
    s.qsum = 0;
    for (std::size_t k = 0; k <= 4; ++k) {
        if (s.qchecked[k] != 0 || !checkedonly) {
            s.qsum += FactorOf(strength, s.qtype[k]) * s.qload[k];
        }
    }
}

// Forces and deflections of the combination 0, 1, 2, 4 or 5; any other combines nothing.
void Combine(ProjectState& s, const LoadTable& table, int loadcomb)
{
    const LoadFactors strength = StrengthFactors(s, loadcomb);
    const LoadFactors service = ServiceFactors(s, loadcomb);
    const bool checkedonly = loadcomb == kBasicLoads;
    CombineSums(s, strength, checkedonly);

    Sums y, z;
    const double scaley = DeflectionScale(s, s.iy), scalez = DeflectionScale(s, s.iz);
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
    StoreSingle(y.m, s.mydiag);
    StoreSingle(y.v, s.vzdiag);
    StoreSingle(y.d, s.dzdiag);
    s.mysec = y.msec;
    s.vzsec = y.vsec;
    StoreSingle(z.m, s.mzdiag);
    StoreSingle(z.v, s.vydiag);
    StoreSingle(z.d, s.dydiag);
    StoreSingle(z.msec, s.mzsec);
    s.vysec = z.vsec;
}

void CombineAndSearch(ProjectState& s, const LoadTable& table, int loadcomb)
{
    Combine(s, table, loadcomb);
    FindExtremes(s);
    SetDesignMoments(s);
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

void ClearAxialLoads(ProjectState& s)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.nload[k] != 0) {
            NoteDropped(s, {.field = "nload",
                            .row = static_cast<i16>(k),
                            .value = s.nload[k],
                            .category = KeptNumber(s.ntype[k])});
        }
    }
    s.nload = {};
}

void NoteUniform(ProjectState& s, std::size_t k)
{
    if (s.qload[k] != 0) {
        NoteDropped(s, {.field = "qload",
                        .row = static_cast<i16>(k),
                        .value = s.qload[k],
                        .category = s.qtype[k],
                        .direction = s.qdir[k]});
    }
}

void ClearTransverseLoads(ProjectState& s)
{
    for (std::size_t k = 1; k <= 4; ++k) {
        NoteUniform(s, k);
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        NoteDroppedTrapezoid(s, k, DropReason::family);
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        NoteDroppedPoint(s, k, DropReason::family);
    }
    std::fill(s.qload.begin() + 1, s.qload.end(), 0.0F);
    s.qt1 = s.qt2 = s.qtx1 = s.qtx2 = {};
    s.pm = s.pmx = {};
}

void ClearLoadsAboutZ(ProjectState& s)
{
    for (std::size_t k = 1; k <= 4; ++k) {
        if (s.qdir[k] == 0) {
            NoteUniform(s, k);
            s.qload[k] = 0;
        }
        s.qdir[k] = 1;
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.qtdir[k] == 0) {
            NoteDroppedTrapezoid(s, k, DropReason::family);
            s.qt1[k] = s.qt2[k] = 0;
            s.qtdir[k] = 1;
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pmdir[k] == 0) {
            NoteDroppedPoint(s, k, DropReason::family);
            s.pm[k] = s.pmx[k] = 0;
            s.pmtype[k] = 0;
            s.pmdir[k] = 1;
        }
    }
}

}  // namespace

void MakeCheckSections(ProjectState& s)
{
    const double l = s.l;
    s.xi = {};
    if (s.cpmode == 1) {
        const std::size_t count = s.cpcount == 1 ? 1 : s.cpcount == 2 ? 2 : 3;
        for (std::size_t k = 0; k < count; ++k) {
            s.xi[k] = F32(s.cp[k + 1] / l);
        }
        s.npts = static_cast<i16>(count - 1);
        return;
    }
    std::size_t last = 10;
    for (std::size_t k = 0; k <= last; ++k) {
        s.xi[k] = F32(static_cast<double>(k) / 10);
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pmx[k] != 0 && s.pmx[k] != s.l) {  // the step lies between the two
            s.xi[++last] = F32(0.999 * s.pmx[k] / l);
            s.xi[++last] = F32(1.001 * s.pmx[k] / l);
        }
    }
    s.npts = static_cast<i16>(last);
}

void ClearInvalidLoads(ProjectState& s)
{
    OpenDropped(s);
    const Actions& carried = Traits(s).carries.loads;
    if (!carried.n) {
        ClearAxialLoads(s);
    }
    if (!carried.y) {
        ClearTransverseLoads(s);
    } else if (!carried.z) {
        ClearLoadsAboutZ(s);
    }
    CloseDropped(s);
}

void SetSelfweight(ProjectState& s)
{
    constexpr double kWeightOfMass = 0.01;  // kN per kg, D103
    const bool included = s.selfweight == 1;
    s.qload[0] = included ? F32(s.weight * kWeightOfMass) : 0;
    s.qchecked[0] = included ? kTrue : kFalse;
    if (included) {
        s.qdir[0] = 1;
        s.qtype[0] = 0;
    }
}

void CalcMember(ProjectState& s, void (*control)(ProjectState&))
{
    MakeCheckSections(s);
    if (s.loadmode != 1) {
        CalcEndForceMode(s);
        return;
    }
    ClearInvalidLoads(s);
    SetSelfweight(s);
    LoadTable table;
    FillTable(s, SpanOf(s), table);
    MarkLoadedAxes(s, table);
    if (s.loadcomb == kEq610ab) {
        CombineGoverning(s, table, control);
    } else {
        CombineAndSearch(s, table, s.loadcomb);
    }
}

}  // namespace kestrum
