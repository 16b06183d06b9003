#include "design/section_control.h"

#include "core/arithmetic_trap.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace kestrum {

namespace {

double& Ratio(SectionChecks& checks, ResultRow row)
{
    double* const ratios[] = {&checks.irrow1, &checks.irrow2, &checks.irrow3};
    return *ratios[static_cast<std::size_t>(row)];
}

// What was calculated at a check section: the checks of both moments ask again.
struct Known {
    static constexpr i16 kUnknown = -1;
    i16 classy = kUnknown, classz = kUnknown;      // under the axial force
    i16 reducedy = kUnknown, reducedz = kUnknown;  // class for which the moment was reduced
};

// The walk at one check section.
struct Section {
    const Inputs& in;
    SectionRecord& section;
    Resistances& resistances;
    const Forces& forces;
    SectionChecks& checks;
    const SectionRoutines& routines;
    double x;  // x/L
    Known& known;

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

    // Deviation D43: elastic design (checkelastic) does not ask for the linear sum of 6.2.9.2; the
    // elastic resistances enter the formulas of classes 1 and 2.
    bool Plastic(i16 classy, i16 classz) const
    {
        return classy <= 2 && classz <= 2 && in.checkconsercontrol != kTrue;
    }

    void ReduceMy(i16 cls) const
    {
        checks.classmyuse = cls;
        if (cls != std::exchange(known.reducedy, cls)) {
            routines.reduce_my(in, section, resistances, forces, checks);
        }
    }
    void ReduceMz(i16 cls) const
    {
        checks.classmyuse = cls;
        if (cls != std::exchange(known.reducedz, cls)) {
            routines.reduce_mz(in, section, resistances, forces, checks);
        }
    }
    i16 ClassY() const
    {
        if (known.classy == Known::kUnknown) {
            known.classy = routines.class_y(in, section, checks, F32(forces.ned), F32(checks.myed));
        }
        return known.classy;
    }
    i16 ClassZ() const
    {
        if (known.classz == Known::kUnknown) {
            known.classz = routines.class_z(in, section, checks, F32(forces.ned), F32(checks.mzed));
        }
        return known.classz;
    }

    // Takes the check with what the shear force reduces in it.
    void Take(CheckId id, double ir, CheckForm form, std::initializer_list<double> terms) const
    {
        if (Check* const check = TakeCheck(in, checks, id, ir)) {
            FillAtSection(*check, form, terms, x);
            check->shear_z = ShearAboveHalfZ();
            check->shear_y = ShearAboveHalfY();
        }
    }
};

// Bending about y alone, 6.2.5 and 6.2.8.
void ControlMy(const Section& at)
{
    at.ReduceMy(at.section.classmy);
    at.Take(CheckId::my, at.checks.myed / at.checks.myrdv,
            at.ShearFromHalfZ() ? CheckForm::my_shear : CheckForm::my,
            {at.checks.myed, at.checks.myrdv});
}

// Bending about z alone.
void ControlMz(const Section& at)
{
    at.ReduceMz(at.section.classmz);
    at.Take(CheckId::mz, at.checks.mzed / at.checks.mzrdv,
            at.ShearFromHalfY() ? CheckForm::mz_shear : CheckForm::mz,
            {at.checks.mzed, at.checks.mzrdv});
}

// Bending about both axes without axial force, 6.2.9.1 (6) or the linear sum of 6.2.1 (7). The
// classes are those of the single moments.
void ControlMyMz(const Section& at)
{
    at.ReduceMy(at.section.classmy);
    at.ReduceMz(at.section.classmz);
    if (at.Plastic(at.section.classmy, at.section.classmz)) {
        at.Take(CheckId::my_mz,
                std::pow(at.checks.myed / at.checks.myrdv, at.checks.alfaexp) +
                    std::pow(at.checks.mzed / at.checks.mzrdv, at.checks.betaexp),
                CheckForm::my_mz_plastic,
                {at.checks.myed, at.checks.myrdv, at.checks.alfaexp, at.checks.mzed,
                 at.checks.mzrdv, at.checks.betaexp});
        return;
    }
    at.Take(CheckId::my_mz, at.checks.myed / at.checks.myrdv + at.checks.mzed / at.checks.mzrdv,
            CheckForm::my_mz_linear,
            {at.checks.myed, at.checks.myrdv, at.checks.mzed, at.checks.mzrdv});
}

// Axial force with bending about y, 6.2.9, with the class of both together.
void ControlNMy(const Section& at)
{
    const i16 cls = at.ClassY();
    at.ReduceMy(cls);
    if (at.Plastic(cls, 1)) {
        at.routines.reduce_mny(at.in, at.section, at.resistances, at.forces, at.checks);
        at.Take(CheckId::n_my, at.checks.myed / at.checks.mnyrd, CheckForm::n_my_plastic,
                {at.checks.myed, at.checks.mnyrd});
        return;
    }
    at.Take(CheckId::n_my,
            std::abs(at.forces.ned / at.checks.nrdint) + at.checks.myed / at.checks.myrdv,
            CheckForm::n_my_linear,
            {at.forces.ned, at.checks.nrdint, at.checks.myed, at.checks.myrdv});
}

// Axial force with bending about z.
void ControlNMz(const Section& at)
{
    const i16 cls = at.ClassZ();
    at.ReduceMz(cls);
    if (at.Plastic(1, cls)) {
        at.routines.reduce_mnz(at.in, at.section, at.resistances, at.forces, at.checks);
        at.Take(CheckId::n_mz, at.checks.mzed / at.checks.mnzrd, CheckForm::n_mz_plastic,
                {at.checks.mzed, at.checks.mnzrd});
        return;
    }
    at.Take(CheckId::n_mz,
            std::abs(at.forces.ned / at.checks.nrdint) + at.checks.mzed / at.checks.mzrdv,
            CheckForm::n_mz_linear,
            {at.forces.ned, at.checks.nrdint, at.checks.mzed, at.checks.mzrdv});
}

// Axial force with bending about both axes. Deviation D48: the checks of N with each moment stay in
// the result beside it; Eq (6.41) takes their place.
void ControlNMyMz(const Section& at)
{
    const i16 classy = at.ClassY();
    at.ReduceMy(classy);
    const i16 classz = at.ClassZ();
    at.ReduceMz(classz);
    if (at.Plastic(classy, classz)) {
        at.routines.reduce_mny(at.in, at.section, at.resistances, at.forces, at.checks);
        at.routines.reduce_mnz(at.in, at.section, at.resistances, at.forces, at.checks);
        at.Take(CheckId::n_my_mz,
                std::pow(at.checks.myed / at.checks.mnyrd, at.checks.alfaexp) +
                    std::pow(std::abs(at.checks.mzed / at.checks.mnzrd), at.checks.betaexp),
                at.routines.tube_exponents ? CheckForm::n_my_mz_tube : CheckForm::n_my_mz_plastic,
                {at.checks.myed, at.checks.mnyrd, at.checks.alfaexp, at.checks.mzed,
                 at.checks.mnzrd, at.checks.betaexp});
        return;
    }
    at.Take(CheckId::n_my_mz,
            std::abs(at.forces.ned / at.checks.nrdint) + at.checks.myed / at.checks.myrdv +
                at.checks.mzed / at.checks.mzrdv,
            CheckForm::n_my_mz_linear,
            {at.forces.ned, at.checks.nrdint, at.checks.myed, at.checks.myrdv, at.checks.mzed,
             at.checks.mzrdv});
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
    checks.checklist.Clear<ResultRow::single, ResultRow::shear>();
    checks.irrow1 = checks.irrow2 = checks.irrow3 = 0;
    checks.irrow4 = checks.irrow5 = checks.irrow6 = 0;
    checks.irsection = 0;
}

Check* TakeCheck(const Inputs& in, SectionChecks& checks, CheckId id, double ir)
{
    Check& check = checks.checklist[id];
    if (!(ir > check.ratio)) {
        return nullptr;
    }
    if (double& row = Ratio(checks, RowOf(id)); ir > row) {
        row = ir;
        checks.checklist.Govern(id);
    }
    check = {};
    check.Judge(ir, in.irlimit);
    return &check;
}

void FillAtSection(Check& check, CheckForm form, std::initializer_list<double> terms, double x)
{
    check.form = form;
    check.place = {.kind = CheckPlace::Kind::section, .x = x};
    std::copy(terms.begin(), terms.end(), check.terms.begin());
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
    Check* const check = TakeCheck(in, checks, CheckId::n, std::abs(forces.ned / resistance));
    if (check == nullptr) {
        return;
    }
    FillAtSection(*check, tension ? CheckForm::tension : CheckForm::compression,
                  {forces.ned, resistance}, forces.xi[0]);
    if (!placed) {
        check->place = {};
    }
}

void ControlShear(const Inputs& in, const Resistances& resistances, const Forces& forces,
                  SectionChecks& checks, int k)
{
    const double x = forces.xi[CheckedIndex(k, forces.xi.size())];
    if (checks.vzed != 0) {
        if (Check* const check =
                TakeCheck(in, checks, CheckId::vz, checks.vzed / resistances.vbrd)) {
            FillAtSection(*check, CheckForm::vz, {checks.vzed, resistances.vbrd}, x);
            check->note = checks.shearnote;
        }
    }
    if (checks.vyed != 0) {
        if (Check* const check =
                TakeCheck(in, checks, CheckId::vy, checks.vyed / resistances.vcyrd)) {
            FillAtSection(*check, CheckForm::vy, {checks.vyed, resistances.vcyrd}, x);
        }
    }
}

void TakeClassOfSign(SectionRecord& section, const SectionChecks& checks)
{
    section.classmy = checks.mysigned > 0 ? section.classmytop : section.classmybot;
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
        Known known;
        const Section at{in,     section,  resistances,      forces,
                         checks, routines, forces.xi[index], known};
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
