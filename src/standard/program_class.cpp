#include "standard/program_class.h"

#include "core/project_state.h"
#include "design/class_hollow.h"
#include "design/class_i.h"
#include "design/single_symmetric_i_section.h"
#include "sections/families.h"

#include <cmath>

namespace kestrum::standard {

bool ClassedByStresses(const StandardSection& q)
{
    return q.ISection() || q.kind == Kind::channel || q.kind == Kind::i_single ||
           q.kind == Kind::hollow || q.kind == Kind::box;
}

ProgramClasses ProgramClassesUnder(const ProjectState& s, double n, double my, double mz)
{
    SectionRecord section = s;
    SectionChecks checks{};
    checks.mysigned = my / 1e6;
    const auto kn = static_cast<float>(n / 1e3);
    const auto about_y = static_cast<float>(std::abs(my) / 1e6);
    const auto about_z = static_cast<float>(std::abs(mz) / 1e6);
    if (Is(s, Kind::i_single)) {
        return {ClassSingleIY(s, section, checks, kn, about_y),
                ClassSingleIZ(s, section, checks, kn, about_z)};
    }
    if (Is(s, Kind::hollow, Kind::box)) {
        return {CalcClassHollowY(s, section, checks, kn, about_y),
                CalcClassHollowZ(s, section, checks, kn, about_z)};
    }
    return {CalcClassY(s, section, checks, kn, about_y),
            CalcClassZ(s, section, checks, kn, about_z)};
}

}  // namespace kestrum::standard
