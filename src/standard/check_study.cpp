#include "standard/check_study.h"

namespace kestrum::standard {

std::optional<CheckStudy> CheckStudyOf(const Library& library, const ProjectState& project,
                                       CheckId id, const Check& check)
{
    std::optional<CheckStudy> study;
    if (!check.present) {
        return study;
    }
    WithMember(library, project, Basis::Standard(), nullptr, [&](const Member& m) {
        study = CheckStudy{.section = m.section.q, .effective = m.section.effective};
        const CombinedLines lines = LinesOf(m.s, m.loads, check.load_case.factors, m.basis);
        if (IsDeflection(id)) {
            study->deflection =
                DeflectionOf(m, lines, id == CheckId::deflection_z ? Axis::y : Axis::z);
        } else if (static_cast<std::size_t>(id) < kSectionChecks) {
            study->at_section =
                SectionTermsOf(m, check.load_case, lines, id, check.place * lines.grid.Length());
        } else {
            study->of_member = MemberTermsOf(m, check.load_case, lines, id);
        }
    });
    return study;
}

}  // namespace kestrum::standard
