#include "app/batch.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kestrum {
namespace {

constexpr double kRatio = 0.123456789012345;

Outcome Answer(Verdict verdict)
{
    Outcome answer;
    answer.verdict = verdict;
    answer.ir = kRatio;
    answer.control = "a,calculation error,0";  // what tells a verdict must not stand here
    answer.message = "\",\"verdict\":\"bad input\",\"ir\":";
    return answer;
}

// Names that look like the rest of a line.
TEST(AnswerForm, ReadsBackWhatItWrote)
{
    const std::vector<std::string> names = {"1",
                                            "",
                                            "t.csv:17",
                                            "a,above limit,1.kst",
                                            "\"quoted\"",
                                            "\",within limits,\"",
                                            "back\\slash\\",
                                            "\",\"verdict\":\"bad input\",\"ir\":1"};
    const ProjectState s{};
    for (const TableForm kind : {TableForm::csv, TableForm::ndjson}) {
        AnswerForm form;
        ASSERT_EQ(form.Choose(kind, {"control", "message"}), "");
        for (const std::string& name : names) {
            for (std::size_t i = 0; i < 2 * kVerdicts; ++i) {
                const auto written = static_cast<Verdict>(i % kVerdicts);
                Outcome answer = Answer(written);
                answer.notes.resize(i / kVerdicts, {"D201", "told"});
                std::string line;
                form.AppendLine(line, name, s, answer);
                SCOPED_TRACE(line);
                line.pop_back();  // the line end
                std::string member;
                Verdict verdict{};
                double ir = -1;
                ASSERT_TRUE(form.ReadBack(line, member, verdict, ir));
                EXPECT_EQ(member, name);
                EXPECT_EQ(verdict, written);
                EXPECT_EQ(ir, answer.rated() ? kRatio : 0);
            }
        }
    }
}

TEST(AnswerForm, ReadsNoOtherLine)
{
    AnswerForm csv, json;
    ASSERT_EQ(csv.Choose(TableForm::csv, {}), "");
    ASSERT_EQ(json.Choose(TableForm::ndjson, {}), "");
    std::string member;
    Verdict verdict{};
    double ir = 0;
    for (const std::string line :
         {"", ",", "1", "1,", "1,within", "1,within limits", "1,fine,0.5", "\"1,within limits,0.5",
          "\"", "{}", "{\"member\":", "{\"member\":\"", "{\"member\":1,\"verdict\":\"bad input\"",
          "{\"member\":\"1\",\"verdict\":\"bad input\"", "{\"member\":\"1\",\"ir\":0.5}"}) {
        EXPECT_FALSE(csv.ReadBack(line, member, verdict, ir)) << line;
        EXPECT_FALSE(json.ReadBack(line, member, verdict, ir)) << line;
    }
}

// Twelve members in three tallies, added in any order: the same summary.
TEST(Tally, DoesNotDependOnTheOrder)
{
    std::vector<Tally> parts(3);
    for (std::size_t i = 0; i < 12; ++i) {
        // Ratios 0, 1, 2, 3, 0, ...: equal ones stand in the order of their places.
        parts[i / 4].Add(i, "m" + std::to_string(i), Verdict::within, static_cast<double>(i % 4));
    }
    parts[1].Add(12, "failed", Verdict::failed, 0);
    const std::string expected =
        "13 members: 12 within limits, 0 above limit, 1 calculation error\n"
        "  3  m3\n  3  m7\n  3  m11\n  2  m2\n  2  m6\n  2  m10\n  1  m1\n  1  m5\n  1  m9\n"
        "  0  m0\n";
    for (const auto& order : {std::vector<std::size_t>{0, 1, 2}, {2, 1, 0}, {1, 2, 0}}) {
        Tally all;
        for (const std::size_t part : order) {
            all.Add(parts[part]);
        }
        EXPECT_EQ(all.Summary(), expected);
        EXPECT_EQ(all.Members(), 13U);
    }
}

TEST(Tally, ShowsRatiosOfAnySize)
{
    Tally tally;
    tally.Add(0, "a", Verdict::above, 1.25e84);
    tally.Add(1, "b", Verdict::within, 0.25);
    EXPECT_EQ(tally.Summary(), "2 members: 1 within limits, 1 above limit\n"
                               "  1.25e+84  a\n  0.25  b\n");
}

}  // namespace
}  // namespace kestrum
