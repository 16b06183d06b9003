// The program's rules and the standard are one where no departure acts, over members of every
// family (kestrum-agreement counts more of them). Every difference between both bases is thus one
// of the numbered ones.

#include "compare_bases.h"
#include "sections/families.h"
#include "standard/standard_member.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

TEST(Agreement, NothingButNumberedDeviationsSeparatesBothBases)
{
    constexpr std::size_t kMembers = 80;
    BothBases all;
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        BothBases sum;
        for (std::size_t number = 0; number < kMembers; ++number) {
            CompareBases(
                Delivered(), number, family,
                [](std::size_t which, const ProjectState&, const Outcome& program,
                   const standard::StandardResult& result) {
                    ADD_FAILURE() << which << ": " << program.ir << " and " << result.ir;
                },
                sum);
        }
        EXPECT_GT(sum.same_rules, 0);
        all.same_rules += sum.same_rules;
    }
    EXPECT_GT(all.same_rules, 500);
}

}  // namespace
}  // namespace kestrum
