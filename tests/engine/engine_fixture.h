#pragma once

// The delivered tables and a fresh program for the tests of the driver.

#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "sections/load_library.h"

namespace kestrum {

inline const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

inline ProjectState Fresh()
{
    ProjectState s{};
    StartUp(Delivered(), s);
    return s;
}

inline bool EndsWell(ProjectState& s)
{
    return Calculate(Delivered(), s);
}

// Basic loads, so that forces are what is entered.
inline ProjectState Plain(i16 family = 1)
{
    ProjectState s = Fresh();
    s.family = family;
    s.loadcomb = 5;
    return s;
}

}  // namespace kestrum
