#include "core/dropped_loads.h"

#include "core/dropped_text.h"
#include "core/failure.h"
#include "core/state/inputs.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace kestrum {

namespace {

constexpr std::string_view kAxial = "nload", kUniform = "qload", kTrapezoid = "qt1", kPoint = "pm";

bool IsEndForce(const DroppedLoad& load)
{
    return load.row == 0;
}

struct EndForce {
    std::string_view name;
    float LoadInputs::*force;
    std::int16_t direction;
    bool moment;
};

constexpr std::array<EndForce, 9> kEndForces = {{{"ne", &LoadInputs::ne, -1, false},
                                                 {"my1", &LoadInputs::my1, 1, true},
                                                 {"my2", &LoadInputs::my2, 1, true},
                                                 {"vz1", &LoadInputs::vz1, 1, false},
                                                 {"vz2", &LoadInputs::vz2, 1, false},
                                                 {"mz1", &LoadInputs::mz1, 0, true},
                                                 {"mz2", &LoadInputs::mz2, 0, true},
                                                 {"vy1", &LoadInputs::vy1, 0, false},
                                                 {"vy2", &LoadInputs::vy2, 0, false}}};

// An end force that was only passed over, not emptied.
bool StillThere(const Inputs& in, const DroppedLoad& load)
{
    return std::any_of(kEndForces.begin(), kEndForces.end(), [&](const EndForce& end) {
        return end.name == load.field && in.*end.force != 0;
    });
}

// FNV-1a over 32-bit words.
class Fingerprint {
public:
    template <class Rows> void Add(const Rows& rows)
    {
        for (auto at = rows.begin() + 1; at != rows.end(); ++at) {
            AddOne(*at);
        }
    }
    template <class Number> void AddOne(Number value)
    {
        hash_ ^= std::bit_cast<std::uint32_t>(static_cast<float>(value));
        hash_ *= 0x100000001b3ULL;
    }
    std::uint64_t value() const { return hash_; }

private:
    std::uint64_t hash_ = 0xcbf29ce484222325ULL;
};

// Values, categories and directions of the load rows, and the end forces. Positions do not count: a
// change of length moves them and edits no load.
std::uint64_t TableOf(const Inputs& in)
{
    Fingerprint print;
    print.Add(in.nload);
    print.Add(in.ntype);
    print.Add(in.qload);
    print.Add(in.qtype);
    print.Add(in.qdir);
    print.Add(in.qt1);
    print.Add(in.qt2);
    print.Add(in.qttype);
    print.Add(in.qtdir);
    print.Add(in.pm);
    print.Add(in.pmkind);
    print.Add(in.pmtype);
    print.Add(in.pmdir);
    for (const EndForce& end : kEndForces) {
        print.AddOne(in.*end.force);
    }
    return print.value();
}

// A number of the list; what was none stays as the row has it.
template <class Kept> void PutNumberBack(Kept& kept, std::int16_t number)
{
    if (number >= 0) {
        kept = static_cast<Kept>(number);
    }
}

void PutRowBack(LoadInputs& loads, const DroppedLoad& load)
{
    const auto k = static_cast<std::size_t>(load.row);
    if (load.field == kAxial) {
        loads.nload[k] = load.value;
        PutNumberBack(loads.ntype[k], load.category);
    } else if (load.field == kUniform) {
        loads.qload[k] = load.value;
        PutNumberBack(loads.qtype[k], load.category);
        PutNumberBack(loads.qdir[k], load.direction);
    } else if (load.field == kTrapezoid) {
        loads.qt1[k] = load.value;
        loads.qt2[k] = load.value2;
        loads.qtx1[k] = load.x1;
        loads.qtx2[k] = load.x2;
        PutNumberBack(loads.qttype[k], load.category);
        PutNumberBack(loads.qtdir[k], load.direction);
    } else if (load.field == kPoint) {
        loads.pm[k] = load.value;
        loads.pmx[k] = load.x1;
        loads.pmkind[k] = load.moment ? 1 : 0;
        PutNumberBack(loads.pmtype[k], load.category);
        PutNumberBack(loads.pmdir[k], load.direction);
    }
}

std::string Value(const DroppedLoad& load)
{
    std::string text = ShortNumber(load.value);
    if (load.field == kTrapezoid) {
        text += " to " + ShortNumber(load.value2);
    }
    return text.append(" ").append(DroppedUnit(load));
}

std::string Kind(const DroppedLoad& load)
{
    if (load.moment) {
        return load.direction == 1 ? "moment My " : "moment Mz ";
    }
    if (load.direction < 0) {
        return "axial force ";
    }
    const bool line = load.field == kUniform || load.field == kTrapezoid;
    return std::string(line               ? "line load "
                       : IsEndForce(load) ? "shear force "
                                          : "point force ") +
           (load.direction == 1 ? "z " : "y ");
}

std::string Place(const DroppedLoad& load)
{
    if (load.field == kTrapezoid) {
        return ", x = " + ShortNumber(load.x1) + " to " + ShortNumber(load.x2) + " m";
    }
    if (load.field == kPoint) {
        return ", x = " + ShortNumber(load.x1) + " m";
    }
    return {};
}

// One of the same row is replaced.
void NoteDropped(DroppedLoads& dropped, const DroppedLoad& load)
{
    const auto first = dropped.load.begin(), end = first + dropped.count;
    const auto at = std::find_if(first, end, [&load](const DroppedLoad& other) {
        return other.field == load.field && other.row == load.row;
    });
    if (at != end) {
        *at = load;
    } else if (end != dropped.load.end()) {
        *end = load;
        ++dropped.count;
    }
}

// A category or direction of a row that keeps it in single precision; -1 for none of the list.
std::int16_t KeptNumber(float kept)
{
    return kept == 0 ? 0 : kept == 1 ? 1 : kept == 2 ? 2 : -1;
}

void NoteDroppedAxial(const Inputs& in, DroppedLoads& dropped, std::size_t k)
{
    if (in.nload[k] != 0) {
        NoteDropped(dropped, {.field = kAxial,
                              .row = static_cast<i16>(k),
                              .value = in.nload[k],
                              .category = KeptNumber(in.ntype[k])});
    }
}

void NoteDroppedUniform(const Inputs& in, DroppedLoads& dropped, std::size_t k)
{
    if (in.qload[k] != 0) {
        NoteDropped(dropped, {.field = kUniform,
                              .row = static_cast<i16>(k),
                              .value = in.qload[k],
                              .category = in.qtype[k],
                              .direction = in.qdir[k]});
    }
}

}  // namespace

void OpenDropped(const Inputs& in, DroppedLoads& dropped)
{
    const bool changed = dropped.count > 0 && dropped.table != TableOf(in);
    const auto first = dropped.load.begin(), last = first + dropped.count;
    const auto end = std::remove_if(
        first, last, [&](const DroppedLoad& load) { return changed || StillThere(in, load); });
    dropped.count = static_cast<std::int16_t>(end - first);
    std::fill(end, last, DroppedLoad{});
}

void CloseDropped(const Inputs& in, DroppedLoads& dropped)
{
    dropped.table = dropped.count > 0 ? TableOf(in) : 0;
}

void NoteDroppedPoint(const Inputs& in, DroppedLoads& dropped, std::size_t k, DropReason reason)
{
    if (in.pm[k] != 0) {
        NoteDropped(dropped, {.field = kPoint,
                              .row = static_cast<i16>(k),
                              .reason = reason,
                              .value = in.pm[k],
                              .x1 = in.pmx[k],
                              .category = in.pmtype[k],
                              .direction = in.pmdir[k],
                              .moment = in.pmkind[k] != 0});
    }
}

void NoteDroppedTrapezoid(const Inputs& in, DroppedLoads& dropped, std::size_t k, DropReason reason)
{
    if (in.qt1[k] != 0 || in.qt2[k] != 0) {
        NoteDropped(dropped, {.field = kTrapezoid,
                              .row = static_cast<i16>(k),
                              .reason = reason,
                              .value = in.qt1[k],
                              .value2 = in.qt2[k],
                              .x1 = in.qtx1[k],
                              .x2 = in.qtx2[k],
                              .category = KeptNumber(in.qttype[k]),
                              .direction = KeptNumber(in.qtdir[k])});
    }
}

void NoteDroppedLoads(const Inputs& in, DroppedLoads& dropped, bool axial, bool transverse,
                      bool sideways)
{
    const auto refused = [&](auto direction) { return transverse || (sideways && direction == 0); };
    for (std::size_t k = 1; axial && k <= 3; ++k) {
        NoteDroppedAxial(in, dropped, k);
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        if (refused(in.qdir[k])) {
            NoteDroppedUniform(in, dropped, k);
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (refused(in.qtdir[k])) {
            NoteDroppedTrapezoid(in, dropped, k, DropReason::family);
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (refused(in.pmdir[k])) {
            NoteDroppedPoint(in, dropped, k, DropReason::family);
        }
    }
}

void NoteDroppedEndForces(const Inputs& in, DroppedLoads& dropped, bool axial, bool transverse,
                          bool sideways)
{
    for (const EndForce& end : kEndForces) {
        const bool refused = end.direction < 0 ? axial : end.direction == 1 ? transverse : sideways;
        if (refused && in.*end.force != 0) {
            NoteDropped(dropped, {.field = end.name,
                                  .value = in.*end.force,
                                  .direction = end.direction,
                                  .moment = end.moment});
        }
    }
}

std::vector<DroppedLoad> DroppedNow(const Inputs& in, const DroppedLoads& dropped)
{
    std::vector<DroppedLoad> loads;
    std::copy_if(dropped.load.begin(), dropped.load.begin() + dropped.count,
                 std::back_inserter(loads),
                 [&in](const DroppedLoad& load) { return IsEndForce(load) == (in.loadmode != 1); });
    return loads;
}

void PutDroppedBack(LoadInputs& loads, const DroppedLoads& dropped)
{
    for (std::int16_t i = 0; i < dropped.count; ++i) {
        const DroppedLoad& load = dropped.load[static_cast<std::size_t>(i)];
        if (!IsEndForce(load)) {
            PutRowBack(loads, load);
            continue;
        }
        for (const EndForce& end : kEndForces) {
            if (end.name == load.field) {
                loads.*end.force = load.value;
            }
        }
    }
}

std::string_view DroppedUnit(const DroppedLoad& load)
{
    if (load.moment) {
        return "kNm";
    }
    return load.field == kUniform || load.field == kTrapezoid ? "kN/m" : "kN";
}

std::string LoadText(const DroppedLoad& load)
{
    constexpr std::array<std::string_view, 3> kCategories = {" (G)", " (Q1)", " (Q2)"};
    std::string text = Kind(load) + Value(load) + Place(load);
    if (load.category >= 0 && load.category < 3) {
        text += kCategories[static_cast<std::size_t>(load.category)];
    }
    return text;
}

std::string DroppedText(const DroppedLoad& load)
{
    std::string text(load.field);
    if (load.row > 0) {
        text += "[" + std::to_string(load.row) + "]";
    }
    text += ": " + LoadText(load);
    return text + (load.reason == DropReason::family ? ", not taken by this section family"
                                                     : ", beyond the member or on a support");
}

}  // namespace kestrum
