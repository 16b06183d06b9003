#include "calculation/chapters.h"

#include "core/member_choices.h"
#include "report/diagrams.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <vector>

namespace kestrum {

namespace {

constexpr double kPicture = 86;  // mm, two beside each other
// Shorter than elsewhere, so that the figures beside it are as large as the text of tables.
constexpr MemberSpan kMember{58};

bool Any(const std::array<float, kDiagramPoints>& values)
{
    return std::any_of(values.begin(), values.end(), [](float value) { return value != 0; });
}

void AddDiagrams(const ProjectState& s, Document& d)
{
    const auto add = [&](LoadAxis axis, std::string_view name) {
        AxisPictures pictures = DrawAll(s, axis, kMember);
        const std::string lines = axis == LoadAxis::z ? "My, Vz" : "Mz, Vy";
        const bool loads = s.loadmode == 1;
        d.Show(
            {{std::move(pictures.load),
              loads ? "Loads along " + std::string(name) : "Given end forces, " + lines, kPicture},
             {std::move(pictures.moment), lines + (loads ? " and deflection" : ""), kPicture}});
    };
    const bool z = Any(s.mydiag) || Any(s.vzdiag), y = Any(s.mzdiag) || Any(s.vydiag);
    if (!z && !y) {
        d.Show({{DrawAll(s, LoadAxis::z, kMember).load,
                 s.loadmode == 1 ? "Loads" : "Given end forces", kPicture}});
    }
    if (z) {
        add(LoadAxis::z, "z");
    }
    if (y) {
        add(LoadAxis::y, "y");
    }
}

// Values that are only rounding of the largest are zero.
Line Force(double value, double largest)
{
    constexpr double kRounding = 1e-6;
    return NumberLine(std::abs(value) <= kRounding * largest ? 0 : value, 5);
}

template <class Values> double Largest(const Values& values, std::size_t count)
{
    double largest = 0;
    for (std::size_t k = 0; k < count; ++k) {
        largest = std::max(largest, std::abs(static_cast<double>(values[k])));
    }
    return largest;
}

// The check sections along the member. Those beside loads are the last of the record, and loads at
// one place have the same.
std::vector<std::size_t> Sections(const ProjectState& s, std::size_t count)
{
    const auto place = [&](std::size_t k) {
        return std::tuple(s.xi[k], s.mysec[k], s.vzsec[k], s.mzsec[k], s.vysec[k]);
    };
    std::vector<std::size_t> sections(count);
    std::iota(sections.begin(), sections.end(), 0U);
    std::stable_sort(sections.begin(), sections.end(),
                     [&](std::size_t a, std::size_t b) { return s.xi[a] < s.xi[b]; });
    sections.erase(std::unique(sections.begin(), sections.end(),
                               [&](std::size_t a, std::size_t b) { return place(a) == place(b); }),
                   sections.end());
    return sections;
}

void AddTable(const ProjectState& s, Document& d)
{
    const auto count = static_cast<std::size_t>(s.npts) + 1;
    TextTable table{.columns = {{"x/L", true},
                                {"x, m", true},
                                {"N, kN", true},
                                {"My, kNm", true},
                                {"Vz, kN", true},
                                {"Mz, kNm", true},
                                {"Vy, kN", true}},
                    .caption = "Internal forces at the check sections, design values, " +
                               std::string(s.loadmode == 1 ? "combination " : "") +
                               CombinationOf(s, false)};
    const double my = Largest(s.mysec, count), vz = Largest(s.vzsec, count);
    const double mz = Largest(s.mzsec, count), vy = Largest(s.vysec, count);
    for (const std::size_t k : Sections(s, count)) {
        table.rows.push_back({NumberLine(s.xi[k], 4),
                              NumberLine(static_cast<double>(s.xi[k]) * s.l, 4), NumberLine(s.ned),
                              Force(s.mysec[k], my), Force(s.vzsec[k], vz), Force(s.mzsec[k], mz),
                              Force(s.vysec[k], vy)});
    }
    d.Add(std::move(table));
}

// What the signs in table and diagrams mean. The ratios take the size of a shear force.
std::string SignsOf(const ProjectState& s)
{
    const std::string moments = "My and Mz are positive where they sag; ";
    return moments + (s.loadmode != 1 ? "V has the sign that was entered."
                      : s.supportcase == SupportCase::cantilever
                          ? "V of the cantilever, which is held at x = 0, has the sign opposite to "
                            "the slope of the moment line: V = -dM/dx."
                          : "V is the slope of the moment line: V = dM/dx.");
}

}  // namespace

void AddForces(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    d.Chapter("Internal forces");
    AddDiagrams(s, d);
    AddTable(s, d);
    d.Say(SignsOf(s), Paragraph::Kind::remark);
    if (!m.outcome.dropped.empty()) {
        d.Say("Without the loads that are not in the program's result; see Actions. The checks by "
              "EN 1993-1-1 as written have forces of their own.",
              Paragraph::Kind::remark);
    }
}

}  // namespace kestrum
