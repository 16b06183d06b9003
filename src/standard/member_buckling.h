#pragma once

// The member as 6.3 checks it: what its sources share. The sizes are those of one combination.

#include "standard/member_checks.h"

namespace kestrum::standard {

struct MemberBuckling {
    const MemberCase& in;
    MemberTerms* told;  // null where nobody asks
    const Basis& basis;
    const PreparedSection& p;
    const StandardSection& q;
    int cls;   // of all forces
    double n;  // N
    bool bends_y, bends_z;
    double my, mz;           // Nmm; of angles about u and v
    CombinedLines turned{};  // of angles: lines of Mu and Mv
    CriticalForces ncr{};
    Reductions chi{};  // of the class of the combination
    LateralResult lateral{};

    // D43: the program takes the plastic columns for an elastic design as well.
    bool Plastic(int of) const { return of <= 2 && (!q.elastic || !basis.departs(Dev::d43)); }
    // D153: the program buckles each force with the class that it has alone.
    int ClassOfN() const { return basis.pick(Dev::d153, p.class_n, cls); }
    int ClassY() const { return bends_y ? basis.pick(Dev::d153, ClassOfMy(), cls) : cls; }
    int ClassZ() const { return bends_z ? basis.pick(Dev::d153, in.classes.mz, cls) : cls; }
    int ClassOfMy() const { return in.classes.my.At(lateral.moment >= 0); }
    bool Shifted() const
    {
        return cls == 4 && n > 0 && !q.DoublySymmetric() && basis.departs(Dev::d230);
    }
    double ShiftY() const { return Shifted() ? n * p.effective.eny : 0; }
    double ShiftZ() const { return Shifted() ? n * p.effective.enz : 0; }
    // Torsional and torsional-flexural buckling takes part.
    bool ColumnTwists() const { return ncr.twists && basis.departs(Dev::d207); }
    // Angles have no input that would leave it out. D226: the program leaves it out for them.
    bool Twists() const;
    void Keep(Checks& checks, CheckId id, double ir, std::string_view clause) const
    {
        checks.Keep(id, ir, clause, kWholeMember, in.load_case);
    }
};

// standard/interaction.cpp: 6.3.3.
void CheckInteraction(const MemberBuckling& m, Checks& checks);

// standard/interaction_annex_a.cpp and interaction_annex_b.cpp: the factors k.
clauses::InteractionFactors AnnexA(const MemberBuckling& m);
clauses::InteractionFactors AnnexB(const MemberBuckling& m);

}  // namespace kestrum::standard
