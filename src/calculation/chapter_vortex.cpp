#include "calculation/chapters.h"
#include "calculation/quantities.h"

#include "service/vortex.h"
#include "standard/vibration.h"

namespace kestrum {

namespace {

constexpr const char* kWind = "EN 1991-1-4, 4.3";

bool InLists(const ProjectState& s)
{
    return s.vortexcase >= 0 && static_cast<std::size_t>(s.vortexcase) < kVortexSupports.size() &&
           s.terrain >= 0 && static_cast<std::size_t>(s.terrain) < kTerrains.size();
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
    d.Add("St", s.st, "", "EN 1991-1-4, Table E.1");
    d.Add("v_crit", Sym("b", b) * Sym("f", s.freq[1]) / Sym("St", s.st), s.vcrit, "m/s",
          "EN 1991-1-4, E.1.3.1 (1), Eq (E.2)");
    const Expr z0 = Sym("z_0", terrain.z0);
    const Expr kr = Step(d, "k_r", 0.19 * Power(z0 / Num(0.05), Num(0.07)), "", kWind,
                         Line("terrain ") + Line(terrain.name));
    const double z = s.zh <= terrain.zmin ? terrain.zmin : static_cast<double>(s.zh);
    const Expr cr = Step(d, "c_r", kr * Logarithm(Sym("z", z) / z0), "", kWind);
    d.Add("v_m", cr * Sym("v_b", s.vb), s.vm, "m/s", kWind);
    const double limit = 1.25 * s.vm;
    d.Add("v_lim", 1.25 * Sym("v_m", s.vm), limit, "m/s", "EN 1991-1-4, E.1.2 (2)",
          Line().Add(VortexAccepted(s) ? "below v_crit: no further study"
                                       : "not below v_crit: to be studied, E.1.5",
                     VortexAccepted(s) ? Span::Style::good : Span::Style::bad));
}

void AddByStandard(const ProjectState& s, Document& d)
{
    const auto other = standard::VortexSheddingOf(s);
    if (!other) {
        return;
    }
    d.Say("By EN 1991-1-4 as written, supports of the member and all mass that moves:",
          Paragraph::Kind::remark);
    d.Add("f_standard", other->freq, "Hz", "EN 1991-1-4, F.2");
    d.Add("v_crit,standard", other->vcrit, "m/s", "EN 1991-1-4, E.1.3.1 (1), Eq (E.2)");
    d.Add("v_m,standard", other->vm, "m/s", kWind);
    d.Add("v_lim,standard", 1.25 * Sym("v_m,standard", other->vm), 1.25 * other->vm, "m/s",
          "EN 1991-1-4, E.1.2 (2)",
          Line().Add(other->accepted ? "below v_crit" : "not below v_crit",
                     other->accepted ? Span::Style::good : Span::Style::bad));
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
