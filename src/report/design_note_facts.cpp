#include "report/design_note_facts.h"

#include "core/load_combination.h"
#include "core/project_state.h"
#include "design/shear.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

bool IsDoublySymmetricI(const ProjectState& s)
{
    return Is(s, Kind::i_rolled, Kind::i_welded);
}

bool IsHollowOrBox(const ProjectState& s)
{
    return Is(s, Kind::hollow, Kind::box);
}

bool HasTwoPlatedFlanges(const ProjectState& s)
{
    return !Is(s, Kind::none) && Traits(s).shape.lower != LowerFlange::none;
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

bool LateralControlled(const ProjectState& s)
{
    return s.ltb == 1 && !s.checklist.row(ResultRow::lateral).empty();
}

bool WebBucklesInShear(const ProjectState& s)
{
    return LargestVz(s) != 0 && s.checkwebbuck != kTrue && !StockyInShear(s, s, s.hw, s.tw);
}

TorsionalForces OwnTorsionalForces(const ProjectState& s)
{
    const double length = s.ltb == 1 ? static_cast<double>(s.ltbk) * s.l / (s.restraints + 1) : s.l;
    return TorsionalForcesAt(s, s, s, length);
}

int StrengthCombination(const ProjectState& s)
{
    if (s.loadcomb != kEq610ab) {
        return s.loadcomb;
    }
    return s.governing == 1 ? kEq610a : kEq610b;
}

}  // namespace kestrum
