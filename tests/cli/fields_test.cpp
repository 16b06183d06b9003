// `kestrum fields` says of each field what the program does with it.

#include "app/choices.h"
#include "cli/run.h"
#include "core/field_table.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Fields : public CommandLine {};

TEST_F(Fields, OneIsExplained)
{
    const std::string length = Kestrum("fields l").out;
    EXPECT_THAT(length, StartsWith("l\n  length of the member\n  unit:   m\n"));
    EXPECT_THAT(length, HasSubstr("limits: at least 0.05"));
    EXPECT_THAT(length, HasSubstr("role:   input"));
    const std::string load = Kestrum("fields 'qtype[2]'").out;
    EXPECT_THAT(load, StartsWith("qtype[0..4]\n"));
    EXPECT_THAT(load, HasSubstr("values: 0 G, 1 Q1, 2 Q2\n"));
    EXPECT_THAT(Kestrum("fields steel").out, HasSubstr("S355"));
    EXPECT_THAT(Kestrum("fields annex").out, HasSubstr("EU, NO, SW, DK, UK, FI, GE, NK"));
    EXPECT_THAT(Kestrum("fields ned").out, HasSubstr("compression positive"));
    EXPECT_THAT(Kestrum("fields deflimitz").out, HasSubstr("version 131"));
}

TEST_F(Fields, AWrongNameGetsTheNearest)
{
    const Said said = Kestrum("fields famly");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("famly: no such field; did you mean family?"));
    EXPECT_EQ(Kestrum("fields 'qload[77]'").exit, 2);
}

TEST_F(Fields, AllAreListedInEachForm)
{
    const std::string text = Kestrum("fields").out, csv = Kestrum("fields --format csv").out,
                      json = Kestrum("fields --json").out;
    const auto count = static_cast<std::ptrdiff_t>(AllFields().size());
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), count);
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), count + 1);
    EXPECT_EQ(std::count(json.begin(), json.end(), '\n'), count);
    for (const Field& field : AllFields()) {
        const std::string name(field.name);
        EXPECT_THAT(csv, HasSubstr("\n" + name + ","));
        EXPECT_THAT(json, HasSubstr("{\"name\": \"" + name + "\", "));
        EXPECT_THAT(json, Not(HasSubstr("\"meaning\": \"\""))) << name;
    }
}

TEST_F(Fields, LimitsAreThoseOfSetAndValuesHaveTheirNames)
{
    WriteGood("a.kst");
    EXPECT_EQ(Kestrum("set a.kst l=0.04").exit, 2);
    EXPECT_EQ(Kestrum("set a.kst l=0.05 'qload[1]=1' -o b.kst").exit, 0);
    for (const Field& field : AllFields()) {
        const Choice* const choice = ChoiceOf(field);
        if (choice == nullptr || choice->named.empty()) {
            continue;
        }
        const std::string name = IndexedName(field, std::max(field.first, field.last));
        const std::string facts = Kestrum("fields '" + name + "'").out;
        for (const NamedValue& value : {choice->named.front(), choice->named.back()}) {
            const std::string word(value.names.front());
            EXPECT_THAT(facts, HasSubstr(std::to_string(value.value) + " " + word)) << name;
        }
    }
}

// The tables of the file format and the schema follow from the same list, and what `dump --inputs`
// prints of each example fits the schema.
TEST_F(Fields, DocumentsAreCurrent)
{
    if (Shell("command -v python3").exit != 0) {
        GTEST_SKIP() << "python3 is not here";
    }
    const Said said =
        Shell("python3 '" KESTRUM_SOURCE "/tools/field-docs' --check '" KESTRUM_BIN "/kestrum'");
    EXPECT_EQ(said.exit, 0) << said.err;
}

}  // namespace
}  // namespace kestrum
