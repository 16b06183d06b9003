#include "analysis/end_forces.h"

#include "analysis/extremes.h"
#include "core/arithmetic_trap.h"
#include "sections/families.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {

namespace {

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

void CalcEndForceMode(const Inputs& in, Forces& forces)
{
    FillSections(forces, forces.mysec, in.my1, in.my2);
    FillSections(forces, forces.mzsec, in.mz1, in.mz2);
    FillSections(forces, forces.vzsec, in.vz1, in.vz2);
    FillSections(forces, forces.vysec, in.vy1, in.vy2);
    FillDiagram(forces.mydiag, in.my1, in.my2);
    FillDiagram(forces.mzdiag, in.mz1, in.mz2);
    FillDiagram(forces.vzdiag, in.vz1, in.vz2);
    FillDiagram(forces.vydiag, in.vy1, in.vy2);

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
    forces.ned = Traits(in).carries.ends.n ? in.ne : 0;
    forces.qsum = 0;
    forces.hasyloads = kTrue;
    forces.haszloads = kTrue;
    SetDesignMoments(forces);
}

}  // namespace kestrum
