#include "core/basis.h"

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

}  // namespace kestrum
