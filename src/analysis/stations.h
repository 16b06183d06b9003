#pragma once

// Internal forces of one load case as another program found them, at stations along the member: the
// third way to load a member, beside loads and given end forces. Between two stations every line is
// straight; two stations at the same x are the left and the right side of a jump. Elastic analysis,
// EN 1993-1-1, 5.4.2, is the other program's matter; second order effects as far as it counted them
// are in the moments.
//
// The rules of the program are those for lines from loads: 51 points of a diagram, check sections
// (D109), shape of the moment line (D107). Where such a rule asks for a load itself it is found in
// the lines: the flange load of hat beams is the steepest fall of Vz between two stations, an axis
// counts as loaded where its moment or shear is not 0, and the deflection of Annex A belongs to the
// moments at hand.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kestrum {

// x in m from the start; N compression positive, V = dM/dx, moments sagging positive; kN, kNm. Mx
// is not covered by any check; it is carried along to be named.
struct Station {
    double x = 0;
    double n = 0, vy = 0, vz = 0, my = 0, mz = 0, mx = 0;
};

// Tables round their places: an end within this counts as the end.
constexpr double kStationReach = 1e-3;  // m
// Two stations closer than this are the sides of one jump.
constexpr double kStationSame = 1e-6;  // m

enum class StationFault : std::uint8_t {
    none,
    no_station,
    not_finite,
    not_rising,      // x falls
    off_member,      // beyond an end
    short_of_start,  // the first station lies inside
    short_of_end,    // the last one
    repeated         // three at one place, or two at an end
};

struct StationCheck {
    StationFault fault = StationFault::none;
    std::size_t row = 0;  // the station at fault
};

// Whether the stations, in ascending order, run over a member of length l [m] from end to end.
StationCheck CheckStations(std::span<const Station> stations, double l);
std::string StationFaultText(const StationCheck& check, std::span<const Station> stations,
                             double l);

// A check section with all that acts there.
struct StationSection {
    float xi;  // x/L
    double n, my, vz, vy;
    float mz;
};

// Reads the lines. Where the stations of one case stand as those of the case before, the places
// need not be found again. Allocates only when there are more stations than ever before.
class StationLines {
public:
    // Diagrams, extremes, quarter points, crossings, shape of the moment lines, design moments; ned
    // is the largest compression of the case (of a member in tension all along the least tension).
    // The check sections are those of `Sections`; as many of them as Forces can hold stand there
    // too. The stations have passed CheckStations. What the family cannot carry (D106) counts as 0:
    // Covers tells.
    void Fill(const Inputs& in, const SectionRecord& section, std::span<const Station> stations,
              Forces& forces);

    // Eleven even sections, a pair at each jump and every other station; the user's own check
    // points instead where the member has them.
    std::span<const StationSection> Sections() const { return sections_; }

private:
    struct Reading {
        std::size_t at;  // between this station and the next
        double share;
    };
    struct Place {
        float xi;
        Reading reading;
    };
    void FindPlaces(const Inputs& in, std::span<const Station> stations);
    Reading ReadingAt(std::span<const Station> stations, double x) const;
    void AddPlace(std::span<const Station> stations, double xi);
    bool SamePlaces(const Inputs& in, std::span<const Station> stations) const;
    void FillSections(std::span<const Station> stations, Forces& forces);
    void FillDiagrams(std::span<const Station> stations, Forces& forces) const;
    void FillDeflections(const Inputs& in, const SectionRecord& section,
                         std::span<const Station> stations, Forces& forces);
    void Deflect(const Inputs& in, std::span<const Station> stations, double Station::*moment,
                 float inertia, std::array<float, kDiagramPoints>& line);

    std::vector<double> x_;  // of the stations whose places are known
    double l_ = 0;
    bool own_points_ = false;
    std::array<float, 4> cp_{};
    i16 cpcount_ = 0;
    std::array<Reading, kDiagramPoints> diagram_{};
    std::vector<Place> places_;
    std::vector<StationSection> sections_;
    std::vector<double> slope_, bow_;  // of the deflection at each station
    std::vector<Station> carried_;     // without what the family cannot carry
};

// What acts in the stations beyond what the family carries; largest sizes, 0 where it carries them.
struct NotCarried {
    double n = 0, y = 0, z = 0;  // kN; My kNm and Vz kN; Mz kNm and Vy kN, whichever is larger
    bool any() const { return n > 0 || y > 0 || z > 0; }
};
NotCarried NotCarriedBy(const Inputs& in, std::span<const Station> stations);

}  // namespace kestrum
