#pragma once

// What the targets share.

#include "core/library.h"
#include "core/project_state.h"
#include "engine/new_project.h"
#include "sections/load_library.h"

#include <cstdio>
#include <cstdlib>

namespace kestrum::fuzz {

inline void Require(bool holds, const char* what)
{
    if (!holds) {
        std::fputs(what, stderr);
        std::fputs("\n", stderr);
        std::abort();
    }
}

inline const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

inline const ProjectState& Default()
{
    static const ProjectState kDefault = [] {
        ProjectState s{};
        StartUp(Delivered(), s);
        return s;
    }();
    return kDefault;
}

}  // namespace kestrum::fuzz
