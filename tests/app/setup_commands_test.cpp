#include "app/setup_commands.h"

#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/session_fixture.h"
#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "core/setup_file.h"
#include "engine/new_project.h"
#include "support/temporary_folder.h"

namespace kestrum {
namespace {

TEST(ChooseAnnex, SetsItsFactorsTitleAndCalculates)
{
    struct Annex {
        int index;
        double gammam0;
        float gammam1, neta, lamdalt0w;
        const char* title;
    };
    // The delivered steel has 355 MPa, so that neta is that of grades up to S460.
    const Annex annexes[] = {
        {1, 1.05, 1.05F, 1.2F, 0.4F, "Kestrum EC3 + NA/Norway: New File"},
        {2, 1.0, 1.0F, 1.2F, 0.4F, "Kestrum EC3 + NA/Sweden: New File"},
        {3, 1.1, 1.2F, 1.2F, 0.4F, "Kestrum EC3 + NA/Denmark: New File"},
        {4, 1.0, 1.0F, 1.0F, 0.2F, "Kestrum EC3 + NA/United Kingdom: New File"},
        {5, 1.0, 1.0F, 1.2F, 0.2F, "Kestrum EC3 + NA/Finland: New File"},
        {6, 1.0, 1.0F, 1.2F, 0.4F, "Kestrum EC3 + NA/German: New File"},
        {7, 1.15, 1.15F, 1.2F, 0.4F, "Kestrum EC3 + NORSOK: New File"},
        {0, 1.0, 1.0F, 1.2F, 0.4F, "Kestrum EC3: New File"},
    };
    Program program;
    for (const Annex& annex : annexes) {
        SCOPED_TRACE(annex.title);
        EXPECT_TRUE(program.Calculates([&] { ChooseAnnex(program.session, annex.index); }));
        EXPECT_EQ(program.state().gammam0, annex.gammam0);
        EXPECT_EQ(program.state().gammam1, annex.gammam1);
        EXPECT_EQ(program.state().neta, annex.neta);
        EXPECT_EQ(program.state().lamdalt0w, annex.lamdalt0w);
        EXPECT_EQ(program.session.title(), annex.title);
        EXPECT_FALSE(AnnexParametersOpen(program.state()));
    }
}

TEST(ChooseAnnex, UserDefinedKeepsTheValuesOfTheAnnexLeftAndOpensThem)
{
    Program program;
    ChooseAnnex(program.session, 3);
    ChooseAnnex(program.session, kAnnexUd);
    EXPECT_EQ(program.state().gammam0, 1.1);
    EXPECT_EQ(program.state().gammam1, 1.2F);
    EXPECT_TRUE(AnnexParametersOpen(program.state()));
    EXPECT_EQ(program.session.title(), "Kestrum EC3 - User defined: New File");
}

TEST(ChooseAnnex, NorsokForcesTheUsersFactorsUntilTheSelectorIsChanged)
{
    Program program;
    ChooseLoadCombination(program.session, 3);
    ChooseAnnex(program.session, 7);
    EXPECT_EQ(program.state().loadcomb, 4);
    ChooseLoadCombination(program.session, 2);
    EXPECT_EQ(program.state().loadcomb, 2);
    ChooseMaterial(program.session, 2);  // runs the annex step again
    EXPECT_EQ(program.state().loadcomb, 4);
}

// 600/300/20/20: hw/tw = 560/20 = 28 < 72 eps/eta, so that Av = eta 560 x 20.
TEST(ChooseMaterial, D20TypedStrengthKeepsTheShearAreaFactor)
{
    Program program;
    ChooseFamily(program.session, 21);
    program.Type("p21", "isttw", "20");
    ChooseMaterial(program.session, 26);
    program.Type("kestrum", "ifyk", "690");
    EXPECT_EQ(program.state().neta, 1.2F);
    EXPECT_NEAR(program.session.shown().avz, 13440, 0.01);
    ChooseAnnex(program.session, 0);
    EXPECT_EQ(program.state().neta, 1);
    EXPECT_NEAR(program.session.shown().avz, 11200, 0.01);
}

TEST(ClassFrame, IsShownForFourAnnexesAndTheEn1990Combinations)
{
    struct Frame {
        int annex;
        ClassFrame frame;
        const char* caption;
    };
    for (const Frame& f : {Frame{1, ClassFrame::norway, "Reliability Class"},
                           Frame{2, ClassFrame::three, "Safety Class"},
                           Frame{3, ClassFrame::three, "Consequences Class"},
                           Frame{5, ClassFrame::three, "Reliability Class"}}) {
        Program program;
        ChooseAnnex(program.session, f.annex);
        EXPECT_EQ(ShownClassFrame(program.state()), ClassFrame::none);  // ULS/SLS at the start
        EXPECT_EQ(ClassCaption(program.state()), f.caption);
        for (int comb = 0; comb <= 3; ++comb) {
            ChooseLoadCombination(program.session, comb);
            EXPECT_EQ(ShownClassFrame(program.state()), f.frame);
        }
        for (int comb = 4; comb <= 5; ++comb) {
            ChooseLoadCombination(program.session, comb);
            EXPECT_EQ(ShownClassFrame(program.state()), ClassFrame::none);
        }
    }
    for (const int annex : {kAnnexEu, kAnnexUk, kAnnexGe, kAnnexNk, kAnnexUd}) {
        Program program;
        ChooseAnnex(program.session, annex);
        ChooseLoadCombination(program.session, 0);
        EXPECT_EQ(ShownClassFrame(program.state()), ClassFrame::none);
        EXPECT_EQ(ClassCaption(program.state()), "");
    }
}

TEST(ChooseClass, SetsTheFactorsAndCalculates)
{
    Program program;
    ChooseAnnex(program.session, 2);
    ChooseLoadCombination(program.session, 1);
    EXPECT_TRUE(program.Calculates([&] { ChooseClass(program.session, 1); }));
    EXPECT_EQ(program.state().safetyclass, 1);
    const LoadFactors factors = [&] {
        ProjectState s = program.state();
        return StrengthFactors(s, s, 1);
    }();
    EXPECT_NEAR(factors.g, 1.35 * 0.83, 1e-6);
    EXPECT_EQ(factors.q1, 0);
    EXPECT_EQ(factors.q2, 0);
}

TEST(ChooseClass, InDenmarkCountsForAllButEq610)
{
    Program program;
    ChooseAnnex(program.session, 3);
    ChooseLoadCombination(program.session, 0);
    ChooseClass(program.session, 1);
    EXPECT_EQ(program.state().kfig, 1);
    for (int comb = 1; comb <= 3; ++comb) {
        ChooseLoadCombination(program.session, comb);
        EXPECT_EQ(program.state().kfig, 0.9);
    }
    ChooseLoadCombination(program.session, 0);
    EXPECT_EQ(program.state().kfig, 1);
}

TEST(ChoosePsi, StoresIndexAndValue)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { ChoosePsi(program.session, 1, 0); }));
    EXPECT_EQ(program.state().psi1index, 0);
    EXPECT_EQ(program.state().psi1, 0.1F);
    EXPECT_EQ(program.state().psi2, 0.7F);
    EXPECT_TRUE(program.Calculates([&] { ChoosePsi(program.session, 2, 9); }));
    EXPECT_EQ(program.state().psi2, 1.0F);
    EXPECT_EQ(CombText610(program.state()), "ULS: Eq 6.10: LC = 1.35*G + 1.5*Q1 + 1.5*0.1*Q2");
    EXPECT_EQ(CombText614(program.state()), "SLS: Eq 6.14a: LC = G + Q1 + 1.0*Q2");
}

TEST(LoadCombinationFrames, FollowTheSelector)
{
    Program program;
    for (int comb = 0; comb <= 5; ++comb) {
        ChooseLoadCombination(program.session, comb);
        EXPECT_EQ(PsiShown(program.state()), comb < 4) << comb;
        EXPECT_EQ(UserFactorsShown(program.state()), comb == 4) << comb;
    }
}

TEST(ChooseMethod, StoresAndCalculates)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { ChooseMethod(program.session, 2); }));
    EXPECT_EQ(program.state().method, 2);
}

TEST(TickOption, StoresTruthAsTheFileDoes)
{
    Program program;
    const std::pair<Option, i16 ProjectState::*> options[] = {
        {Option::elastic, &ProjectState::checkelastic},
        {Option::conservative, &ProjectState::checkconsercontrol},
        {Option::flangebuckling, &ProjectState::checkflangebuck},
        {Option::webbuckling, &ProjectState::checkwebbuck},
    };
    for (const auto& [option, field] : options) {
        EXPECT_TRUE(program.Calculates(
            [&, option = option] { TickOption(program.session, option, true); }));
        EXPECT_EQ(program.state().*field, -1);
        EXPECT_TRUE(program.Calculates(
            [&, option = option] { TickOption(program.session, option, false); }));
        EXPECT_EQ(program.state().*field, 0);
    }
}

TEST(SaveAsDefault, IsWhatTheNextStartReads)
{
    const TemporaryFolder folder;
    Program program;
    ChooseAnnex(program.session, 1);
    ChooseMethod(program.session, 2);
    program.Type("setup", "idef_limity", "250");
    const std::string data = folder.File("data/of the user");  // made when it is missing
    EXPECT_TRUE(SaveAsDefault(program.session, data));
    Library library = Delivered();
    library.setup = ReadBytes(data + "/" + std::string(kSetupFile));
    ProjectState next{};
    StartUp(library, next);
    EXPECT_EQ(next.annexindex, 1);
    EXPECT_EQ(next.gammam0, 1.05);
    EXPECT_EQ(next.method, 2);
    EXPECT_EQ(next.deflimity, 250);
    EXPECT_TRUE(program.Told().empty());
}

TEST(SaveAsDefault, TellsWhenItFails)
{
    const TemporaryFolder folder;
    Program program;
    WriteBytes(folder.File("file"), "");
    EXPECT_FALSE(SaveAsDefault(program.session, folder.File("file")));  // no folder
    EXPECT_EQ(program.Told().size(), 1U);
}

}  // namespace
}  // namespace kestrum
