#include "app/assign.h"

#include "app/choices.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "sections/family_table.h"
#include "support/members.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

Library Materials()
{
    Library library;
    library.materials = {{"S235", 235, 215}, {"S355", 355, 335}, {"General", 0, 0}};
    return library;
}

const Library kLibrary = Materials();

std::string Set(ProjectState& s, const char* name, const char* text)
{
    return AssignField(kLibrary, s, name, text, Assignment::checked);
}

std::string SetRaw(ProjectState& s, const char* name, const char* text)
{
    return AssignField(kLibrary, s, name, text, Assignment::raw);
}

TEST(Assign, GoesThroughTheBoxOfTheField)
{
    ProjectState s{};
    EXPECT_EQ(Set(s, "l", "7,5"), "");
    EXPECT_EQ(s.l, 7.5f);
    EXPECT_EQ(Set(s, "qload[2]", "12.5"), "");
    EXPECT_EQ(s.qload[2], 12.5f);
    EXPECT_EQ(Set(s, "p22.isttw", "11"), "");
    EXPECT_EQ(s.p22.isttw, 11);
    EXPECT_EQ(Set(s, "l", "0.01"), " L >= 0.050 (0.01 m is given; at least 0.05 m)");
    EXPECT_EQ(s.l, 7.5f);  // as it was
    EXPECT_EQ(Set(s, "l", "abc"), "Input string mismatch ");
    EXPECT_NE(Set(s, "l", ""), "");
}

TEST(Assign, GoesThroughTheListOfTheField)
{
    ProjectState s{};
    EXPECT_EQ(Set(s, "family", "101"), "");
    EXPECT_EQ(s.family, 101);
    for (const char* value : {"0", "12", "55", "57", "999", "1.5", "x", ""}) {
        EXPECT_NE(Set(s, "family", value), "") << value;
    }
    EXPECT_EQ(s.family, 101);
    EXPECT_EQ(Set(s, "row.hea", "23"), "");
    EXPECT_NE(Set(s, "row.hea", "24"), "");
    EXPECT_EQ(Set(s, "row.pfc", "15"), "");
    EXPECT_NE(Set(s, "row.pfc", "16"), "");
    EXPECT_EQ(Set(s, "fykindex", "2"), "");
    EXPECT_NE(Set(s, "fykindex", "3"), "");
    EXPECT_EQ(Set(s, "p41.opn", "3"), "");
    EXPECT_NE(Set(s, "p41.opn", "2"), "");
    EXPECT_EQ(Set(s, "psi1index", "6"), "");
    EXPECT_EQ(s.psi1, 0.7f);
}

TEST(Assign, TakesProfilesAndSteelsByName)
{
    ProjectState s{};
    EXPECT_EQ(Set(s, "fykindex", "s355"), "");
    EXPECT_EQ(s.fykindex, 1);
    EXPECT_EQ(Set(s, "fykindex", "S460"), "no such name in the list (0 to 2)");
    EXPECT_EQ(SetRaw(s, "fykindex", "S235"), "");
    EXPECT_EQ(s.fykindex, 0);
    const auto set = [&s](const char* name, const char* text) {
        return AssignField(Delivered(), s, name, text, Assignment::checked);
    };
    for (const char* name : {"IPE 400", "IPE400", " ipe  400 "}) {
        s.row[static_cast<std::size_t>(Table::ipe)] = 0;
        EXPECT_EQ(set("row.ipe", name), "") << name;
        EXPECT_EQ(s.row[static_cast<std::size_t>(Table::ipe)], 13) << name;  // 80, 100 .. 400
    }
    const std::string list = "in the list (0 to " + std::to_string(RowCount(Table::ipe) - 1) +
                             ", see `kestrum sections 4`)";
    EXPECT_TRUE(
        set("row.ipe", "IPE 401").starts_with("no such name " + list + "; did you mean IPE 400"));
    EXPECT_TRUE(set("row.ipe", "nothing of the kind").ends_with(list));
    EXPECT_TRUE(set("row.ipe", "HEA 200").starts_with("no such name"));
    EXPECT_EQ(set("row.ipe", "99"), "not " + list);
    EXPECT_EQ(set("row.uc", "UC 203x203x46"), "");
    EXPECT_EQ(RowName(Delivered(), Table::uc, s.row[static_cast<std::size_t>(Table::uc)]),
              "UC 203x203x46");
}

// A name stands for one row: each, as it is listed, gives that row back.
TEST(Assign, EveryProfileIsFoundByItsName)
{
    for (const Field& field : AllFields()) {
        const std::optional<Table> table = TableOfField(field.name);
        for (int row = 0; table && row < RowCount(*table); ++row) {
            const std::string name = RowName(Delivered(), *table, row);
            EXPECT_EQ(ValueOfName(Delivered(), *FindChoice(field.name), name), row) << name;
        }
    }
}

TEST(Assign, TellsWhatAListOffers)
{
    ProjectState s{};
    EXPECT_EQ(Set(s, "supportcase", "7"),
              "not in the list (0 pinned-pinned, 1 pinned-fixed, 2 fixed-fixed, 3 springs, "
              "4 cantilever, 5 pinned-spring)");
    EXPECT_EQ(Set(s, "restraints", "7"), "not in the list (0 to 5)");
    EXPECT_EQ(Set(s, "family", "99"), "not in the list of `kestrum sections`");
    EXPECT_EQ(Set(s, "p41.opn", "2"), "not in the list (1 class 1-2, 3 class 3)");
    EXPECT_TRUE(Set(s, "annexcode", "nowhere")
                    .starts_with("no such annex; there are EU, NO, SW, DK, UK, FI, GE, NK"));
}

TEST(Assign, ListsHoldOnlyInputs)
{
    for (const Field& field : AllFields()) {
        if (FindChoice(field.name) != nullptr) {
            EXPECT_EQ(field.role, FieldRole::input) << field.name;
        }
    }
}

TEST(Assign, TruthHasItsWords)
{
    ProjectState s{};
    for (const char* yes : {"true", "1", "-1", "#TRUE#"}) {
        s.checksls = kFalse;
        EXPECT_EQ(Set(s, "checksls", yes), "");
        EXPECT_EQ(s.checksls, kTrue) << yes;
    }
    for (const char* no : {"false", "0", "#FALSE#"}) {
        s.qchecked[3] = kTrue;
        EXPECT_EQ(Set(s, "qchecked[3]", no), "");
        EXPECT_EQ(s.qchecked[3], kFalse) << no;
    }
    EXPECT_NE(Set(s, "checksls", "2"), "");
}

TEST(Assign, RefusesWhatTheFileDoesNotKeep)
{
    ProjectState s{};
    const ProjectState before = s;
    for (const char* name : {"ned", "irsection", "psi1", "annexindex", "lamdalt0", "irlimit",
                             "nothing", "qload[0]", "qload", "qload[5]", "rows", ""}) {
        EXPECT_NE(Set(s, name, "1"), "") << name;
        EXPECT_NE(SetRaw(s, name, "1"), "") << name;
    }
    EXPECT_EQ(s, before);
}

TEST(Assign, RawStoresWhatTheReaderWould)
{
    ProjectState s{};
    EXPECT_EQ(SetRaw(s, "l", "0"), "");
    EXPECT_EQ(s.l, 0);
    EXPECT_EQ(SetRaw(s, "family", "999"), "");
    EXPECT_EQ(s.family, 999);
    EXPECT_EQ(SetRaw(s, "row.hea", "32767"), "");
    EXPECT_EQ(s.row[0], 32767);
    EXPECT_EQ(SetRaw(s, "spring", "2.5"), "");
    EXPECT_EQ(s.spring, 2);
    EXPECT_NE(SetRaw(s, "spring", "32768"), "");
    EXPECT_NE(SetRaw(s, "l", "1E39"), "");
    EXPECT_NE(SetRaw(s, "l", "nan"), "");
    EXPECT_NE(SetRaw(s, "gammam0", "inf"), "");
    EXPECT_EQ(SetRaw(s, "gammam0", "1E39"), "");
    EXPECT_EQ(s.gammam0, 1e39);
}

TEST(Assign, AnnexBringsItsParameters)
{
    ProjectState s{};
    s.fyk = 355;
    s.safetyclass = 1;
    EXPECT_EQ(Set(s, "annexcode", "NO"), "");
    EXPECT_EQ(s.annexindex, 1);
    EXPECT_EQ(s.gammam0, 1.05);
    EXPECT_EQ(s.kfiq, 0.9f);
    EXPECT_NE(Set(s, "annexcode", "XX"), "");
    EXPECT_EQ(s.annexcode, "NO");
}

TEST(Assign, TextsKeepToOneLine)
{
    ProjectState s{};
    EXPECT_EQ(Set(s, "projname", "Bridge, \"north\""), "");
    EXPECT_EQ(s.projname, "Bridge, \"north\"");
    EXPECT_NE(Set(s, "projname", "a\nb"), "");
    EXPECT_NE(Set(s, "p41ident", "a\"b"), "");
    EXPECT_EQ(Set(s, "p41ident", ""), "");
}

Member OfFourMetres()
{
    return Member::Bare().Length(4);
}

TEST(MisplacedLoad, TellsWhatLiesBeyondTheMember)
{
    Member s = OfFourMetres();
    EXPECT_EQ(MisplacedLoad(s), "");
    s.pmx[8] = 4;
    EXPECT_EQ(MisplacedLoad(s), "");
    s.pmx[8] = 4.001f;  // an empty row, too, makes check sections
    EXPECT_EQ(MisplacedLoad(s), "pmx[8]: beyond the member");

    s = OfFourMetres();
    s.qtx1[2] = 1;
    s.qtx2[2] = 5;
    EXPECT_EQ(MisplacedLoad(s), "");  // no load
    s.qt2[2] = 3;
    EXPECT_EQ(MisplacedLoad(s), "qtx2[2]: beyond the member");
    s.qtx1[2] = 4.5f;
    EXPECT_EQ(MisplacedLoad(s), "qtx1[2]: beyond the member");

    s = OfFourMetres();
    s.cp = {0, 1, 5, 6};
    s.cpcount = 1;
    s.cpmode = 1;
    EXPECT_EQ(MisplacedLoad(s), "");
    s.cpcount = 2;
    EXPECT_EQ(MisplacedLoad(s), "cp[2]: beyond the member");
    s.cpmode = 0;
    EXPECT_EQ(MisplacedLoad(s), "");
}

TEST(MisplacedLoad, TellsOfTrapezoidalLoadsThatTheLoadFormWouldNotLeave)
{
    Member s = OfFourMetres();
    s.qt1[3] = 5;
    s.qt2[3] = 5;
    s.qtx1[3] = 3;
    s.qtx2[3] = 1;
    EXPECT_EQ(MisplacedLoad(s), "qtx1[3]: x1 < x2");
    s.qtx2[3] = 4;
    EXPECT_EQ(MisplacedLoad(s), "");
    s.qt2[3] = -5;
    EXPECT_EQ(MisplacedLoad(s), "qt1[3]: Trapezoidal load: One positive and one negative value");
    s.loadmode = 0;  // given end forces
    EXPECT_EQ(MisplacedLoad(s), "");
}

TEST(Assign, TellsWhoOverrulesAValue)
{
    ProjectState s{};
    s.annexindex = kAnnexUd;
    s.fykindex = 2;
    EXPECT_EQ(OverruledBy(kLibrary, s, "gammam0"), "");
    EXPECT_EQ(OverruledBy(kLibrary, s, "fyk"), "");
    EXPECT_EQ(OverruledBy(kLibrary, s, "l"), "");
    s.annexindex = 1;
    s.fykindex = 1;
    EXPECT_EQ(OverruledBy(kLibrary, s, "gammam0"), "set by the national annex NO");
    EXPECT_EQ(OverruledBy(kLibrary, s, "fyk"), "set by the material S355");
    s.annexindex = kAnnexNk;
    s.loadcomb = 1;
    EXPECT_EQ(OverruledBy(kLibrary, s, "loadcomb"), "set by the national annex NK");
}

// A text in Latin-1 is what its project file would read.
TEST(Assign, TextIsStoredAsItsFileReads)
{
    ProjectState s = Member();
    EXPECT_EQ(Set(s, "projname", "Halle f\xFCr Stahl"), "");
    EXPECT_EQ(s.projname, "Halle f\xC3\xBCr Stahl");
    ProjectState read{};
    ASSERT_FALSE(ReadProject(read, WriteProject(s)));
    EXPECT_EQ(read.projname, s.projname);
}

}  // namespace
}  // namespace kestrum
