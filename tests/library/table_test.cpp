// Many members at once: each row has the answer of its member alone, on any number of threads.

#include <kestrum/kestrum.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using kestrum::Basis;
using kestrum::Catalogue;
using kestrum::Column;
using kestrum::Member;
using kestrum::Status;
using kestrum::Table;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

const Catalogue& Builtin()
{
    static const Catalogue catalogue = Catalogue::builtin();
    return catalogue;
}

// Spans, loads and sections at random; every tenth row keeps the section of the base.
struct RandomMembers {
    explicit RandomMembers(std::size_t rows)
    {
        std::mt19937 random(7);
        static const char* const kSections[] = {"IPE 200", "IPE 400", "HEA 200", "HEB 300",
                                                "UPE 200"};
        for (std::size_t i = 0; i < rows; ++i) {
            l.push_back(2 + std::uniform_real_distribution<>(0, 8)(random));
            q.push_back(std::uniform_real_distribution<>(-5, 30)(random));
            n.push_back(std::uniform_real_distribution<>(-200, 900)(random));
            section.push_back(i % 10 == 0 ? nullptr : kSections[random() % 5]);
        }
    }
    std::vector<Column> Columns() const
    {
        return {{"l", l}, {"qload[1]", q}, {"nload[1]", n}, {"section", section.data()}};
    }

    std::vector<double> l, q, n;
    std::vector<const char*> section;
};

bool Same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

TEST(Table, EachRowHasTheAnswerOfItsMemberAlone)
{
    constexpr std::size_t kRows = 150;
    const RandomMembers members(kRows);
    const auto table = Table::check(Member(Builtin()), members.Columns(), kRows,
                                    {Basis::both, {"mymax", "irsection"}, 0, true});
    ASSERT_TRUE(table) << table.error().text;
    ASSERT_EQ(table->rows(), kRows);
    std::set<Status> seen;
    for (std::size_t i = 0; i < kRows; ++i) {
        SCOPED_TRACE(i);
        Member alone(Builtin());
        if (members.section[i] != nullptr) {
            ASSERT_FALSE(alone.set("section", members.section[i]));
        }
        ASSERT_FALSE(alone.set("l", members.l[i]));
        ASSERT_FALSE(alone.set("qload[1]", members.q[i]));
        ASSERT_FALSE(alone.set("nload[1]", members.n[i]));
        const kestrum::Result result = alone.check();
        seen.insert(result.status());
        for (const Basis basis : {Basis::program, Basis::standard}) {
            EXPECT_EQ(table->status(i, basis), result.status(basis));
            EXPECT_TRUE(Same(table->ratio(i, basis), result.ratio(basis)));
            EXPECT_EQ(table->words(i, KESTRUM_VERDICT, basis), result.verdict(basis));
            EXPECT_EQ(table->words(i, KESTRUM_GOVERNING, basis), result.governing(basis));
            EXPECT_EQ(table->words(i, KESTRUM_CLAUSE, basis), result.clause(basis));
            EXPECT_EQ(table->words(i, KESTRUM_MESSAGE, basis), result.message(basis));
        }
        const auto mymax = result.value("mymax");
        EXPECT_TRUE(Same(table->numbers(0)[i], mymax ? *mymax : kNone));
        EXPECT_FALSE(table->refused(i));
    }
    EXPECT_GE(seen.size(), 3U);  // within, above, unstable
}

// Each basis without the other, with and without numbers.
TEST(Table, EachBasisIsCalculatedWhereItIsAskedFor)
{
    Member beam(Builtin());
    ASSERT_FALSE(beam.set({{"section", "IPE 300"}, {"qload[1]", "10"}, {"l", "5"}}));
    const kestrum::Result alone = beam.check();
    for (const Basis basis : {Basis::program, Basis::standard, Basis::both}) {
        for (const bool numbers : {false, true}) {
            std::vector<std::string> fields;
            if (numbers) {
                fields = {"mymax"};
            }
            const auto table = Table::check(beam, {}, 1, {basis, fields});
            ASSERT_TRUE(table);
            if (basis != Basis::standard) {
                EXPECT_EQ(table->ratio(0, Basis::program), alone.ratio());
            }
            if (basis != Basis::program) {
                EXPECT_EQ(table->ratio(0, Basis::standard), alone.ratio(Basis::standard));
            }
            if (numbers) {
                EXPECT_EQ(table->numbers(0)[0], *alone.value("mymax"));
            }
        }
    }
}

TEST(Table, TheNumberOfThreadsChangesNothing)
{
    constexpr std::size_t kRows = 200;
    const RandomMembers members(kRows);
    const auto one =
        Table::check(Member(Builtin()), members.Columns(), kRows, {Basis::both, {}, 1, true});
    const auto four =
        Table::check(Member(Builtin()), members.Columns(), kRows, {Basis::both, {}, 4, true});
    ASSERT_TRUE(one && four);
    for (std::size_t i = 0; i < kRows; ++i) {
        for (const Basis basis : {Basis::program, Basis::standard}) {
            EXPECT_TRUE(Same(one->ratio(i, basis), four->ratio(i, basis))) << i;
            EXPECT_STREQ(one->words(i, KESTRUM_NOTES, basis), four->words(i, KESTRUM_NOTES, basis));
        }
    }
}

TEST(Table, ARefusedInputNamesItsColumnAndTheOtherRowsAreCalculated)
{
    const std::vector<double> l = {5, -1, kNone, std::numeric_limits<double>::infinity(), 5};
    const std::vector<double> q = {10, 10, 10, 10, 10};
    const std::vector<const char*> section = {"IPE 300", "IPE 300", "IPE 300", "IPE 300", "IPE 3"};
    const auto table = Table::check(Member(Builtin()),
                                    {{"section", section.data()}, {"l", l}, {"qload[1]", q}}, 5);
    ASSERT_TRUE(table) << table.error().text;
    EXPECT_EQ(table->status(0), Status::within);
    EXPECT_EQ(table->ratio(2), table->ratio(0));  // 5 m is the length of a new member
    for (const std::size_t row : {1U, 3U}) {
        EXPECT_EQ(table->status(row), Status::bad_input);
        EXPECT_EQ(table->status(row, Basis::standard), Status::bad_input);
        EXPECT_EQ(table->refused(row), 1U);
        EXPECT_TRUE(std::isnan(table->ratio(row)));
        EXPECT_EQ(std::string(table->words(row, KESTRUM_MESSAGE)).substr(0, 3), "l: ");
    }
    EXPECT_EQ(table->refused(4), 0U);
}

// Fields come from the rules of the program, also where only the standard's answer is asked for.
TEST(Table, EachBasisAndItsFieldsAlone)
{
    const RandomMembers members(70);
    const Member base(Builtin());
    const auto check = [&](unsigned basis, std::size_t count, const char* const* fields) {
        const kestrum_column column{"l", members.l.data(), nullptr};
        kestrum_table* table = nullptr;
        EXPECT_EQ(kestrum_table_check(base.get(), &column, 1, 70, basis, fields, count, 2, &table,
                                      nullptr),
                  KESTRUM_OK);
        return table;
    };
    const char* const name = "ncry";
    kestrum_table* const program = check(KESTRUM_BASIS_PROGRAM, 1, &name);
    kestrum_table* const standard = check(KESTRUM_BASIS_STANDARD, 1, &name);
    kestrum_table* const without = check(KESTRUM_BASIS_STANDARD, 0, nullptr);
    EXPECT_EQ(kestrum_table_ratios(program, KESTRUM_BASIS_STANDARD), nullptr);
    EXPECT_EQ(kestrum_table_ratios(standard, KESTRUM_BASIS_PROGRAM), nullptr);
    EXPECT_EQ(kestrum_table_ratios(standard, KESTRUM_BASIS_BOTH), nullptr);
    EXPECT_EQ(kestrum_table_numbers(without, 0), nullptr);
    EXPECT_EQ(kestrum_table_refused(nullptr, 0), 0U);
    EXPECT_EQ(kestrum_table_refused(program, 70), 0U);
    for (std::size_t i = 0; i < 70; ++i) {
        EXPECT_EQ(kestrum_table_numbers(program, 0)[i], kestrum_table_numbers(standard, 0)[i]);
        EXPECT_TRUE(Same(kestrum_table_ratios(standard, KESTRUM_BASIS_STANDARD)[i],
                         kestrum_table_ratios(without, KESTRUM_BASIS_STANDARD)[i]));
        // pi^2 E I / L^2 falls with the square of the length.
        EXPECT_NEAR(kestrum_table_numbers(program, 0)[i] * members.l[i] * members.l[i],
                    kestrum_table_numbers(program, 0)[0] * members.l[0] * members.l[0],
                    1e-4 * kestrum_table_numbers(program, 0)[0] * members.l[0] * members.l[0]);
    }
    EXPECT_EQ(kestrum_table_numbers(nullptr, 0), nullptr);
    const double none = -1;
    const kestrum_column refused{"l", &none, nullptr};
    for (const unsigned basis : {KESTRUM_BASIS_PROGRAM, KESTRUM_BASIS_STANDARD}) {
        kestrum_table* one = nullptr;
        ASSERT_EQ(
            kestrum_table_check(base.get(), &refused, 1, 1, basis, nullptr, 0, 1, &one, nullptr),
            KESTRUM_OK);
        EXPECT_EQ(kestrum_table_statuses(one, basis)[0], KESTRUM_BAD_INPUT);
        EXPECT_EQ(kestrum_table_statuses(one, KESTRUM_BASIS_BOTH - basis), nullptr);
        EXPECT_EQ(kestrum_table_refused(one, 0), 0U);
        kestrum_table_free(one);
    }
    const char* const nothing = nullptr;
    kestrum_table* table = nullptr;
    for (const char* const* fields : {static_cast<const char* const*>(nullptr), &nothing}) {
        EXPECT_EQ(kestrum_table_check(base.get(), nullptr, 0, 1, KESTRUM_BASIS_BOTH, fields, 1, 1,
                                      &table, nullptr),
                  KESTRUM_NULL);
        EXPECT_EQ(table, nullptr);
    }
    kestrum_table_free(program);
    kestrum_table_free(standard);
    kestrum_table_free(without);
}

TEST(Table, NamesThatAreNoneFailBeforeAnyRow)
{
    const std::vector<double> v = {1};
    const Member base(Builtin());
    EXPECT_EQ(Table::check(base, {{"lenght", v}}, 1).error().code, KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(Table::check(base, {{"l", v}}, 1, {Basis::both, {"mcrr"}}).error().code,
              KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(Table::check(base, {{"l", static_cast<const double*>(nullptr)}}, 1).error().code,
              KESTRUM_NULL);
    const auto empty = Table::check(base, {{"l", v}}, 0);
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->rows(), 0U);
    EXPECT_TRUE(Table::check(base, {{"l", static_cast<const double*>(nullptr)}}, 0));
}

TEST(Table, PlacesBeyondTheRowsAreEmpty)
{
    const std::vector<double> v = {5, 6, 7};
    const auto table = Table::check(Member(Builtin()), {{"l", v}}, 3, {Basis::program});
    ASSERT_TRUE(table);
    EXPECT_STREQ(kestrum_table_words(table->get(), 3, KESTRUM_BASIS_PROGRAM, KESTRUM_VERDICT), "");
    EXPECT_STREQ(kestrum_table_words(table->get(), 0, KESTRUM_BASIS_STANDARD, KESTRUM_VERDICT), "");
    for (const int which : {KESTRUM_NOTES + 1, 7}) {
        EXPECT_STREQ(kestrum_table_words(table->get(), 0, KESTRUM_BASIS_PROGRAM,
                                         static_cast<kestrum_words>(which)),
                     "");
    }
    EXPECT_EQ(kestrum_table_refused(table->get(), 2), 1U);  // the number of columns: none
    EXPECT_EQ(kestrum_table_refused(table->get(), 3), 0U);
    EXPECT_EQ(kestrum_table_refused(nullptr, 0), 0U);
    EXPECT_EQ(kestrum_table_ratios(table->get(), KESTRUM_BASIS_STANDARD), nullptr);
    EXPECT_EQ(kestrum_table_numbers(table->get(), 0), nullptr);
    EXPECT_EQ(kestrum_table_rows(nullptr), 0U);
    EXPECT_EQ(kestrum_table_statuses(nullptr, KESTRUM_BASIS_PROGRAM), nullptr);
    kestrum_table_free(nullptr);
}

}  // namespace
