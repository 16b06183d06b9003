#include "standard/standard.h"

#include "analysis/exact_line.h"
#include "analysis/member_forces.h"
#include "core/annexes.h"
#include "core/arithmetic_trap.h"
#include "core/material.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "engine/section_dispatch.h"
#include "engine/validate.h"
#include "standard/member.h"
#include "standard/solved_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace kestrum::standard {

namespace {

ShearInputs ShearInputsOf(const ProjectState& s)
{
    const bool stiffened = s.webstiff == 1 && s.webstiffa > 0;
    return {s.webstiffa, s.l * 1000.0, stiffened, s.endstiff == 1};
}

Classes ClassesOf(const StandardSection& q, const ActingForces& f, const Basis& basis)
{
    const int all = ClassOf(q, f, basis);
    const bool one_sign = !(f.sagging && f.hogging && q.UnequalFlanges());
    const bool alone = f.n == 0 && !(f.mz && (f.sagging || f.hogging)) && one_sign;
    if (alone) {
        return {all, {all, all}, all, {all, all}, all};
    }
    const auto my = [&](double n) {
        const int worse = ClassOf(q, {n, f.sagging, f.hogging, false}, basis);
        if (!f.sagging || !f.hogging || !q.UnequalFlanges()) {
            return Classes::BySign{worse, worse};
        }
        return Classes::BySign{ClassOf(q, {n, true, false, false}, basis),
                               ClassOf(q, {n, false, true, false}, basis)};
    };
    const int mz = ClassOf(q, {0, false, false, f.mz}, basis);
    if (f.n == 0) {
        return {all, my(0), mz, my(0), mz};
    }
    return {all, my(0), mz, my(f.n), ClassOf(q, {f.n, false, false, f.mz}, basis)};
}

// Loads over the whole length that rest on the lower flange of a hat beam, N/mm.
double FlangeLoadOf(const Member& m, const LoadFactors& factors, const CombinedLines& lines)
{
    constexpr i16 kConsidered = 0;
    if (m.section.q.kind != Kind::hat || m.s.hsqopt != kConsidered) {
        return 0;
    }
    double sum = lines.stations != nullptr ? lines.stations->steepest : 0;
    for (std::size_t i = 0; i < m.loads.count && lines.stations == nullptr; ++i) {
        const Load& load = m.loads.load[i];
        const bool whole = !load.point && load.line.x1 == 0 && load.line.x2 == m.s.l;
        if (load.about_y && whole && load.line.q1 == load.line.q2) {
            sum += FactorOn(factors, load.category) * load.line.q1;
        }
    }
    const bool both = Traits(m.s).shape.lower == LowerFlange::both_sides;
    return both ? sum * m.s.flangeload / 100 : sum;
}

SectionMember SectionMemberOf(const Member& m, const LoadCase& load_case,
                              const CombinedLines& lines)
{
    return {m.section,
            ShearInputsOf(m.s),
            m.s.supportcase == SupportCase::cantilever,
            FlangeLoadOf(m, load_case.factors, lines),
            m.places,
            &m.s};
}

}  // namespace

ActingForces ActingIn(const CombinedLines& lines)
{
    constexpr double kNothing = 1e-9;  // kNm: a moment that is a rounding of none
    const LineExtremes y = ExtremesOfMoment(lines.grid, lines.y.m);
    const LineExtremes z = ExtremesOfMoment(lines.grid, lines.z.m);
    return {lines.n * 1e3, y.most.value > kNothing,
            y.least.value<-kNothing, z.most.value> kNothing || z.least.value < -kNothing};
}

namespace {

MemberCase MemberCaseOf(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                        const ActingForces& forces, const Classes& classes)
{
    return {m.library,
            m.s,
            m.basis,
            m.program,
            m.section,
            m.solved,
            m.loads,
            load_case,
            lines,
            classes,
            forces.sagging || forces.hogging,
            forces.mz,
            m.places};
}

}  // namespace

bool CheckStrength(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                   Checks& checks)
{
    const ActingForces forces = ActingIn(lines);
    const Classes classes = ClassesOf(m.section.q, forces, m.basis);
    CheckSections(SectionMemberOf(m, load_case, lines), lines, classes, load_case, checks, m.basis);
    return CheckMember(MemberCaseOf(m, load_case, lines, forces, classes), checks);
}

SectionTerms SectionTermsOf(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                            CheckId id, double x)
{
    const Classes classes = ClassesOf(m.section.q, ActingIn(lines), m.basis);
    return SectionTermsAt(SectionMemberOf(m, load_case, lines), lines, classes, m.basis, x, id);
}

MemberTerms MemberTermsOf(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                          CheckId id)
{
    const ActingForces forces = ActingIn(lines);
    const Classes classes = ClassesOf(m.section.q, forces, m.basis);
    MemberTerms terms{};
    terms.column_only =
        id == CheckId::flexural_y || id == CheckId::flexural_z || id == CheckId::torsional;
    Checks checks;
    CheckMember(MemberCaseOf(m, load_case, lines, forces, classes), checks, &terms);
    return terms;
}

void KeepLargestAlong(const Member& m, const LoadCase& load_case, std::span<double> largest)
{
    const CombinedLines lines = LinesOf(m.s, m.loads, load_case.factors, m.basis);
    const Classes classes = ClassesOf(m.section.q, ActingIn(lines), m.basis);
    KeepLargestAlong(SectionMemberOf(m, load_case, lines), lines, classes, m.basis, largest);
}

namespace {

// Moments that bend a member by its own second moment of area as it bends. D260: the program leaves
// the product of inertia of angles out.
MomentPolynomials BendingOf(const Member& m, const CombinedLines& lines, Axis axis)
{
    MomentPolynomials bending = lines.Of(axis).m;
    if (!m.section.q.Angle() || !m.basis.departs(Dev::d260)) {
        return bending;
    }
    const bool y = axis == Axis::y;
    const Coupling k = CouplingOf(m.section.whole_angle, y ? m.section.q.iy : m.section.q.iz, y);
    const MomentPolynomials& across = lines.Of(y ? Axis::z : Axis::y).m;
    for (std::size_t i = 0; i < lines.grid.pieces; ++i) {
        for (std::size_t power = 0; power < 4; ++power) {
            bending.m[i][power] = k.own * bending.m[i][power] + k.other * across.m[i][power];
        }
    }
    return bending;
}

// D261: the program reads its line at the points of the diagram.
LineExtreme LargestOf(const DeflectionLine& line, const LineGrid& grid, const Basis& basis)
{
    constexpr double kOff = 1e-9;
    const LineExtreme largest = line.Largest();
    const LineExtreme read = LargestAtPoints(line, grid);
    const bool same = std::abs(read.value) >= (1 - kOff) * std::abs(largest.value);
    return same || basis.departs(Dev::d261) ? largest : read;
}

}  // namespace

// EN 1990, A1.4: L/n.
DeflectionTerms DeflectionOf(const Member& m, const CombinedLines& lines, Axis axis)
{
    const StandardSection& q = m.section.q;
    const MomentPolynomials bending = BendingOf(m, lines, axis);
    const DeflectionLine line(lines.grid, bending, m.s.supportcase == SupportCase::cantilever, q.e,
                              axis == Axis::y ? q.iy : q.iz);
    const LineExtreme largest = LargestOf(line, lines.grid, m.basis);
    return {largest.value, m.s.l * 1000.0 / (axis == Axis::y ? m.s.deflimitz : m.s.deflimity),
            largest.x / lines.grid.Length()};
}

namespace {

void CheckDeflection(const Member& m, const LoadCase& load_case, Axis axis, Checks& checks)
{
    const CombinedLines lines = LinesOf(m.s, m.loads, load_case.factors, m.basis);
    const DeflectionTerms terms = DeflectionOf(m, lines, axis);
    if (terms.largest != 0) {
        checks.Keep(axis == Axis::y ? CheckId::deflection_z : CheckId::deflection_y,
                    std::abs(terms.largest) / terms.limit, "EN 1990, A1.4", terms.place, load_case);
    }
}

}  // namespace

LoadCases ServiceCasesOf(const Member& m)
{
    return m.s.loadmode == 1 ? ServiceCases(m.s, m.loads.present, m.basis) : LoadCases{};
}

void CheckService(const Member& m, const LoadCase& load_case, Checks& checks)
{
    CheckDeflection(m, load_case, Axis::y, checks);
    CheckDeflection(m, load_case, Axis::z, checks);
}

void NameOutsideOfKind(const Library& library, const Member& m, const Checks& checks,
                       std::vector<std::string>& outside)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.section.q;
    const bool bends = checks[CheckId::section_my].present;
    if (q.kind == Kind::general) {
        outside.push_back("shear buckling of a general profile, whose web is not entered: not "
                          "checked");
        if (IsListedGrade(library, s.fykindex)) {
            outside.push_back("general profile with a listed grade: the strength up to 40 mm is "
                              "taken");
        }
    }
    if (q.kind == Kind::tee && bends) {
        outside.push_back("lateral torsional buckling of T sections: no input, not checked");
    }
    if (q.kind == Kind::hat && s.hsqopt == 0) {
        outside.push_back("the load on the flange acts 60 mm from the web, whatever its bearing");
    }
    if (q.kind == Kind::angle && checks[CheckId::ltb].present) {
        outside.push_back("lateral torsional buckling of an angle: no input for restraints and "
                          "load level, checked without");
    }
    if (Traits(s).shape.lower == LowerFlange::one_side) {
        outside.push_back("one-sided flange: bending about y and z, not about the principal axes");
    }
    if (checks[CheckId::ltb].present && q.kind == Kind::plate) {
        outside.push_back("lateral torsional buckling of a stiffened plate: the tripping stress of "
                          "the program is taken");
    }
}

void NameOutside(const Library& library, const Member& m, std::vector<std::string>& outside)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.section.q;
    if ((q.whole_flanges || q.whole_webs) && m.section.class_n == 4) {
        outside.push_back("plates buckle, and the project leaves out the buckling of flanges or "
                          "webs: taken as the program does");
    }
    constexpr float kUkStep = 16;  // mm
    if (s.annexindex == kAnnexUk && IsListedGrade(library, s.fykindex) && s.tmax > kUkStep) {
        outside.push_back("strengths by product standard of the British annex: Table 3.1 is taken");
    }
}

namespace {

void Govern(const ProjectState& s, StandardResult& result)
{
    for (std::size_t i = 0; i < kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        const Check& check = result.checks[id];
        // Deflections count where their control is part of the result, as in the program's ratio.
        if (!check.present || (IsDeflection(id) && s.checksls == kFalse)) {
            continue;
        }
        result.above = result.above || check.ir > s.irlimit;
        if (!result.rated || check.ir > result.ir) {
            result.ir = check.ir;
            result.governing = id;
        }
        result.rated = true;
    }
}

}  // namespace

std::string PrepareState(const Library& library, ProjectState& s, const Basis& basis)
{
    for (const InputFaults& faults : {Validate(s, &library), Unfinished(s)}) {
        if (faults.count > 0) {
            return FailureText(faults.fault[0]);
        }
    }
    try {
        ArmTrap();
        CalcSection(library, s);
        CheckTrap();
    } catch (const CalculationStop&) {
        ArmTrap();
        return "the section has no properties";
    }
    if (!Covered(s)) {
        return "this family is not covered by the standard basis yet";
    }
    const std::string_view reason = NoSectionReason(library, s, basis);
    return std::string(reason.empty() ? NoLoadsReason(s) : reason);
}

std::string_view NameOf(CheckId id)
{
    constexpr std::array<std::string_view, kCheckIds> kNames = {
        "section_N",    "section_My",  "section_Mz", "section_Vz",          "section_Vy",
        "section_NM",   "section_MV",  "flexural_y", "flexural_z",          "torsional",
        "ltb",          "eq661",       "eq662",      "interaction_outside", "n_above_ncr",
        "deflection_z", "deflection_y"};
    return kNames[static_cast<std::size_t>(id)];
}

std::string_view VerdictOf(const StandardResult& result)
{
    return !result.rated ? "not covered" : result.above ? "above limit" : "within limits";
}

namespace {

// One pass over all combinations. What no deviation switched back reaches is taken from `alike`.
class Pass {
public:
    Pass(const Member& member, const StandardResult* alike, StandardResult& result)
        : m_(member), result_(result), sections_(Needs(alike, kSectionStage, &Reached::sections)),
          buckling_(Needs(alike, kBucklingStage, &Reached::buckling)),
          service_(Needs(alike, kServiceStage, &Reached::service))
    {
    }
    // False where the numerical solution does not take the member.
    bool Strength();
    void Service();

private:
    bool Needs(const StandardResult* alike, const Stage& stage, Deviations Reached::*reached);
    bool CheckCase(const LoadCase& load_case);

    const Member& m_;
    StandardResult& result_;
    const bool sections_, buckling_, service_;  // what has to be calculated
};

// Whether a stage has to be calculated; else its checks are copied.
bool Pass::Needs(const StandardResult* alike, const Stage& stage, Deviations Reached::*reached)
{
    if (alike == nullptr || !alike->rated ||
        m_.basis.Switches(alike->reached.member | alike->reached.*reached)) {
        return true;
    }
    for (std::size_t i = stage.first; i < stage.end; ++i) {
        result_.checks.best[i] = alike->checks.best[i];
    }
    return false;
}

bool Pass::CheckCase(const LoadCase& load_case)
{
    const Basis& basis = m_.basis;
    Reached& reached = result_.reached;
    const CombinedLines lines = LinesOf(m_.s, m_.loads, load_case.factors, basis);
    const ActingForces forces = ActingIn(lines);
    const Classes classes = ClassesOf(m_.section.q, forces, basis);
    reached.member |= basis.MetSince();
    if (sections_) {
        CheckSections(SectionMemberOf(m_, load_case, lines), lines, classes, load_case,
                      result_.checks, basis);
        reached.sections |= basis.MetSince();
    }
    if (!buckling_) {
        return true;
    }
    const bool solved =
        CheckMember(MemberCaseOf(m_, load_case, lines, forces, classes), result_.checks);
    reached.buckling |= basis.MetSince();
    return solved;
}

bool Pass::Strength()
{
    const LoadCases cases = StrengthCases(m_.s, m_.loads.present, m_.basis);
    result_.reached.member = m_.basis.MetSince();
    for (std::size_t i = 0; (sections_ || buckling_) && i < cases.count; ++i) {
        if (!CheckCase(cases.at[i])) {
            return false;
        }
    }
    return true;
}

void Pass::Service()
{
    if (!service_) {
        return;
    }
    const LoadCases cases = ServiceCasesOf(m_);
    for (std::size_t i = 0; i < cases.count; ++i) {
        CheckService(m_, cases.at[i], result_.checks);
    }
    result_.reached.service = m_.basis.MetSince();
}

}  // namespace

StandardResult CalculateStandard(const Library& library, const ProjectState& project,
                                 const Basis& basis, const ProjectState* program,
                                 SolvedLines& solved, const StandardResult* alike)
{
    StandardResult result;
    const auto calculate = [&](const Member& member) {
        if (member.s.modal == 1) {
            result.vibration = alike != nullptr ? alike->vibration : VibrationOf(member.s);
        }
        Pass pass(member, alike, result);
        if (!pass.Strength()) {
            result.outside.push_back("lateral torsional buckling has no numerical solution here");
            return;
        }
        pass.Service();
        NameOutside(library, member, result.outside);
        NameOutsideOfKind(library, member, result.checks, result.outside);
        Govern(member.s, result);
        result.met = basis.met();
        if (!result.rated) {
            result.outside.push_back("no load acts");
        }
    };
    const std::string reason = WithMember(library, project, basis, program, solved, calculate);
    if (!reason.empty()) {
        result.outside.push_back(reason);
        result.met = basis.met();
    }
    return result;
}

StandardResult CalculateStandard(const Library& library, const ProjectState& project,
                                 const Basis& basis, const ProjectState* program)
{
    SolvedLines solved;
    return CalculateStandard(library, project, basis, program, solved, nullptr);
}

}  // namespace kestrum::standard
