#include "core/load_combination.h"

#include "core/annexes.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "support/members.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>

namespace kestrum {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LoadFactors, PsiFollowsTheListIndex)
{
    ProjectState s{};
    const float want[] = {0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f, 0.7f, 0.8f, 0.9f, 1.0f};
    for (i16 i = 0; i < 10; ++i) {
        s.psi1index = i;
        s.psi2index = static_cast<i16>(9 - i);
        SetPsi(s);
        EXPECT_EQ(s.psi1, want[i]);
        EXPECT_EQ(s.psi2, want[9 - i]);
    }
    s.psi1index = -1;
    SetPsi(s);
    EXPECT_EQ(s.psi1, 0.0f);
}

TEST(LoadFactors, DanishClass1IsNotReducedInEq610)
{
    for (i16 loadcomb = 0; loadcomb <= 3; ++loadcomb) {
        EXPECT_EQ(Member::Bare().Annex(kAnnexDk, loadcomb, 1).kfig, loadcomb == 0 ? 1.0 : 0.9)
            << loadcomb;
        EXPECT_EQ(Member::Bare().Annex(kAnnexDk, loadcomb, 1).kfiq, loadcomb == 0 ? 1.0f : 0.9f)
            << loadcomb;
        EXPECT_EQ(Member::Bare().Annex(kAnnexDk, loadcomb, 3).kfig, 1.1) << loadcomb;
        EXPECT_EQ(Member::Bare().Annex(kAnnexFi, loadcomb, 1).kfig, 0.9) << loadcomb;
    }
}

TEST(LoadFactors, UnknownAnnexChangesNothing)
{
    ProjectState s{};
    ApplyAnnexLoads(s, s, kAnnexes);
    ApplyAnnexLoads(s, s, -1);
    EXPECT_EQ(s, ProjectState{});
}

void ExpectFactors(const LoadFactors& f, double g, double q1, double q2)
{
    EXPECT_NEAR(f.g, g, 1e-6);
    EXPECT_NEAR(f.q1, q1, 1e-6);
    EXPECT_NEAR(f.q2, q2, 1e-6);
}

TEST(LoadFactors, OfTheStrengthCombinations)
{
    // By hand, psi1 = 0.7, psi2 = 0.3.
    const Member eu = Member::Bare().Annex(0, 0, 3);
    ExpectFactors(StrengthFactors(eu, eu, 0), 1.35, 1.5, 1.05);
    ExpectFactors(StrengthFactors(eu, eu, 1), 1.35, 1.05, 0.45);
    ExpectFactors(StrengthFactors(eu, eu, 2), 1.1475, 1.5, 0.45);
    ExpectFactors(StrengthFactors(eu, eu, 5), 1, 1, 1);

    const Member fi = Member::Bare().Annex(kAnnexFi, 2, 3);
    ExpectFactors(StrengthFactors(fi, fi, 0), 1.21, 1.65, 1.155);
    ExpectFactors(StrengthFactors(fi, fi, 1), 1.485, 0, 0);
    ExpectFactors(StrengthFactors(fi, fi, 2), 1.265, 1.65, 0.495);
}

TEST(StrengthCombination, IsTheOneThatGovernsOfBoth)
{
    for (const int chosen : {kEq610, kEq610a, kEq610b, kBasicLoads, kUserFactors}) {
        EXPECT_EQ(StrengthCombination(Member::Bare().Annex(0, chosen, 3), 1), chosen);
        EXPECT_EQ(StrengthCombination(Member::Bare().Annex(0, chosen, 3), 2), chosen);
    }
    EXPECT_EQ(StrengthCombination(Member::Bare().Annex(0, kEq610ab, 3), 1), kEq610a);
    EXPECT_EQ(StrengthCombination(Member::Bare().Annex(0, kEq610ab, 3), 2), kEq610b);
}

TEST(LoadFactors, SwedishClass1Eq610aCarriesPermanentLoadsAlone)
{
    ExpectFactors(
        [&] {
            Member s = Member::Bare().Annex(kAnnexSw, 1, 1);
            return StrengthFactors(s, s, 1);
        }(),
        1.35 * 0.83, 0, 0);
}

TEST(LoadFactors, NorwegianClass1ReducesVariableLoadsOnly)
{
    ExpectFactors(
        [&] {
            Member s = Member::Bare().Annex(kAnnexNo, 0, 1);
            return StrengthFactors(s, s, 0);
        }(),
        1.35, 1.35, 0.945);
}

TEST(LoadFactors, UserFactorsAndServiceability)
{
    Member s = Member::Bare().Annex(0, 4, 3);
    s.lfulsg = 1.2f;
    s.lfulsq1 = 1.3f;
    s.lfulsq2 = 0.7f;
    s.lfslsg = 0.9f;
    s.lfslsq1 = 0.8f;
    s.lfslsq2 = 0.6f;
    EXPECT_EQ(StrengthFactors(s, s, 4), (LoadFactors{1.2f, 1.3f, 0.7f}));
    EXPECT_EQ(ServiceFactors(s, 4), (LoadFactors{0.9f, 0.8f, 0.6f}));
    for (int loadcomb = 0; loadcomb <= 3; ++loadcomb) {
        EXPECT_EQ(ServiceFactors(s, loadcomb), (LoadFactors{1, 1, s.psi2})) << loadcomb;
    }
    EXPECT_EQ(ServiceFactors(s, 5), (LoadFactors{1, 1, 1}));
}

TEST(LoadFactors, UnknownSelectorCombinesNothing)
{
    const Member s = Member::Bare().Annex(0, 0, 3);
    for (const int loadcomb : {-1, 6, 32767}) {
        EXPECT_EQ(StrengthFactors(s, s, loadcomb), (LoadFactors{0, 0, 0}));
        EXPECT_EQ(ServiceFactors(s, loadcomb), (LoadFactors{0, 0, 0}));
    }
    EXPECT_EQ(StrengthFactors(s, s, 3),
              (LoadFactors{0, 0, 0}));  // two combinations, none of its own
}

// Class 2, whose factor is 1 in both countries.
TEST(LoadFactors, D23DanishAndFinnishEq610TakesPermanentWith1_1)
{
    EXPECT_EQ(
        [&] {
            Member s = Member::Bare().Annex(kAnnexDk, 0, 2);
            return StrengthFactors(s, s, 0);
        }()
            .g,
        static_cast<double>(1.1f));
    EXPECT_EQ(
        [&] {
            Member s = Member::Bare().Annex(kAnnexFi, 0, 2);
            return StrengthFactors(s, s, 0);
        }()
            .g,
        static_cast<double>(1.1f));
}

TEST(LoadFactors, D26UserDefinedEq610aTakesPermanentWith1_1)
{
    const Member s = Member::Bare().Annex(kAnnexUd, 1, 3);
    EXPECT_EQ(StrengthFactors(s, s, 1).g, static_cast<double>(1.1f));
    EXPECT_EQ(CombText610a(s), "ULS: Eq 6.10a: LC = 1.35*G + 1.5*0.7*Q1 + 1.5*0.3*Q2");
}

TEST(LoadFactors, D27OneFactorOnPermanentLoads)
{
    // A relieving permanent load of 10 against a variable one of 20: -13.5 + 30; the standard, -10
    // + 30.
    const LoadFactors f = [&] {
        Member s = Member::Bare().Annex(0, 0, 3);
        return StrengthFactors(s, s, 0);
    }();
    EXPECT_NEAR(-10 * f.g + 20 * f.q1, 16.5, 1e-5);
}

TEST(LoadFactors, D28Eq610TakesPsi1OnQ2)
{
    const Member s = Member::Bare().Annex(0, 0, 3);  // psi1 0.7, psi2 0.3
    EXPECT_NEAR(StrengthFactors(s, s, 0).q2, 1.5 * 0.7, 1e-6);
}

// Whatever the annex: a factor of the class that acts stands in the text of the combination.
TEST(CombinationTexts, NameTheFactorOfTheClass)
{
    for (int annex = 0; annex < kAnnexes; ++annex) {
        for (i16 safetyclass = 1; safetyclass <= 3; ++safetyclass) {
            for (i16 loadcomb = kEq610; loadcomb <= kEq610b; ++loadcomb) {
                const Member s = Member::Bare().Annex(annex, loadcomb, safetyclass);
                const std::string text = loadcomb == kEq610    ? CombText610(s)
                                         : loadcomb == kEq610a ? CombText610a(s)
                                                               : CombText610b(s);
                SCOPED_TRACE(text);
                if (s.kfig != 1) {
                    EXPECT_NE(text.find(FormatNum(s.kfig, "0.0#")), std::string::npos);
                }
                if (s.kfiq != 1) {
                    EXPECT_NE(text.find(FormatNum(s.kfiq, "0.0#")), std::string::npos);
                }
            }
        }
    }
}

TEST(CombinationTexts, OfTheUserFactorsHaveTwoDecimals)
{
    ProjectState s{};
    s.lfulsg = 1;
    s.lfulsq1 = 1.3f;
    s.lfulsq2 = 0.7f;
    s.lfslsg = 0.05f;
    s.lfslsq1 = 0.005f;
    s.lfslsq2 = 3.99f;
    EXPECT_EQ(CombTextUls(s), "ULS: 1.00*G + 1.30*Q1 + 0.70*Q2");
    EXPECT_EQ(CombTextSls(s), "SLS: 0.05*G + 0.01*Q1 + 3.99*Q2");
    EXPECT_EQ(CombTextBasic(), "Basic loads: G + Q1 + Q2");
}

TEST(CombinationTexts, ListFollowsTheSelector)
{
    Member s = Member::Bare().Annex(0, 0, 3);
    EXPECT_THAT(ShowCombination(s), ElementsAre(CombText610(s), CombText614(s)));
    s.loadcomb = 1;
    EXPECT_THAT(ShowCombination(s), ElementsAre(CombText610a(s), CombText614(s)));
    s.loadcomb = 2;
    EXPECT_THAT(ShowCombination(s), ElementsAre(CombText610b(s), CombText614(s)));
    s.loadcomb = 3;
    EXPECT_THAT(ShowCombination(s), ElementsAre(CombText610a(s), CombText610b(s), CombText614(s)));
    s.loadcomb = 4;
    EXPECT_THAT(ShowCombination(s), ElementsAre(CombTextUls(s), CombTextSls(s)));
    s.loadcomb = 5;
    EXPECT_THAT(ShowCombination(s), ElementsAre(CombTextBasic()));
    s.loadcomb = 6;
    EXPECT_THAT(ShowCombination(s), IsEmpty());
}

TEST(CombinationTexts, SelectorNames)
{
    EXPECT_EQ(LoadCombinationName(0), "EN 1990 Eq 6.10");
    EXPECT_EQ(LoadCombinationName(3), "EN 1990 Eq 6.10a/b");
    EXPECT_EQ(LoadCombinationName(4), "ULS/SLS");
    EXPECT_EQ(LoadCombinationName(5), "Basic loads");
    EXPECT_EQ(LoadCombinationName(-1), "");
    EXPECT_EQ(LoadCombinationName(6), "");
}

TEST(GoverningText, NamesTheCombinationInForce)
{
    Member s = Member::Bare().Annex(0, 0, 3);
    const std::string head = "Governing Loadcase: EN1990 ";
    EXPECT_EQ(GoverningText(s), head + CombText610(s));
    s.checksls = kTrue;
    EXPECT_EQ(GoverningText(s), head + CombText610(s) + " / EN1990 " + CombText614(s));
    s.loadcomb = 1;
    EXPECT_EQ(GoverningText(s), head + CombText610a(s) + " / EN1990 " + CombText614(s));
    s.loadcomb = 2;
    EXPECT_EQ(GoverningText(s), head + CombText610b(s) + " / EN1990 " + CombText614(s));
    s.loadcomb = 4;
    EXPECT_EQ(GoverningText(s), "Governing Loadcase: " + CombTextUls(s) + " / " + CombTextSls(s));
    s.loadcomb = 5;
    EXPECT_EQ(GoverningText(s), "Governing Loadcase: " + CombTextBasic());
}

TEST(GoverningText, NamesTheWorseOfTwoCombinations)
{
    Member s = Member::Bare().Annex(0, 3, 3);
    s.governing = 1;
    EXPECT_EQ(GoverningText(s), "Governing Loadcase: EN1990 " + CombText610a(s));
    s.governing = 2;
    EXPECT_EQ(GoverningText(s), "Governing Loadcase: EN1990 " + CombText610b(s));
}

}  // namespace
}  // namespace kestrum
