#pragma once

// A member to load in the tests: E I = 16800 kNm2 about y and 4200 kNm2 about z, all load
// factors 1.

#include "engine/member_analysis.h"
#include "support/members.h"

#include <array>
#include <cstddef>

namespace kestrum::test {

constexpr double kStiffnessY = 16800;  // kNm2
constexpr int kSupportCases = 6;

inline Member Beam(int supportcase, float l = 6)
{
    Member s = Member::Bare().Length(l).Supports(supportcase);
    s.spring = 50;
    s.iy = 8e7F;
    s.iz = 2e7F;
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

// A row of each kind, about both axes, in all categories.
inline Member Loaded(int supportcase)
{
    Member s = Beam(supportcase);
    s.nload = {0, 100, 20, 3};
    s.ntype = {0, 0, 1, 2};
    s.qload = {0, 4, 3, 2, 1};
    s.qtype = {0, 0, 1, 2, 1};
    s.qdir = {0, 1, 0, 1, 0};
    for (std::size_t k = 1; k <= 8; ++k) {
        const auto n = static_cast<float>(k);
        s.pmkind[k] = k % 2;
        s.pm[k] = 5 - n;
        s.pmx[k] = 0.6F * n;
        s.pmtype[k] = static_cast<i16>(k % 3);
        s.pmdir[k] = k > 4;
    }
    AddTrapezoid(s, 1, 1, 4, 0.5F, 3);
    AddTrapezoid(s, 2, 3, 0, 2.5F, 6);
    AddTrapezoid(s, 3, -2, -2, 1, 2);
    s.qttype = {0, 2, 0, 1};
    s.qtdir = {0, 1, 0, 1};
    s.selfweight = 1;
    s.weight = 40;
    return s;
}

}  // namespace kestrum::test
