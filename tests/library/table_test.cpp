// Many members at once: each row has the answer of its member alone, on any number of threads.

#include <kestrum/kestrum.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
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
    constexpr std::size_t kRows = 300;
    const RandomMembers members(kRows);
    const auto table = Table::check(Member(Builtin()), members.Columns(), kRows,
                                    {Basis::both, {"mymax", "irsection"}});
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

TEST(Table, TheNumberOfThreadsChangesNothing)
{
    constexpr std::size_t kRows = 500;
    const RandomMembers members(kRows);
    const auto one =
        Table::check(Member(Builtin()), members.Columns(), kRows, {Basis::both, {}, 1});
    const auto four =
        Table::check(Member(Builtin()), members.Columns(), kRows, {Basis::both, {}, 4});
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
}

// --- Members under forces ------------------------------------------------------------------------

// A tie of an HEB 200, A = 7808 mm2, S235, takes 7808 * 0.235 = 1834.9 kN.
constexpr double kTieForce = 7808 * 0.235;

Member Tie()
{
    Member tie(Builtin());
    EXPECT_FALSE(tie.set({{"section", "HEB 200"}, {"steel", "S235"}, {"l", "4"}}));
    return tie;
}

// Two stations for each pull, which is a case of its own.
struct Pulls {
    void Add(std::size_t of, double pull, double l = 4)
    {
        for (const double at : {0.0, l}) {
            member.push_back(of);
            load_case.push_back(cases);
            x.push_back(at);
            n.push_back(-pull);
        }
        ++cases;
    }
    kestrum::Forces Columns() const
    {
        kestrum::Forces forces{};
        forces.rows = x.size();
        forces.member = member.data();
        forces.load_case = load_case.data();
        forces.x = x.data();
        forces.n = n.data();
        return forces;
    }

    std::vector<std::size_t> member, load_case;
    std::vector<double> x, n;
    std::size_t cases = 0;
};

TEST(Frame, TheWorstCaseOfEachMemberCounts)
{
    Pulls pulls;
    pulls.Add(1, 50);
    pulls.Add(0, 100);
    pulls.Add(0, 2000);
    pulls.Add(0, 1900);
    const std::vector<double> l = {4, 4, 4};
    const auto frame = kestrum::Envelope::check(Tie(), {{"l", l}}, 3, pulls.Columns());
    ASSERT_TRUE(frame) << frame.error().text;
    ASSERT_EQ(frame->members(), 3U);
    for (const Basis basis : {Basis::program, Basis::standard}) {
        const auto worst = frame->worst(0, basis);
        ASSERT_TRUE(worst);
        EXPECT_EQ(worst->status, Status::above);
        EXPECT_NEAR(worst->ratio, 2000 / kTieForce, 1e-4);
        EXPECT_EQ(worst->row, 4U);
        EXPECT_EQ(worst->clause, "6.2.3");
        EXPECT_EQ(worst->cases, 3U);
        EXPECT_EQ(worst->above, 2U);
        EXPECT_EQ(worst->failed, 0U);
        EXPECT_NEAR(frame->worst(1, basis)->ratio, 50 / kTieForce, 1e-5);
        EXPECT_EQ(frame->worst(2, basis)->status, Status::not_checked);
        EXPECT_EQ(frame->worst(2, basis)->message, "no forces");
    }
    EXPECT_TRUE(frame->faults().empty());
    EXPECT_EQ(frame->worst(3).error().code, KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(frame->worst(0, Basis::both).error().code, KESTRUM_REFUSED);
}

// Beams with end moments: rows in any order, on any number of threads, and one member at a time
// give the same.
TEST(Frame, NeitherOrderNorThreadsNorCompanyChangeTheWorstCase)
{
    constexpr std::size_t kMembers = 3, kCases = 40, kStations = 5;
    std::mt19937 random(5);
    std::vector<std::size_t> member, load_case;
    std::vector<double> x, n, my;
    for (std::size_t i = 0; i < kMembers * kCases * kStations; ++i) {
        member.push_back(i / (kCases * kStations));
        load_case.push_back(i / kStations % kCases);
        x.push_back(static_cast<double>(i % kStations));
        n.push_back(static_cast<double>(100 * load_case.back()) / kCases);
        const double most = 4.0 * static_cast<double>(load_case.back());
        my.push_back(std::uniform_real_distribution<>(-most, most)(random));
    }
    const auto check = [&](const Member& base, const std::vector<std::size_t>& order,
                           std::size_t members, unsigned threads) {
        std::vector<std::size_t> m, c;
        std::vector<double> at, axial, moment;
        for (const std::size_t row : order) {
            m.push_back(member[row] % members);
            c.push_back(load_case[row]);
            at.push_back(x[row]);
            axial.push_back(n[row]);
            moment.push_back(my[row]);
        }
        kestrum::Forces forces{};
        forces.rows = order.size();
        forces.member = members == 1 ? nullptr : m.data();
        forces.load_case = c.data();
        forces.x = at.data();
        forces.n = axial.data();
        forces.my = moment.data();
        return kestrum::Envelope::check(base, {}, members, forces, {Basis::both, threads});
    };
    std::vector<std::size_t> order(member.size());
    std::iota(order.begin(), order.end(), 0U);
    Member beam(Builtin());
    ASSERT_FALSE(beam.set({{"section", "IPE 240"}, {"steel", "S235"}, {"l", "4"}}));
    const auto one = check(beam, order, kMembers, 1);
    const auto four = check(beam, order, kMembers, 4);
    std::vector<std::size_t> mixed = order;
    std::shuffle(mixed.begin(), mixed.end(), random);
    const auto shuffled = check(beam, mixed, kMembers, 4);
    ASSERT_TRUE(one && four && shuffled);
    for (std::size_t i = 0; i < kMembers; ++i) {
        const std::size_t first = i * kCases * kStations;
        const std::vector<std::size_t> own(&order[first], &order[first] + kCases * kStations);
        const auto alone = check(beam, own, 1, 1);
        for (const Basis basis : {Basis::program, Basis::standard}) {
            const auto worst = one->worst(i, basis);
            EXPECT_EQ(worst->cases, kCases);
            EXPECT_GT(worst->above, 0U);
            EXPECT_LT(worst->above, kCases);
            for (const auto& other : {four->worst(i, basis), shuffled->worst(i, basis)}) {
                EXPECT_EQ(other->ratio, worst->ratio);
                EXPECT_EQ(other->governing, worst->governing);
                EXPECT_EQ(other->above, worst->above);
                EXPECT_EQ(other->notes, worst->notes);
            }
            EXPECT_EQ(four->worst(i, basis)->row, worst->row);
            EXPECT_EQ(load_case[mixed[shuffled->worst(i, basis)->row]], load_case[worst->row]);
            EXPECT_EQ(alone->worst(0, basis)->ratio, worst->ratio);
        }
    }
}

TEST(Frame, FaultsNameTheirMemberColumnAndRow)
{
    Pulls pulls;
    pulls.Add(0, 10);
    pulls.Add(1, 10);
    pulls.Add(2, 10);
    pulls.Add(2, 5000, 3);  // does not reach the end
    pulls.Add(3, kNone);
    const std::vector<double> l = {4, -1, 4, 4};
    const auto frame = kestrum::Envelope::check(Tie(), {{"l", l}}, 4, pulls.Columns());
    ASSERT_TRUE(frame) << frame.error().text;
    EXPECT_EQ(frame->worst(0)->status, Status::within);
    EXPECT_EQ(frame->worst(1)->status, Status::bad_input);
    EXPECT_TRUE(std::isnan(frame->worst(1)->ratio));
    EXPECT_EQ(frame->worst(1)->row, pulls.x.size());
    EXPECT_EQ(frame->worst(2)->status, Status::bad_input);  // though one case is within
    EXPECT_EQ(frame->worst(2)->row, 6U);
    EXPECT_EQ(frame->worst(2)->failed, 1U);
    EXPECT_EQ(frame->worst(3)->status, Status::bad_input);
    const auto faults = frame->faults();
    ASSERT_EQ(faults.size(), 3U);
    EXPECT_EQ(faults[0].member, 1U);
    EXPECT_EQ(faults[0].column, 0U);
    EXPECT_EQ(faults[0].row, pulls.x.size());
    EXPECT_EQ(faults[0].text.substr(0, 3), "l: ");
    EXPECT_EQ(faults[1].member, 2U);
    EXPECT_EQ(faults[1].column, 1U);
    EXPECT_EQ(faults[1].row, 7U);
    EXPECT_NE(faults[1].text.find("is not the end of the member of 4 m"), std::string::npos);
    EXPECT_EQ(faults[2].member, 3U);
    EXPECT_EQ(kestrum_envelope_fault(frame->get(), 3, nullptr, nullptr), KESTRUM_UNKNOWN_NAME);
}

TEST(Frame, MembersAndNamesThatAreNoneFail)
{
    Pulls pulls;
    pulls.Add(2, 10);
    const kestrum::Forces forces = pulls.Columns();
    const auto stranger = kestrum::Envelope::check(Tie(), {}, 2, forces);
    EXPECT_EQ(stranger.error().code, KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(stranger.error().text, "row 0: member 2 of 2");
    const auto unknown = kestrum::Envelope::check(Tie(), {{"qlaod[1]", pulls.x}}, 3, forces);
    EXPECT_EQ(unknown.error().nearest, "qload");
    EXPECT_EQ(kestrum::Envelope::check(Tie(), {}, 3, forces, {static_cast<Basis>(4)}).error().code,
              KESTRUM_REFUSED);
    kestrum_envelope* frame = nullptr;
    const std::size_t most = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(kestrum_envelope_check(Tie().get(), nullptr, 0, most, &forces, KESTRUM_BASIS_BOTH, 1,
                                     &frame, nullptr),
              KESTRUM_NO_MEMORY);
    const auto none = kestrum::Envelope::check(Tie(), {}, 0, kestrum::Forces{});
    ASSERT_TRUE(none);
    EXPECT_EQ(none->members(), 0U);
}

TEST(Table, PlacesBeyondTheRowsAreEmpty)
{
    const std::vector<double> v = {5};
    const auto table = Table::check(Member(Builtin()), {{"l", v}}, 1, {Basis::program});
    ASSERT_TRUE(table);
    EXPECT_STREQ(kestrum_table_words(table->get(), 1, KESTRUM_BASIS_PROGRAM, KESTRUM_VERDICT), "");
    EXPECT_STREQ(kestrum_table_words(table->get(), 0, KESTRUM_BASIS_STANDARD, KESTRUM_VERDICT), "");
    EXPECT_STREQ(
        kestrum_table_words(table->get(), 0, KESTRUM_BASIS_PROGRAM, static_cast<kestrum_words>(7)),
        "");
    EXPECT_EQ(kestrum_table_ratios(table->get(), KESTRUM_BASIS_STANDARD), nullptr);
    EXPECT_EQ(kestrum_table_numbers(table->get(), 0), nullptr);
    EXPECT_EQ(kestrum_table_rows(nullptr), 0U);
    EXPECT_EQ(kestrum_table_statuses(nullptr, KESTRUM_BASIS_PROGRAM), nullptr);
    kestrum_table_free(nullptr);
}

}  // namespace
