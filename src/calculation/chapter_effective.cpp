#include "calculation/chapters.h"
#include "calculation/effective_figure.h"
#include "calculation/quantities.h"
#include "calculation/standard_effective.h"

#include "core/member_choices.h"
#include "design/local_buckling.h"
#include "design/welded_side.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr std::string_view kRho = "EN 1993-1-5, 4.4 (2)";

// A plate as it buckles; `count` alike.
struct Plate {
    std::string name;
    double c, t;
    bool outstand, kept;  // kept: the user leaves its buckling out
    int count;
};

class Effective {
public:
    Effective(const ProjectState& s, Document& d) : s_(s), q_(s), d_(d) {}
    void Compression();
    void BendingY();
    void BendingZ();

private:
    std::vector<Plate> Plates() const;
    void AddFlangePlates(std::string_view name, const Flange& flange,
                         std::vector<Plate>& plates) const;
    Expr Reduction(const Plate& plate, const std::string& index, const Expr& psi, const Expr& k);
    Expr Lost(const Plate& plate, const std::string& index, double k_outstand);
    struct Bent {
        double edge, height;  // centroid and far edge from the compressed edge
        double at;            // of the compressed plate
        double wall;          // its thickness
        double off;           // from the compressed edge to the straight part of the bent plates
        double c, t;          // of these
        int count;            // of these
        bool kept;            // they do not buckle
        bool by_flange_only;  // D183
        Expr lost;            // area that the compressed plate loses
        const char* inertia;  // I_y, I_z
        double i;
    };
    void Modulus(const Bent& bent, const std::string& axis, double value, double least);
    void Tip(const WeldedSide& side, double value);
    bool Boxed() const { return Is(s_, Kind::hollow) || Is(s_, Kind::box); }

    const ProjectState& s_;
    Quantities q_;
    Document& d_;
};

void Effective::AddFlangePlates(std::string_view name, const Flange& flange,
                                std::vector<Plate>& plates) const
{
    const bool kept = s_.checkflangebuck == kTrue;
    const std::string text(name);
    if (flange.inner > 0) {
        plates.push_back({text, flange.inner, flange.t, false, kept, 1});
    }
    if (flange.left > 0 && flange.left == flange.right) {
        plates.push_back({text + ", outstands", flange.left, flange.t, true, kept, 2});
        return;
    }
    for (const double c : {flange.left, flange.right}) {
        if (c > 0) {
            plates.push_back({text + ", outstand", c, flange.t, true, kept, 1});
        }
    }
}

std::vector<Plate> Effective::Plates() const
{
    const bool flanges = s_.checkflangebuck == kTrue, webs = s_.checkwebbuck == kTrue;
    std::vector<Plate> plates;
    switch (Traits(s_).kind) {
    case Kind::i_rolled:
    case Kind::i_welded:
        return {{"flange outstands", s_.cflange, s_.tf, true, flanges, 4},
                {"web", s_.d, s_.tw, false, webs, 1}};
    case Kind::channel:
        return {{"flanges", s_.cflange, s_.tf, true, flanges, 2},
                {"web", s_.d, s_.tw, false, webs, 1}};
    case Kind::hollow:
    case Kind::box:
        return {{"flanges", s_.cflange, s_.tf, false, flanges, 2},
                {"webs", s_.d, s_.tw, false, webs, 2}};
    case Kind::tee:
        return {{"flange outstands", s_.cflange, s_.tf, true, flanges, 2},
                {"web", s_.hw, s_.tw, true, webs, 1}};
    case Kind::angle:
        return {{"leg b", s_.cb, s_.tw, true, flanges, 1},
                {"leg h", s_.ch, s_.tw, true, flanges, 1}};
    case Kind::i_single:
    case Kind::hat:
    case Kind::box_unequal:
    case Kind::plate: {
        const bool plate = Is(s_, Kind::plate);
        AddFlangePlates(plate ? "plate" : "top flange", TopFlange(s_, s_), plates);
        if (!plate || Traits(s_).shape.stiffener != Stiffener::flat_bar) {
            AddFlangePlates(plate ? "flange of the stiffener" : "bottom flange",
                            BottomFlange(s_, s_), plates);
        }
        const bool bar = plate && Traits(s_).shape.stiffener == Stiffener::flat_bar;
        plates.push_back({Webs(s_) == 2 ? "webs" : "web", s_.d, s_.tw, bar, webs, Webs(s_)});
        return plates;
    }
    default:
        return {};
    }
}

// rho of a plate; without reduction 1.
Expr Effective::Reduction(const Plate& plate, const std::string& index, const Expr& psi,
                          const Expr& k)
{
    const Expr c = Sym("c_" + index, plate.c), t = Sym("t_" + index, plate.t);
    const Expr lam =
        Step(d_, "~λ_p," + index, c / (28.4 * t * q_.eps * Root(k)), "", std::string(kRho));
    const double slenderness = Evaluate(lam), ratio = Evaluate(psi);
    const bool whole = plate.kept || (plate.outstand ? RhoOutstand(slenderness)
                                                     : RhoInternal(slenderness, ratio)) >= 1;
    if (whole) {
        d_.Add("ρ_" + index, 1, "", std::string(kRho),
               plate.kept ? "its buckling is left out" : "not reduced");
        return Sym("ρ_" + index, 1);
    }
    const Expr rho =
        plate.outstand ? (lam - Num(0.188)) / Square(lam) : (lam - 0.055 * (3 + psi)) / Square(lam);
    return Step(d_, "ρ_" + index, rho, "",
                std::string(kRho) + (plate.outstand ? ", Eq (4.3)" : ", Eq (4.2)"));
}

// Area that all of these lose in uniform compression; an outstand with its own factor.
Expr Effective::Lost(const Plate& plate, const std::string& index, double k_outstand)
{
    const double k = plate.outstand ? k_outstand : kInternal;
    d_.Say(Line(plate.name + ": c = ") + NumberLine(plate.c) + Line(" mm, t = ") +
           NumberLine(plate.t) + Line(plate.outstand ? " mm, outstand, " : " mm, internal, ") +
           Line(Symbol("k_σ")) + Line(" = ") + NumberLine(k) +
           Line(plate.count > 1 ? ", " + std::to_string(plate.count) + " of them" : ""));
    const Expr rho = Reduction(plate, index, Num(1), Sym("k_σ", k));
    if (Evaluate(rho) >= 1) {
        return nullptr;
    }
    const Expr c = Sym("c_" + index, plate.c);
    Step(d_, "c_eff," + index, rho * c, "mm",
         plate.outstand ? "EN 1993-1-5, Table 4.2" : "EN 1993-1-5, Table 4.1");
    const Expr one = (1 - rho) * c * Sym("t_" + index, plate.t);
    return Step(d_, "ΔA_" + index, plate.count > 1 ? Num(plate.count) * one : one, "mm2",
                std::string(kRho));
}

void Effective::Compression()
{
    d_.Part("Effective area in compression");
    Expr area = q_.a;
    int number = 0;
    for (const Plate& plate : Plates()) {
        ++number;
        if (const Expr lost = Lost(plate, std::to_string(number), kOutstand)) {
            area = area - lost;
        }
    }
    d_.Add("A_eff", area, s_.aeff, "mm2", "EN 1993-1-5, 4.3 (2)",
           Is(s_, Kind::angle) ? Line("D181") : Line());
}

// Distances from the compressed edge; the compressed plate loses its part first, 4.4 (3).
void Effective::Modulus(const Bent& b, const std::string& axis, double value, double least)
{
    const Expr a = q_.a, e = Sym("e", b.edge), at = Sym("z_f", b.at), inertia = Sym(b.inertia, b.i);
    const Expr first = b.lost == nullptr ? a * e : a * e - b.lost * at;
    const Expr rest = b.lost == nullptr ? a : a - b.lost;
    if (b.lost != nullptr) {
        d_.Say(Line("Centroid of the gross section e = ") + NumberLine(b.edge) +
                   Line(" mm, middle of the compressed plate ") + Line(Symbol("z_f")) +
                   Line(" = ") + NumberLine(b.at) + Line(" mm, thickness ") + Line(Symbol("t_f")) +
                   Line(" = ") + NumberLine(b.wall) + Line(" mm."),
               Paragraph::Kind::remark);
    }
    const Expr z1 = b.lost == nullptr ? e
                                      : Step(d_, "z_a", first / rest, "mm", "EN 1993-1-5, 4.4 (3)",
                                             "axis without what the compressed plate loses");
    const Expr bc = Step(d_, "b_c", z1 - Sym("o", b.off), "mm", "EN 1993-1-5, Table 4.1",
                         "compressed part of the bent plate");
    const Expr c = Sym("c_w", b.c);
    const Expr psi = Step(d_, "ψ", (bc - c) / bc, "", "EN 1993-1-5, Table 4.1");
    const double ratio = StressRatio(Evaluate(psi));
    const Expr k = Step(d_, "k_σ",
                        ratio > 0    ? 8.2 / (1.05 + psi)
                        : ratio < -1 ? 5.98 * Square(1 - psi)
                                     : 7.81 - 6.29 * psi + 9.78 * Square(psi),
                        "", "EN 1993-1-5, Table 4.1");
    const Expr rho = Reduction({"", b.c, b.t, false, b.kept, b.count}, "w", psi, k);
    Expr moment = inertia + a * Square(e);
    if (b.lost != nullptr) {
        moment = moment - b.lost * (Square(Sym("t_f", b.wall)) / Num(12) + Square(at));
    }
    Expr area = rest, about = first;
    if (Evaluate(rho) < 1) {
        const Expr w = Step(d_, "w", (1 - rho) * bc, "mm", "EN 1993-1-5, Table 4.1", "lost height");
        const Expr zw = Step(d_, "z_w", z1 - 0.6 * rho * bc - w / Num(2), "mm",
                             "EN 1993-1-5, Table 4.1", "its middle");
        const Expr t = Sym("t_w", b.t);
        const Expr web = Step(d_, "ΔA_w", b.count > 1 ? Num(b.count) * w * t : w * t, "mm2", "");
        moment = moment - web * (Square(w) / Num(12) + Square(zw));
        area = rest - web;
        about = first - web * zw;
    }
    area = Step(d_, "A_eff," + axis, area, "mm2", "");
    const Expr z = Step(d_, "z_eff", about / (b.by_flange_only ? rest : area), "mm", "",
                        b.by_flange_only ? "D183" : "");
    const Expr i = Step(d_, "I_eff," + axis, moment - area * Square(z), "mm4", "");
    const Expr near = i / z, far = i / (Sym("h", b.height) - z);
    d_.Add("W_eff," + axis, least < 0 ? near : Least({near, far}), value, "mm3",
           "6.2.5 (2), Eq (6.15)");
}

// The bar of a plate with its tip compressed loses the end of it.
void Effective::Tip(const WeldedSide& side, double value)
{
    const Expr e = Sym("e", side.edge), tw = q_.tw, hw = q_.hw;
    d_.Say(Line("Centroid of the gross section e = ") + NumberLine(side.edge) +
               Line(" mm from the tip, which is compressed."),
           Paragraph::Kind::remark);
    Expr area = q_.a, first = q_.a * e, second = Sym("I_y", s_.iy) + q_.a * Square(e);
    if (s_.checkwebbuck != kTrue) {
        const Expr psi = Step(d_, "ψ", (e - hw) / e, "", "EN 1993-1-5, Table 4.2");
        const Expr k =
            Step(d_, "k_σ", 0.57 - 0.21 * psi + 0.07 * Square(psi), "", "EN 1993-1-5, Table 4.2");
        const Expr rho = Reduction({"", s_.d, s_.tw, true, false, 1}, "w", psi, k);
        const Expr w =
            Step(d_, "w", (1 - rho) * e, "mm", "EN 1993-1-5, Table 4.2", "lost at the tip");
        const Expr lost = Step(d_, "ΔA_w", w * tw, "mm2", "");
        second = second - lost * (Square(w) / Num(12) + Square(w / Num(2)));
        first = first - lost * w / Num(2);
        area = area - lost;
    }
    area = Step(d_, "A_eff,y,bot", area, "mm2", "");
    const Expr z = Step(d_, "z_eff", first / area, "mm", "", "from the tip");
    const Expr i = Step(d_, "I_eff,y,bot", second - area * Square(z), "mm4", "");
    d_.Add("W_eff,y,bot", Least({i / z, i / (Sym("h", s_.h) - z)}), value, "mm3",
           "6.2.5 (2), Eq (6.15)", "tip compressed");
}

void Effective::BendingY()
{
    const Kind kind = Traits(s_).kind;
    const bool webs = s_.checkwebbuck == kTrue;
    Bent bent{.edge = s_.h / 2.0,
              .height = s_.h,
              .at = s_.tf / 2.0,
              .wall = s_.tf,
              .off = Boxed() ? (static_cast<double>(s_.h) - s_.d) / 2
                             : static_cast<double>(s_.tf) + s_.r,
              .c = s_.d,
              .t = s_.tw,
              .count = Boxed() ? 2 : 1,
              .kept = webs,
              .by_flange_only = false,
              .lost = nullptr,
              .inertia = "I_y",
              .i = s_.iy};
    if (kind == Kind::i_rolled || kind == Kind::i_welded || kind == Kind::channel || Boxed()) {
        d_.Part("Effective modulus about y");
        Plate flange = Plates().front();
        flange.count = kind == Kind::channel || Boxed() ? 1 : 2;
        bent.lost = Lost(flange, "f", kOutstand);
        Modulus(bent, "y", s_.weffy, -1);
        return;
    }
    if (kind == Kind::tee) {
        d_.Part("Effective modulus about y");
        d_.Add("W_eff,y", Sym("W_el,y", s_.wely) * Sym("A_eff", s_.aeff) / q_.a, s_.weffy, "mm3",
               "6.2.5 (2), Eq (6.15)", "falls as the area");
        return;
    }
    const bool stiffened = kind == Kind::plate;
    const bool bar = stiffened && Traits(s_).shape.stiffener == Stiffener::flat_bar;
    for (const bool top : {true, false}) {
        if ((top ? s_.classmytop : s_.classmybot) != 4) {
            continue;
        }
        d_.Part(top ? "Effective modulus about y, top flange compressed"
                    : "Effective modulus about y, bottom flange compressed");
        const double value =
            top ? std::min(s_.weffytop1, s_.weffytop2) : std::min(s_.weffybot1, s_.weffybot2);
        if (bar && !top) {
            Tip(BottomSide(s_, s_), value);
            continue;
        }
        const WeldedSide side = top ? TopSide(s_, s_) : BottomSide(s_, s_);
        std::vector<Plate> plates;
        AddFlangePlates("flange", top ? TopFlange(s_, s_) : BottomFlange(s_, s_), plates);
        int number = 0;
        for (const Plate& plate : plates) {
            if (const Expr lost = Lost(plate, "f" + std::to_string(++number), kOutstand)) {
                bent.lost = bent.lost == nullptr ? lost : bent.lost + lost;
            }
        }
        if (number > 1 && bent.lost != nullptr && bent.lost->op != Op::symbol) {
            bent.lost = Step(d_, "ΔA_f", bent.lost, "mm2", "");
        }
        bent.edge = side.edge;
        bent.height = side.edge + side.opposite;
        bent.at = side.t / 2;
        bent.wall = side.t;
        bent.off = stiffened ? side.t : side.t + s_.r;
        bent.kept = webs || bar;
        bent.count = Webs(s_);
        bent.by_flange_only = kind == Kind::i_single;
        Modulus(bent, top ? "y,top" : "y,bot", value, 1);
        bent.lost = nullptr;
    }
}

void Effective::BendingZ()
{
    const Kind kind = Traits(s_).kind;
    if (Boxed()) {
        d_.Part("Effective modulus about z");
        Plate web = Plates().back();
        web.count = 1;
        const Bent bent{.edge = s_.b / 2.0,
                        .height = s_.b,
                        .at = s_.bo + s_.tw / 2.0,
                        .wall = s_.tw,
                        .off = (static_cast<double>(s_.b) - s_.cflange) / 2,
                        .c = s_.cflange,
                        .t = s_.tf,
                        .count = 2,
                        .kept = s_.checkflangebuck == kTrue,
                        .by_flange_only = false,
                        .lost = Lost(web, "w", kOutstand),
                        .inertia = "I_z",
                        .i = s_.iz};
        Modulus(bent, "z", s_.weffz, -1);
        return;
    }
    if (kind != Kind::i_rolled && kind != Kind::i_welded) {
        return;
    }
    d_.Part("Effective modulus about z");
    const Plate tip{"flange outstands, bent",    s_.cflange, s_.tf, true,
                    s_.checkflangebuck == kTrue, 2};
    const Expr strip = Lost(tip, "f", kOutstandBending);
    if (strip == nullptr) {
        return;
    }
    const Expr b = q_.b, half = b / Num(2);
    const Expr g = Step(d_, "g", strip / (2 * q_.tf), "mm", "", "lost at each compressed tip");
    const Expr y = Step(d_, "y_g", b - g / Num(2), "mm", "", "from the tension edge");
    const Expr rest = q_.a - strip;
    const Expr z = Step(d_, "y_eff", (half * q_.a - strip * y) / rest, "mm", "");
    const Expr i = Step(d_, "I_eff,z",
                        q_.a * Square(half) + Sym("I_z", s_.iz) - strip * Square(g) / Num(12) -
                            strip * Square(y) - rest * Square(z),
                        "mm4", "");
    d_.Add("W_eff,z", i / z, s_.weffz, "mm3", "6.2.5 (2), Eq (6.15)", "D160");
}

// Actions that put the section into class 4 by the standard and are checked, also where they do not
// by the rules of the program.
EffectiveStates StatesOf(const CalculatedMember& m, const standard::EffectiveStudy& study)
{
    using standard::CheckId;
    const auto slender = [&](const standard::ActingForces& forces) {
        return standard::ClassOf(study.section, forces, Basis::Standard()) == 4;
    };
    const standard::Checks& checks = m.standard.checks;
    const standard::Check& n = checks[CheckId::section_n];
    constexpr double kCompression = 1;  // N
    return {.compression = n.present && n.clause.starts_with("6.2.4") &&
                           slender({kCompression, false, false, false}),
            .bending_y = !study.section.Angle() && checks[CheckId::section_my].present &&
                         (slender({0, true, false, false}) || slender({0, false, true, false}))};
}

}  // namespace

void AddEffectiveSection(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    const bool classed = m.HasSection();  // by the rules of the program
    const bool n = classed && s.classn == 4 && Traits(s).carries.offered.n;
    const bool y = classed && (s.classmy == 4 || s.classmytop == 4 || s.classmybot == 4);
    const bool z = classed && s.classmz == 4;
    const bool entered = Is(s, Kind::general) || Is(s, Kind::tube) || Is(s, Kind::flat);
    if (entered) {
        return;
    }
    const auto study = standard::EffectiveStudyOf(m.library, m.input);
    EffectiveStates states = study ? StatesOf(m, *study) : EffectiveStates{};
    if (!(n || y || z || states.compression || states.bending_y)) {
        return;
    }
    states.compression = states.compression || n;
    states.bending_y = states.bending_y || y;
    d.Chapter("Effective section, class 4");
    d.Say(
        "Plates lose the part of their compressed width that buckles, EN 1993-1-5, 4.4; lengths in "
        "mm, distances from the compressed edge.",
        Paragraph::Kind::remark);
    if (study) {
        AddEffectiveFigures(s, *study, states.compression, d);
    }
    Effective effective(s, d);
    if (n) {
        effective.Compression();
    }
    if (y) {
        effective.BendingY();
    }
    if (z) {
        effective.BendingZ();
    }
    if (study) {
        d.Part("By EN 1993-1-1 as written");
        AddStandardEffective(*study, states, d);
    }
}

}  // namespace kestrum
