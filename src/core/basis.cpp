#include "core/basis.h"

#include <algorithm>
#include <array>

namespace kestrum {

namespace {

struct Described {
    std::string_view name, text;
};

constexpr std::array<Described, kDeviations> kDescribed = {{
#define KESTRUM_DEVIATION(number, text) {"D" #number, text},
#include "core/deviation_list.inc"
#undef KESTRUM_DEVIATION
}};

}  // namespace

std::string_view NameOf(Dev deviation)
{
    return kDescribed[IndexOf(deviation)].name;
}

std::string_view TextOf(Dev deviation)
{
    return kDescribed[IndexOf(deviation)].text;
}

std::optional<Dev> DeviationOf(std::string_view name)
{
    const auto found = std::find_if(kDescribed.begin(), kDescribed.end(),
                                    [&](const Described& at) { return at.name == name; });
    if (found == kDescribed.end()) {
        return std::nullopt;
    }
    return static_cast<Dev>(found - kDescribed.begin());
}

}  // namespace kestrum
