#pragma once

// The members whose times are taken.

#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "sections/families.h"
#include "sections/load_library.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrum {

inline const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

inline ProjectState Default()
{
    ProjectState s{};
    StartUp(Delivered(), s);
    return s;
}

// Everything that a pass can do for a new project: interaction by Annex A, modal analysis,
// deflections.
inline ProjectState EverythingOn()
{
    ProjectState s = Default();
    s.method = 1;
    s.modal = 1;
    s.checksls = kTrue;
    return s;
}

// All eighteen load rows in use, about both axes, on top of that.
inline ProjectState AllRows()
{
    ProjectState s = EverythingOn();
    const auto odd = [](std::size_t k) { return static_cast<i16>(k % 2); };
    for (std::size_t k = 1; k <= 3; ++k) {
        s.nload[k] = 10;
        s.qt1[k] = 1;
        s.qt2[k] = static_cast<float>(k);
        s.qtx1[k] = 0.5F * static_cast<float>(k);
        s.qtx2[k] = 3.0F + 0.5F * static_cast<float>(k);
        s.qtdir[k] = static_cast<float>(odd(k));
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        s.qload[k] = static_cast<float>(k);
        s.qdir[k] = odd(k);
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        s.pmkind[k] = k % 3 == 0 ? 1 : 0;
        s.pm[k] = static_cast<float>(k);
        s.pmx[k] = 0.55F * static_cast<float>(k);
        s.pmdir[k] = odd(k);
    }
    return s;
}

// The same with the two combinations of selector 3, which run the control twice more.
inline ProjectState AllRowsTwice()
{
    ProjectState s = AllRows();
    s.loadcomb = 3;
    return s;
}

// A new project of another family, everything on.
inline ProjectState OfFamily(int family)
{
    ProjectState s = EverythingOn();
    s.family = static_cast<i16>(family);
    return s;
}

struct NamedMember {
    std::string name;
    ProjectState state;
};

inline std::vector<NamedMember> Members()
{
    std::vector<NamedMember> members = {{"default", Default()},
                                        {"everything_on", EverythingOn()},
                                        {"all_rows", AllRows()},
                                        {"all_rows_twice", AllRowsTwice()}};
    for (const int family : FamilyNumbers()) {
        members.push_back({"family_" + std::to_string(family), OfFamily(family)});
    }
    return members;
}

}  // namespace kestrum
