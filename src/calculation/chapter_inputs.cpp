#include "calculation/chapters.h"

#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "core/project_inputs.h"
#include "document/notation.h"
#include "sections/families.h"
#include "service/vortex.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

std::string MaterialName(const CalculatedMember& m)
{
    const auto row = static_cast<std::size_t>(m.s.fykindex);
    const bool listed = m.s.fykindex >= 0 && row < m.library.materials.size();
    return listed ? m.library.materials[row].name : "own strength";
}

class Values {
public:
    Values() { table_.columns = {{"Quantity"}, {""}, {"Value", true}, {"Unit"}}; }
    void Text(std::string_view name, const Line& value)
    {
        table_.rows.push_back({name, "", value, ""});
    }
    void Number(std::string_view name, std::string_view symbol, double value,
                std::string_view unit = {})
    {
        table_.rows.push_back({name, Symbol(symbol), NumberLine(value, 6), UnitText(unit)});
    }
    TextTable Take(std::string caption)
    {
        table_.caption = std::move(caption);
        return std::move(table_);
    }

private:
    TextTable table_;
};

std::string_view YesNo(bool yes)
{
    return yes ? "yes" : "no";
}

TextTable MaterialTable(const CalculatedMember& m)
{
    const ProjectState& s = m.s;
    Values values;
    values.Text("National annex", AnnexName(s.annexindex));
    const std::string_view cls = AnnexClassName(s.annexindex);
    if (!cls.empty()) {
        values.Number(cls, "", s.safetyclass);
    }
    values.Text("Steel", MaterialName(m));
    values.Number("Yield strength", "f_y", s.fyk, "MPa");
    values.Number("Thickness that selects it", "t_max", std::round(100.0 * s.tmax) / 100, "mm");
    values.Number("Modulus of elasticity", "E", s.e, "MPa");
    values.Number("Partial factor of sections", "γ_M0", s.gammam0);
    values.Number("Partial factor of instability", "γ_M1", s.gammam1);
    values.Number("Factor of the shear area", "η", s.neta);
    values.Text("Elastic design of classes 1, 2", YesNo(s.checkelastic != kFalse));
    values.Text("Linear interaction only", YesNo(s.checkconsercontrol != kFalse));
    values.Text("Flange buckling left out", YesNo(s.checkflangebuck != kFalse));
    values.Text("Web buckling left out", YesNo(s.checkwebbuck != kFalse));
    if (s.loadmode == 1) {
        values.Text("Load combination", LoadCombinationName(s.loadcomb));
    }
    if (s.loadmode == 1 && s.loadcomb >= kEq610 && s.loadcomb <= kEq610ab) {
        values.Number("Combination factor of Q1", "ψ_Q1", s.psi1);
        values.Number("Combination factor of Q2", "ψ_Q2", s.psi2);
    }
    values.Text("Interaction factors", s.method == Method::annex_a ? "Annex A" : "Annex B");
    return values.Take("Basis of design");
}

Line CurveName(i16 choice)
{
    constexpr std::string_view kCurves[] = {"by Table 6.2", "a0", "a", "b", "c", "d"};
    const auto at = static_cast<std::size_t>(choice);
    return at < std::size(kCurves) ? kCurves[at] : "";
}

Line CheckSections(const ProjectInputs& in)
{
    constexpr i16 kOwn = 1;
    if (in.cpmode != kOwn) {
        return "11 even ones, both sides of point loads";
    }
    Line line("own, x = ");
    const int count = std::clamp<int>(in.cpcount, 1, 3);
    for (int k = 1; k <= count; ++k) {
        line += Line(k == 1 ? "" : "; ") + NumberLine(in.cp[static_cast<std::size_t>(k)], 6);
    }
    return line + Line(" m");
}

// What only some families ask for. As entered: a pass settles some of it.
void AddFamilyChoices(const CalculatedMember& m, Values& values)
{
    const ProjectInputs& in = InputsOf(m.input);
    if (Is(in, Kind::angle)) {
        values.Text("Connection", in.lopt == 2 ? "two bolts or more, BB.1.2" : "one bolt");
    }
    if (Is(in, Kind::hat)) {
        const bool loaded = in.hsqopt == 0;
        values.Text("Load on the bottom flange", !loaded ? "left out"
                                                 : m.s.hsqopt != 0
                                                     ? "counts; left out by the program, overloaded"
                                                     : "counts");
        if (loaded && Traits(in).shape.lower == LowerFlange::both_sides) {
            values.Number("Share of it on one side, at most", "p", in.flangeload, "%");
        }
        values.Text("Web of class 3 counts as class 2, 6.2.2.4", YesNo(in.class23 == 0));
    }
    if (Is(in, Kind::general)) {
        const auto classed = [&](std::string_view name, i16 entered) {
            values.Text(name, entered < 3 ? "class 1 or 2" : "class 3");
        };
        classed("Class as entered under N", in.p41.opn);
        classed("Class as entered under My", in.p41.opmy);
        classed("Class as entered under Mz", in.p41.opmz);
        values.Number("Area for shear along z", "A_w", in.p41.istaz, "mm2");
        values.Number("Area for shear along y", "A_f", in.p41.istay, "mm2");
    }
}

// Parameters of 6.3.2.3, kept apart for rolled and welded sections.
void AddCurveParameters(const ProjectInputs& in, Values& values)
{
    const bool welded = Is(in, Kind::i_welded) || Is(in, Kind::i_single);
    if (!Is(in, Kind::i_single)) {
        values.Number("Plateau of the curves, rolled sections", "~λ_LT,0", in.lamdalt0);
        values.Number("Factor of the curves, rolled sections", "β", in.beta);
    }
    if (welded) {
        values.Number("Plateau of the curves, welded sections", "~λ_LT,0", in.lamdalt0w);
        values.Number("Factor of the curves, welded sections", "β", in.betaw);
    }
}

std::string_view OriginOfC1(const ProjectState& s)
{
    if (s.loadmode != 1 || s.restraints > 0) {
        return "of a straight moment line";
    }
    return s.c1alt != kFalse     ? "of the quarter points"
           : s.cmanual != kFalse ? "as entered"
                                 : "by its tables";
}

void AddLateral(const CalculatedMember& m, Values& values)
{
    const ProjectInputs& in = InputsOf(m.input);
    const ProjectState& s = m.s;
    const bool standard = m.standard.checks[standard::CheckId::ltb].present;
    values.Text("Lateral torsional buckling", YesNo(s.ltb == 1));
    if (s.ltb == 1 || standard) {
        values.Number("Factor of its length", "k", in.ltbk);
    }
    if (s.ltb != 1) {
        return;
    }
    values.Number("Lateral restraints in the span", "", s.restraints);
    constexpr std::string_view kLevels[] = {"", "top flange", "centroid", "bottom flange",
                                            "as entered"};
    constexpr std::size_t kEntered = 4;
    const auto level = static_cast<std::size_t>(s.loadlevel);
    values.Text("Level of the loads", level < std::size(kLevels) ? kLevels[level] : "");
    if (level == kEntered) {
        values.Number("Loads above the centroid", "z_a", in.za, "mm");
    }
    if (s.cmanual != kFalse) {
        values.Number("Factor of the critical moment, as entered", "C_1", in.c1);
        values.Number("Factor of the critical moment, as entered", "C_2", in.c2);
        values.Number("Factor of the critical moment, as entered", "C_3", in.c3);
    }
    values.Text("C1 by the rules of the program", OriginOfC1(s));
    const bool rolled = s.ltbcurve == LtbCurve::rolled;
    values.Text("Curves", rolled ? "6.3.2.3" : "6.3.2.2");
    AddCurveParameters(in, values);
}

TextTable MemberTable(const CalculatedMember& m)
{
    const ProjectState& s = m.s;
    Values values;
    values.Number("Length", "L", s.l, "m");
    values.Text("Supports", MemberSupport(s));
    if (s.supportcase == SupportCase::springs || s.supportcase == SupportCase::pinned_spring) {
        values.Number("Restraint of the springs", "", s.spring, "%");
    }
    values.Text("Rigid end posts", YesNo(s.endstiff == 1));
    values.Text("Transverse stiffeners", YesNo(s.webstiff == 1));
    values.Number("Spacing of stiffeners", "a", s.webstiffa, "mm");
    AddFamilyChoices(m, values);
    values.Number("Factor of the buckling length, y", "k_cr,y", s.ly);
    values.Number("Factor of the buckling length, z", "k_cr,z", s.lz);
    values.Text("Buckling curve, y", CurveName(s.bcy));
    values.Text("Buckling curve, z", CurveName(s.bcz));
    AddLateral(m, values);
    values.Text("Check sections", CheckSections(InputsOf(m.input)));
    values.Text("Deflection counts", YesNo(s.checksls != kFalse));
    values.Number("Limit of deflection z, L/n", "n", s.deflimitz);
    values.Number("Limit of deflection y, L/n", "n", s.deflimity);
    return values.Take("Member");
}

}  // namespace

void AddInputs(const CalculatedMember& m, Document& d)
{
    d.Chapter("Inputs");
    d.Say("Axial compression, sagging moments and downward loads are positive. y is the axis of "
          "the larger stiffness as a rule, z the other one; My bends the member in the plane of "
          "its z loads.",
          Paragraph::Kind::remark);
    d.Add(MaterialTable(m));
    d.Add(MemberTable(m));
}

}  // namespace kestrum
