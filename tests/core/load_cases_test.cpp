// Expected factors: EN 1990, Table A1.2(B) and the national values, multiplied by hand.

#include "core/load_cases.h"

#include "core/annexes.h"
#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kestrum {
namespace {

Member Project(int annex, int loadcomb, int safetyclass = 2)
{
    return Member::Bare().Annex(annex, loadcomb, safetyclass, 6, 4);  // psi1 0.7, psi2 0.5
}

constexpr ActionsPresent kAll{true, true, true};

std::vector<std::string> Names(const LoadCases& cases)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < cases.count; ++i) {
        names.push_back(NameOf(cases.at[i]));
    }
    return names;
}

LoadFactors FactorsOf(const LoadCases& cases, const std::string& name)
{
    for (std::size_t i = 0; i < cases.count; ++i) {
        if (NameOf(cases.at[i]) == name) {
            return cases.at[i].factors;
        }
    }
    ADD_FAILURE() << "no case " << name;
    return {};
}

void ExpectFactors(const LoadCases& cases, const std::string& name, double g, double q1, double q2)
{
    const LoadFactors f = FactorsOf(cases, name);
    EXPECT_NEAR(f.g, g, 1e-6) << name;
    EXPECT_NEAR(f.q1, q1, 1e-6) << name;
    EXPECT_NEAR(f.q2, q2, 1e-6) << name;
}

TEST(StrengthCases, Equation610LetsEachVariableLoadLeadOnce)
{
    const LoadCases cases = StrengthCases(Project(kAnnexEu, kEq610), kAll);
    EXPECT_EQ(cases.count, 10u);
    ExpectFactors(cases, "6.10 G sup", 1.35, 0, 0);
    ExpectFactors(cases, "6.10 G sup + Q1", 1.35, 1.5, 0);
    ExpectFactors(cases, "6.10 G sup + Q1 + psi0 Q2", 1.35, 1.5, 0.75);
    ExpectFactors(cases, "6.10 G sup + Q2 + psi0 Q1", 1.35, 1.05, 1.5);
    ExpectFactors(cases, "6.10 G inf + Q2", 1.0, 0, 1.5);
}

TEST(StrengthCases, CategoriesWithoutLoadsGiveNoCases)
{
    const Member s = Project(kAnnexEu, kEq610);
    EXPECT_EQ(Names(StrengthCases(s, {true, true, false})),
              (std::vector<std::string>{"6.10 G sup", "6.10 G sup + Q1", "6.10 G inf",
                                        "6.10 G inf + Q1"}));
    EXPECT_EQ(Names(StrengthCases(s, {false, false, true})),
              (std::vector<std::string>{"6.10 G sup", "6.10 G sup + Q2"}));
}

// 6.10a takes psi0 of each; 6.10b 0.85 1.35 = 1.1475.
TEST(StrengthCases, BothEquationsOf610abStandTogether)
{
    const LoadCases cases = StrengthCases(Project(kAnnexEu, kEq610ab), kAll);
    ExpectFactors(cases, "6.10a G sup + psi0 Q1", 1.35, 1.05, 0);
    ExpectFactors(cases, "6.10b G sup + Q2 + psi0 Q1", 1.1475, 1.05, 1.5);
    ExpectFactors(cases, "6.10b G inf + Q1", 1.0, 1.5, 0);
    EXPECT_LE(cases.count, kMaxLoadCases);
}

// Denmark: Eq 6.10 with 1.35; class 1 takes 0.9 on both, class 3 1.1. 6.10a has permanent loads
// only: 1.2. Finland: 0.9 favourable.
TEST(StrengthCases, NationalFactors)
{
    ExpectFactors(StrengthCases(Project(kAnnexDk, kEq610, 1), kAll), "6.10 G sup + Q1", 1.215, 1.35,
                  0);
    ExpectFactors(StrengthCases(Project(kAnnexDk, kEq610, 3), kAll), "6.10 G sup + Q1", 1.485, 1.65,
                  0);
    const LoadCases a = StrengthCases(Project(kAnnexDk, kEq610a, 2), kAll);
    EXPECT_EQ(Names(a), (std::vector<std::string>{"6.10a G sup", "6.10a G inf"}));
    ExpectFactors(a, "6.10a G sup", 1.2, 0, 0);
    ExpectFactors(StrengthCases(Project(kAnnexFi, kEq610, 2), kAll), "6.10 G inf", 0.9, 0, 0);
    ExpectFactors(StrengthCases(Project(kAnnexUd, kEq610a), kAll), "6.10a G sup", 1.35, 0, 0);
}

// The Danish 6.10b takes G with 1.0: the lower factor never exceeds it and gives no further case.
TEST(StrengthCases, EqualCasesCountOnce)
{
    const LoadCases cases = StrengthCases(Project(kAnnexDk, kEq610b, 2), kAll);
    EXPECT_EQ(cases.count, 5u);
    ExpectFactors(cases, "6.10b G sup", 1.0, 0, 0);
}

TEST(StrengthCases, OwnFactorsAndEndForcesAreOneCase)
{
    Member s = Project(kAnnexEu, kUserFactors);
    s.lfulsg = 1.2f;
    s.lfulsq1 = 1.4f;
    s.lfulsq2 = 0.3f;
    ExpectFactors(StrengthCases(s, kAll), "user factors", 1.2f, 1.4f, 0.3f);
    EXPECT_EQ(Names(StrengthCases(Project(kAnnexEu, kBasicLoads), kAll)),
              std::vector<std::string>{"basic loads"});
    s.loadmode = 0;
    EXPECT_EQ(Names(StrengthCases(s, kAll)), std::vector<std::string>{"end forces"});
}

TEST(ServiceCases, CharacteristicCombination)
{
    const LoadCases cases = ServiceCases(Project(kAnnexEu, kEq610), kAll);
    EXPECT_EQ(Names(cases),
              (std::vector<std::string>{"6.14b G", "6.14b G + Q1", "6.14b G + Q2",
                                        "6.14b G + Q1 + psi0 Q2", "6.14b G + Q2 + psi0 Q1"}));
    ExpectFactors(cases, "6.14b G + Q2 + psi0 Q1", 1, 0.7, 1);
}

}  // namespace
}  // namespace kestrum
