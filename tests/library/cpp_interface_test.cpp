// The interface for C++: the same numbers as the calculation itself, and errors as values.

#include <kestrum/kestrum.hpp>

#include "library/reference.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

namespace {

using kestrum::Basis;
using kestrum::Catalogue;
using kestrum::Member;
using kestrum::Status;

const Catalogue& Builtin()
{
    static const Catalogue catalogue = Catalogue::builtin();
    return catalogue;
}

std::string BytesOf(const std::filesystem::path& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

std::vector<std::filesystem::path> ExampleProjects()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(KESTRUM_SOURCE "/examples")) {
        if (entry.path().extension() == ".kst") {
            files.push_back(entry.path());
        }
    }
    return files;
}

// Bending of a beam held at third points: M = q L^2 / 8 = 10 * 36 / 8 = 45 kNm.
Member Beam()
{
    Member member(Builtin());
    const auto error = member.set({{"section", "IPE 300"},
                                   {"l", "6"},
                                   {"qload[1]", "10"},
                                   {"loadcomb", "4"},
                                   {"restraints", "2"}});
    EXPECT_FALSE(error) << error->text;
    return member;
}

TEST(CppInterface, EveryExampleHasTheNumbersOfTheCalculationItself)
{
    const auto files = ExampleProjects();
    ASSERT_GE(files.size(), 31U);
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string bytes = BytesOf(file);
        const Reference reference = ReferenceOf(bytes);
        Member member(Builtin());
        ASSERT_FALSE(member.read_project(bytes));
        const kestrum::Result result = member.check();
        EXPECT_EQ(result.ratio(), reference.ir);
        EXPECT_EQ(result.governing(), reference.control);
        EXPECT_EQ(result.verdict(), reference.verdict);
        EXPECT_EQ(result.notes().size(), reference.notes);
        EXPECT_EQ(result.json(), reference.json);
        if (reference.rated_by_standard) {
            EXPECT_EQ(result.ratio(Basis::standard), reference.ir_standard);
        } else {
            EXPECT_TRUE(std::isnan(result.ratio(Basis::standard)));
            EXPECT_FALSE(result.message(Basis::standard).empty());
        }
        EXPECT_EQ(member.project(), reference.project);
    }
}

TEST(CppInterface, TheMomentOfASimpleBeamIsThatOfTheFormula)
{
    const kestrum::Result result = Beam().check();
    EXPECT_EQ(result.status(), Status::within);
    EXPECT_NEAR(*result.value("mymax"), 45.0, 1e-4);
    EXPECT_NE(result.diagram_svg('z')->find("<svg"), std::string::npos);
    EXPECT_NE(result.section_svg()->find("<svg"), std::string::npos);
    EXPECT_NE(result.panel()->find("SECTION CONTROL"), std::string::npos);
}

// 45 kNm at midspan upon My,Rd = Wpl fy = 628.4 cm3 * 235 MPa = 147.7 kNm (6.2.5), and
// V = q L/2 = 30 kN upon Av fy/sqrt(3) = 2567 mm2 * 135.7 MPa = 348.3 kN (6.2.6).
TEST(CppInterface, TheChecksOfTheProgramAreThoseOfTheFormulas)
{
    Member beam = Beam();
    ASSERT_FALSE(beam.set("steel", "S235"));
    const kestrum::Result result = beam.check();
    double largest = 0;
    std::size_t found = 0;
    for (const kestrum::Check& check : result.checks()) {
        largest = std::max(largest, check.ratio);
        EXPECT_EQ(check.limit, 1.0);
        EXPECT_FALSE(check.clause.empty()) << check.check;
        if (check.check == "section_My") {
            ++found;
            EXPECT_EQ(check.formula, "My,Ed/My,Rd");
            EXPECT_EQ(check.clause, "6.2.5");
            EXPECT_NEAR(check.place, 0.5, 1e-6);
            EXPECT_NEAR(check.ratio, 45 / 147.7, 2e-4);
        }
        if (check.check == "section_Vz") {
            ++found;
            EXPECT_NEAR(check.ratio, 30 / 348.3, 2e-4);
        }
        if (check.check == "ltb") {
            ++found;
            EXPECT_TRUE(std::isnan(check.place));
            EXPECT_EQ(check.segments, 3);  // two restraints
        }
    }
    EXPECT_EQ(found, 3U);
    EXPECT_EQ(largest, result.ratio());
    for (const kestrum::Check& check : result.checks(Basis::standard)) {
        EXPECT_FALSE(check.load_case.empty()) << check.check;
    }
    EXPECT_TRUE(result.checks(Basis::both).empty());
}

// Points of an angle are numbered, sections have a place, segments a number and a count.
TEST(CppInterface, ChecksTellThePlaceThatTheyHave)
{
    Member angle(Builtin());
    ASSERT_FALSE(angle.set({{"section", "L 100x10"}, {"l", "2"}, {"qload[1]", "3"}}));
    std::size_t points = 0;
    for (const kestrum::Check& check : angle.check().checks()) {
        points += check.point > 0 ? 1 : 0;
        EXPECT_LE(check.point, 3) << check.check;
        EXPECT_TRUE(check.point == 0 || !std::isnan(check.place)) << check.check;
    }
    EXPECT_EQ(points, 2U);  // about both pairs of axes
    for (const kestrum::Check& check : Beam().check().checks()) {
        EXPECT_EQ(check.point, 0) << check.check;
    }
}

// Loads in z bend about y: the diagrams of y are empty lines.
TEST(CppInterface, EachAxisHasItsOwnDiagrams)
{
    const kestrum::Result result = Beam().check();
    const std::string z = *result.diagram_svg('z'), y = *result.diagram_svg('y');
    EXPECT_NE(z, y);
    EXPECT_NE(z.find("45.0"), std::string::npos);
    EXPECT_EQ(y.find("45.0"), std::string::npos);
}

TEST(CppInterface, ACostIsTheDifferenceOfTwoRatios)
{
    const Member beam = Beam();
    EXPECT_TRUE(beam.check().deviations().empty());
    const kestrum::Result result = beam.check({Basis::both, true});
    EXPECT_EQ(result.ratio(), beam.check().ratio());
    ASSERT_FALSE(result.deviations().empty());
    for (const kestrum::Deviation& at : result.deviations()) {
        EXPECT_NEAR(at.cost, result.ratio(Basis::standard) - at.without, 1e-12) << at.id;
        EXPECT_FALSE(at.text.empty());
        for (const kestrum::Note& note : result.notes()) {
            EXPECT_TRUE(note.id != at.id || note.cost == at.cost) << at.id;
        }
    }
}

TEST(CppInterface, ARefusedValueLeavesTheMemberAsItWas)
{
    Member member = Beam();
    const std::string before = member.project();
    const auto unknown = member.set("qlaod[1]", 3.0);
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->code, KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(unknown->field, "qlaod[1]");
    EXPECT_EQ(unknown->nearest, "qload");
    EXPECT_EQ(member.set("l", -2.0)->code, KESTRUM_REFUSED);
    EXPECT_EQ(member.set("l", std::nan(""))->code, KESTRUM_REFUSED);
    EXPECT_EQ(member.set("section", "IPE 301")->code, KESTRUM_REFUSED);
    EXPECT_EQ(member.set({{"l", "5"}, {"fyk", "much"}})->field, "fyk");
    EXPECT_EQ(member.set("ir", 0.5)->code, KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(member.read_project("no project")->line, 1);
    EXPECT_EQ(member.read_project({})->code, KESTRUM_BAD_FILE);
    EXPECT_EQ(member.project(), before);
}

TEST(CppInterface, InputsReadBackUnderTheNamesThatSetThem)
{
    Member member = Beam();
    ASSERT_FALSE(member.set("steel", "S355"));
    for (const char* const name : {"section", "steel", "l"}) {
        ASSERT_TRUE(member.text(name)) << member.text(name).error().text;
    }
    EXPECT_EQ(*member.text("section"), "IPE 300");
    EXPECT_EQ(*member.text("steel"), "S355");
    EXPECT_EQ(*member.text("l"), "6");
    EXPECT_EQ(*member.number("qload[1]"), 10.0);
    ASSERT_FALSE(member.set({{"l", "6.1"}, {"ident", "B 12"}}));
    EXPECT_EQ(*member.text("l"), "6.1");
    EXPECT_EQ(*member.text("ident"), "B 12");
    EXPECT_EQ(member.number("ident").error().code, KESTRUM_REFUSED);
    EXPECT_EQ(member.number("section").error().code, KESTRUM_REFUSED);
    EXPECT_EQ(member.text("nothing").error().code, KESTRUM_UNKNOWN_NAME);
}

TEST(CppInterface, ADoubtfulUnitIsRemarkedUpon)
{
    Member member(Builtin());
    std::string remarks;
    ASSERT_FALSE(member.set({{"l", "6000"}}, &remarks));
    EXPECT_NE(remarks.find("l: is 6000 m meant?"), std::string::npos) << remarks;
}

TEST(CppInterface, CopiesOfAMemberAreIndependent)
{
    Member one = Beam();
    Member other = one;
    ASSERT_FALSE(other.set("l", 8.0));
    EXPECT_EQ(*one.number("l"), 6.0);
    one = other;
    ASSERT_FALSE(other.set("l", 9.0));
    EXPECT_EQ(*one.number("l"), 8.0);
}

TEST(CppInterface, AnUnstableMemberIsAResultAndNoError)
{
    Member column(Builtin());
    ASSERT_FALSE(
        column.set({{"section", "IPE 100"}, {"l", "10"}, {"nload[1]", "3000"}, {"qload[1]", "1"}}));
    const kestrum::Result result = column.check();
    EXPECT_EQ(result.status(), Status::unstable);
    ASSERT_TRUE(result.failure());
    EXPECT_GT(result.failure().value, result.failure().limit);
    EXPECT_FALSE(result.panel());
    EXPECT_FALSE(result.value("kyy"));
    EXPECT_EQ(Member(Builtin()).check().status(), Status::nothing_acts);
}

TEST(CppInterface, TheBasisOfTheProgramAloneLeavesTheStandardOut)
{
    const kestrum::Result result = Beam().check({Basis::program});
    EXPECT_FALSE(result.checks().empty());
    EXPECT_TRUE(result.checks(Basis::standard).empty());
    EXPECT_TRUE(std::isnan(result.ratio(Basis::standard)));
    EXPECT_EQ(result.status(Basis::standard), Status::not_checked);
    EXPECT_FALSE(Beam().check().checks(Basis::standard).empty());
}

TEST(CppInterface, ManyThreadsGiveTheResultOfOne)
{
    const Member beam = Beam();
    const std::string alone = beam.check().json();
    std::vector<std::string> answers(8);
    std::vector<std::thread> threads;
    for (std::string& answer : answers) {
        threads.emplace_back([&answer, &beam] {
            for (int i = 0; i < 20; ++i) {
                Member own = beam;
                answer = own.check().json();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::string& answer : answers) {
        EXPECT_EQ(answer, alone);
    }
}

TEST(CppInterface, AFolderTakesThePlaceOfTheTablesInside)
{
    const auto folder = Catalogue::open(KESTRUM_SHARE);
    ASSERT_TRUE(folder);
    EXPECT_EQ(*folder->sections("IPE"), *Builtin().sections("4"));
    ASSERT_GE(folder->sections("IPE")->size(), 18U);
    EXPECT_EQ(folder->sections("IPE")->front(), "IPE 80");
    EXPECT_EQ((*folder->sections("IPE"))[17], "IPE 600");
    EXPECT_EQ(Catalogue::open("/nonexistent").error().code, KESTRUM_BAD_FILE);
    const kestrum::TemporaryFolder without;
    std::filesystem::copy(KESTRUM_SHARE, without.path(), std::filesystem::copy_options::recursive);
    ASSERT_TRUE(Catalogue::open(without.path()));
    std::filesystem::remove(without.path() / "KestrumECmat.dat");
    EXPECT_EQ(Catalogue::open(without.path()).error().text,
              without.path().string() + ": no material list");
    EXPECT_EQ(Catalogue::open(KESTRUM_SOURCE).error().code, KESTRUM_BAD_FILE);
    EXPECT_EQ(Builtin().sections("XYZ").error().code, KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(Builtin().sections("99").error().code, KESTRUM_UNKNOWN_NAME);
}

}  // namespace
