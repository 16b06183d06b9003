#include "engine/new_project.h"

#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

TEST(StartUp, GivesTheDefaultsAndTheDeliveredSetup)
{
    const ProjectState s = Member();
    EXPECT_EQ(s.filename, "New File");
    EXPECT_EQ(s.projname, "Project");
    EXPECT_EQ(s.ident, "Test");
    EXPECT_EQ(s.family, 1);
    EXPECT_EQ(s.row[0], 10);
    EXPECT_EQ(s.l, 5);
    EXPECT_EQ(s.nload[1], 100);
    EXPECT_EQ(s.qload[1], 10);
    EXPECT_EQ(s.annexcode, "EU");
    EXPECT_EQ(s.gammam0, 1);
    EXPECT_EQ(s.neta, 1.2f);
    EXPECT_EQ(s.method, 1);
    EXPECT_EQ(s.fykindex, 5);
    EXPECT_EQ(s.fyk, 355);
    EXPECT_EQ(s.e, 210000);
    EXPECT_EQ(s.loadcomb, 4);
    EXPECT_EQ(s.deflimity, 300);
    EXPECT_EQ(s.safetyclass, 3);
    EXPECT_EQ(s.psi1, 0.7f);
    EXPECT_EQ(s.psi2, 0.7f);
    EXPECT_EQ(s.lfulsq1, 1.3f);
    EXPECT_EQ(s.lamdalt0, 0.4f);
    EXPECT_EQ(s.betaw, 0.75);
    EXPECT_EQ(s.irlimit, 1);
    EXPECT_EQ(s.checksls, kFalse);
    EXPECT_EQ(s.g610g, 1.35f);
    EXPECT_EQ(s.kfig, 1);
}

TEST(StartUp, WithoutASetupTheFirstAnnexSuppliesFactors)
{
    Library library = Delivered();
    library.setup.clear();
    ProjectState s{};
    StartUp(library, s);
    EXPECT_EQ(s.annexindex, 0);
    EXPECT_EQ(s.gammam0, 1);
    EXPECT_EQ(s.neta, 1.2f);
    EXPECT_EQ(s.g610q1, 1.5f);
    EXPECT_EQ(s.irlimit, 1);
    EXPECT_EQ(s.e, 0);
    EXPECT_FALSE(Calculate(library, s));  // no modulus, no limit of deflection: the one message
}

TEST(StartUp, WithoutTablesNothingCrashes)
{
    const Library empty;
    ProjectState s{};
    StartUp(empty, s);
    EXPECT_EQ(s.family, 1);
    EXPECT_FALSE(Calculate(empty, s));
}

TEST(NewProject, KeepsTheDesignSettings)
{
    Member s;
    s.gammam0 = 1.3;
    s.method = 2;
    s.loadcomb = 1;
    s.fyk = 460;
    s.fykindex = 26;
    s.checksls = kTrue;
    s.l = 12;
    s.family = 31;
    s.qload[2] = 3;
    s.pmchecked[8] = kTrue;
    s.ltb = 0;
    NewProject(Delivered(), s);
    EXPECT_EQ(s.gammam0, 1.3);
    EXPECT_EQ(s.method, 2);
    EXPECT_EQ(s.loadcomb, 1);
    EXPECT_EQ(s.fyk, 460);
    EXPECT_EQ(s.checksls, kTrue);
    EXPECT_EQ(s.l, 5);
    EXPECT_EQ(s.family, 1);
    EXPECT_EQ(s.qload[2], 0);
    EXPECT_EQ(s.pmchecked[8], kFalse);
    EXPECT_EQ(s.ltb, 1);
}

TEST(NewProject, PutsEveryLoadRowBack)
{
    const ProjectState s = Member();
    for (std::size_t i = 1; i <= 8; ++i) {
        EXPECT_EQ(s.pmchecked[i], i == 1 ? kTrue : kFalse);
        EXPECT_EQ(s.pmdir[i], 1);
        EXPECT_EQ(s.pm[i], 0);
    }
    for (std::size_t i = 1; i <= 4; ++i) {
        EXPECT_EQ(s.qchecked[i], i == 1 ? kTrue : kFalse);
        EXPECT_EQ(s.qdir[i], 1);
    }
    for (std::size_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(s.nchecked[i], i == 1 ? kTrue : kFalse);
        EXPECT_EQ(s.qtchecked[i], i == 1 ? kTrue : kFalse);
        EXPECT_EQ(s.qtdir[i], 1);
    }
    EXPECT_EQ(s.cp, (Rows<float, 3>{0, 1, 2, 3}));
    EXPECT_EQ(s.my1, 100);
    EXPECT_EQ(s.vz1, 50);
    EXPECT_EQ(s.mz2, 0);
}

TEST(NewProject, PutsEverySectionFormBack)
{
    const ProjectState s = Member();
    EXPECT_EQ(s.p24.hsqc, 5);
    EXPECT_EQ(s.p25.istc, 15);
    EXPECT_EQ(s.p53.isttw, 11.5);
    EXPECT_EQ(s.p41.istiy, 1184999936.0f);
    EXPECT_EQ(s.p41.istiw, 7569000103936.0f);
    EXPECT_EQ(s.p41ident, "General");
    EXPECT_EQ(s.p55.value6, 50);
    EXPECT_EQ(s.class23, 1);
    EXPECT_EQ(s.flangeload, 50);
    for (const Table table : {Table::shs, Table::rhs, Table::cfshs, Table::cfrhs, Table::l1}) {
        EXPECT_EQ(s.row[static_cast<std::size_t>(table)], 50);
    }
    EXPECT_EQ(s.row[static_cast<std::size_t>(Table::l2)], 40);
    EXPECT_EQ(s.row[static_cast<std::size_t>(Table::inp)], 11);
    EXPECT_EQ(s.row[static_cast<std::size_t>(Table::hp)], 5);
}

}  // namespace
}  // namespace kestrum
