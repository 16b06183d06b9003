#include "standard/elastic_critical_moment.h"

#include "clauses/flexural.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "standard/lateral_line.h"
#include "standard/moment_shape.h"
#include "standard/units.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum::standard {

namespace {

double LoadLevel(const ProjectState& s, const StandardSection& q)
{
    if (q.kind == Kind::general) {
        return 0;  // where its edges lie is not entered
    }
    switch (s.loadlevel) {
    case 1:
        return q.above;
    case 3:
        return -q.below;
    case 4:
        return s.za;
    default:
        return 0;
    }
}

LateralSection SectionFor(const StandardSection& q)
{
    const double sideways = q.Angle() ? q.angle.iv : q.iz;
    return {q.e * sideways, q.Warps() ? q.e * q.iw : 0, q.e / 2.6 * q.it, q.zj};
}

// k of the supports: those that are not 0.5, 0.7 or 1 stretch the moment line over kL.
struct Ends {
    LateralEnd start = LateralEnd::fork, end = LateralEnd::fork;
    double stretch = 1;
};

Ends EndsOf(const ProjectState& s)
{
    constexpr double kNear = 1e-4;
    if (s.supportcase == SupportCase::cantilever) {
        return {LateralEnd::clamped, LateralEnd::free, 1};
    }
    if (std::abs(s.ltbk - 0.5) < kNear) {
        return {LateralEnd::clamped, LateralEnd::clamped, 1};
    }
    if (std::abs(s.ltbk - 0.7) < kNear) {
        return {LateralEnd::fork, LateralEnd::clamped, 1};
    }
    return {LateralEnd::fork, LateralEnd::fork, s.ltbk};
}

// pi/L sqrt(EIz (GIt + pi^2 EIw/L^2)), Nmm.
double UniformMoment(const LateralSection& section, double length)
{
    const double wave = std::numbers::pi / length;
    return wave * std::sqrt(section.eiz * (section.git + wave * wave * section.eiw));
}

double LargestBetween(const CombinedLines& lines, double x0, double x1)
{
    double largest = 0;
    for (const double m : SampledMoments(lines, Axis::y, x0, x1)) {
        largest = std::max(largest, std::abs(m));
    }
    return largest;
}

// Resultant of the loads along z: its sign is that of the load level's effect.
double Resultant(const MemberLoads& loads, const LoadFactors& factors)
{
    double sum = 0;
    for (std::size_t i = 0; i < loads.count; ++i) {
        const Load& load = loads.load[i];
        if (load.about_y) {
            const double size =
                load.point ? load.at.force
                           : (load.line.q1 + load.line.q2) / 2 * (load.line.x2 - load.line.x1);
            sum += FactorOn(factors, load.category) * size;
        }
    }
    return sum;
}

// 1 where the loads act downwards, -1 under uplift. D213: the program does not turn the load level.
double SenseOfLoads(const LateralCase& m)
{
    const double resultant = Resultant(m.loads, m.factors);
    return resultant > 0 ? 1 : resultant < 0 ? -1 : 0;
}

// Closed formula with the C factors of the user, Nmm.
double ClosedMoment(const LateralCase& m, bool sagging, CriticalTerms& terms)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const LateralSection section = SectionFor(q);
    const double length = s.ltbk * s.l * kMm / (s.restraints + 1);
    const double sense = SenseOfLoads(m);
    const double level = LoadLevel(s, q) - q.centre_z;
    const double zg = sense < 0 ? m.basis.pick(Dev::d213, level, -level) : sense * level;
    const double zj = sagging ? q.zj : -q.zj_hogging;
    terms = {.route = CriticalRoute::closed, .length = length, .zg = zg, .zj = zj};
    const double lever = s.c2 * zg - s.c3 * zj;
    const double euler = clauses::EulerLoad(q.e, q.iz, length);
    return s.c1 * euler *
           (std::sqrt(section.eiw / section.eiz + section.git / euler + lever * lever) - lever);
}

// Unequal angles lie outside the model of the numerical solution, which bends in a plane of
// symmetry: uniform moment about u, Nmm.
double UnequalAngleMoment(const ProjectState& s, const StandardSection& q, bool positive,
                          CriticalTerms& terms)
{
    const LateralSection section = SectionFor(q);
    const double length = s.ltbk * s.l * kMm;
    const double euler = clauses::EulerLoad(q.e, q.angle.iv, length);
    const double zj = positive ? AsymmetryOfAngle(q) : -AsymmetryOfAngle(q);
    terms = {.route = CriticalRoute::angle, .length = length, .zj = zj};
    return euler * (std::sqrt(section.git / euler + zj * zj) + zj);
}

// The member as the numerical solution takes it.
struct NumericalModel {
    LateralLine line;
    LateralSection section;
    Ends ends;
    std::array<double, kMaxHeld> held{};
    std::size_t restraints;
    double above;  // loads above the shear centre, mm

    LateralSupports Supports() const { return {ends.start, ends.end, {held.data(), restraints}}; }
};

NumericalModel ModelOf(const LateralCase& m, bool sagging)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const CombinedLines& lines = m.lines;
    const Ends ends = EndsOf(s);
    NumericalModel model{LateralLine(lines, 0, lines.grid.Length(), ends.stretch),
                         SectionFor(q),
                         ends,
                         {},
                         static_cast<std::size_t>(std::max<int>(s.restraints, 0)),
                         0};
    const double level = LoadLevel(s, q);
    double above = level - q.centre_z;
    if (SenseOfLoads(m) < 0) {
        above = m.basis.pick(Dev::d213, -above, above);
    }
    model.above = above;
    model.line.AddLevels(m.loads, m.factors, above + q.centre_z, q.centre_z);
    for (std::size_t i = 0; i < std::min(model.restraints, kMaxHeld); ++i) {
        model.held[i] = model.line.At(lines.grid.Length() * static_cast<double>(i + 1) /
                                      static_cast<double>(model.restraints + 1));
    }
    model.section.zj = sagging ? q.zj : q.zj_hogging;
    return model;
}

double NumericalMoment(const LateralCase& m, double moment, CriticalTerms& terms)
{
    const NumericalModel model = ModelOf(m, moment > 0);
    const double alpha = m.solved.Factor(model.section, model.Supports(), model.line.Line());
    terms = {.route = CriticalRoute::numerical, .factor = alpha};
    return alpha * std::abs(moment) * kNmm;
}

// Nmm, as the program's pass left it: of the segment that holds MEd,max, or of the whole member.
double ProgramMoment(const LateralCase& m, double x)
{
    if (FormulaOf(m.s) != Dev::d233) {
        return m.program->mcr;
    }
    const double each = m.s.l / (m.s.restraints + 1);
    const double number = std::clamp(std::ceil(x / each - kSamePlace), 1.0, m.s.restraints + 1.0);
    return m.program->segmcr[static_cast<std::size_t>(number)];
}

}  // namespace

Dev FormulaOf(const ProjectState& s)
{
    if (s.restraints > 0 || s.loadmode != 1) {
        return Dev::d233;  // segments
    }
    return s.supportcase == SupportCase::cantilever ? Dev::d238 : Dev::d234;
}

PieceTerms PieceAlone(const LateralCase& m, double x0, double x1)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const CombinedLines& lines = m.lines;
    LateralSection section = SectionFor(q);
    section.zj = 0;
    const bool whole = s.restraints == 0;
    const Ends ends = whole ? EndsOf(s) : Ends{};
    const LateralLine line(lines, x0, x1, ends.stretch);
    const double alpha = m.solved.Factor(section, {ends.start, ends.end, {}}, line.Line());
    const double effective = whole && s.supportcase != SupportCase::cantilever ? s.ltbk : 1;
    const double length = effective * (x1 - x0) * kMm;
    const double moment = LargestBetween(lines, x0, x1), uniform = UniformMoment(section, length);
    return {alpha * moment * kNmm / uniform, length, alpha, moment, uniform / kNmm};
}

double CriticalMomentOf(const LateralCase& m, const LineExtreme& most, CriticalTerms& terms)
{
    if (m.p.q.Angle()) {  // no C factors are entered for it
        return m.p.q.angle.equal ? NumericalMoment(m, most.value, terms)
                                 : UnequalAngleMoment(m.s, m.p.q, most.value > 0, terms);
    }
    const bool entered = m.s.cmanual != kFalse;
    const Dev formula = FormulaOf(m.s);
    // D233: between restraints and with end forces the program does not take entered C factors.
    const bool as_entered = entered && formula != Dev::d233;
    if (!as_entered && !m.basis.departs(formula) && m.program != nullptr) {
        const double of_program = ProgramMoment(m, most.x);
        if (of_program > 0) {  // else the program's pass had no control
            terms.route = CriticalRoute::program;
            return of_program;
        }
    }
    return entered ? ClosedMoment(m, most.value > 0, terms) : NumericalMoment(m, most.value, terms);
}

UniformMomentTerms UniformCriticalMoment(const ProjectState& s, const StandardSection& q,
                                         const Basis& basis)
{
    const double k = s.ltbk;
    const LateralSection section = SectionFor(q);
    const auto terms = [&](double factor, double c1) {
        const double length = factor * s.l * kMm / (s.restraints + 1);
        return UniformMomentTerms{length, section.eiw, c1 * UniformMoment(section, length) / kNmm};
    };
    // D244: kL for every k, with C1 from 1.05 (k = 0.5) to 1 (k = 1) and on in a straight line.
    if (k != 1 && !basis.departs(Dev::d244)) {
        return terms(k, 1.05 - 0.05 * (k - 0.5) / 0.5);
    }
    return terms(std::max(1.0, k), 1);
}

std::optional<NumericalStudy> NumericalStudyOf(const LateralCase& m)
{
    const LineExtreme most = m.lines.LargestMoment(Axis::y);
    if (most.value == 0) {
        return std::nullopt;
    }
    const NumericalModel model = ModelOf(m, most.value > 0);
    const double piece =
        m.lines.grid.Length() / static_cast<double>(std::max<int>(m.s.restraints, 0) + 1);
    NumericalStudy study{.section = model.section,
                         .start = model.ends.start,
                         .end = model.ends.end,
                         .stretch = model.ends.stretch,
                         .level = model.above,
                         .restraints = model.restraints,
                         .moments = {},
                         .piece = piece,
                         .uniform = UniformMoment(model.section, piece * kMm) / kNmm,
                         .shape = {}};
    const MomentLine line = model.line.Line();
    const double alpha = m.solved.Factor(model.section, model.Supports(), line);
    if (!std::isfinite(alpha)) {
        return std::nullopt;
    }
    study.shape = BucklingShapeAt(alpha, model.section, model.Supports(), line);
    for (std::size_t i = 0; i < study.moments.size(); ++i) {
        const double x = m.lines.grid.Length() * static_cast<double>(i) /
                         static_cast<double>(study.moments.size() - 1);
        study.moments[i] = m.lines.Moment(Axis::y, PieceAt(m.lines.grid, x), x);
    }
    return study;
}

}  // namespace kestrum::standard
