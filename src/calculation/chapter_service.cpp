#include "calculation/chapters.h"
#include "calculation/check_formula.h"
#include "calculation/check_names.h"
#include "calculation/parts.h"
#include "calculation/standard_equations.h"
#include "calculation/standard_vibration.h"

#include "core/load_combination.h"
#include "core/member_choices.h"
#include "engine/member_analysis.h"
#include "report/mode_shapes.h"
#include "service/modal.h"
#include "service/vortex.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

void AddFrequencies(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    d.Part("Natural frequencies of bending about y");
    Expr loads;
    for (std::size_t k = 1; k <= 4; ++k) {
        if (s.qload[k] != 0) {
            const Expr q = Sym("q_" + std::to_string(k), s.qload[k]);
            loads = loads == nullptr ? q : loads + q;
        }
    }
    const Expr section = Sym("m_0", s.weight);
    d.Add("m", loads == nullptr ? section : section + Num(102) * (loads), s.modalmass, "kg/m", "",
          "section and uniform loads, kN/m; D251, D252");
    if (!std::isfinite(s.freq[1])) {
        d.Say("The mass is not above 0: no frequency.", Paragraph::Kind::remark);
        return;
    }
    const double stiffness = static_cast<double>(s.e) * s.iy / 1e6;  // N m2
    for (int mode = 1; mode <= 3; ++mode) {
        const double f = s.freq[static_cast<std::size_t>(mode)];
        const double l = s.l;
        const double c = f / std::sqrt(stiffness / (s.modalmass * l * l * l * l));
        d.Add("f_" + std::to_string(mode),
              Sym("K_" + std::to_string(mode), std::round(c * 1000) / 1000) *
                  Root(Sym("E", s.e) * Sym("I_y", s.iy) * Ten(-6) /
                       (Sym("m", s.modalmass) * Power(Sym("L", s.l), Num(4)))),
              f, "Hz", "", "D253");
    }
    if (m.standard.vibration) {
        const standard::Vibration& other = *m.standard.vibration;
        d.Say("By EN 1990, A1.4.4, with ψ Q among the masses:", Paragraph::Kind::remark);
        const auto study = standard::VibrationStudyOf(m.library, m.input).value();
        AddMovedLoads(study, standard::kModes, d);
        AddMeanMass(s, study, other.mass, d);
        for (std::size_t mode = 0; mode < standard::kModes; ++mode) {
            AddStandardFrequency(s, study, mode, "f_" + std::to_string(mode + 1) + ",standard",
                                 other.freq[mode], "EN 1990, A1.4.4", d);
        }
    }
    std::vector<Figure> shapes;
    for (int mode = 1; mode <= 3; ++mode) {
        constexpr double kWidth = 56;  // three side by side
        shapes.push_back({DrawModeShape(s, mode), "Mode " + std::to_string(mode), kWidth});
    }
    d.Show(std::move(shapes));
}

// With given end forces the record still holds the deflections of an earlier pass with loads.
bool Deflects(const CalculatedMember& m)
{
    const auto found = [&](const CheckPair& pair) {
        return pair.standard && IsDeflection(*pair.standard) &&
               ((m.outcome.designed() && LargestOf(pair, m.s.checklist) != nullptr) ||
                m.standard.checks[*pair.standard].present);
    };
    return m.s.loadmode == 1 && std::any_of(CheckPairs(m.s).begin(), CheckPairs(m.s).end(), found);
}

}  // namespace

void AddDeflectionLimit(const ProjectState& s, char axis, Document& d)
{
    const Check& check = s.checklist[axis == 'z' ? CheckId::deflection_z : CheckId::deflection_y];
    const double limit = axis == 'z' ? s.deflimitz : s.deflimity;
    if (!check.empty()) {
        d.Add(std::string("δ_") + axis + ",max", Sym("L", s.l) / Sym("n", limit) * Ten(3),
              check.terms[1], "mm", "7.2");
    }
}

void AddServiceability(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    const bool deflection = Deflects(m);
    const bool frequencies = m.outcome.designed() && s.modal == 1 && s.freq[1] != 0;
    if (!deflection && !frequencies) {
        return;
    }
    d.Chapter("Serviceability");
    if (deflection) {
        d.Part("Deflection");
        if (!DeflectionCounts(s)) {
            d.Say("The deflections do not count in the verdict: the project leaves them out.",
                  Paragraph::Kind::remark);
        }
        const bool designed = m.outcome.designed();
        if (designed) {
            AddDeflectionLimit(s, 'z', d);
            AddCheck(d, s.checklist[CheckId::deflection_z], LateralSymbol(s),
                     CombinationOf(s, true));
            AddDeflectionLimit(s, 'y', d);
            AddCheck(d, s.checklist[CheckId::deflection_y], LateralSymbol(s),
                     CombinationOf(s, true));
        }
        for (const CheckPair& pair : CheckPairs(s)) {
            if (!pair.standard || !IsDeflection(*pair.standard) ||
                !m.standard.checks[*pair.standard].present) {
                continue;
            }
            const Check* const check = designed ? LargestOf(pair, s.checklist) : nullptr;
            if (check == nullptr || !GiveTheSame(*check, m.standard.checks[*pair.standard])) {
                AddStandardCheck(m.library, m.input, m.standard, *pair.standard, d);
            }
        }
    }
    if (frequencies) {
        AddFrequencies(m, d);
    }
}

void AddReactions(const CalculatedMember& m, Document& d)
{
    if (m.s.loadmode != 1 || !m.HasSection()) {
        return;
    }
    TextTable table{.columns = {{"Category"},
                                {"N, kN", true},
                                {"Rz1, kN", true},
                                {"Rz2, kN", true},
                                {"My1, kNm", true},
                                {"My2, kNm", true},
                                {"Ry1, kN", true},
                                {"Ry2, kN", true},
                                {"Mz1, kNm", true},
                                {"Mz2, kNm", true}},
                    .caption = "Characteristic values; R positive where the support pushes up"};
    constexpr std::string_view kNames[] = {"G", "Q1", "Q2"};
    for (std::size_t category = 0; category < 3; ++category) {
        ProjectState s = m.s;
        s.loadcomb = kUserFactors;
        s.lfulsg = category == 0 ? 1.0F : 0.0F;
        s.lfulsq1 = category == 1 ? 1.0F : 0.0F;
        s.lfulsq2 = category == 2 ? 1.0F : 0.0F;
        CalcMember(s, nullptr);
        // The shear line of a cantilever counts from its free end, which is no support.
        const bool free = s.supportcase == SupportCase::cantilever;
        const auto first = [&](double v) { return NumberLine(free ? 0 - v : v); };
        const auto last = [&](double v) { return NumberLine(free ? 0 : 0 - v); };
        table.rows.push_back({kNames[category], NumberLine(s.ned), first(s.vzdiag[0]),
                              last(s.vzdiag[50]), NumberLine(s.my0), NumberLine(s.myl),
                              first(s.vydiag[0]), last(s.vydiag[50]), NumberLine(s.mz0),
                              NumberLine(s.mzl)});
    }
    d.Chapter("Reactions by category");
    d.Add(std::move(table));
    if (!m.outcome.dropped.empty()) {
        d.Say("Without the loads that are not in the program's result; see Actions.",
              Paragraph::Kind::remark);
    }
}

}  // namespace kestrum
