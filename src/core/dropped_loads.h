#pragma once

// The loads that were emptied because the section cannot take them, or because they no longer stand
// on the member. The calculation goes on without them, and whoever shows a result names them.
//
// The record belongs to the load table that it left behind. It lives, also through a change of
// family, until one of the loads is changed or another project comes in: as long as the emptied
// rows are as they were left, the loads are missing.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct Inputs;
struct LoadInputs;

enum class DropReason : std::uint8_t {
    family,   // the section family cannot take such a load
    position  // beyond the member, or a force on a support
};

struct DroppedLoad {
    std::string_view field{};  // "nload", "qt1", "mz2"; a text that lasts
    std::int16_t row = 0;      // 0: not a row
    DropReason reason = DropReason::family;
    float value = 0;              // kN, kN/m or kNm
    float value2 = 0;             // a trapezoidal load: at its end
    float x1 = 0, x2 = 0;         // m
    std::int16_t category = -1;   // 0 G, 1 Q1, 2 Q2; -1: an end force
    std::int16_t direction = -1;  // 1 z (My), 0 y (Mz); -1 along the member
    bool moment = false;

    bool operator==(const DroppedLoad&) const = default;
};

struct DroppedLoads {
    std::array<DroppedLoad, 28> load;  // every row and every end force once
    std::int16_t count;
    std::uint64_t table;  // fingerprint of the load table as it was left

    bool operator==(const DroppedLoads&) const = default;
};

// Forgets the record when the loads are no longer those it left, and end forces that are still
// there. To be called before loads are emptied, and CloseDropped after it.
void OpenDropped(const Inputs& in, DroppedLoads& dropped);
void CloseDropped(const Inputs& in, DroppedLoads& dropped);

// Notes row k of the point loads, unless it is empty; what was noted of the row is replaced.
void NoteDroppedPoint(const Inputs& in, DroppedLoads& dropped, std::size_t k, DropReason reason);

// Row k of the trapezoidal loads in the same way.
void NoteDroppedTrapezoid(const Inputs& in, DroppedLoads& dropped, std::size_t k,
                          DropReason reason);

// Notes the loads that a section does not take, unless they are 0. `transverse`: all across the
// member; `sideways`: those in y.
void NoteDroppedLoads(const Inputs& in, DroppedLoads& dropped, bool axial, bool transverse,
                      bool sideways);

// Notes the end forces that a section does not take, unless they are 0. `transverse`: My and Vz.
void NoteDroppedEndForces(const Inputs& in, DroppedLoads& dropped, bool axial, bool transverse,
                          bool sideways);

// The noted loads that the way of loading (loadmode) would have used.
std::vector<DroppedLoad> DroppedNow(const Inputs& in, const DroppedLoads& dropped);

// Puts all noted loads back into the rows that they were taken from.
void PutDroppedBack(LoadInputs& loads, const DroppedLoads& dropped);

// "nload[1]: axial force 3000 kN (G), not taken by this section family".
std::string DroppedText(const DroppedLoad& load);
std::string_view DroppedUnit(const DroppedLoad& load);

}  // namespace kestrum
