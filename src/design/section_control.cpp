#include "design/section_control.h"

#include "core/arithmetic_trap.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace kestrum {

namespace {

double& Ratio(SectionChecks& checks, int row)
{
    double* const ratios[] = {&checks.irrow1, &checks.irrow2, &checks.irrow3};
    return *ratios[CheckedIndex(row - 1, 3)];
}

void SetNumbers(ResultRow& row, std::initializer_list<double> numbers)
{
    std::copy(numbers.begin(), numbers.end(), row.number.begin());
}

// The walk at one check section.
struct Section {
    const Inputs& in;
    SectionRecord& section;
    Resistances& resistances;
    const Forces& forces;
    SectionChecks& checks;
    const SectionRoutines& routines;
    double x;  // x/L

    // Single moments call the resistance "MV" from half the shear resistance on, combinations
    // beyond it.
    bool ShearFromHalfZ() const
    {
        return routines.shear_labels && !(checks.vzed < 0.5 * resistances.vzrd);
    }
    bool ShearFromHalfY() const
    {
        return routines.shear_labels && !(checks.vyed < 0.5 * resistances.vyrd);
    }
    bool ShearAboveHalfZ() const
    {
        return routines.shear_labels && checks.vzed > 0.5 * resistances.vzrd;
    }
    bool ShearAboveHalfY() const
    {
        return routines.shear_labels && checks.vyed > 0.5 * resistances.vyrd;
    }

    bool Plastic(i16 classy, i16 classz) const
    {
        return classy <= 2 && classz <= 2 && in.checkconsercontrol != kTrue;
    }

    void ReduceMy(i16 cls) const
    {
        checks.classmyuse = cls;
        routines.reduce_my(in, section, resistances, forces, checks);
    }
    void ReduceMz(i16 cls) const
    {
        checks.classmyuse = cls;
        routines.reduce_mz(in, section, resistances, forces, checks);
    }
    i16 ClassY() const
    {
        return routines.class_y(in, section, checks, F32(forces.ned), F32(checks.myed));
    }
    i16 ClassZ() const
    {
        return routines.class_z(in, section, checks, F32(forces.ned), F32(checks.mzed));
    }

    // The row to fill when `ir` governs it, else null.
    ResultRow* Governs(int row, double ir) const
    {
        if (!(ir > RowRatio(checks, row))) {
            return nullptr;
        }
        ResultRow& taken = TakeRow(in, checks, row, ir);
        taken.place[0] = x;
        return &taken;
    }
};

// Bending about y alone, 6.2.5 and 6.2.8.
void ControlMy(const Section& at)
{
    at.ReduceMy(at.section.classmy);
    if (ResultRow* row = at.Governs(1, at.checks.myed / at.checks.myrdv)) {
        if (at.ShearFromHalfZ()) {
            row->label[0] = "IR = My,Ed/MV,y,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.8)";
        } else {
            row->label[0] = "IR = My,Ed/My,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.5)";
        }
        row->calculation[0] = "{F}/{F} = ";
        SetNumbers(*row, {at.checks.myed, at.checks.myrdv});
    }
}

// Bending about z alone.
void ControlMz(const Section& at)
{
    at.ReduceMz(at.section.classmz);
    if (ResultRow* row = at.Governs(1, at.checks.mzed / at.checks.mzrdv)) {
        if (at.ShearFromHalfY()) {
            row->label[0] = "IR = Mz,Ed/MV,z,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.8)";
        } else {
            row->label[0] = "IR = Mz,Ed/Mz,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.5)";
        }
        row->calculation[0] = "{F}/{F} = ";
        SetNumbers(*row, {at.checks.mzed, at.checks.mzrdv});
    }
}

// Bending about both axes without axial force, 6.2.9.1 (6) or the linear sum of 6.2.1 (7). The
// classes are those of the single moments.
void ControlMyMz(const Section& at)
{
    at.ReduceMy(at.section.classmy);
    at.ReduceMz(at.section.classmz);
    if (at.Plastic(at.section.classmy, at.section.classmz)) {
        const double ir = std::pow(at.checks.myed / at.checks.myrdv, at.checks.alfaexp) +
                          std::pow(at.checks.mzed / at.checks.mzrdv, at.checks.betaexp);
        if (ResultRow* row = at.Governs(2, ir)) {
            row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = [My,Ed/MV,y,Rd]^alfa")
                                                 : Literal("IR = [My,Ed/My,Rd]^alfa");
            row->label[1] = at.ShearAboveHalfY() ? Literal(" + [Mz,Ed/MV,z,Rd]^beta = ")
                                                 : Literal(" + [Mz,Ed/Mz,Rd]^beta = ");
            row->calculation[0] = "[{F}/{F}]^{R}+({F}/{F})^{R} = ";
            SetNumbers(*row, {at.checks.myed, at.checks.myrdv, at.checks.alfaexp, at.checks.mzed,
                              at.checks.mzrdv, at.checks.betaexp});
            row->limit[0] = " ({r}L; Ch 6.2.5/6.2.9)";
        }
        return;
    }
    if (ResultRow* row =
            at.Governs(2, at.checks.myed / at.checks.myrdv + at.checks.mzed / at.checks.mzrdv)) {
        row->label[0] =
            at.ShearAboveHalfZ() ? Literal("IR = My,Ed/MV,y,Rd") : Literal("IR = My,Ed/My,Rd");
        row->label[1] =
            at.ShearAboveHalfY() ? Literal(" + Mz,Ed/MV,z,Rd = ") : Literal(" + Mz,Ed/Mz,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {at.checks.myed, at.checks.myrdv, at.checks.mzed, at.checks.mzrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1)";
    }
}

// Axial force with bending about y, 6.2.9, with the class of both together.
void ControlNMy(const Section& at)
{
    const i16 cls = at.ClassY();
    at.ReduceMy(cls);
    if (at.Plastic(cls, 1)) {
        at.routines.reduce_mny(at.in, at.section, at.resistances, at.forces, at.checks);
        if (ResultRow* row = at.Governs(2, at.checks.myed / at.checks.mnyrd)) {
            row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = My,Ed/MVN,y,Rd = ")
                                                 : Literal("IR = My,Ed/MN,y,Rd = ");
            row->calculation[0] = "{F}/{F} = ";
            SetNumbers(*row, {at.checks.myed, at.checks.mnyrd});
            row->limit[0] = " ({r}L; Ch 6.2.9)";
        }
        return;
    }
    if (ResultRow* row = at.Governs(2, std::abs(at.forces.ned / at.checks.nrdint) +
                                           at.checks.myed / at.checks.myrdv)) {
        row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = NEd/NRd+My,Ed/MV,y,Rd = ")
                                             : Literal("IR = NEd/NRd+My,Ed/My,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {at.forces.ned, at.checks.nrdint, at.checks.myed, at.checks.myrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1/6.2.9)";
    }
}

// Axial force with bending about z.
void ControlNMz(const Section& at)
{
    const i16 cls = at.ClassZ();
    at.ReduceMz(cls);
    if (at.Plastic(1, cls)) {
        at.routines.reduce_mnz(at.in, at.section, at.resistances, at.forces, at.checks);
        if (ResultRow* row = at.Governs(2, at.checks.mzed / at.checks.mnzrd)) {
            row->label[0] = at.ShearAboveHalfY() ? Literal("IR = Mz,Ed/MVN,z,Rd = ")
                                                 : Literal("IR = Mz,Ed/MN,z,Rd = ");
            row->calculation[0] = "{F}/{F} = ";
            SetNumbers(*row, {at.checks.mzed, at.checks.mnzrd});
            row->limit[0] = " ({r}L; Ch 6.2.9)";
        }
        return;
    }
    if (ResultRow* row = at.Governs(2, std::abs(at.forces.ned / at.checks.nrdint) +
                                           at.checks.mzed / at.checks.mzrdv)) {
        row->label[0] = at.ShearAboveHalfY() ? Literal("IR = NEd/NRd+Mz,Ed/MV,z,Rd = ")
                                             : Literal("IR = NEd/NRd+Mz,Ed/Mz,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {at.forces.ned, at.checks.nrdint, at.checks.mzed, at.checks.mzrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1/6.2.9)";
    }
}

// Axial force with bending about both axes.
void ControlNMyMz(const Section& at)
{
    const i16 classy = at.ClassY();
    at.ReduceMy(classy);
    const i16 classz = at.ClassZ();
    at.ReduceMz(classz);
    if (at.Plastic(classy, classz)) {
        at.routines.reduce_mny(at.in, at.section, at.resistances, at.forces, at.checks);
        at.routines.reduce_mnz(at.in, at.section, at.resistances, at.forces, at.checks);
        const double ir = std::pow(at.checks.myed / at.checks.mnyrd, at.checks.alfaexp) +
                          std::pow(std::abs(at.checks.mzed / at.checks.mnzrd), at.checks.betaexp);
        if (ResultRow* row = at.Governs(2, ir)) {
            row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = (My,Ed/MVN,y,Rd)^alfa ")
                                                 : Literal("IR = (My,Ed/MN,y,Rd)^alfa ");
            row->label[1] = at.ShearAboveHalfY() ? Literal(" + (Mz,Ed/MVN,z,Rd)^beta = ")
                                                 : Literal(" + (Mz,Ed/MN,z,Rd)^beta = ");
            // {F} also gives the one decimal of the tube's exponents.
            row->calculation[0] = at.routines.tube_exponents
                                      ? Literal("({F}/{F})^{F}+({F}/{F})^{F} = ")
                                      : Literal("({F}/{F})^{R}+({F}/{F})^{R} = ");
            SetNumbers(*row, {at.checks.myed, at.checks.mnyrd, at.checks.alfaexp, at.checks.mzed,
                              at.checks.mnzrd, at.checks.betaexp});
            row->limit[0] = " ({r}L; Ch 6.2.9)";
        }
        return;
    }
    const double ir = std::abs(at.forces.ned / at.checks.nrdint) +
                      at.checks.myed / at.checks.myrdv + at.checks.mzed / at.checks.mzrdv;
    if (ResultRow* row = at.Governs(2, ir)) {
        row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = NEd/NRd+My,Ed/MV,y,Rd")
                                             : Literal("IR = NEd/NRd+My,Ed/My,Rd");
        row->label[1] =
            at.ShearAboveHalfY() ? Literal("+Mz,Ed/MV,z,Rd = ") : Literal("+Mz,Ed/Mz,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {at.forces.ned, at.checks.nrdint, at.checks.myed, at.checks.myrdv,
                          at.checks.mzed, at.checks.mzrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1/6.2.9)";
    }
}

void TakeForces(const Forces& forces, SectionChecks& checks, std::size_t k, bool y_only)
{
    checks.mysigned = forces.mysec[k];
    checks.myed = std::abs(forces.mysec[k]);
    checks.vzed = std::abs(forces.vzsec[k]);
    checks.mzed = y_only ? 0.0 : std::abs(forces.mzsec[k]);
    checks.vyed = y_only ? 0.0 : std::abs(forces.vysec[k]);
}

}  // namespace

void ClearSectionRows(SectionChecks& checks)
{
    checks.secline = {};
    for (std::size_t row = 1; row < checks.secline.size(); ++row) {
        checks.secline[row].status = kWithin;
    }
    checks.irrow1 = checks.irrow2 = checks.irrow3 = 0;
    checks.irrow4 = checks.irrow5 = checks.irrow6 = 0;
    checks.irsection = 0;
}

ResultRow& TakeRow(const Inputs& in, SectionChecks& checks, int row, double ir)
{
    Ratio(checks, row) = ir;
    ResultRow& taken = checks.secline[CheckedIndex(row, checks.secline.size())];
    taken = {};
    taken.ir = ir;
    taken.judged = true;
    taken.status = ir > in.irlimit ? kAbove : kWithin;
    return taken;
}

double RowRatio(const SectionChecks& checks, int row)
{
    const double ratios[] = {checks.irrow1, checks.irrow2, checks.irrow3};
    return ratios[CheckedIndex(row - 1, 3)];
}

void CloseSectionRows(SectionChecks& checks)
{
    checks.irsection = std::max({checks.irrow1, checks.irrow2, checks.irrow3});
}

void ControlAxial(const Inputs& in, const Resistances& resistances, const Forces& forces,
                  SectionChecks& checks, bool placed)
{
    if (forces.ned == 0) {
        return;
    }
    const bool tension = forces.ned < 0;
    const double resistance = tension ? resistances.nplrd : resistances.ncrd;
    const double ir = std::abs(forces.ned / resistance);
    if (!(ir > checks.irrow1)) {
        return;
    }
    ResultRow& row = TakeRow(in, checks, 1, ir);
    row.label[0] = "IR = NEd/NRd = ";
    row.calculation[0] = "{F}/{F} = ";
    SetNumbers(row, {forces.ned, resistance});
    if (placed) {
        row.limit[0] = tension ? Literal(" ({r}L; Ch 6.2.3)") : Literal(" ({r}L; Ch 6.2.4)");
        row.place[0] = forces.xi[0];
    } else {
        row.limit[0] = tension ? Literal(" (Ch 6.2.3)") : Literal(" (Ch 6.2.4)");
    }
}

void ControlShear(const Inputs& in, const Resistances& resistances, const Forces& forces,
                  SectionChecks& checks, int k)
{
    const double x = forces.xi[CheckedIndex(k, forces.xi.size())];
    if (checks.vzed != 0) {
        const double ir = checks.vzed / resistances.vbrd;
        if (ir > checks.irrow3) {
            ResultRow& row = TakeRow(in, checks, 3, ir);
            row.label[0] = "IR = Vz,Ed/Vz,Rd = ";
            row.calculation[0] = "{F}/{F} = ";
            SetNumbers(row, {checks.vzed, resistances.vbrd});
            row.limit = {" ({r}L; Ch 6.2.6", checks.shearnote};
            row.place[0] = x;
        }
    }
    if (checks.vyed != 0) {
        const double ir = checks.vyed / resistances.vcyrd;
        if (ir > checks.irrow3) {
            ResultRow& row = TakeRow(in, checks, 3, ir);
            row.label[0] = "IR = Vy,Ed/Vy,Rd = ";
            row.calculation[0] = "{F}/{F} = ";
            SetNumbers(row, {checks.vyed, resistances.vcyrd});
            row.limit[0] = " ({r}L; Ch 6.2.6)";
            row.place[0] = x;
        }
    }
}

void ControlSection(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, const SectionRoutines& routines)
{
    ClearSectionRows(checks);
    checks.nrdint = forces.ned > 0 ? resistances.ncrd : resistances.nplrd;
    if (routines.exponents) {
        routines.exponents(resistances, forces, checks);
    }
    ControlAxial(in, resistances, forces, checks, routines.placed_axial);

    for (int k = 0; k <= forces.npts; ++k) {
        const std::size_t index = CheckedIndex(k, forces.xi.size());
        TakeForces(forces, checks, index, routines.y_only);
        if (routines.enter) {
            routines.enter(section, checks);
        }
        const Section at{in, section, resistances, forces, checks, routines, forces.xi[index]};
        const bool n = forces.ned != 0;
        const bool my = checks.myed != 0;
        const bool mz = checks.mzed != 0;
        if (my) {
            ControlMy(at);
        }
        if (mz) {
            ControlMz(at);
        }
        if (my && mz && !n) {
            ControlMyMz(at);
        }
        if (n && my) {
            ControlNMy(at);
        }
        if (n && mz) {
            ControlNMz(at);
        }
        if (n && my && mz) {
            ControlNMyMz(at);
        }
        if (routines.shear) {
            routines.shear(in, section, resistances, forces, checks);
        }
        ControlShear(in, resistances, forces, checks, k);
    }
    CloseSectionRows(checks);
}

}  // namespace kestrum
