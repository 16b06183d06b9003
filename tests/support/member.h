#pragma once

// A member made from text: the default project with fields changed by name.

#include "app/assign.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "sections/load_library.h"

#include <sstream>
#include <stdexcept>
#include <string>

namespace kestrum {

inline const Library& DeliveredTables()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

// `lines`: name=value, parted by blanks; the values are stored as the file reader stores them.
inline void SetFields(ProjectState& s, const std::string& lines)
{
    std::istringstream stream(lines);
    std::string word;
    while (stream >> word) {
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const std::string refusal =
            AssignField(DeliveredTables(), s, name, word.substr(equals + 1), Assignment::raw);
        if (!refusal.empty()) {
            throw std::invalid_argument(word + ": " + refusal);
        }
    }
}

// The default project with these changes, not calculated. It starts as a fresh program does.
inline ProjectState MemberOf(const std::string& lines)
{
    static const ProjectState kFresh = [] {
        ProjectState s{};
        StartUp(DeliveredTables(), s);
        return s;
    }();
    ProjectState s = kFresh;
    SetFields(s, lines);
    return s;
}

// No load, and every factor on loads 1.
inline constexpr const char* kUnloaded =
    "loadcomb=5 nload[1]=0 qload[1]=0 ne=0 my1=0 vz1=0 vortexcase=0 ";

}  // namespace kestrum
