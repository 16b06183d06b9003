#include "standard/lateral_study.h"

#include "standard/member.h"

namespace kestrum::standard {

std::optional<LateralStudy> LateralStudyOf(const Library& library, const ProjectState& project,
                                           const LoadCase& load_case)
{
    std::optional<LateralStudy> study;
    WithMember(library, project, Basis::Standard(), nullptr, [&](const Member& m) {
        const StandardSection& q = m.section.q;
        if (q.Angle() || q.kind == Kind::plate) {
            return;
        }
        const CombinedLines lines = LinesOf(m.s, m.loads, load_case.factors, m.basis);
        const int cls = ClassOf(q, ActingIn(lines), m.basis);
        const LateralCase one{m.s,     m.basis,           nullptr, m.section, m.solved,
                              m.loads, load_case.factors, lines,   cls};
        const LateralResult result = LateralBucklingOf(one);
        if (result.mcr > 0 && result.chi > 0) {
            study = {q, result, NumericalStudyOf(one)};
        }
    });
    return study;
}

}  // namespace kestrum::standard
