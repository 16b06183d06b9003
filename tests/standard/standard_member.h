#pragma once

// Members for the tests of the standard basis: a named section, strengths as typed, user factors of
// one, no loads.

#include "core/load_combination.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "sections/load_library.h"
#include "sections/section_names.h"
#include "standard/standard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace kestrum {

inline const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

inline ProjectState Unloaded(float length, float fy)
{
    ProjectState s{};
    StartUp(Delivered(), s);
    s.loadcomb = kUserFactors;
    s.lfulsg = s.lfulsq1 = s.lfulsq2 = 1;
    s.lfslsg = s.lfslsq1 = s.lfslsq2 = 1;
    s.selfweight = 0;
    s.qload = {};
    s.nload = {};
    s.qdir.fill(1);
    s.l = length;
    s.ly = s.lz = 1;
    s.ltb = 0;
    s.restraints = 0;
    s.ltbk = 1;
    s.loadlevel = 2;
    s.fykindex = static_cast<i16>(Delivered().materials.size() - 1);
    s.fyk = fy;
    return s;
}

inline ProjectState Named(std::string_view name, float length, float fy)
{
    ProjectState s = Unloaded(length, fy);
    const auto section = SectionOfName(Delivered(), name, s.family);
    EXPECT_TRUE(section) << name;
    if (section) {
        s.family = static_cast<i16>(section->family);
        s.row[static_cast<std::size_t>(section->table)] = section->row;
        if (section->family == 101) {
            s.series101 = static_cast<i16>(section->series);
        }
        if (section->family == 103) {
            s.series103 = static_cast<i16>(section->series);
        }
    }
    return s;
}

inline void EndForces(ProjectState& s, float n, float my, float mz)
{
    s.loadmode = 0;
    s.ne = n;
    s.my1 = s.my2 = my;
    s.mz1 = s.mz2 = mz;
    s.vz1 = s.vz2 = s.vy1 = s.vy2 = 0;
}

inline standard::StandardResult Rated(const ProjectState& s)
{
    return standard::CalculateStandard(Delivered(), s);
}

inline double Ratio(const standard::StandardResult& result, standard::CheckId id)
{
    return result.checks[id].present ? result.checks[id].ir : -1;
}

inline double Ratio(const ProjectState& s, standard::CheckId id)
{
    return Ratio(Rated(s), id);
}

// With one deviation switched back to the program's rule; -1 without the check.
inline double Back(const ProjectState& s, Dev deviation, standard::CheckId id)
{
    ProjectState program = s;
    const bool well = Calculate(Delivered(), program);
    return Ratio(standard::CalculateStandard(Delivered(), s, Basis::StandardBut(deviation),
                                             well ? &program : nullptr),
                 id);
}

// Welded I of 4 m, S235, under given end forces: h, b, tw, tf.
inline ProjectState WeldedI(float h, float b, float tw, float tf)
{
    ProjectState s = Unloaded(4, 235);
    s.family = 21;
    s.p21 = {h, b, tw, tf};
    EndForces(s, 0, 0, 0);
    return s;
}

inline const double kRoot3 = std::sqrt(3.0);

}  // namespace kestrum
