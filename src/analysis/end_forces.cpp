#include "analysis/end_forces.h"

#include "analysis/extremes.h"
#include "core/arithmetic_trap.h"
#include "sections/families.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {

namespace {

void ClearInvalidEndForces(const Inputs& in, LoadInputs& loads, PassOutcome& outcome)
{
    const Actions& takes = Traits(in).carries.loads;
    const Actions& carried = Traits(in).carries.ends;
    OpenDropped(in, outcome);
    NoteDroppedEndForces(in, outcome, !takes.n, !takes.y, !takes.z);
    if (!carried.y) {
        loads.my1 = loads.my2 = loads.vz1 = loads.vz2 = 0;
    }
    if (!carried.z) {
        loads.mz1 = loads.mz2 = loads.vy1 = loads.vy2 = 0;
    }
    CloseDropped(in, outcome);
}

void FillDiagram(std::array<float, kDiagramPoints>& line, double end1, double end2)
{
    for (std::size_t j = 0; j < line.size(); ++j) {
        line[j] = F32(end1 + static_cast<double>(j) * (end2 - end1) / (kDiagramPoints - 1));
    }
}

template <class T>
void FillSections(const Forces& forces, std::array<T, kCheckSections>& sections, double end1,
                  double end2)
{
    sections = {};
    for (std::size_t k = 0; k <= static_cast<std::size_t>(forces.npts); ++k) {
        sections[k] = static_cast<T>((end2 - end1) * forces.xi[k] + end1);
    }
}

double Highest(const std::array<float, kDiagramPoints>& line, double from)
{
    return std::max(from, static_cast<double>(*std::max_element(line.begin(), line.end())));
}

double Lowest(const std::array<float, kDiagramPoints>& line)
{
    return std::min(0.0, static_cast<double>(*std::min_element(line.begin(), line.end())));
}

}  // namespace

void CalcEndForceMode(const Inputs& in, LoadInputs& loads, Forces& forces, Stability& stability,
                      PassOutcome& outcome)
{
    ClearInvalidEndForces(in, loads, outcome);
    FillSections(forces, forces.mysec, loads.my1, loads.my2);
    FillSections(forces, forces.mzsec, loads.mz1, loads.mz2);
    FillSections(forces, forces.vzsec, loads.vz1, loads.vz2);
    FillSections(forces, forces.vysec, loads.vy1, loads.vy2);
    FillDiagram(forces.mydiag, loads.my1, loads.my2);
    FillDiagram(forces.mzdiag, loads.mz1, loads.mz2);
    FillDiagram(forces.vzdiag, loads.vz1, loads.vz2);
    FillDiagram(forces.vydiag, loads.vy1, loads.vy2);

    forces.mymax = Highest(forces.mydiag, 0);
    forces.mymin = Lowest(forces.mydiag);
    forces.mzmax = Highest(forces.mzdiag, 0);
    forces.mzmin = Lowest(forces.mzdiag);
    forces.vzmax =
        Highest(forces.vzdiag, forces.vzdiag[0]);  // the highest shear may be negative here
    forces.vzmin = Lowest(forces.vzdiag);
    forces.vymax = Highest(forces.vydiag, forces.vydiag[0]);
    forces.vymin = Lowest(forces.vydiag);

    SetQuarterPoints(forces);
    SetEndRatios(forces);
    SetZeroCrossings(in, forces);
    SetLargestMoments(forces);
    forces.ned = Traits(in).carries.ends.n ? loads.ne : 0;
    forces.qsum = 0;
    forces.hasyloads = kTrue;
    forces.haszloads = kTrue;
    SetDesignMoments(forces, stability);
}

}  // namespace kestrum
