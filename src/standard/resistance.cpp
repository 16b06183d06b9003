#include "standard/resistance.h"

#include "clauses/bending.h"
#include "clauses/shear.h"
#include "standard/plates.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

bool Plastic(const StandardSection& q, int cls)
{
    return cls <= 2 && !q.elastic;
}

double FlangeArea(const StandardSection& q)
{
    return q.top.b * q.top.t + q.bottom.b * q.bottom.t;
}

// The walls that carry the shear: plates of the clear width between the others; the corners of
// hollow sections count to them in classes 1 and 2, on the safe side.
struct ShearWalls {
    double web, flange;  // heights of a web, widths of a flange
};

ShearWalls WallsInShear(const StandardSection& q, bool plastic)
{
    if (q.kind == Kind::hollow) {
        return plastic ? ShearWalls{q.h, q.b} : ShearWalls{q.hw, q.b - 2 * q.tw};
    }
    return {q.hw, q.b};
}

// What the webs of reduced strength take from the modulus about y.
double LossOfWebsY(const StandardSection& q, bool plastic)
{
    if (q.kind == Kind::i_single) {  // about the axes of the whole section
        const double up = q.above - q.top.t;
        const double down = q.below - q.bottom.t;
        return plastic
                   ? q.tw * (up * up + down * down) / 2
                   : q.tw * (std::pow(up, 3) + std::pow(down, 3)) / 3 / std::max(q.above, q.below);
    }
    const double height = WallsInShear(q, plastic).web;
    const double plates = q.webs * q.tw * height * height;
    return plastic ? plates / 4 : plates * height / 12 / (q.h / 2);
}

// D41: what the program takes.
double StripOfWebs(const StandardSection& q, bool plastic)
{
    return q.webs * q.tw * q.hw * q.hw / (plastic ? 4 : 6);
}

double StripOfFlanges(const StandardSection& q, bool plastic)
{
    const double width = q.b - 2 * q.tw;
    return 2 * q.top.t * width * width / (plastic ? 4 : 6);
}

// The webs of closed sections about z: each at its arm.
double LossOfWebsZ(const StandardSection& q, bool plastic)
{
    if (q.kind != Kind::hollow && q.kind != Kind::box) {
        return 0;
    }
    double arm = (q.b - q.tw) / 2;
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        arm = q.walls[i].Upright() ? std::abs(q.walls[i].y0) : arm;
    }
    const double area = 2 * WallsInShear(q, plastic).web * q.tw;
    return plastic ? area * arm : area * arm * arm / (q.b / 2);
}

// Both flanges about z.
double LossOfFlangesZ(const StandardSection& q, bool plastic)
{
    if (q.kind == Kind::hollow) {
        const double width = WallsInShear(q, plastic).flange;
        const double plates = 2 * q.top.t * width * width;
        return plastic ? plates / 4 : plates * width / 12 / (q.b / 2);
    }
    const double squares = q.top.t * q.top.b * q.top.b + q.bottom.t * q.bottom.b * q.bottom.b;
    return plastic ? squares / 4 : squares / 6;
}

double LossOfFlangesY(const StandardSection& q, bool plastic)
{
    const double arm = (q.h - q.top.t) / 2;
    const double area =
        q.kind == Kind::hollow ? 2 * WallsInShear(q, plastic).flange * q.top.t : FlangeArea(q);
    return plastic ? area * arm : area * arm * arm / (q.h / 2);
}

// Effective where the outer fibre is compressed.
Flange FlangeUnder(const PreparedSection& p, double n, double my, bool top)
{
    const StandardSection& q = p.q;
    const double bending = top ? my * q.above / q.iy : -my * q.below / q.iy;
    if (n / q.a + bending > 0) {
        return top ? p.pressed_top : p.pressed_bottom;
    }
    return top ? q.top : q.bottom;
}

// A web that may buckle in shear, stiffened or not: only there do flanges count by themselves.
bool MayBuckleInShear(const StandardSection& q)
{
    constexpr double kLeastFactor = 4;  // of k_tau
    return !q.Angle() && q.hw > 0 && q.hw / q.tw > 31 * q.eps * std::sqrt(kLeastFactor) / q.eta;
}

// The bar and the tube carry shear with the whole section; where the web of the general profile
// lies is not entered.
bool ShearedWhole(const StandardSection& q)
{
    return q.kind == Kind::flat || q.kind == Kind::tube || q.kind == Kind::general;
}

// The buckling factor of a web that may buckle in shear, EN 1993-1-5, 5.1 (2); 0 for others. D46:
// the program asks without the stiffeners.
double Slender(const StandardSection& q, double h, double t, const ShearInputs& in,
               const Basis& basis)
{
    const bool bare = h / t > clauses::StockyWebLimit(q.eps, q.eta);
    if (!in.stiffened) {
        return bare ? clauses::kUnstiffenedFactor : 0;
    }
    const double k = clauses::ShearBucklingFactor(h, in.entered);
    const bool slender = h / t > 31 * q.eps * std::sqrt(k) / q.eta;
    return basis.pick(Dev::d46, bare, slender) ? k : 0;
}

}  // namespace

PreparedSection Prepare(const StandardSection& q, const Basis& basis)
{
    PreparedSection p{.q = q,
                      .effective = {},
                      .class_n = 1,
                      .whole_angle = {},
                      .effective_angle = {},
                      .stocky_area = q.a,
                      .pressed_top = q.top,
                      .pressed_bottom = q.bottom};
    p.class_n = ClassInCompression(q, basis);
    if (MayBuckleInShear(q)) {
        p.pressed_top = EffectiveFlange(q, true);
        p.pressed_bottom = EffectiveFlange(q, false);
    }
    if (!q.Angle()) {
        p.effective = EffectiveValuesOf(q, basis);
        p.stocky_area = q.kind == Kind::tee ? basis.pick(Dev::d193, p.effective.a, q.a) : q.a;
        return p;
    }
    p.whole_angle = WholeAngle(q, basis);
    p.effective_angle = p.class_n == 4 ? EffectiveAngle(q, basis) : p.whole_angle;
    const AngleSection& angle = p.effective_angle;
    p.effective.a = angle.a;
    p.effective.eny = std::abs(angle.zc * angle.cosine - angle.yc * angle.sine);
    p.effective.enz = std::abs(angle.yc * angle.cosine + angle.zc * angle.sine);
    return p;
}

double ModulusY(const PreparedSection& p, int cls, bool sagging)
{
    if (p.q.Angle()) {
        return std::min(CompressedModulusU(p.AngleOf(cls), true),
                        CompressedModulusU(p.AngleOf(cls), false));
    }
    if (Plastic(p.q, cls)) {
        return p.q.wply;
    }
    if (cls <= 3) {
        return sagging ? p.effective.wy3_sagging : p.effective.wy3_hogging;
    }
    return sagging ? p.effective.wy_sagging : p.effective.wy_hogging;
}

double ModulusYCompressed(const PreparedSection& p, int cls, bool sagging)
{
    if (p.q.Angle()) {
        return CompressedModulusU(p.AngleOf(cls), sagging);
    }
    if (Plastic(p.q, cls)) {
        return p.q.wply;
    }
    if (cls <= 3) {
        return p.q.Wely(sagging);
    }
    return sagging ? p.effective.wy_compressed_sagging : p.effective.wy_compressed_hogging;
}

double ModulusZ(const PreparedSection& p, int cls)
{
    if (p.q.Angle()) {
        return LeastModulusV(p.AngleOf(cls));
    }
    return Plastic(p.q, cls) ? p.q.wplz : cls <= 3 ? p.q.LeastWelz() : p.effective.wz;
}

double CompressedArea(const PreparedSection& p, int cls)
{
    return cls <= 3 ? p.stocky_area : p.effective.a;
}

ReducedResistance ResistanceBeside(const PreparedSection& p, int cls, const ShearShares& rho,
                                   bool compressed, bool sagging, const Basis& basis)
{
    const StandardSection& q = p.q;
    const bool plastic = Plastic(q, cls);
    double a = compressed ? CompressedArea(p, cls) : q.a;
    double wy = ModulusY(p, cls, sagging);
    double wz = ModulusZ(p, cls);
    if (rho.z == 0 && rho.y == 0) {
        // nothing is lost
    } else if (ShearedWhole(q)) {
        const double left = 1 - std::max(rho.z, rho.y);
        const bool apart = q.kind == Kind::tube && rho.z != rho.y && !basis.departs(Dev::d176);
        a *= basis.pick(Dev::d151, 1.0, left);
        wy *= apart ? 1 - rho.z : left;
        wz *= apart ? 1 - rho.y : left;
    } else if (q.OfStrips() && plastic) {
        const StripValues left = PlasticBeside(q, rho.z, rho.y);
        a = left.a;
        wy = basis.pick(Dev::d41, wy - rho.z * StripOfWebs(q, plastic), left.wy);
        wz = left.wz;
    } else if (q.OfStrips()) {
        const StripValues loss = ElasticLoss(q, rho.z, rho.y);
        a -= loss.a;
        wy -= basis.pick(Dev::d41, rho.z * StripOfWebs(q, plastic), loss.wy);
        wz -= loss.wz;
    } else if (rho.z > 0 || rho.y > 0) {
        a -= basis.pick(Dev::d151, 0.0, rho.z * q.webs * q.hw * q.tw + rho.y * FlangeArea(q));
        wy -= rho.z * basis.pick(Dev::d41, StripOfWebs(q, plastic), LossOfWebsY(q, plastic));
        wz -= basis.pick(Dev::d41, 0.0, rho.z * LossOfWebsZ(q, plastic));
        const double lost_y = rho.y * LossOfFlangesY(q, plastic);
        const double lost_z = rho.y * LossOfFlangesZ(q, plastic);
        wy -= basis.pick(q.Closed() ? Dev::d41 : Dev::d161, 0.0, lost_y);
        wz -= q.Closed() ? basis.pick(Dev::d41, rho.y * StripOfFlanges(q, plastic), lost_z)
                         : basis.pick(Dev::d161, lost_z / 2, lost_z);
    }
    const double strength = q.fy / q.gammam0;
    return {std::max(a, 0.0) * strength, std::max(wy, 0.0) * strength,
            std::max(wz, 0.0) * strength};
}

namespace {

// Vbf,Rd: the weaker flange, at most 15 eps tf on each side of the web.
void AddFlangePart(const PreparedSection& p, const ShearInputs& in, double n, double my,
                   const Basis& basis, ShearTerms& terms)
{
    const StandardSection& q = p.q;
    const bool single = q.kind == Kind::i_single;
    const bool top = q.top.b * q.top.t * q.top.t <= q.bottom.b * q.bottom.t * q.bottom.t;
    Flange weaker = top ? q.top : q.bottom;
    const double sides = q.kind == Kind::channel ? 1 : 2;
    const double each = sides * 15 * q.eps * weaker.t + q.tw;
    const double counted = std::min(weaker.b, q.webs * each);
    weaker.b = basis.pick(Dev::d30, weaker.b, counted);
    if (single) {  // D190: the program takes a flange of mean width and thickness
        weaker.b = basis.pick(Dev::d190, (q.top.b + q.bottom.b) / 2, weaker.b);
        weaker.t = basis.pick(Dev::d190, (q.top.t + q.bottom.t) / 2, weaker.t);
    }
    double spacing = in.Spacing();
    if (in.entered > 0) {
        spacing = basis.pick(single || q.OfStrips() ? Dev::d199 : Dev::d159, in.entered, spacing);
    }
    terms.flange = weaker;
    terms.spacing = spacing;
    terms.mf = FlangeMoment(p, n, my, basis);
    terms.flanges = clauses::FlangeShear({weaker.b, weaker.t}, q.hw, q.webs * q.tw, spacing, q.fy,
                                         q.gammam1, std::abs(my), terms.mf);
}

// D45: the program's walls of hollow sections that buckle in shear keep the shear area of 6.2.6.
double CountedWalls(const StandardSection& q, double area, double walls, const Basis& basis)
{
    return q.kind == Kind::hollow ? basis.pick(Dev::d45, area, walls) / walls : 1;
}

ShearTerms WebTerms(const StandardSection& q, const ShearInputs& in, double k, const Basis& basis)
{
    ShearTerms terms{};
    terms.k = k;
    terms.lam = clauses::WebSlenderness(q.hw, q.tw, q.eps, k);
    terms.factor = clauses::WebFactor(terms.lam, q.eta, in.rigid_end_post);
    const double webs = q.webs * CountedWalls(q, q.avz, q.webs * q.hw * q.tw, basis);
    terms.web = webs * clauses::WebShear(terms.factor, q.hw, q.tw, q.fy, q.gammam1);
    return terms;
}

// 6.2.6 (6): shear buckling in addition to the plastic resistance. D47: the program drops that.
double HeldTo(double plastic, double buckling, const Basis& basis)
{
    return basis.pick(Dev::d47, buckling, std::min(buckling, plastic));
}

}  // namespace

std::optional<ShearTerms> ShearTermsAlongZ(const PreparedSection& p, const ShearInputs& in,
                                           double n, double my, const Basis& basis)
{
    const StandardSection& q = p.q;
    const double k = ShearedWhole(q) || q.Angle() ? 0 : Slender(q, q.hw, q.tw, in, basis);
    if (k == 0) {
        return std::nullopt;
    }
    ShearTerms terms = WebTerms(q, in, k, basis);
    if (!q.Closed() || q.OfStrips()) {
        AddFlangePart(p, in, n, my, basis, terms);
    }
    terms.limit = q.webs * clauses::ShearBucklingLimit(q.eta, q.hw, q.tw, q.fy, q.gammam1);
    return terms;
}

ShearResistance ShearAlongZ(const PreparedSection& p, const ShearInputs& in, double n, double my,
                            const Basis& basis)
{
    const StandardSection& q = p.q;
    const double plastic = clauses::PlasticShear(q.avz, q.fy, q.gammam0);
    const std::optional<ShearTerms> terms = ShearTermsAlongZ(p, in, n, my, basis);
    if (!terms) {
        return {plastic, plastic, false};
    }
    const double web = terms->web;
    const double total = HeldTo(plastic, std::min(web + terms->flanges, terms->limit), basis);
    // D158: the program's test for high shear sees neither stiffeners nor a rigid end post.
    ShearInputs bare = in;
    bare.rigid_end_post = false;
    const double tested =
        basis.pick(Dev::d158, WebTerms(q, bare, clauses::kUnstiffenedFactor, basis).web, web);
    return {total, HeldTo(plastic, tested, basis), true};
}

ShearResistance ShearAlongY(const PreparedSection& p, const ShearInputs& in, const Basis& basis)
{
    const StandardSection& q = p.q;
    const double plastic = clauses::PlasticShear(q.avy, q.fy, q.gammam0);
    if (q.OfStrips() && q.Closed()) {
        return ShearOfFlanges(q, in);
    }
    if (q.ISection() || q.kind == Kind::channel || q.kind == Kind::i_single) {
        return {basis.pick(Dev::d152, plastic / 1.5, plastic), plastic, false};
    }
    if (q.kind != Kind::hollow && q.kind != Kind::box) {
        return {plastic, plastic, false};
    }
    double width = q.b - 2 * q.tw;
    for (std::size_t i = 0; i < q.wall_count && q.kind == Kind::box; ++i) {
        width = !q.walls[i].Upright() && !q.walls[i].outstand ? q.walls[i].Width() : width;
    }
    const double t = q.top.t;
    const ShearInputs unstiffened{0, in.supports, false, in.rigid_end_post};
    const double k = Slender(q, width, t, unstiffened, basis);
    if (k == 0) {
        return {plastic, plastic, false};
    }
    const double lam = clauses::WebSlenderness(width, t, q.eps, k);
    const double factor = clauses::WebFactor(lam, q.eta, in.rigid_end_post);
    const double gamma = basis.pick(Dev::d172, q.gammam0, q.gammam1);
    const double walls = 2 * CountedWalls(q, q.avy, 2 * width * t, basis);
    const double web = walls * clauses::WebShear(factor, width, t, q.fy, gamma);
    const double total = HeldTo(plastic, web, basis);
    return {total, total, true};
}

FlangeAreas FlangeAreasUnder(const PreparedSection& p, double n, double my)
{
    const Flange top = FlangeUnder(p, n, my, true);
    const Flange bottom = FlangeUnder(p, n, my, false);
    return {top.b * top.t, bottom.b * bottom.t};
}

double FlangeMoment(const PreparedSection& p, double n, double my, const Basis& basis)
{
    const StandardSection& q = p.q;
    const auto [area_top, area_bottom] = FlangeAreasUnder(p, n, my);
    const double arm = q.h - (q.top.t + q.bottom.t) / 2;
    double moment = std::min(area_top, area_bottom) * arm * q.fy / q.gammam0;
    if (q.kind == Kind::i_single || q.kind == Kind::hat ||
        q.kind == Kind::plate) {  // D31: the elastic resistance less that of the web
        const double elastic = q.LeastWely() - q.webs * q.hw * q.hw * q.tw / 6;
        moment = basis.pick(Dev::d31, elastic * q.fy / q.gammam0, moment);
    }
    if (n == 0) {
        return moment;
    }
    // D154: the program compares kN with N.
    const double share = std::abs(n) / ((area_top + area_bottom) * q.fy / q.gammam0);
    const double lost = q.Closed() ? share : basis.pick(Dev::d154, share / 1000, share);
    return moment * std::max(0.0, 1 - lost);
}

double FlangeAndWebMoment(const PreparedSection& p, double n, double my)
{
    const StandardSection& q = p.q;
    const auto [area_top, area_bottom] = FlangeAreasUnder(p, n, my);
    const double web = q.webs * q.tw;
    const double a = area_top + area_bottom + web * q.hw;
    // Plastic axis of the plates, from the lower edge of the web.
    const double zp = std::clamp((a / 2 - area_bottom) / web, 0.0, q.hw);
    const double up = q.hw - zp;
    const double w = area_top * (up + q.top.t / 2) + area_bottom * (zp + q.bottom.t / 2) +
                     web * (up * up + zp * zp) / 2;
    const double moment = w * q.fy / q.gammam0;
    const double share = std::abs(n) / (a * q.fy / q.gammam0);
    const double webs = std::min(0.5, web * q.hw / a);
    return share < 1 ? clauses::ReducedMomentY(moment, share, webs) : 0;
}

}  // namespace kestrum::standard
