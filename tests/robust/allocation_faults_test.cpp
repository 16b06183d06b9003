// Memory that runs out at the k-th request: the failure leaves as one exception, nothing is lost,
// and the next try succeeds.

#include "app/batch.h"
#include "core/file_io.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/detailed_table.h"
#include "report/diagrams.h"
#include "report/pages.h"
#include "report/panel_text.h"
#include "report/state_json.h"
#include "report/svg_writer.h"
#include "service/vortex.h"
#include "support/counted_memory.h"
#include "support/members.h"
#include "support/temporary_folder.h"
#ifdef KESTRUM_SPREADSHEET
#include "app/detailed_book.h"
#include "spreadsheet/book_xlsx.h"
#endif

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using counted_memory::failat;
using counted_memory::requests;

// With KESTRUM_FULL every request fails in turn; otherwise every one up to the 256th, then one of
// each few. The sanitizers make each act ten times as long: there the 32nd.
long Next(long k)
{
#if defined(KESTRUM_SANITIZED)
    constexpr long kEach = 32;
#else
    constexpr long kEach = 256;
#endif
    static const bool full = std::getenv("KESTRUM_FULL") != nullptr;
    return k + 1 + (full ? 0 : k / kEach);
}

// Runs the act with a failure at each request in turn until it ends without one; `check` after each
// failure. Returns the last request that failed.
long FailEach(const std::function<void()>& act, const std::function<void()>& check)
{
    long last = 0;
    for (long k = 1;; last = k, k = Next(k)) {
        failat = k;
        requests = 0;
        try {
            act();
            const bool reached = requests >= k;
            failat = 0;
            if (!reached) {
                return last;
            }
            check();  // dealt with inside
        } catch (const std::bad_alloc&) {
            failat = 0;
            check();
        }
    }
}

long FilesIn(const TemporaryFolder& folder)
{
    return std::distance(std::filesystem::directory_iterator(folder.path()),
                         std::filesystem::directory_iterator());
}

TEST(AllocationFaults, APassAllocatesNothing)
{
    ProjectState s = Member();
    requests = 0;
    EXPECT_TRUE(Calculate(Delivered(), s));
    EXPECT_EQ(requests, 0);
}

TEST(AllocationFaults, OpeningFailsWholeAndSucceedsAgain)
{
    const TemporaryFolder folder;
    const std::string file = folder.File("x.kst");
    ProjectState s = Member();
    const std::string bytes = WriteProject(s);
    ASSERT_EQ(WriteWholeFile(file, bytes), "");
    const auto open = [&file] {
        std::string read;
        ProjectState opened = Member();
        const std::string problem = ReadWholeFile(file, read);
        return problem.empty() && !ReadProject(opened, read) && WriteProject(opened) == read;
    };
    const long failures = FailEach([&open] { open(); }, [&open] { ASSERT_TRUE(open()); });
    EXPECT_GT(failures, 0);
}

TEST(AllocationFaults, SavingKeepsTheOldFileOrWritesTheNewOne)
{
    const TemporaryFolder folder;
    const std::string file = folder.File("x.kst");
    const std::string old(5000, 'o');
    ProjectState s = Member();
    const std::string fresh = WriteProject(s);
    WriteBytes(file, old);
    const auto save = [&] { return WriteWholeFile(file, WriteProject(s)); };
    const long failures = FailEach([&save] { save(); },
                                   [&] {
                                       const std::string now = ReadBytes(file);
                                       ASSERT_TRUE(now == old || now == fresh);
                                       ASSERT_EQ(save(), "");
                                       ASSERT_EQ(ReadBytes(file), fresh);
                                       WriteBytes(file, old);
                                   });
    EXPECT_GT(failures, 0);
    EXPECT_EQ(FilesIn(folder), 1);
}

#ifdef KESTRUM_SPREADSHEET
// The requests of libxlsxwriter itself, which is written in C, do not fail here; it would not
// outlive that.
TEST(AllocationFaults, ASpreadsheetIsTheOldOneOrWhole)
{
    const TemporaryFolder folder;
    const std::string file = folder.File("x.xlsx");
    setenv("TMPDIR", folder.path().c_str(), 1);
    ProjectState s = Member();
    ASSERT_TRUE(Calculate(Delivered(), s));
    const std::vector<BookSheet> book{DetailedBook(Delivered(), s, {}, "2026-01-01").front()};
    const auto write = [&] { return WriteBookXlsx(book, file); };
    WriteBytes(file, "old");
    const long failures = FailEach([&write] { write(); },
                                   [&] {
                                       ASSERT_EQ(ReadBytes(file), "old");
                                       ASSERT_EQ(FilesIn(folder), 1);  // nothing half made
                                   });
    EXPECT_GT(failures, 0);
    EXPECT_TRUE(ReadBytes(file).starts_with("PK"));
    EXPECT_EQ(FilesIn(folder), 1);
    unsetenv("TMPDIR");
}
#endif

// What is made of a result. The record of a member that all of it covers: a hollow section under
// loads about both axes, with vortex shedding and deflections.
struct Product {
    std::string name;
    std::string (*make)(const ProjectState& s);
};

const PrintStamp kStamp{"2024-05-17", "14:05"};

std::string Written(const PrintedReport& report)
{
    std::string text;
    for (const Drawing& page : report.pages) {
        text += WriteSvg(page);
    }
    for (const std::string& what : report.missing) {
        text += what + "\n";
    }
    return text;
}

std::string Batched(const ProjectState& s, TableForm form, const std::string& lines)
{
    AnswerForm answers;
    if (!answers.Choose(form, {"ident", "control", "clause", "message", "mydesign"}).empty()) {
        return "refused";
    }
    MemberColumns columns;
    const std::string refusal = columns.TakeHeader("ident,l,\"qload[1]\",family");
    BatchChunk chunk{.form = form, .columns = &columns, .table = "table", .row = 1, .line = 2};
    chunk.lines = lines;
    BatchWorker worker(Delivered(), s, answers, Assignment::checked);
    worker.Work(chunk);
    return refusal + chunk.out + chunk.fault + chunk.tally.Summary();
}

const std::vector<Product> kProducts = {
    {"Panel", [](const ProjectState& s) { return PanelText(s); }},
    {"Rows", [](const ProjectState& s) { return RowsJson(s); }},
    {"Notes", [](const ProjectState& s) { return NotesJson(s); }},
    {"State", [](const ProjectState& s) { return StateJson(s); }},
    {"Inputs", [](const ProjectState& s) { return InputsJson(s); }},
    {"DetailedText", [](const ProjectState& s) { return DetailedText(FillDetailedResult(s)); }},
    {"DetailedCsv", [](const ProjectState& s) { return DetailedCsv(FillDetailedResult(s)); }},
    {"Diagrams",
     [](const ProjectState& s) {
         return WriteSvg(DrawSheet(s, LoadAxis::z)) + WriteSvg(DrawSheet(s, LoadAxis::y));
     }},
    {"PropertiesReport",
     [](const ProjectState& s) { return Written(PrintProperties(Delivered(), s, kStamp)); }},
    {"ControlReport",
     [](const ProjectState& s) { return Written(PrintControl(Delivered(), s, kStamp)); }},
    {"VortexReport",
     [](const ProjectState& s) { return Written(PrintVortex(Delivered(), s, kStamp)); }},
    {"BatchOfCsv",
     [](const ProjectState& s) {
         return Batched(s, TableForm::csv,
                        "a member with a long name,5.25,12.5,4\n\"quoted, \"\"too\"\"\",none,1,1\n"
                        "c,6,2,31\n");
     }},
    {"BatchOfNdjson",
     [](const ProjectState& s) {
         return Batched(s, TableForm::ndjson,
                        "{\"ident\":\"\\u00e4 member with a long name\",\"qload\":[null,3,-4.5]}\n"
                        "{\"l\": no}\n");
     }},
};

ProjectState MuchToShow()
{
    ProjectState s = Member();
    s.family = 6;
    s.checksls = kTrue;
    s.modal = 1;
    s.loadcomb = 3;
    for (std::size_t k = 1; k <= 3; ++k) {
        s.qload[k] = static_cast<float>(k);
        s.qdir[k] = static_cast<i16>(k % 2);
        s.pm[k] = 2;
        s.pmx[k] = static_cast<float>(k);
        s.nload[k] = 10;
    }
    EXPECT_TRUE(Calculate(Delivered(), s));
    MeasureNotes(Delivered(), s);
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
    return s;
}

class Products : public ::testing::TestWithParam<Product> {};

TEST_P(Products, AreMadeWholeAfterAnyFailure)
{
    const ProjectState s = MuchToShow(), before = s;
    const auto make = [&s] { return GetParam().make(s); };
    const std::string expected = make();
    ASSERT_GT(expected.size(), 20U);
    // What a failure spoils for good is seen some failures later as well as at once.
    constexpr long kFailuresAtATime = 16;
    long failed = 0;
    const long failures = FailEach([&make] { make(); },
                                   [&] {
                                       if (failed++ % kFailuresAtATime == 0) {
                                           ASSERT_EQ(make(), expected);
                                       }
                                       ASSERT_EQ(s, before);
                                   });
    EXPECT_EQ(make(), expected);
    EXPECT_GT(failures, 0);
    std::cout << failures << " requests for memory\n";
}

INSTANTIATE_TEST_SUITE_P(All, Products, ::testing::ValuesIn(kProducts),
                         [](const auto& product) { return product.param.name; });

}  // namespace
}  // namespace kestrum
