// Runs passes of one named member: kestrum-pass NAME COUNT, or kestrum-pass for the names; with
// `standard` behind, passes by the standard. tools/instructions takes the difference of two counts.

#include "members.h"
#include "standard/standard.h"

#include "app/member_table.h"
#include "app/optimize.h"
#include "engine/prepared.h"
#include "standard/station_cases.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

using namespace kestrum;

// A case of forces at eleven stations on a prepared beam: end moments, a uniform load, N.
constexpr std::array<std::string_view, 2> kCases = {"case_program", "case_standard"};

bool RunCases(std::string_view name, int count)
{
    ProjectState s = Default();
    s.family = 4;
    s.ltb = 1;
    s.method = 1;
    std::array<Station, 11> stations;
    for (std::size_t i = 0; i < stations.size(); ++i) {
        const double x = s.l * static_cast<double>(i) / 10;
        stations[i] = {.x = x, .n = 20, .vz = 4 * (s.l / 2 - x), .my = 2 * x * (s.l - x) - 5};
    }
    const PreparedMember member = Prepare(Delivered(), s);
    StationRun run;
    standard::StationCases cases(Delivered(), s);
    for (int i = 0; i < count; ++i) {
        if (name == kCases[0]) {
            run.Case(member, stations);
        } else {
            cases.Case(stations);
        }
    }
    return name == kCases[0] || name == kCases[1];
}

// The lightest section of all rows of the profile tables, and of the rows of one, for a beam; a
// member of a table by the name of its section and by its row.
constexpr std::array<std::string_view, 5> kSearches = {"lightest_all_program", "lightest_all_both",
                                                       "lightest_hea_program", "line_by_name",
                                                       "line_by_row"};

bool RunSearches(std::string_view name, int count)
{
    ProjectState s = Default();
    s.l = 6;
    if (name.starts_with("line")) {
        const bool named = name == "line_by_name";
        MemberColumns columns;
        columns.TakeHeader(named ? "section,l,qload[1]" : "family,row.rhs,l,qload[1]");
        const std::string line = named ? "RHS 500x300x20,7.2,12.5" : "7,157,7.2,12.5";
        for (int i = 0; i < count; ++i) {
            ProjectState member = s;
            columns.Apply(Delivered(), member, line, Assignment::checked);
        }
        return named || name == "line_by_row";
    }
    SectionPool pool;
    pool.Add(Delivered(), name.find("hea") != std::string_view::npos ? "HEA" : "all");
    pool.Finish(Delivered());
    OptimizeWishes wishes;
    wishes.bases = name.ends_with("both") ? Bases::both : Bases::program;
    Optimizer optimizer(Delivered(), pool, wishes);
    LoadRater member(Delivered(), s, false);
    SectionRater* group[] = {&member};
    for (int i = 0; i < count; ++i) {
        optimizer.Choose(group);
    }
    return std::find(kSearches.begin(), kSearches.end(), name) != kSearches.end();
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string_view wanted = argc > 1 ? argv[1] : "";
    const std::string_view digits = argc > 2 ? argv[2] : "1";
    const bool by_standard = argc > 3 && std::string_view(argv[3]) == "standard";
    int count = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), count);
    for (NamedMember& member : Members()) {
        if (wanted.empty()) {
            std::puts(member.name.c_str());
        }
        if (wanted != member.name) {
            continue;
        }
        for (int i = 0; i < count; ++i) {
            if (by_standard) {
                standard::CalculateStandard(Delivered(), member.state);
            } else {
                Calculate(Delivered(), member.state);
            }
        }
        return 0;
    }
    if (wanted.empty()) {
        std::for_each(kCases.begin(), kCases.end(), [](auto name) { std::puts(name.data()); });
        std::for_each(kSearches.begin(), kSearches.end(),
                      [](auto name) { std::puts(name.data()); });
        return 0;
    }
    const bool search = wanted.starts_with("lightest") || wanted.starts_with("line");
    return (search ? RunSearches(wanted, count) : RunCases(wanted, count)) ? 0 : 2;
}
