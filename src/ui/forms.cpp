#include "ui/forms.h"

#include "app/load_commands.h"
#include "app/member_commands.h"

#include <algorithm>

namespace kestrum {

namespace {

bool Open(Session&)
{
    return true;
}

bool OpenModal(Session& session)
{
    return ModalResultShown(session.state());
}

// With nothing pinned, what comes is compared with what is there now.
bool OpenCompare(Session& session)
{
    if (!session.pinned()) {
        session.Pin();
    }
    return true;
}

template <void (*kHandler)(Session&)> bool After(Session& session)
{
    kHandler(session);
    return true;
}

}  // namespace

const std::vector<FormMaker>& AllForms()
{
    static const std::vector<FormMaker> forms{
        {"setup", MakeSetup, Open, true, true},
        {"Loading", MakeLoading, After<OpenLoading>, false, true},
        {"endforce", MakeEndForce, After<OpenEndForces>, true, true},
        {"endstiff", MakeEndStiff, Open, true, true},
        {"bucklingy", MakeBucklingY, Open, true, true},
        {"bucklingz", MakeBucklingZ, Open, true, true},
        {"chpoints", MakeCheckPoints, Open, true, true},
        {"vipping", MakeVipping, After<OpenVipping>, true, true},
        {"frmVortex", MakeVortex, OpenVortex, false, true},
        {"Modal_ns", MakeModal, OpenModal, false, true},
        {"detailedresult", MakeDetailedResult, Open},
        {"about", MakeAbout, Open},
        {"InfoPsi", MakeInfoPsi, Open},
        {"InfoULS", MakeInfoUls, Open},
        {"InfoVipping", MakeInfoVipping, Open},
        {"InfoKESTRUM", MakeInfoKestrum, Open},
        {"infoendsupport", MakeInfoEndSupport, Open},
        {"sectionpicture", MakeSectionPicture, Open},
        {"compare", MakeCompare, OpenCompare, false, true},
        {"deviation", MakeDeviation, Open},
        {"combinations", MakeCombinations, Open},
        {"equations", MakeEquations, Open},
    };
    return forms;
}

const FormMaker* FindForm(std::string_view name)
{
    const auto& forms = AllForms();
    const auto at = std::find_if(forms.begin(), forms.end(),
                                 [&](const FormMaker& form) { return form.name == name; });
    return at != forms.end() ? &*at : nullptr;
}

}  // namespace kestrum
