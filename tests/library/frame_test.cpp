// Members under forces of another program, and the lightest section of members.

#include <kestrum/kestrum.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using kestrum::Basis;
using kestrum::Catalogue;
using kestrum::Member;
using kestrum::Status;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

const Catalogue& Builtin()
{
    static const Catalogue catalogue = Catalogue::builtin();
    return catalogue;
}

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
    const auto twelve = check(beam, order, kMembers, 12);
    std::vector<std::size_t> mixed = order;
    std::shuffle(mixed.begin(), mixed.end(), random);
    const auto shuffled = check(beam, mixed, kMembers, 4);
    ASSERT_TRUE(one && four && twelve && shuffled);
    for (std::size_t i = 0; i < kMembers; ++i) {
        const std::size_t first = i * kCases * kStations;
        const std::vector<std::size_t> own(&order[first], &order[first] + kCases * kStations);
        const auto alone = check(beam, own, 1, 1);
        for (const Basis basis : {Basis::program, Basis::standard}) {
            const auto worst = one->worst(i, basis);
            EXPECT_EQ(worst->cases, kCases);
            EXPECT_GT(worst->above, 0U);
            EXPECT_LT(worst->above, kCases);
            for (const auto& other :
                 {four->worst(i, basis), twelve->worst(i, basis), shuffled->worst(i, basis)}) {
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

// Asked for alone or beside the other, a basis has its own ratio.
TEST(Frame, EachBasisAnswersForItself)
{
    Pulls pulls;
    pulls.Add(0, 700);
    for (const Basis basis : {Basis::program, Basis::standard}) {
        const auto frame = kestrum::Envelope::check(Tie(), {}, 1, pulls.Columns(), {basis, 1});
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->worst(0, basis)->status, Status::within);
        EXPECT_NEAR(frame->worst(0, basis)->ratio, 700 / kTieForce, 1e-4);
        const Basis other = basis == Basis::program ? Basis::standard : Basis::program;
        EXPECT_EQ(frame->worst(0, other).error().code, KESTRUM_REFUSED);
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

// Of the faults the first thousand are told, those of the members in their order.
TEST(Frame, NoMoreThanAThousandFaultsAreTold)
{
    constexpr std::size_t kMembers = 2500;
    Pulls pulls;
    for (std::size_t i = 0; i < kMembers; ++i) {
        pulls.Add(kMembers - 1 - i, 10);
    }
    const std::vector<double> l(kMembers, -1);
    for (const unsigned threads : {1U, 3U}) {
        const auto frame = kestrum::Envelope::check(Tie(), {{"l", l}}, kMembers, pulls.Columns(),
                                                    {.threads = threads});
        ASSERT_TRUE(frame) << frame.error().text;
        const auto faults = frame->faults();
        ASSERT_EQ(faults.size(), 1000U);
        for (std::size_t i = 0; i < faults.size(); ++i) {
            EXPECT_EQ(faults[i].member, i);
        }
        EXPECT_EQ(frame->worst(kMembers - 1)->status, Status::bad_input);
    }
}

// Without cases all stations are of one; without members all are of the first. Forces that are left
// out are 0.
TEST(Frame, OneBasisOneCaseAndOneMember)
{
    const std::vector<double> x = {0, 4}, n = {-1000, -1000};
    kestrum::Forces forces{};
    forces.rows = 2;
    forces.x = x.data();
    forces.n = n.data();
    for (const Basis basis : {Basis::program, Basis::standard}) {
        const auto frame = kestrum::Envelope::check(Tie(), {}, 2, forces, {basis});
        ASSERT_TRUE(frame) << frame.error().text;
        const Basis other = basis == Basis::program ? Basis::standard : Basis::program;
        EXPECT_FALSE(frame->worst(0, other));
        EXPECT_NEAR(frame->worst(0, basis)->ratio, 1000 / kTieForce, 1e-3);
        EXPECT_EQ(frame->worst(0, basis)->cases, 1U);
        EXPECT_EQ(frame->worst(1, basis)->status, Status::not_checked);
        EXPECT_EQ(frame->worst(1, basis)->message, "no forces");
        EXPECT_TRUE(frame->faults().empty());
    }
}

// A member that is refused needs no forces.
TEST(Frame, ARefusedMemberWithoutForcesIsRefused)
{
    const std::vector<double> l = {4, -1};
    Pulls pulls;
    pulls.Add(0, 10);
    const auto frame = kestrum::Envelope::check(Tie(), {{"l", l}}, 2, pulls.Columns());
    ASSERT_TRUE(frame) << frame.error().text;
    EXPECT_EQ(frame->worst(1)->status, Status::bad_input);
    ASSERT_EQ(frame->faults().size(), 1U);
    EXPECT_EQ(frame->faults()[0].text.substr(0, 3), "l: ");
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

// --- The lightest section ------------------------------------------------------------------------

kestrum::Pool PoolOf(const std::vector<std::string>& words)
{
    kestrum::Pool pool(Builtin());
    for (const std::string& word : words) {
        const auto refused = pool.add(word);
        EXPECT_FALSE(refused) << refused->text;
    }
    return pool;
}

Member Beam()
{
    Member beam(Builtin());
    EXPECT_FALSE(beam.set({{"l", "7.2"},
                           {"steel", "S355"},
                           {"qload[1]", "12.5"},
                           {"qload[2]", "15"},
                           {"qtype[2]", "Q1"},
                           {"restraints", "2"},
                           {"checksls", "true"}}));
    return beam;
}

TEST(Selection, TheFirstThatPassesOfAllOneByOne)
{
    const auto selection = kestrum::Selection::check(Beam(), PoolOf({"IPE"}));
    ASSERT_TRUE(selection) << selection.error().text;
    std::string before, passes;
    const auto names = Builtin().sections("IPE");  // by their mass
    for (const std::string& name : *names) {
        Member beam = Beam();
        ASSERT_FALSE(beam.set("section", name));
        const kestrum::Result result = beam.check();
        if (result.status() == Status::within && result.status(Basis::standard) == Status::within) {
            passes = name;
            EXPECT_EQ(selection->worst(0, 0)->ratio, result.ratio());
            EXPECT_EQ(selection->worst(0, 0, Basis::standard)->ratio,
                      result.ratio(Basis::standard));
            break;
        }
        before = name;
    }
    ASSERT_FALSE(passes.empty());
    ASSERT_EQ(selection->found(0).size(), 1U);
    EXPECT_EQ(selection->found(0)[0].section, passes);
    EXPECT_EQ(selection->found(0)[0].steel, "S355");
    EXPECT_TRUE(std::isnan(selection->found(0)[0].price));
    ASSERT_TRUE(selection->lighter(0));
    EXPECT_EQ(selection->lighter(0)->section, before);
    EXPECT_EQ(selection->message(0), "");
}

// A tie of 2000 kN needs 2000/0.235 = 8511 mm2 in S235: HEB 220 with 9104 mm2, not HEB 200 with
// 7808. In S355 it needs 5634 mm2: HEB 180 with 6525. 100 kN need 426 mm2: HEB 100.
TEST(Selection, TiesTakeTheAreaThatTheyNeed)
{
    Pulls pulls;
    pulls.Add(0, 100);
    pulls.Add(0, 2000);
    pulls.Add(1, 100);
    const kestrum::Forces forces = pulls.Columns();
    const kestrum::Pool pool = PoolOf({"HEB"});
    const std::vector<double> l = {4, 4, 4};
    const auto check = [&](const kestrum::Wishes& wishes, const std::vector<std::size_t>& group) {
        return kestrum::Selection::check(Tie(), {{"l", l}}, 3, &forces, pool, wishes, group);
    };
    for (const unsigned threads : {1U, 3U}) {
        const auto own = check({.threads = threads}, {});
        ASSERT_TRUE(own) << own.error().text;
        ASSERT_EQ(own->members(), 3U);
        ASSERT_EQ(own->found(0).size(), 1U);
        EXPECT_EQ(own->found(0)[0].section, "HEB 220");
        EXPECT_NEAR(own->found(0)[0].mass, 9104e-6 * 7850, 0.1);
        EXPECT_EQ(own->found(0)[0].h, 220);
        EXPECT_NEAR(own->worst(0, 0)->ratio, 2000 / (9104 * 0.235), 1e-3);
        EXPECT_EQ(own->worst(0, 0)->row, 2U);
        EXPECT_EQ(own->worst(0, 0)->cases, 2U);
        EXPECT_EQ(own->lighter(0)->section, "HEB 200");
        EXPECT_EQ(own->found(1)[0].section, "HEB 100");
        EXPECT_FALSE(own->lighter(1));
        EXPECT_TRUE(own->found(2).empty());
        EXPECT_EQ(own->message(2), "no forces");
    }
    const auto together = check({}, {7, 7, 8});
    EXPECT_EQ(together->found(0)[0].section, "HEB 220");
    EXPECT_EQ(together->found(1)[0].section, "HEB 220");
    EXPECT_NEAR(together->worst(1, 0)->ratio, 100 / (9104 * 0.235), 1e-3);
    const auto strong = check({.steels = {"S355"}, .top = 2}, {});
    ASSERT_EQ(strong->found(0).size(), 2U);
    EXPECT_EQ(strong->found(0)[0].section, "HEB 180");
    EXPECT_EQ(strong->found(0)[0].steel, "S355");
    EXPECT_EQ(strong->found(0)[1].section, "HEB 200");
    const auto low = check({.max_h = 150}, {});
    EXPECT_TRUE(low->found(0).empty());
    EXPECT_FALSE(low->message(0).empty());
    EXPECT_EQ(low->found(1)[0].section, "HEB 100");
}

// 1500 kN need 6383 mm2: HEA 220 with 6434 is lighter than HEB 180 with 6525, at three times the
// price for a kg.
TEST(Selection, PricesDecide)
{
    Pulls pulls;
    pulls.Add(0, 1500);
    const kestrum::Forces forces = pulls.Columns();
    kestrum::Pool pool(Builtin());
    ASSERT_FALSE(pool.prices("section,price/kg\nHEB,1\nHEA,3\n"));
    const auto light = kestrum::Selection::check(Tie(), {}, 1, &forces, pool);
    const auto cheap =
        kestrum::Selection::check(Tie(), {}, 1, &forces, pool, {.by = kestrum::Objective::price});
    ASSERT_TRUE(light && cheap);
    EXPECT_EQ(light->found(0)[0].section.substr(0, 3), "HEA");
    EXPECT_EQ(cheap->found(0)[0].section.substr(0, 3), "HEB");
    EXPECT_NEAR(cheap->found(0)[0].price, cheap->found(0)[0].mass, 1e-9);
}

// Every HEA, HEB and IPE that carries 1500 kN, ordered by what is painted, b and h alike: the HEB
// 180 is smaller than the lighter HEA 220.
TEST(Selection, TheSmallestSurfaceComesFirst)
{
    Pulls pulls;
    pulls.Add(0, 1500);
    const kestrum::Forces forces = pulls.Columns();
    const kestrum::Pool pool = PoolOf({"HEA", "HEB", "IPE"});
    const auto painted = kestrum::Selection::check(Tie(), {}, 1, &forces, pool,
                                                   {.by = kestrum::Objective::surface, .top = 100});
    ASSERT_TRUE(painted) << painted.error().text;
    const auto found = painted->found(0);
    ASSERT_GT(found.size(), 30U);
    EXPECT_EQ(found[0].section, "HEB 180");
    EXPECT_TRUE(std::is_sorted(found.begin(), found.end(),
                               [](const auto& a, const auto& b) { return a.surface < b.surface; }));
    EXPECT_LT(painted->lighter(0)->surface, found[0].surface);
}

// A flat bar of 12 mm, S235, carries 500 kN from 500/(12 0.235) = 177.3 mm on.
TEST(Selection, PlatesAreGivenByRangesAndTheMembersOwnSizes)
{
    Pulls pulls;
    pulls.Add(0, 500);
    const kestrum::Forces forces = pulls.Columns();
    Member bar = Tie();
    ASSERT_FALSE(bar.set({{"family", "28"}, {"p28.isttw", "12"}, {"p28.isth", "100"}}));
    kestrum::Pool pool = PoolOf({"28"});
    ASSERT_FALSE(pool.range("p28.isth=160:200:10"));
    ASSERT_FALSE(pool.range("p28.isttw"));  // that of the member
    const auto selection = kestrum::Selection::check(bar, {}, 1, &forces, pool);
    ASSERT_TRUE(selection) << selection.error().text;
    ASSERT_EQ(selection->found(0).size(), 1U) << selection->message(0);
    EXPECT_EQ(selection->found(0)[0].h, 180);
    EXPECT_NEAR(selection->worst(0, 0)->ratio, 500 / (12 * 180 * 0.235), 1e-4);
}

// A member that is refused has its own reason; the others of its group have the first of them.
TEST(Selection, OneRefusedMemberKeepsItsGroupWithoutASection)
{
    const std::vector<double> l = {6, -1, -2, 6};
    const auto selection = kestrum::Selection::check(
        Beam(), {{"l", l}}, 4, nullptr, PoolOf({"IPE"}), {.basis = Basis::program}, {5, 5, 5, 6});
    ASSERT_TRUE(selection) << selection.error().text;
    const std::string own = selection->message(1);
    EXPECT_EQ(own.substr(0, 3), "l: ");
    EXPECT_EQ(selection->message(0), "member 1 of the group: " + own);
    EXPECT_EQ(selection->message(2).substr(0, 3), "l: ");
    EXPECT_TRUE(selection->found(0).empty());
    EXPECT_EQ(selection->faults().size(), 2U);
    ASSERT_EQ(selection->found(3).size(), 1U);
    EXPECT_TRUE(selection->worst(3, 0, Basis::program));
    EXPECT_FALSE(selection->worst(3, 0, Basis::standard));  // not asked for
    EXPECT_FALSE(selection->worst(3, 0, static_cast<Basis>(0)));
    EXPECT_FALSE(selection->lighter(0));
}

TEST(Selection, WhatIsWrongIsAnError)
{
    using kestrum::Selection;
    kestrum::Pool pool(Builtin());
    EXPECT_EQ(pool.add("IPX")->code, KESTRUM_REFUSED);
    kestrum::Pool plates = PoolOf({"21"});
    ASSERT_FALSE(plates.range("p21.isth=9:3:x"));  // read when all are there
    EXPECT_EQ(Selection::check(Beam(), plates).error().code, KESTRUM_REFUSED);
    EXPECT_EQ(pool.prices("no table")->code, KESTRUM_REFUSED);
    EXPECT_EQ(Selection::check(Beam(), pool).error().field, "pool");  // empty
    ASSERT_FALSE(pool.add("IPE"));
    const auto code = [&](const kestrum::Wishes& wishes) {
        return Selection::check(Beam(), pool, wishes).error().code;
    };
    EXPECT_EQ(code({.by = static_cast<kestrum::Objective>(9)}), KESTRUM_REFUSED);
    EXPECT_EQ(code({.by = kestrum::Objective::price}), KESTRUM_REFUSED);  // without prices
    EXPECT_EQ(code({.basis = static_cast<Basis>(4)}), KESTRUM_REFUSED);
    EXPECT_EQ(code({.max_h = -1}), KESTRUM_REFUSED);
    EXPECT_EQ(code({.max_ir = kNone}), KESTRUM_REFUSED);
    EXPECT_EQ(code({.steels = {"S3555"}}), KESTRUM_UNKNOWN_NAME);
    EXPECT_EQ(Selection::check(Beam(), {}, 2, nullptr, pool, {}, {1}).error().field, "group");
    const std::vector<double> l = {6, -1};
    const auto half = Selection::check(Beam(), {{"l", l}}, 2, nullptr, pool);
    ASSERT_TRUE(half);
    EXPECT_EQ(half->found(0).size(), 1U);
    EXPECT_TRUE(half->found(1).empty());
    EXPECT_EQ(half->message(1).substr(0, 3), "l: ");
    ASSERT_EQ(half->faults().size(), 1U);
    EXPECT_EQ(half->faults()[0].member, 1U);
    EXPECT_EQ(half->faults()[0].column, 0U);
    EXPECT_FALSE(half->worst(0, 1));
    EXPECT_FALSE(half->worst(2, 0));
    EXPECT_FALSE(half->worst(0, 0, Basis::both));
    kestrum_selection* out = nullptr;
    const kestrum_wishes wishes{KESTRUM_BY_MASS, KESTRUM_BASIS_BOTH, 0, 0, 0, 1, nullptr, 1};
    kestrum_error* error = nullptr;
    EXPECT_EQ(kestrum_select(Beam().get(), nullptr, 0, 1, nullptr, nullptr, pool.get(), &wishes, 1,
                             &out, &error),
              KESTRUM_NULL);
    EXPECT_STREQ(kestrum_error_field(error), "steels");
    kestrum_error_free(error);
    EXPECT_EQ(kestrum_select(Beam().get(), nullptr, 0, 1, nullptr, nullptr, nullptr, &wishes, 1,
                             &out, nullptr),
              KESTRUM_NULL);
    EXPECT_EQ(kestrum_select(Beam().get(), nullptr, 0, 1, nullptr, nullptr, pool.get(), nullptr, 1,
                             &out, nullptr),
              KESTRUM_NULL);
    EXPECT_EQ(kestrum_pool_add(nullptr, "IPE", nullptr), KESTRUM_NULL);
    EXPECT_EQ(kestrum_selection_members(nullptr) + kestrum_selection_found(nullptr, 0) +
                  kestrum_selection_faults(nullptr),
              0U);
    EXPECT_STREQ(kestrum_selection_message(nullptr, 0), "");
    kestrum_selection_free(nullptr);
    kestrum_pool_free(nullptr);
}

}  // namespace
