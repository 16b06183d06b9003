#include "app/unloaded_member.h"

#include "app/field_owner.h"
#include "core/project_inputs.h"
#include "engine/new_project.h"

namespace kestrum {

HeldState UnloadedMember(const Library& library)
{
    HeldState s = StartState(library);
    ClearLoads(s, LoadKind::load);
    ClearLoads(s, LoadKind::endforce);
    InputsOf(s).ident.clear();
    return s;
}

}  // namespace kestrum
