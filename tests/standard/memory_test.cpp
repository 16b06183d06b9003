// A pass by the standard takes no memory of its own: what it says in words does.

#include "standard/standard_member.h"
#include "support/counted_memory.h"

namespace kestrum {
namespace {

using counted_memory::requests;

TEST(Memory, APassTakesNone)
{
    for (const int family : {1, 5, 7, 10, 21, 22, 23, 24, 27, 56}) {
        SCOPED_TRACE(family);
        Member s = Unloaded(6, 355).Family(family);
        s.hsqopt = 1;
        s.nload[1] = 20;
        s.qload[1] = 3;
        s.qload[2] = 2;
        s.qtype[2] = 1;
        s.pm[1] = 5;
        s.pmx[1] = 1.5F;
        s.pmdir[1] = 1;
        s.ltb = 1;
        s.method = 1;
        s.loadcomb = kEq610ab;
        Rated(s);  // the first pass may read what is read once
        const long before = requests;
        const standard::StandardResult result = Rated(s);
        const long taken = requests - before;
        EXPECT_TRUE(result.rated);
        if (result.outside.empty()) {
            EXPECT_EQ(taken, 0);
        }
    }
}

}  // namespace
}  // namespace kestrum
