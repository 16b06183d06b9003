#include "report/design_note_facts.h"

#include "core/load_combination.h"
#include "design/shear.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

bool IsRolledOrWeldedI(int family)
{
    return (family >= 1 && family <= 4) || family == 15 || family == 21 || family == 101 ||
           family == 102;
}

bool IsChannel(int family)
{
    return family == 5 || family == 16 || family == 103;
}

bool IsHollowOrBox(int family)
{
    return (family >= 6 && family <= 9) || family == 23;
}

bool IsAngle(int family)
{
    return family == 10 || family == 11;
}

bool IsHatBeam(int family)
{
    return family == 24 || family == 25;
}

bool IsPlate(int family)
{
    return (family >= 51 && family <= 54) || family == 56;
}

double LargestVz(const ProjectState& s)
{
    return std::max(std::abs(s.vzmax), std::abs(s.vzmin));
}

double LargestVy(const ProjectState& s)
{
    return std::max(std::abs(s.vymax), std::abs(s.vymin));
}

bool BendsAboutY(const ProjectState& s)
{
    return s.mymaxabs != 0;
}

bool BendsAboutZ(const ProjectState& s)
{
    return s.mzmaxabs != 0;
}

bool WebBucklesInShear(const ProjectState& s)
{
    return LargestVz(s) != 0 && s.checkwebbuck != kTrue && !StockyInShear(s, s.hw, s.tw);
}

TorsionalForces OwnTorsionalForces(const ProjectState& s)
{
    const double length = s.ltb == 1 ? static_cast<double>(s.ltbk) * s.l / (s.restraints + 1) : s.l;
    return TorsionalForcesAt(s, length);
}

int StrengthCombination(const ProjectState& s)
{
    if (s.loadcomb != kEq610ab) {
        return s.loadcomb;
    }
    return s.governing == 1 ? kEq610a : kEq610b;
}

}  // namespace kestrum
