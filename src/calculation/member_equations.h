#pragma once

// What explains the ratios of the member by the standard. Columns and beams, 6.3.1 and 6.3.2, are
// in standard_member.cpp; both together, 6.3.3, in standard_interaction.cpp.

#include "calculation/quantities.h"
#include "calculation/units.h"
#include "standard/check_study.h"

#include <string>
#include <string_view>

namespace kestrum {

class MemberEquations {
public:
    MemberEquations(const ProjectState& input, const standard::CheckStudy& study, Document& d)
        : in_(input), t_(*study.of_member), q_(study.section), d_(d)
    {
    }
    Expr Column(bool y);
    Expr Torsional();
    Expr Lateral();
    Expr Interaction(bool y);
    Expr Outside();
    Expr Above();

private:
    Expr N() const { return Sym("N_Ed", t_.n / kNewton); }
    // "M_y,Ed" as it stands, of angles about the principal axes: "M_u,Ed".
    std::string About(std::string_view symbol) const;
    Expr Squash(const standard::Reductions& r) const { return Sym("N_Rk", r.squash / kNewton); }
    void AddSquash(const standard::Reductions& r);
    Expr Reduction(bool y, const standard::Reductions& r);
    Expr TorsionalReduction(const standard::Reductions& r);
    Expr Resistance(const std::string& symbol, const Expr& chi, const standard::Reductions& r);
    Expr LeastResistance();
    Expr Amplified(bool y, const Expr& resistance);
    Expr LateralReduction();
    Expr Modulus(bool y);
    Expr Moment(bool y);
    void AnnexA();
    void AnnexB();
    void AddTorsionalForces();
    void UniformSlenderness();
    Expr CmA(bool y, double ncr);
    Expr CmB(const char* symbol, const standard::CmTerms& terms, double cm);

    const ProjectState& in_;
    const standard::MemberTerms& t_;
    const standard::StandardSection& q_;
    Document& d_;
};

}  // namespace kestrum
