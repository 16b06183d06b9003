// The dump of projects of every kind read back by a JSON parser of somebody else.

#include "core/project_state.h"
#include "report/state_json.h"

#include "core/annexes.h"
#include "core/field_table.h"
#include "core/load_combination.h"
#include "core/project_file.h"
#include "sections/families.h"
#include "support/members.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <initializer_list>
#include <string>

namespace kestrum {
namespace {

using nlohmann::json;

// What the program has in hand after a project was opened and calculated.
ProjectState Opened(ProjectState inputs)
{
    Member s;
    EXPECT_FALSE(ReadProject(s, WriteProject(inputs)));
    EndsWell(s);
    return s;
}

void ExpectValue(const json& value, const ProjectState& s, const Field& field, int index)
{
    switch (field.kind) {
    case FieldKind::text:
    case FieldKind::literal:
        EXPECT_EQ(value.get<std::string>(), TextOf(s, field));
        break;
    case FieldKind::truth:
        EXPECT_EQ(value.get<bool>(), NumberOf(s, field, index) != 0);
        break;
    case FieldKind::single:
        EXPECT_EQ(value.get<float>(), static_cast<float>(NumberOf(s, field, index)));
        break;
    default:
        EXPECT_EQ(value.get<double>(), NumberOf(s, field, index));
        break;
    }
}

void ExpectRows(const json& rows)
{
    for (const char* block : {"section", "buckling", "deflection"}) {
        EXPECT_EQ(rows[block].size(), std::string(block) == "deflection" ? 2U : 3U);
        for (const json& row : rows[block]) {
            EXPECT_EQ(row.size(), 6U);
            for (const char* text : {"label", "calculation", "result", "limit"}) {
                EXPECT_TRUE(row[text].is_string());
            }
            EXPECT_TRUE(row["ir"].is_number());
            EXPECT_TRUE(row["status"] == 2 || row["status"] == 4);
        }
    }
}

// Every field stands in the dump once, with the value of the record to the last bit.
void ExpectWholeState(const ProjectState& s)
{
    const std::string text = StateJson(s);
    ASSERT_TRUE(json::accept(text));
    const json state = json::parse(text);
    std::size_t fields = 0;
    for (const Field& field : AllFields()) {
        SCOPED_TRACE(field.name);
        ASSERT_TRUE(state.contains(std::string(field.name)));
        const json& value = state[std::string(field.name)];
        ++fields;
        if (field.shape == FieldShape::scalar) {
            ExpectValue(value, s, field, 0);
            continue;
        }
        const int last = LastIndex(field, s);
        ASSERT_EQ(static_cast<int>(value.size()), last - field.first + 1);
        for (int i = field.first; i <= last; ++i) {
            ExpectValue(value[static_cast<std::size_t>(i - field.first)], s, field, i);
        }
    }
    EXPECT_EQ(state.size(), fields + 11 + 5);  // texts; rows, notes, verdict, failure, dropped
    ExpectRows(state["rows"]);
    EXPECT_TRUE(state["notes"].is_array());
}

TEST(StateJson, HoldsTheDefaultProject)
{
    ExpectWholeState(Opened(Member()));
}

TEST(StateJson, HoldsAProjectOfEveryFamilyInBothLoadModes)
{
    for (const int family : FamilyNumbers()) {
        for (const i16 loadmode : std::initializer_list<i16>{0, 1}) {
            SCOPED_TRACE(family);
            Member s;
            s.family = static_cast<i16>(family);
            s.loadmode = loadmode;
            s.modal = 1;
            s.checksls = kTrue;
            s.restraints = 2;
            s.nload[1] = s.ne = 1;
            s.checkconsercontrol = family == 28 ? kTrue : kFalse;
            ExpectWholeState(Opened(s));
        }
    }
}

TEST(StateJson, HoldsEveryAnnexWithEverySelector)
{
    for (int annex = 0; annex < kAnnexes; ++annex) {
        for (i16 selector = kEq610; selector <= kBasicLoads; ++selector) {
            SCOPED_TRACE(std::string(AnnexCodeFromIndex(annex)) + " " + std::to_string(selector));
            Member s;
            s.annexcode = AnnexCodeFromIndex(annex);
            s.annexindex = static_cast<i16>(annex);
            s.loadcomb = selector;
            const ProjectState opened = Opened(s);
            EXPECT_EQ(opened.loadcomb, annex == kAnnexNk ? kUserFactors : selector);
            EXPECT_FALSE(opened.calculationerror);
            ExpectWholeState(opened);
        }
    }
}

TEST(StateJson, HoldsPassesThatFailedAndNumbersWithoutSection)
{
    Member overloaded;
    overloaded.nload[1] = 1e6f;
    EXPECT_TRUE(Opened(overloaded).calculationerror);
    ExpectWholeState(Opened(overloaded));
    Member shapeless;
    shapeless.l = 0;
    const ProjectState failed = Opened(shapeless);  // infinite values on the way
    EXPECT_TRUE(failed.calculationerror);
    EXPECT_TRUE(json::accept(StateJson(failed)));
    for (const i16 family : std::initializer_list<i16>{0, 55, 999}) {
        Member s;
        s.family = family;
        ExpectWholeState(Opened(s));
    }
}

TEST(StateJson, TextsOfAnyKindAreQuoted)
{
    Member s;
    s.projname = "Hall \"3\", back\\slash\ttab, \xc3\xa6\xc3\xb8\xc3\xa5";
    const json state = json::parse(StateJson(s));
    EXPECT_EQ(state["projname"], s.projname);
}

// My 60 kNm against 80 at mid-span, Mz 10 against 40 at a quarter: My has the row.
TEST(ChecksJson, HoldsEachCheckWithClausePlaceAndTerms)
{
    ProjectState s{};
    s.irlimit = 1;
    CheckList& list = s.checklist;
    Check& my = list.Govern(CheckId::my);
    my.form = CheckForm::my_shear;
    my.place = {.kind = CheckPlace::Kind::section, .x = 0.5};
    my.ratio = 0.75;
    my.terms = {60, 80};
    Check& mz = list[CheckId::mz];
    mz.form = CheckForm::mz;
    mz.place = {.kind = CheckPlace::Kind::section, .x = 0.25};
    mz.ratio = 0.25;
    mz.terms = {10, 40};
    Check& ltb = list.Govern(CheckId::ltb);
    ltb.form = CheckForm::ltb;
    ltb.place = {.kind = CheckPlace::Kind::segment, .number = 2, .parts = 3};
    list.Govern(CheckId::no_buckling).form = CheckForm::no_buckling;  // a remark, no check
    const json checks = json::parse(ChecksJson(s));
    ASSERT_EQ(checks.size(), 3U);
    EXPECT_EQ(checks[0],
              json::parse(R"({"check": "section", "part": "My", "formula": "My,Ed/MV,y,Rd",
        "clause": "6.2.8", "place": {"x": 0.5}, "ir": 0.75, "limit": 1, "governs": true,
        "terms": [60, 80]})"));
    EXPECT_EQ(checks[1]["check"], "section");
    EXPECT_EQ(checks[1]["part"], "Mz");
    EXPECT_EQ(checks[2]["check"], "ltb");
    EXPECT_FALSE(checks[2].contains("part"));
    EXPECT_EQ(checks[1]["governs"], false);
    EXPECT_EQ(checks[2]["place"], json::parse(R"({"segment": 2, "segments": 3})"));
}

// Each row of the answer shows one of the checks, and no check has a larger ratio than its row.
TEST(ChecksJson, GoverningChecksAreThoseOfTheRows)
{
    for (const FamilyTraits& family : Families()) {
        Member s;
        s.family = static_cast<i16>(family.id);
        s.checksls = kTrue;
        s.nload[1] = 20;
        s.qload[1] = 5;
        if (!EndsWell(s)) {
            continue;
        }
        std::size_t rows = 0;
        const json lines = json::parse(RowsJson(s));
        for (const char* const block : {"section", "buckling", "deflection"}) {
            for (const json& row : lines[block]) {
                rows += row["result"] != "" ? 1 : 0;
            }
        }
        std::size_t governing = 0;
        for (const json& check : json::parse(ChecksJson(s))) {
            governing += check["governs"] ? 1 : 0;
            EXPECT_GT(check["ir"], 0) << family.id;
        }
        EXPECT_EQ(governing, rows) << family.id;
        for (std::size_t id = 1; id < kChecks; ++id) {
            const auto check = static_cast<CheckId>(id);
            EXPECT_LE(s.checklist[check].ratio, s.checklist.row(RowOf(check)).ratio) << family.id;
        }
    }
}

TEST(ChecksJson, LeavesOutADeflectionThatIsNoPartOfTheResult)
{
    ProjectState s{};
    s.loadmode = 1;
    s.checksls = kTrue;
    s.checklist.Govern(CheckId::deflection_z).form = CheckForm::deflection_z;
    EXPECT_EQ(json::parse(ChecksJson(s)).size(), 1U);
    s.loadmode = 0;  // kept of an earlier member
    EXPECT_EQ(ChecksJson(s), "[]");
    s.loadmode = 1;
    s.checksls = kFalse;
    EXPECT_EQ(ChecksJson(s), "[]");
}

TEST(InputsJson, HoldsWhatTheFileKeepsAndNothingElse)
{
    const json inputs = json::parse(InputsJson(Opened(Member())));
    for (const Field& field : AllFields()) {
        EXPECT_EQ(inputs.contains(std::string(field.name)), field.role == FieldRole::input)
            << field.name;
    }
}

}  // namespace
}  // namespace kestrum
