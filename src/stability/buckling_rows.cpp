#include "stability/buckling_rows.h"

#include "stability/interaction_angle.h"

#include <cmath>
#include <cstddef>
#include <initializer_list>

namespace kestrum {
namespace {

constexpr float kNoBuckling = 0.002f;

constexpr Literal kClauseLateral{" (Ch 6.3.2)"};
constexpr Literal kClauseAxial{" (Ch 6.3.1)"};
constexpr Literal kClauseInteraction{" (Ch 6.3.3)"};

constexpr Literal kMyTerm{"+{R}*{F}/({R}*{F})"};
constexpr Literal kMyTermLast{"+{R}*{F}/({R}*{F}) = "};
constexpr Literal kMzTerm{"+{R}*{f}/{F}"};
constexpr Literal kMzTermLast{"+{R}*{f}/{F} = "};

struct AxisTexts {
    Literal axial;
    Literal my, mz;                  // behind the axial term
    Literal flat_bar;                // behind the axial term of a flat bar
    Literal bending_my, bending_mz;  // without axial force
    Literal flat_bar_clause;
};

constexpr AxisTexts kTextsY{"IR = NEd/Nb,y,Rd ",
                            "+kyy*My,Ed/(xLT*My,Rd) ",
                            "+kyz*Mz,Ed/Mz,Rd ",
                            " + kyy*My,Ed/(xLT*My,Rd) ",
                            "IR = kyy*My,Ed/(xLT*My,Rd) ",
                            " + kyz*Mz,Ed/Mz,Rd) ",  // the bracket is part of the given text
                            " (Eq 6.61)"};
constexpr AxisTexts kTextsZ{"IR = NEd/Nb,z,Rd ",
                            "+kzy*My,Ed/(xLT*My,Rd) ",
                            "+kzz*Mz,Ed/Mz,Rd ",
                            " + kzy*My,Ed/(xLT*My,Rd) ",
                            "IR = kzy*My,Ed/(xLT*My,Rd) ",
                            " + kzz*Mz,Ed/Mz,Rd ",
                            " (Eq 6.62)"};

struct Axis {
    const AxisTexts& texts;
    ResultRow& row;
    double& sum;
    double nbrd;
    double kmy, kmz;  // interaction factors of the moments
    bool buckles;
};

Axis AxisY(const Inputs& in, SectionChecks& checks, Stability& stability)
{
    return {kTextsY,       stability.yline, checks.irrow4,    stability.nbyrd,
            stability.kyy, stability.kyz,   BucklesAboutY(in)};
}

Axis AxisZ(const Inputs& in, SectionChecks& checks, Stability& stability)
{
    return {kTextsZ,       stability.zline, checks.irrow5,    stability.nbzrd,
            stability.kzy, stability.kzz,   BucklesAboutZ(in)};
}

// A row that is being written.
struct Line {
    ResultRow& row;
    std::size_t pieces = 0;
    std::size_t numbers = 0;
};

void Add(Line& line, const Literal& label, const Literal& calculation,
         std::initializer_list<double> numbers)
{
    line.row.label[line.pieces] = label;
    line.row.calculation[line.pieces] = calculation;
    ++line.pieces;
    for (const double number : numbers) {
        line.row.number[line.numbers++] = number;
    }
}

void Judge(const Inputs& in, ResultRow& row, double ir, const Literal& clause)
{
    row.ir = ir;
    row.judged = true;
    row.status = ir > in.irlimit ? kAbove : kWithin;
    row.limit[0] = clause;
}

// A remark in place of the row, or nothing; the status stays.
void Remark(ResultRow& row, const Literal& text)
{
    const std::int16_t status = row.status;
    row = {};
    row.status = status;
    row.label[0] = text;
}

// The clause, with the place of the governing segment where there are restraints.
void PlaceSegment(const Inputs& in, ResultRow& row)
{
    if (in.restraints == 0) {
        return;
    }
    const double parts = in.restraints + 1;
    const double before = in.beampart - 1;
    if (in.beampart == 1) {
        row.limit[0] = " (0 - L/{i};  (Ch 6.3.2))";
        row.place = {parts};
    } else if (in.beampart == in.restraints + 1) {
        row.limit[0] = " ({i}L/{i} -  L;  (Ch 6.3.2))";
        row.place = {before, parts};
    } else {
        row.limit[0] = " ({i}L/{i} - {i}L/{i};  (Ch 6.3.2))";
        row.place = {before, parts, before + 1.0, parts};
    }
}

void AddMomentTerms(const Inputs& in, const Forces& forces, const Stability& stability,
                    const Axis& axis, const MomentResistances& resistance, bool equals)
{
    if (!axis.buckles) {
        return;
    }
    Line line{axis.row, 1, 2};  // behind the axial term
    if (forces.mydesign != 0) {
        const double my = std::abs(forces.mydesign);
        axis.sum += axis.kmy * my / (stability.xlt * resistance.my);
        Add(line, axis.texts.my, equals && forces.mzdesign == 0 ? kMyTermLast : kMyTerm,
            {axis.kmy, my, stability.xlt, resistance.my});
    }
    if (forces.mzdesign != 0) {
        axis.sum += axis.kmz * forces.mzdesign / resistance.mz;
        Add(line, axis.texts.mz, equals ? kMzTermLast : kMzTerm,
            {axis.kmz, forces.mzdesign, resistance.mz});
    }
    Judge(in, axis.row, axis.sum, kClauseInteraction);
}

}  // namespace

bool BucklesAboutY(const Inputs& in)
{
    return in.ly > kNoBuckling;
}

bool BucklesAboutZ(const Inputs& in)
{
    return in.lz > kNoBuckling;
}

void LateralTorsionalRow(const Inputs& in, SectionChecks& checks, Stability& stability)
{
    checks.irrow6 = std::abs(stability.mydesignf / (stability.xlt * stability.mltrd));
    Line line{stability.ltline};
    Add(line, "IR = My,Ed/(xLT*My,Rd) = ", "{f}/({R}*{F}) = ",
        {stability.mydesignf, stability.xlt, stability.mltrd});
    Judge(in, stability.ltline, checks.irrow6, kClauseLateral);
    PlaceSegment(in, stability.ltline);
}

void AxialRows(const Inputs& in, const Forces& forces, SectionChecks& checks, Stability& stability)
{
    for (const Axis& axis : {AxisY(in, checks, stability), AxisZ(in, checks, stability)}) {
        if (axis.buckles) {
            axis.sum = std::abs(forces.ned / axis.nbrd);
            Line line{axis.row};
            Add(line, axis.texts.axial, "{F}/{F}", {forces.ned, axis.nbrd});
            Judge(in, axis.row, axis.sum, kClauseAxial);
        }
    }
}

void AddMomentTerms(const Inputs& in, const Forces& forces, SectionChecks& checks,
                    Stability& stability, const MomentResistances& resistance, bool equals)
{
    AddMomentTerms(in, forces, stability, AxisY(in, checks, stability), resistance, equals);
    AddMomentTerms(in, forces, stability, AxisZ(in, checks, stability), resistance, equals);
}

void BendingRows(const Inputs& in, const Forces& forces, SectionChecks& checks,
                 Stability& stability, const MomentResistances& resistance)
{
    const double my = std::abs(forces.mydesign);
    for (const Axis& axis : {AxisY(in, checks, stability), AxisZ(in, checks, stability)}) {
        axis.sum = axis.kmy * my / (stability.xlt * resistance.my) +
                   axis.kmz * forces.mzdesign / resistance.mz;
        Line line{axis.row};
        Add(line, axis.texts.bending_my, "{R}*{F}/({R}*{F})",
            {axis.kmy, my, stability.xlt, resistance.my});
        Add(line, axis.texts.bending_mz, kMzTerm, {axis.kmz, forces.mzdesign, resistance.mz});
        Judge(in, axis.row, axis.sum, kClauseAxial);
    }
}

void FlatBarRows(const Inputs& in, const Resistances& resistances, const Forces& forces,
                 SectionChecks& checks, Stability& stability)
{
    const double my = std::abs(forces.mydesign);
    for (const Axis& axis : {AxisY(in, checks, stability), AxisZ(in, checks, stability)}) {
        if (axis.buckles) {
            axis.sum = std::abs(forces.ned / axis.nbrd) +
                       axis.kmy * my / (stability.xlt * resistances.myrdm1);
            Line line{axis.row};
            Add(line, axis.texts.axial, "{F}/{F}", {forces.ned, axis.nbrd});
            Add(line, axis.texts.flat_bar, kMyTerm,
                {axis.kmy, my, stability.xlt, resistances.myrdm1});
            Judge(in, axis.row, axis.sum, axis.texts.flat_bar_clause);
        }
    }
}

void AngleRow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, SectionChecks& checks, Stability& stability, bool moments)
{
    checks.irrow6 = std::abs(forces.ned / stability.nbvrd);
    Line line{stability.ltline};
    Add(line, "IR = NEd/Nb,v,Rd ", "{F}/{F}", {forces.ned, stability.nbvrd});
    if (moments) {
        const PrincipalMoments m = AnglePrincipalMoments(in, section, resistances, forces);
        checks.irrow6 += stability.kvv * m.mv / m.mvrd + stability.kvu * m.mu / m.murd;
        Add(line, " + kvv*Mv,Ed/Mv,Rd ", "+{R}*{F}/{F}", {stability.kvv, m.mv, m.mvrd});
        Add(line, " + kvu*Mu,Ed/Mu,Rd ", "+{R}*{F}/{F} = ", {stability.kvu, m.mu, m.murd});
    } else {
        Add(line, {}, " = ", {});
    }
    Judge(in, stability.ltline, checks.irrow6, moments ? kClauseInteraction : kClauseAxial);
}

void IgnoreBuckling(SectionChecks& checks, Stability& stability)
{
    Remark(stability.yline,
           "No Buckling, ref ch 6.3.1.2 (4);  lamdaby/lamdabz<=0.2 or Ned/Ncry<=0.04; "
           "Ned/Ncry<=0.04");
    Remark(stability.zline, {});
    checks.irrow4 = 0.0;
    checks.irrow5 = 0.0;
}

void IgnoreBucklingAboutV(SectionChecks& checks, Stability& stability)
{
    Remark(stability.ltline, {});
    checks.irrow6 = 0.0;
}

}  // namespace kestrum
