// Deviations of the member checks: the value of the standard and, with one of them switched back,
// that of the program.

#include "standard/standard_member.h"

namespace kestrum {
namespace {

using standard::CheckId;

// UPE 200, 0.2 m, S235, A 2900 mm2, Wpl,y 220 cm3 (EN 10279 tables): no slenderness is above 0.2,
// so that chi is 1 and the amplification below one thousandth. 200 kN and 20 kNm at both ends:
//   sum      200/681.5 + 20/51.7
//   Annex B  kyy = Cmy (1 + (lam - 0.2) n) with Cmy = 1 for equal end moments, just below 1 here
TEST(DeviationsOfMembers, D240ChannelsTakeTheInteractionOfISections)
{
    ProjectState s = Named("UPE 200", 0.2F, 235);
    s.method = 2;
    EndForces(s, 200, 20, 0);
    const auto standard = Rated(s);
    EXPECT_NEAR(Ratio(standard, CheckId::interaction_outside), 200 / 681.5 + 20 / 51.7, 2e-3);
    EXPECT_LT(Ratio(standard, CheckId::eq661), 0);
    const auto program = standard::CalculateStandard(Delivered(), s, Basis::StandardBut(Dev::d240));
    EXPECT_LT(Ratio(program, CheckId::interaction_outside), 0);
    EXPECT_LT(Ratio(program, CheckId::eq661), Ratio(standard, CheckId::interaction_outside));
    EXPECT_GT(Ratio(program, CheckId::eq661), 200 / 681.5 + 0.9 * 20 / 51.7);
}

}  // namespace
}  // namespace kestrum
