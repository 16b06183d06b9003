// The combinations of a member by themselves.

#include "standard/cases.h"

#include "standard/standard_member.h"

namespace kestrum {
namespace {

using standard::CheckId;

// HEA 200 of 0.8 m does not buckle: 6.2.4 and 6.3.1 have one ratio about both axes, of which the
// first is named, in the combination as in the member.
TEST(Cases, FirstOfEqualRatiosGoverns)
{
    Member s = Unloaded(0.8F, 235).Section("HEA 200");
    s.nload[1] = 100;
    const auto result = Rated(s);
    ASSERT_EQ(Ratio(result, CheckId::flexural_z), Ratio(result, CheckId::section_n));
    EXPECT_EQ(result.governing, CheckId::section_n);
    const auto cases = standard::CalculateCases(Delivered(), s);
    ASSERT_FALSE(cases.empty());
    EXPECT_EQ(cases[0].governing, CheckId::section_n);
    EXPECT_EQ(cases[0].ir, Ratio(result, CheckId::section_n));
}

}  // namespace
}  // namespace kestrum
