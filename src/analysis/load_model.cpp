#include "analysis/load_model.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"

#include <cstddef>

namespace kestrum {

namespace {

void ClearTrapezoid(ProjectState& s, std::size_t k)
{
    s.qt1[k] = s.qt2[k] = s.qtx1[k] = s.qtx2[k] = 0;
}

// A load that starts on the member ends on it; its end value stays as entered.
void CutTrapezoid(ProjectState& s, std::size_t k)
{
    if (s.qt1[k] != 0 || s.qt2[k] != 0) {
        if (s.qtx1[k] < s.l || s.qtx2[k] < s.l) {
            s.qtx1[k] = s.qtx1[k] > s.l ? s.l : s.qtx1[k];
            s.qtx2[k] = s.qtx2[k] > s.l ? s.l : s.qtx2[k];
        } else {
            NoteDroppedTrapezoid(s, k, DropReason::position);
            ClearTrapezoid(s, k);
        }
    }
    if (s.qt1[k] == 0 && s.qt2[k] == 0) {
        s.qtx1[k] = s.qtx2[k] = 0;
    }
    if (s.qtx1[k] == 0 && s.qtx2[k] == 0) {
        NoteDroppedTrapezoid(s, k, DropReason::position);
        s.qt1[k] = s.qt2[k] = 0;
    }
}

// The first row whose two values have opposite signs.
LoadCheck CheckSigns(const ProjectState& s)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if ((s.qt1[k] > 0 && s.qt2[k] < 0) || (s.qt1[k] < 0 && s.qt2[k] > 0)) {
            return {false, " Trapezoidal load: One positive and one negative value ", "iqt1",
                    static_cast<int>(k)};
        }
    }
    return {};
}

// The first row that does not run from left to right.
LoadCheck CheckOrder(const ProjectState& s)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        const bool loaded = s.qt1[k] != 0 || s.qt2[k] != 0;
        if (loaded && !(s.qtx1[k] < s.qtx2[k])) {
            return {false, " x1 < x2 ", "iqtx1", static_cast<int>(k)};
        }
    }
    return {};
}

LoadCheck CutTrapezoids(ProjectState& s)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        CutTrapezoid(s, k);
    }
    return CheckSigns(s);
}

// A force never stands on a support; a moment may stand on a pinned end.
bool PointLoadStands(const ProjectState& s, std::size_t k)
{
    const float a = s.pmx[k];
    const bool force = s.pmkind[k] == 0;
    switch (s.supportcase) {
    case SupportCase::pinned_fixed:
    case SupportCase::pinned_spring:
        return (!force || a != 0) && a < s.l;
    case SupportCase::fixed:
        return a != 0 && a < s.l;
    case SupportCase::cantilever:
        return a != 0 && a <= s.l;
    default:
        return force ? a != 0 && a < s.l : a <= s.l;
    }
}

}  // namespace

float LengthInMm(const ProjectState& s)
{
    return F32(s.l * 1000.0);
}

LoadCheck CheckLoadPositions(ProjectState& s)
{
    OpenDropped(s);
    const LoadCheck check = CutTrapezoids(s);
    CloseDropped(s);
    return check;
}

LoadCheck CheckTrapezoids(const ProjectState& s)
{
    const LoadCheck signs = CheckSigns(s);
    return signs.ok ? CheckOrder(s) : signs;
}

LoadCheck ValidateLoads(ProjectState& s)
{
    OpenDropped(s);
    LoadCheck check = CutTrapezoids(s);
    for (std::size_t k = 1; k <= 8; ++k) {
        if (!PointLoadStands(s, k)) {
            NoteDroppedPoint(s, k, DropReason::position);
            s.pm[k] = 0;
        }
        if (s.pm[k] == 0) {
            s.pmx[k] = 0;
        }
    }
    CloseDropped(s);
    if (check.ok) {
        check = CheckOrder(s);
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        s.cp[k] = s.cp[k] > s.l ? s.l : s.cp[k];
    }
    if (s.webstiffa > LengthInMm(s)) {
        s.webstiff = 0;
        s.webstiffa = F32(LengthInMm(s) / 2.0);
    }
    return check;
}

void RemoveCheckedLoads(ProjectState& s)
{
    s.pmrelative = s.qtrelative = s.selfweight = 0;
    s.loadlevel = 1;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.nchecked[k] != 0) {
            s.nload[k] = s.ntype[k] = 0;
        }
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        if (s.qchecked[k] != 0) {
            s.qload[k] = 0;
            s.qtype[k] = 0;
            s.qdir[k] = 1;
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.qtchecked[k] != 0) {
            ClearTrapezoid(s, k);
            s.qttype[k] = 0;
            s.qtdir[k] = 1;
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pmchecked[k] != 0) {
            s.pm[k] = s.pmx[k] = 0;
            s.pmkind[k] = s.pmtype[k] = 0;
            s.pmdir[k] = 1;
        }
    }
}

}  // namespace kestrum
