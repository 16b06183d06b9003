#include "core/field_table.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <tuple>

namespace kestrum {
namespace {

// The texts of the headers that declare the slices of the record.
std::string SliceHeaders()
{
    std::string text;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(KESTRUM_SOURCE) + "/src/core/state")) {
        std::ifstream file(entry.path());
        text.append(std::istreambuf_iterator<char>(file), {});
    }
    return text;
}

// Names that the headers of the slices declare inside a struct, read from their texts.
std::set<std::string> Declared(const std::string& record)
{
    std::string text = SliceHeaders();
    text = std::regex_replace(text, std::regex("//[^\n]*"), "");
    text = std::regex_replace(text, std::regex("\\s+"), " ");
    const std::size_t begin = text.find("struct " + record + " {");
    EXPECT_NE(begin, std::string::npos) << record;
    std::string body = text.substr(begin, text.find(" };", begin) - begin);
    body = body.substr(body.find('{') + 1);
    std::set<std::string> names;
    const std::regex declaration("(std::\\w+(?:<[^;]*?>)?|Rows<[^;]*?>|\\w+) ([a-z0-9_, ]+);");
    for (auto at = std::sregex_iterator(body.begin(), body.end(), declaration);
         at != std::sregex_iterator(); ++at) {
        const std::string list = (*at)[2];
        const std::regex name("[a-z0-9_]+");
        for (auto word = std::sregex_iterator(list.begin(), list.end(), name);
             word != std::sregex_iterator(); ++word) {
            const std::string type = (*at)[1];
            if (type != "CheckList" && type != "Failure" && type != "DroppedLoads" &&
                type != "std::optional<std::bitset<kMostDeviations>>") {
                names.insert(word->str());
            }
        }
    }
    return names;
}

TEST(FieldTable, HoldsEveryFieldOfTheRecordOnce)
{
    std::set<std::string> found;
    for (const Field& field : AllFields()) {
        EXPECT_TRUE(found.insert(std::string(field.name)).second) << field.name;
    }
    std::set<std::string> declared;
    for (const char* const slice :
         {"Identification", "Settings", "MemberInputs", "LoadInputs", "SectionForms",
          "AnnexFactors", "SectionRecord", "Resistances", "Forces", "SectionChecks", "Stability",
          "Service", "PassOutcome", "Carry"}) {
        for (const std::string& name : Declared(slice)) {
            EXPECT_TRUE(declared.insert(name).second) << name << " stands in two slices";
        }
    }
    EXPECT_GT(declared.size(), 400U);
    std::size_t plain = 0;
    for (const std::string& name : declared) {
        const bool group = std::any_of(found.begin(), found.end(), [&](const std::string& f) {
            return f.starts_with(name + ".");
        });
        EXPECT_TRUE(group || found.count(name) == 1) << name;
        plain += found.count(name);
    }
    const auto dotted = std::count_if(found.begin(), found.end(), [](const std::string& f) {
        return f.find('.') != std::string::npos;
    });
    EXPECT_EQ(plain + static_cast<std::size_t>(dotted), found.size());
}

TEST(FieldTable, HoldsEveryBoxOfTheSectionForms)
{
    const std::pair<const char*, const char*> forms[] = {
        {"FormP21", "p21"}, {"FormP22", "p22"},         {"FormP23", "p23"},
        {"FormP24", "p24"}, {"FormP25", "p25"},         {"FormP26", "p26"},
        {"FormP27", "p27"}, {"FormP28", "p28"},         {"FormP31", "p31"},
        {"FormP41", "p41"}, {"FormP51", "p51"},         {"FormP53", "p53"},
        {"FormP55", "p55"}, {"FormPlateRolled", "p52"}, {"FormPlateRolled", "p54"},
        {"FormP56", "p56"},
    };
    for (const auto& [record, form] : forms) {
        const std::set<std::string> boxes = Declared(record);
        EXPECT_FALSE(boxes.empty());
        for (const std::string& box : boxes) {
            const Field* field = FindField(std::string(form) + "." + box);
            ASSERT_NE(field, nullptr) << form << "." << box;
            EXPECT_EQ(field->role, FieldRole::input);
        }
    }
}

// Every dotted field of a section form is found through its form, and nothing else.
TEST(FieldTable, FormsHoldTheirBoxes)
{
    std::size_t dotted = 0;
    std::set<std::string_view> forms;
    for (const Field& field : AllFields()) {
        const std::size_t dot = field.name.find('.');
        if (dot != std::string_view::npos && !field.name.starts_with("row.")) {
            ++dotted;
            forms.insert(field.name.substr(0, dot));
        }
    }
    std::size_t found = 0;
    for (const std::string_view form : forms) {
        for (const Field& field : FieldsOfForm(form)) {
            EXPECT_TRUE(field.name.starts_with(std::string(form) + ".")) << field.name;
            ++found;
        }
    }
    EXPECT_EQ(found, dotted);
    EXPECT_TRUE(FieldsOfForm("p99").empty());
    EXPECT_TRUE(FieldsOfForm("").empty());
}

TEST(FieldTable, ReachesTheValues)
{
    ProjectState s{};
    s.l = 7.5f;
    s.ned = -3;
    s.row[static_cast<std::size_t>(Table::pfc)] = 4;
    s.p22.isttw = 11;
    s.qload[2] = 12.5f;
    s.projname = "Bridge";
    s.curvey = "b";
    s.calculationerror = true;
    EXPECT_EQ(NumberOf(s, *FindField("l")), 7.5);
    EXPECT_EQ(NumberOf(s, *FindField("ned")), -3);
    EXPECT_EQ(NumberOf(s, *FindField("row.pfc")), 4);
    EXPECT_EQ(NumberOf(s, *FindField("p22.isttw")), 11);
    EXPECT_EQ(NumberOf(s, *FindField("qload"), 2), 12.5);
    EXPECT_EQ(TextOf(s, *FindField("projname")), "Bridge");
    EXPECT_EQ(TextOf(s, *FindField("curvey")), "b");
    EXPECT_EQ(NumberOf(s, *FindField("calculationerror")), 1);

    *static_cast<float*>(FindField("pmx")->locate(s, 8)) = 3;
    EXPECT_EQ(s.pmx[8], 3);
}

TEST(FieldTable, ResolvesNamesWithAnIndex)
{
    const auto row = ResolveField("qload[4]");
    ASSERT_TRUE(row);
    EXPECT_EQ(row->field->name, "qload");
    EXPECT_EQ(row->index, 4);
    EXPECT_TRUE(ResolveField("l"));
    EXPECT_TRUE(ResolveField("row.hea"));
    for (const char* name :
         {"", "nothing", "qload", "qload[5]", "qload[-1]", "qload[]", "qload[1", "qload[1]x",
          "qload[x]", "pm[0]", "l[1]", "L", "p22", "yline", "[1]"}) {
        EXPECT_FALSE(ResolveField(name)) << name;
    }
}

TEST(FieldTable, TellsWhatAFileKeeps)
{
    EXPECT_EQ(FindField("gammam0")->role, FieldRole::input);
    EXPECT_EQ(FindField("lamdalt0w")->role, FieldRole::setup);
    EXPECT_EQ(FindField("annexindex")->role, FieldRole::derived);
    EXPECT_EQ(FindField("ned")->role, FieldRole::derived);
    EXPECT_EQ(FindField("psi1")->role, FieldRole::derived);
    // Arrays in the file: 3 of the axial rows, 4 of the q rows, 7 trapezoidal, 6 of the point rows,
    // the check points.
    int arrays = 0;
    for (const Field& field : AllFields()) {
        arrays += field.role == FieldRole::input && field.shape == FieldShape::array ? 1 : 0;
    }
    EXPECT_EQ(arrays, 3 + 4 + 7 + 6 + 1);
}

// What the project keeps has a line there, and no two values of a part or block share one but the
// boxes of a form, which follow the list.
TEST(FieldTable, EveryInputHasItsOwnLineInTheFile)
{
    std::set<std::tuple<FilePart, int, int, int>> lines;
    for (const Field& field : AllFields()) {
        EXPECT_EQ(field.role != FieldRole::derived, field.file[0].part != FilePart::none)
            << field.name;
        const bool box = !FieldsOfForm(field.name.substr(0, field.name.find('.'))).empty();
        for (const FilePlace& at : field.file) {
            EXPECT_TRUE(box || at.part == FilePart::none ||
                        lines.emplace(at.part, at.block, at.choice, at.line).second)
                << field.name;
        }
        EXPECT_EQ(field.older != nullptr, field.since + field.changed > 0) << field.name;
    }
}

TEST(FieldTable, CheckSectionsEndAtTheLastOneUsed)
{
    ProjectState s{};
    s.npts = 12;
    EXPECT_EQ(LastIndex(*FindField("xi"), s), 12);
    EXPECT_EQ(LastIndex(*FindField("mydiag"), s), kDiagramPoints - 1);
    EXPECT_EQ(FindField("mydiag")->first, 0);
    EXPECT_EQ(FindField("freq")->first, 1);
    EXPECT_EQ(FindField("qload")->first, 0);
    s.npts = 99;
    EXPECT_EQ(LastIndex(*FindField("xi"), s), kCheckSections - 1);
}

}  // namespace
}  // namespace kestrum
