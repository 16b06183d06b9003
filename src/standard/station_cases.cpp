#include "standard/station_cases.h"

#include "clauses/critical_moment.h"
#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/prepared.h"
#include "standard/member.h"
#include "standard/units.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kestrum::standard {

namespace {

constexpr double kStraight = 2e-3;     // of the largest moment of the line
constexpr double kLastDigit = 1.1e-3;  // kNm, the rounding of tables
constexpr double kUnseen = 1e-3;       // of the elastic resistance

// Stations without those that say nothing, and the sides of a jump as two places in one.
struct Node {
    double x;
    Station left, right;
};

bool IsJump(const Node& node)
{
    return node.left.x == node.x &&
           (node.left.vz != node.right.vz || node.left.vy != node.right.vy);
}

constexpr std::array kForces = {&Station::my, &Station::mz, &Station::vz, &Station::vy,
                                &Station::n};

double Largest(std::span<const Station> stations, double Station::*moment)
{
    double largest = 0;
    for (const Station& at : stations) {
        largest = std::max(largest, std::abs(at.*moment));
    }
    return largest;
}

// How far the line leaves its chord between two nodes.
double OffChord(std::span<const Node> nodes, std::size_t from, std::size_t to,
                double Station::*moment)
{
    const double start = nodes[from].right.*moment, end = nodes[to].left.*moment;
    const double span = nodes[to].x - nodes[from].x;
    double off = 0;
    for (std::size_t i = from + 1; i < to; ++i) {
        const double chord = start + (end - start) * (nodes[i].x - nodes[from].x) / span;
        off = std::max({off, std::abs(nodes[i].left.*moment - chord),
                        std::abs(nodes[i].right.*moment - chord)});
    }
    return off;
}

}  // namespace

struct StationCases::Data {
    Data(const Library& library, const Basis& by, const ProjectState* program, SolvedLines* solved)
        : basis(by), member{library, s,  basis, program, solved != nullptr ? *solved : own_solved,
                            {},      {}, {}}
    {
    }

    ProjectState s{};
    Basis basis;
    SolvedLines own_solved;
    Member member;
    std::vector<Node> nodes;
    std::vector<char> kept;  // nodes that stay when there are too many
    CombinedLines lines{};
    StationPieces pieces{};

    bool MakeNodes(std::span<const Station> stations);
    double StraightWithin(std::span<const Station> stations, double Station::*moment) const;
    void Straighten(std::span<const Station> stations, double Station::*moment);
    bool Thin(std::span<const Station> stations);
    void MarkBends(std::size_t from, std::size_t to, double within,
                   const std::array<double, 5>& largest);
    bool MakeGrid();
    void FillLines();
    void FindLoads(Axis axis, double Station::*moment, double Station::*shear, double straight);
    void Spread(Axis axis, std::size_t from, std::size_t to, double Station::*moment,
                double Station::*shear);
    void Put(const Load& load);
};

// Places at the ends are those of the member.
bool StationCases::Data::MakeNodes(std::span<const Station> stations)
{
    nodes.clear();
    for (const Station& at : stations) {
        if (!nodes.empty() && at.x - nodes.back().x <= kStationSame) {
            nodes.back().right = at;
            continue;
        }
        nodes.push_back({at.x, at, at});
    }
    nodes.front().x = 0;
    nodes.back().x = s.l;
    return nodes.size() >= 2;
}

// How far a line of rounded numbers may leave its chord, kNm.
double StationCases::Data::StraightWithin(std::span<const Station> stations,
                                          double Station::*moment) const
{
    const StandardSection& q = member.section.q;
    const double w = moment == &Station::my ? q.LeastWely() : q.LeastWelz();
    return std::max(kStraight * Largest(stations, moment),
                    std::min(kLastDigit, kUnseen * w * q.fy / kNmm));
}

void StationCases::Data::Straighten(std::span<const Station> stations, double Station::*moment)
{
    const std::size_t last = nodes.size() - 1;
    if (OffChord(nodes, 0, last, moment) > StraightWithin(stations, moment)) {
        return;
    }
    const double start = nodes.front().right.*moment, end = nodes.back().left.*moment;
    for (std::size_t i = 1; i < last; ++i) {
        const double chord = start + (end - start) * nodes[i].x / nodes[last].x;
        nodes[i].left.*moment = nodes[i].right.*moment = chord;
    }
}

// Marks the nodes between two that the chords of all lines need.
void StationCases::Data::MarkBends(std::size_t from, std::size_t to, double within,
                                   const std::array<double, 5>& largest)
{
    std::vector<std::pair<std::size_t, std::size_t>> open{{from, to}};
    while (!open.empty()) {
        const auto [a, b] = open.back();
        open.pop_back();
        std::size_t furthest = a;
        double most = within;
        for (std::size_t i = a + 1; i < b; ++i) {
            const double share = (nodes[i].x - nodes[a].x) / (nodes[b].x - nodes[a].x);
            for (std::size_t k = 0; k < kForces.size(); ++k) {
                const double start = nodes[a].right.*kForces[k], end = nodes[b].left.*kForces[k];
                const double off =
                    std::abs(nodes[i].left.*kForces[k] - start - share * (end - start));
                if (off > most * largest[k]) {
                    most = off / largest[k];
                    furthest = i;
                }
            }
        }
        if (furthest != a) {
            kept[furthest] = 1;
            open.emplace_back(a, furthest);
            open.emplace_back(furthest, b);
        }
    }
}

// Leaves out stations that lie on the chords of all lines within a small share of their largest
// values, where there are too many. False where they bend or jump too often.
bool StationCases::Data::Thin(std::span<const Station> stations)
{
    constexpr std::size_t kMost = 100;
    constexpr double kFinest = 5e-5, kCoarsest = 1e-3;
    std::array<double, 5> largest{};
    for (std::size_t k = 0; k < kForces.size(); ++k) {
        largest[k] = Largest(stations, kForces[k]);
    }
    for (double within = kFinest; nodes.size() > kMost && within < kCoarsest; within *= 2) {
        kept.assign(nodes.size(), 0);
        kept.front() = kept.back() = 1;
        std::size_t from = 0;
        for (std::size_t i = 1; i < nodes.size(); ++i) {
            const bool jumps = std::any_of(kForces.begin(), kForces.end(), [&](auto force) {
                return nodes[i].left.*force != nodes[i].right.*force;
            });
            if (jumps || i + 1 == nodes.size()) {
                kept[i] = 1;
                MarkBends(from, i, within, largest);
                from = i;
            }
        }
        std::size_t count = 0;
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            if (kept[i] != 0) {
                nodes[count++] = nodes[i];
            }
        }
        nodes.resize(count);
    }
    return nodes.size() <= kMost;
}

bool StationCases::Data::MakeGrid()
{
    LineGridMaker maker(s.l);
    for (const Node& node : nodes) {
        maker.Add(node.x);
    }
    for (int i = 1; i <= s.restraints && i <= static_cast<int>(kMaxHeld); ++i) {
        maker.Add(s.l * static_cast<double>(i) / (s.restraints + 1));
    }
    lines.grid = maker.Grid();
    return maker.Complete();
}

void StationCases::Data::FillLines()
{
    lines.y.given = lines.z.given = true;
    lines.stations = &pieces;
    pieces.steepest = 0;
    std::size_t node = 0;
    for (std::size_t i = 0; i < lines.grid.pieces; ++i) {
        const double x0 = lines.grid.x[i], x1 = lines.grid.x[i + 1];
        while (node + 2 < nodes.size() && nodes[node + 1].x <= x0 + kStationSame) {
            ++node;
        }
        const Station &from = nodes[node].right, &to = nodes[node + 1].left;
        const double h = nodes[node + 1].x - nodes[node].x;
        const double a = (x0 - nodes[node].x) / h, b = (x1 - nodes[node].x) / h;
        const auto at = [&](double Station::*force, double t) {
            return from.*force + t * (to.*force - from.*force);
        };
        lines.y.m.m[i] = {at(&Station::my, a), (to.my - from.my) / h, 0, 0};
        lines.z.m.m[i] = {at(&Station::mz, a), (to.mz - from.mz) / h, 0, 0};
        pieces.n[i] = {at(&Station::n, a), at(&Station::n, b)};
        pieces.vz[i] = {at(&Station::vz, a), at(&Station::vz, b)};
        pieces.vy[i] = {at(&Station::vy, a), at(&Station::vy, b)};
        const double fall = (from.vz - to.vz) / h;
        pieces.steepest = std::abs(fall) > std::abs(pieces.steepest) ? fall : pieces.steepest;
    }
    lines.n = nodes.front().left.n;
    for (const Node& at : nodes) {
        lines.n = std::max({lines.n, at.left.n, at.right.n});
    }
}

void StationCases::Data::Put(const Load& load)
{
    MemberLoads& loads = member.loads;
    if (loads.count < loads.load.size()) {
        loads.load[loads.count++] = load;
    }
}

// The bends of a stretch as line loads.
void StationCases::Data::Spread(Axis axis, std::size_t from, std::size_t to,
                                double Station::*moment, double Station::*shear)
{
    const auto slope = [&](std::size_t i) {
        return (nodes[i + 1].left.*moment - nodes[i].right.*moment) / (nodes[i + 1].x - nodes[i].x);
    };
    const auto q = [&](std::size_t i) {  // at a node of the stretch
        const std::size_t inside = std::clamp(i, from + 1, to - 1);
        const double jump = nodes[inside].left.*shear - nodes[inside].right.*shear;
        return (slope(inside - 1) - slope(inside) - jump) /
               (0.5 * (nodes[inside + 1].x - nodes[inside - 1].x));
    };
    for (std::size_t i = from; i < to; ++i) {
        Put({0, axis == Axis::y, false, false, {nodes[i].x, nodes[i + 1].x, q(i), q(i + 1)}, {}});
    }
}

void StationCases::Data::FindLoads(Axis axis, double Station::*moment, double Station::*shear,
                                   double straight)
{
    std::size_t from = 0;
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        const bool end = i + 1 == nodes.size();
        const double force = end ? 0 : nodes[i].left.*shear - nodes[i].right.*shear;
        if (force != 0) {
            Put({0, axis == Axis::y, true, false, {}, {nodes[i].x, force, 0}});
        }
        if (!end && !IsJump(nodes[i])) {
            continue;
        }
        if (i - from > 1 && OffChord(nodes, from, i, moment) > straight) {
            Spread(axis, from, i, moment, shear);
        }
        from = i;
    }
}

StationCases::StationCases(const Library& library, const ProjectState& project, const Basis& basis,
                           const ProjectState* program, SolvedLines* solved)
    : data_(std::make_unique<Data>(library, basis, program, solved))
{
    data_->s = project;
    PutLoadsAside(data_->s);
    reason_ = PrepareState(library, data_->s, data_->basis);
    if (reason_.empty()) {
        const Basis& by = data_->basis;
        data_->member.section = Prepare(SectionOf(library, data_->s, by), by);
        NameOutside(library, data_->member, outside_);
    }
    ArmTrap();
}

StationCases::~StationCases() = default;
StationCases::StationCases(StationCases&&) noexcept = default;
StationCases& StationCases::operator=(StationCases&&) noexcept = default;

// False: there is no result, for the reason it names.
bool StationCases::CheckCase(std::span<const Station> stations, Checks& checks,
                             StationResult& result)
{
    Data& d = *data_;
    if (!reason_.empty()) {
        result.reason = reason_;
        return false;
    }
    if (!d.MakeNodes(stations) ||
        (d.Straighten(stations, &Station::my), d.Straighten(stations, &Station::mz),
         !d.Thin(stations) || !d.MakeGrid())) {
        result.reason = "more stations than the standard basis takes";
        return false;
    }
    d.FillLines();
    d.member.loads.count = 0;
    d.FindLoads(Axis::y, &Station::my, &Station::vz, d.StraightWithin(stations, &Station::my));
    d.FindLoads(Axis::z, &Station::mz, &Station::vy, d.StraightWithin(stations, &Station::mz));
    d.member.loads.grid = d.lines.grid;

    const LoadCase as_given{CaseRule::end_forces, false, CaseVariables::all, {1, 1, 1}};
    const bool solved = CheckStrength(d.member, as_given, d.lines, checks);
    ArmTrap();
    if (!solved) {
        result.reason = "lateral torsional buckling has no numerical solution here";
    }
    return solved;
}

StationResult StationCases::Case(std::span<const Station> stations, double enough)
{
    StationResult result;
    Checks checks;
    for (std::size_t i = 0; i < kSectionChecks; ++i) {
        checks.best[i].ir = enough;  // not present: any ratio takes its place
    }
    if (!CheckCase(stations, checks, result)) {
        return result;
    }
    std::vector<std::string> named;
    NameOutsideOfKind(data_->member.library, data_->member, checks, named);
    for (std::string& text : named) {
        if (std::find(outside_.begin(), outside_.end(), text) == outside_.end()) {
            outside_.push_back(std::move(text));
        }
    }
    for (std::size_t i = 0; i < kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        const Check& check = checks[id];
        if (check.present && (!result.rated || check.ir > result.ir)) {
            result.rated = true;
            result.ir = check.ir;
            result.governing = id;
            result.check = check;
        }
    }
    if (!result.rated) {
        result.reason = kNoForceActs;
    }
    return result;
}

StandardResult StationCases::ResultOf(std::span<const Station> stations)
{
    StandardResult result;
    StationResult reason;
    if (CheckCase(stations, result.checks, reason)) {
        for (const Check& check : result.checks.best) {
            result.rated = result.rated || check.present;
            result.ir = check.present ? std::max(result.ir, check.ir) : result.ir;
        }
    }
    result.met = data_->basis.met();
    return result;
}

}  // namespace kestrum::standard
