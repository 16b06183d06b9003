#include "standard/section.h"

#include "clauses/classify.h"
#include "core/annexes.h"
#include "core/material.h"
#include "core/project_state.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "sections/second_source.h"
#include "standard/angle.h"
#include "standard/plates.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

constexpr double kThick = 40;      // Table 3.1, first column up to here
constexpr double kTableEnds = 80;  // and the second up to here
constexpr double kS355H = 335;     // EN 10210-1 and EN 10219-1, above 40 mm
constexpr double kGermanGammaM1 = 1.1;
constexpr double kOrdinarySteel = 460;

// Name of the grade chosen from the list; empty for a typed strength.
std::string_view GradeOf(const Library& library, const ProjectState& s)
{
    const int index = s.fykindex;
    return IsListedGrade(library, index)
               ? std::string_view(library.materials[static_cast<std::size_t>(index)].name)
               : std::string_view{};
}

// EN 1993-1-1, Table 3.1.
double YieldStrength(const Library& library, const ProjectState& s, const Basis& basis)
{
    const bool lower = s.tmax > kThick && GradeOf(library, s) == "S355 H";
    return lower ? basis.pick(Dev::d21, s.fyk, kS355H) : s.fyk;
}

// EN 1993-1-5, 5.1 (2); annexes that fix the factor and the user's own keep theirs.
double ShearFactor(const ProjectState& s, double fy, const Basis& basis)
{
    if (s.annexindex == kAnnexUk || s.annexindex == kAnnexUd) {
        return s.neta;
    }
    const double entered = std::round(s.neta * 100.0) / 100.0;
    return basis.pick(Dev::d20, entered, fy <= kOrdinarySteel ? 1.2 : 1.0);
}

double GammaM1(const ProjectState& s, const Basis& basis)
{
    return s.annexindex == kAnnexGe ? basis.pick(Dev::d24, s.gammam1, kGermanGammaM1) : s.gammam1;
}

void AddWall(StandardSection& q, const Wall& wall)
{
    if (wall.Width() > 0 && q.wall_count < kMaxWalls) {
        q.walls[q.wall_count++] = wall;
    }
}

// Two outstands of a flange at the height z, from the faces of root or weld to the tips.
void AddOutstands(StandardSection& q, const Flange& flange, double root, double z)
{
    AddWall(q, {root, z, flange.b / 2, z, flange.t, true});
    AddWall(q, {-root, z, -flange.b / 2, z, flange.t, true});
}

// `half`: the table counts outstands from the middle of the web (D51).
void AddWallsOfI(StandardSection& q, bool half, const Basis& basis)
{
    const double face = q.tw / 2 + q.r;
    const double root = half ? basis.pick(Dev::d51, 0.0, face) : face;
    AddOutstands(q, q.top, root, q.above - q.top.t / 2);
    AddOutstands(q, q.bottom, root, -q.below + q.bottom.t / 2);
    AddWall(q, {0, -q.below + q.bottom.t + q.r, 0, q.above - q.top.t - q.r, q.tw, false});
}

void AddWallsOfChannel(StandardSection& q)
{
    const double root = -q.left + q.tw + q.r;
    const double z = (q.h - q.top.t) / 2;
    AddWall(q, {root, z, q.right, z, q.top.t, true});
    AddWall(q, {root, -z, q.right, -z, q.top.t, true});
    AddWall(q, {q.tw / 2 - q.left, -q.d / 2, q.tw / 2 - q.left, q.d / 2, q.tw, false});
}

// `between` clear width of the flanges, `out` overhang beyond the faces of the webs.
void AddWallsOfBox(StandardSection& q, double between, double out, const Basis& basis)
{
    const bool overhangs = out > 0 && basis.departs(Dev::d169);
    const double z = (q.h - q.top.t) / 2;
    const double y = q.b / 2 - out - q.tw / 2;
    for (const double side : {1.0, -1.0}) {
        AddWall(q, {-between / 2, side * z, between / 2, side * z, q.top.t, false});
        AddWall(q, {side * y, -q.d / 2, side * y, q.d / 2, q.tw, false});
        if (overhangs) {
            AddOutstands(q, q.top, q.b / 2 - out, side * z);
        }
    }
}

// Distance of the shear centre from the centroid less half of the integral of (y^2 + z^2) z over
// Iy, of plates one above the other; z upwards.
double AsymmetryOf(const StandardSection& q)
{
    struct Plate {
        double b, z0, z1;
    };
    const std::array<Plate, 3> plates = {{{q.bottom.b, -q.below, -q.below + q.bottom.t},
                                          {q.tw, -q.below + q.bottom.t, q.above - q.top.t},
                                          {q.top.b, q.above - q.top.t, q.above}}};
    double integral = 0;
    for (const Plate& p : plates) {
        integral += p.b * (std::pow(p.z1, 4) - std::pow(p.z0, 4)) / 4 +
                    std::pow(p.b, 3) / 12 * (p.z1 * p.z1 - p.z0 * p.z0) / 2;
    }
    return q.centre_z - integral / (2 * q.iy);
}

// Depth from the lower edge at which half of the area of the three plates lies below, and the first
// moments of both halves about it (6.2.5).
double PlasticModulusOfPlates(const StandardSection& q)
{
    const std::array<std::array<double, 2>, 3> strips = {
        {{q.bottom.b, q.bottom.t}, {q.tw, q.hw}, {q.top.b, q.top.t}}};
    double rest = (q.bottom.b * q.bottom.t + q.tw * q.hw + q.top.b * q.top.t) / 2;
    double axis = 0;
    for (const auto& [width, height] : strips) {
        const double part = std::min(rest, width * height);
        axis += part / width;
        rest -= part;
        if (rest <= 0) {
            break;
        }
    }
    double sum = 0;
    double z = -axis;
    for (const auto& [width, height] : strips) {
        const double end = z + height;
        sum += z < 0 && end > 0 ? width * (z * z + end * end) / 2
                                : width * std::abs(end * end - z * z) / 2;
        z = end;
    }
    return sum;
}

void SetShearAreas(const ProjectState& s, StandardSection& q, const Basis& basis)
{
    const double flanges = q.top.b * q.top.t + q.bottom.b * q.bottom.t;
    const double webs = q.webs * q.hw * q.tw;
    const double area = q.eta * webs;
    switch (q.kind) {
    case Kind::i_rolled:
        q.avz = std::max(q.a - flanges + (q.tw + 2 * q.r) * q.top.t, area);
        q.avy = flanges;
        break;
    case Kind::channel:
        q.avz = q.a - flanges + (q.tw + q.r) * q.top.t;
        q.avy = flanges;
        break;
    case Kind::hollow:
        q.avz = q.a * q.h / (q.b + q.h);
        q.avy = q.a * q.b / (q.b + q.h);
        break;
    case Kind::tube:
        q.avz = q.avy = 2 * q.a / 3.14159265358979323846;
        break;
    case Kind::flat:
        q.avz = q.avy = q.a / 1.5;
        break;
    case Kind::angle:  // set with its legs
        break;
    case Kind::general:  // as entered
        q.avz = q.eta * s.aweb;
        q.avy = s.aflange;
        break;
    case Kind::box:
        q.avz = basis.pick(Dev::d29, webs, area);
        q.avy = basis.pick(Dev::d29, 2.0 * s.bw * s.tf, q.a - webs);
        break;
    default:
        // d and e; a web with a flange at one end only: b, to which the program gives eta (D32).
        q.avz = q.kind == Kind::i_welded || q.bottom.t > 0
                    ? area
                    : basis.pick(Dev::d32, area, q.tw * (q.h - q.top.t / 2));
        q.avy = q.a - webs;
        break;
    }
}

void SetSingleSymmetricI(const ProjectState& s, StandardSection& q, const Basis& basis)
{
    q.top = {s.btop, s.ttop};
    q.bottom = {s.bbot, s.tbot};
    q.b = std::max(q.top.b, q.bottom.b);
    const double area_b = q.bottom.b * q.bottom.t;
    const double area_t = q.top.b * q.top.t;
    const double area_w = q.tw * q.hw;
    q.a = area_b + area_t + area_w;
    q.below = (area_b * q.bottom.t / 2 + area_w * (q.bottom.t + q.hw / 2) +
               area_t * (q.h - q.top.t / 2)) /
              q.a;
    q.above = q.h - q.below;
    const double itop = std::pow(q.top.b, 3) * q.top.t / 12;
    const double ibot = std::pow(q.bottom.b, 3) * q.bottom.t / 12;
    const double hs = q.h - q.top.t / 2 - q.bottom.t / 2;
    q.centre_z = itop / (itop + ibot) * hs + q.bottom.t / 2 - q.below;
    const double exact = AsymmetryOf(q);
    q.zj = basis.pick(Dev::d57, s.zjtop, exact);
    q.zj_hogging = basis.pick(Dev::d57, -s.zjbot, exact);
    q.wply = basis.pick(Dev::d186, s.wply, PlasticModulusOfPlates(q));
}

void SetChannel(const ProjectState& s, StandardSection& q, const Basis& basis)
{
    q.left = s.ecg;
    q.right = q.b - q.left;
    // The tables of parallel flange channels count the shear centre from the middle of the web.
    const bool from_middle = Traits(s).shape.faces == FlangeFaces::parallel;
    const double counted = static_cast<double>(s.ecg) + s.ys;
    q.centre_y = -(from_middle ? basis.pick(Dev::d54, counted, counted - q.tw / 2) : counted);
}

// Moduli, areas and classes as entered; height and width of the record are those of the figure.
void SetGeneral(const ProjectState& s, StandardSection& q)
{
    q.above = q.below = q.iy / s.wely;
    q.left = q.right = q.iz / s.welz;
    q.top.t = q.bottom.t = (q.a - s.aweb) / (2 * q.top.b);  // what is no web, 6.2.9.1 (5)
    q.entered = {s.classn, s.classmy, s.classmz};
}

// The British tables print the elastic moduli, with three or four digits as all else: these count,
// and not the quotients of other roundings. A corrected second moment takes its modulus along.
void SetPrintedModuli(const ProjectState& s, StandardSection& q)
{
    constexpr double kSingle = 1e-6;  // the tables without them: quotients in single precision
    const auto printed = [](double modulus, double inertia, double quotient) {
        const bool own = std::abs(modulus / quotient - 1) > kSingle;
        return own ? modulus * inertia : 0;
    };
    q.printed_wely = printed(s.wely, q.iy / s.iy, s.iy / std::max(q.above, q.below));
    q.printed_welz = printed(s.welz, q.iz / s.iz, s.iz / std::max(q.left, q.right));
}

void AddWalls(const ProjectState& s, StandardSection& q, const Basis& basis)
{
    constexpr double kAlmost = 1 - 1e-5;
    switch (q.kind) {
    case Kind::i_rolled:
        AddWallsOfI(q, s.cflange > kAlmost * s.b / 2, basis);
        break;
    case Kind::i_welded:
    case Kind::i_single:
        AddWallsOfI(q, false, basis);
        break;
    case Kind::channel:
        AddWallsOfChannel(q);
        break;
    case Kind::hollow:  // EN 1993-1-5, 4.4 (2): b - 3 t
        q.d = basis.pick(Dev::d53, s.d, q.h - 3 * q.tw);
        AddWallsOfBox(q, basis.pick(Dev::d53, s.cflange, q.b - 3 * q.tw), 0, basis);
        break;
    case Kind::box:
        AddWallsOfBox(q, s.bw, s.bo, basis);
        break;
    default:
        break;
    }
}

// The deviation of a figure of the tables that no other source supports.
Dev DeviationOf(Table table, SectionFigure figure)
{
    switch (table) {
    case Table::upe:
        return Dev::d58;
    case Table::ch:
        return figure == SectionFigure::it || figure == SectionFigure::iw ? Dev::d60 : Dev::d61;
    case Table::j:
        return Dev::d62;
    default:
        return Dev::d59;
    }
}

// Figures of the section: those of the record, but for single rows of the tables (D58, D59, D60,
// D61, D62).
void SetFigures(const Library& library, const ProjectState& s, StandardSection& q,
                const Basis& basis)
{
    const auto figure = [&](SectionFigure which, float ours) -> double {
        if (!HasTable(s.family)) {
            return ours;
        }
        const double corrected = SecondSource(library, s, which, ours);
        return basis.pick(DeviationOf(TableOf(s), which), ours, corrected);
    };
    q.a = figure(SectionFigure::a, s.a);
    q.iy = figure(SectionFigure::iy, s.iy);
    q.iz = figure(SectionFigure::iz, s.iz);
    q.it = figure(SectionFigure::it, s.it);
    q.iw = figure(SectionFigure::iw, s.iw);
    q.wply = figure(SectionFigure::wply, s.wply);
    q.wplz = figure(SectionFigure::wplz, s.wplz);
}

}  // namespace

bool Covered(const ProjectState& s)
{
    return !Is(s, Kind::none);
}

std::string_view NoSectionReason(const Library& library, const ProjectState& s, const Basis& basis)
{
    const std::string_view grade = GradeOf(library, s);
    if (!grade.empty() && s.tmax > kTableEnds && basis.departs(Dev::d22)) {
        return "thickness above 80 mm: EN 1993-1-1, Table 3.1 has no strength";
    }
    if (s.tmax > kThick && grade.ends_with("MH/MLH") && basis.departs(Dev::d21)) {
        return "MH and MLH grades above 40 mm: EN 1993-1-1, Table 3.1 has no strength";
    }
    if (Is(s, Kind::tube) && s.d / (s.tw * 235.0 / s.fyk) > 90 && basis.departs(Dev::d175)) {
        return "tube of class 4: outside EN 1993-1-1, use EN 1993-1-6";
    }
    return {};
}

StandardSection SectionOf(const Library& library, const ProjectState& s, const Basis& basis)
{
    StandardSection q{};
    q.kind = Traits(s).kind;
    q.fy = YieldStrength(library, s, basis);
    q.eps = clauses::Epsilon(q.fy);
    q.e = s.e;
    q.eta = ShearFactor(s, q.fy, basis);
    q.gammam0 = s.gammam0;
    q.gammam1 = GammaM1(s, basis);
    q.elastic = s.checkelastic == kTrue;
    if (q.elastic && q.kind == Kind::flat) {
        q.elastic = basis.pick(Dev::d43, false, true);
    }
    q.linear = s.checkconsercontrol == kTrue;
    q.whole_flanges = s.checkflangebuck == kTrue;
    q.whole_webs = s.checkwebbuck == kTrue;
    q.h = s.h;
    q.b = s.b;
    q.tw = s.tw;
    q.hw = s.hw;
    q.d = s.d;
    q.r = s.r;
    q.webs = q.kind == Kind::hollow || q.kind == Kind::box ? 2 : 1;
    q.top = q.bottom = {s.b, s.tf};
    q.above = q.below = q.h / 2;
    q.left = q.right = q.b / 2;
    SetFigures(library, s, q, basis);
    if (q.kind == Kind::i_single) {
        SetSingleSymmetricI(s, q, basis);
        q.left = q.right = q.b / 2;
    } else if (q.kind == Kind::channel) {
        SetChannel(s, q, basis);
    } else if (q.kind == Kind::general) {
        SetGeneral(s, q);
    } else if (Is(s, Kind::tee, Kind::hat, Kind::box_unequal, Kind::plate)) {
        SetPlates(s, q, basis);
    } else if (q.kind == Kind::angle) {
        SetAngle(s, q);
    }
    if (Is(s, Kind::i_rolled, Kind::channel)) {
        SetPrintedModuli(s, q);
    }
    AddWalls(s, q, basis);
    SetShearAreas(s, q, basis);
    return q;
}

}  // namespace kestrum::standard
