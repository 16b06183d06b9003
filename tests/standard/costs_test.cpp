// Costs of deviations, from results put together by hand: which of them act, what they cost, and in
// which order they are told.

#include "standard/costs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <initializer_list>
#include <map>
#include <vector>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::DeviationCost;
using standard::StandardResult;
using Ratios = std::map<CheckId, double>;

Deviations SetOf(std::initializer_list<Dev> deviations)
{
    Deviations set;
    for (const Dev deviation : deviations) {
        set.set(IndexOf(deviation));
    }
    return set;
}

bool Back(const Basis& basis, Dev deviation)
{
    return basis.Switches(SetOf({deviation}));
}

// Not rated without any.
StandardResult ResultOf(const Ratios& ratios, const Deviations& met)
{
    StandardResult result;
    result.met = met;
    for (const auto& [id, ir] : ratios) {
        result.checks.Keep(id, ir, "", standard::kWholeMember, {});
        if (!result.rated || ir > result.ir) {
            result.rated = true;
            result.ir = ir;
            result.governing = id;
        }
    }
    return result;
}

// What `ratios` tells of a basis, where a pass meets `met`.
std::vector<DeviationCost> CostsOf(std::initializer_list<Dev> met,
                                   const std::function<Ratios(const Basis&)>& ratios)
{
    const Deviations all = SetOf(met);
    StandardResult result = ResultOf(ratios(Basis::Standard()), all);
    CalculateCosts(
        [&](const Basis& basis, const StandardResult&) { return ResultOf(ratios(basis), all); },
        result);
    return result.deviations;
}

// One deviation whose rule turns one set of ratios into the other.
std::vector<DeviationCost> CostsOf(const Ratios& standard, const Ratios& program)
{
    return CostsOf({Dev::d20},
                   [&](const Basis& basis) { return Back(basis, Dev::d20) ? program : standard; });
}

bool Acts(const Ratios& standard, const Ratios& program)
{
    return !CostsOf(standard, program).empty();
}

TEST(Costs, WhatChangesNothingDoesNotAct)
{
    EXPECT_FALSE(Acts({{CheckId::section_n, 0.5}}, {{CheckId::section_n, 0.5}}));
    EXPECT_TRUE(Acts({{CheckId::section_n, 0.5}}, {{CheckId::section_n, 0.4}}));
    EXPECT_TRUE(Acts({{CheckId::section_n, 0.5}}, {{CheckId::section_n, 0.6}}));
    EXPECT_TRUE(
        Acts({{CheckId::section_n, 0.5}, {CheckId::section_my, 0.1}}, {{CheckId::section_n, 0.5}}));
}

// One in a million and 1e-9 beside it: 1 to 1 - 1.0e-6 is a rounding, 1 to 1 - 1.1e-6 is none.
TEST(Costs, RoundingsDoNotAct)
{
    const auto acts = [](double one, double other) {
        const bool down = Acts({{CheckId::section_n, one}}, {{CheckId::section_n, other}});
        EXPECT_EQ(Acts({{CheckId::section_n, other}}, {{CheckId::section_n, one}}), down);
        return down;
    };
    EXPECT_FALSE(acts(1, 1 - 1e-6));
    EXPECT_TRUE(acts(1, 1 - 1.1e-6));
    EXPECT_FALSE(acts(1000, 1000 - 0.9e-3));
    EXPECT_TRUE(acts(1000, 1000 - 1.1e-3));
    EXPECT_FALSE(acts(0.9e-9, 0));
    EXPECT_TRUE(acts(1.1e-9, 0));
}

// From 0.8 by the program to 1: a quarter. The largest of all checks, and none where the standard
// asks for less.
TEST(Costs, RiseFromTheProgramToTheStandard)
{
    const auto costs = CostsOf({{CheckId::section_n, 1.0}, {CheckId::section_my, 0.5}},
                               {{CheckId::section_n, 0.8}, {CheckId::section_my, 0.45}});
    ASSERT_EQ(costs.size(), 1U);
    EXPECT_NEAR(costs[0].rise, 0.25, 1e-12);
    EXPECT_NEAR(costs[0].cost, 0.2, 1e-12);
    EXPECT_NEAR(costs[0].without, 0.8, 1e-12);
    const auto safe = CostsOf({{CheckId::section_n, 0.8}}, {{CheckId::section_n, 1.0}});
    ASSERT_EQ(safe.size(), 1U);
    EXPECT_EQ(safe[0].rise, 0);
    EXPECT_FALSE(safe[0].unsafe());
}

TEST(Costs, FirstOfEqualChangesIsNamed)
{
    const auto costs = CostsOf({{CheckId::section_n, 0.5}, {CheckId::section_my, 0.75}},
                               {{CheckId::section_n, 0.25}, {CheckId::section_my, 0.5}});
    ASSERT_EQ(costs.size(), 1U);
    EXPECT_EQ(costs[0].most, CheckId::section_n);
    EXPECT_EQ(costs[0].change, 0.25);
}

// A row of 6.3.1 less is no change while another one has the largest ratio; of two equal ones the
// first is named.
TEST(Costs, RowsOfColumnsStandForEachOther)
{
    const Ratios both = {{CheckId::flexural_z, 0.6}, {CheckId::torsional, 0.5}};
    EXPECT_FALSE(Acts({{CheckId::flexural_z, 0.6}}, both));
    EXPECT_FALSE(Acts(both, {{CheckId::flexural_z, 0.6}}));
    const auto costs = CostsOf({{CheckId::flexural_z, 0.6}, {CheckId::torsional, 0.7}},
                               {{CheckId::flexural_z, 0.6}});
    ASSERT_EQ(costs.size(), 1U);
    EXPECT_EQ(costs[0].most, CheckId::torsional);
    EXPECT_NEAR(costs[0].change, 0.1, 1e-12);
}

// So do the sum outside 6.3.3 and its equations; those of both bases are compared one by one.
TEST(Costs, SumOutsideStandsForTheEquations)
{
    const Ratios outside = {{CheckId::interaction_outside, 0.7}};
    const Ratios equations = {{CheckId::eq661, 0.7}, {CheckId::eq662, 0.6}};
    EXPECT_FALSE(Acts(outside, equations));
    EXPECT_FALSE(Acts(equations, outside));
    EXPECT_TRUE(Acts(equations, {{CheckId::eq661, 0.7}, {CheckId::eq662, 0.5}}));
    const auto equal = CostsOf({{CheckId::eq661, 0.7}, {CheckId::eq662, 0.7}},
                               {{CheckId::interaction_outside, 0.6}});
    ASSERT_EQ(equal.size(), 1U);
    EXPECT_EQ(equal[0].most, CheckId::eq661) << "the first of equal ones";
    const auto costs = CostsOf({{CheckId::interaction_outside, 0.9}}, equations);
    ASSERT_EQ(costs.size(), 1U);
    EXPECT_EQ(costs[0].most, CheckId::interaction_outside);
    EXPECT_NEAR(costs[0].change, 0.2, 1e-12);
}

// Those that leave no result first, then by cost; of one cost by number.
TEST(Costs, LargestCostsComeFirst)
{
    const auto costs = CostsOf(
        {Dev::d23, Dev::d24, Dev::d25, Dev::d26, Dev::d29, Dev::d30}, [](const Basis& basis) {
            if (Back(basis, Dev::d24) || Back(basis, Dev::d29)) {
                return Ratios{};
            }
            const double less = Back(basis, Dev::d26) ? 0.5 : 0.25;
            const bool other = basis.Switches(SetOf({Dev::d23, Dev::d25, Dev::d26, Dev::d30}));
            return Ratios{{CheckId::section_n, other ? 1 - less : 1}};
        });
    std::vector<Dev> order;
    for (const DeviationCost& cost : costs) {
        order.push_back(cost.deviation);
        EXPECT_EQ(std::isnan(cost.cost), order.size() <= 2);
    }
    EXPECT_EQ(order, (std::vector{Dev::d24, Dev::d29, Dev::d26, Dev::d23, Dev::d25, Dev::d30}));
}

// D27 and D35 hide each other: alone neither changes a ratio. Both are told, without a cost.
TEST(Costs, RulesThatHideEachOther)
{
    const auto told = [](std::initializer_list<Dev> met, double first, double second, double both) {
        const auto costs = CostsOf(met, [=](const Basis& basis) {
            const bool a = Back(basis, Dev::d27), b = Back(basis, Dev::d35);
            return Ratios{{CheckId::section_n, a && b ? both : a ? first : b ? second : 1.0}};
        });
        std::vector<Dev> order;
        for (const DeviationCost& cost : costs) {
            order.push_back(cost.deviation);
        }
        return order;
    };
    const std::initializer_list<Dev> met = {Dev::d20, Dev::d27, Dev::d35};
    EXPECT_EQ(told(met, 1, 1, 0.8), (std::vector{Dev::d27, Dev::d35}));
    EXPECT_EQ(told(met, 0.9, 1, 0.8), (std::vector{Dev::d27, Dev::d35}));
    EXPECT_EQ(told(met, 1, 0.9, 0.8), (std::vector{Dev::d35, Dev::d27}));
    EXPECT_EQ(told(met, 0.9, 1, 0.9), std::vector{Dev::d27});
    EXPECT_EQ(told(met, 1, 1, 1), std::vector<Dev>{});
    EXPECT_EQ(told({Dev::d27}, 1, 1, 0.8), std::vector<Dev>{});
}

// Neither what the pass does not meet nor a mere rounding of pi (D202) is tried.
TEST(Costs, OnlyWhatIsMetIsTried)
{
    const auto moves = [](const Basis& basis) {
        const bool any = basis.Switches(~Deviations{});
        return Ratios{{CheckId::section_n, any ? 0.5 : 1.0}};
    };
    const auto costs = CostsOf({Dev::d23, Dev::d186, Dev::d202}, moves);
    ASSERT_EQ(costs.size(), 1U);
    EXPECT_EQ(costs[0].deviation, Dev::d23);
}

// D175 ends the calculation in the standard: the others are compared without it, once each.
TEST(Costs, RuleThatLeavesNoResult)
{
    int alone = 0;
    const auto costs = CostsOf({Dev::d23, Dev::d175}, [&](const Basis& basis) {
        if (!Back(basis, Dev::d175)) {
            return Ratios{};
        }
        alone += Back(basis, Dev::d23) ? 0 : 1;
        return Ratios{{CheckId::section_n, Back(basis, Dev::d23) ? 0.5 : 0.75}};
    });
    ASSERT_EQ(costs.size(), 2U);
    EXPECT_EQ(alone, 1);
    EXPECT_EQ(costs[0].deviation, Dev::d175);
    EXPECT_TRUE(std::isnan(costs[0].cost));
    EXPECT_TRUE(std::isinf(costs[0].rise));
    EXPECT_EQ(costs[0].without, 0.75);
    EXPECT_EQ(costs[1].deviation, Dev::d23);
    EXPECT_EQ(costs[1].cost, 0.25);
}

// A check of the result, by the ratio that the program's rule would have.
TEST(Costs, ChecksInWhichARuleActs)
{
    const StandardResult result =
        ResultOf({{CheckId::section_n, 0.5}, {CheckId::section_my, 0.5}}, {});
    DeviationCost at{};
    at.ratios[static_cast<std::size_t>(CheckId::section_n)] = 0.5;
    at.ratios[static_cast<std::size_t>(CheckId::section_my)] = 0.4;
    EXPECT_FALSE(ActsIn(result, at, CheckId::section_n));
    EXPECT_TRUE(ActsIn(result, at, CheckId::section_my));
    at.ratios[static_cast<std::size_t>(CheckId::section_my)] = 0.6;
    EXPECT_TRUE(ActsIn(result, at, CheckId::section_my));
}

}  // namespace
}  // namespace kestrum
