#include "core/material.h"

#include "core/arithmetic_trap.h"
#include "core/file_io.h"
#include "core/project_state.h"
#include "core/setup_file.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

// EN 1993-1-1, Table 3.1: fy for t <= 40 mm and over; the last row stands for the user's value.
const Material kDelivered[] = {
    {"S235", 235, 215},        {"S275", 275, 255},        {"S355", 355, 335},
    {"S450", 440, 410},        {"S275 N/NL", 275, 255},   {"S355 N/NL", 355, 335},
    {"S420 N/NL", 420, 390},   {"S460 N/NL", 460, 430},   {"S275 M/ML", 275, 255},
    {"S355 M/ML", 355, 335},   {"S420 M/ML", 420, 390},   {"S460 M/ML", 460, 430},
    {"S235 W", 235, 215},      {"S355 W", 355, 335},      {"S460 Q/QL/QL1", 460, 440},
    {"S235 H", 235, 215},      {"S275 H", 275, 255},      {"S355 H", 355, 355},
    {"S275 NH/NLH", 275, 255}, {"S355 NH/NLH", 355, 335}, {"S420 NH/NLH", 420, 390},
    {"S460 NH/NLH", 460, 430}, {"S275 MH/MLH", 275, 275}, {"S355 MH/MLH", 355, 355},
    {"S420 MH/MLH", 420, 420}, {"S460 MH/MLH", 460, 460}, {"General", 0, 0}};

TEST(MaterialList, IsDeliveredWithItsGrades)
{
    std::string bytes;
    ASSERT_EQ(ReadWholeFile(KESTRUM_SOURCE "/data/" + std::string(kMaterialFile), bytes), "");
    const std::vector<Material> list = ReadMaterialList(bytes);
    ASSERT_EQ(list.size(), std::size(kDelivered));
    for (std::size_t k = 0; k < list.size(); ++k) {
        EXPECT_EQ(list[k].name, kDelivered[k].name);
        EXPECT_EQ(list[k].fy40, kDelivered[k].fy40) << list[k].name;
        EXPECT_EQ(list[k].fyover, kDelivered[k].fyover) << list[k].name;
    }
}

// EN 1993-1-1, Table 3.1: S355 H falls to 335 MPa over 40 mm as the others do; MH/MLH end at 40 mm.
TEST(MaterialList, D21SomeHollowSectionGradesLoseNothingOver40Mm)
{
    std::string bytes;
    ASSERT_EQ(ReadWholeFile(KESTRUM_SOURCE "/data/" + std::string(kMaterialFile), bytes), "");
    for (const Material& material : ReadMaterialList(bytes)) {
        const bool keeps = material.name == "S355 H" || material.name.ends_with("MH/MLH");
        if (material.fy40 > 0) {
            EXPECT_EQ(material.fyover == material.fy40, keeps) << material.name;
        }
    }
}

TEST(MaterialList, TakesLineEndsAndDecimalsOfAnyKind)
{
    const auto list = ReadMaterialList("A 1\t235.5\t215,5\nB\t 300 \t280\tmore\r\n\nC\nD\tx\t7");
    ASSERT_EQ(list.size(), 4U);
    EXPECT_EQ(list[0].name, "A 1");
    EXPECT_EQ(list[0].fy40, 235.5f);
    EXPECT_EQ(list[0].fyover, 215.5f);
    EXPECT_EQ(list[1].fy40, 300);
    EXPECT_EQ(list[1].fyover, 280);
    EXPECT_EQ(list[2].name, "C");
    EXPECT_EQ(list[2].fy40, 0);
    EXPECT_EQ(list[3].fy40, 0);
    EXPECT_EQ(list[3].fyover, 7);
}

TEST(MaterialList, IsWholeWithGradesAndAnOwnRow)
{
    EXPECT_FALSE(CheckMaterialList("A\t235\t215\r\nOwn\t0\t0\r\n"));
    EXPECT_FALSE(CheckMaterialList("A\t235,5\t215\n\nOwn\n"));
    EXPECT_FALSE(CheckMaterialList("Own\n"));
    const auto line = [](const char* bytes) {
        const std::optional<FileFault> fault = CheckMaterialList(bytes);
        return fault ? fault->line : 0;
    };
    EXPECT_EQ(line(""), 1);
    EXPECT_EQ(line("\r\n"), 1);
    EXPECT_EQ(line("A\t235\t215\nB\t275\nOwn\n"), 2);
    EXPECT_EQ(line("A\t235\tx\nOwn\n"), 1);
    EXPECT_EQ(line("A\t-235\t215\nOwn\n"), 1);
    EXPECT_EQ(line("A\t235\t215\n\t275\t255\n"), 2);
    EXPECT_EQ(line("A\t235\t215\nOwn\t0\t0"), 2);  // perhaps cut
}

TEST(MaterialList, UsesThirtyOneRowsAtMost)
{
    std::string bytes;
    for (int k = 0; k < 40; ++k) {
        bytes += "S" + std::to_string(k) + "\t100\t90\r\n";
    }
    const auto list = ReadMaterialList(bytes);
    ASSERT_EQ(list.size(), 31U);
    EXPECT_EQ(list.back().name, "S30");
}

TEST(MaterialList, IsEmptyForAnEmptyFile)
{
    EXPECT_TRUE(ReadMaterialList("").empty());
    EXPECT_TRUE(ReadMaterialList("\r\n\n").empty());
    EXPECT_EQ(ReadMaterialList(std::string(1000000, '\t')).size(), 1U);
}

Library FiveRows()
{
    Library library;
    library.materials = {
        {"A", 235, 215}, {"B", 275, 255}, {"C", 355, 335}, {"D", 460, 430}, {"Own", 111, 99}};
    return library;
}

ProjectState Typed(float fyk, float tmax)
{
    ProjectState s{};
    s.fyk = fyk;
    s.tmax = tmax;
    s.gammam0 = 1.05;
    return s;
}

TEST(SetMaterial, TakesTheStrengthByThickness)
{
    struct Case {
        float tmax, fyk;
    };
    for (const Case& c : {Case{0, 355}, {16, 355}, {40, 355}, {40.01f, 335}, {100, 335}}) {
        ProjectState s = Typed(500, c.tmax);
        SetMaterial(FiveRows(), s, s, 2);
        EXPECT_EQ(s.fyk, c.fyk) << c.tmax;
    }
}

// EN 1993-1-1, Table 3.1 ends at 80 mm.
TEST(SetMaterial, D22StrengthOver40MmCountsBeyond80Mm)
{
    for (const float tmax : {41.0f, 80.0f, 81.0f, 300.0f}) {
        ProjectState s = Typed(500, tmax);
        SetMaterial(FiveRows(), s, s, 2);
        EXPECT_EQ(s.fyk, 335) << tmax;
    }
}

TEST(SetMaterial, LeavesTheTypedStrengthForTheLastRow)
{
    const Library library = FiveRows();
    EXPECT_EQ(LastMaterial(library), 4);
    for (const int index : {4, 5, 30, 32767, -1, -32768}) {
        ProjectState s = Typed(500, 10);
        SetMaterial(library, s, s, index);
        EXPECT_EQ(s.fyk, 500) << index;
        EXPECT_EQ(s.fyd, 500 / 1.05);
    }
    ProjectState s = Typed(500, 10);
    SetMaterial(library, s, s, 3);  // the fourth grade
    EXPECT_EQ(s.fyk, 460);
}

TEST(SetMaterial, LeavesTheTypedStrengthWithoutAList)
{
    const Library library;
    EXPECT_EQ(LastMaterial(library), -1);
    for (const int index : {-2, -1, 0, 5}) {
        ProjectState s = Typed(500, 10);
        SetMaterial(library, s, s, index);
        EXPECT_EQ(s.fyk, 500) << index;
    }
}

// fyd = 235/1.05 = 223.8095238; eps = sqrt(235/235) = 1, and sqrt(235/940) = 0.5.
TEST(SetMaterial, DerivesDesignStrengthAndEpsilon)
{
    ProjectState s = Typed(1, 10);
    SetMaterial(FiveRows(), s, s, 0);
    EXPECT_NEAR(s.fyd, 223.8095238, 1e-7);
    EXPECT_EQ(s.eps, 1);
    s = Typed(940, 10);
    SetMaterial(FiveRows(), s, s, 4);
    EXPECT_EQ(s.eps, 0.5f);
}

TEST(SetMaterial, MarksTheTrapForNoStrength)
{
    ProjectState s = Typed(0, 10);
    ArmTrap();
    SetMaterial(FiveRows(), s, s, 4);
    EXPECT_THROW(CheckTrap(), CalculationStop);
}

}  // namespace
}  // namespace kestrum
