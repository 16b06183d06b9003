// The column of the costs in docs/deviations.md: in each project of examples/deviations the
// deviation acts, and both ratios are those of the document.

#include "core/project_file.h"
#include "engine/calculate.h"
#include "standard/costs.h"
#include "standard/standard_member.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>

namespace kestrum {
namespace {

namespace fs = std::filesystem;
using standard::CheckId;

const fs::path kExamples = KESTRUM_SOURCE "/examples";
const fs::path kFolder = kExamples / "deviations";
constexpr const char* kRemedy =
    "; `tools/check-deviations --costs build/release/bin/kestrum-costs --write` writes the column";

std::string ReadAll(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

constexpr double kTwoDigits = 0.005 + 1e-6;

struct Told {
    double program, standard;  // ratios with two digits
};

// By number, "229": what the cells "0.17, standard 0.94 ([project](..d229.kst))" say.
std::map<std::string, Told> Column()
{
    const std::string text = ReadAll(KESTRUM_SOURCE "/docs/deviations.md");
    const std::regex cell(R"(\| D(\d+) \|[^\n]*\| ([\d.]+), standard ([\d.]+) \(\[project\]\()"
                          R"(\.\./examples/deviations/d(\d+)\.kst\)\) \|)");
    std::map<std::string, Told> told;
    for (std::sregex_iterator row(text.begin(), text.end(), cell), end; row != end; ++row) {
        EXPECT_EQ((*row)[1], (*row)[4]);
        told[(*row)[1]] = {std::stod((*row)[2]), std::stod((*row)[3])};
    }
    return told;
}

TEST(DeviationCosts, EveryProjectIsInTheDocument)
{
    const auto column = Column();
    EXPECT_GT(column.size(), 60U);
    std::size_t files = 0;
    for (const auto& entry : fs::directory_iterator(kFolder)) {
        ++files;
        const std::string name = entry.path().stem().string();
        EXPECT_TRUE(column.contains(name.substr(1))) << name;
    }
    EXPECT_EQ(files, column.size());
}

// The projects of examples/deviations with what acts in them.
template <class Look> void EachProject(Look look)
{
    for (const auto& entry : fs::directory_iterator(kFolder)) {
        SCOPED_TRACE(entry.path().stem().string());
        Member s = Unloaded(1, 235);
        ASSERT_FALSE(ReadProject(s, ReadAll(entry.path())));
        ProjectState program = s;
        ASSERT_TRUE(Calculate(Delivered(), program));
        auto result = standard::CalculateStandard(Delivered(), s);
        standard::CalculateCosts(Delivered(), s, &program, result);
        look(result);
    }
}

// The largest of several ratios cannot move further than the one of them that moves most; and that
// is the one that is named. Rows that stand for each other count by the larger of them.
TEST(DeviationCosts, NoCheckChangesMoreThanTheOneNamed)
{
    std::size_t elsewhere = 0;
    EachProject([&](const standard::StandardResult& result) {
        for (const standard::DeviationCost& at : result.deviations) {
            SCOPED_TRACE(NameOf(at.deviation));
            if (std::isnan(at.change) || at.change == 0) {
                EXPECT_TRUE(std::isnan(at.cost) || at.cost == 0);
                continue;
            }
            EXPECT_GE(std::abs(at.change), std::abs(at.cost) - 1e-12)
                << "the largest ratio changes by more than any check";
            for (std::size_t i = 0; i < standard::kSectionChecks; ++i) {
                const auto& check = result.checks.best[i];
                EXPECT_LE(std::abs((check.present ? check.ir : 0) - at.ratios[i]),
                          std::abs(at.change) + 1e-12)
                    << standard::NameOf(static_cast<CheckId>(i)) << " changes more";
            }
            const auto most = static_cast<std::size_t>(at.most);
            if (most < standard::kSectionChecks) {
                EXPECT_EQ(at.change, result.checks.best[most].ir - at.ratios[most]);
            }
            elsewhere += at.most != result.governing ? 1 : 0;
        }
    });
    EXPECT_GT(elsewhere, 50U);
}

// Bar 200x20, S235: Npl 940 kN, Mpl 47 kNm. Half of Npl in tension leaves 47 (1 - 0.25) = 35.25 of
// it, 20/35.25 = 0.5674; the program leaves 47 (D177), 20/47 = 0.4255: 0.1418 less. The axial force
// alone, 0.5, then governs: 0.0674 less.
TEST(DeviationCosts, TellTheCheckThatChangesMost)
{
    Member s = Unloaded(1, 235).Section(FormP28{200, 20}).EndForces(-470, 20, 0);
    auto result = Rated(s);
    ProjectState program = s;
    ASSERT_TRUE(Calculate(Delivered(), program));
    standard::CalculateCosts(Delivered(), s, &program, result);
    const auto d177 = std::find_if(result.deviations.begin(), result.deviations.end(),
                                   [](const auto& at) { return at.deviation == Dev::d177; });
    ASSERT_NE(d177, result.deviations.end());
    EXPECT_NEAR(d177->cost, 20 / 35.25 - 0.5, 1e-6);
    EXPECT_EQ(d177->most, CheckId::section_nm) << "N with My is the check that the rule is about";
    EXPECT_NEAR(d177->change, 20 / 35.25 - 20 / 47.0, 1e-6)
        << "the cost is that of the largest ratio, not of the check";
}

TEST(DeviationCosts, EachActsAndCostsWhatTheDocumentSays)
{
    for (const auto& row : Column()) {
        const std::string& number = row.first;
        const Told& told = row.second;
        SCOPED_TRACE("D" + number + kRemedy);
        Member s = Unloaded(1, 235);
        ASSERT_FALSE(ReadProject(s, ReadAll(kFolder / ("d" + number + ".kst"))));
        ProjectState program = s;
        ASSERT_TRUE(Calculate(Delivered(), program));
        auto result = standard::CalculateStandard(Delivered(), s);
        ASSERT_TRUE(result.rated);
        standard::CalculateCosts(Delivered(), s, &program, result);
        const auto cost = std::find_if(
            result.deviations.begin(), result.deviations.end(),
            [&](const standard::DeviationCost& c) { return NameOf(c.deviation) == "D" + number; });
        ASSERT_NE(cost, result.deviations.end()) << "does not act";
        EXPECT_NEAR(cost->without, told.program, kTwoDigits);
        EXPECT_NEAR(result.ir, told.standard, kTwoDigits);
    }
}

std::array<double, standard::kCheckIds> Ratios(const standard::Checks& checks)
{
    std::array<double, standard::kCheckIds> ratios{};
    std::transform(checks.best.begin(), checks.best.end(), ratios.begin(),
                   [](const standard::Check& check) { return check.present ? check.ir : 0; });
    return ratios;
}

// Checks that a deviation does not reach are copied from the standard's result: they are those of a
// pass that calculates all of them anew.
TEST(DeviationCosts, CopiedChecksAreThoseOfAWholePass)
{
    std::size_t compared = 0;
    for (const char* folder : {"", "deviations"}) {
        for (const auto& entry : fs::directory_iterator(kExamples / folder)) {
            if (entry.path().extension() != ".kst") {
                continue;
            }
            SCOPED_TRACE(entry.path().filename().string());
            Member s = Unloaded(1, 235);
            ASSERT_FALSE(ReadProject(s, ReadAll(entry.path())));
            ProjectState after = s;
            const ProjectState* const program = Calculate(Delivered(), after) ? &after : nullptr;
            auto result = standard::CalculateStandard(Delivered(), s);
            standard::CalculateCosts(Delivered(), s, program, result);
            for (const standard::DeviationCost& cost : result.deviations) {
                SCOPED_TRACE(NameOf(cost.deviation));
                const auto whole = standard::CalculateStandard(
                    Delivered(), s, Basis::StandardBut(cost.deviation), program);
                const bool hidden = cost.ratios == Ratios(result.checks);  // by another deviation
                if (!result.rated || !whole.rated || hidden) {
                    continue;
                }
                EXPECT_EQ(cost.without, whole.ir);
                EXPECT_EQ(cost.ratios, Ratios(whole.checks));
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 100U);
}

}  // namespace
}  // namespace kestrum
