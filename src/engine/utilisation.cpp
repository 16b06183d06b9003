#include "engine/utilisation.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/control_dispatch.h"
#include "engine/family_routines.h"
#include "engine/section_dispatch.h"

#include <cmath>

namespace kestrum {

namespace {

// One check section, at the point j of the diagrams.
void TakePoint(const Forces& diagrams, std::size_t j, Forces& forces)
{
    forces.npts = 0;
    forces.xi[0] = F32(static_cast<double>(j) / (kDiagramPoints - 1));
    forces.mysec[0] = diagrams.mydiag[j];
    forces.vzsec[0] = diagrams.vzdiag[j];
    forces.mzsec[0] = diagrams.mzdiag[j];
    forces.vysec[0] = diagrams.vydiag[j];
}

}  // namespace

std::optional<AlongMember> SectionUtilisation(const Library& library, const ProjectState& s)
{
    if (FindRoutines(s.family) == nullptr) {
        return std::nullopt;
    }
    AlongMember along{};
    ProjectState at = s;
    try {
        ArmTrap();
        CalcSection(library, at);
        CheckTrap();
        const SectionRecord section = at;  // the control leaves the classes of its last section
        const Resistances resistances = at;
        for (std::size_t j = 0; j < along.size(); ++j) {
            static_cast<SectionRecord&>(at) = section;
            static_cast<Resistances&>(at) = resistances;
            at.ned = s.ned;
            TakePoint(s, j, at);
            CalcSectionControl(at);
            along[j] = at.irsection;
        }
    } catch (const CalculationStop&) {
        ArmTrap();
        return std::nullopt;
    }
    ArmTrap();
    return along;
}

}  // namespace kestrum
