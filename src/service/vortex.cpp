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

const Support* SupportOf(const ProjectState& s)
{
    const auto at = static_cast<std::size_t>(s.supportcase);
    return s.supportcase >= 0 && at < kMemberSupports.size() ? &kMemberSupports[at] : nullptr;
}

std::string ProfileText(const ProjectState& s)
{
    const std::string tw = FormatNum(s.tw, "##0.0");
    const FamilyTraits& family = Traits(s);
    if (family.kind == Kind::tube) {
        return "Tube " + FormatNum(s.p31.istd, "##0.0") + "x" + tw;
    }
    const std::string size = FormatNum(s.h, "##0") + "x" + FormatNum(s.b, "##0") + "x" + tw;
    return family.kind == Kind::hollow ? std::string(family.text) + " " + size
                                       : "Box " + size + "x" + FormatNum(s.tf, "##0.0");
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

std::string_view MemberSupport(const ProjectState& s)
{
    const Support* const support = SupportOf(s);
    return support != nullptr ? support->name : std::string_view{};
}

bool VortexSupportDiffers(const ProjectState& s)
{
    const Support* const support = SupportOf(s);
    return support != nullptr && (support->springs || support->vortexcase != s.vortexcase);
}

bool VortexSupportIsStiffer(const ProjectState& s)
{
    const Support* const support = SupportOf(s);
    const auto at = static_cast<std::size_t>(s.vortexcase);
    return support != nullptr && s.vortexcase >= 0 && at < kVortexSupports.size() &&
           kVortexSupports[at].n > kVortexSupports[static_cast<std::size_t>(support->vortexcase)].n;
}

void CalcVortexFrequency(ProjectState& s)
{
    constexpr float kTwoPi = 6.2831855F;
    const double n = kVortexSupports[CheckedIndex(s.vortexcase, kVortexSupports.size())].n;
    const double stiffness = static_cast<double>(s.iy) * s.e * 1e-6;  // Nm2
    const double l = s.l;
    s.freq[1] = F32(n * n * std::sqrt(stiffness / s.weight) / (kTwoPi * l * l));
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

void CalcVortex(ProjectState& s)
{
    constexpr double kStrouhalOfTube = 0.18;
    constexpr double kMetre = 1000;  // mm
    if (Traits(s).strouhal == Strouhal::circle) {
        s.stb = F32(s.p31.istd / kMetre);
        s.st = F32(kStrouhalOfTube);
    } else {
        s.stb = F32(s.h / kMetre);
        s.st = F32(StrouhalOfRectangle(static_cast<double>(s.b) / s.h));
    }
    s.vcrit = F32(static_cast<double>(s.stb) * s.freq[1] / s.st);

    // EN 1991-1-4, 4.3.1 and 4.3.2, without orography.
    const Terrain& terrain = kTerrains[CheckedIndex(s.terrain, kTerrains.size())];
    const double kr = 0.19 * std::pow(terrain.z0 / 0.05, 0.07);
    const double z = s.zh <= terrain.zmin ? terrain.zmin : s.zh;
    const double cr = kr * std::log(z / terrain.z0);
    s.vm = F32(s.vb * cr);
}

bool VortexAccepted(const ProjectState& s)
{
    return 1.25 * s.vm < s.vcrit;
}

std::string VortexMeanText(const ProjectState& s)
{
    return FormatNum(s.vm, "#0.0") + " m/s";
}

std::string VortexCriticalText(const ProjectState& s)
{
    return FormatNum(s.vcrit, "#0.0") + " m/s";
}

std::string VortexFrequencyText(const ProjectState& s)
{
    return FormatNum(s.freq[1], "#0.0") + " Hz";
}

std::string_view VortexVerdict(const ProjectState& s)
{
    return VortexAccepted(s) ? " OK " : " NOK ";
}

std::string_view VortexRestraint(const ProjectState& s)
{
    const auto at = static_cast<std::size_t>(s.vortexcase);
    return s.vortexcase >= 0 && at < kVortexSupports.size() ? kVortexSupports[at].name : "";
}

std::vector<VortexRow> VortexGrid(const ProjectState& s)
{
    return {{" E = ", FormatNum(s.e, "0.000E+0"), " MPa"},
            {" Profile", ProfileText(s), ""},
            {" Profile height b = ", FormatNum(s.h, "0.0"), " mm"},
            {" Mass", FormatNum(s.weight, "0.0 "), " kg/m"},
            {" Iy =", FormatNum(s.iy, "0.000E+0"), " mm4"},
            {" Strouhal number", FormatNum(s.st, "0.00 "), ""},
            {" Length L =", FormatNum(s.l, "0.000"), " m"}};
}

}  // namespace kestrum
