#pragma once

// What explains the ratios of the member by the standard. Columns and beams, 6.3.1 and 6.3.2, are
// in standard_member.cpp; both together, 6.3.3, in standard_interaction.cpp.

#include "calculation/quantities.h"
#include "calculation/units.h"
#include "standard/check_study.h"

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
    Expr Squash(const standard::Reductions& r) const { return Sym("N_Rk", r.squash / kNewton); }
    Expr Resistance(const char* symbol, const char* chi, double reduction,
                    const standard::Reductions& r);
    Expr LateralReduction();
    Expr MomentY();
    Expr MomentZ();
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
