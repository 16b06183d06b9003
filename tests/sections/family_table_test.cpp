#include "sections/family_table.h"

#include "core/arithmetic_trap.h"
#include "support/members.h"

#include <set>
#include <sstream>

namespace kestrum {
namespace {

TEST(Families, StandInMenuOrderWithTheirCaptions)
{
    const std::pair<int, const char*> expected[] = {
        {1, "HEA"},
        {2, "HEB"},
        {3, "HEM"},
        {4, "IPE"},
        {15, "INP"},
        {5, "UPE"},
        {16, "UNP"},
        {6, "RHS - Square (Hotformed)"},
        {7, "RHS - Rect (Hotformed)"},
        {8, "CFRHS - Square (Coldformed)"},
        {9, "CFRHS - Rect (Coldformed)"},
        {10, "L-equal"},
        {11, "L-unequal"},
        {21, "I - double symmetric"},
        {22, "I - single symmetric"},
        {23, "Box "},
        {27, "Box - Non symmetric flanges"},
        {24, "HSQ - Symmetric flange "},
        {25, "HSQ - Non symmetric flange "},
        {26, "T"},
        {28, "Flatbar"},
        {31, "&Tube"},
        {41, "&General Profile "},
        {51, "Plates + Fb"},
        {52, "Plate + Lroll"},
        {53, "Plate +  L weld"},
        {54, "Plate + Bf"},
        {56, "Plate + T-girder"},
        {101, "U"},
        {102, "J"},
        {103, "C"},
    };
    ASSERT_EQ(Families().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(Families()[i].id, expected[i].first);
        EXPECT_EQ(Families()[i].caption, expected[i].second);
    }
}

TEST(Families, AreFoundByNumberAlone)
{
    std::set<std::string_view> menus, forms;
    for (const FamilyTraits& family : Families()) {
        EXPECT_EQ(FindFamily(family.id), &family);
        menus.insert(family.menu);
        forms.insert(family.form);
        EXPECT_FALSE(family.text.empty());
    }
    EXPECT_EQ(menus.size(), Families().size());
    EXPECT_EQ(forms.size(), Families().size());
    for (const int unknown : {0, -1, 999, 32767}) {
        EXPECT_EQ(FindFamily(unknown), nullptr) << unknown;
    }
}

TEST(Families, HavePropertiesEach)
{
    for (const FamilyTraits& family : Families()) {
        EXPECT_NE(family.properties, nullptr) << family.id;
    }
}

TEST(Families, ReservedNumberHasNoInput)
{
    ASSERT_NE(FindFamily(55), nullptr);
    EXPECT_EQ(FindFamily(55)->input, SectionInput::none);
    EXPECT_FALSE(HasTable(55));
}

TEST(TableOf, FollowsFamilyAndSeries)
{
    EXPECT_EQ(TableOf(Member::Bare(1)), Table::hea);
    EXPECT_EQ(TableOf(Member::Bare(9)), Table::cfrhs);
    EXPECT_EQ(TableOf(Member::Bare(52)), Table::l3);
    EXPECT_EQ(TableOf(Member::Bare(54)), Table::hp);
    EXPECT_EQ(TableOf(Member::Bare(101, 1)), Table::ub);
    EXPECT_EQ(TableOf(Member::Bare(101, 2)), Table::uc);
    EXPECT_EQ(TableOf(Member::Bare(101, 3)), Table::ubp);
    EXPECT_EQ(TableOf(Member::Bare(102)), Table::j);
    EXPECT_EQ(TableOf(Member::Bare(103, 1)), Table::ch);
    EXPECT_EQ(TableOf(Member::Bare(103, 2)), Table::pfc);
}

TEST(TableOf, TakesAnUnknownSeriesAsTheFirst)
{
    for (const int series : {-1, 0, 4, 77}) {
        EXPECT_EQ(TableOf(Member::Bare(101, series)), Table::ub);
        EXPECT_EQ(TableOf(Member::Bare(103, series)), Table::ch);
    }
}

TEST(TableOf, StopsWithoutTable)
{
    for (const int family : {0, 21, 31, 55}) {
        EXPECT_FALSE(HasTable(family));
        EXPECT_THROW(TableOf(Member::Bare(family)), CalculationStop) << family;
    }
}

TEST(RowText, IsSeriesAndSizeKey)
{
    EXPECT_EQ(RowName(Delivered(), Table::hea, 5), "HEA 200");
    EXPECT_EQ(RowName(Delivered(), Table::shs, 0), "RHS 40x2.5");
    EXPECT_EQ(RowName(Delivered(), Table::cfrhs, 0), "CFRHS 50x30x2");
    EXPECT_EQ(RowName(Delivered(), Table::ub, 62), "UB 838x292x176");
    EXPECT_EQ(RowName(Delivered(), Table::l1, 0), "L 15x3");
    EXPECT_EQ(RowKey(Delivered(), Table::l3, 2), "250x90x10.5");
    EXPECT_EQ(RowName(Library{}, Table::hea, 0), "");
}

// The delivered rows, complete and in order. Groups are parted by ';': sizes before the colon, each
// with every thickness behind it; without a colon the words are whole keys.
struct RowList {
    Table table;
    const char* rows;
};

const char* const kHe = "100 120 140 160 180 200 220 240 260 280 300 320 340 360 400 450 500 550 "
                        "600 650 700 800 900 1000";

const RowList kRowLists[] = {
    {Table::hea, kHe},
    {Table::heb, kHe},
    {Table::hem, kHe},
    {Table::ipe, "80 100 120 140 160 180 200 220 240 270 300 330 360 400 450 500 550 600"},
    {Table::upe, "80 100 120 140 160 180 200 220 240 270 300 330 360 400"},
    {Table::inp,
     "80 100 120 140 160 180 200 220 240 260 280 300 320 340 360 380 400 450 500 550 600"},
    {Table::unp, "80 100 120 140 160 180 200 220 240 260 280 300 320 350 380 400"},
    {Table::shs,
     "40: 2.5 3 3.2 4 5; 50: 2.5 3 3.2 4 5 6.3; 60: 3 3.2 4 5 6.3 8; 70: 3 3.6 4 5 6.3 8; "
     "80: 3 3.6 4 5 6.3 7.1 8; 90: 3.6 4 5 6.3 8; 100: 4 5 6.3 8 10; 120: 4 4.5 5 6.3 8 10 12.5; "
     "140: 5 6.3 8 10 12.5; 150 160 180 200: 5 6.3 8 10 12.5 16; 220: 6.3 10; "
     "250: 6.3 8 10 12.5 16; 260: 6.3 8 10 12.5; 300: 6.3 8 10 12.5 16; 350: 8 10 12.5 16; "
     "400: 8 10 12.5 16 20"},
    {Table::cfshs,
     "30: 3; 40: 2 2.5 3 4; 50: 2 2.5 3 4 5; 60: 2.5 3 4 5; 70: 2 2.5 3 4 5; 80: 2.5 3 4 5 6.3; "
     "90: 2.5 3 4 5 6 6.3; 100: 2.5 3 4 5 6 6.3 8 10; 110: 3 4 5 6; 120: 3 4 5 5.6 6 6.3 8 10; "
     "140: 4 5 5.6 6 6.3 7.1 8 8.8 10; 150: 4 5 6 6.3 8 10 12.5; 160 180: 5 6 6.3 8 10 12.5; "
     "200: 5 6 6.3 8 10 12.5 16; 220: 6 6.3 8 10; 250: 6 6.3 8 10 12.5 16; 260: 7.1 8.8 11; "
     "300: 6 8 10 12.5 16; 400: 10 12.5"},
    {Table::rhs,
     "50x30: 2.5 3 4 5; 60x40: 2.5 3 4 5 6.3; 70x40: 4; 80x40: 3 4 5 6.3 8; "
     "90x50: 3 3.6 4 5 6.3 8; 100x50 100x60: 3 3.6 4 5 5.6 6.3 8; 120x60: 3.6 4 5 6.3 8; "
     "120x80: 4 5 6.3 8 10; 140x70: 4 5 6.3; 140x80: 4 6.3; 150x100: 4 5 6.3 8 10 12.5; "
     "160x80: 4 5 6.3 8 10 12.5; 160x90: 5 7.1 8; 180x100: 5.6 6.3 7.1 8 10; "
     "200x100 200x120 200x150: 5 6.3 8 10 12.5 16; 220x120: 6.3 8 10; 250x100: 6.3 8 10 12.5 16; "
     "250x150: 5 6.3 8 10 12.5 16; 260x140 300x100 300x200 300x250 350x150: 6.3 8 10 12.5 16; "
     "350x250: 8 10 12.5 16; 400x120: 6.3 8 10 12.5; 400x150 400x200: 6.3 8 10 12.5 16; "
     "400x300 450x250: 8 10 12.5 16; 500x300: 8 10 12.5 16 20"},
    {Table::cfrhs,
     "50x30: 2 2.5 3 4; 60x40: 2 2.5 3 4 5; 70x50: 2 2.5 3; 80x40: 2.5 3 4 5; 80x60: 2 2.5 3 4; "
     "90x50: 2.5 3 4 5; 100x40: 2.5 4; 100x50: 2.5 3 4 5 6.3; 100x60: 2 2.5 3 4 5 6.3; "
     "100x80: 3 4 5 6; 120x60: 3 4 5 6.3; 120x80: 3 4 5 6 6.3 8; 140x70: 4 5; "
     "140x80: 3 4 5 6 6.3; 150x100: 3 4 5 6 6.3 8 10; 160x80: 4 5 6 6.3 8; 160x90: 7.1; "
     "180x100: 5 6 6.3 7.1 8 10; 200x80: 6; 200x100: 5 6 6.3 8 10 12.5; 200x120: 5 6 6.3 8 10; "
     "220x120: 6 8 10; 250x150: 5 6 6.3 8 10 12.5 16; 260x140 260x180: 6 8 10; "
     "300x100: 5 6 8 10; 300x200 400x200: 6 6.3 8 10 12.5"},
    {Table::l1,
     "15: 3; 20: 3 4; 25 30 35: 3 4 5; 40: 3 4 5 6 8; 45: 5 7; 50: 3 4 5 6 7 8; 55: 6; 60: 6 8 10; "
     "65: 7; 70: 7 9; 75: 6 7 8 10; 80: 8 10 12; 90: 9 11; 100: 10 12 14; 110: 10 12; "
     "120: 11 12 13 15; 130: 12; 140: 12 13; 150: 12 14 16; 160: 15; 180 200: 16 18; 250: 18"},
    {Table::l2,
     "30x20 40x20: 3 4; 45x30: 4 5; 50x30: 5; 60x30 60x40: 5 7; 65x50: 6; 75x50: 5 6 7 9; "
     "75x55: 7; 80x40: 6 8; 90x60: 8; 100x50: 6 8 10; 100x65: 8 9 11; 100x75: 8 10 12; "
     "120x80: 10 12; 130x65: 8 10 12; 130x90: 10; 150x75: 9 11; 150x90: 10 12; 150x100: 10 12 14; "
     "160x80: 12; 180x90: 10 12; 200x100: 10 12 14 16"},
    {Table::l3, "200x90x9 250x90x9 250x90x10.5 250x90x11.5 300x100x10.5 300x100x11.5 325x120x10.5 "
                "325x120x11.5 350x120x10.5 350x120x11.5 400x120x11.5"},
    {Table::hp,
     "60: 4 5 6; 80: 5 6 7; 100: 6 7 8; 120: 6 7 8; 140 160: 7 8 9; 180: 8 9 10; 200: 9 10 11.5; "
     "220: 10 11.5; 240 260: 10 11 12; 280: 11 12; 300: 11 12 13; 320: 12 13; 340: 12 14; "
     "370: 13 15; 400: 14 16; 430: 15 17"},
    {Table::ub,
     "127x76x13 152x89x16 178x102x19 203x102x23 203x133x25 203x133x30 254x102x22 254x102x25 "
     "254x102x28 254x146x31 254x146x37 254x146x43 305x102x25 305x102x28 305x102x33 305x127x37 "
     "305x127x42 305x127x48 305x165x40 305x165x46 305x165x54 356x127x33 356x127x39 356x171x45 "
     "356x171x51 356x171x57 356x171x67 406x140x39 406x140x46 406x178x54 406x178x60 406x178x67 "
     "406x178x74 457x152x52 457x152x60 457x152x67 457x152x74 457x152x82 457x191x67 457x191x74 "
     "457x191x82 457x191x89 457x191x98 533x210x82 533x210x92 533x210x101 533x210x109 533x210x122 "
     "610x229x101 610x229x113 610x229x125 610x229x140 610x305x149 610x305x179 610x305x238 "
     "686x254x125 686x254x140 686x254x152 686x254x170 762x267x147 762x267x173 762x267x197 "
     "838x292x176 838x292x194 838x292x226 914x305x201 914x305x224 914x305x253 914x305x289 "
     "914x419x343 914x419x388 1016x305x222 1016x305x249 1016x305x272 1016x305x314 1016x305x349 "
     "1016x305x393 1016x305x415 1016x305x438 1016x305x494 1016x305x584"},
    {Table::uc,
     "152x152x23 152x152x30 152x152x37 203x203x46 203x203x52 203x203x60 203x203x71 203x203x86 "
     "254x254x73 254x254x89 254x254x107 254x254x132 254x254x167 305x305x97 305x305x118 305x305x137 "
     "305x305x158 305x305x198 305x305x240 305x305x283 356x368x129 356x368x153 356x368x177 "
     "356x368x202 356x406x235 356x406x287 356x406x340 356x406x393 356x406x467 356x406x551 "
     "356x406x634"},
    {Table::ubp,
     "203x203x45 203x203x54 254x254x63 254x254x71 254x254x85 305x305x79 305x305x88 305x305x95 "
     "305x305x110 305x305x126 305x305x149 305x305x186 305x305x223 356x368x109 356x368x133 "
     "356x368x152 356x368x174"},
    {Table::j,
     "76x76x13 76x76x15 89x89x19 102x44x7 102x102x23 114x114x27 127x76x16 127x114x27 127x114x29 "
     "152x127x37 203x152x52 254x114x37 254x203x82"},
    {Table::ch,
     "76x38x7 102x51x10 127x64x15 152x76x18 152x89x24 178x76x21 178x89x27 203x76x24 203x89x30 "
     "229x76x26 229x89x33 245x76x28 245x89x36 305x89x42 305x102x46 305x102x55 431x102x65"},
    {Table::pfc,
     "100x50x10 125x65x15 150x75x18 150x90x24 180x75x20 180x90x26 200x75x23 200x90x30 230x75x26 "
     "230x90x32 260x75x28 260x90x35 300x90x41 300x100x46 380x100x54 430x100x64"},
};

std::vector<std::string> Words(const std::string& text)
{
    std::vector<std::string> words;
    std::istringstream in(text);
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

std::vector<std::string> Expand(const char* list)
{
    std::vector<std::string> keys;
    std::istringstream groups(list);
    for (std::string group; std::getline(groups, group, ';');) {
        const std::size_t colon = group.find(':');
        const std::vector<std::string> sizes = Words(group.substr(0, colon));
        if (colon == std::string::npos) {
            keys.insert(keys.end(), sizes.begin(), sizes.end());
            continue;
        }
        for (const std::string& size : sizes) {
            for (const std::string& thickness : Words(group.substr(colon + 1))) {
                keys.push_back(size + "x" + thickness);
            }
        }
    }
    return keys;
}

// Projects keep the index of a row: a new row comes behind these.
TEST(RowLists, BeginInTheOrderThatProjectsKnow)
{
    for (const RowList& list : kRowLists) {
        const std::vector<std::string> expected = Expand(list.rows);
        ASSERT_GE(RowCount(list.table), static_cast<int>(expected.size())) << list.rows;
        for (std::size_t row = 0; row < expected.size(); ++row) {
            EXPECT_EQ(RowKey(Delivered(), list.table, static_cast<int>(row)), expected[row]);
        }
    }
}

TEST(RowLists, NameEachRowOnce)
{
    for (std::size_t table = 0; table < kTables; ++table) {
        std::set<std::string> keys;
        for (int row = 0; row < RowCount(static_cast<Table>(table)); ++row) {
            const std::string key = RowKey(Delivered(), static_cast<Table>(table), row);
            EXPECT_TRUE(keys.insert(key).second) << ShapeOf(static_cast<Table>(table)).file << key;
        }
    }
}

}  // namespace
}  // namespace kestrum
