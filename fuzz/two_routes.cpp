// Two routes to the same number: the record in hand and its file, a prepared member on its first
// case and on a later one. Both answer to the bit.

#include "harness.h"
#include "harness_tools.h"

#include "core/project_file.h"
#include "engine/calculate.h"
#include "engine/prepared.h"
#include "standard/standard.h"
#include "standard/station_cases.h"

#include <algorithm>
#include <bit>

namespace kestrum::fuzz {

namespace {

bool Same(double one, double other)
{
    return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
}

ProjectState ReadBack(ProjectState s)
{
    ProjectState read = Default();
    Require(!ReadProject(read, WriteProject(s)), "a written file cannot be read");
    return read;
}

void RequireSameResults(const ProjectState& one, const ProjectState& other)
{
    Require(one.calculationerror == other.calculationerror, "one route fails");
    if (!one.calculationerror) {
        Require(Same(one.irsection, other.irsection), "ratios of the section differ");
        Require(Same(one.maxirbuckling, other.maxirbuckling), "ratios of buckling differ");
        Require(one.checklist == other.checklist, "checks differ");
    }
}

// A project that was calculated and saved gives the same whenever it is opened again. What another
// hand wrote into the file may need a pass to fit together: the strength of a listed steel, what
// follows from it.
void SavedAndOpened(const ProjectState& s)
{
    ProjectState written = ReadBack(s);
    Calculate(Delivered(), written);
    const ProjectState opened = ReadBack(AsGiven(written));
    ProjectState calculated = opened;
    Calculate(Delivered(), calculated);
    ProjectState again = ReadBack(AsGiven(calculated));
    const standard::StandardResult one = standard::CalculateStandard(Delivered(), opened);
    const standard::StandardResult other = standard::CalculateStandard(Delivered(), again);
    Calculate(Delivered(), again);
    RequireSameResults(calculated, again);
    Require(one.rated == other.rated && Same(one.ir, other.ir), "ratios of the standard differ");
}

using Stations = std::vector<Station>;

Stations StationsOf(Source& source, double length)
{
    Stations stations(2 + source.Byte() % 5U);
    for (std::size_t i = 0; i < stations.size(); ++i) {
        stations[i] = {.x = length * static_cast<double>(i) /
                            static_cast<double>(stations.size() - 1),
                       .n = source.Number(),
                       .vy = source.Number(),
                       .vz = source.Number(),
                       .my = source.Number(),
                       .mz = source.Number()};
    }
    return stations;
}

// No case leaves anything to the next.
void CasesInAnyOrder(const ProjectState& s, Source& source)
{
    const PreparedMember member = Prepare(Delivered(), s);
    if (!member.usable) {
        return;
    }
    const Stations first = StationsOf(source, member.Length());
    const Stations second = StationsOf(source, member.Length());
    for (const Stations& stations : {first, second}) {
        if (CheckStations(stations, member.Length()).fault != StationFault::none) {
            return;
        }
    }
    StationRun fresh, used;
    fresh.Case(member, second);
    used.Case(member, first);
    used.Case(member, second);
    RequireSameResults(fresh.state(), used.state());
    Require(fresh.NVaried() == used.NVaried(), "N varies once");

    standard::StationCases new_cases(Delivered(), s), used_cases(Delivered(), s);
    if (new_cases.reason().empty()) {
        const standard::StationResult one = new_cases.Case(second);
        used_cases.Case(first);
        const standard::StationResult other = used_cases.Case(second);
        Require(one.rated == other.rated && Same(one.ir, other.ir),
                "ratios of the standard differ");
        Require(one.reason == other.reason, "reasons of the standard differ");
    }
}

}  // namespace

void TwoRoutes(std::string_view bytes)
{
    constexpr std::size_t kForces = 64;  // bytes
    Source forces(bytes.substr(0, kForces));
    Source fields(bytes.substr(std::min(kForces, bytes.size())));
    const ProjectState s = MemberOf(fields);
    SavedAndOpened(s);
    CasesInAnyOrder(ReadBack(s), forces);
}

}  // namespace kestrum::fuzz
