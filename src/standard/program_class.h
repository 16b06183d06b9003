#pragma once

// D42: classes of N with a moment as the program finds them, by the stresses that act.

#include "standard/section.h"

namespace kestrum {
struct ProjectState;
}

namespace kestrum::standard {

// Kinds whose class depends on the size of the forces.
bool ClassedByStresses(const StandardSection& q);

struct ProgramClasses {
    int my, mz;  // of N with My, of N with Mz
};
// N, compression positive, and Nmm; `s` after the program's section step.
ProgramClasses ProgramClassesUnder(const ProjectState& s, double n, double my, double mz);

}  // namespace kestrum::standard
