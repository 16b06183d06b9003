// Every row of every profile table through a whole pass with the loads of a new project.

#include "core/project_state.h"
#include "sections/family_table.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace kestrum {
namespace {

struct Choice {
    i16 family;
    Table table;
    i16 series;  // 0 where the family has one table
};

std::vector<Choice> Choices()
{
    std::vector<Choice> choices;
    for (const FamilyTraits& family : Families()) {
        i16 series = 0;
        for (const Table table : family.tables) {
            series = family.tables.size() > 1 ? static_cast<i16>(series + 1) : i16{0};
            choices.push_back({static_cast<i16>(family.id), table, series});
        }
    }
    return choices;
}

Member OfRow(const Choice& choice, int row)
{
    return Member().Family(choice.family, choice.series).Row(row);
}

void ForEveryRow(const std::function<void(const Choice&, int)>& test)
{
    for (const Choice& choice : Choices()) {
        for (int row = 0; row < RowCount(choice.table); ++row) {
            SCOPED_TRACE(std::to_string(choice.family) + " " +
                         RowName(Delivered(), choice.table, row));
            test(choice, row);
        }
    }
}

bool IsAngle(const ProjectState& s)
{
    return s.family == 10 || s.family == 11;
}

bool IsPlate(const ProjectState& s)
{
    return s.family == 52 || s.family == 54;
}

// The least of the critical forces that the interaction factors, or the angles, must not exceed.
double LeastCriticalForce(const ProjectState& s)
{
    double least = IsAngle(s) ? std::min(s.ncrv, s.ncru) : std::numeric_limits<double>::max();
    if (s.method == 1) {
        least = std::min({least, s.ncry, s.ncrz, s.ncrtf});
    }
    return least;
}

TEST(EveryTableRow, IsDesignedOrItsAxialForceIsAboveACriticalForce)
{
    int designed = 0;
    ForEveryRow([&designed](const Choice& choice, int row) {
        for (const i16 method : std::initializer_list<i16>{1, 2}) {
            Member s = OfRow(choice, row);
            s.method = method;
            const bool well = EndsWell(s);
            if (well) {
                ++designed;
                EXPECT_GT(s.irsection, 0);
                EXPECT_LE(s.errorflag, 0);
                continue;
            }
            EXPECT_EQ(s.errorflag, -1);
            EXPECT_GT(s.ned, LeastCriticalForce(s));
        }
    });
    EXPECT_GT(designed, 1000);
}

TEST(EveryTableRow, ResistsEveryForce)
{
    ForEveryRow([](const Choice& choice, int row) {
        Member s = OfRow(choice, row);
        s.nload[1] = IsPlate(s) ? 0.0f : 0.001f;
        s.qload[1] = 0.001f;
        ASSERT_TRUE(EndsWell(s));
        for (const double value :
             {s.nplrd, s.ncrd, s.myrd, s.vzrd, s.vplzrd, s.vbrd, s.nrdm1, s.myrdm1, s.irsection}) {
            EXPECT_GT(value, 0);
        }
        if (!IsPlate(s)) {
            for (const double value :
                 {s.mzrd, s.vyrd, s.vcyrd, s.mzrdm1, s.nbyrd, s.nbzrd, s.ncry, s.ncrz}) {
                EXPECT_GT(value, 0);
            }
        }
        EXPECT_LE(s.ncrd, s.nplrd);
        EXPECT_LE(s.nbyrd, s.nrdm1);
        EXPECT_LE(s.nbzrd, s.nrdm1);
    });
}

// "200x100x8" of the size "200x100"; a name without a last part has a size of its own.
std::string SizeOf(const std::string& key)
{
    const std::size_t at = key.rfind('x');
    return at == std::string::npos ? key : key.substr(0, at);
}

TEST(EveryTableRow, ThickerOnesOfASizeResistMore)
{
    std::map<std::string, ProjectState> thinner;  // the last one of a size
    int compared = 0;
    ForEveryRow([&thinner, &compared](const Choice& choice, int row) {
        Member s = OfRow(choice, row);
        s.nload[1] = 0;
        s.qload[1] = 0;
        ASSERT_TRUE(EndsWell(s));
        const std::string size = std::to_string(choice.family) + "/" +
                                 std::to_string(choice.series) + "/" +
                                 SizeOf(RowKey(Delivered(), choice.table, row));
        const auto before = thinner.find(size);
        if (before != thinner.end()) {
            const ProjectState& t = before->second;
            if (t.fyk == s.fyk && t.tw < s.tw && t.tf <= s.tf) {
                ++compared;
                EXPECT_GT(s.nplrd, t.nplrd);
                EXPECT_GT(s.ncrd, t.ncrd);
                EXPECT_GT(s.myrd, t.myrd);
                EXPECT_GE(s.mzrd, t.mzrd);
                EXPECT_GT(s.vzrd, t.vzrd);
                EXPECT_GT(s.vbrd, t.vbrd);
                EXPECT_GE(s.vyrd, t.vyrd);
            }
        }
        thinner[size] = s;
    });
    EXPECT_GT(compared, 300);
}

}  // namespace
}  // namespace kestrum
