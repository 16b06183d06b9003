#include "analysis/stations.h"

#include "analysis/extremes.h"
#include "core/arithmetic_trap.h"
#include "core/failure.h"
#include "core/member_choices.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

bool Finite(const Station& s)
{
    // A sum of finite values is finite or an overflow, which nothing could carry either.
    return std::isfinite(s.x + s.n + s.vy + s.vz + s.my + s.mz + s.mx);
}

double Between(double from, double to, double share)
{
    return from + share * (to - from);
}

bool SamePlace(double a, double b)
{
    return std::abs(a - b) <= kStationSame;
}

// The larger of two extremes of a line stays with its place.
void Widen(double value, float x, double& max, double& xmax, double& min, double& xmin)
{
    if (value > max) {
        max = value;
        xmax = x;
    }
    if (value < min) {
        min = value;
        xmin = x;
    }
}

// Sections that Forces has no room for.
void WidenExtremes(std::span<const StationSection> sections, Forces& forces)
{
    for (const StationSection& at : sections) {
        Widen(at.my, at.xi, forces.mymax, forces.xmymax, forces.mymin, forces.xmymin);
        Widen(at.mz, at.xi, forces.mzmax, forces.xmzmax, forces.mzmin, forces.xmzmin);
        Widen(at.vz, at.xi, forces.vzmax, forces.xvzmax, forces.vzmin, forces.xvzmin);
        Widen(at.vy, at.xi, forces.vymax, forces.xvymax, forces.vymin, forces.xvymin);
    }
    SetLargestMoments(forces);
}

// kN/m: Vz falls by the load.
double SteepestFall(std::span<const Station> stations)
{
    double steepest = 0;
    for (std::size_t i = 0; i + 1 < stations.size(); ++i) {
        const double h = stations[i + 1].x - stations[i].x;
        if (h > kStationSame) {
            const double q = (stations[i].vz - stations[i + 1].vz) / h;
            steepest = std::abs(q) > std::abs(steepest) ? q : steepest;
        }
    }
    return steepest;
}

double LargestCompression(std::span<const Station> stations)
{
    double most = stations.front().n;
    for (const Station& at : stations) {
        most = std::max(most, at.n);
    }
    return most;
}

bool Bends(std::span<const Station> stations, double Station::*moment, double Station::*shear)
{
    return std::any_of(stations.begin(), stations.end(),
                       [&](const Station& at) { return at.*moment != 0 || at.*shear != 0; });
}

}  // namespace

StationCheck CheckStations(std::span<const Station> stations, double l)
{
    if (stations.empty()) {
        return {StationFault::no_station, 0};
    }
    for (std::size_t i = 0; i < stations.size(); ++i) {
        const Station& at = stations[i];
        if (!Finite(at)) {
            return {StationFault::not_finite, i};
        }
        if (at.x < -kStationReach || at.x > l + kStationReach) {
            return {StationFault::off_member, i};
        }
        if (i > 0 && at.x < stations[i - 1].x) {
            return {StationFault::not_rising, i};
        }
        if (i > 1 && SamePlace(at.x, stations[i - 2].x)) {
            return {StationFault::repeated, i};
        }
    }
    const std::size_t last = stations.size() - 1;
    if (stations.front().x > kStationReach) {
        return {StationFault::short_of_start, 0};
    }
    if (stations[last].x < l - kStationReach) {
        return {StationFault::short_of_end, last};
    }
    if (last == 0 || SamePlace(stations[0].x, stations[1].x)) {
        return {StationFault::repeated, std::min<std::size_t>(1, last)};
    }
    if (SamePlace(stations[last].x, stations[last - 1].x)) {
        return {StationFault::repeated, last};
    }
    return {};
}

std::string StationFaultText(const StationCheck& check, std::span<const Station> stations, double l)
{
    const std::string x =
        check.row < stations.size() ? "x " + ShortNumber(stations[check.row].x) + " m" : "";
    const std::string of = " of " + ShortNumber(l) + " m";
    switch (check.fault) {
    case StationFault::none:
        return {};
    case StationFault::no_station:
        return "no stations";
    case StationFault::not_finite:
        return "a force that is not a number";
    case StationFault::not_rising:
        return "x falls to " + ShortNumber(stations[check.row].x) + " m";
    case StationFault::off_member:
        return "the station " + x + " lies off the member" + of;
    case StationFault::short_of_start:
        return "the first station " + x + " is not the start of the member";
    case StationFault::short_of_end:
        return "the last station " + x + " is not the end of the member" + of;
    case StationFault::repeated:
        return "the station " + x + " is repeated (a jump has two rows, inside the member)";
    }
    return {};
}

NotCarried NotCarriedBy(const Inputs& in, std::span<const Station> stations)
{
    const Actions& takes = Traits(in).carries.loads;
    NotCarried beyond;
    for (const Station& at : stations) {
        beyond.n = takes.n ? 0 : std::max(beyond.n, std::abs(at.n));
        beyond.y = takes.y ? 0 : std::max({beyond.y, std::abs(at.my), std::abs(at.vz)});
        beyond.z = takes.z ? 0 : std::max({beyond.z, std::abs(at.mz), std::abs(at.vy)});
    }
    return beyond;
}

StationLines::Reading StationLines::ReadingAt(std::span<const Station> stations, double x) const
{
    // The right side holds where x falls on a jump.
    std::size_t at = 0;
    while (at + 2 < stations.size() && stations[at + 1].x <= x) {
        ++at;
    }
    const double h = stations[at + 1].x - stations[at].x;
    if (h <= kStationSame) {  // the jump is the last place inside
        return {at, 1};
    }
    return {at, std::clamp((x - stations[at].x) / h, 0.0, 1.0)};
}

void StationLines::AddPlace(std::span<const Station> stations, double xi)
{
    const float at = F32(xi);
    places_.push_back({at, ReadingAt(stations, at * l_)});
}

bool StationLines::SamePlaces(const Inputs& in, std::span<const Station> stations) const
{
    const bool own = in.cpmode == 1;
    return l_ == in.l && own_points_ == own && x_.size() == stations.size() &&
           (!own || (cp_ == in.cp && cpcount_ == in.cpcount)) &&
           std::equal(x_.begin(), x_.end(), stations.begin(),
                      [](double x, const Station& station) { return x == station.x; });
}

void StationLines::FindPlaces(const Inputs& in, std::span<const Station> stations)
{
    l_ = in.l;
    own_points_ = in.cpmode == 1;
    cp_ = in.cp;
    cpcount_ = in.cpcount;
    x_.clear();
    for (const Station& at : stations) {
        x_.push_back(at.x);
    }
    for (int j = 0; j <= kLastPoint; ++j) {
        diagram_[static_cast<std::size_t>(j)] =
            ReadingAt(stations, static_cast<double>(j) * l_ / kLastPoint);
    }
    places_.clear();
    if (own_points_) {
        const std::size_t count = in.cpcount == 1 ? 1 : in.cpcount == 2 ? 2 : 3;
        for (std::size_t k = 1; k <= count; ++k) {
            AddPlace(stations, in.cp[k] / l_);
        }
        return;
    }
    constexpr int kEven = 10;
    for (int k = 0; k <= kEven; ++k) {
        AddPlace(stations, static_cast<double>(k) / kEven);
    }
    for (std::size_t i = 1; i + 1 < stations.size(); ++i) {
        const double x = stations[i].x;
        if (SamePlace(x, stations[i - 1].x)) {  // the pair of D109
            AddPlace(stations, 0.999 * x / l_);
            AddPlace(stations, std::min(1.0, 1.001 * x / l_));
            continue;
        }
        const double even = x / l_ * kEven;
        const bool known = SamePlace(x, stations[i + 1].x) ||
                           std::abs(even - std::round(even)) * l_ <= kEven * kStationSame;
        if (!known) {
            places_.push_back({F32(x / l_), {i, 0}});
        }
    }
}

void StationLines::FillSections(std::span<const Station> stations, Forces& forces)
{
    sections_.clear();
    for (const Place& place : places_) {
        const Station& from = stations[place.reading.at];
        const Station& to = stations[place.reading.at + 1];
        const double t = place.reading.share;
        sections_.push_back({place.xi, Between(from.n, to.n, t), Between(from.my, to.my, t),
                             Between(from.vz, to.vz, t), Between(from.vy, to.vy, t),
                             F32(Between(from.mz, to.mz, t))});
    }
    const std::size_t room = std::min<std::size_t>(sections_.size(), kCheckSections);
    for (std::size_t k = 0; k < room; ++k) {
        forces.xi[k] = sections_[k].xi;
        forces.mysec[k] = sections_[k].my;
        forces.vzsec[k] = sections_[k].vz;
        forces.mzsec[k] = sections_[k].mz;
        forces.vysec[k] = sections_[k].vy;
    }
    for (std::size_t k = room; k < kCheckSections; ++k) {
        forces.xi[k] = forces.mzsec[k] = 0;
        forces.mysec[k] = forces.vzsec[k] = forces.vysec[k] = 0;
    }
    forces.npts = static_cast<i16>(room - 1);
}

void StationLines::FillDiagrams(std::span<const Station> stations, Forces& forces) const
{
    for (std::size_t j = 0; j < diagram_.size(); ++j) {
        const Station& from = stations[diagram_[j].at];
        const Station& to = stations[diagram_[j].at + 1];
        const double t = diagram_[j].share;
        forces.mydiag[j] = F32(Between(from.my, to.my, t));
        forces.vzdiag[j] = F32(Between(from.vz, to.vz, t));
        forces.mzdiag[j] = F32(Between(from.mz, to.mz, t));
        forces.vydiag[j] = F32(Between(from.vy, to.vy, t));
    }
}

// EI d'' = -M, integrated from station to station; no deflection at the ends, of a cantilever
// neither deflection nor slope at the start.
void StationLines::Deflect(const Inputs& in, std::span<const Station> stations,
                           double Station::*moment, float inertia,
                           std::array<float, kDiagramPoints>& line)
{
    constexpr double kUnits = 1e12;  // kNm3 = 1e12 Nmm3
    const double scale = kUnits / (static_cast<double>(in.e) * inertia);
    slope_.assign(stations.size(), 0);
    bow_.assign(stations.size(), 0);
    for (std::size_t i = 0; i + 1 < stations.size(); ++i) {
        const double h = stations[i + 1].x - stations[i].x;
        const double m = stations[i].*moment, next = stations[i + 1].*moment;
        bow_[i + 1] = bow_[i] + slope_[i] * h - h * h * (2 * m + next) / 6;
        slope_[i + 1] = slope_[i] - h * (m + next) / 2;
    }
    const double length = stations.back().x - stations.front().x;
    const double turn = in.supportcase == SupportCase::cantilever ? 0 : -bow_.back() / length;
    for (std::size_t j = 0; j < line.size(); ++j) {
        const auto [i, share] = diagram_[j];
        const double h = stations[i + 1].x - stations[i].x;
        const double s = share * h;
        const double m = stations[i].*moment, next = stations[i + 1].*moment;
        const double d = bow_[i] + slope_[i] * s - s * s * (m / 2 + share * (next - m) / 6) +
                         turn * (stations[i].x - stations.front().x + s);
        line[j] = F32(d * scale);
    }
}

void StationLines::FillDeflections(const Inputs& in, const SectionRecord& section,
                                   std::span<const Station> stations, Forces& forces)
{
    forces.dzdiag = {};
    forces.dydiag = {};
    // Only Annex A asks for them.
    if (in.method != Method::annex_a || Is(in, Kind::none)) {
        return;
    }
    if (forces.hasyloads != kFalse) {
        Deflect(in, stations, &Station::my, section.iy, forces.dzdiag);
    }
    if (forces.haszloads != kFalse) {
        Deflect(in, stations, &Station::mz, section.iz, forces.dydiag);
    }
}

void StationLines::Fill(const Inputs& in, const SectionRecord& section,
                        std::span<const Station> stations, Forces& forces)
{
    const Actions& takes = Traits(in).carries.loads;
    if (!takes.n || !takes.y || !takes.z) {
        carried_.assign(stations.begin(), stations.end());
        for (Station& at : carried_) {
            at.n = takes.n ? at.n : 0;
            at.my = takes.y ? at.my : 0;
            at.vz = takes.y ? at.vz : 0;
            at.mz = takes.z ? at.mz : 0;
            at.vy = takes.z ? at.vy : 0;
        }
        stations = carried_;
    }
    if (!SamePlaces(in, stations)) {
        FindPlaces(in, stations);
    }
    forces.hasyloads = Bends(stations, &Station::my, &Station::vz) ? kTrue : kFalse;
    forces.haszloads = Bends(stations, &Station::mz, &Station::vy) ? kTrue : kFalse;
    forces.ned = LargestCompression(stations);
    forces.qsum = Is(in, Kind::hat) ? SteepestFall(stations) : 0;
    FillSections(stations, forces);
    FillDiagrams(stations, forces);
    FillDeflections(in, section, stations, forces);
    FindExtremes(in, forces);
    if (sections_.size() > kCheckSections) {
        WidenExtremes(Sections().subspan(kCheckSections), forces);
    }
    SetDesignMoments(forces);
}

}  // namespace kestrum
