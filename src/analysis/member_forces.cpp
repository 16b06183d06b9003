#include "analysis/member_forces.h"

#include "analysis/extremes.h"
#include "analysis/load_table.h"
#include "core/arithmetic_trap.h"
#include "core/load_combination.h"
#include "core/wide.h"
#include "sections/families.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestrum {

namespace {

// From E I d [kNm3] to d [mm]. Without a section there are forces only; a section without
// stiffness fails.
double DeflectionScale(const Inputs& in, float inertia)
{
    constexpr double kUnits = 1e12;  // kNm3 = 1e12 Nmm3
    return Is(in, Kind::none) ? 0 : kUnits / (static_cast<double>(in.e) * inertia);
}

// Lines of one axis, factored and summed.
template <std::size_t N>
void AddFactored(std::array<double, N>& sum, double factor, const std::array<float, N>& line)
{
    for (std::size_t i = 0; i < N; ++i) {
        sum[i] += factor * line[i];
    }
}

// Forces with the one factor, deflections with the other.
KESTRUM_WIDE void AddLoad(LineSums& sums, const LoadLines& lines, double factor, double deflection)
{
    AddFactored(sums.m, factor, lines.m);
    AddFactored(sums.v, factor, lines.v);
    AddFactored(sums.msec, factor, lines.msec);
    AddFactored(sums.vsec, factor, lines.vsec);
    AddFactored(sums.d, deflection, lines.d);
}

template <std::size_t N>
void StoreSingle(const std::array<double, N>& sum, std::array<float, N>& line)
{
    std::transform(sum.begin(), sum.end(), line.begin(), F32);
}

KESTRUM_WIDE void StoreDiagrams(const LineSums& y, const LineSums& z, Forces& forces)
{
    StoreSingle(y.m, forces.mydiag);
    StoreSingle(y.v, forces.vzdiag);
    StoreSingle(y.d, forces.dzdiag);
    StoreSingle(z.m, forces.mzdiag);
    StoreSingle(z.v, forces.vydiag);
    StoreSingle(z.d, forces.dydiag);
    StoreSingle(z.msec, forces.mzsec);
}

// Axial force and the sum of uniform loads.
void CombineLineSums(const Inputs& in, Forces& forces, const LoadFactors& strength,
                     bool checkedonly)
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
    CombineLineSums(in, forces, strength, checkedonly);

    LineSums y, z;
    const double scaley = DeflectionScale(in, section.iy), scalez = DeflectionScale(in, section.iz);
    for (int i = 0; i < table.count; ++i) {
        const ActingLoad& load = table.load[static_cast<std::size_t>(i)];
        if ((checkedonly && !load.checked) || load.axis == BendingAxis::none) {
            continue;
        }
        LineSums& sums = load.axis == BendingAxis::y ? y : z;
        const double factor = FactorOf(strength, load.category);
        const double scale = load.axis == BendingAxis::y ? scaley : scalez;
        AddLoad(sums, load.lines, factor, FactorOf(service, load.category) * scale);
    }
    StoreDiagrams(y, z, forces);
    forces.mysec = y.msec;
    forces.vzsec = y.vsec;
    forces.vysec = z.vsec;
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

void MarkLoadedAxes(const Inputs& in, const LoadTable& table, Forces& forces)
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

void AnalyseCombination(const Inputs& in, const AnnexFactors& annex, const SectionRecord& section,
                        const LoadTable& table, int loadcomb, Forces& forces)
{
    Combine(in, annex, section, forces, table, loadcomb);
    FindExtremes(in, forces);
    SetDesignMoments(forces);
}

}  // namespace kestrum
