#include "standard/effective_study.h"

#include "standard/member.h"

namespace kestrum::standard {

std::optional<EffectiveStudy> EffectiveStudyOf(const Library& library, const ProjectState& project)
{
    std::optional<EffectiveStudy> study;
    WithMember(library, project, Basis::Standard(), nullptr, [&](const Member& m) {
        const StandardSection& q = m.section.q;
        study = EffectiveStudy{.section = q,
                               .values = m.section.effective,
                               .compressed = {},
                               .sagged = {},
                               .hogged = {},
                               .angle = {}};
        if (q.Angle()) {
            study->angle = EffectiveAngle(q, m.basis, &study->compression);
            study->compressed = {study->angle.a, study->angle.yc, study->angle.zc, 0, 0};
            return;
        }
        study->compressed = EffectiveInCompression(q, &study->compression);
        study->sagged = EffectiveAboutY(q, true, m.basis, &study->sagging);
        study->hogged = EffectiveAboutY(q, false, m.basis, &study->hogging);
    });
    return study;
}

}  // namespace kestrum::standard
