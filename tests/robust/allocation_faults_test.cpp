// Memory that runs out at the k-th request, for every k: the failure leaves as one exception,
// nothing is lost, and the next try succeeds.

#include "core/file_io.h"
#include "core/project_file.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/detailed_table.h"
#include "report/panel_text.h"
#include "report/state_json.h"
#include "sections/load_library.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <string>

namespace {

long failat = 0;  // number of the request that fails; 0 none
long requests = 0;

void* Allocate(std::size_t size)
{
    if (++requests == failat) {
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size)
{
    return Allocate(size);
}
void* operator new[](std::size_t size)
{
    return Allocate(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace kestrum {
namespace {

const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

ProjectState Started()
{
    ProjectState s{};
    StartUp(Delivered(), s);
    return s;
}

// Runs the act with a failure at each request in turn until it ends without one; `check` after each
// failure. Returns how many there were.
long FailEach(const std::function<void()>& act, const std::function<void()>& check)
{
    for (long k = 1;; ++k) {
        failat = k;
        requests = 0;
        try {
            act();
            const bool reached = requests >= k;
            failat = 0;
            if (!reached) {
                return k - 1;
            }
            check();  // dealt with inside
        } catch (const std::bad_alloc&) {
            failat = 0;
            check();
        }
    }
}

TEST(AllocationFaults, APassAllocatesNothing)
{
    ProjectState s = Started();
    requests = 0;
    EXPECT_TRUE(Calculate(Delivered(), s));
    EXPECT_EQ(requests, 0);
}

TEST(AllocationFaults, OpeningFailsWholeAndSucceedsAgain)
{
    const TemporaryFolder folder;
    const std::string file = folder.File("x.kst");
    ProjectState s = Started();
    const std::string bytes = WriteProject(s);
    ASSERT_EQ(WriteWholeFile(file, bytes), "");
    const auto open = [&file] {
        std::string read;
        ProjectState opened = Started();
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
    ProjectState s = Started();
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
    const auto count = std::distance(std::filesystem::directory_iterator(folder.path()),
                                     std::filesystem::directory_iterator());
    EXPECT_EQ(count, 1);
}

TEST(AllocationFaults, TextsAreMadeAgain)
{
    ProjectState s = Started();
    ASSERT_TRUE(Calculate(Delivered(), s));
    const ProjectState before = s;
    const auto texts = [&s] {
        return PanelText(s) + DetailedCsv(FillDetailedResult(s)) + RowsJson(s);
    };
    const std::string expected = texts();
    const long failures = FailEach([&texts] { texts(); },
                                   [&] {
                                       ASSERT_EQ(texts(), expected);
                                       ASSERT_EQ(s, before);
                                   });
    EXPECT_GT(failures, 0);
}

}  // namespace
}  // namespace kestrum
