#include "service/modal.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "core/number_format.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace kestrum {

namespace {

using Constants = std::array<double, 3>;

// D253; null for supports without a formula.
const Constants* ConstantsOf(int supportcase)
{
    static constexpr Constants kPinned{1.57, 6.28, 14.1};
    static constexpr Constants kPropped{2.45, 7.95, 16.6};
    static constexpr Constants kFixed{3.56, 9.82, 19.2};
    static constexpr Constants kCantilever{0.56, 3.51, 9.82};
    switch (supportcase) {
    case SupportCase::pinned:
        return &kPinned;
    case SupportCase::pinned_fixed:
        return &kPropped;
    case SupportCase::fixed:
        return &kFixed;
    case SupportCase::cantilever:
        return &kCantilever;
    default:
        return nullptr;
    }
}

}  // namespace

void CalcModal(const Inputs& in, const SectionRecord& section, Service& service)
{
    constexpr double kMassOfLoad = 102;  // kg/m in 1 kN/m, D252
    const Constants* constants = ConstantsOf(in.supportcase);
    if (constants == nullptr && in.supportcase != SupportCase::springs) {
        return;
    }
    double load = 0;  // kN/m
    for (std::size_t k = 1; k <= 4; ++k) {
        load += in.qload[k];
    }
    service.modalmass = F32(section.weight + kMassOfLoad * load);
    if (constants == nullptr) {
        return;
    }
    const double l = in.l;
    const double stiffness = static_cast<double>(section.iy) * in.e * 1e-6;  // Nm2
    const double base = std::sqrt(stiffness / (l * l * l * l * service.modalmass));
    for (std::size_t n = 0; n < constants->size(); ++n) {
        service.freq[n + 1] = F32((*constants)[n] * base);
    }
}

std::string MassText(const Service& service)
{
    return service.modalmass == 0 ? std::string{}
                                  : "Mass: m = " + FormatNum(service.modalmass, "#0") + " kg/m";
}

std::string ModeText(const Service& service, int mode)
{
    const float f = service.freq[CheckedIndex(mode, service.freq.size())];
    if (f == 0) {
        return {};
    }
    return "Mode " + FormatNum(static_cast<double>(mode), "0") + ": " + FormatNum(f, "#0.00") +
           " Hz/" + FormatNum(1.0 / f, "#0.00") + "s";
}

}  // namespace kestrum
