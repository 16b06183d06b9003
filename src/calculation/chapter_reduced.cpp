#include "calculation/parts.h"

#include "calculation/quantities.h"
#include "calculation/units.h"
#include "core/member_choices.h"
#include "design/welded_side.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace kestrum {

namespace {

// The forms of the checks that hold moment resistances, with the places of these among the terms.
struct Terms {
    CheckForm form;
    std::optional<std::size_t> y, z;
    bool axial;  // the resistances are those beside the axial force, 6.2.9.1
};
constexpr Terms kTerms[] = {
    {CheckForm::my_shear, 1, {}, false},      {CheckForm::my, 1, {}, false},
    {CheckForm::mz_shear, {}, 1, false},      {CheckForm::mz, {}, 1, false},
    {CheckForm::my_mz_plastic, 1, 4, false},  {CheckForm::my_mz_linear, 1, 3, false},
    {CheckForm::n_my_plastic, 1, {}, true},   {CheckForm::n_my_linear, 3, {}, false},
    {CheckForm::n_mz_plastic, {}, 1, true},   {CheckForm::n_mz_linear, {}, 3, false},
    {CheckForm::n_my_mz_plastic, 1, 4, true}, {CheckForm::n_my_mz_tube, 1, 4, true},
    {CheckForm::n_my_mz_linear, 3, 5, false},
};

bool Equal(double a, double b)
{
    constexpr double kRounding = 1e-6;
    return std::abs(a - b) <= kRounding * std::abs(b);
}

class Reduced {
public:
    Reduced(const ProjectState& s, const Check& check, Document& d)
        : s_(s), q_(s), check_(check), d_(d)
    {
    }
    void Add(const Terms& terms);

private:
    double ForceAt(const std::array<double, kCheckSections>& forces) const;
    Expr ShareOfShear(bool y);
    Expr StripOf(bool y, const Expr& rho) const;
    Expr BesideShear(bool y, double wanted, bool known);
    void BesideAxial(bool y, const Expr& mv, double mn);
    Expr AxialShare();
    Expr WebShare(bool y);
    void Exponents(const Terms& terms);
    std::string Name(std::string_view kind, bool y) const
    {
        return "M_" + std::string(kind) + (kind.empty() ? "" : ",") + (y ? "y,Rd" : "z,Rd");
    }

    const ProjectState& s_;
    Quantities q_;
    const Check& check_;
    Document& d_;
    Expr n_{}, share_{};
};

// Size of the force at the section of the check.
double Reduced::ForceAt(const std::array<double, kCheckSections>& forces) const
{
    for (std::size_t k = 0; k <= static_cast<std::size_t>(s_.npts); ++k) {
        if (static_cast<double>(s_.xi[k]) == check_.place.x) {
            return std::abs(forces[k]);
        }
    }
    return 0;
}

// rho of 6.2.8 (3); null where shear reduces nothing.
Expr Reduced::ShareOfShear(bool y)
{
    const double force = ForceAt(y ? s_.vzsec : s_.vysec);
    const double resistance = y ? s_.vzrd : s_.vyrd;
    if (!(force > 0.5 * resistance) || Is(s_, Kind::general) || Is(s_, Kind::angle)) {
        return nullptr;
    }
    const Expr v = Sym(y ? "V_z,Ed" : "V_y,Ed", force);
    const Expr vrd = Sym(y ? "V_z,Rd" : "V_pl,y,Rd", resistance);
    return Step(d_, y ? "ρ_z" : "ρ_y", Least({Num(1), Square(2 * v / vrd - Num(1))}), "",
                "6.2.8 (3)");
}

// What the parts in shear are to a quarter of, mm3.
Expr Reduced::StripOf(bool y, const Expr& rho) const
{
    const bool closed = Is(s_, Kind::hollow) || Is(s_, Kind::box);
    if (y) {
        const Expr web = Square(q_.hw) * q_.tw;
        return closed || Webs(s_) == 2 ? rho * Num(2) * web : rho * web;
    }
    const Expr width = closed ? Sym("b_w", s_.bw) : q_.b;
    const Expr flange = Square(width) * q_.tf;
    return closed ? rho * Num(2) * flange : rho * flange;
}

// The moment resistance beside the shear force. `wanted`: that of the check, where it is `known`.
// Where it is that of the whole section, its equation stands among the resistances.
Expr Reduced::BesideShear(bool y, double wanted, bool known)
{
    const double whole = y ? s_.myrd : s_.mzrd;
    const std::string name = Name("", y);
    const Expr rho = ShareOfShear(y);
    if (rho == nullptr && (!known || Equal(wanted, whole))) {
        return Sym(name, whole);
    }
    const std::string axis = y ? "y" : "z";
    const std::string v = rho == nullptr ? name : Name("V", y);
    const std::string clause = rho == nullptr ? "6.2.5 (2)" : "6.2.8 (5), Eq (6.30)";
    if (rho != nullptr && (Is(s_, Kind::tube) || Is(s_, Kind::flat))) {
        const Expr left = Sym(name, whole) * (1 - rho);
        d_.Add(v, left, known ? wanted : Evaluate(left), "kNm", "6.2.8 (3)");
        return Sym(v, known ? wanted : Evaluate(left));
    }
    struct Modulus {
        const char* name;
        double value, divisor;
    };
    const bool elastic = s_.checkelastic == kTrue;
    const Modulus moduli[] = {{"W_pl,", y ? s_.wply : s_.wplz, 4},
                              {"W_el,", y ? s_.wely : s_.welz, 6},
                              {"W_eff,", y ? s_.weffy : s_.weffz, 6},
                              {"W_top,", s_.wytop, 6},
                              {"W_bot,", s_.wybot, 6},
                              {"W_top,", s_.wytop, 4},
                              {"W_bot,", s_.wybot, 4}};
    Expr first;
    for (const Modulus& modulus : moduli) {
        if ((elastic && modulus.divisor == 4) || !(modulus.value > 0)) {
            continue;
        }
        Expr w = Sym(modulus.name + axis, modulus.value);
        if (rho != nullptr) {
            w = w - StripOf(y, rho) / Num(modulus.divisor);
        }
        Expr moment = Resistance(w, q_.fy, q_.gm0, kToKnm);
        if (y && Is(s_, Kind::hat) && s_.flangefactor != 1) {
            moment = Sym("k_f", s_.flangefactor) * moment;
        }
        if (first == nullptr) {
            first = moment;
        }
        if (!known || EquationOf(v, moment, wanted, "kNm", clause).formula != nullptr) {
            first = std::move(moment);
            break;
        }
    }
    const double value = known ? wanted : std::min(Evaluate(first), whole);
    d_.Add(v, first, value, "kNm", clause,
           rho == nullptr ? Line("class under the forces of this check") : Line());
    return Sym(v, value);
}

// n of 6.2.9.1 (5).
Expr Reduced::AxialShare()
{
    if (n_ == nullptr) {
        const bool general = Is(s_, Kind::general);
        const Expr resistance = general ? Sym("N_c,Rd", s_.ncrd) : Sym("N_pl,Rd", s_.nplrd);
        n_ = Step(d_, "n", Size(q_.ned) / resistance, "", "6.2.9.1 (5)");
    }
    return n_;
}

// a, aw or af of 6.2.9.1 (5).
Expr Reduced::WebShare(bool y)
{
    const bool closed = Is(s_, Kind::hollow) || Is(s_, Kind::box);
    if (closed) {
        const Expr across = 2 * (y ? q_.b : q_.h) * q_.tw;
        return Step(d_, y ? "a_w" : "a_f", Least({(q_.a - across) / q_.a, Num(0.5)}), "",
                    "6.2.9.1 (5)", y && Is(s_, Kind::box) ? "D170" : "");
    }
    if (share_ == nullptr) {
        share_ = Is(s_, Kind::general)
                     ? Step(d_, "a", Sym("A_w", s_.aweb) / q_.a, "", "6.2.9.1 (5)", "D180")
                     : Step(d_, "a", Least({(q_.a - 2 * q_.b * q_.tf) / q_.a, Num(0.5)}), "",
                            "6.2.9.1 (5)");
    }
    return share_;
}

void Reduced::BesideAxial(bool y, const Expr& mv, double mn)
{
    const bool shear = y ? check_.shear_z : check_.shear_y;
    const std::string name = Name(shear ? "VN" : "N", y);
    if (Is(s_, Kind::tube)) {
        d_.Add(name, mv * (1 - Power(AxialShare(), Num(1.7))), mn, "kNm", "6.2.9.1 (2)");
        return;
    }
    if (Is(s_, Kind::flat)) {
        d_.Add(name, mv, mn, "kNm", "6.2.9.1 (3)", s_.ned < 0 ? Line("D177") : Line());
        return;
    }
    const bool closed = Is(s_, Kind::hollow) || Is(s_, Kind::box);
    const Expr n = AxialShare();
    if (Equal(mn, mv->value) && !closed) {
        d_.Add(name, mv, mn, "kNm", y ? "6.2.9.1 (4), Eq (6.33), (6.34)" : "6.2.9.1 (4), Eq (6.35)",
               "the axial force may be left out");
        return;
    }
    const Expr a = WebShare(y);
    if (y || closed) {
        d_.Add(name, Least({mv, mv * (1 - n) / (1 - 0.5 * a)}), mn, "kNm",
               closed ? (y ? "6.2.9.1 (5), Eq (6.39)" : "6.2.9.1 (5), Eq (6.40)")
                      : "6.2.9.1 (5), Eq (6.36)");
    } else {
        d_.Add(name, mv * (1 - Square((n - a) / (1 - a))), mn, "kNm", "6.2.9.1 (5), Eq (6.38)");
    }
}

// 6.2.9.1 (6).
void Reduced::Exponents(const Terms& terms)
{
    if (!terms.y || !terms.z || check_.form == CheckForm::my_mz_linear ||
        check_.form == CheckForm::n_my_mz_linear) {
        return;
    }
    const double alpha = check_.terms[2], beta = check_.terms[5];
    const Expr n = s_.ned == 0 ? Sym("n", 0) : AxialShare();
    Expr rising, least;
    const bool closed = Is(s_, Kind::hollow, Kind::box);
    if (closed) {
        rising = least = Least({Num(6), 1.66 / (1 - 1.13 * Square(n))});
    } else if (!Is(s_, Kind::tube)) {
        rising = Largest({Num(1), 5 * n});
    }
    d_.Add("α", least, alpha, "", "6.2.9.1 (6)", closed ? "" : "fixed by the kind of section");
    d_.Add("β", rising, beta, "", "6.2.9.1 (6)");
}

void Reduced::Add(const Terms& terms)
{
    for (const bool y : {true, false}) {
        const std::optional<std::size_t>& at = y ? terms.y : terms.z;
        if (!at) {
            continue;
        }
        const double wanted = check_.terms[*at];
        const Expr mv = BesideShear(y, wanted, !terms.axial);
        if (terms.axial) {
            BesideAxial(y, mv, wanted);
        }
    }
    Exponents(terms);
}

// Angles: the moments about the principal axes at the place of the check, with their signs.
void AddPrincipalMoments(const ProjectState& s, const Check& check, Document& d)
{
    for (std::size_t k = 0; k <= static_cast<std::size_t>(s.npts); ++k) {
        if (static_cast<double>(s.xi[k]) != check.place.x) {
            continue;
        }
        const Expr alpha = Sym("α", s.alfa);
        const Expr my = Sym("M_y,Ed", s.mysec[k]), mz = Sym("M_z,Ed", s.mzsec[k]);
        Step(d, "M_u,Ed", my * Cosine(alpha) + mz * Sine(alpha), "kNm", "6.2.1 (5)",
             "turned to the principal axes");
        Step(d, "M_v,Ed", mz * Cosine(alpha) - my * Sine(alpha), "kNm", "6.2.1 (5)",
             "turned; in the sum each term has the sign of its stress at the point");
        return;
    }
}

// Angles: those of the member, whose resistances are the least of the points, with γM1.
void AddPrincipalMomentsOfMember(const ProjectState& s, const Check& check, Document& d)
{
    const Quantities q(s);
    const auto& terms = check.terms;
    const Expr alpha = Sym("α", s.alfa);
    const Expr my = Sym("M_y,Ed", std::abs(s.mydesign)), mz = Sym("M_z,Ed", s.mzdesign);
    const char* const bound = "sum of sizes, an upper bound";
    d.Add("M_u,Ed", my * Cosine(alpha) + mz * Sine(alpha), terms[6], "kNm", "6.3.3", bound);
    d.Add("M_v,Ed", my * Sine(alpha) + mz * Cosine(alpha), terms[3], "kNm", "6.3.3", bound);
    const auto least = [&](const char* symbol, const char* modulus, const auto& of, double value) {
        std::vector<Expr> moduli;
        for (std::size_t point = 1; point <= 3; ++point) {
            if (of[point] != 0) {
                moduli.push_back(Sym(modulus + std::to_string(point), of[point]));
            }
        }
        d.Add(symbol, Resistance(Least(moduli), q.fy, q.gm1, kToKnm), value, "kNm", "6.2.5 (2)",
              "least of the points");
    };
    least("M_u,Rd", "W_u,", s.wu, terms[7]);
    least("M_v,Rd", "W_v,", s.wv, terms[4]);
}

// Angles: the elastic resistances at the point of the check, 6.2.1 (5).
void AddPointResistances(const ProjectState& s, const Check& check, Document& d)
{
    const Quantities q(s);
    const auto point = static_cast<std::size_t>(std::clamp<int>(check.place.number, 1, 3));
    const std::string number = std::to_string(point);
    const auto add = [&](const char* symbol, const std::string& modulus, double w, double value) {
        d.Add(symbol, Resistance(Sym(modulus + number, w), q.fy, q.gm0, kToKnm), value, "kNm",
              "6.2.1 (5)");
    };
    if (check.form == CheckForm::leg_axes) {
        add("M_y,Rd", "W_y,", point == 1 ? s.wy1 : s.wy2, check.terms[3]);
        add("M_z,Rd", "W_z,", point == 3 ? s.wz2 : s.wz1, check.terms[5]);
    } else if (check.form == CheckForm::principal_axes) {
        AddPrincipalMoments(s, check, d);
        add("M_u,Rd", "W_u,", s.wu[point], check.terms[3]);
        add("M_v,Rd", "W_v,", s.wv[point], check.terms[5]);
    } else if (check.form == CheckForm::heel) {
        AddPrincipalMoments(s, check, d);
        add("M_v,Rd", "W_v,", s.wv[point], check.terms[3]);
    } else if (check.form == CheckForm::interaction_v) {
        AddPrincipalMomentsOfMember(s, check, d);
    }
}

}  // namespace

void AddReducedResistances(const ProjectState& s, const Check& check, Document& d)
{
    AddPointResistances(s, check, d);
    const auto* const terms = std::find_if(std::begin(kTerms), std::end(kTerms),
                                           [&](const Terms& t) { return t.form == check.form; });
    if (terms != std::end(kTerms)) {
        Reduced(s, check, d).Add(*terms);
    }
}

}  // namespace kestrum
