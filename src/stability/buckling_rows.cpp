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

Axis AxisY(ProjectState& s)
{
    return {kTextsY, s.yline, s.irrow4, s.nbyrd, s.kyy, s.kyz, BucklesAboutY(s)};
}

Axis AxisZ(ProjectState& s)
{
    return {kTextsZ, s.zline, s.irrow5, s.nbzrd, s.kzy, s.kzz, BucklesAboutZ(s)};
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

void Judge(const ProjectState& s, ResultRow& row, double ir, const Literal& clause)
{
    row.ir = ir;
    row.judged = true;
    row.status = ir > s.irlimit ? kAbove : kWithin;
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
void PlaceSegment(const ProjectState& s, ResultRow& row)
{
    if (s.restraints == 0) {
        return;
    }
    const double parts = s.restraints + 1;
    const double before = s.beampart - 1;
    if (s.beampart == 1) {
        row.limit[0] = " (0 - L/{i};  (Ch 6.3.2))";
        row.place = {parts};
    } else if (s.beampart == s.restraints + 1) {
        row.limit[0] = " ({i}L/{i} -  L;  (Ch 6.3.2))";
        row.place = {before, parts};
    } else {
        row.limit[0] = " ({i}L/{i} - {i}L/{i};  (Ch 6.3.2))";
        row.place = {before, parts, before + 1.0, parts};
    }
}

void AddMomentTerms(const ProjectState& s, const Axis& axis, const MomentResistances& resistance,
                    bool equals)
{
    if (!axis.buckles) {
        return;
    }
    Line line{axis.row, 1, 2};  // behind the axial term
    if (s.mydesign != 0) {
        const double my = std::abs(s.mydesign);
        axis.sum += axis.kmy * my / (s.xlt * resistance.my);
        Add(line, axis.texts.my, equals && s.mzdesign == 0 ? kMyTermLast : kMyTerm,
            {axis.kmy, my, s.xlt, resistance.my});
    }
    if (s.mzdesign != 0) {
        axis.sum += axis.kmz * s.mzdesign / resistance.mz;
        Add(line, axis.texts.mz, equals ? kMzTermLast : kMzTerm,
            {axis.kmz, s.mzdesign, resistance.mz});
    }
    Judge(s, axis.row, axis.sum, kClauseInteraction);
}

}  // namespace

bool BucklesAboutY(const ProjectState& s)
{
    return s.ly > kNoBuckling;
}

bool BucklesAboutZ(const ProjectState& s)
{
    return s.lz > kNoBuckling;
}

void LateralTorsionalRow(ProjectState& s)
{
    s.irrow6 = std::abs(s.mydesignf / (s.xlt * s.mltrd));
    Line line{s.ltline};
    Add(line, "IR = My,Ed/(xLT*My,Rd) = ", "{f}/({R}*{F}) = ", {s.mydesignf, s.xlt, s.mltrd});
    Judge(s, s.ltline, s.irrow6, kClauseLateral);
    PlaceSegment(s, s.ltline);
}

void AxialRows(ProjectState& s)
{
    for (const Axis& axis : {AxisY(s), AxisZ(s)}) {
        if (axis.buckles) {
            axis.sum = std::abs(s.ned / axis.nbrd);
            Line line{axis.row};
            Add(line, axis.texts.axial, "{F}/{F}", {s.ned, axis.nbrd});
            Judge(s, axis.row, axis.sum, kClauseAxial);
        }
    }
}

void AddMomentTerms(ProjectState& s, const MomentResistances& resistance, bool equals)
{
    AddMomentTerms(s, AxisY(s), resistance, equals);
    AddMomentTerms(s, AxisZ(s), resistance, equals);
}

void BendingRows(ProjectState& s, const MomentResistances& resistance)
{
    const double my = std::abs(s.mydesign);
    for (const Axis& axis : {AxisY(s), AxisZ(s)}) {
        axis.sum = axis.kmy * my / (s.xlt * resistance.my) + axis.kmz * s.mzdesign / resistance.mz;
        Line line{axis.row};
        Add(line, axis.texts.bending_my, "{R}*{F}/({R}*{F})", {axis.kmy, my, s.xlt, resistance.my});
        Add(line, axis.texts.bending_mz, kMzTerm, {axis.kmz, s.mzdesign, resistance.mz});
        Judge(s, axis.row, axis.sum, kClauseAxial);
    }
}

void FlatBarRows(ProjectState& s)
{
    const double my = std::abs(s.mydesign);
    for (const Axis& axis : {AxisY(s), AxisZ(s)}) {
        if (axis.buckles) {
            axis.sum = std::abs(s.ned / axis.nbrd) + axis.kmy * my / (s.xlt * s.myrdm1);
            Line line{axis.row};
            Add(line, axis.texts.axial, "{F}/{F}", {s.ned, axis.nbrd});
            Add(line, axis.texts.flat_bar, kMyTerm, {axis.kmy, my, s.xlt, s.myrdm1});
            Judge(s, axis.row, axis.sum, axis.texts.flat_bar_clause);
        }
    }
}

void AngleRow(ProjectState& s, bool moments)
{
    s.irrow6 = std::abs(s.ned / s.nbvrd);
    Line line{s.ltline};
    Add(line, "IR = NEd/Nb,v,Rd ", "{F}/{F}", {s.ned, s.nbvrd});
    if (moments) {
        const PrincipalMoments m = AnglePrincipalMoments(s);
        s.irrow6 += s.kvv * m.mv / m.mvrd + s.kvu * m.mu / m.murd;
        Add(line, " + kvv*Mv,Ed/Mv,Rd ", "+{R}*{F}/{F}", {s.kvv, m.mv, m.mvrd});
        Add(line, " + kvu*Mu,Ed/Mu,Rd ", "+{R}*{F}/{F} = ", {s.kvu, m.mu, m.murd});
    } else {
        Add(line, {}, " = ", {});
    }
    Judge(s, s.ltline, s.irrow6, moments ? kClauseInteraction : kClauseAxial);
}

void IgnoreBuckling(ProjectState& s)
{
    Remark(s.yline, "No Buckling, ref ch 6.3.1.2 (4);  lamdaby/lamdabz<=0.2 or Ned/Ncry<=0.04; "
                    "Ned/Ncry<=0.04");
    Remark(s.zline, {});
    s.irrow4 = 0.0;
    s.irrow5 = 0.0;
}

void IgnoreBucklingAboutV(ProjectState& s)
{
    Remark(s.ltline, {});
    s.irrow6 = 0.0;
}

}  // namespace kestrum
