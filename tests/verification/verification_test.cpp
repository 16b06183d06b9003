// The verification manual: problems with known answers in plain text files beside this one,
// compared with what the program gives, and docs/verification.md made from them. Run this program
// with KESTRUM_WRITE_MANUAL=1 in the environment to write the document anew.

#include "core/csv_cell.h"
#include "core/field_table.h"
#include "core/project_state.h"
#include "report/design_notes.h"
#include "service/vortex.h"
#include "standard/standard.h"
#include "standard/vibration.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace kestrum {
namespace {

constexpr const char* kFiles[] = {"analysis",  "sections", "resistance",
                                  "stability", "service",  "published"};
const std::string kFolder = KESTRUM_SOURCE "/tests/verification/";
const std::string kDocument = KESTRUM_SOURCE "/docs/verification.md";
const std::string kTable = KESTRUM_SOURCE "/docs/verification.csv";  // the same for machines

struct Expectation {
    std::string field;      // with its index
    std::string expected;   // number or text
    std::string tolerance;  // "0.1%", relative; "0.01", absolute; "=", the same text
    std::string kind, source;
};

// The ratio of a check by the standard as written, a natural frequency "freq1" to "freq3" in Hz or
// the mean wind speed "vm" in m/s.
struct StandardExpectation {
    std::string check, expected, tolerance;  // relative
    std::string kind, source;
};

struct Problem {
    std::string number, title;  // "V1"
    std::string fields;         // all `set` lines
    std::vector<Expectation> expectations;
    std::vector<StandardExpectation> standard;
    std::string acts;  // deviations on the unsafe side that act in the result, "D56, D208"
    std::string note;
};

struct Chapter {
    std::string title;
    std::vector<Problem> problems;
};

std::string Rest(std::istringstream& line)
{
    std::string text;
    std::getline(line >> std::ws, text);
    return text;
}

// Lines: `title`, `problem NUMBER TITLE`, `set NAME=VALUE ..`, `expect FIELD VALUE TOLERANCE KIND
// SOURCE`, `standard CHECK RATIO TOLERANCE KIND SOURCE`, `acts NUMBERS`, `note TEXT`; empty lines
// and lines that begin with # say nothing.
Chapter ReadChapter(const std::string& name)
{
    Chapter chapter;
    std::ifstream file(kFolder + name + ".txt");
    EXPECT_TRUE(file.good()) << name;
    std::string text;
    for (int number = 1; std::getline(file, text); ++number) {
        std::istringstream line(text);
        std::string word;
        line >> word;
        if (word.empty() || word[0] == '#') {
            continue;
        }
        if (word == "title") {
            chapter.title = Rest(line);
            continue;
        }
        if (word == "problem") {
            Problem problem;
            line >> problem.number;
            problem.title = Rest(line);
            chapter.problems.push_back(problem);
            continue;
        }
        EXPECT_FALSE(chapter.problems.empty()) << name << ':' << number;
        Problem& problem = chapter.problems.back();
        if (word == "set") {
            problem.fields += (problem.fields.empty() ? "" : " ") + Rest(line);
        } else if (word == "expect") {
            Expectation e;
            line >> e.field >> e.expected >> e.tolerance >> e.kind;
            e.source = Rest(line);
            EXPECT_FALSE(e.source.empty()) << name << ':' << number;
            problem.expectations.push_back(e);
        } else if (word == "standard") {
            StandardExpectation e;
            line >> e.check >> e.expected >> e.tolerance >> e.kind;
            e.source = Rest(line);
            EXPECT_FALSE(e.source.empty()) << name << ':' << number;
            problem.standard.push_back(e);
        } else if (word == "acts") {
            problem.acts = Rest(line);
        } else if (word == "note") {
            problem.note += (problem.note.empty() ? "" : " ") + Rest(line);
        } else {
            ADD_FAILURE() << name << ':' << number << ": unknown word " << word;
        }
    }
    return chapter;
}

const std::vector<Chapter>& Manual()
{
    static const std::vector<Chapter> kManual = [] {
        std::vector<Chapter> manual;
        std::transform(std::begin(kFiles), std::end(kFiles), std::back_inserter(manual),
                       ReadChapter);
        return manual;
    }();
    return kManual;
}

ProjectState Solve(const Problem& problem)
{
    ProjectState s = Member(kUnloaded + problem.fields);
    Calculate(Delivered(), s);
    MeasureNotes(Delivered(), s);
    if (VortexFamily(s.family)) {
        CalcVortexFrequency(s, s, s);
        CalcVortex(s, s, s);
    }
    return s;
}

double Number(const std::string& text)
{
    double value = NAN;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string SixDigits(double value)
{
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::general, 6)
                         .ptr;
    return {digits.data(), end};
}

std::string Fixed(double value, int places)
{
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, places)
                         .ptr;
    const std::string text(digits.data(), end);
    const bool zero = text.find_first_not_of("-0.") == std::string::npos;
    return zero && text[0] == '-' ? text.substr(1) : text;
}

// A comparison as the manual shows it.
struct Outcome {
    std::string ours, difference;
    bool within = false;
    double percent = NAN;  // of a relative tolerance
};

Outcome Compare(const ProjectState& s, const Expectation& e)
{
    const auto ref = ResolveField(e.field);
    if (!ref) {
        return {"no such field", "", false};
    }
    if (e.tolerance == "=") {
        const std::string ours(ref->field->kind == FieldKind::literal ||
                                       ref->field->kind == FieldKind::text
                                   ? std::string(TextOf(s, *ref->field))
                                   : SixDigits(NumberOf(s, *ref->field, ref->index)));
        return {ours, ours == e.expected ? "none" : "differs", ours == e.expected};
    }
    const double ours = NumberOf(s, *ref->field, ref->index);
    const double expected = Number(e.expected), tolerance = Number(e.tolerance);
    if (e.tolerance.back() != '%') {
        return {SixDigits(ours), Fixed(ours - expected, 4), std::abs(ours - expected) <= tolerance};
    }
    const double percent = 100 * (ours - expected) / std::abs(expected);
    return {SixDigits(ours), Fixed(percent, 2) + " %", std::abs(percent) <= tolerance, percent};
}

struct ByTheStandard {
    standard::StandardResult result;
    std::optional<standard::VortexShedding> vortex;
};

// A value of the standard basis; NaN where it has none of this name.
double ValueByTheStandard(const ByTheStandard& standard, const std::string& check)
{
    const standard::StandardResult& result = standard.result;
    if (check == "vm") {
        return standard.vortex ? standard.vortex->vm : NAN;
    }
    if (check.starts_with("freq")) {
        const auto mode = static_cast<std::size_t>(check.back() - '1');
        return result.vibration && mode < standard::kModes ? result.vibration->freq[mode] : NAN;
    }
    for (std::size_t i = 0; i < standard::kCheckIds; ++i) {
        const auto id = static_cast<standard::CheckId>(i);
        if (NameOf(id) == check && result.checks[id].present) {
            return result.checks[id].ir;
        }
    }
    return NAN;
}

Outcome Compare(const ByTheStandard& result, const StandardExpectation& e)
{
    const double ours = ValueByTheStandard(result, e.check), expected = Number(e.expected);
    const double percent = 100 * (ours - expected) / expected;
    return {SixDigits(ours), Fixed(percent, 2) + " %", std::abs(percent) <= Number(e.tolerance),
            percent};
}

ByTheStandard SolveByTheStandard(const Problem& problem)
{
    const ProjectState s = Member(kUnloaded + problem.fields);
    return {standard::CalculateStandard(Delivered(), s),
            VortexFamily(s.family) ? standard::VortexSheddingOf(Solve(problem)) : std::nullopt};
}

TEST(Verification, RatiosOfTheStandardLieWithinTheirTolerances)
{
    for (const Chapter& chapter : Manual()) {
        for (const Problem& problem : chapter.problems) {
            const ByTheStandard result = SolveByTheStandard(problem);
            for (const StandardExpectation& e : problem.standard) {
                const Outcome outcome = Compare(result, e);
                EXPECT_TRUE(outcome.within)
                    << problem.number << ' ' << problem.title << ": " << e.check << " is "
                    << outcome.ours << ", expected " << e.expected << " within " << e.tolerance
                    << " (" << e.source << ')';
            }
        }
    }
}

TEST(Verification, ValuesLieWithinTheirTolerances)
{
    for (const Chapter& chapter : Manual()) {
        for (const Problem& problem : chapter.problems) {
            const ProjectState s = Solve(problem);
            EXPECT_FALSE(s.calculationerror) << problem.number;
            for (const Expectation& e : problem.expectations) {
                const Outcome outcome = Compare(s, e);
                EXPECT_TRUE(outcome.within)
                    << problem.number << ' ' << problem.title << ": " << e.field << " is "
                    << outcome.ours << ", expected " << e.expected << " within " << e.tolerance
                    << " (" << e.source << ')';
            }
        }
    }
}

// A reader must not take the value of a deviation for that of the standard: each problem names the
// deviations whose notes show beside its result, and no others.
TEST(Verification, DeviationsThatActAreNamed)
{
    for (const Chapter& chapter : Manual()) {
        for (const Problem& problem : chapter.problems) {
            std::string acting;
            for (const DesignNote& note : DesignNotes(Solve(problem))) {
                acting += (acting.empty() ? "" : ", ") + std::string(note.id);
            }
            EXPECT_EQ(problem.acts, acting) << problem.number << ' ' << problem.title;
        }
    }
}

TEST(Verification, NumbersAreUniqueAndEveryKindHasAProblem)
{
    std::set<std::string> numbers;
    std::set<int> families;
    for (const Chapter& chapter : Manual()) {
        for (const Problem& problem : chapter.problems) {
            EXPECT_TRUE(numbers.insert(problem.number).second) << problem.number;
            EXPECT_FALSE(problem.expectations.empty()) << problem.number;
            for (const Expectation& e : problem.expectations) {
                const std::set<std::string> kinds{"closed-form", "hand", "published", "table"};
                EXPECT_TRUE(kinds.count(e.kind)) << problem.number << ' ' << e.kind;
            }
            families.insert(Member(problem.fields).family);
        }
    }
    EXPECT_GE(numbers.size(), 150U);
    EXPECT_GE(families.size(), 31U);  // all before a series of a kind that has its problems
    std::set<Kind> kinds;
    for (const int family : families) {
        kinds.insert(FindFamily(family)->kind);
    }
    for (const FamilyTraits& family : Families()) {
        EXPECT_TRUE(kinds.contains(family.kind)) << family.id;
    }
}

// "0.1 %", "0.1" or, of a text or whole number, "equal".
std::string ToleranceText(const std::string& tolerance)
{
    if (tolerance == "=") {
        return "equal";
    }
    return tolerance.back() == '%' ? tolerance.substr(0, tolerance.size() - 1) + " %" : tolerance;
}

std::string RowsOf(const Problem& problem)
{
    const ProjectState s = Solve(problem);
    std::string rows;
    for (const Expectation& e : problem.expectations) {
        const Outcome outcome = Compare(s, e);
        rows += "| " + problem.number + " | " + problem.title + " | `" + e.field + "` | " +
                e.expected + " | " + outcome.ours + " | " + outcome.difference + " | " +
                ToleranceText(e.tolerance) + " | " + e.kind + " | " + problem.acts + " | " +
                e.source + " |\n";
    }
    return rows;
}

std::string StandardRowsOf(const Problem& problem)
{
    const ByTheStandard result = SolveByTheStandard(problem);
    std::string rows;
    for (const StandardExpectation& e : problem.standard) {
        const Outcome outcome = Compare(result, e);
        rows += "| " + problem.number + " | " + problem.title + " | `" + e.check + "` | " +
                e.expected + " | " + outcome.ours + " | " + outcome.difference + " | " +
                ToleranceText(e.tolerance) + " | " + e.kind + " | " + e.source + " |\n";
    }
    return rows;
}

// The ratios of the standard basis, where a chapter has some.
std::string StandardTable(const Chapter& chapter)
{
    std::string rows;
    for (const Problem& problem : chapter.problems) {
        rows += StandardRowsOf(problem);
    }
    return rows.empty() ? rows
                        : "\nRatios, frequencies and wind speeds by the standard as written "
                          "(`--basis standard`):\n\n| No. | "
                          "Problem | Check | Expected | Ours | Difference | Tolerance | Kind | "
                          "Source |\n|---|---|---|---|---|---|---|---|---|\n" +
                              rows;
}

// How a chapter agrees, in one basis.
struct Agreement {
    std::size_t values = 0, published = 0, within = 0;
    double largest = 0;  // percent, of the values with a relative tolerance

    void Add(const Outcome& outcome, const std::string& kind)
    {
        ++values;
        published += kind == "published" || kind == "table" ? 1 : 0;
        within += outcome.within ? 1 : 0;
        largest =
            std::isnan(outcome.percent) ? largest : std::max(largest, std::abs(outcome.percent));
    }
    void Add(const Agreement& other)
    {
        values += other.values;
        published += other.published;
        within += other.within;
        largest = std::max(largest, other.largest);
    }
    std::string Cells() const
    {
        return " | " + std::to_string(values) + " | " + std::to_string(published) + " | " +
               std::to_string(within) + " | " + (values > 0 ? Fixed(largest, 2) + " %" : "-");
    }
};

struct ChapterAgreement {
    std::size_t problems = 0;
    Agreement program, standard;
};

ChapterAgreement AgreementOf(const Chapter& chapter)
{
    ChapterAgreement agreement{chapter.problems.size(), {}, {}};
    for (const Problem& problem : chapter.problems) {
        const ProjectState s = Solve(problem);
        for (const Expectation& e : problem.expectations) {
            agreement.program.Add(Compare(s, e), e.kind);
        }
        const ByTheStandard result = SolveByTheStandard(problem);
        for (const StandardExpectation& e : problem.standard) {
            agreement.standard.Add(Compare(result, e), e.kind);
        }
    }
    return agreement;
}

std::string RowOf(const std::string& title, const ChapterAgreement& of)
{
    return "| " + title + " | " + std::to_string(of.problems) + of.program.Cells() +
           of.standard.Cells() + " |\n";
}

std::string AgreementTable()
{
    std::string text =
        "\n## Agreement by topic\n\nValues of the program by its own rules, then ratios, "
        "frequencies "
        "and wind speeds by the standard as written: how\nmany are compared, how many of them were "
        "published, how many lie within their tolerance, and the largest\nrelative difference. The "
        "comparisons for machines are in verification.csv.\n\n"
        "| Topic | Problems | Program | Published | Within | Largest | Standard | Published | "
        "Within | "
        "Largest |\n|---|---|---|---|---|---|---|---|---|---|\n";
    ChapterAgreement all;
    for (const Chapter& chapter : Manual()) {
        const ChapterAgreement agreement = AgreementOf(chapter);
        text += RowOf(chapter.title, agreement);
        all.problems += agreement.problems;
        all.program.Add(agreement.program);
        all.standard.Add(agreement.standard);
    }
    return text + RowOf("All", all);
}

// A line of the machine-readable copy.
template <class Expected>
std::string CsvLine(const std::string& chapter, const Problem& problem, const char* basis,
                    const std::string& value, const Expected& e, const Outcome& outcome)
{
    std::string line;
    for (const std::string& cell :
         {problem.number, chapter, problem.title, std::string(basis), value, e.expected,
          outcome.ours, e.tolerance == "=" ? std::string("equal") : e.tolerance,
          std::string(outcome.within ? "within" : "outside"), e.kind, problem.acts, e.source,
          problem.fields}) {
        line += line.empty() ? "" : ",";
        AppendCell(line, cell);
    }
    return line + "\n";
}

std::string GeneratedTable()
{
    std::string text = "number,topic,problem,basis,value,expected,ours,tolerance,outcome,kind,"
                       "deviations,source,fields\n";
    for (const Chapter& chapter : Manual()) {
        for (const Problem& problem : chapter.problems) {
            const ProjectState s = Solve(problem);
            for (const Expectation& e : problem.expectations) {
                text += CsvLine(chapter.title, problem, "program", e.field, e, Compare(s, e));
            }
            const ByTheStandard result = SolveByTheStandard(problem);
            for (const StandardExpectation& e : problem.standard) {
                text += CsvLine(chapter.title, problem, "standard", e.check, e, Compare(result, e));
            }
        }
    }
    return text;
}

std::string Generated()
{
    std::string text =
        "# Verification manual\n\n"
        "Made by `tests/verification` from the problems beside it; do not edit. Each problem is "
        "the "
        "default project without\nloads and with load factors 1, changed by the fields that its "
        "file sets. A test fails when a value leaves its\ntolerance or when this document is out "
        "of "
        "date (`KESTRUM_WRITE_MANUAL=1 test_verification_verification_test`\nwrites it anew).\n\n"
        "Columns: number of the problem; problem; field of the record, in its unit (kN, kNm, mm, "
        "MPa, m/s, Hz; `mcr` in Nmm);\nexpected value; our value; difference; tolerance, relative "
        "or in the unit; kind of the source: closed form of beam\ntheory, hand calculation with "
        "its arithmetic, published example or published table; deviations on the unsafe side\nthat "
        "act in the result of the problem, with their numbers in deviations.md: where one touches "
        "the value itself, the source\nor the note below says how; source. A test fails when the "
        "deviations are not those whose design notes the program\nshows.\n";
    text += AgreementTable();
    for (const Chapter& chapter : Manual()) {
        text += "\n## " + chapter.title +
                "\n\n| No. | Problem | Field | Expected | Ours | Difference | Tolerance | Kind | "
                "Deviations | Source |\n"
                "|---|---|---|---|---|---|---|---|---|---|\n";
        std::string notes;
        for (const Problem& problem : chapter.problems) {
            text += RowsOf(problem);
            if (!problem.note.empty()) {
                notes += "- " + problem.number + ": " + problem.note + "\n";
            }
        }
        text += StandardTable(chapter);
        text += notes.empty() ? "" : "\n" + notes;
    }
    return text;
}

void ExpectFile(const std::string& path, const std::string& made)
{
    if (std::getenv("KESTRUM_WRITE_MANUAL") != nullptr) {
        std::ofstream(path, std::ios::binary) << made;
    }
    std::ifstream file(path, std::ios::binary);
    const std::string kept{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(made == kept) << path << " is not what the problems give";
}

TEST(Verification, ManualIsUpToDate)
{
    ExpectFile(kDocument, Generated());
    ExpectFile(kTable, GeneratedTable());
}

}  // namespace
}  // namespace kestrum
