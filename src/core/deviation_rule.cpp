// The rule of a deviation where its design note would say too much.

#include "core/deviation.h"

#include <algorithm>
#include <array>

namespace kestrum {

namespace {

struct Rule {
    Dev deviation;
    std::string_view text;
};

// clang-format off
#define RULE(number, text) Rule{Dev::d##number, text}

// Those whose note names a side or a cause that does not hold wherever the rule acts.
constexpr std::array kRules = {
    RULE(103,
        "The self-weight is taken with 10 m/s2, 2 % too heavy."),
    RULE(107,
        "The shape of the moment line is judged on its right half and by its middle; EN "
        "1993-1-1, Tables A.2 and B.3 ask for the whole line."),
    RULE(208,
        "The interaction factors of Annex A leave the torsional critical force of the section "
        "out."),
    RULE(209,
        "The torsional-flexural critical force couples with buckling about y instead of z (EN "
        "1993-1-1, 6.3.1.4)."),
    RULE(217,
        "The moment factor of Annex A combines the serviceability deflection with the strength "
        "moment; EN 1993-1-1, Table A.2 takes both of the same loads."),
    RULE(233,
        "The critical moment between lateral restraints takes a straight moment line and no load "
        "level, and with end forces too, whatever C factors are entered; EN 1993-1-1, 6.3.2.2 (2) "
        "takes the real moment line and the loads."),
    RULE(234,
        "The C factors follow the supports and the kind of moment line; EN 1993-1-1, 6.3.2.2 (2) "
        "takes the real moment line, with the moments on the ends."),
    RULE(235,
        "kc of the reduction for lateral torsional buckling is 1/sqrt(C1); EN 1993-1-1, Table 6.6 "
        "has values of its own."),
    RULE(242,
        "Cm,0 of Annex A is that of a uniform load or of a point load at mid-span; EN 1993-1-1, "
        "Table A.2 has a general form for other loads."),
};

#undef RULE
// clang-format on

}  // namespace

std::string_view RuleOf(Dev deviation)
{
    const auto* const found = std::find_if(kRules.begin(), kRules.end(), [&](const Rule& rule) {
        return rule.deviation == deviation;
    });
    return found == kRules.end() ? TextOf(deviation) : found->text;
}

}  // namespace kestrum
