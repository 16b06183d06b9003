#include "app/member_commands.h"

#include "app/session_fixture.h"
#include "core/project_state.h"
#include "report/design_notes.h"

#include <algorithm>
#include <array>

namespace kestrum {
namespace {

TEST(ProjectTexts, AreStoredWithoutAPass)
{
    Program program;
    EXPECT_FALSE(program.Calculates([&] {
        SetProjectName(program.session, "Hall 3");
        SetIdent(program.session, "Column, axis \"B\"");
    }));
    EXPECT_EQ(program.state().projname, "Hall 3");
    EXPECT_EQ(program.state().ident, "Column, axis \"B\"");
}

// Supports

TEST(ChooseSupport, StoresAndCalculates)
{
    for (int support = 0; support <= 5; ++support) {
        Program program;
        EXPECT_TRUE(program.Calculates([&] { ChooseSupport(program.session, support); }));
        EXPECT_EQ(program.state().supportcase, support);
        EXPECT_EQ(SpringShown(program.state()), support == 3 || support == 5);
        EXPECT_TRUE(program.Told().empty());
    }
}

TEST(ChooseSupport, ResetsOnlyTheBucklingCasesOfPictures)
{
    Program program;
    ChooseBucklingCase(program.session, Axis::y, 4);
    ChooseBucklingCase(program.session, Axis::z, 5);
    program.Type("kestrum", "iblz", "1.3");
    ChooseSupport(program.session, 2);
    EXPECT_EQ(program.state().bucklingcasey, 2);
    EXPECT_EQ(program.state().ly, 1.0F);
    EXPECT_EQ(program.state().bucklingcasez, 5);
    EXPECT_EQ(program.state().lz, 1.3F);
}

TEST(ChooseSupport, KeepsTheLengthFactorOfLateralBuckling)
{
    Program program;
    ChooseLateralCase(program.session, 3);
    ChooseSupport(program.session, 4);
    EXPECT_EQ(program.state().ltbk, 0.7F);
}

TEST(ChooseSupport, ChecksTheLoads)
{
    Program program;
    program.edit().pm[1] = 5;
    program.edit().pmx[1] = 5;
    program.edit().supportcase = 4;
    ChooseSupport(program.session, 4);  // a load at the free end stays
    EXPECT_EQ(program.state().pm[1], 5);
    ChooseSupport(program.session, 0);  // on a support it goes, without a word
    EXPECT_EQ(program.state().pm[1], 0);
    EXPECT_EQ(program.state().pmx[1], 0);
    EXPECT_TRUE(program.Told().empty());
}

TEST(ChooseSupport, TellsOfMixedSignsAndCalculatesAllTheSame)
{
    Program program;
    program.edit().qt1[1] = 5;
    program.edit().qt2[1] = -5;
    program.edit().qtx2[1] = 3;
    EXPECT_TRUE(program.Calculates([&] { ChooseSupport(program.session, 1); }));
    EXPECT_EQ(program.Told(), Texts{" Trapezoidal load: One positive and one negative value "});
    EXPECT_EQ(program.state().supportcase, 1);
}

TEST(ChooseSupport, WithSpringsLeavesTheModalAnalysisOn)
{
    Program program;
    TickModal(program.session, true);
    ChooseSupport(program.session, 3);
    EXPECT_EQ(program.state().modal, 1);
    EXPECT_TRUE(ModalResultShown(program.state()));
    EXPECT_TRUE(program.Told().empty());
}

// Buckling

TEST(ChooseBucklingCase, StoresItsFactorAndFreesTheBoxFromTheFifthOn)
{
    constexpr std::array<float, 6> kFactors{0, 2.0F, 1.0F, 0.7F, 0.5F, 0.001F};
    for (int choice = 1; choice <= 5; ++choice) {
        Program program;
        EXPECT_TRUE(
            program.Calculates([&] { ChooseBucklingCase(program.session, Axis::y, choice); }));
        EXPECT_EQ(program.state().bucklingcasey, choice);
        EXPECT_EQ(program.state().ly, kFactors[static_cast<std::size_t>(choice)]);
        EXPECT_EQ(BucklingLengthOpen(program.state(), Axis::y), choice == 5);
        EXPECT_EQ(program.state().lz, 1.0F);
        ChooseBucklingCase(program.session, Axis::z, choice);
        EXPECT_EQ(program.state().lz, kFactors[static_cast<std::size_t>(choice)]);
        EXPECT_EQ(BucklingLengthOpen(program.state(), Axis::z), choice == 5);
    }
}

TEST(ChooseBucklingCase, TheTypedFactorReplacesNoBuckling)
{
    Program program;
    ChooseBucklingCase(program.session, Axis::y, 5);
    program.Type("kestrum", "ibly", "0.2");
    EXPECT_EQ(program.state().ly, 0.2F);
    EXPECT_EQ(program.state().bucklingcasey, 5);
    EXPECT_TRUE(BucklingLengthOpen(program.state(), Axis::y));
}

TEST(ChooseBucklingCurve, StoresTheIndex)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { ChooseBucklingCurve(program.session, Axis::y, 5); }));
    EXPECT_TRUE(program.Calculates([&] { ChooseBucklingCurve(program.session, Axis::z, 1); }));
    EXPECT_EQ(program.state().bcy, 5);
    EXPECT_EQ(program.state().bcz, 1);
    EXPECT_EQ(program.state().curvey.text(), "d");
    EXPECT_EQ(program.state().curvez.text(), "a0");
}

// Material

TEST(ChooseMaterial, SetsTheStrengthOfTheGrade)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { ChooseMaterial(program.session, 7); }));  // S460 N/NL
    EXPECT_EQ(program.state().fyk, 460);
    EXPECT_EQ(program.state().neta, 1.2F);
    EXPECT_FALSE(StrengthOpen(Delivered(), program.state()));
}

TEST(ChooseMaterial, TheLastRowKeepsTheStrengthAndOpensItsBox)
{
    Program program;
    ChooseMaterial(program.session, 26);
    EXPECT_EQ(program.state().fyk, 355);
    EXPECT_TRUE(StrengthOpen(Delivered(), program.state()));
    program.Type("kestrum", "ifyk", "400");
    EXPECT_EQ(program.state().fyk, 400);
}

// A typed strength waits for the annex step; the pass of that step still has the factor before.
TEST(ChooseMaterial, TheShearFactorFollowsAcross460WithTheAnnexStep)
{
    Program program;
    ChooseMaterial(program.session, 26);
    program.Type("kestrum", "ifyk", "460.5");
    EXPECT_EQ(program.state().neta, 1.2F);
    ChooseMaterial(program.session, 26);
    EXPECT_EQ(program.state().neta, 1.0F);
    EXPECT_EQ(program.session.shown().neta, 1.2F);
    program.Type("setup", "ifyk", "460");
    ChooseMaterial(program.session, 26);
    EXPECT_EQ(program.state().neta, 1.2F);
}

TEST(ChooseMaterial, AListOfFiveRowsHasFourGrades)
{
    Library library = Delivered();
    library.materials.resize(5);
    ProjectState s{};
    s.fykindex = 3;
    EXPECT_FALSE(StrengthOpen(library, s));
    s.fykindex = 4;
    EXPECT_TRUE(StrengthOpen(library, s));
    library.materials.clear();
    s.fykindex = -1;
    EXPECT_TRUE(StrengthOpen(library, s));
}

// Load combination, deflections, modal analysis

TEST(ChooseLoadCombination, StoresAndCalculates)
{
    Program program;
    for (int index = 0; index <= 5; ++index) {
        EXPECT_TRUE(program.Calculates([&] { ChooseLoadCombination(program.session, index); }));
        EXPECT_EQ(program.state().loadcomb, index);
    }
}

TEST(TickDeflections, StoresTruthAsTheFileDoes)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { TickDeflections(program.session, true); }));
    EXPECT_EQ(program.state().checksls, -1);
    TickDeflections(program.session, false);
    EXPECT_EQ(program.state().checksls, 0);
}

TEST(TickModal, RunsTheAnalysis)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { TickModal(program.session, true); }));
    EXPECT_EQ(program.state().modal, 1);
    EXPECT_TRUE(ModalResultShown(program.state()));
    EXPECT_GT(program.state().freq[1], 0);
    EXPECT_TRUE(program.Calculates([&] { TickModal(program.session, false); }));
    EXPECT_EQ(program.state().modal, 0);
    EXPECT_FALSE(ModalResultShown(program.state()));
}

TEST(TickModal, IsRefusedWithSprings)
{
    for (const int support : {3, 5}) {
        Program program;
        ChooseSupport(program.session, support);
        EXPECT_TRUE(program.Calculates([&] { TickModal(program.session, true); }));
        EXPECT_EQ(program.Told(), Texts{" Modal analysis not possible for spring supports "});
        EXPECT_EQ(program.state().modal, 0);
        EXPECT_FALSE(ModalResultShown(program.state()));
    }
}

// Lateral torsional buckling

TEST(TickLateralBuckling, OffClearsRestraintsAndFactor)
{
    Program program;
    ChooseRestraints(program.session, 2);
    EXPECT_TRUE(program.Calculates([&] { TickLateralBuckling(program.session, false); }));
    EXPECT_EQ(program.state().ltb, 0);
    EXPECT_EQ(program.state().restraints, 0);
    EXPECT_EQ(program.state().ltbk, 0.001F);
}

TEST(TickLateralBuckling, OnTakesTheFactorOfTheCase)
{
    for (const auto& [ltbcase, factor] :
         {std::pair<i16, float>(1, 2.0F), std::pair<i16, float>(2, 1.0F),
          std::pair<i16, float>(3, 0.7F), std::pair<i16, float>(4, 0.5F),
          std::pair<i16, float>(5, 1.0F), std::pair<i16, float>(6, 0.001F)}) {
        Program program;
        TickLateralBuckling(program.session, false);
        program.edit().ltbcase = ltbcase;
        EXPECT_TRUE(program.Calculates([&] { TickLateralBuckling(program.session, true); }));
        EXPECT_EQ(program.state().ltb, 1);
        EXPECT_EQ(program.state().ltbk, factor) << ltbcase;
    }
}

TEST(ChooseLateralCase, StoresCaseAndFactor)
{
    for (const auto& [ltbcase, factor] :
         {std::pair(1, 2.0F), std::pair(2, 1.0F), std::pair(3, 0.7F), std::pair(4, 0.5F)}) {
        Program program;
        EXPECT_TRUE(program.Calculates(
            [&, ltbcase = ltbcase] { ChooseLateralCase(program.session, ltbcase); }));
        EXPECT_EQ(program.state().ltbcase, ltbcase);
        EXPECT_EQ(program.state().ltbk, factor);
    }
}

TEST(ChooseLateralCase, ACantileverOffersItsOwnCases)
{
    ProjectState s{};
    s.ltbcase = 2;
    for (const i16 support : {i16{0}, i16{1}, i16{2}, i16{3}, i16{5}}) {
        s.supportcase = support;
        for (int choice = 1; choice <= 4; ++choice) {
            EXPECT_TRUE(LateralCaseOffered(s, choice));
        }
    }
    s.supportcase = 4;
    EXPECT_TRUE(LateralCaseOffered(s, 1));
    EXPECT_TRUE(LateralCaseOffered(s, 2));
    EXPECT_FALSE(LateralCaseOffered(s, 3));
    EXPECT_FALSE(LateralCaseOffered(s, 4));
    s.ltbcase = 4;  // chosen before the support: k does not follow the support, so it is shown
    EXPECT_TRUE(LateralCaseOffered(s, 4));
}

TEST(LateralBuckling, ItsChoicesStoreAndCalculate)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { ChooseRestraints(program.session, 3); }));
    EXPECT_TRUE(program.Calculates([&] { ChooseLateralCurve(program.session, 2); }));
    EXPECT_TRUE(program.Calculates([&] { ChooseLoadLevel(program.session, 4); }));
    EXPECT_TRUE(program.Calculates([&] { TickManualFactors(program.session, true); }));
    EXPECT_TRUE(program.Calculates([&] { TickAlternativeC1(program.session, true); }));
    EXPECT_EQ(program.state().restraints, 3);
    EXPECT_EQ(program.state().ltbcurve, 2);
    EXPECT_EQ(program.state().loadlevel, 4);
    EXPECT_EQ(program.state().cmanual, -1);
    EXPECT_EQ(program.state().c1alt, -1);
    TickManualFactors(program.session, false);
    TickAlternativeC1(program.session, false);
    EXPECT_EQ(program.state().cmanual, 0);
    EXPECT_EQ(program.state().c1alt, 0);
}

TEST(ManualFactors, AreOfferedForALoadedMemberWithoutRestraints)
{
    ProjectState s{};
    s.loadmode = 1;
    EXPECT_TRUE(ManualFactorsOffered(s));
    s.restraints = 1;
    EXPECT_FALSE(ManualFactorsOffered(s));
    s.restraints = 0;
    s.loadmode = 0;
    EXPECT_FALSE(ManualFactorsOffered(s));
}

TEST(OpenVipping, ForcesTheGeneralCurveWhereThereIsNoOther)
{
    for (const int family : {5, 16, 28, 103, 51, 52, 53, 54, 56}) {
        Program program;
        program.edit().family = static_cast<i16>(family);
        program.edit().ltbcurve = 3;
        EXPECT_TRUE(program.Calculates([&] { OpenVipping(program.session); }));
        EXPECT_EQ(program.state().ltbcurve, 2) << family;
    }
    for (const int family : {1, 15, 21, 22, 41, 101}) {
        Program program;
        program.edit().family = static_cast<i16>(family);
        OpenVipping(program.session);
        EXPECT_EQ(program.state().ltbcurve, 3) << family;
    }
}

// Check points

TEST(CheckPoints, ModeAndNumberCalculateAndTheDisplayDoesNot)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { ChooseCheckMode(program.session, 1); }));
    EXPECT_TRUE(program.Calculates([&] { ChooseCheckCount(program.session, 2); }));
    EXPECT_EQ(program.state().cpmode, 1);
    EXPECT_EQ(program.state().cpcount, 2);
    EXPECT_EQ(program.state().npts, 1);
    EXPECT_FALSE(program.Calculates([&] { ChooseCheckRelative(program.session, true); }));
    EXPECT_EQ(program.state().cprelative, 1);
    EXPECT_EQ(BoxText(program.state(), *FindBox("chpoints", "icp"), 2), "0.400");  // 2 m of 5 m
}

TEST(CheckPoints, ARelativePositionIsStoredInMetres)
{
    Program program;
    ChooseCheckRelative(program.session, true);
    program.Type("chpoints", "icp", "0.5", 3);
    EXPECT_EQ(program.state().cp[3], 2.5F);
    EXPECT_FALSE(program.Type("chpoints", "icp", "1.01", 3).taken);
    EXPECT_EQ(program.Told(), Texts{" 0 <= x <= 1 "});
    EXPECT_EQ(program.state().cp[3], 0);
}

// End supports

TEST(EndSupports, StiffenersMakeARigidEndPost)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { ChooseWebStiffeners(program.session, 1); }));
    EXPECT_EQ(program.state().webstiff, 1);
    EXPECT_EQ(program.state().endstiff, 1);
    program.Type("endstiff", "iweba", "1500");
    EXPECT_TRUE(program.Calculates([&] { ChooseWebStiffeners(program.session, 0); }));
    EXPECT_EQ(program.state().webstiff, 0);
    EXPECT_EQ(program.state().webstiffa, 5000);
    EXPECT_EQ(program.state().endstiff, 1);  // changed by hand only
    EXPECT_TRUE(program.Calculates([&] { ChooseEndPost(program.session, 0); }));
    EXPECT_EQ(program.state().endstiff, 0);
    ChooseEndPost(program.session, 1);
    EXPECT_EQ(program.state().endstiff, 1);
}

TEST(EndSupports, AShorterMemberLosesItsStiffeners)
{
    Program program;
    ChooseWebStiffeners(program.session, 1);
    program.Type("endstiff", "iweba", "4000");
    program.Type("kestrum", "il", "3");
    EXPECT_EQ(program.state().webstiff, 0);
    EXPECT_EQ(program.state().webstiffa, 1500);
}

// Vortex shedding

TEST(OpenVortex, IsForBoxesAndTubes)
{
    for (const int family : {6, 7, 8, 9, 23, 31}) {
        Program program;
        program.edit().family = static_cast<i16>(family);
        program.session.Calculate();
        EXPECT_TRUE(OpenVortex(program.session)) << family;
        EXPECT_TRUE(program.Told().empty());
        EXPECT_GT(program.state().vcrit, 0);
    }
    for (const int family : {1, 5, 10, 21, 22, 24, 27, 28, 41, 51, 56, 101, 103, 200}) {
        Program program;
        program.edit().family = static_cast<i16>(family);
        EXPECT_FALSE(OpenVortex(program.session)) << family;
        EXPECT_EQ(program.Told(), Texts{"Only valid for boxes and tubes"});
    }
    for (const int family : {0, 201}) {
        Program program;
        program.edit().family = static_cast<i16>(family);
        EXPECT_FALSE(OpenVortex(program.session)) << family;
        EXPECT_TRUE(program.Told().empty());
    }
}

TEST(Vortex, SupportAndTerrainShowAtOnce)
{
    Program program;
    program.edit().family = 31;
    program.session.Calculate();
    ASSERT_TRUE(OpenVortex(program.session));
    const double vm = program.state().vm, vcrit = program.state().vcrit;
    int refreshes = 0;
    program.session.changed = [&] { ++refreshes; };
    ChooseVortexSupport(program.session, 2);
    // The frequency goes with the square of the support constant.
    EXPECT_NEAR(program.state().vcrit / vcrit, 4.73 * 4.73 / (3.93 * 3.93), 1e-4);
    ChooseTerrain(program.session, 4);
    EXPECT_LT(program.state().vm, vm);
    EXPECT_EQ(refreshes, 2);
}

// The notes of a result are read from what is shown.
TEST(Vortex, NotesActAtOnce)
{
    Program program;
    program.edit().family = 31;
    program.session.Calculate();
    const auto noted = [&](std::string_view id) {
        const std::vector<DesignNote> notes = VortexNotes(program.session.shown());
        return std::any_of(notes.begin(), notes.end(),
                           [&](const DesignNote& note) { return note.id == id; });
    };
    EXPECT_FALSE(noted("D255"));
    ASSERT_TRUE(OpenVortex(program.session));  // fixed-pinned
    EXPECT_TRUE(noted("D255"));
    EXPECT_FALSE(noted("D254"));
    ChooseTerrain(program.session, 3);
    EXPECT_TRUE(noted("D254"));
    ChooseVortexSupport(program.session, 0);
    EXPECT_FALSE(noted("D255"));
}

TEST(Vortex, ATerrainThatNoListOffersShowsTheValuesBefore)
{
    Program program;
    program.edit().family = 31;
    program.session.Calculate();
    program.edit().terrain = 99;
    EXPECT_TRUE(OpenVortex(program.session));
    EXPECT_FALSE(program.session.failed());
}

}  // namespace
}  // namespace kestrum
