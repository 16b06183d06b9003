#include "analysis/end_forces.h"

#include "analysis/extremes.h"
#include "core/arithmetic_trap.h"
#include "sections/families.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {

namespace {

void ClearInvalidEndForces(ProjectState& s)
{
    const Actions& takes = Traits(s).carries.loads;
    const Actions& carried = Traits(s).carries.ends;
    OpenDropped(s);
    NoteDroppedEndForces(s, !takes.n, !takes.y, !takes.z);
    if (!carried.y) {
        s.my1 = s.my2 = s.vz1 = s.vz2 = 0;
    }
    if (!carried.z) {
        s.mz1 = s.mz2 = s.vy1 = s.vy2 = 0;
    }
    CloseDropped(s);
}

void FillDiagram(std::array<float, kDiagramPoints>& line, double end1, double end2)
{
    for (std::size_t j = 0; j < line.size(); ++j) {
        line[j] = F32(end1 + static_cast<double>(j) * (end2 - end1) / (kDiagramPoints - 1));
    }
}

template <class T>
void FillSections(const ProjectState& s, std::array<T, kCheckSections>& sections, double end1,
                  double end2)
{
    sections = {};
    for (std::size_t k = 0; k <= static_cast<std::size_t>(s.npts); ++k) {
        sections[k] = static_cast<T>((end2 - end1) * s.xi[k] + end1);
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

void CalcEndForceMode(ProjectState& s)
{
    ClearInvalidEndForces(s);
    FillSections(s, s.mysec, s.my1, s.my2);
    FillSections(s, s.mzsec, s.mz1, s.mz2);
    FillSections(s, s.vzsec, s.vz1, s.vz2);
    FillSections(s, s.vysec, s.vy1, s.vy2);
    FillDiagram(s.mydiag, s.my1, s.my2);
    FillDiagram(s.mzdiag, s.mz1, s.mz2);
    FillDiagram(s.vzdiag, s.vz1, s.vz2);
    FillDiagram(s.vydiag, s.vy1, s.vy2);

    s.mymax = Highest(s.mydiag, 0);
    s.mymin = Lowest(s.mydiag);
    s.mzmax = Highest(s.mzdiag, 0);
    s.mzmin = Lowest(s.mzdiag);
    s.vzmax = Highest(s.vzdiag, s.vzdiag[0]);  // the highest shear may be negative here
    s.vzmin = Lowest(s.vzdiag);
    s.vymax = Highest(s.vydiag, s.vydiag[0]);
    s.vymin = Lowest(s.vydiag);

    SetQuarterPoints(s);
    SetEndRatios(s);
    SetZeroCrossings(s);
    SetLargestMoments(s);
    s.ned = Traits(s).carries.ends.n ? s.ne : 0;
    s.qsum = 0;
    s.hasyloads = kTrue;
    s.haszloads = kTrue;
    SetDesignMoments(s);
}

}  // namespace kestrum
