#include "core/load_combination.h"

#include "core/annexes.h"
#include "core/number_format.h"
#include "core/project_state.h"

#include <array>
#include <cstddef>

namespace kestrum {

namespace {

constexpr double kVariable610b = 1.5;  // Eq 6.10b, in every annex

// K_FI of the reliability, safety or consequences class, EN 1990, B3.3.
//
// Deviation D25: Eq 6.10 of an annex without `low_class_in_610`, Denmark, has 1.0 for the lowest
// class; DS/EN 1990 DK NA counts its 0.9 in every equation.
ClassFactors FactorsOfClass(const Annex& annex, int safetyclass, int loadcomb)
{
    if (safetyclass != 1) {
        return annex.of_class[safetyclass == 2 ? 1 : 2];
    }
    return annex.low_class_in_610 || loadcomb != kEq610 ? annex.of_class[0] : ClassFactors{1, 1};
}

using Class = CombinationWriting::Class;

std::string Num(double value)
{
    return FormatNum(value, "0.0##");
}

std::string Psi(float value)
{
    return FormatNum(value, "0.0");
}

std::string Kfig(const ProjectState& s)
{
    return FormatNum(s.kfig, "0.0#");
}

std::string Kfiq(const ProjectState& s)
{
    return FormatNum(s.kfiq, "0.0#");
}

// The class factor before each variable load, where the annex writes it there.
std::string FactorOfVariables(const ProjectState& s, const CombinationWriting& writing)
{
    if (writing.factor != Class::on_variable) {
        return {};
    }
    return Kfiq(s) + "*";
}

std::string UserText(std::string_view head, float g, float q1, float q2)
{
    constexpr std::string_view kFactor = "0.00";
    return std::string(head) + FormatNum(g, kFactor) + "*G + " + FormatNum(q1, kFactor) + "*Q1 + " +
           FormatNum(q2, kFactor) + "*Q2";
}

std::string StrengthText(const ProjectState& s, int loadcomb)
{
    switch (loadcomb) {
    case kEq610:
        return CombText610(s);
    case kEq610a:
        return CombText610a(s);
    case kEq610b:
        return CombText610b(s);
    case kEq610ab:
        return s.governing == 1 ? CombText610a(s) : CombText610b(s);
    case kUserFactors:
        return CombTextUls(s);
    case kBasicLoads:
        return CombTextBasic();
    default:
        return {};
    }
}

}  // namespace

std::string_view LoadCombinationName(int loadcomb)
{
    constexpr std::array<std::string_view, 6> kNames{"EN 1990 Eq 6.10",  "EN 1990 Eq 6.10a",
                                                     "EN 1990 Eq 6.10b", "EN 1990 Eq 6.10a/b",
                                                     "ULS/SLS",          "Basic loads"};
    return loadcomb >= kEq610 && loadcomb <= kBasicLoads
               ? kNames[static_cast<std::size_t>(loadcomb)]
               : std::string_view{};
}

void SetPsi(Settings& settings)
{
    settings.psi1 = static_cast<float>((settings.psi1index + 1) * 0.1);
    settings.psi2 = static_cast<float>((settings.psi2index + 1) * 0.1);
}

void ApplyAnnexLoads(const Settings& settings, AnnexFactors& factors, int annexindex)
{
    if (!AnnexListed(annexindex)) {
        return;
    }
    const Annex& f = AnnexAt(annexindex);
    factors.g610g = static_cast<float>(f.g610g);
    factors.g610q1 = static_cast<float>(f.g610q1);
    factors.g610q2 = static_cast<float>(f.g610q2);
    factors.g610ag = static_cast<float>(f.g610ag);
    factors.g610aq1 = static_cast<float>(f.g610aq1);
    factors.g610aq2 = static_cast<float>(f.g610aq2);
    factors.g610bg = static_cast<float>(f.g610bg);
    factors.xi610b = static_cast<float>(f.xi610b);
    const ClassFactors k = FactorsOfClass(f, settings.safetyclass, settings.loadcomb);
    factors.kfig = k.g;
    factors.kfiq = static_cast<float>(k.q);
}

int StrengthCombination(const Inputs& in, int governing)
{
    if (in.loadcomb != kEq610ab) {
        return in.loadcomb;
    }
    return governing == 1 ? kEq610a : kEq610b;
}

LoadFactors StrengthFactors(const Inputs& in, const AnnexFactors& annex, int loadcomb)
{
    const double kfig = annex.kfig, kfiq = annex.kfiq, psi1 = in.psi1, psi2 = in.psi2;
    switch (loadcomb) {
    case kEq610:
        return {annex.g610g * kfig, annex.g610q1 * kfiq, annex.g610q2 * kfiq * psi1};  // D28
    case kEq610a:
        return {annex.g610ag * kfig, annex.g610aq1 * kfiq * psi1, annex.g610aq2 * kfiq * psi2};
    case kEq610b:
        return {static_cast<double>(annex.xi610b) * annex.g610bg * kfig, kVariable610b * kfiq,
                kVariable610b * kfiq * psi2};
    case kUserFactors:
        return {in.lfulsg, in.lfulsq1, in.lfulsq2};
    case kBasicLoads:
        return {1, 1, 1};
    default:
        return {0, 0, 0};
    }
}

LoadFactors ServiceFactors(const Inputs& in, int loadcomb)
{
    switch (loadcomb) {
    case kEq610:
    case kEq610a:
    case kEq610b:
    case kEq610ab:
        return {1, 1, in.psi2};
    case kUserFactors:
        return {in.lfslsg, in.lfslsq1, in.lfslsq2};
    case kBasicLoads:
        return {1, 1, 1};
    default:
        return {0, 0, 0};
    }
}

std::string CombText610(const ProjectState& s)
{
    const Annex& annex = AnnexAt(s.annexindex);
    const CombinationWriting& writing = annex.writing;
    const std::string q = FactorOfVariables(s, writing);
    const std::string terms = Num(annex.g610g) + "*G + " + q + Num(annex.g610q1) + "*Q1 + " + q +
                              Num(annex.g610q2) + "*" + Psi(s.psi1) + "*Q2";
    const std::string head = "ULS: Eq 6.10: LC = ";
    if (writing.factor != Class::on_all) {
        return head + terms;
    }
    return head + std::string(writing.before) + Kfig(s) + std::string(writing.after) + "(" + terms +
           ")";
}

std::string CombText610a(const ProjectState& s)
{
    const Annex& annex = AnnexAt(s.annexindex);
    const CombinationWriting& writing = annex.writing;
    std::string text = "ULS: Eq 6.10a: LC = ";
    if (writing.factor == Class::on_all) {
        text += Kfig(s) + "*";
    }
    text += Num(annex.stated610ag) + "*G";
    if (annex.g610aq1 == 0) {
        return text;
    }
    const std::string q = FactorOfVariables(s, writing);
    text += q.empty() ? std::string_view(" + ") : writing.variable;
    text += q + Num(annex.g610aq1) + "*" + Psi(s.psi1) + "*Q1 + ";
    return text + q + Num(annex.g610aq2) + "*" + Psi(s.psi2) + "*Q2";
}

std::string CombText610b(const ProjectState& s)
{
    const CombinationWriting& writing = AnnexAt(s.annexindex).writing;
    const std::string q = FactorOfVariables(s, writing);
    const std::string variable = Num(kVariable610b);
    std::string terms;
    if (writing.xi) {
        terms = FormatNum(s.xi610b, "0.0##") + "*";
    }
    terms += FormatNum(s.g610bg, "0.0##") + "*G + " + q + variable + "*Q1 +" +
             std::string(writing.leading) + q + variable + "*" + std::string(writing.star) +
             FormatNum(s.psi2, writing.psi) + "*Q2";
    const std::string head = "ULS: Eq 6.10b: LC = ";
    if (writing.factor == Class::on_all) {
        return head + Kfig(s) + "*(" + terms + ")";
    }
    return head + terms;
}

std::string CombText614(const ProjectState& s)
{
    return "SLS: Eq 6.14a: LC = G + Q1 + " + Psi(s.psi2) + "*Q2";
}

std::string CombTextUls(const ProjectState& s)
{
    return UserText("ULS: ", s.lfulsg, s.lfulsq1, s.lfulsq2);
}

std::string CombTextSls(const ProjectState& s)
{
    return UserText("SLS: ", s.lfslsg, s.lfslsq1, s.lfslsq2);
}

std::string CombTextBasic()
{
    return "Basic loads: G + Q1 + Q2";
}

std::vector<std::string> ShowCombination(const ProjectState& s)
{
    switch (s.loadcomb) {
    case kEq610:
    case kEq610a:
    case kEq610b:
        return {StrengthText(s, s.loadcomb), CombText614(s)};
    case kEq610ab:
        return {CombText610a(s), CombText610b(s), CombText614(s)};
    case kUserFactors:
        return {CombTextUls(s), CombTextSls(s)};
    case kBasicLoads:
        return {CombTextBasic()};
    default:
        return {};
    }
}

std::string GoverningText(const ProjectState& s)
{
    const bool en1990 = s.loadcomb >= kEq610 && s.loadcomb <= kEq610ab;
    std::string text = "Governing Loadcase:";
    text += en1990 ? " EN1990 " : " ";
    text += StrengthText(s, s.loadcomb);
    if (s.checksls != kFalse) {
        if (en1990) {
            text += " / EN1990 " + CombText614(s);
        } else if (s.loadcomb == kUserFactors) {
            text += " / " + CombTextSls(s);
        }
    }
    return text;
}

}  // namespace kestrum
