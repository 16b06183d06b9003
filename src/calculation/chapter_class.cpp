#include "calculation/chapters.h"

#include "design/class_limits.h"
#include "design/local_buckling.h"
#include "design/stiffened_plate_section.h"
#include "design/welded_side.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

namespace kestrum {

namespace {

// A plate under one action with its limits of c/t for the classes 1 to 3.
struct Plate {
    std::string_view action, part;
    double c, t;
    double limit1, limit2, limit3;
    std::optional<double> alpha{}, psi{};

    i16 Class() const { return ClassBelow(c / t, limit1, limit2, limit3); }
};

constexpr std::string_view kN = "N", kMy = "My", kMz = "Mz", kMyTop = "My sagging",
                           kMyBottom = "My hogging";

Plate Outstand(const ProjectState& s, std::string_view action, std::string_view part, double c,
               double t, double third = 14)
{
    return {action, part, c, t, 9 * s.eps, 10 * s.eps, third * s.eps};
}

Plate Pressed(const ProjectState& s, std::string_view action, std::string_view part, double c,
              double t)
{
    return {action, part, c, t, 33 * s.eps, 38 * s.eps, 42 * s.eps, 1.0, 1.0};
}

Plate Bent(const ProjectState& s, std::string_view action, std::string_view part, double c,
           double t)
{
    return {action, part, c, t, 72 * s.eps, 83 * s.eps, 124 * s.eps, 0.5, -1.0};
}

// Half of a flange bent in its plane.
Plate SidewaysOutstand(const ProjectState& s, std::string_view part, double c, double t)
{
    return Outstand(s, kMz, part, c, t, 21 * std::sqrt(kOutstandBending));
}

std::vector<Plate> PlatesOfI(const ProjectState& s)
{
    return {Outstand(s, kN, "flange", s.cflange, s.tf), Pressed(s, kN, "web", s.d, s.tw),
            Outstand(s, kMy, "flange", s.cflange, s.tf), Bent(s, kMy, "web", s.d, s.tw),
            SidewaysOutstand(s, "flange", s.cflange, s.tf)};
}

std::vector<Plate> PlatesOfHollow(const ProjectState& s)
{
    return {Pressed(s, kN, "flange", s.cflange, s.tf),  Pressed(s, kN, "web", s.d, s.tw),
            Pressed(s, kMy, "flange", s.cflange, s.tf), Bent(s, kMy, "web", s.d, s.tw),
            Bent(s, kMz, "flange", s.cflange, s.tf),    Pressed(s, kMz, "web", s.d, s.tw)};
}

// Not those of the bottom flange of a hat. D184.
bool ClassesOutstands(const ProjectState& s)
{
    return !Is(s, Kind::hat);
}

void AddFlange(const ProjectState& s, std::string_view action, std::string_view name,
               const Flange& flange, std::vector<Plate>& plates)
{
    if (flange.inner > 0) {
        plates.push_back(Pressed(s, action, name, flange.inner, flange.t));
    }
    const double outstand = std::max(flange.left, flange.right);
    if (outstand > 0 && ClassesOutstands(s)) {
        plates.push_back(Outstand(s, action, name, outstand, flange.t));
    }
}

// The web by the compressed share of its plastic state and the ratio of its elastic stresses. D188.
std::optional<Plate> WebOf(const ProjectState& s, std::string_view action, const WeldedSide& side)
{
    const double alpha = std::clamp(side.alpha, 0.0, 1.0);
    if (!(side.webin > 0) || !(alpha > 0)) {
        return std::nullopt;  // nothing of it is compressed
    }
    const double psi = StressRatio(-side.webout / side.webin);
    return Plate{action,
                 "web",
                 s.d,
                 s.tw,
                 (alpha > 0.5 ? 396 / (13 * alpha - 1) : 36 / alpha) * s.eps,
                 (alpha > 0.5 ? 456 / (13 * alpha - 1) : 41.5 / alpha) * s.eps,
                 (psi > -1 ? 126 / (2 + psi) : 62 * (1 - psi) * std::sqrt(-psi)) * s.eps,
                 alpha,
                 psi};
}

// The flat bar of a stiffened plate with its tip compressed, Table 5.2, sheet 2.
Plate TipOf(const ProjectState& s)
{
    const WeldedSide side = BottomSide(s, s);
    const double alpha = std::min(1.0, side.alpha), psi = -side.webout / side.edge;
    return {kMyBottom,
            "flat bar, tip",
            s.d,
            s.tw,
            9 * s.eps / alpha,
            10 * s.eps / alpha,
            21 * s.eps * std::sqrt(KSigmaOutstand(psi)),
            alpha,
            psi};
}

std::vector<Plate> PlatesOfWelded(const ProjectState& s)
{
    std::vector<Plate> plates;
    const Flange top = TopFlange(s, s), bottom = BottomFlange(s, s);
    if (Traits(s).carries.offered.n) {
        AddFlange(s, kN, "top flange", top, plates);
        AddFlange(s, kN, "bottom flange", bottom, plates);
        plates.push_back(Pressed(s, kN, "web", s.d, s.tw));
    }
    const auto bending = [&](std::string_view action, std::string_view name, const Flange& flange,
                             const WeldedSide& side) {
        AddFlange(s, action, name, flange, plates);
        if (const std::optional<Plate> web = WebOf(s, action, side)) {
            plates.push_back(*web);
        }
    };
    bending(kMyTop, "top flange", top, TopSide(s, s));
    if (HasFlatBar(s)) {
        plates.push_back(TipOf(s));
    } else {
        bending(kMyBottom, "bottom flange", bottom, BottomSide(s, s));
    }
    if (Is(s, Kind::i_single)) {
        plates.push_back(SidewaysOutstand(s, "top flange", std::max(top.left, top.right), top.t));
        plates.push_back(
            SidewaysOutstand(s, "bottom flange", std::max(bottom.left, bottom.right), bottom.t));
    }
    return plates;
}

std::vector<Plate> PlatesOf(const ProjectState& s)
{
    switch (Traits(s).kind) {
    case Kind::i_rolled:
    case Kind::i_welded:
    case Kind::channel:
        return PlatesOfI(s);
    case Kind::hollow:
    case Kind::box:
        return PlatesOfHollow(s);
    case Kind::i_single:
    case Kind::hat:
    case Kind::box_unequal:
    case Kind::plate:
        return PlatesOfWelded(s);
    case Kind::tube: {
        const double eps2 = static_cast<double>(s.eps) * s.eps;
        return {{"all", "wall, d/t", s.d, s.tw, 50 * eps2, 70 * eps2, 90 * eps2}};
    }
    case Kind::tee: {  // D192
        const auto part = [&](std::string_view action, std::string_view name, double c, double t) {
            return Plate{action, name, c, t, 10 * s.eps, 11 * s.eps, 15 * s.eps};
        };
        return {part(kN, "flange", s.cflange, s.tf), part(kN, "web", s.hw, s.tw),
                part(kMyTop, "flange", s.cflange, s.tf), part(kMyBottom, "web", s.hw, s.tw)};
    }
    case Kind::angle:
        return {{kN, "(h + b)/2t", (s.h + s.b) / 2.0, s.tw, 0, 0, 11.5 * s.eps}};
    default:
        return {};
    }
}

constexpr i16 kUpgraded = 23;  // a web of class 3 that counts as class 2, 6.2.2.4

i16 Plain(i16 cls)
{
    constexpr i16 kUpgradedFrom = 3;
    return cls == kUpgraded ? kUpgradedFrom : cls;
}

i16 ClassOf(const ProjectState& s, std::string_view action)
{
    return Plain(action == kN          ? s.classn
                 : action == kMy       ? s.classmy
                 : action == kMz       ? s.classmz
                 : action == kMyTop    ? s.classmytop
                 : action == kMyBottom ? s.classmybot
                                       : s.classn);
}

// The plates of the action explain its class.
bool Explains(const ProjectState& s, std::span<const Plate> plates, std::string_view action)
{
    i16 worst = 1;
    for (const Plate& plate : plates) {
        worst = plate.action == action ? std::max(worst, plate.Class()) : worst;
    }
    return worst == ClassOf(s, action);
}

Line Optional(const std::optional<double>& value)
{
    return value ? NumberLine(*value, 4) : Line("");
}

// A class that no plate of this kind reaches has no limit.
Line Limit(double limit)
{
    return limit > 0 ? NumberLine(limit, 4) : Line("-");
}

}  // namespace

void AddClasses(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    d.Chapter("Class of the section");
    d.Add("ε", Root(Num(235) / Sym("f_y", s.fyk)), s.eps, "", "Table 5.2");
    TextTable table{.columns = {{"Under"},
                                {"Part"},
                                {"c, mm", true},
                                {"t, mm", true},
                                {"c/t", true},
                                {"α", true},
                                {"ψ", true},
                                {"limit 1", true},
                                {"limit 2", true},
                                {"limit 3", true},
                                {"class", true}},
                    .caption = "Plates under single actions, limits of c/t with ε in them"};
    const std::vector<Plate> plates = PlatesOf(s);
    for (const Plate& plate : plates) {
        if (Explains(s, plates, plate.action)) {
            table.rows.push_back({plate.action, plate.part, NumberLine(plate.c),
                                  NumberLine(plate.t), NumberLine(plate.c / plate.t, 4),
                                  Optional(plate.alpha), Optional(plate.psi), Limit(plate.limit1),
                                  Limit(plate.limit2), Limit(plate.limit3),
                                  std::to_string(plate.Class())});
        }
    }
    if (!table.rows.empty()) {
        d.Add(std::move(table));
    }
    if (!ClassesOutstands(s)) {
        d.Say("The outstands of the bottom flange are not classified. D184",
              Paragraph::Kind::remark);
    }
    std::string classes;
    const auto add = [&](std::string_view action, i16 cls) {
        classes += (classes.empty() ? "Class under " : ", under ") + std::string(action) + ": " +
                   std::to_string(Plain(cls)) +
                   (cls == kUpgraded ? " (its web counts as class 2, 6.2.2.4)" : "");
    };
    if (Traits(s).carries.offered.n) {
        add(kN, s.classn);
    }
    if (Traits(s).lists.sides) {
        add(kMyTop, s.classmytop);
        add(kMyBottom, s.classmybot);
    } else {
        add(kMy, s.classmy);
    }
    if (Traits(s).carries.offered.z) {
        add(kMz, s.classmz);
    }
    d.Say(classes + ".");
    d.Say("Combined forces are classed at each check section with their own stresses, 5.5.2; the "
          "checks use that class.",
          Paragraph::Kind::remark);
}

}  // namespace kestrum
