// The plastic axis in steps is found without taking each of them; here they are taken.

#include "core/arithmetic_trap.h"
#include "sections/plate_summation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <random>
#include <vector>

namespace kestrum {
namespace {

// Step by step, as the search is defined; nothing where it stops the pass.
std::optional<float> StepByStep(const std::vector<Plate>& plates)
{
    const PlateSums sums = SumPlates(plates);
    float level = 2.0F;
    double below = 0;
    while (below < sums.a / 2) {
        const float next = F32(static_cast<double>(level) + 0.1);
        if (!(next > level) || next > sums.height + 1.0) {
            return std::nullopt;
        }
        level = next;
        below = 0;
        for (const Plate& p : plates) {
            below += p.width * std::clamp(level - p.z0, 0.0, std::max(0.0, p.height));
        }
    }
    return level;
}

std::optional<float> Found(const std::vector<Plate>& plates)
{
    try {
        return SteppedPlasticAxis(plates);
    } catch (const CalculationStop&) {
        return std::nullopt;
    }
}

TEST(SteppedAxis, IsThatOfSingleSteps)
{
    std::mt19937 random(5);
    const auto between = [&random](double low, double high) {
        return static_cast<double>(
            static_cast<float>(low + (high - low) * static_cast<double>(random() % 10001) / 1e4));
    };
    for (int i = 0; i < 600; ++i) {
        const double least = i % 5 == 0 ? -50 : 1;  // some plates are none
        const double most = i % 7 == 0 ? 9000 : 600;
        std::vector<Plate> plates;
        double z = i % 3 == 0 ? between(0, 30) : 0;
        for (int k = 0; k < 3; ++k) {
            plates.push_back({between(least, 300), between(least, most), z, 0});
            z += plates.back().height;
        }
        ASSERT_EQ(Found(plates), StepByStep(plates)) << i;
    }
}

// Behind a power of two a float is half as fine, and the steps have another size.
TEST(SteppedAxis, IsThatOfSingleStepsBehindAPowerOfTwo)
{
    for (const double power : {32.0, 64.0, 128.0, 256.0, 512.0, 1024.0, 4096.0}) {
        for (int i = -3; i < 30; ++i) {
            const std::vector<Plate> plates = {{10, 2 * power * (1 + 0.0004 * i), 0, 0}};
            EXPECT_EQ(Found(plates), StepByStep(plates)) << power << ' ' << i;
        }
    }
}

TEST(SteppedAxis, StopsSoonInASectionBeyondAllMeasure)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 1000; ++i) {
        EXPECT_FALSE(Found({{10, 1e30, 0, 0}, {1000, 20, 1e30, 0}}));
        EXPECT_FALSE(Found({{10, 3e6, 0, 0}, {3e6, 3e6, 3e6, 0}}));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace kestrum
