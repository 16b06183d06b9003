#pragma once

// Vortex shedding, EN 1991-1-4, Annex E: whether a member of rectangular or circular hollow section
// needs no further study, E.1.2 (2): vcrit > 1.25 vm.

#include "core/state/inputs.h"
#include "core/state/section_record.h"
#include "core/state/service.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// Terrain categories 0, I .. IV of EN 1991-1-4, Table 4.1, in the order of their list.
struct Terrain {
    std::string_view name;
    double z0, zmin;  // m
};
// Deviation D254: category III has z0 = 0.03 m; Table 4.1 gives 0.3 m.
constexpr std::array<Terrain, 5> kTerrains{
    {{"0", 0.003, 1}, {"I", 0.01, 1}, {"II", 0.05, 2}, {"III", 0.03, 5}, {"IV", 1, 10}}};

// Support cases, with the constant N of the frequency N2 sqrt(E I/m)/(2 pi L2).
struct VortexSupport {
    std::string_view name;
    float n;
};
// Deviation D255: N is rounded to two decimals; beam theory gives 3.1416, 3.9266, 4.7300, 1.8751.
constexpr std::array<VortexSupport, 5> kVortexSupports{{{"pinned-pinned", 3.14F},
                                                        {"fixed-pinned", 3.93F},
                                                        {"fixed-fixed", 4.73F},
                                                        {"cantilever", 1.88F},
                                                        {" Tubular Truss ", 4.23F}}};

// Hollow sections, boxes and tubes.
bool VortexFamily(int family);

// What to tell the user of any other family; empty when there is nothing to tell.
std::string_view VortexRefusal(int family);

// freq[1] [Hz] from vortexcase, iy, e, weight and l. Leaves through CalculationStop with a support
// case outside the list; other failures of arithmetic are left in the status flags.
//
// Deviation D256: the mass is that of the section alone; EN 1991-1-4, F.2 takes all mass that
// moves.
void CalcVortexFrequency(const Inputs& in, const SectionRecord& section, Service& service);

// The supports of the member itself, whatever the control takes: "pinned-pinned", .. "springs".
std::string_view MemberSupport(const Inputs& in);

// Whether vortexcase is another support than that of the member, and one with a higher frequency; a
// spring counts as pinned there, its softest state.
//
// Deviation D259: the control takes the support chosen for it, at first fixed-pinned, and not that
// of the member; EN 1991-1-4, F.2 takes the frequency of the structure as it is.
bool VortexSupportDiffers(const Inputs& in);
bool VortexSupportIsStiffer(const Inputs& in);

// stb, st, vcrit, vm from the section, freq[1], terrain, vb and zh. To be called after it. Leaves
// through CalculationStop with a terrain outside the list.
void CalcVortex(const Inputs& in, const SectionRecord& section, Service& service);

// Both, after a pass: frequency and control. False when their arithmetic failed.
bool ControlVortices(const Inputs& in, const SectionRecord& section, Service& service);

// Strouhal number of a rectangle, r = d/b (along over across the wind), EN 1991-1-4, Table E.1.
//
// Deviation D257: a ratio below 0.5 or above 10 takes the value of the end of the table, which
// gives none there.
double StrouhalOfRectangle(double r);

// EN 1991-1-4, E.1.2 (2). Equality is not enough.
bool VortexAccepted(const Service& service);

// Texts of the page and the form.
std::string VortexMeanText(const Service& service);       // "25.2 m/s"
std::string VortexCriticalText(const Service& service);   // "15.1 m/s"
std::string VortexFrequencyText(const Service& service);  // "9.1 Hz"
std::string_view VortexVerdict(const Service& service);   // " OK ", " NOK "
std::string_view VortexRestraint(const Inputs& in);       // "fixed-pinned"; empty outside the list

struct VortexRow {
    std::string parameter, value, unit;
};
std::vector<VortexRow> VortexGrid(const Inputs& in, const SectionRecord& section,
                                  const Service& service);

}  // namespace kestrum
