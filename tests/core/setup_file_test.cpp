#include "core/setup_file.h"

#include "core/file_io.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kestrum {
namespace {

struct Line {
    const char* name;
    const char* text;
};

// The setup as delivered, value by value.
const Line kDelivered[] = {{"version", "131"},
                           {"annexcode", "\"EU\""},
                           {"gammam0", "1"},
                           {"gammam1", "1"},
                           {"neta", "1.2"},
                           {"method", "1"},
                           {"lamdalt0", ".4"},
                           {"beta", ".75"},
                           {"lamdalt0w", ".4"},
                           {"betaw", ".75"},
                           {"fykindex", "5"},
                           {"fyk", "355"},
                           {"e", "210000"},
                           {"uflimit", "0"},
                           {"checkelastic", "#FALSE#"},
                           {"checkconsercontrol", "#FALSE#"},
                           {"checkflangebuck", "#FALSE#"},
                           {"checkwebbuck", "#FALSE#"},
                           {"loadcomb", "4"},
                           {"deflimity", "300"},
                           {"deflimitz", "300"},
                           {"safetyclass", "3"},
                           {"psi1index", "6"},
                           {"psi2index", "6"},
                           {"lfulsg", "1"},
                           {"lfulsq1", "1.3"},
                           {"lfulsq2", ".7"},
                           {"lfslsg", "1"},
                           {"lfslsq1", "1"},
                           {"lfslsq2", "1"}};

std::string Delivered(std::size_t count = std::size(kDelivered), std::size_t wrong = 99)
{
    std::string bytes;
    for (std::size_t k = 0; k < count; ++k) {
        bytes += std::string(k == wrong ? "abc" : kDelivered[k].text) + "\r\n";
    }
    return bytes;
}

TEST(SetupFile, IsDeliveredWithTheStartingValues)
{
    std::string bytes;
    ASSERT_EQ(ReadWholeFile(KESTRUM_SOURCE "/data/" + std::string(kSetupFile), bytes), "");
    EXPECT_EQ(bytes, Delivered());
}

TEST(SetupFile, ReadsEachValueIntoItsField)
{
    std::string bytes = "131\n\"DK\"\n";
    for (int value = 3; value <= 30; ++value) {
        bytes += value >= 15 && value <= 18 ? (value == 16 ? "#FALSE#" : "#TRUE#")
                                            : std::to_string(value);
        bytes += "\n";
    }
    ProjectState s{};
    s.checkconsercontrol = kTrue;
    ASSERT_FALSE(ReadSetup(s, bytes));
    EXPECT_EQ(s.annexcode, "DK");
    EXPECT_EQ(s.gammam0, 3);
    EXPECT_EQ(s.gammam1, 4);
    EXPECT_EQ(s.neta, 5);
    EXPECT_EQ(s.method, 6);
    EXPECT_EQ(s.lamdalt0, 7);
    EXPECT_EQ(s.beta, 8);
    EXPECT_EQ(s.lamdalt0w, 9);
    EXPECT_EQ(s.betaw, 10);
    EXPECT_EQ(s.fykindex, 11);
    EXPECT_EQ(s.fyk, 12);
    EXPECT_EQ(s.e, 13);
    EXPECT_EQ(s.uflimit, 14);
    EXPECT_EQ(s.checkelastic, kTrue);
    EXPECT_EQ(s.checkconsercontrol, kFalse);
    EXPECT_EQ(s.checkflangebuck, kTrue);
    EXPECT_EQ(s.checkwebbuck, kTrue);
    EXPECT_EQ(s.loadcomb, 19);
    EXPECT_EQ(s.deflimity, 20);
    EXPECT_EQ(s.deflimitz, 21);
    EXPECT_EQ(s.safetyclass, 22);
    EXPECT_EQ(s.psi1index, 23);
    EXPECT_EQ(s.psi2index, 24);
    EXPECT_EQ(s.lfulsg, 25);
    EXPECT_EQ(s.lfulsq1, 26);
    EXPECT_EQ(s.lfulsq2, 27);
    EXPECT_EQ(s.lfslsg, 28);
    EXPECT_EQ(s.lfslsq1, 29);
    EXPECT_EQ(s.lfslsq2, 30);
    EXPECT_EQ(s.annexindex, 0);  // settled at start, not by reading
    EXPECT_EQ(s.psi1, 0);
}

TEST(SetupFile, WritesWhatItRead)
{
    ProjectState s{};
    ASSERT_FALSE(ReadSetup(s, Delivered()));
    EXPECT_EQ(WriteSetup(s), Delivered());
}

TEST(SetupFile, TakesAnyVersion)
{
    for (const char* version : {"1", "118", "200"}) {
        ProjectState s{};
        EXPECT_FALSE(ReadSetup(s, version + Delivered().substr(3)));
        EXPECT_EQ(WriteSetup(s), Delivered());
    }
}

TEST(SetupFile, LeavesEverythingAloneWhenThereIsNone)
{
    ProjectState s{};
    const std::optional<FileFault> fault = ReadSetup(s, "");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->what, "field version: expected a number, found the end of the file");
    EXPECT_EQ(s, ProjectState{});
}

// Of "1.35" a cut may leave "1.3".
TEST(SetupFile, WantsALineEndBehindTheLastValue)
{
    std::string bytes = Delivered();
    bytes.resize(bytes.size() - 2);
    ProjectState s{};
    const std::optional<FileFault> fault = ReadSetup(s, bytes);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->line, 30);
    EXPECT_EQ(fault->what, "expected a line end after the last value");
    EXPECT_FALSE(ReadSetup(s, bytes + "\n"));
    EXPECT_FALSE(ReadSetup(s, bytes + "\r"));
}

TEST(SetupFile, TheDeliveredOneIsInTheProgramToo)
{
    std::string bytes;
    ASSERT_EQ(ReadWholeFile(KESTRUM_SOURCE "/data/" + std::string(kSetupFile), bytes), "");
    EXPECT_EQ(DeliveredSetup(), bytes);
}

TEST(SetupFile, KeepsWhatStandsInFrontOfAFault)
{
    ProjectState whole{};
    ASSERT_FALSE(ReadSetup(whole, Delivered()));
    for (std::size_t cut = 0; cut < std::size(kDelivered); ++cut) {
        SCOPED_TRACE(kDelivered[cut].name);
        ProjectState half{}, wrong{};
        const std::optional<FileFault> end = ReadSetup(half, Delivered(cut));
        ASSERT_TRUE(end);
        EXPECT_EQ(end->line, static_cast<int>(cut) + 1);
        EXPECT_TRUE(end->what.starts_with("field " + std::string(kDelivered[cut].name) + ": "));
        if (std::string_view(kDelivered[cut].name) != "annexcode") {
            const std::optional<FileFault> fault = ReadSetup(wrong, Delivered(30, cut));
            ASSERT_TRUE(fault);
            EXPECT_EQ(fault->line, static_cast<int>(cut) + 1);
            EXPECT_TRUE(fault->what.ends_with("found \"abc\""));
            EXPECT_EQ(half, wrong);
        }
        EXPECT_EQ(half.gammam0, cut > 2 ? whole.gammam0 : 0);
        EXPECT_EQ(half.fyk, cut > 11 ? whole.fyk : 0);
        EXPECT_EQ(half.lfslsq2, 0);
    }
}

}  // namespace
}  // namespace kestrum
