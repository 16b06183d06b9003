#include "app/input_boxes.h"

#include "core/field_table.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace kestrum {
namespace {

// A record in which every rule that looks at other fields has room.
ProjectState Roomy()
{
    ProjectState s{};
    s.l = 5;
    s.p23 = {.isth = 600, .istb1 = 600, .isttw = 10, .isttf = 20, .ista = 50};
    s.p24 = {
        .isth = 300, .istb1 = 300, .istb2 = 540, .isttw = 6, .isttf1 = 25, .isttf2 = 15, .hsqc = 5};
    s.p25 = {.isth = 300,
             .istb1 = 300,
             .istb2 = 430,
             .isttw = 6,
             .isttf1 = 25,
             .isttf2 = 15,
             .istc = 15};
    s.p27 = {.isth = 600,
             .istb1 = 600,
             .istb2 = 600,
             .isttw = 10,
             .isttf1 = 20,
             .isttf2 = 20,
             .istc = 25};
    return s;
}

int FirstRow(const Box& box)
{
    return FindField(box.field)->shape == FieldShape::array ? 1 : 0;
}

Outcome Enter(ProjectState& s, const char* form, const char* id, const char* text)
{
    const Box* const box = FindBox(form, id);
    EXPECT_NE(box, nullptr) << form << "." << id;
    return Commit(s, *box, FirstRow(*box), text, false);
}

// What a box accepts and what it says, as the user meets it: form, box, texts that pass, texts that
// do not.
struct BoxCase {
    const char* form;
    const char* id;
    const char* good[3];
    const char* bad[3];
    const char* message;
};

const BoxCase kBoxCases[] = {
    {"kestrum", "il", {"0.05", "0,05", "100"}, {"0.0499", "0", "-1"}, " L >= 0.050 "},
    {"kestrum",
     "ibly",
     {"0.2", "1", "50"},
     {"0.199", "0", "-1"},
     " Buckling length factor Y-axis >= 0.2 "},
    {"kestrum",
     "iblz",
     {"0.2", "1", "50"},
     {"0.199", "0", "-1"},
     " Buckling length factor Z-axis >= 0.2 "},
    {"kestrum", "ifyk", {"50", "355", "2000"}, {"49.9", "2000.5", ""}, " 50 <= fyk <= 2000 "},
    {"kestrum", "ispring", {"1", "50", "99"}, {"0", "100", "0.5"}, " 1 < Spring-restraint  > 99 "},
    {"setup", "igammam0", {"0.5", "1.05", "1.5"}, {"0.499", "1.501", ""}, " 0.5 <= gammam0 <=1.5 "},
    {"setup", "igammam1", {"0.5", "1.05", "1.5"}, {"0.499", "1.501", ""}, " 0.5 <= gammam1 <=1.5 "},
    {"setup", "ineta", {"1", "1.1", "1.2"}, {"0.999", "1.201", ""}, " 1 <= neta <=1.2 "},
    {"setup", "ibeta", {"0.1", "0.75", "0.8"}, {"0.099", "0.801", ""}, " 0.1 <= beta <= 0.8 "},
    {"setup", "ibetaw", {"0.1", "0.75", "1"}, {"0.099", "1.001", ""}, " 0.1 <= beta <= 1 "},
    {"setup",
     "ilamdaLT0",
     {"0.1", "0.4", "0.8"},
     {"0.099", "0.801", ""},
     " 0.1 <= lamdaLT0 <= 0.8 "},
    {"setup",
     "ilamdaLT0w",
     {"0.1", "0.2", "0.8"},
     {"0.099", "0.801", ""},
     " 0.1 <= lamdaLT0 <= 0.8 "},
    {"setup", "ifyk", {"50", "460", "2000"}, {"49", "2001", ""}, " 50 <= fyk <= 2000 "},
    {"setup", "ie", {"1000", "210000", "2.1E5"}, {"999.9", "0", ""}, " 1000 <= E-modulus "},
    {"setup", "iuflimit", {"0", "0.1", "0.4"}, {"-0.01", "0.401", "1"}, " 0 <= uflimit <= 0.4 "},
    {"setup",
     "idef_limity",
     {"100", "300", "1500"},
     {"99", "1501", ""},
     "100 <= Deflection <=1500 "},
    {"setup",
     "idef_limitz",
     {"100", "300", "1500"},
     {"99", "1501", ""},
     "100 <= Deflection <=1500 "},
    {"setup", "iLfULS_G", {"0.01", "1.35", "3.99"}, {"0", "4", "-1"}, " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfULS_Q1", {"0.01", "1.5", "3.99"}, {"0", "4", "-1"}, " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfULS_Q2", {"0.01", "1.5", "3.99"}, {"0", "4", "-1"}, " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfSLS_G", {"0.01", "1", "3.99"}, {"0", "4", "-1"}, " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfSLS_Q1", {"0.01", "1", "3.99"}, {"0", "4", "-1"}, " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfSLS_Q2", {"0.01", "1", "3.99"}, {"0", "4", "-1"}, " 0 < Loadfactor < 4.0 "},
    {"Loading", "iqtx1", {"0", "2.5", "5"}, {"-0.001", "5.001", "6"}, " 0 < x1 <= l "},
    {"Loading", "iqtx2", {"0", "2.5", "5"}, {"-0.001", "5.001", "6"}, " 0 < x2 <= l "},
    {"Loading", "ipmx", {"0", "2.5", "5"}, {"-0.001", "5.001", "6"}, " 0 < x <= l "},
    {"chpoints", "icp", {"0", "2.5", "5"}, {"-0.001", "5.001", "6"}, " 0 < x <= l "},
    {"endstiff", "iweba", {"100", "101", "4999"}, {"99.9", "5000", "5001"}, " 100 < a < l "},
    {"vipping", "ic1", {"0.2", "1", "4"}, {"0.199", "4.001", ""}, " 0.2 <= C1i <= 4 "},
    {"vipping", "ic2", {"0", "1", "4"}, {"-0.001", "4.001", "5"}, " 0 <= C2i <= 4 "},
    {"vipping", "ic3", {"0", "1", "4"}, {"-0.001", "4.001", "5"}, " 0 <= C3i <= 4 "},
    {"frmVortex", "ivb", {"5", "25", "99"}, {"4.9", "0", ""}, " vb >= 5 m/s "},
    {"frmVortex", "iz", {"1", "10", "500"}, {"0.9", "0", ""}, " z >= 1 m "},
    {"p28", "isth", {"5", "6", "500"}, {"4.9", "0", ""}, " h >= 5 "},
    {"p22", "istb2", {"5", "6", "500"}, {"4.9", "0", ""}, " b2 >= 5 "},
    {"p53", "istb2", {"5", "6", "500"}, {"4.9", "0", ""}, " b >= 5 "},
    {"p56", "istb2", {"5", "6", "500"}, {"4.9", "0", ""}, " b >= 5 "},
    {"p53", "isttf2", {"0.1", "6", "500"}, {"0.09", "0", ""}, " tf >= 0.1 "},
    {"p56", "isttf2", {"0.1", "6", "500"}, {"0.09", "0", ""}, " tf >= 0.1 "},
    {"p21", "isttf", {"0.1", "6", "50"}, {"0.09", "0", ""}, " tf >= 0.1 "},
    {"p23", "isttf", {"0.1", "6", "50"}, {"0.09", "0", ""}, " tf >= 0.1 "},
    {"p23", "ista", {"0", "50", "289"}, {"-1", "-0.001", "-500"}, " a >= 0 "},
    {"p23", "ista", {"0", "50", "289.9"}, {"290", "290.1", "500"}, " a < b/2-tw "},
    {"p24", "istb2", {"288", "540", "900"}, {"50", "49", ""}, " b2 > 50 "},
    {"p24", "istb2", {"288", "540", "900"}, {"287.9", "51", "100"}, " b2 >= b1-2*tw "},
    {"p24",
     "iload",
     {"50", "70", "90"},
     {"49.9", "90.1", ""},
     " 50% <= Load on one flange <= 90% "},
    {"p25", "istb1", {"5.1", "300", "414.9"}, {"5", "415", "500"}, " 5 < b1 < (b2-c) "},
    {"p25", "istb2", {"5", "300", "900"}, {"4.9", "0", ""}, " b2 >= 5 "},
    {"p25", "istc", {"0", "15", "150"}, {"-0.1", "150.1", "300"}, " 0 <= c <= b1/2 "},
    {"p27", "istb1", {"600", "400", "300"}, {"19.9", "0", ""}, " b1 >= 20 "},
    {"p27", "istb2", {"550", "600", "900"}, {"549.9", "0", "20"}, " b2 >= (a+tw) "},
    {"p27", "istc", {"0", "25", "100"}, {"-0.1", "-1", "-25"}, " c >= 0 "},
    {"p31", "istd", {"20", "300", "2000"}, {"19.9", "0", ""}, " d >= 20 "},
    {"p52", "istb1", {"0.1", "600", "2000"}, {"0", "-1", ""}, " b1 > 0 "},
    {"p54", "istb1", {"0.1", "600", "2000"}, {"0", "-1", ""}, " b1 > 0 "},
    {"p52", "istt1", {"0.1", "10", "200"}, {"0.09", "0", ""}, " t1 >= 0.1 "},
    {"p54", "istt1", {"0.1", "10", "200"}, {"0.09", "0", ""}, " t1 >= 0.1 "},
    {"p41", "istax", {"50", "100", "1E6"}, {"49.9", "0", ""}, " A >= 50 "},
    {"p41", "istay", {"50", "100", "1E6"}, {"49.9", "0", ""}, " Ay >= 50 "},
    {"p41", "istaz", {"50", "100", "1E6"}, {"49.9", "0", ""}, " Az >= 50 "},
    {"p41", "istix", {"1000", "1E6", "1E9"}, {"999", "0", ""}, " Ix >= 1000 "},
    {"p41", "istiy", {"1000", "1E6", "1E9"}, {"999", "0", ""}, " Iy >= 1000 "},
    {"p41", "istiz", {"1000", "1E6", "1E9"}, {"999", "0", ""}, " Iz >= 1000 "},
    {"p41", "istiw", {"1000", "1E6", "1E12"}, {"999", "0", ""}, " Iw >= 1000 "},
    {"p41", "istwely", {"1000", "1E6", "1E9"}, {"999", "0", ""}, " Wely >= 1000 "},
    {"p41", "istwelz", {"1000", "1E6", "1E9"}, {"999", "0", ""}, " Welz >= 1000 "},
    {"p41", "istwply", {"1000.1", "1E6", "1E9"}, {"1000", "0", ""}, " 1000 < Wply "},
    {"p41", "istwplz", {"1000.1", "1E6", "1E9"}, {"1000", "0", ""}, " 1000 < Wplz "},
};

void Check(const BoxCase& c)
{
    SCOPED_TRACE(std::string(c.form) + "." + c.id);
    for (const char* text : c.good) {
        ProjectState s = Roomy();
        const Outcome outcome = Enter(s, c.form, c.id, text);
        EXPECT_TRUE(outcome.taken) << text;
        EXPECT_EQ(outcome.message, "") << text;
    }
    for (const char* text : c.bad) {
        ProjectState s = Roomy();
        const Outcome outcome = Enter(s, c.form, c.id, text);
        EXPECT_FALSE(outcome.taken) << text;
        EXPECT_EQ(outcome.message, c.message) << text;
    }
}

TEST(InputBoxes, KeepTheirLimits)
{
    for (const BoxCase& c : kBoxCases) {
        Check(c);
    }
}

TEST(InputBoxes, SharedBoxesOfTheSectionForms)
{
    for (const char* form :
         {"p21", "p22", "p23", "p24", "p25", "p26", "p27", "p51", "p53", "p56"}) {
        Check({form, "isth", {"20", "21", "600"}, {"19.9", "0", ""}, " h >= 20 "});
    }
    for (const char* form : {"p21", "p22", "p23", "p24", "p26", "p51", "p53", "p56"}) {
        Check({form, "istb1", {"5", "6", "600"}, {"4.9", "0", ""}, " b >= 5 "});
    }
    for (const char* form :
         {"p21", "p22", "p23", "p24", "p25", "p26", "p27", "p28", "p31", "p51", "p53", "p56"}) {
        Check({form, "isttw", {"0.1", "6", "60"}, {"0.09", "0", ""}, " tw >= 0.1 "});
    }
    for (const char* form : {"p22", "p24", "p25", "p26", "p27", "p51", "p53", "p56"}) {
        Check({form, "isttf1", {"0.1", "6", "60"}, {"0.09", "0", ""}, " tf1 >= 0.1 "});
    }
    for (const char* form : {"p22", "p24", "p25", "p27"}) {
        Check({form, "isttf2", {"0.1", "6", "60"}, {"0.09", "0", ""}, " tf2 >= 0.1 "});
    }
}

TEST(InputBoxes, LoadsAndEndForcesTakeAnyNumber)
{
    const std::pair<const char*, const char*> boxes[] = {
        {"Loading", "inn"},   {"Loading", "iq"},    {"Loading", "iqt1"},  {"Loading", "iqt2"},
        {"Loading", "ipm"},   {"endforce", "ine"},  {"endforce", "imy1"}, {"endforce", "imy2"},
        {"endforce", "imz1"}, {"endforce", "imz2"}, {"endforce", "ivy1"}, {"endforce", "ivy2"},
        {"endforce", "ivz1"}, {"endforce", "ivz2"},
    };
    for (const auto& [form, id] : boxes) {
        for (const char* text : {"-1000", "0", "", "1E6"}) {
            ProjectState s = Roomy();
            EXPECT_TRUE(Enter(s, form, id, text).taken) << id << " " << text;
        }
    }
}

TEST(InputBoxes, EveryOneNamesAFieldAndNoTwoShareAPlace)
{
    std::set<std::string> places;
    for (const Box& box : InputBoxes()) {
        EXPECT_NE(FindField(box.field), nullptr) << box.field;
        EXPECT_TRUE(places.insert(std::string(box.form) + "." + std::string(box.id)).second)
            << box.id;
    }
    EXPECT_EQ(FindBox("kestrum", "nothing"), nullptr);
    EXPECT_EQ(BoxOfField("ned"), nullptr);
}

TEST(InputBoxes, ARefusedValueStaysInTheRecord)
{
    ProjectState s = Roomy();
    EXPECT_FALSE(Enter(s, "kestrum", "il", "0.0499").taken);
    EXPECT_EQ(s.l, 0.0499f);
}

TEST(InputBoxes, ARefusedPositionBecomesZero)
{
    ProjectState s = Roomy();
    s.pmx[1] = 2;
    EXPECT_FALSE(Enter(s, "Loading", "ipmx", "7").taken);
    EXPECT_EQ(s.pmx[1], 0);
}

TEST(InputBoxes, RelativePositionsAreKeptInMetres)
{
    ProjectState s = Roomy();
    s.qtrelative = s.pmrelative = s.cprelative = 1;
    EXPECT_TRUE(Enter(s, "Loading", "iqtx1", "0.5").taken);
    EXPECT_EQ(s.qtx1[1], 2.5f);
    EXPECT_EQ(BoxText(s, *FindBox("Loading", "iqtx1"), 1), "0.500");
    EXPECT_TRUE(Enter(s, "Loading", "ipmx", "1").taken);
    EXPECT_EQ(s.pmx[1], 5);
    EXPECT_EQ(Enter(s, "Loading", "iqtx1", "1.001").message, " 0 < x1 <= 1 ");
    EXPECT_EQ(Enter(s, "Loading", "iqtx2", "1.001").message, " 0 < x2 <= 1 ");
    EXPECT_EQ(Enter(s, "Loading", "ipmx", "-0.1").message, " 0 < x <= 1 ");
    EXPECT_EQ(Enter(s, "chpoints", "icp", "2").message, " 0 <= x <= 1 ");
}

TEST(InputBoxes, RubbishIsReportedUnderACommaLocaleOnly)
{
    ProjectState s = Roomy();
    const Box& box = *FindBox("kestrum", "il");
    const Outcome comma = Commit(s, box, 0, "abc", true);
    EXPECT_FALSE(comma.taken);
    EXPECT_EQ(comma.message, kMismatch);
    EXPECT_EQ(s.l, 5);
    const Outcome point = Commit(s, box, 0, "abc", false);
    EXPECT_EQ(point.message, " L >= 0.050 ");
    EXPECT_EQ(s.l, 0);
    EXPECT_TRUE(Commit(s, box, 0, "0.05", true).taken);
    EXPECT_TRUE(Commit(s, box, 0, "0,05", true).taken);
}

TEST(InputBoxes, WholeNumbersAreRoundedHalvesToTheEvenOne)
{
    ProjectState s = Roomy();
    EXPECT_TRUE(Enter(s, "kestrum", "ispring", "98.5").taken);
    EXPECT_EQ(s.spring, 98);
    EXPECT_TRUE(Enter(s, "kestrum", "ispring", "1.5").taken);
    EXPECT_EQ(s.spring, 2);
    EXPECT_EQ(Enter(s, "kestrum", "ispring", "40000").message, kMismatch);
    EXPECT_EQ(s.spring, 2);
}

TEST(InputBoxes, DoubleFieldsTakeTheDecimalThatWasTyped)
{
    ProjectState s = Roomy();
    EXPECT_TRUE(Enter(s, "setup", "igammam0", "1.05").taken);
    EXPECT_EQ(s.gammam0, 1.05);
    EXPECT_TRUE(Enter(s, "p53", "isttw", "11.7").taken);
    EXPECT_EQ(s.p53.isttw, 11.7);
}

TEST(InputBoxes, RulesFollowTheOtherFieldsOfTheForm)
{
    ProjectState s = Roomy();
    s.p25.istc = 200;  // 430 - 200 leaves 230
    EXPECT_FALSE(Enter(s, "p25", "istb1", "230").taken);
    EXPECT_TRUE(Enter(s, "p25", "istb1", "229").taken);
    s.l = 5.5f;
    EXPECT_TRUE(Enter(s, "endstiff", "iweba", "5000").taken);
}

TEST(InputBoxes, ANarrowerTopFlangeMovesTheOverhang)
{
    ProjectState s = Roomy();  // tw 10, c 25
    EXPECT_EQ(Enter(s, "p27", "istb1", "70").message, "");
    EXPECT_EQ(s.p27.istc, 25);  // 70/2 - 10 is just enough
    const Outcome moved = Enter(s, "p27", "istb1", "60");
    EXPECT_TRUE(moved.taken);
    EXPECT_EQ(moved.message, " c adjusted ");
    EXPECT_EQ(s.p27.istc, 20);
    s.p27.isttw = 40;
    EXPECT_TRUE(Enter(s, "p27", "istb1", "60").taken);
    EXPECT_EQ(s.p27.istc, 0);
}

TEST(InputBoxes, ShowTheirFormat)
{
    ProjectState s = Roomy();
    s.fyk = 50;
    s.e = 210000;
    s.p52.istb1 = 612.5;
    s.p52.istt1 = 10.1f;
    s.qload[2] = -12.25f;
    EXPECT_EQ(BoxText(s, *FindBox("kestrum", "il"), 0), "5.000");
    EXPECT_EQ(BoxText(s, *FindBox("kestrum", "ifyk"), 0), "50");
    EXPECT_EQ(BoxText(s, *FindBox("setup", "ie"), 0), "2.10E+5");
    EXPECT_EQ(BoxText(s, *FindBox("p52", "istb1"), 0), "612.5");
    EXPECT_EQ(BoxText(s, *FindBox("p52", "istt1"), 0), "10.1");
    EXPECT_EQ(BoxText(s, *FindBox("Loading", "iq"), 2), "-12.3");
}

}  // namespace
}  // namespace kestrum
