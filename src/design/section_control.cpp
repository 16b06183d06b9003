#include "design/section_control.h"

#include "core/arithmetic_trap.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace kestrum {

namespace {

double& Ratio(ProjectState& s, int row)
{
    double* const ratios[] = {&s.irrow1, &s.irrow2, &s.irrow3};
    return *ratios[CheckedIndex(row - 1, 3)];
}

void SetNumbers(ResultRow& row, std::initializer_list<double> numbers)
{
    std::copy(numbers.begin(), numbers.end(), row.number.begin());
}

// The walk at one check section.
struct Section {
    ProjectState& s;
    const SectionRoutines& routines;
    double x;  // x/L

    // Single moments call the resistance "MV" from half the shear resistance on, combinations
    // beyond it.
    bool ShearFromHalfZ() const { return routines.shear_labels && !(s.vzed < 0.5 * s.vzrd); }
    bool ShearFromHalfY() const { return routines.shear_labels && !(s.vyed < 0.5 * s.vyrd); }
    bool ShearAboveHalfZ() const { return routines.shear_labels && s.vzed > 0.5 * s.vzrd; }
    bool ShearAboveHalfY() const { return routines.shear_labels && s.vyed > 0.5 * s.vyrd; }

    bool Plastic(i16 classy, i16 classz) const
    {
        return classy <= 2 && classz <= 2 && s.checkconsercontrol != kTrue;
    }

    void ReduceMy(i16 cls) const
    {
        s.classmyuse = cls;
        routines.reduce_my(s);
    }
    void ReduceMz(i16 cls) const
    {
        s.classmyuse = cls;
        routines.reduce_mz(s);
    }
    i16 ClassY() const { return routines.class_y(s, F32(s.ned), F32(s.myed)); }
    i16 ClassZ() const { return routines.class_z(s, F32(s.ned), F32(s.mzed)); }

    // The row to fill when `ir` governs it, else null.
    ResultRow* Governs(int row, double ir) const
    {
        if (!(ir > RowRatio(s, row))) {
            return nullptr;
        }
        ResultRow& taken = TakeRow(s, row, ir);
        taken.place[0] = x;
        return &taken;
    }
};

// Bending about y alone, 6.2.5 and 6.2.8.
void ControlMy(const Section& at)
{
    ProjectState& s = at.s;
    at.ReduceMy(s.classmy);
    if (ResultRow* row = at.Governs(1, s.myed / s.myrdv)) {
        if (at.ShearFromHalfZ()) {
            row->label[0] = "IR = My,Ed/MV,y,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.8)";
        } else {
            row->label[0] = "IR = My,Ed/My,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.5)";
        }
        row->calculation[0] = "{F}/{F} = ";
        SetNumbers(*row, {s.myed, s.myrdv});
    }
}

// Bending about z alone.
void ControlMz(const Section& at)
{
    ProjectState& s = at.s;
    at.ReduceMz(s.classmz);
    if (ResultRow* row = at.Governs(1, s.mzed / s.mzrdv)) {
        if (at.ShearFromHalfY()) {
            row->label[0] = "IR = Mz,Ed/MV,z,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.8)";
        } else {
            row->label[0] = "IR = Mz,Ed/Mz,Rd = ";
            row->limit[0] = " ({r}L; Ch 6.2.5)";
        }
        row->calculation[0] = "{F}/{F} = ";
        SetNumbers(*row, {s.mzed, s.mzrdv});
    }
}

// Bending about both axes without axial force, 6.2.9.1 (6) or the linear sum of 6.2.1 (7). The
// classes are those of the single moments.
void ControlMyMz(const Section& at)
{
    ProjectState& s = at.s;
    at.ReduceMy(s.classmy);
    at.ReduceMz(s.classmz);
    if (at.Plastic(s.classmy, s.classmz)) {
        const double ir =
            std::pow(s.myed / s.myrdv, s.alfaexp) + std::pow(s.mzed / s.mzrdv, s.betaexp);
        if (ResultRow* row = at.Governs(2, ir)) {
            row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = [My,Ed/MV,y,Rd]^alfa")
                                                 : Literal("IR = [My,Ed/My,Rd]^alfa");
            row->label[1] = at.ShearAboveHalfY() ? Literal(" + [Mz,Ed/MV,z,Rd]^beta = ")
                                                 : Literal(" + [Mz,Ed/Mz,Rd]^beta = ");
            row->calculation[0] = "[{F}/{F}]^{R}+({F}/{F})^{R} = ";
            SetNumbers(*row, {s.myed, s.myrdv, s.alfaexp, s.mzed, s.mzrdv, s.betaexp});
            row->limit[0] = " ({r}L; Ch 6.2.5/6.2.9)";
        }
        return;
    }
    if (ResultRow* row = at.Governs(2, s.myed / s.myrdv + s.mzed / s.mzrdv)) {
        row->label[0] =
            at.ShearAboveHalfZ() ? Literal("IR = My,Ed/MV,y,Rd") : Literal("IR = My,Ed/My,Rd");
        row->label[1] =
            at.ShearAboveHalfY() ? Literal(" + Mz,Ed/MV,z,Rd = ") : Literal(" + Mz,Ed/Mz,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {s.myed, s.myrdv, s.mzed, s.mzrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1)";
    }
}

// Axial force with bending about y, 6.2.9, with the class of both together.
void ControlNMy(const Section& at)
{
    ProjectState& s = at.s;
    const i16 cls = at.ClassY();
    at.ReduceMy(cls);
    if (at.Plastic(cls, 1)) {
        at.routines.reduce_mny(s);
        if (ResultRow* row = at.Governs(2, s.myed / s.mnyrd)) {
            row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = My,Ed/MVN,y,Rd = ")
                                                 : Literal("IR = My,Ed/MN,y,Rd = ");
            row->calculation[0] = "{F}/{F} = ";
            SetNumbers(*row, {s.myed, s.mnyrd});
            row->limit[0] = " ({r}L; Ch 6.2.9)";
        }
        return;
    }
    if (ResultRow* row = at.Governs(2, std::abs(s.ned / s.nrdint) + s.myed / s.myrdv)) {
        row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = NEd/NRd+My,Ed/MV,y,Rd = ")
                                             : Literal("IR = NEd/NRd+My,Ed/My,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {s.ned, s.nrdint, s.myed, s.myrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1/6.2.9)";
    }
}

// Axial force with bending about z.
void ControlNMz(const Section& at)
{
    ProjectState& s = at.s;
    const i16 cls = at.ClassZ();
    at.ReduceMz(cls);
    if (at.Plastic(1, cls)) {
        at.routines.reduce_mnz(s);
        if (ResultRow* row = at.Governs(2, s.mzed / s.mnzrd)) {
            row->label[0] = at.ShearAboveHalfY() ? Literal("IR = Mz,Ed/MVN,z,Rd = ")
                                                 : Literal("IR = Mz,Ed/MN,z,Rd = ");
            row->calculation[0] = "{F}/{F} = ";
            SetNumbers(*row, {s.mzed, s.mnzrd});
            row->limit[0] = " ({r}L; Ch 6.2.9)";
        }
        return;
    }
    if (ResultRow* row = at.Governs(2, std::abs(s.ned / s.nrdint) + s.mzed / s.mzrdv)) {
        row->label[0] = at.ShearAboveHalfY() ? Literal("IR = NEd/NRd+Mz,Ed/MV,z,Rd = ")
                                             : Literal("IR = NEd/NRd+Mz,Ed/Mz,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {s.ned, s.nrdint, s.mzed, s.mzrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1/6.2.9)";
    }
}

// Axial force with bending about both axes.
void ControlNMyMz(const Section& at)
{
    ProjectState& s = at.s;
    const i16 classy = at.ClassY();
    at.ReduceMy(classy);
    const i16 classz = at.ClassZ();
    at.ReduceMz(classz);
    if (at.Plastic(classy, classz)) {
        at.routines.reduce_mny(s);
        at.routines.reduce_mnz(s);
        const double ir =
            std::pow(s.myed / s.mnyrd, s.alfaexp) + std::pow(std::abs(s.mzed / s.mnzrd), s.betaexp);
        if (ResultRow* row = at.Governs(2, ir)) {
            row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = (My,Ed/MVN,y,Rd)^alfa ")
                                                 : Literal("IR = (My,Ed/MN,y,Rd)^alfa ");
            row->label[1] = at.ShearAboveHalfY() ? Literal(" + (Mz,Ed/MVN,z,Rd)^beta = ")
                                                 : Literal(" + (Mz,Ed/MN,z,Rd)^beta = ");
            // {F} also gives the one decimal of the tube's exponents.
            row->calculation[0] = at.routines.tube_exponents
                                      ? Literal("({F}/{F})^{F}+({F}/{F})^{F} = ")
                                      : Literal("({F}/{F})^{R}+({F}/{F})^{R} = ");
            SetNumbers(*row, {s.myed, s.mnyrd, s.alfaexp, s.mzed, s.mnzrd, s.betaexp});
            row->limit[0] = " ({r}L; Ch 6.2.9)";
        }
        return;
    }
    const double ir = std::abs(s.ned / s.nrdint) + s.myed / s.myrdv + s.mzed / s.mzrdv;
    if (ResultRow* row = at.Governs(2, ir)) {
        row->label[0] = at.ShearAboveHalfZ() ? Literal("IR = NEd/NRd+My,Ed/MV,y,Rd")
                                             : Literal("IR = NEd/NRd+My,Ed/My,Rd");
        row->label[1] =
            at.ShearAboveHalfY() ? Literal("+Mz,Ed/MV,z,Rd = ") : Literal("+Mz,Ed/Mz,Rd = ");
        row->calculation[0] = "{F}/{F}+{F}/{F}+{F}/{F} = ";
        SetNumbers(*row, {s.ned, s.nrdint, s.myed, s.myrdv, s.mzed, s.mzrdv});
        row->limit[0] = " ({r}L; Ch 6.2.1/6.2.9)";
    }
}

void TakeForces(ProjectState& s, std::size_t k, bool y_only)
{
    s.mysigned = s.mysec[k];
    s.myed = std::abs(s.mysec[k]);
    s.vzed = std::abs(s.vzsec[k]);
    s.mzed = y_only ? 0.0 : std::abs(s.mzsec[k]);
    s.vyed = y_only ? 0.0 : std::abs(s.vysec[k]);
}

}  // namespace

void ClearSectionRows(ProjectState& s)
{
    s.secline = {};
    for (std::size_t row = 1; row < s.secline.size(); ++row) {
        s.secline[row].status = kWithin;
    }
    s.irrow1 = s.irrow2 = s.irrow3 = 0;
    s.irrow4 = s.irrow5 = s.irrow6 = 0;
    s.irsection = 0;
}

ResultRow& TakeRow(ProjectState& s, int row, double ir)
{
    Ratio(s, row) = ir;
    ResultRow& taken = s.secline[CheckedIndex(row, s.secline.size())];
    taken = {};
    taken.ir = ir;
    taken.judged = true;
    taken.status = ir > s.irlimit ? kAbove : kWithin;
    return taken;
}

double RowRatio(const ProjectState& s, int row)
{
    const double ratios[] = {s.irrow1, s.irrow2, s.irrow3};
    return ratios[CheckedIndex(row - 1, 3)];
}

void CloseSectionRows(ProjectState& s)
{
    s.irsection = std::max({s.irrow1, s.irrow2, s.irrow3});
}

void ControlAxial(ProjectState& s, bool placed)
{
    if (s.ned == 0) {
        return;
    }
    const bool tension = s.ned < 0;
    const double resistance = tension ? s.nplrd : s.ncrd;
    const double ir = std::abs(s.ned / resistance);
    if (!(ir > s.irrow1)) {
        return;
    }
    ResultRow& row = TakeRow(s, 1, ir);
    row.label[0] = "IR = NEd/NRd = ";
    row.calculation[0] = "{F}/{F} = ";
    SetNumbers(row, {s.ned, resistance});
    if (placed) {
        row.limit[0] = tension ? Literal(" ({r}L; Ch 6.2.3)") : Literal(" ({r}L; Ch 6.2.4)");
        row.place[0] = s.xi[0];
    } else {
        row.limit[0] = tension ? Literal(" (Ch 6.2.3)") : Literal(" (Ch 6.2.4)");
    }
}

void ControlShear(ProjectState& s, int k)
{
    const double x = s.xi[CheckedIndex(k, s.xi.size())];
    if (s.vzed != 0) {
        const double ir = s.vzed / s.vbrd;
        if (ir > s.irrow3) {
            ResultRow& row = TakeRow(s, 3, ir);
            row.label[0] = "IR = Vz,Ed/Vz,Rd = ";
            row.calculation[0] = "{F}/{F} = ";
            SetNumbers(row, {s.vzed, s.vbrd});
            row.limit = {" ({r}L; Ch 6.2.6", s.shearnote};
            row.place[0] = x;
        }
    }
    if (s.vyed != 0) {
        const double ir = s.vyed / s.vcyrd;
        if (ir > s.irrow3) {
            ResultRow& row = TakeRow(s, 3, ir);
            row.label[0] = "IR = Vy,Ed/Vy,Rd = ";
            row.calculation[0] = "{F}/{F} = ";
            SetNumbers(row, {s.vyed, s.vcyrd});
            row.limit[0] = " ({r}L; Ch 6.2.6)";
            row.place[0] = x;
        }
    }
}

void ControlSection(ProjectState& s, const SectionRoutines& routines)
{
    ClearSectionRows(s);
    s.nrdint = s.ned > 0 ? s.ncrd : s.nplrd;
    if (routines.exponents) {
        routines.exponents(s);
    }
    ControlAxial(s, routines.placed_axial);

    for (int k = 0; k <= s.npts; ++k) {
        const std::size_t index = CheckedIndex(k, s.xi.size());
        TakeForces(s, index, routines.y_only);
        if (routines.enter) {
            routines.enter(s);
        }
        const Section at{s, routines, s.xi[index]};
        const bool n = s.ned != 0;
        const bool my = s.myed != 0;
        const bool mz = s.mzed != 0;
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
            routines.shear(s);
        }
        ControlShear(s, k);
    }
    CloseSectionRows(s);
}

}  // namespace kestrum
