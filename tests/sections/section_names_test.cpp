// Names are those of the profile lists (EN 10365, EN 10210-2, EN 10219-2, EN 10056-1); rows are
// counted in the CSV files of data/.

#include "sections/section_names.h"

#include "sections/family_table.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <set>

namespace kestrum {
namespace {

std::string Found(const char* name, int family = 0)
{
    const auto found = SectionOfName(Delivered(), name, family);
    return found ? std::to_string(found->family) + "/" + std::to_string(found->series) + " " +
                       RowName(Delivered(), found->table, found->row)
                 : "none";
}

TEST(SectionNames, FindASectionAsItIsWritten)
{
    EXPECT_EQ(Found("IPE 300"), "4/0 IPE 300");
    EXPECT_EQ(Found("ipe300"), "4/0 IPE 300");
    EXPECT_EQ(Found("HE 200 B"), "2/0 HEB 200");
    EXPECT_EQ(Found("HEB-200"), "2/0 HEB 200");
    EXPECT_EQ(Found("HE 200 M"), "3/0 HEM 200");
    EXPECT_EQ(Found("HE 200 E"), "none");
    EXPECT_EQ(Found("SHS 100x5"), "6/0 RHS 100x5");
    EXPECT_EQ(Found("RHS 100x100x5"), "6/0 RHS 100x5");
    EXPECT_EQ(Found("CFSHS 100x100x5"), "8/0 CFRHS 100x5");
    EXPECT_EQ(Found("RHS 200x100x8"), "7/0 RHS 200x100x8");
    EXPECT_EQ(Found("L 100x100x10"), "10/0 L 100x10");
    EXPECT_EQ(Found("uc 203x203x60"), "101/2 UC 203x203x60");
    EXPECT_EQ(Found("PFC 200x90x30"), "103/2 PFC 200x90x30");
    EXPECT_EQ(Found("IPE 310"), "none");
    EXPECT_EQ(Found(""), "none");
}

// A row without a name could not be chosen, and two sections of their own under one name not told
// apart.
TEST(SectionNames, EveryRowIsFoundUnderItsListedName)
{
    for (const FamilyTraits& info : Families()) {
        for (const Table table : info.tables) {
            for (int row = 0; row < RowCount(table); ++row) {
                const std::string name = RowName(Delivered(), table, row);
                const auto found = SectionOfName(Delivered(), name, info.id);
                ASSERT_TRUE(found) << name;
                EXPECT_EQ(found->table, table) << name;
                EXPECT_EQ(RowName(Delivered(), table, found->row), name);
            }
        }
    }
}

// As other programs write them.
TEST(SectionNames, OtherSignsAndZerosSayTheSame)
{
    EXPECT_EQ(Found("SHS120/120/5.0"), "6/0 RHS 120x5");
    EXPECT_EQ(Found("RHS 120x120x5"), "6/0 RHS 120x5");
    EXPECT_EQ(Found("RHS200/100/6.30"), "7/0 RHS 200x100x6.3");
    EXPECT_EQ(Found("RHS 200*100*6,3"), "7/0 RHS 200x100x6.3");
    EXPECT_EQ(Found("RHS 200\xC3\x97"
                    "100\xC3\x97"
                    "6.3"),
              "7/0 RHS 200x100x6.3");
    EXPECT_EQ(Found("RHS 200x100x63"), "none");
    EXPECT_EQ(SectionKey("IPE 300.00"), "IPE300");
    EXPECT_EQ(SectionKey("x 10.50/100"), "X10.5X100");
    EXPECT_EQ(SectionKey("az 12.90"), "AZ12.9");
    EXPECT_EQ(SectionKey("az 1.0"), "AZ1");
}

// Tables of the user's own may hold the angle of a stiffener as a section, and it twice: the first
// row of the section counts, unless the member is of the stiffener's family.
TEST(SectionNames, AStiffenerGivesWayToTheSectionOfItsName)
{
    Library own = Delivered();
    own.rownames = std::make_shared<NamedRows>();
    ProfileTable& angles = own.tables[static_cast<std::size_t>(Table::l2)];
    for (const int row : {3, 4}) {
        float* const sizes = &angles.value[static_cast<std::size_t>(row * angles.columns)];
        sizes[0] = 200;
        sizes[1] = 90;
        sizes[2] = 9;
    }
    ASSERT_EQ(RowName(own, Table::l3, 0), "L 200x90x9");
    for (const int family : {0, 11, 53}) {
        const auto found = SectionOfName(own, "L 200x90x9", family);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->table, Table::l2) << family;
        EXPECT_EQ(found->row, 3) << family;
    }
    EXPECT_EQ(SectionOfName(own, "L 200x90x9", 52)->table, Table::l3);
    EXPECT_EQ(Found("L 200x90x9"), "52/0 L 200x90x9");
}

TEST(SectionNames, TubesGoByDiameterAndWall)
{
    const auto tube = TubeOfName("CHS 114.3x5");
    ASSERT_TRUE(tube);
    EXPECT_EQ(tube->family, 31);
    EXPECT_EQ(tube->diameter, 114.3F);
    EXPECT_EQ(tube->wall, 5);
    EXPECT_EQ(TubeOfName("chs114,3/5.0")->diameter, 114.3F);
    EXPECT_TRUE(TubeOfName("CHS 100x49.8"));  // thicker than any, but with a hole
    for (const char* none :
         {"CHS", "CHS 114.3", "CHS 114.3x", "CHS 114.3ax5", "CHS 114.3x0", "CHS x5",
          "CHS 114.3x5x2", "CHS 10x5", "CHS 1e9999x5", "RHS 100x5", "CHS nanx5"}) {
        EXPECT_FALSE(TubeOfName(none)) << none;
    }
}

TEST(SectionNames, OfferTheNearest)
{
    const std::vector<std::string> near = SectionsNear(Delivered(), "IPE 310");
    EXPECT_EQ(near, (std::vector<std::string>{"IPE 300", "IPE 330", "IPE 360"}));
    EXPECT_EQ(SectionsNear(Delivered(), "IPE 300999"), std::vector<std::string>{"IPE 300"});
    EXPECT_TRUE(SectionsNear(Delivered(), "IPE 3009999").empty());  // four letters too many
    EXPECT_TRUE(SectionsNear(Delivered(), "XXX 200").empty());      // three, in no series
    EXPECT_TRUE(SectionsNear(Delivered(), "HE 1").empty());         // as many as it has
    EXPECT_TRUE(SectionsNear(Delivered(), "nonsense of a name").empty());
    EXPECT_TRUE(SectionsNear(Delivered(), std::string(100000, 'x')).empty());
}

std::string Families(const char* name)
{
    std::string text;
    for (const NamedFamily& each : FamiliesOfName(name)) {
        text += (text.empty() ? "" : " ") + std::to_string(each.family) +
                (each.series != 0 ? "/" + std::to_string(each.series) : "");
    }
    return text;
}

TEST(SectionNames, FindAFamilyByCaptionTableOrSeries)
{
    EXPECT_EQ(Families("IPE"), "4");
    EXPECT_EQ(Families("hea"), "1");
    EXPECT_EQ(Families("SHS"), "6");
    EXPECT_EQ(Families("RHS"), "7");
    EXPECT_EQ(Families("CFRHS"), "9");
    EXPECT_EQ(Families("RHS - Square"), "6");
    EXPECT_EQ(Families("RHS - Square (Hotformed)"), "6");
    EXPECT_EQ(Families("UC"), "101/2");
    EXPECT_EQ(Families("pfc"), "103/2");
    EXPECT_EQ(Families("tube"), "31");
    EXPECT_EQ(Families("Box"), "23");
    EXPECT_EQ(Families("HSQ"), "24 25");
    EXPECT_EQ(Families("T"), "26");
    EXPECT_EQ(Families("nothing"), "");
    EXPECT_EQ(Families("l3"), "");  // lists of stiffeners
    EXPECT_EQ(Families("hp"), "");
    EXPECT_EQ(Families(""), "");
}

TEST(SectionNames, EveryFamilyIsFoundUnderItsName)
{
    std::set<std::string> names;
    for (const FamilyTraits& info : kestrum::Families()) {
        EXPECT_TRUE(names.insert(FamilyName(info.id)).second) << info.id;
        EXPECT_EQ(Families(FamilyName(info.id).c_str()), std::to_string(info.id));
    }
    EXPECT_EQ(FamilyName(99), "");
}

}  // namespace
}  // namespace kestrum
