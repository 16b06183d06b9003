#include "service/vortex.h"

#include "core/arithmetic_trap.h"
#include "core/number_format.h"
#include "sections/families.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace kestrum {

namespace {

// Supports of members by supportcase, and the same in the list of the control; springs have no
// match, and the softest state they can have is pinned.
struct Support {
    std::string_view name;
    int vortexcase;
    bool springs = false;
};
constexpr std::array<Support, 6> kMemberSupports{{{"pinned-pinned", 0},
                                                  {"pinned-fixed", 1},
                                                  {"fixed-fixed", 2},
                                                  {"springs", 0, true},
                                                  {"cantilever", 3},
                                                  {"pinned-spring", 0, true}}};

const Support* SupportOf(const Inputs& in)
{
    const auto at = static_cast<std::size_t>(in.supportcase);
    return in.supportcase >= 0 && at < kMemberSupports.size() ? &kMemberSupports[at] : nullptr;
}

std::string ProfileText(const Inputs& in, const SectionRecord& section)
{
    const std::string tw = FormatNum(section.tw, "##0.0");
    const FamilyTraits& family = Traits(in);
    if (family.kind == Kind::tube) {
        return "Tube " + FormatNum(in.p31.istd, "##0.0") + "x" + tw;
    }
    const std::string size =
        FormatNum(section.h, "##0") + "x" + FormatNum(section.b, "##0") + "x" + tw;
    if (family.kind == Kind::hollow) {
        return std::string(family.text) + " " + size;
    }
    return "Box " + size + "x" + FormatNum(section.tf, "##0.0");
}

}  // namespace

bool VortexFamily(int family)
{
    return TraitsOf(family).strouhal != Strouhal::none;
}

std::string_view VortexRefusal(int family)
{
    return MayBeFamily(family) && !VortexFamily(family) ? "Only valid for boxes and tubes" : "";
}

std::string_view MemberSupport(const Inputs& in)
{
    const Support* const support = SupportOf(in);
    return support != nullptr ? support->name : std::string_view{};
}

bool VortexSupportDiffers(const Inputs& in)
{
    const Support* const support = SupportOf(in);
    return support != nullptr && (support->springs || support->vortexcase != in.vortexcase);
}

bool VortexSupportIsStiffer(const Inputs& in)
{
    const Support* const support = SupportOf(in);
    const auto at = static_cast<std::size_t>(in.vortexcase);
    return support != nullptr && in.vortexcase >= 0 && at < kVortexSupports.size() &&
           kVortexSupports[at].n > kVortexSupports[static_cast<std::size_t>(support->vortexcase)].n;
}

void CalcVortexFrequency(const Inputs& in, const SectionRecord& section, Service& service)
{
    constexpr float kTwoPi = 6.2831855F;
    const double n = kVortexSupports[CheckedIndex(in.vortexcase, kVortexSupports.size())].n;
    const double stiffness = static_cast<double>(section.iy) * in.e * 1e-6;  // Nm2
    const double l = in.l;
    service.freq[1] = F32(n * n * std::sqrt(stiffness / section.weight) / (kTwoPi * l * l));
}

double StrouhalOfRectangle(double r)
{
    if (r <= 1) {
        return 0.12;
    }
    if (r <= 2) {
        return 0.12 - (r - 1) * 0.06;
    }
    if (r <= 3) {
        return 0.06;
    }
    if (r <= 3.5) {
        return 0.06 + (r - 3) * 0.09 / 0.5;
    }
    if (r <= 5) {
        return 0.15 - (r - 3.5) * 0.04 / 1.5;
    }
    if (r <= 10) {
        return 0.11 - (r - 5) * 0.02 / 5;
    }
    return 0.09;
}

void CalcVortex(const Inputs& in, const SectionRecord& section, Service& service)
{
    constexpr double kStrouhalOfTube = 0.18;
    constexpr double kMetre = 1000;  // mm
    if (Traits(in).strouhal == Strouhal::circle) {
        service.stb = F32(in.p31.istd / kMetre);
        service.st = F32(kStrouhalOfTube);
    } else {
        service.stb = F32(section.h / kMetre);
        service.st = F32(StrouhalOfRectangle(static_cast<double>(section.b) / section.h));
    }
    service.vcrit = F32(static_cast<double>(service.stb) * service.freq[1] / service.st);

    // EN 1991-1-4, 4.3.1 and 4.3.2, without orography.
    const Terrain& terrain = kTerrains[CheckedIndex(in.terrain, kTerrains.size())];
    const double kr = 0.19 * std::pow(terrain.z0 / 0.05, 0.07);
    const double z = in.zh <= terrain.zmin ? terrain.zmin : in.zh;
    const double cr = kr * std::log(z / terrain.z0);
    service.vm = F32(in.vb * cr);
}

bool ControlVortices(const Inputs& in, const SectionRecord& section, Service& service)
{
    try {
        ArmTrap();
        CalcVortexFrequency(in, section, service);
        CalcVortex(in, section, service);
        CheckTrap();
    } catch (const CalculationStop&) {
        return false;
    }
    return true;
}

bool VortexAccepted(const Service& service)
{
    return 1.25 * service.vm < service.vcrit;
}

std::string VortexMeanText(const Service& service)
{
    return FormatNum(service.vm, "#0.0") + " m/s";
}

std::string VortexCriticalText(const Service& service)
{
    return FormatNum(service.vcrit, "#0.0") + " m/s";
}

std::string VortexFrequencyText(const Service& service)
{
    return FormatNum(service.freq[1], "#0.0") + " Hz";
}

std::string_view VortexVerdict(const Service& service)
{
    return VortexAccepted(service) ? " OK " : " NOK ";
}

std::string_view VortexRestraint(const Inputs& in)
{
    const auto at = static_cast<std::size_t>(in.vortexcase);
    return in.vortexcase >= 0 && at < kVortexSupports.size() ? kVortexSupports[at].name : "";
}

std::vector<VortexRow> VortexGrid(const Inputs& in, const SectionRecord& section,
                                  const Service& service)
{
    return {{" E = ", FormatNum(in.e, "0.000E+0"), " MPa"},
            {" Profile", ProfileText(in, section), ""},
            {" Profile height b = ", FormatNum(section.h, "0.0"), " mm"},
            {" Mass", FormatNum(section.weight, "0.0 "), " kg/m"},
            {" Iy =", FormatNum(section.iy, "0.000E+0"), " mm4"},
            {" Strouhal number", FormatNum(service.st, "0.00 "), ""},
            {" Length L =", FormatNum(in.l, "0.000"), " m"}};
}

}  // namespace kestrum
