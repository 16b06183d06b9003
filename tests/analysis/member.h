#pragma once

// A member to load in the tests: E I = 16800 kNm2 about y and 4200 kNm2 about z, all load
// factors 1.

#include "analysis/cmoment.h"
#include "core/load_combination.h"
#include "core/project_state.h"

#include <array>
#include <cstddef>

namespace kestrum::test {

constexpr double kStiffnessY = 16800;  // kNm2
constexpr int kSupportCases = 6;

inline ProjectState Member(int supportcase, float l = 6)
{
    ProjectState s{};
    s.family = 1;
    s.l = l;
    s.supportcase = static_cast<i16>(supportcase);
    s.spring = 50;
    s.e = 210000;
    s.iy = 8e7F;
    s.iz = 2e7F;
    s.loadmode = 1;
    s.loadcomb = kUserFactors;
    s.lfulsg = s.lfulsq1 = s.lfulsq2 = 1;
    s.lfslsg = s.lfslsq1 = s.lfslsq2 = 1;
    s.qdir.fill(1);
    s.qtdir.fill(1);
    s.pmdir.fill(1);
    return s;
}

inline void AddForce(ProjectState& s, std::size_t row, float p, float a)
{
    s.pmkind[row] = 0;
    s.pm[row] = p;
    s.pmx[row] = a;
}

inline void AddMoment(ProjectState& s, std::size_t row, float m, float a)
{
    s.pmkind[row] = 1;
    s.pm[row] = m;
    s.pmx[row] = a;
}

inline void AddTrapezoid(ProjectState& s, std::size_t row, float q1, float q2, float x1, float x2)
{
    s.qt1[row] = q1;
    s.qt2[row] = q2;
    s.qtx1[row] = x1;
    s.qtx2[row] = x2;
}

// The analysis of a combination that needs no control.
inline void Analyse(ProjectState& s)
{
    CalcMember(s, nullptr);
}

inline ProjectState Analysed(ProjectState s)
{
    Analyse(s);
    return s;
}

// Size of the largest value of a line.
template <class Line> double Largest(const Line& line)
{
    double largest = 0;
    for (const auto value : line) {
        largest = value > largest ? value : -value > largest ? -value : largest;
    }
    return largest;
}

}  // namespace kestrum::test
