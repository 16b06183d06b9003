#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace kestrum {
namespace {

struct Material {
    double gammam0, gammam1, neta, netahigh, lamdalt0w, betaw;
};
struct Loads {
    float g610g, g610q1, g610q2, g610ag, g610aq1, g610aq2, g610bg, xi;
};

// The national values of EN 1993-1-1, 6.1 (1) and 6.3.2.3 (1), EN 1993-1-5, 5.1 (2) and EN 1990,
// Table A1.2(B) and B3.3; the factors of safetyclass 0 to 3 outside Eq 6.10; the texts with psi
// 0.7 and 0.3 in one class.
struct AnnexCase {
    const char* code;
    const char* name;
    const char* classname;
    Material material;
    Loads loads;
    double g[4], q[4];
    i16 safetyclass;
    const char* eq610;
    const char* eq610a;
    const char* eq610b;
};

const AnnexCase kAnnexCases[] = {
    {"EU",
     "EC3",
     "",
     {1.0, 1.0, 1.2, 1.0, 0.4, 0.75},
     {1.35f, 1.5f, 1.5f, 1.35f, 1.5f, 1.5f, 1.35f, 0.85f},
     {1, 1, 1, 1},
     {1, 1, 1, 1},
     3,
     "ULS: Eq 6.10: LC = 1.35*G + 1.5*Q1 + 1.5*0.7*Q2",
     "ULS: Eq 6.10a: LC = 1.35*G + 1.5*0.7*Q1 + 1.5*0.3*Q2",
     "ULS: Eq 6.10b: LC = 0.85*1.35*G + 1.5*Q1 + 1.5*0.3*Q2"},
    {"NO",
     "EC3 + NA/Norway",
     "Reliability Class",
     {1.05, 1.05, 1.2, 1.0, 0.4, 0.75},
     {1.35f, 1.5f, 1.5f, 1.35f, 1.5f, 1.5f, 1.35f, 0.89f},
     {1, 1, 1, 1},
     {1, 0.9, 1, 1},
     1,
     "ULS: Eq 6.10: LC = 1.35*G + 0.9*1.5*Q1 + 0.9*1.5*0.7*Q2",
     "ULS: Eq 6.10a: LC = 1.35*G +0.9*1.5*0.7*Q1 + 0.9*1.5*0.3*Q2",
     "ULS: Eq 6.10b: LC = 0.89*1.35*G + 0.9*1.5*Q1 + 0.9*1.5*0.3*Q2"},
    {"SW",
     "EC3 + NA/Sweden",
     "Safety Class",
     {1.0, 1.0, 1.2, 1.0, 0.4, 0.75},
     {1.35f, 1.5f, 1.5f, 1.35f, 0, 0, 1.35f, 0.89f},
     {1, 0.83, 0.91, 1},
     {1, 0.83, 0.91, 1},
     2,
     "ULS: Eq 6.10: LC = 0.91*(1.35*G + 1.5*Q1 + 1.5*0.7*Q2)",
     "ULS: Eq 6.10a: LC = 0.91*1.35*G",
     "ULS: Eq 6.10b: LC = 0.91*(0.89*1.35*G + 1.5*Q1 + 1.5*0.3*Q2)"},
    {"DK",
     "EC3 + NA/Denmark",
     "Consequences Class",
     {1.1, 1.2, 1.2, 1.0, 0.4, 0.75},
     {1.1f, 1.5f, 1.5f, 1.2f, 0, 0, 1.0f, 1.0f},
     {1.1, 0.9, 1, 1.1},
     {1.1, 0.9, 1, 1.1},
     3,
     "ULS: Eq 6.10: LC = 1.1(1.1*G + 1.5*Q1 + 1.5*0.7*Q2)",
     "ULS: Eq 6.10a: LC = 1.1*1.2*G",
     "ULS: Eq 6.10b: LC = 1.1*(1.0*1.0*G + 1.5*Q1 + 1.5*0.3*Q2)"},
    {"UK",
     "EC3 + NA/United Kingdom",
     "",
     {1.0, 1.0, 1.0, 1.0, 0.2, 1.0},
     {1.35f, 1.5f, 1.5f, 1.35f, 1.5f, 1.5f, 1.35f, 0.925f},
     {1, 1, 1, 1},
     {1, 1, 1, 1},
     3,
     "ULS: Eq 6.10: LC = 1.35*G + 1.5*Q1 + 1.5*0.7*Q2",
     "ULS: Eq 6.10a: LC = 1.35*G + 1.5*0.7*Q1 + 1.5*0.3*Q2",
     "ULS: Eq 6.10b: LC = 0.925*1.35*G + 1.5*Q1 + 1.5*0.3*Q2"},
    {"FI",
     "EC3 + NA/Finland",
     "Reliability Class",
     {1.0, 1.0, 1.2, 1.0, 0.2, 1.0},
     {1.1f, 1.5f, 1.5f, 1.35f, 0, 0, 1.15f, 1.0f},
     {1.1, 0.9, 1, 1.1},
     {1.1, 0.9, 1, 1.1},
     1,
     "ULS: Eq 6.10: LC =  0.9 (1.1*G + 1.5*Q1 + 1.5*0.7*Q2)",
     "ULS: Eq 6.10a: LC = 0.9*1.35*G",
     "ULS: Eq 6.10b: LC = 0.9*(1.15*G + 1.5*Q1 +1.5*0.3*Q2)"},
    {"GE",
     "EC3 + NA/German",
     "",
     {1.0, 1.0, 1.2, 1.0, 0.4, 0.75},
     {1.35f, 1.5f, 1.5f, 1.35f, 1.5f, 1.5f, 1.35f, 0.85f},
     {1, 1, 1, 1},
     {1, 1, 1, 1},
     3,
     "ULS: Eq 6.10: LC = 1.35*G + 1.5*Q1 + 1.5*0.7*Q2",
     "ULS: Eq 6.10a: LC = 1.35*G + 1.5*0.7*Q1 + 1.5*0.3*Q2",
     "ULS: Eq 6.10b: LC = 0.85*1.35*G + 1.5*Q1 + 1.5*0.3*Q2"},
    {"NK",
     "EC3 + NORSOK",
     "",
     {1.15, 1.15, 1.2, 1.0, 0.4, 0.75},
     {1.35f, 1.5f, 1.5f, 1.35f, 1.5f, 1.5f, 1.35f, 0.89f},
     {1, 1, 1, 1},
     {1, 0.9, 1, 1},
     3,
     "ULS: Eq 6.10: LC = 1.35*G + 1.0*1.5*Q1 + 1.0*1.5*0.7*Q2",
     "ULS: Eq 6.10a: LC = 1.35*G +1.0*1.5*0.7*Q1 + 1.0*1.5*0.3*Q2",
     "ULS: Eq 6.10b: LC = 0.89*1.35*G + 1.0*1.5*Q1 + 1.0*1.5**0.3*Q2"},
    {"UD",
     "EC3 - User defined",
     "",
     {0, 0, 0, 0, 0, 0},
     {1.35f, 1.5f, 1.5f, 1.1f, 1.5f, 1.5f, 1.35f, 0.85f},
     {1, 1, 1, 1},
     {1, 1, 1, 1},
     1,
     "ULS: Eq 6.10: LC = 1.35*G + 1.5*Q1 + 1.5*0.7*Q2",
     "ULS: Eq 6.10a: LC = 1.35*G + 1.5*0.7*Q1 + 1.5*0.3*Q2",
     "ULS: Eq 6.10b: LC = 0.85*1.35*G + 1.5*Q1 + 1.5*0.3*Q2"},
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
    ASSERT_EQ(std::ssize(kAnnexCases), kAnnexes);
    for (i16 index = 0; index < kAnnexes; ++index) {
        const AnnexCase& c = kAnnexCases[index];
        SCOPED_TRACE(c.code);
        EXPECT_EQ(AnnexIndexFromCode(c.code), index);
        EXPECT_EQ(AnnexCodeFromIndex(index), c.code);
        EXPECT_EQ(AnnexName(index), c.name);
        EXPECT_EQ(AnnexSuffix(index), std::string(c.name).substr(3));
        EXPECT_EQ(AnnexClassName(index), c.classname);

        if (index == kAnnexUd) {
            continue;  // the user's own
        }
        const Material& m = c.material;
        ProjectState s{};
        s.fyk = 460;
        ApplyAnnexMaterial(s, index);
        EXPECT_EQ(s.gammam0, m.gammam0);
        EXPECT_EQ(s.gammam1, static_cast<float>(m.gammam1));
        EXPECT_EQ(s.neta, static_cast<float>(m.neta));
        EXPECT_EQ(s.lamdalt0, 0.4f);
        EXPECT_EQ(s.beta, 0.75);
        EXPECT_EQ(s.lamdalt0w, static_cast<float>(m.lamdalt0w));
        EXPECT_EQ(s.betaw, m.betaw);

        s.fyk = 460.5f;
        ApplyAnnexMaterial(s, index);
        EXPECT_EQ(s.neta, static_cast<float>(m.netahigh));
    }
}

TEST(Annexes, SetTheirLoadFactors)
{
    for (const AnnexCase& c : kAnnexCases) {
        SCOPED_TRACE(c.code);
        const ProjectState s = Member::Bare().Annex(AnnexIndexFromCode(c.code), kEq610a, 2);
        EXPECT_EQ(s.g610g, c.loads.g610g);
        EXPECT_EQ(s.g610q1, c.loads.g610q1);
        EXPECT_EQ(s.g610q2, c.loads.g610q2);
        EXPECT_EQ(s.g610ag, c.loads.g610ag);
        EXPECT_EQ(s.g610aq1, c.loads.g610aq1);
        EXPECT_EQ(s.g610aq2, c.loads.g610aq2);
        EXPECT_EQ(s.g610bg, c.loads.g610bg);
        EXPECT_EQ(s.xi610b, c.loads.xi);
        for (i16 safetyclass = 0; safetyclass <= 3; ++safetyclass) {
            const ProjectState classed =
                Member::Bare().Annex(AnnexIndexFromCode(c.code), kEq610a, safetyclass);
            EXPECT_EQ(classed.kfig, c.g[safetyclass]) << safetyclass;
            EXPECT_EQ(classed.kfiq, static_cast<float>(c.q[safetyclass])) << safetyclass;
        }
    }
}

TEST(Annexes, NameTheirFactorsInTheTexts)
{
    for (const AnnexCase& c : kAnnexCases) {
        SCOPED_TRACE(c.code);
        const ProjectState s =
            Member::Bare().Annex(AnnexIndexFromCode(c.code), kEq610a, c.safetyclass);
        EXPECT_EQ(CombText610(s), c.eq610);
        EXPECT_EQ(CombText610a(s), c.eq610a);
        EXPECT_EQ(CombText610b(s), c.eq610b);
        EXPECT_EQ(CombText614(s), "SLS: Eq 6.14a: LC = G + Q1 + 0.3*Q2");
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
