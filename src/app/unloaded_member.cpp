#include "app/unloaded_member.h"

#include "app/field_owner.h"
#include "core/project_state.h"
#include "engine/new_project.h"

namespace kestrum {

ProjectState UnloadedMember(const Library& library)
{
    ProjectState s = StartState(library);
    ClearLoads(s, LoadKind::load);
    ClearLoads(s, LoadKind::endforce);
    s.ident.clear();
    return s;
}

}  // namespace kestrum
