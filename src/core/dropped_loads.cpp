#include "core/dropped_loads.h"

#include "core/failure.h"
#include "core/project_state.h"

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

// FNV-1a over 32-bit words.
class Fingerprint {
public:
    template <class Rows> void Add(const Rows& rows)
    {
        std::for_each(rows.begin() + 1, rows.end(), [this](auto value) {
            hash_ ^= std::bit_cast<std::uint32_t>(static_cast<float>(value));
            hash_ *= 0x100000001b3ULL;
        });
    }
    std::uint64_t value() const { return hash_; }

private:
    std::uint64_t hash_ = 0xcbf29ce484222325ULL;
};

// Values, categories and directions of the load rows. Positions do not count: a change of length
// moves them and edits no load.
std::uint64_t TableOf(const ProjectState& s)
{
    Fingerprint print;
    print.Add(s.nload);
    print.Add(s.ntype);
    print.Add(s.qload);
    print.Add(s.qtype);
    print.Add(s.qdir);
    print.Add(s.qt1);
    print.Add(s.qt2);
    print.Add(s.qttype);
    print.Add(s.qtdir);
    print.Add(s.pm);
    print.Add(s.pmkind);
    print.Add(s.pmtype);
    print.Add(s.pmdir);
    return print.value();
}

std::string Value(const DroppedLoad& load)
{
    const std::string unit = " " + std::string(DroppedUnit(load));
    return ShortNumber(load.value) +
           (load.field == kTrapezoid ? " to " + ShortNumber(load.value2) : "") + unit;
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
    return load.field == kPoint ? ", x = " + ShortNumber(load.x1) + " m" : "";
}

}  // namespace

void OpenDropped(ProjectState& s)
{
    DroppedLoads& dropped = s.dropped;
    const bool changed = dropped.count > 0 && dropped.table != TableOf(s);
    const auto first = dropped.load.begin();
    const auto end =
        std::remove_if(first, first + dropped.count,
                       [changed](const DroppedLoad& load) { return changed || IsEndForce(load); });
    dropped.count = static_cast<std::int16_t>(end - first);
    std::fill(end, dropped.load.end(), DroppedLoad{});
}

void CloseDropped(ProjectState& s)
{
    s.dropped.table = s.dropped.count > 0 ? TableOf(s) : 0;
}

void NoteDropped(ProjectState& s, const DroppedLoad& load)
{
    DroppedLoads& dropped = s.dropped;
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

void NoteDroppedPoint(ProjectState& s, std::size_t k, DropReason reason)
{
    if (s.pm[k] != 0) {
        NoteDropped(s, {.field = kPoint,
                        .row = static_cast<i16>(k),
                        .reason = reason,
                        .value = s.pm[k],
                        .x1 = s.pmx[k],
                        .category = s.pmtype[k],
                        .direction = s.pmdir[k],
                        .moment = s.pmkind[k] != 0});
    }
}

std::vector<DroppedLoad> DroppedNow(const ProjectState& s)
{
    std::vector<DroppedLoad> loads;
    std::copy_if(s.dropped.load.begin(), s.dropped.load.begin() + s.dropped.count,
                 std::back_inserter(loads),
                 [&s](const DroppedLoad& load) { return IsEndForce(load) == (s.loadmode != 1); });
    return loads;
}

std::string_view DroppedUnit(const DroppedLoad& load)
{
    if (load.moment) {
        return "kNm";
    }
    return load.field == kUniform || load.field == kTrapezoid ? "kN/m" : "kN";
}

std::string DroppedText(const DroppedLoad& load)
{
    constexpr std::array<std::string_view, 3> kCategories = {" (G)", " (Q1)", " (Q2)"};
    std::string text(load.field);
    text += load.row > 0 ? "[" + std::to_string(load.row) + "]" : "";
    text += ": " + Kind(load) + Value(load) + Place(load);
    if (load.category >= 0 && load.category < 3) {
        text += kCategories[static_cast<std::size_t>(load.category)];
    }
    return text + (load.reason == DropReason::family ? ", not taken by this section family"
                                                     : ", beyond the member or on a support");
}

}  // namespace kestrum
