#include "calculation/given_loads.h"

#include "core/dropped_loads.h"
#include "core/dropped_text.h"
#include "core/load_combination.h"
#include "core/project_inputs.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr int kDigits = 6;

Line Number(double value)
{
    return NumberLine(value, kDigits);
}

std::string_view CategoryName(double type)
{
    return type == 0 ? "G" : type == 1 ? "Q1" : type == 2 ? "Q2" : "";
}

// Rows of loads in one direction: 1 along z, 0 along y, -1 along the member.
class GivenLoads {
public:
    explicit GivenLoads(const CalculatedMember& m)
        : in_(InputsOf(m.input)), dropped_(DroppedNow(m.s, m.s.dropped))
    {
    }

    void AddAxial(Document& d)
    {
        Open("Axial loads", false);
        for (std::size_t i = 1; i < in_.nload.size(); ++i) {
            if (in_.nload[i] != 0) {
                Add("axial force N", Number(in_.nload[i]), "kN", {}, in_.ntype[i],
                    Remark("nload", i, in_.nchecked[i]));
            }
        }
        Close(d);
    }

    void AddAcross(int direction, Document& d)
    {
        Open(direction == 1 ? "Loads along z" : "Loads along y", true);
        for (std::size_t i = 1; i < in_.qload.size(); ++i) {
            if (in_.qload[i] != 0 && in_.qdir[i] == direction) {
                Add("line load q", Number(in_.qload[i]), "kN/m", "0 to L", in_.qtype[i],
                    Remark("qload", i, in_.qchecked[i]));
            }
        }
        for (std::size_t i = 1; i < in_.qt1.size(); ++i) {
            if ((in_.qt1[i] != 0 || in_.qt2[i] != 0) &&
                in_.qtdir[i] == static_cast<float>(direction)) {
                Add("line load q", Number(in_.qt1[i]) + Line(" to ") + Number(in_.qt2[i]), "kN/m",
                    Number(in_.qtx1[i]) + Line(" to ") + Number(in_.qtx2[i]), in_.qttype[i],
                    Remark("qt1", i, in_.qtchecked[i]));
            }
        }
        for (std::size_t i = 1; i < in_.pm.size(); ++i) {
            if (in_.pm[i] != 0 && in_.pmdir[i] == direction) {
                const bool moment = in_.pmkind[i] == 1;
                Add(!moment          ? "point force P"
                    : direction == 1 ? "moment My"
                                     : "moment Mz",
                    Number(in_.pm[i]), moment ? "kNm" : "kN", Number(in_.pmx[i]), in_.pmtype[i],
                    Remark("pm", i, in_.pmchecked[i]));
            }
        }
        Close(d);
    }

private:
    void Open(std::string caption, bool placed)
    {
        table_ = {.columns = {{"Load"}, {"Value", true}, {"Unit"}}, .caption = std::move(caption)};
        if (placed) {
            table_.columns.push_back({"x, m", true});
        }
        table_.columns.push_back({"Category"});
        placed_ = placed;
        remarks_.clear();
    }
    void Add(std::string_view name, Line value, std::string_view unit, Line place, double type,
             std::string_view remark)
    {
        std::vector<Line> row{name, std::move(value), unit};
        if (placed_) {
            row.push_back(std::move(place));
        }
        row.push_back(CategoryName(type));
        table_.rows.push_back(std::move(row));
        remarks_.push_back(remark);
    }
    // The remarks have a column where there are any.
    void Close(Document& d)
    {
        if (table_.rows.empty()) {
            return;
        }
        if (std::any_of(remarks_.begin(), remarks_.end(),
                        [](std::string_view remark) { return !remark.empty(); })) {
            table_.columns.push_back({"Remark"});
            for (std::size_t i = 0; i < remarks_.size(); ++i) {
                table_.rows[i].push_back(remarks_[i]);
            }
        }
        d.Add(std::move(table_));
    }
    std::string_view Remark(std::string_view field, std::size_t row, i16 checked) const
    {
        if (in_.loadcomb == kBasicLoads && checked == kFalse) {
            return "not ticked, does not act";
        }
        const bool off = std::any_of(dropped_.begin(), dropped_.end(), [&](const DroppedLoad& at) {
            return at.field == field && at.row == static_cast<std::int16_t>(row);
        });
        return off ? "not in the program's result" : "";
    }

    const ProjectInputs& in_;
    std::vector<DroppedLoad> dropped_;
    TextTable table_;
    std::vector<std::string_view> remarks_;
    bool placed_ = false;
};

void AddEndForces(const ProjectInputs& s, Document& d)
{
    TextTable table{.columns = {{"End"},
                                {"N, kN", true},
                                {"My, kNm", true},
                                {"Vz, kN", true},
                                {"Mz, kNm", true},
                                {"Vy, kN", true}},
                    .caption = "Given end forces, design values"};
    table.rows.push_back(
        {"1", Number(s.ne), Number(s.my1), Number(s.vz1), Number(s.mz1), Number(s.vy1)});
    table.rows.push_back(
        {"2", Number(s.ne), Number(s.my2), Number(s.vz2), Number(s.mz2), Number(s.vy2)});
    d.Add(std::move(table));
    d.Say("End 1 is x = 0, end 2 x = L. The moments and shear forces run straight between the "
          "ends.",
          Paragraph::Kind::remark);
}

// Without loads between the ends V = dM/dx, and both ends have the same V.
void AddBalance(std::string_view axis, std::string_view plane, double m1, double m2, double v1,
                double v2, double length, Document& d)
{
    constexpr double kRounding = 0.01;  // of the larger one
    const double slope = (m2 - m1) / length;
    const double off = std::max(std::abs(v1 - slope), std::abs(v2 - slope));
    if (off <= kRounding * std::max({std::abs(v1), std::abs(v2), std::abs(slope)})) {
        return;
    }
    const std::string moment = "M" + std::string(axis), shear = "V" + std::string(plane);
    Line line(moment + " and " + shear +
              " are not in equilibrium without loads between the ends: (" + moment + "2 - " +
              moment + "1)/L = ");
    line += NumberLine(slope, 4) + Line(" kN, ");
    line += v1 == v2 ? Line(shear + " = ") + NumberLine(v1, 4)
                     : Line(shear + "1 = ") + NumberLine(v1, 4) + Line(" kN, " + shear + "2 = ") +
                           NumberLine(v2, 4);
    d.Say(line + Line(" kN. Each is checked as entered."));
}

// What a load adds to no result is said with its value and unit, and who counts it.
void AddLeftOut(const CalculatedMember& m, Document& d)
{
    for (const DroppedLoad& load : DroppedNow(m.s, m.s.dropped)) {
        const bool family = load.reason == DropReason::family;
        std::string text = "Not in the program's result: " + LoadText(load);
        text += family ? ", which it does not take on this family of sections"
                       : ", beyond the member or on a support";
        text +=
            family && m.standard.rated ? "; the checks by EN 1993-1-1 as written count it." : ".";
        d.Say(WithNumbers(text, Span::Style::bad));
    }
}

}  // namespace

void AddGivenLoads(const CalculatedMember& m, Document& d)
{
    const ProjectInputs& in = InputsOf(m.input);
    if (in.loadmode != 1) {
        AddEndForces(in, d);
        AddBalance("y", "z", in.my1, in.my2, in.vz1, in.vz2, in.l, d);
        AddBalance("z", "y", in.mz1, in.mz2, in.vy1, in.vy2, in.l, d);
    } else {
        d.Say("G permanent, Q1 leading variable, Q2 other variable actions; characteristic values.",
              Paragraph::Kind::remark);
        GivenLoads loads(m);
        loads.AddAxial(d);
        loads.AddAcross(1, d);
        loads.AddAcross(0, d);
        d.Say(in.selfweight == 1 ? Line("Self-weight of the member is included: ") +
                                       NumberLine(m.s.qload[0], 4) + Line(" kN/m.")
                                 : Line("Self-weight of the member is not included."));
    }
    AddLeftOut(m, d);
}

}  // namespace kestrum
