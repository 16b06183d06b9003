// Broken project files: what is reported, what is kept, and that no bytes do harm.

#include "core/field_table.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "support/project_lines.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace kestrum {
namespace {

using namespace project_lines;
using std::string_literals::operator""s;

constexpr i16 kOld = 77;  // what every number holds before reading

ProjectState OldState()
{
    ProjectState s{};
    for (const Field& field : AllFields()) {
        for (int k = 0; k <= field.last; ++k) {
            void* const at = field.locate(s, k);
            switch (field.kind) {
            case FieldKind::single:
                *static_cast<float*>(at) = kOld;
                break;
            case FieldKind::real:
                *static_cast<double*>(at) = kOld;
                break;
            case FieldKind::integer:
                *static_cast<i16*>(at) = kOld;
                break;
            default:
                break;
            }
        }
    }
    s.projname = s.ident = s.annexcode = s.p41ident = "old";
    return s;
}

bool Holds(const ProjectState& s, const std::string& name, const std::string& text)
{
    if (name == "version") {
        return true;
    }
    const std::optional<FieldRef> ref = ResolveField(name);
    EXPECT_TRUE(ref) << name;
    if (ref->field->kind == FieldKind::text) {
        return TextOf(s, *ref->field) == text ||
               '"' + std::string(TextOf(s, *ref->field)) + '"' == text;
    }
    const double value = text == "#TRUE#" ? -1 : text == "#FALSE#" ? 0 : std::stod(text);
    return std::abs(NumberOf(s, *ref->field, ref->index) - value) <= 1e-7 * std::abs(value);
}

// Fields in front of the broken line hold the file's values, those behind it the old ones; nothing
// is settled.
void ExpectHalfRead(const ProjectState& s, const Lines& lines, std::size_t broken)
{
    bool control = false;  // stands in the file twice
    for (std::size_t k = 0; k < lines.size(); ++k) {
        const bool again = lines[k].name == "checkconsercontrol" && control;
        control = control || lines[k].name == "checkconsercontrol";
        const bool text = lines[k].name == "projname" || lines[k].name == "ident" ||
                          lines[k].name == "annexcode" || lines[k].name == "p41ident";
        if (k < broken) {
            EXPECT_TRUE(Holds(s, lines[k].name, lines[k].text)) << lines[k].name;
        } else if (!again && lines[k].name != "version") {
            EXPECT_TRUE(Holds(s, lines[k].name, text ? "old" : std::to_string(kOld)))
                << lines[k].name;
        }
    }
    EXPECT_EQ(s.psi1, kOld);
    EXPECT_EQ(s.psi2, kOld);
    EXPECT_EQ(s.annexindex, kOld);
    EXPECT_EQ(s.g610g, kOld);
    EXPECT_EQ(s.lamdalt0, kOld);
}

std::vector<Lines> Samples()
{
    const Block general = BlockOf(41);
    const Block box = BlockOf(27);
    return {DefaultProject(), Project(0, general.family, general.lines),
            Project(7, box.family, box.lines)};
}

TEST(BrokenProjectFile, IsReportedWhereverItEnds)
{
    for (Lines lines : Samples()) {
        Set(lines, "annexcode", "\"NO\"");
        Set(lines, "gammam0", "1.5");
        for (std::size_t cut = 0; cut < lines.size(); ++cut) {
            SCOPED_TRACE(lines[cut].name);
            const Lines half(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(cut));
            ProjectState s = OldState();
            const std::optional<FileFault> fault = ReadProject(s, Joined(half));
            ASSERT_TRUE(fault);
            EXPECT_EQ(fault->line, static_cast<int>(cut) + 1);
            EXPECT_TRUE(fault->what.starts_with("field " + lines[cut].name + ": expected "));
            EXPECT_TRUE(fault->what.ends_with(", found the end of the file"));
            ExpectHalfRead(s, lines, cut);
        }
    }
}

TEST(BrokenProjectFile, IsReportedWhereverAValueIsWrong)
{
    for (const Lines& lines : Samples()) {
        for (std::size_t k = 0; k < lines.size(); ++k) {
            SCOPED_TRACE(lines[k].name);
            Lines wrong = lines;
            wrong[k].text = "abc";
            ProjectState s = OldState();
            const std::optional<FileFault> fault = ReadProject(s, Joined(wrong));
            const char first = lines[k].text.front();
            if (first == '"' || lines[k].name == "projname" || lines[k].name == "ident") {
                EXPECT_FALSE(fault);  // any text will do
                continue;
            }
            const std::string expected = first == '#' ? "#TRUE# or #FALSE#" : "a number";
            ASSERT_TRUE(fault);
            EXPECT_EQ(FaultText("x.kst", *fault), "x.kst:" + std::to_string(k + 1) + ": field " +
                                                      lines[k].name + ": expected " + expected +
                                                      ", found \"abc\"");
            ExpectHalfRead(s, lines, k);
        }
    }
}

TEST(BrokenProjectFile, IsReadInOtherNotations)
{
    ProjectState expected{};
    ASSERT_FALSE(ReadProject(expected, Joined(DefaultProject())));

    std::string unix_ends, commas, lower, numbers;
    for (const Line& line : DefaultProject()) {
        const bool name = line.name == "version" || line.name == "projname" || line.name == "ident";
        unix_ends += line.text + "\n";
        commas += line.text + (name ? "\n" : ", ");
        lower += (line.text == "#TRUE#"    ? "#true#"
                  : line.text == "#FALSE#" ? "#false#"
                                           : line.text) +
                 "\r\n";
        numbers += (line.text == "#TRUE#"    ? "-1"
                    : line.text == "#FALSE#" ? "0"
                                             : line.text) +
                   "\r\n";
    }
    for (const std::string& bytes : {unix_ends, commas, lower, numbers}) {
        ProjectState s{};
        const std::optional<FileFault> fault = ReadProject(s, bytes);
        EXPECT_FALSE(fault) << fault->what;
        EXPECT_EQ(s, expected);
    }
}

TEST(BrokenProjectFile, MayLackTheLastLineEndAndHoldMoreBehind)
{
    const std::string bytes = Joined(DefaultProject());
    ProjectState expected{}, s{}, more{};
    ASSERT_FALSE(ReadProject(expected, bytes));
    EXPECT_FALSE(ReadProject(s, bytes.substr(0, bytes.size() - 2)));
    EXPECT_EQ(s, expected);
    EXPECT_FALSE(ReadProject(more, bytes + "anything\r\n\0"s));
    EXPECT_EQ(more, expected);
}

TEST(BrokenProjectFile, IsRefusedInOtherEncodings)
{
    const std::string bytes = Joined(DefaultProject());
    std::string wide = "\xFF\xFE", returns;
    for (const char c : bytes) {
        wide += c;
        wide += '\0';
        if (c != '\n') {
            returns += c;
        }
    }
    for (const std::string& wrong : {wide, returns, std::string(bytes.size(), '\0'), ""s, "\r\n"s,
                                     std::string(10'000'000, '1'), std::string(10'000'000, '\n')}) {
        ProjectState s = OldState();
        const std::optional<FileFault> fault = ReadProject(s, wrong);
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->line, 1);
        EXPECT_EQ(s, OldState());
    }
}

TEST(BrokenProjectFile, TakesALongName)
{
    Lines lines = DefaultProject();
    Set(lines, "projname", std::string(10'000'000, 'x'));
    ProjectState s{};
    EXPECT_FALSE(ReadProject(s, Joined(lines)));
    EXPECT_EQ(s.projname.size(), 10'000'000U);
    EXPECT_EQ(s.spare2, 1);
}

// Cut anywhere and disturbed anywhere: reading ends, and a state that was read whole writes a file
// that repeats itself.
TEST(BrokenProjectFile, DoesNoHarmWhateverItsBytes)
{
    std::mt19937 random(4711);
    constexpr std::string_view kBytes = "0123456789.,-+Ee\"#\r\n \0abcTRUE\xFF\xC3";
    for (const Block& block : SectionBlocks()) {
        const std::string good = Joined(Project(1, block.family, block.lines));
        for (int i = 0; i < 300; ++i) {
            std::string bytes = good;
            for (auto count = 1 + random() % 3; count > 0; --count) {
                bytes[random() % bytes.size()] = kBytes[random() % kBytes.size()];
            }
            if (random() % 4 == 0) {
                bytes.resize(random() % bytes.size());
            }
            ProjectState s{};
            if (ReadProject(s, bytes) || s.p41ident.find('"') != std::string::npos) {
                continue;  // the file cannot hold a quote in a text
            }
            const std::string first = WriteProject(s);
            ProjectState again{};
            const std::optional<FileFault> fault = ReadProject(again, first);
            ASSERT_FALSE(fault) << fault->what;
            ASSERT_EQ(WriteProject(again), first);
        }
    }
}

}  // namespace
}  // namespace kestrum
