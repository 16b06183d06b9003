#include "core/annexes.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace kestrum {
namespace {

// The national values of EN 1993-1-1, 6.1 (1) and 6.3.2.3 (1) and EN 1993-1-5, 5.1 (2).
struct AnnexCase {
    const char* code;
    const char* name;
    double gammam0, gammam1, neta, netahigh, lamdalt0w, betaw;
    const char* classname = "";
};

const AnnexCase kAnnexCases[] = {
    {"EU", "EC3", 1.0, 1.0, 1.2, 1.0, 0.4, 0.75},
    {"NO", "EC3 + NA/Norway", 1.05, 1.05, 1.2, 1.0, 0.4, 0.75, "Reliability Class"},
    {"SW", "EC3 + NA/Sweden", 1.0, 1.0, 1.2, 1.0, 0.4, 0.75, "Safety Class"},
    {"DK", "EC3 + NA/Denmark", 1.1, 1.2, 1.2, 1.0, 0.4, 0.75, "Consequences Class"},
    {"UK", "EC3 + NA/United Kingdom", 1.0, 1.0, 1.0, 1.0, 0.2, 1.0},
    {"FI", "EC3 + NA/Finland", 1.0, 1.0, 1.2, 1.0, 0.2, 1.0, "Reliability Class"},
    {"GE", "EC3 + NA/German", 1.0, 1.0, 1.2, 1.0, 0.4, 0.75},
    {"NK", "EC3 + NORSOK", 1.15, 1.15, 1.2, 1.0, 0.4, 0.75},
};

// DIN EN 1993-1-1/NA gives 1.1 for members whose instability is checked.
TEST(Annexes, D24GermanPartialFactorOfInstabilityIs1_0)
{
    ProjectState s{};
    s.fyk = 355;
    ApplyAnnexMaterial(s, kAnnexGe);
    EXPECT_EQ(s.gammam1, 1.0F);
}

TEST(Annexes, SetTheirParameters)
{
    ASSERT_EQ(std::ssize(kAnnexCases), kAnnexUd);  // all but the user's, which is the last
    for (i16 index = 0; index < kAnnexUd; ++index) {
        const AnnexCase& c = kAnnexCases[index];
        SCOPED_TRACE(c.code);
        EXPECT_EQ(AnnexIndexFromCode(c.code), index);
        EXPECT_EQ(AnnexCodeFromIndex(index), c.code);
        EXPECT_EQ(AnnexName(index), c.name);
        EXPECT_EQ(AnnexSuffix(index), std::string(c.name).substr(3));
        EXPECT_EQ(AnnexClassName(index), c.classname);

        ProjectState s{};
        s.fyk = 460;
        ApplyAnnexMaterial(s, index);
        EXPECT_EQ(s.gammam0, c.gammam0);
        EXPECT_EQ(s.gammam1, static_cast<float>(c.gammam1));
        EXPECT_EQ(s.neta, static_cast<float>(c.neta));
        EXPECT_EQ(s.lamdalt0, 0.4f);
        EXPECT_EQ(s.beta, 0.75);
        EXPECT_EQ(s.lamdalt0w, static_cast<float>(c.lamdalt0w));
        EXPECT_EQ(s.betaw, c.betaw);

        s.fyk = 460.5f;
        ApplyAnnexMaterial(s, index);
        EXPECT_EQ(s.neta, static_cast<float>(c.netahigh));
    }
}

TEST(Annexes, UserDefinedKeepsTheValuesOfTheAnnexLeft)
{
    ProjectState s{};
    s.fyk = 355;
    ApplyAnnexMaterial(s, kAnnexDk);
    const ProjectState before = s;

    ApplyAnnexMaterial(s, kAnnexUd);

    EXPECT_EQ(s, before);
    EXPECT_EQ(AnnexIndexFromCode("UD"), kAnnexUd);
    EXPECT_EQ(AnnexName(kAnnexUd), "EC3 - User defined");
    EXPECT_EQ(AnnexClassName(kAnnexUd), "");
}

TEST(Annexes, OnlyNorsokForcesTheUserFactors)
{
    for (int index = 0; index < kAnnexes; ++index) {
        ProjectState s{};
        s.loadcomb = 1;
        ApplyAnnexMaterial(s, index);
        EXPECT_EQ(s.loadcomb, index == kAnnexNk ? 4 : 1) << index;
    }
}

TEST(Annexes, DoNotTouchTheInteractionMethod)
{
    for (int index = 0; index < kAnnexes; ++index) {
        ProjectState s{};
        s.method = 2;
        ApplyAnnexMaterial(s, index);
        EXPECT_EQ(s.method, 2) << index;
    }
}

TEST(Annexes, UnknownCodeIsTheFirstAndUnknownIndexIsNothing)
{
    EXPECT_EQ(AnnexIndexFromCode(""), 0);
    EXPECT_EQ(AnnexIndexFromCode("no"), 0);
    EXPECT_EQ(AnnexIndexFromCode("XX"), 0);
    EXPECT_EQ(AnnexCodeFromIndex(-1), "");
    EXPECT_EQ(AnnexCodeFromIndex(kAnnexes), "");
    EXPECT_EQ(AnnexName(kAnnexes), "");
    EXPECT_EQ(AnnexSuffix(-1), "");
    EXPECT_EQ(AnnexClassName(-1), "");
    EXPECT_EQ(AnnexClassName(kAnnexes), "");
    EXPECT_EQ(AnnexSuffix(0), "");
    ProjectState s{};
    ApplyAnnexMaterial(s, kAnnexes);
    ApplyAnnexMaterial(s, -1);
    EXPECT_EQ(s, ProjectState{});
}

}  // namespace
}  // namespace kestrum
