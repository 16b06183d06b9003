#include "calculation/chapters.h"
#include "calculation/quantities.h"
#include "calculation/standard_vibration.h"

#include "core/member_choices.h"
#include "sections/families.h"
#include "service/vortex.h"
#include "standard/vibration.h"

#include <array>
#include <cmath>

namespace kestrum {

namespace {

constexpr const char* kWind = "EN 1991-1-4, 4.3";

bool InLists(const ProjectState& s)
{
    return s.vortexcase >= 0 && static_cast<std::size_t>(s.vortexcase) < kVortexSupports.size() &&
           s.terrain >= 0 && static_cast<std::size_t>(s.terrain) < kTerrains.size();
}

// Table E.1; straight lines between its values for rectangles.
void AddStrouhal(const ProjectState& s, Document& d)
{
    constexpr const char* kTable = "EN 1991-1-4, Table E.1";
    if (Traits(s).strouhal == Strouhal::circle) {
        d.Add("St", Num(0.18), s.st, "", kTable, "circle");
        return;
    }
    struct Value {
        double ratio, st;
    };
    constexpr std::array<Value, 6> kRectangle{
        {{1, 0.12}, {2, 0.06}, {3, 0.06}, {3.5, 0.15}, {5, 0.11}, {10, 0.09}}};
    const double ratio = static_cast<double>(s.b) / s.h;
    if (ratio <= kRectangle.front().ratio || ratio > kRectangle.back().ratio) {
        d.Add("St", Num(ratio > 1 ? kRectangle.back().st : kRectangle.front().st), s.st, "", kTable,
              Line("end of the table, d/b = ") + NumberLine(ratio, 4));
        return;
    }
    std::size_t next = 1;
    while (ratio > kRectangle[next].ratio) {
        ++next;
    }
    const Value &from = kRectangle[next - 1], &to = kRectangle[next];
    const Expr share =
        (Sym("d", s.b) / Sym("b", s.h) - Num(from.ratio)) / (Num(to.ratio) - Num(from.ratio));
    d.Add("St", Num(from.st) + share * (Num(to.st) - Num(from.st)), s.st, "", kTable,
          "d along, b across the wind, mm");
}

// EN 1991-1-4, 4.3.1, without orography.
void AddMeanWind(const ProjectState& s, double roughness, const char* symbol, double value,
                 Document& d)
{
    const Terrain& terrain = kTerrains[static_cast<std::size_t>(s.terrain)];
    const Expr z0 = Sym("z_0", roughness);
    const Expr kr = Step(d, "k_r", 0.19 * Power(z0 / Num(0.05), Num(0.07)), "", kWind,
                         Line("terrain ") + Line(terrain.name));
    const double z = s.zh <= terrain.zmin ? terrain.zmin : static_cast<double>(s.zh);
    const Expr cr = Step(d, "c_r", kr * Logarithm(Sym("z", z) / z0), "", kWind);
    d.Add(symbol, cr * Sym("v_b", s.vb), value, "m/s", kWind);
}

// What the critical speed is against its limit.
Line Against(bool below)
{
    return Line().Add(below ? "below " : "not below ",
                      below ? Span::Style::good : Span::Style::bad) +
           Line(Symbol("v_crit"));
}

void AddByProgram(const ProjectState& s, Document& d)
{
    const VortexSupport& support = kVortexSupports[static_cast<std::size_t>(s.vortexcase)];
    const Terrain& terrain = kTerrains[static_cast<std::size_t>(s.terrain)];
    const Expr stiffness = Sym("E", s.e) * Sym("I_y", s.iy) * Ten(-6);
    d.Say("Supports of the control: " + std::string(support.name) + "; member: " +
          std::string(MemberSupport(s)) + (VortexSupportDiffers(s) ? " (D259)." : "."));
    d.Add("f",
          Square(Sym("N", static_cast<double>(support.n))) / (2 * Pi() * Square(Sym("L", s.l))) *
              Root(stiffness / Sym("m", s.weight)),
          s.freq[1], "Hz", "EN 1991-1-4, F.2", "mass of the section alone; D255, D256");
    const double b = s.stb;
    AddStrouhal(s, d);
    d.Add("v_crit", Sym("b", b) * Sym("f", s.freq[1]) / Sym("St", s.st), s.vcrit, "m/s",
          "EN 1991-1-4, E.1.3.1 (1), Eq (E.2)");
    AddMeanWind(s, terrain.z0, "v_m", s.vm, d);
    const double limit = 1.25 * s.vm;
    d.Add("v_lim", 1.25 * Sym("v_m", s.vm), limit, "m/s", "EN 1991-1-4, E.1.2 (2)",
          Against(VortexAccepted(s)) +
              Line(VortexAccepted(s) ? ": no further study" : ": to be studied, E.1.5"));
}

void AddByStandard(const ProjectState& s, Document& d)
{
    const auto other = standard::VortexSheddingOf(s);
    if (!other) {
        return;
    }
    d.Say("By EN 1991-1-4 as written, supports of the member and all mass that moves:",
          Paragraph::Kind::remark);
    const auto study = standard::VortexStudyOf(s).value();
    AddMovedLoads(study, 1, d);
    AddStandardFrequency(s, study, 0, "f_standard", other->freq, "EN 1991-1-4, F.2", d);
    d.Add("v_crit,standard", Sym("b", s.stb) * Sym("f_standard", other->freq) / Sym("St", s.st),
          other->vcrit, "m/s", "EN 1991-1-4, E.1.3.1 (1), Eq (E.2)");
    AddMeanWind(s, other->z0, "v_m,standard", other->vm, d);
    d.Add("v_lim,standard", 1.25 * Sym("v_m,standard", other->vm), 1.25 * other->vm, "m/s",
          "EN 1991-1-4, E.1.2 (2)", Against(other->accepted));
}

}  // namespace

void AddVortexShedding(const CalculatedMember& m, Document& d)
{
    if (!m.vortex || !m.outcome.designed()) {
        return;
    }
    d.Chapter("Vortex shedding");
    if (!VortexFamily(m.s.family) || !InLists(m.s) || !(m.s.l > 0) || !(m.s.weight > 0)) {
        d.Say("The control is for hollow sections, boxes and tubes.");
        return;
    }
    ProjectState s = m.s;
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
    AddByProgram(s, d);
    AddByStandard(s, d);
}

}  // namespace kestrum
