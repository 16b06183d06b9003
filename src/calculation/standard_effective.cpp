#include "calculation/standard_effective.h"

#include "calculation/quantities.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace kestrum {

namespace {

using standard::EffectiveSection;
using standard::EffectiveStudy;
using standard::LostPart;

constexpr const char* kClause = "EN 1993-1-5, 4.4 (2)";

// Parts alike, on one side or on both sides of the z axis.
struct Group {
    LostPart part;
    int count;
    bool mirrored;
};

std::vector<Group> GroupsOf(const std::vector<LostPart>& lost)
{
    const auto near = [](double a, double b) {
        return std::abs(a - b) <= 1e-6 * std::max({1.0, std::abs(a), std::abs(b)});
    };
    std::vector<Group> groups;
    for (const LostPart& part : lost) {
        const auto alike = [&](const Group& group) {
            const LostPart& other = group.part;
            return near(part.wide, other.wide) && near(part.high, other.high) &&
                   near(part.z, other.z) && near(std::abs(part.y), std::abs(other.y)) &&
                   near(part.c, other.c) && near(part.psi, other.psi);
        };
        const auto found = std::find_if(groups.begin(), groups.end(), alike);
        if (found == groups.end()) {
            groups.push_back({part, 1, false});
        } else {
            ++found->count;
            found->mirrored = found->mirrored || part.y * found->part.y < 0;
        }
    }
    return groups;
}

class Effective {
public:
    Effective(const EffectiveStudy& study, const std::vector<LostPart>& lost, Document& d)
        : study_(study), q_(study.section), groups_(GroupsOf(lost)), d_(d)
    {
    }
    void Table(std::string caption);
    void Area(const char* symbol, double value);
    void Shift();
    void Modulus(bool sagging, const EffectiveSection& whole, double value);

private:
    bool LosesTipAt(double edge) const;
    Expr One(std::size_t i) const;
    Expr Sum(const std::vector<Expr>& parts) const;
    Expr First(bool z) const;
    Expr Turned(const Expr& yc, const Expr& zc);

    const EffectiveStudy& study_;
    const standard::StandardSection& q_;
    std::vector<Group> groups_;
    Document& d_;
    Expr area_{};
};

// Length and thickness of the lost part.
double LengthOf(const LostPart& part)
{
    return part.Area() / part.t;
}

void Effective::Table(std::string caption)
{
    TextTable table{.columns = {{"Plate", true},
                                {"number", true},
                                {"c, mm", true},
                                {"t, mm", true},
                                {"ψ", true},
                                {Line(Symbol("k_σ")), true},
                                {Line(Symbol("~λ_p")), true},
                                {"ρ", true},
                                {"lost w, mm", true},
                                {"y, mm", true},
                                {"z, mm", true}},
                    .caption = std::move(caption)};
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        const LostPart& part = groups_[i].part;
        Line y = NumberLine(groups_[i].mirrored ? std::abs(part.y) : part.y, 4);
        if (groups_[i].mirrored) {
            y = Line("±") + y;
        }
        table.rows.push_back({std::to_string(i + 1), std::to_string(groups_[i].count),
                              NumberLine(part.c), NumberLine(part.t), NumberLine(part.psi, 4),
                              NumberLine(part.k_sigma, 4), NumberLine(part.lam, 4),
                              NumberLine(part.rho, 4), NumberLine(LengthOf(part)), std::move(y),
                              NumberLine(part.z)});
    }
    d_.Add(std::move(table));
}

// All parts of a group.
Expr Effective::One(std::size_t i) const
{
    const std::string n = std::to_string(i + 1);
    const LostPart& part = groups_[i].part;
    const Expr area = Sym("w_" + n, LengthOf(part)) * Sym("t_" + n, part.t);
    return groups_[i].count > 1 ? Num(groups_[i].count) * area : area;
}

Expr Effective::Sum(const std::vector<Expr>& parts) const
{
    Expr sum;
    for (const Expr& part : parts) {
        sum = sum == nullptr ? part : sum + part;
    }
    return sum;
}

void Effective::Area(const char* symbol, double value)
{
    std::vector<Expr> parts;
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        parts.push_back(One(i));
    }
    const Expr lost = Step(d_, "ΔA", Sum(parts), "mm2", kClause);
    d_.Add(symbol, Sym("A", q_.a) - lost, value, "mm2", "EN 1993-1-5, 4.3 (2)");
    area_ = Sym(symbol, value);
}

// First moment of what is lost; null where it balances.
Expr Effective::First(bool z) const
{
    std::vector<Expr> parts;
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        const LostPart& part = groups_[i].part;
        const double arm = z ? part.z : part.y;
        if (std::abs(arm) > 1e-9 * q_.h && (z || !groups_[i].mirrored)) {
            parts.push_back(One(i) * Sym((z ? "z_" : "y_") + std::to_string(i + 1), arm));
        }
    }
    return Sum(parts);
}

// 6.2.9.3 (2): the centroid moves away from what is lost; of angles along the axes u and v.
void Effective::Shift()
{
    const auto moment = [&](bool z) {
        const Expr first = First(z);
        return first == nullptr ? Num(0) : first;
    };
    const Expr z = moment(true), y = moment(false);
    const auto add = [&](const char* symbol, const Expr& formula, double value, Line remark) {
        constexpr double kRounding = 1e-9;  // mm
        if (value > kRounding) {
            d_.Add(symbol, Size(formula), value, "mm", "6.2.9.3 (2)", std::move(remark));
        }
    };
    const standard::EffectiveValues& v = study_.values;
    if (!q_.Angle()) {
        add("e_N,y", z / area_, v.eny, "shift of the centroid along z");
        add("e_N,z", y / area_, v.enz, "shift of the centroid along y");
        return;
    }
    const auto centre = [&](const char* symbol, const Expr& first) {
        return Step(d_, symbol, (Num(0) - first) / area_, "mm", "EN 1993-1-5, 4.3 (4)",
                    "centroid from that of the gross section");
    };
    const Expr zc = centre("z_c", z), yc = centre("y_c", y);
    const Expr alpha = Turned(yc, zc);
    add("e_N,u", zc * Cosine(alpha) - yc * Sine(alpha), v.eny, "shift of the centroid along v");
    add("e_N,v", yc * Cosine(alpha) + zc * Sine(alpha), v.enz, "shift of the centroid along u");
}

// The angle from y to the axis u of the effective section of an angle; `yc`, `zc` its centroid.
Expr Effective::Turned(const Expr& yc, const Expr& zc)
{
    constexpr double kDegrees = 180 / std::numbers::pi;
    const auto& whole = q_.angle;
    const Expr iu = Sym("I_u", whole.iu), iv = Sym("I_v", whole.iv);
    const Expr at = Sym("α_0", whole.alfa * kDegrees);
    const Expr gross_y = iu * Square(Cosine(at)) + iv * Square(Sine(at));
    const Expr gross_z = iu * Square(Sine(at)) + iv * Square(Cosine(at));
    const Expr gross_yz = (iv - iu) * Sine(at) * Cosine(at);
    const char* const gross = "gross section";
    Expr iy = Step(d_, "I_y", gross_y, "mm4", "", gross);
    Expr iz = Step(d_, "I_z", gross_z, "mm4", "", gross);
    Expr iyz = Step(d_, "I_yz", gross_yz, "mm4", "", gross);
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        const std::string n = std::to_string(i + 1);
        const LostPart& part = groups_[i].part;
        const auto extent = [&](double size) {
            return size == part.t ? Sym("t_" + n, size) : Sym("w_" + n, LengthOf(part));
        };
        const Expr y = Sym("y_" + n, part.y), z = Sym("z_" + n, part.z);
        iy = iy - One(i) * (Square(z) + Square(extent(part.high)) / Num(12));
        iz = iz - One(i) * (Square(y) + Square(extent(part.wide)) / Num(12));
        iyz = iyz - One(i) * y * z;
    }
    iy = Step(d_, "I_y,eff", iy - area_ * Square(zc), "mm4", "EN 1993-1-5, 4.4 (3)");
    iz = Step(d_, "I_z,eff", iz - area_ * Square(yc), "mm4", "EN 1993-1-5, 4.4 (3)");
    iyz = Step(d_, "I_yz,eff", iyz - area_ * yc * zc, "mm4", "EN 1993-1-5, 4.4 (3)");
    const double alpha = study_.angle.alfa * kDegrees;
    if (std::abs(std::abs(alpha) - 45) > 1e-4) {  // else both moments are one
        Step(d_, "tan 2α", 2 * iyz / (iz - iy), "", "");
    }
    d_.Add("α", alpha, "°", "", "from y to the axis u of the effective section");
    const Expr turned = Sym("α", alpha);
    const Expr mixed = 2 * iyz * Sine(turned) * Cosine(turned);
    d_.Add("I_u,eff", iy * Square(Cosine(turned)) + iz * Square(Sine(turned)) - mixed,
           study_.angle.iu, "mm4", "EN 1993-1-5, 4.4 (3)");
    d_.Add("I_v,eff", iy * Square(Sine(turned)) + iz * Square(Cosine(turned)) + mixed,
           study_.angle.iv, "mm4", "EN 1993-1-5, 4.4 (3)");
    return turned;
}

// Whether an upright outstand loses its tip at the edge `edge` from the centroid.
bool Effective::LosesTipAt(double edge) const
{
    return std::any_of(groups_.begin(), groups_.end(), [&](const Group& group) {
        const LostPart& part = group.part;
        const double end = part.z + std::copysign(part.high / 2, edge);
        return part.wide == part.t && std::abs(end - edge) <= 1e-9 * q_.h;
    });
}

void Effective::Modulus(bool sagging, const EffectiveSection& whole, double value)
{
    const Expr first = First(true);
    Expr second = Sym("I_y", q_.iy);
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        const std::string n = std::to_string(i + 1);
        const LostPart& part = groups_[i].part;
        const Expr high =
            part.high == part.t ? Sym("t_" + n, part.t) : Sym("w_" + n, LengthOf(part));
        second = second - One(i) * (Square(high) / Num(12) + Square(Sym("z_" + n, part.z)));
    }
    Expr up = Sym("z_top", q_.above), down = Sym("z_bot", q_.below);
    if (first != nullptr) {
        const Expr z = Step(d_, "z_c", (Num(0) - first) / area_, "mm", "", "centroid, upwards");
        second = second - area_ * Square(z);
        up = up - z;
        down = down + z;
    }
    const bool top_governs = Evaluate(up) >= Evaluate(down);
    d_.Add("I_eff,y", second, whole.iy, "mm4", "EN 1993-1-5, 4.4 (3)");
    d_.Add(sagging ? "W_eff,y" : "W_eff,y,hog", Sym("I_eff,y", whole.iy) / Largest({up, down}),
           value, "mm3", "6.2.5 (2)", "of the edge furthest from the axis");
    if (LosesTipAt(top_governs ? q_.above : -q_.below)) {
        d_.Say("This edge is the tip of the whole plate, although the strip there does not count: "
               "EN 1993-1-5, 4.3 leaves it open, and the strain of the strip that buckles is "
               "limited as well (safe side).",
               Paragraph::Kind::remark);
    }
}

}  // namespace

void AddStandardEffective(const EffectiveStudy& study, EffectiveStates states, Document& d)
{
    d.Say("Positions from the centroid of the gross section, y to the right, z upwards.",
          Paragraph::Kind::remark);
    if (states.compression && !study.compression.empty()) {
        Effective effective(study, study.compression, d);
        effective.Table("Plates that lose a part in compression");
        effective.Area("A_eff", study.compressed.a);
        effective.Shift();
    }
    const auto bending = [&](bool sagging, const std::vector<LostPart>& lost,
                             const EffectiveSection& whole, double value) {
        if (!lost.empty()) {
            Effective effective(study, lost, d);
            effective.Table(sagging ? "Plates that lose a part under sagging My"
                                    : "Plates that lose a part under hogging My");
            effective.Area("A_eff,y", whole.a);
            effective.Modulus(sagging, whole, value);
        }
    };
    if (states.bending_y) {
        bending(true, study.sagging, study.sagged, study.values.wy_sagging);
        if (study.Shifts()) {
            bending(false, study.hogging, study.hogged, study.values.wy_hogging);
        }
    }
}

}  // namespace kestrum
