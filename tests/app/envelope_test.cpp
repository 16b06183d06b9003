#include "app/envelope.h"

#include "core/project_state.h"
#include "engine/new_project.h"
#include "support/delivered.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

constexpr const char* kHeader = "member,case,x,N,Vy,Vz,My,Mz,Mx";

class Envelope : public ::testing::Test {
protected:
    ForcePiece Run(const std::string& members, const std::string& rows, Bases bases = Bases::both,
                   bool all = false, std::size_t top = 0)
    {
        EXPECT_EQ(list_.Take(members, "m.csv", ""), "");
        plan_.bases = bases;
        plan_.all = all;
        plan_.top = top;
        ForceColumns columns;
        EXPECT_EQ(columns.TakeHeader(kHeader, {}), "");
        EnvelopeWorker worker(plan_, columns, "f.csv");
        ForcePiece piece;
        piece.lines = rows;
        piece.line = 2;
        worker.Work(piece);
        return piece;
    }

    MemberList list_;
    ProjectState base_ = StartState(Delivered());
    EnvelopePlan plan_{Delivered(), base_, list_};
};

// Tension members: A of an HEB 200 is 7808 mm2, S235.
constexpr const char* kTie = "id,section,steel,l\nT,HEB 200,S235,4\nU,HEB 200,S235,4\n";
constexpr double kTieForce = 7808 * 235 / 1000.0;  // kN

std::string Pulled(const std::string& member, const std::string& load_case, double n, double l = 4)
{
    const std::string key = member + "," + load_case + ",";
    return key + "0," + std::to_string(-n) + ",0,0,0,0,0\n" + key + std::to_string(l) + "," +
           std::to_string(-n) + ",0,0,0,0,0\n";
}

TEST_F(Envelope, KeepsTheWorstCaseOfEachMember)
{
    const ForcePiece piece = Run(kTie, Pulled("T", "a", 100) + Pulled("T", "b", 2000) +
                                           Pulled("T", "c", 300) + Pulled("U", "a", 50));
    ASSERT_EQ(piece.answers.size(), 2U);
    const MemberAnswer& tie = piece.answers[0];
    EXPECT_EQ(list_.Key(tie.member), "T");
    EXPECT_EQ(tie.program.load_case, "b");
    EXPECT_EQ(tie.program.clause, "6.2.3");
    EXPECT_NEAR(tie.program.ir, 2000 / kTieForce, 1e-4);
    EXPECT_NEAR(tie.standard.ir, 2000 / kTieForce, 1e-4);
    EXPECT_EQ(tie.counts.cases, 3U);
    EXPECT_EQ(tie.counts.above, 1U);
    EXPECT_EQ(tie.counts.above_standard, 1U);
    EXPECT_EQ(tie.counts.failed, 0U);
    EXPECT_EQ(tie.VerdictIn(Bases::both), Verdict::above);
    EXPECT_EQ(piece.answers[1].VerdictIn(Bases::both), Verdict::within);
    EXPECT_EQ(piece.rows, 8U);
    EXPECT_EQ(piece.cases, 4U);
    EXPECT_EQ(piece.fault, "");
}

// A case without a ratio is worse than any ratio, wherever it stands.
TEST_F(Envelope, ACaseThatFailsRanksAboveEveryRatio)
{
    const std::string bad = "T,bad,0,0,0,0,0,0,0\nT,bad,3,0,0,0,0,0,0\n";  // the end is missing
    for (const std::string& rows : {bad + Pulled("T", "b", 5000), Pulled("T", "b", 5000) + bad}) {
        const ForcePiece piece = Run(kTie, rows);
        ASSERT_EQ(piece.answers.size(), 1U);
        const MemberAnswer& answer = piece.answers[0];
        EXPECT_EQ(answer.VerdictIn(Bases::both), Verdict::bad);
        EXPECT_EQ(answer.VerdictIn(Bases::standard), Verdict::bad);
        EXPECT_EQ(answer.program.load_case, "bad");
        EXPECT_EQ(answer.counts.failed, 1U);
        EXPECT_EQ(answer.counts.above, 1U);
        EXPECT_THAT(answer.program.message, HasSubstr("is not the end of the member of 4 m"));
        EXPECT_THAT(piece.fault, HasSubstr("member \"T\", case \"bad\": "));
    }
}

TEST_F(Envelope, RowsAtFaultAreNamedByTheirLine)
{
    const ForcePiece piece =
        Run(kTie, Pulled("T", "a", 100) + "T,b,0,x,0,0,0,0,0\nT,b,4,0,0,0,0,0,0\n" +
                      Pulled("X", "a", 1) + ",c,0,0,0,0,0,0,0\n" + Pulled("U", "a", 10, 4.5));
    EXPECT_EQ(piece.fault, "f.csv:4: N: \"x\" is no number\n"
                           "f.csv:6: member \"X\" is not in the table of members\n"
                           "f.csv:8: no member\n"
                           "f.csv:10: member \"U\", case \"a\": the station x 4.5 m lies off the "
                           "member of 4 m\n");
    ASSERT_EQ(piece.answers.size(), 2U);
    EXPECT_EQ(piece.answers[0].counts.failed, 1U);
    EXPECT_THAT(piece.answers[0].program.message, HasSubstr("line 4"));
}

TEST_F(Envelope, UnstableMembersFail)
{
    const ForcePiece piece = Run("id,section,steel,l,method\nT,IPE 80,S235,10,A\n",
                                 "T,a,0,900,0,0,1,0,0\nT,a,10,900,0,0,1,0,0\n");
    ASSERT_EQ(piece.answers.size(), 1U);
    EXPECT_EQ(piece.answers[0].VerdictIn(Bases::program), Verdict::unstable);
    EXPECT_TRUE(piece.answers[0].program.failed);
    EXPECT_GT(piece.answers[0].program.ir, 1);       // NEd/Ncr
    EXPECT_FALSE(piece.answers[0].standard.failed);  // there the ratio is finite
    EXPECT_GT(piece.answers[0].standard.ir, 1);
}

TEST_F(Envelope, NoForcesAreNoFailure)
{
    const ForcePiece piece = Run(kTie, Pulled("T", "a", 0));
    EXPECT_EQ(piece.answers[0].VerdictIn(Bases::program), Verdict::within);
    EXPECT_EQ(piece.answers[0].VerdictIn(Bases::standard), Verdict::within);
    EXPECT_EQ(piece.answers[0].counts.failed_standard, 0U);
}

TEST_F(Envelope, StationsMayStandInAnyOrder)
{
    const std::string rise = "T,a,0,0,0,5,0,0,0\nT,a,2,0,0,5,10,0,0\nT,a,2,0,0,-5,10,0,0\n"
                             "T,a,4,0,0,-5,0,0,0\n";
    const std::string fall = "T,a,4,0,0,-5,0,0,0\nT,a,2,0,0,-5,10,0,0\nT,a,2,0,0,5,10,0,0\n"
                             "T,a,0,0,0,5,0,0,0\n";
    const std::string mixed = "T,a,4,0,0,-5,0,0,0\nT,a,2,0,0,5,10,0,0\nT,a,2,0,0,-5,10,0,0\n"
                              "T,a,0,0,0,5,0,0,0\n";
    const double ir = Run(kTie, rise).answers[0].program.ir;
    EXPECT_GT(ir, 0);
    EXPECT_EQ(Run(kTie, fall).answers[0].program.ir, ir);
    EXPECT_EQ(Run(kTie, mixed).answers[0].program.ir, ir);
}

// It of an HEB 200 is 59.3 cm4, its flange 15 mm: the yield torque is It/t fy/sqrt(3) = 5.4 kNm.
TEST_F(Envelope, TorsionAboveAShareIsNamed)
{
    const auto notes = [&](const std::string& mx) {
        std::string line;
        const ForcePiece piece = Run(kTie, "T,a,0,0,0,0,0,0," + mx + "\nT,a,4,9,0,0,0,0,0\n");
        EnvelopeForm(TableForm::csv, Bases::both, CsvTexts::plain)
            .AppendLine(line, "T", piece.answers[0]);
        return line;
    };
    EXPECT_THAT(notes("-1.2"), HasSubstr("Mx up to 1.2 kNm (22"));
    EXPECT_THAT(notes("0.05"), ::testing::Not(HasSubstr("Mx")));
}

TEST_F(Envelope, ForcesThatTheFamilyDoesNotTakeLeaveNoRatio)
{
    const std::string hat = "id,family,l\nH,24,6\n";
    const std::string rows = "H,a,0,0,0,0,10,0,0\nH,a,6,0,0,0,10,30,0\n";
    const ForcePiece piece = Run(hat, rows, Bases::program);
    EXPECT_EQ(piece.answers[0].VerdictIn(Bases::program), Verdict::loads_dropped);
    EXPECT_THAT(piece.answers[0].program.message, HasSubstr("Mz or Vy up to 30"));
    EXPECT_EQ(piece.answers[0].counts.failed, 1U);
    // A thousandth of the resistance is a rounding of none, and named.
    const ForcePiece little =
        Run(hat, "H,a,0,0,0,0,10,0,0\nH,a,6,0,0,0,10,0.01,0\n", Bases::program);
    EXPECT_EQ(little.answers[0].counts.failed, 0U);
    EXPECT_THAT(little.answers[0].program.notes, Contains(HasSubstr("Mz or Vy up to 0.01")));
}

TEST_F(Envelope, AMemberThatCannotBeIsToldOnItsLine)
{
    const ForcePiece piece = Run("id,section,l\nT,IPE 301,4\n", Pulled("T", "a", 1));
    EXPECT_EQ(piece.answers[0].VerdictIn(Bases::both), Verdict::bad);
    EXPECT_THAT(piece.answers[0].refusal, HasSubstr("no such section"));
}

// The plain loop: the member's answer is the worst of those of its cases, in both bases.
TEST_F(Envelope, TheWorstIsThatOfAllCasesOneByOne)
{
    std::string rows;
    unsigned random = 1;
    const auto next = [&random](double size) {
        random = random * 1664525U + 1013904223U;
        return size * (static_cast<double>(random >> 8U) / (1U << 24U) - 0.5);
    };
    for (int load_case = 0; load_case < 60; ++load_case) {
        const double n = next(600), m0 = next(120), m1 = next(120), mz = next(20), q = next(20);
        for (int i = 0; i <= 8; ++i) {
            const double x = 0.5 * i, t = x / 4;
            rows += "T,c" + std::to_string(load_case) + "," + std::to_string(x) + "," +
                    std::to_string(n) + ",0," + std::to_string((m1 - m0) / 4 + q * (2 - x)) + "," +
                    std::to_string(m0 + (m1 - m0) * t + q * x * (4 - x) / 2) + "," +
                    std::to_string(mz * t) + ",0\n";
        }
    }
    const std::string member = "id,section,steel,l,ltb,method\nT,IPE 330,S235,4,1,B\n";
    const ForcePiece worst = Run(member, rows);
    const ForcePiece each = Run(member, rows, Bases::both, true);
    ASSERT_EQ(worst.answers.size(), 1U);
    ASSERT_EQ(each.answers.size(), 60U);
    const auto program =
        std::max_element(each.answers.begin(), each.answers.end(),
                         [](const auto& a, const auto& b) { return a.program.ir < b.program.ir; });
    const auto standard = std::max_element(
        each.answers.begin(), each.answers.end(),
        [](const auto& a, const auto& b) { return a.standard.ir < b.standard.ir; });
    EXPECT_EQ(worst.answers[0].program.ir, program->program.ir);
    EXPECT_EQ(worst.answers[0].program.load_case, program->program.load_case);
    EXPECT_EQ(worst.answers[0].program.control, program->program.control);
    EXPECT_EQ(worst.answers[0].standard.ir, standard->standard.ir);
    EXPECT_EQ(worst.answers[0].standard.load_case, standard->standard.load_case);
    std::size_t above = 0;
    for (const MemberAnswer& answer : each.answers) {
        above += answer.program.ir > 1 ? 1 : 0;
    }
    EXPECT_EQ(worst.answers[0].counts.above, above);
    EXPECT_GT(above, 0U);
    EXPECT_LT(above, 60U);
}

TEST_F(Envelope, LinesOfBothFormsReadBack)
{
    const ForcePiece piece = Run(kTie, Pulled("T", "a+b", 2000));
    for (const TableForm form : {TableForm::csv, TableForm::ndjson}) {
        const EnvelopeForm lines(form, Bases::both, CsvTexts::plain);
        std::string line, member;
        lines.AppendLine(line, "T \"1\"", piece.answers[0]);
        Verdict verdict{};
        double ir = 0;
        EXPECT_TRUE(lines.ReadBack(line.substr(0, line.size() - 1), member, verdict, ir));
        EXPECT_EQ(member, "T \"1\"");
        EXPECT_EQ(verdict, Verdict::above);
        EXPECT_EQ(ir, piece.answers[0].program.ir);
    }
    const EnvelopeForm csv(TableForm::csv, Bases::both, CsvTexts::plain);
    std::string line;
    csv.AppendLine(line, "T", piece.answers[0]);
    const std::string header = csv.Header();
    const auto cells = [](const std::string& text) {
        return std::count(text.begin(), text.end(), ',');
    };
    EXPECT_EQ(header.substr(0, 18), "member,verdict,ir,");
    EXPECT_EQ(cells(line), cells(header));  // no cell holds a comma here
}

}  // namespace
}  // namespace kestrum
