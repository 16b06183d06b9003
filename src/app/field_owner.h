#pragma once

// Which families a field belongs to, and which kind of load it is: what a value says about the
// member beside itself.

#include "core/field_table.h"
#include "core/state/types.h"

#include <array>
#include <cstdint>
#include <string>

namespace kestrum {

struct ProjectState;

// The families that read a field; none for a field of all of them.
struct Owner {
    std::array<i16, 2> families{};
    i16 series = 0;  // of family 101 or 103; 0 for all

    bool any() const { return families[0] != 0; }
    bool one() const { return any() && families[0] == families[1]; }
    bool Has(const ProjectState& s) const;
    bool operator==(const Owner&) const = default;
};

Owner OwnerOf(const Field& field);

// The series that the record has chosen; 0 for a family without.
i16 SeriesOf(const ProjectState& s);

// "4 IPE", "101 U, series 2 UC"
std::string OwnerName(const Owner& owner);

enum class LoadKind : std::uint8_t { none, load, selfweight, endforce };
LoadKind LoadKindOf(const Field& field);

// Axial forces, positive in compression: those of which the sign may be exchanged.
bool IsAxial(const Field& field);

// A value of the field as it is written where tension is positive, or as it is stored.
double InSignOf(const Field& field, double value, bool tensionpositive);

// Takes the loads of one mode out of the record, as delivered examples or what another mode has
// left; directions, categories and ticks stay. Self-weight counts as a load.
void ClearLoads(ProjectState& s, LoadKind kind);

}  // namespace kestrum
