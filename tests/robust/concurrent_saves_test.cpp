// Three writers and a reader on one file. Each writer reads the file, counts its own counter up and
// saves, under one lock; the reader looks whether what it reads is whole. KESTRUM_FULL=1: 10,000
// rounds.

#include "core/file_io.h"
#include "core/file_lock.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

constexpr int kWriters = 3;
using Counters = std::array<long, kWriters>;

// The counters, filling that depends on them, and the counters again.
std::string Text(const Counters& counters)
{
    std::ostringstream text;
    const auto put = [&] {
        for (const long counter : counters) {
            text << counter << ' ';
        }
    };
    put();
    text << std::string(static_cast<std::size_t>(3000 + 2000 * (counters[0] % 3)), 'x') << ' ';
    put();
    return text.str();
}

bool Parse(const std::string& bytes, Counters& counters)
{
    std::istringstream text(bytes);
    for (long& counter : counters) {
        text >> counter;
    }
    return text && Text(counters) == bytes;
}

int Writer(const std::string& file, std::size_t number, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        FileLock lock;
        std::string bytes;
        Counters counters{};
        std::string problem = lock.Take(file);
        if (problem.empty()) {
            problem = ReadLockedFile(file, bytes);
        }
        if (problem.empty() && !Parse(bytes, counters)) {
            problem = "half a file of " + std::to_string(bytes.size());
        }
        ++counters.at(number);
        if (problem.empty()) {
            problem = lock.Write(Text(counters));
        }
        if (!problem.empty()) {
            std::cerr << "writer " << number << ", round " << round << ": " << problem << '\n';
            return 1;
        }
    }
    return 0;
}

// With two names it is written in place.
class ConcurrentSaves : public ::testing::TestWithParam<bool> {};

TEST_P(ConcurrentSaves, LoseNothingAndNeverShowHalfAFile)
{
    const int rounds = std::getenv("KESTRUM_FULL") != nullptr ? 10000 : 60;
    const TemporaryFolder folder;
    const std::string file = folder.File("x.kst");
    WriteBytes(file, Text({}));
    if (GetParam()) {
        fs::create_hard_link(file, folder.File("y.kst"));
    }
    for (std::size_t i = 0; i < kWriters; ++i) {
        if (fork() == 0) {
            _exit(Writer(file, i, rounds));
        }
    }
    long reads = 0;
    int done = 0;
    Counters counters{};
    while (done < kWriters) {
        std::string bytes;
        ASSERT_EQ(ReadWholeFile(file, bytes), "");
        ASSERT_TRUE(Parse(bytes, counters)) << bytes.size();
        ++reads;
        int status = 0;
        if (reads % 100 == 0 && waitpid(-1, &status, WNOHANG) > 0) {
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
            ++done;
        }
    }
    ASSERT_TRUE(Parse(ReadBytes(file), counters));
    for (const long counter : counters) {
        EXPECT_EQ(counter, rounds);
    }
    std::cout << kWriters * rounds << " changes, " << reads << " reads\n";
}

INSTANTIATE_TEST_SUITE_P(All, ConcurrentSaves, ::testing::Bool(),
                         [](const auto& named) { return named.param ? "TwoNames" : "OneName"; });

}  // namespace
}  // namespace kestrum
