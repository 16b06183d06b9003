#include "analysis/load_model.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"

#include <cstddef>

namespace kestrum {

namespace {

void ClearTrapezoid(LoadInputs& loads, std::size_t k)
{
    loads.qt1[k] = loads.qt2[k] = loads.qtx1[k] = loads.qtx2[k] = 0;
}

// A load that starts on the member ends on it; its end value stays as entered.
void CutTrapezoid(const Inputs& in, LoadInputs& loads, DroppedLoads& dropped, std::size_t k)
{
    if (loads.qt1[k] != 0 || loads.qt2[k] != 0) {
        if (loads.qtx1[k] < in.l || loads.qtx2[k] < in.l) {
            loads.qtx1[k] = loads.qtx1[k] > in.l ? in.l : loads.qtx1[k];
            loads.qtx2[k] = loads.qtx2[k] > in.l ? in.l : loads.qtx2[k];
        } else {
            NoteDroppedTrapezoid(in, dropped, k, DropReason::position);
            ClearTrapezoid(loads, k);
        }
    }
    if (loads.qt1[k] == 0 && loads.qt2[k] == 0) {
        loads.qtx1[k] = loads.qtx2[k] = 0;
    }
    if (loads.qtx1[k] == 0 && loads.qtx2[k] == 0) {
        NoteDroppedTrapezoid(in, dropped, k, DropReason::position);
        loads.qt1[k] = loads.qt2[k] = 0;
    }
}

// The first row whose two values have opposite signs.
LoadCheck CheckSigns(const Inputs& in)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if ((in.qt1[k] > 0 && in.qt2[k] < 0) || (in.qt1[k] < 0 && in.qt2[k] > 0)) {
            return {false, " Trapezoidal load: One positive and one negative value ", "iqt1",
                    static_cast<int>(k)};
        }
    }
    return {};
}

// The first row that does not run from left to right.
LoadCheck CheckOrder(const Inputs& in)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        const bool loaded = in.qt1[k] != 0 || in.qt2[k] != 0;
        if (loaded && !(in.qtx1[k] < in.qtx2[k])) {
            return {false, " x1 < x2 ", "iqtx1", static_cast<int>(k)};
        }
    }
    return {};
}

LoadCheck CutTrapezoids(const Inputs& in, LoadInputs& loads, DroppedLoads& dropped)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        CutTrapezoid(in, loads, dropped, k);
    }
    return CheckSigns(in);
}

// A force never stands on a support; a moment may stand on a pinned end.
bool PointLoadStands(const Inputs& in, std::size_t k)
{
    const float a = in.pmx[k];
    const bool force = in.pmkind[k] == 0;
    switch (in.supportcase) {
    case SupportCase::pinned_fixed:
    case SupportCase::pinned_spring:
        return (!force || a != 0) && a < in.l;
    case SupportCase::fixed:
        return a != 0 && a < in.l;
    case SupportCase::cantilever:
        return a != 0 && a <= in.l;
    default:
        return force ? a != 0 && a < in.l : a <= in.l;
    }
}

}  // namespace

float LengthInMm(const Inputs& in)
{
    return F32(in.l * 1000.0);
}

LoadCheck CheckLoadPositions(const Inputs& in, LoadInputs& loads, DroppedLoads& dropped)
{
    OpenDropped(in, dropped);
    const LoadCheck check = CutTrapezoids(in, loads, dropped);
    CloseDropped(in, dropped);
    return check;
}

LoadCheck CheckTrapezoids(const Inputs& in)
{
    const LoadCheck signs = CheckSigns(in);
    return signs.ok ? CheckOrder(in) : signs;
}

LoadCheck ValidateLoads(const Inputs& in, MemberInputs& member, LoadInputs& loads,
                        DroppedLoads& dropped)
{
    OpenDropped(in, dropped);
    LoadCheck check = CutTrapezoids(in, loads, dropped);
    for (std::size_t k = 1; k <= 8; ++k) {
        if (!PointLoadStands(in, k)) {
            NoteDroppedPoint(in, dropped, k, DropReason::position);
            loads.pm[k] = 0;
        }
        if (loads.pm[k] == 0) {
            loads.pmx[k] = 0;
        }
    }
    CloseDropped(in, dropped);
    if (check.ok) {
        check = CheckOrder(in);
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        member.cp[k] = member.cp[k] > member.l ? member.l : member.cp[k];
    }
    if (member.webstiffa > LengthInMm(in)) {
        member.webstiff = 0;
        member.webstiffa = F32(LengthInMm(in) / 2.0);
    }
    return check;
}

void RemoveCheckedLoads(MemberInputs& member, LoadInputs& loads)
{
    loads.pmrelative = loads.qtrelative = loads.selfweight = 0;
    member.loadlevel = 1;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (loads.nchecked[k] != 0) {
            loads.nload[k] = loads.ntype[k] = 0;
        }
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        if (loads.qchecked[k] != 0) {
            loads.qload[k] = 0;
            loads.qtype[k] = 0;
            loads.qdir[k] = 1;
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (loads.qtchecked[k] != 0) {
            ClearTrapezoid(loads, k);
            loads.qttype[k] = 0;
            loads.qtdir[k] = 1;
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (loads.pmchecked[k] != 0) {
            loads.pm[k] = loads.pmx[k] = 0;
            loads.pmkind[k] = loads.pmtype[k] = 0;
            loads.pmdir[k] = 1;
        }
    }
}

}  // namespace kestrum
