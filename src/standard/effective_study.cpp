#include "standard/effective_study.h"

#include "standard/member.h"

namespace kestrum::standard {

std::optional<EffectiveStudy> EffectiveStudyOf(const Library& library, const ProjectState& project)
{
    std::optional<EffectiveStudy> study;
    WithMember(library, project, Basis::Standard(), nullptr, [&](const Member& m) {
        const StandardSection& q = m.section.q;
        if (q.Angle()) {
            return;
        }
        study = EffectiveStudy{.values = m.section.effective,
                               .compressed = {},
                               .doubly_symmetric = q.DoublySymmetric()};
        study->compressed = EffectiveInCompression(q, &study->compression);
        EffectiveAboutY(q, true, m.basis, &study->sagging);
        EffectiveAboutY(q, false, m.basis, &study->hogging);
    });
    return study;
}

}  // namespace kestrum::standard
