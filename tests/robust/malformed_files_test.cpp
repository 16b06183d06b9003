// Broken project files by the count. From sample files of every family and every version gate: each
// cut, each byte changed to telling values, each line removed, doubled and swapped, each value
// replaced by bad ones. Each must end with a message or a result, soon and in little memory, and
// leave a good file its result. KESTRUM_FULL=1 runs all of them, otherwise every 23rd.

#include "core/project_file.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/state_json.h"
#include "support/counted_memory.h"
#include "support/members.h"
#include "support/project_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

namespace kestrum {
namespace {

using namespace project_lines;
using counted_memory::held;
using counted_memory::most;

constexpr std::array<char, 8> kBytes = {'\0', '\n', '"', ',', '-', '9', ' ', '\xFF'};

const std::vector<std::string> kBadValues = {"",
                                             " ",
                                             "abc",
                                             "#TRUE#",
                                             "\"text\"",
                                             "nan",
                                             "inf",
                                             "-inf",
                                             "0",
                                             "-1",
                                             "-0",
                                             "1e9999",
                                             "-1e9999",
                                             "1e308",
                                             "3.4e38",
                                             "3.5e38",
                                             "1e-45",
                                             "1e-400",
                                             "32767",
                                             "32768",
                                             "-32768",
                                             "-32769",
                                             "99999999999999999999",
                                             "0x10",
                                             "1.2.3",
                                             "1,2",
                                             "--5",
                                             "5e",
                                             "\"",
                                             "\xC3\x28"};

struct Sample {
    std::string name;
    Lines lines;
};

// As a program of an earlier version wrote it.
Lines OfVersion(Lines lines, int version)
{
    Set(lines, "version", std::to_string(version));
    if (version < 131) {
        Erase(lines, "deflimitz");
    }
    if (version < 120) {
        lines.erase(std::remove_if(lines.begin(), lines.end(),
                                   [](const Line& line) { return line.name == "class23"; }),
                    lines.end());
    }
    return lines;
}

std::vector<Sample> Samples()
{
    std::vector<Sample> samples;
    for (const Block& block : SectionBlocks()) {
        const std::string family = "family " + std::to_string(block.family);
        samples.push_back({family, Project(1, block.family, block.lines)});
        if (block.family == 1 || block.family == 24 || block.family == 25) {
            for (const int version : {118, 119, 120, 130}) {
                samples.push_back({family + " of version " + std::to_string(version),
                                   OfVersion(Project(1, block.family, block.lines), version)});
            }
            samples.push_back({family + " with end forces", Project(0, block.family, block.lines)});
        }
    }
    return samples;
}

// Every so-manieth disturbed file; the others are not even made.
class Disturber {
public:
    Disturber(std::size_t step, std::function<void(const std::string&)> take)
        : step_(step), take_(std::move(take))
    {
    }

    void Disturb(const Lines& lines)
    {
        const std::string good = Joined(lines);
        CutAndChange(good);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const auto at = static_cast<std::ptrdiff_t>(i);
            Offer(lines, [at](Lines& l) { l.erase(l.begin() + at); });
            Offer(lines, [at, i](Lines& l) { l.insert(l.begin() + at, Line(l[i])); });
            Offer(lines, [i](Lines& l) { std::swap(l[i], l[(i + 1) % l.size()]); });
            for (const std::string& value : kBadValues) {
                Offer(lines, [&, i](Lines& l) { l[i].text = value; });
            }
        }
    }

private:
    bool Wanted() { return number_++ % step_ == 0; }

    void CutAndChange(const std::string& good)
    {
        for (std::size_t at = 0; at < good.size(); ++at) {
            if (Wanted()) {
                take_(good.substr(0, at));
            }
            for (const char byte : kBytes) {
                if (Wanted()) {
                    std::string bytes = good;
                    bytes[at] = byte;
                    take_(bytes);
                }
            }
        }
    }

    template <class Change> void Offer(const Lines& lines, const Change& change)
    {
        if (Wanted()) {
            Lines changed = lines;
            change(changed);
            take_(Joined(changed));
        }
    }

    std::size_t step_, number_ = 0;
    std::function<void(const std::string&)> take_;
};

std::string ResultOf(const std::string& bytes)
{
    ProjectState s = Member();
    EXPECT_FALSE(ReadProject(s, bytes));
    Calculate(Delivered(), s);
    return StateJson(s);
}

TEST(MalformedFiles, EndWithAMessageOrAResult)
{
    const bool full = std::getenv("KESTRUM_FULL") != nullptr;
    const std::size_t step = full ? 1 : 23;
    const ProjectState started = Member();
    const std::string good = Joined(DefaultProject());
    const std::string expected = ResultOf(good);
    const std::size_t before = most = held;
    std::size_t files = 0, messages = 0, results = 0, failed = 0;

    Disturber disturber(step, [&](const std::string& bytes) {
        alarm(60);  // a hang ends the program by the signal
        ++files;
        ProjectState s = started;
        if (const auto fault = ReadProject(s, bytes)) {
            ++messages;
            // The end of a file counts as the line behind its last.
            const auto lines = std::count(bytes.begin(), bytes.end(), '\n') + 2;
            ASSERT_TRUE(fault->line >= 1 && fault->line <= lines && !fault->what.empty())
                << fault->line << ": " << fault->what;
        }
        const bool well = Calculate(Delivered(), s);
        ASSERT_EQ(well, !s.calculationerror);
        ++(well ? results : failed);
    });
    for (const Sample& sample : Samples()) {
        SCOPED_TRACE(sample.name);
        const std::string unharmed = ResultOf(Joined(sample.lines));
        disturber.Disturb(sample.lines);
        EXPECT_EQ(ResultOf(Joined(sample.lines)), unharmed);
        EXPECT_EQ(ResultOf(good), expected);
    }
    alarm(0);
    std::cout << files << " files: " << messages << " refused with a message; passes: " << results
              << " ended well, " << failed << " in the calculation error; at most "
              << (most - before) / 1024 << " KiB\n";
    EXPECT_GT(files, full ? 400000U : 10000U);
    EXPECT_LT(most - before, std::size_t{64} << 20);
}

}  // namespace
}  // namespace kestrum
