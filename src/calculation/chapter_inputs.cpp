#include "calculation/chapters.h"

#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "service/vortex.h"

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
    void Text(std::string_view name, std::string_view value)
    {
        table_.rows.push_back({name, "", value, ""});
    }
    void Number(std::string_view name, std::string_view symbol, double value,
                std::string_view unit = {})
    {
        table_.rows.push_back({name, Symbol(symbol), NumberLine(value, 6), unit});
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
    values.Text("Interaction factors", s.method == Method::annex_a ? "Annex A" : "Annex B");
    return values.Take("Basis of design");
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
    values.Number("Factor of the buckling length, y", "k_cr,y", s.ly);
    values.Number("Factor of the buckling length, z", "k_cr,z", s.lz);
    values.Text("Lateral torsional buckling", YesNo(s.ltb == 1));
    if (s.ltb == 1) {
        values.Number("Factor of its length", "k", s.ltbk);
        values.Number("Lateral restraints in the span", "", s.restraints);
        constexpr std::string_view kLevels[] = {"", "top flange", "centroid", "bottom flange",
                                                "as entered"};
        const auto level = static_cast<std::size_t>(s.loadlevel);
        values.Text("Level of the loads", level < std::size(kLevels) ? kLevels[level] : "");
        values.Text("Curves", s.ltbcurve == LtbCurve::rolled ? "6.3.2.3" : "6.3.2.2");
    }
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
