#pragma once

// Shear by EN 1993-1-1, 6.2.6 and EN 1993-1-5, 5 as written with its terms.

#include "document/document.h"
#include "standard/section_checks.h"

#include <cmath>
#include <string>
#include <utility>

namespace kestrum {

// kN, Eq (6.18).
Expr PlasticShear(const standard::StandardSection& q, bool z);

// Plates that buckle in shear, at the place of a check.
class BucklingEquations {
public:
    BucklingEquations(const standard::SectionTerms& terms, const standard::StandardSection& q,
                      Document& d)
        : t_(terms), q_(q), d_(d)
    {
    }
    // Vz,Rd of a web with the part of its flanges, EN 1993-1-5, 5.2 to 5.4.
    void AddWeb(const std::string& symbol, double total);
    // Vy,Rd of the horizontal plates of closed sections.
    void AddFlanges(const std::string& symbol, double total);
    // Vbw,Rd of a web that buckles.
    Expr Web();
    // Mf,Rd; N mm.
    Expr FlangeMoment(double value);
    // Plastic moment of flanges and web, EN 1993-1-5, 7.1 (1).
    Expr WholeMoment();

private:
    Expr Strength() const { return Sym("f_y", q_.fy) / Sym("γ_M0", q_.gammam0); }
    Expr Force(const char* symbol, double value, double unit) const
    {
        return Sym(symbol, std::abs(value) / unit);
    }
    std::pair<Expr, Expr> Flanges();

    const standard::SectionTerms& t_;
    const standard::StandardSection& q_;
    Document& d_;
};

}  // namespace kestrum
