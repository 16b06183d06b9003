// Every limit of an input: the values at it are calculated, those just beyond are named with what
// is allowed; and where the input is of no account nothing is asked of it.

#include "engine/validate.h"

#include "core/field_table.h"
#include "core/material.h"
#include "core/member_choices.h"
#include "support/members.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

ProjectState With(ProjectState s, const std::string& name, double value)
{
    const auto at = ResolveField(name);
    EXPECT_TRUE(at && PutNumber(s, *at->field, at->index, value)) << name;
    return s;
}

using Values = std::vector<double>;

struct Limit {
    std::string name;  // "qload[2]"
    Values good, bad;
    std::string_view allowed, unit;
};

void ExpectGood(const ProjectState& s, const std::string& name, const Values& values)
{
    for (const double value : values) {
        const InputFaults faults = Validate(With(s, name, value), &Delivered());
        EXPECT_EQ(faults.count, 0) << name << " " << value << ": " << FailureText(faults.fault[0]);
    }
}

void ExpectLimit(const ProjectState& s, const Limit& limit)
{
    ExpectGood(s, limit.name, limit.good);
    const std::size_t bracket = limit.name.find('[');
    const int row = bracket == std::string::npos ? -1 : std::stoi(limit.name.substr(bracket + 1));
    for (const double value : limit.bad) {
        SCOPED_TRACE(limit.name + " " + std::to_string(value));
        const InputFaults faults = Validate(With(s, limit.name, value), &Delivered());
        ASSERT_EQ(faults.count, 1);
        const Failure& fault = faults.fault[0];
        EXPECT_EQ(fault.stage, Stage::input);
        EXPECT_EQ(fault.cause, Cause::out_of_range);
        EXPECT_EQ(fault.quantity, limit.name.substr(0, bracket));
        EXPECT_EQ(fault.row, row);
        EXPECT_FLOAT_EQ(static_cast<float>(fault.value), static_cast<float>(value));
        EXPECT_EQ(fault.allowed, limit.allowed);
        EXPECT_EQ(fault.unit, limit.unit);
    }
}

void ExpectLimits(const std::string& given, const std::vector<Limit>& limits)
{
    SCOPED_TRACE(given);
    const Member s("l=5 " + given);
    for (const Limit& limit : limits) {
        ExpectLimit(s, limit);
    }
}

TEST(Limits, OfSettings)
{
    ExpectLimits("", {{"gammam0", {0.5, 1.5}, {0.499, 1.501}, "0.5 to 1.5", ""},
                      {"gammam1", {0.5, 1.5}, {0.499, 1.501}, "0.5 to 1.5", ""},
                      {"neta", {1.0, 1.2}, {0.999, 1.201}, "1.0 to 1.2", ""},
                      {"method", {1, 2}, {0, 3}, "1 or 2", ""},
                      {"e", {1000}, {999.9, kInf}, "1000 and more", "MPa"},
                      {"loadcomb", {0, 1, 2, 3, 4, 5}, {-1, 6}, "0 to 5", ""},
                      {"deflimity", {1}, {0, -1}, "greater than 0", ""},
                      {"deflimitz", {1}, {0, -1}, "greater than 0", ""}});
}

// The strength is asked for where it is typed: behind the listed grades and before them.
TEST(Limits, OfATypedStrength)
{
    const int typed = LastMaterial(Delivered());
    for (const int index : {-1, typed, typed + 1}) {
        ExpectLimits("fykindex=" + std::to_string(index),
                     {{"fyk", {50, 2000}, {49.9, 2000.1}, "50 to 2000", "MPa"}});
    }
    for (const int index : {0, typed - 1}) {
        ExpectGood(Member("fykindex=" + std::to_string(index)), "fyk", {1});
    }
}

TEST(Limits, OfFactorsOnLoads)
{
    for (const char* name : {"lfulsg", "lfulsq1", "lfulsq2", "lfslsg", "lfslsq1", "lfslsq2"}) {
        ExpectLimits("loadcomb=4",
                     {{name, {0.001, 3.999}, {0, 4}, "greater than 0, less than 4", ""}});
        ExpectGood(Member("loadcomb=0"), name, {0});
    }
    for (const char* name : {"psi1index", "psi2index"}) {
        ExpectLimits("loadcomb=0", {{name, {-1, 9}, {-2, 10}, "0 to 9", ""}});
        ExpectGood(Member("loadcomb=4"), name, {10});
        ExpectGood(Member("loadcomb=5"), name, {10});
    }
}

TEST(Limits, OfTheMember)
{
    ExpectLimits("", {{"l", {0.05}, {0.049, kInf}, "0.05 and more", "m"},
                      {"supportcase", {0, 5}, {-1, 6}, "0 to 5", ""},
                      {"webstiff", {0, 1}, {-1, 2}, "0 or 1", ""},
                      {"endstiff", {0, 1}, {-1, 2}, "0 or 1", ""},
                      {"webstiffa", {0.001}, {0, kInf}, "greater than 0", "mm"},
                      {"bcy", {0, 5}, {-1, 6}, "0 to 5", ""},
                      {"bcz", {0, 5}, {-1, 6}, "0 to 5", ""},
                      {"ly", {0}, {-0.001, kInf}, "0 and more", ""},
                      {"lz", {0}, {-0.001, kInf}, "0 and more", ""}});
    for (i16 supports = 0; supports <= 5; ++supports) {
        const std::string given = "supportcase=" + std::to_string(supports);
        if (supports == SupportCase::springs || supports == SupportCase::pinned_spring) {
            ExpectLimits(given, {{"spring", {0, 100}, {-1, 101}, "0 to 100", "%"}});
        } else {
            ExpectGood(Member(given), "spring", {-1, 101});
        }
    }
}

TEST(Limits, OfLateralBuckling)
{
    ExpectLimits("ltb=0", {{"ltb", {0, 1}, {-1, 2}, "0 or 1", ""}});
    ExpectGood(Member("ltb=0 c1=0 cmanual=-1"), "ltbk", {0});
    ExpectGood(Member("family=23"), "ltb", {7});  // boxes do not buckle laterally
    ExpectLimits("ltb=1 loadlevel=1", {{"ltbk", {0.001}, {0, kInf}, "greater than 0", ""},
                                       {"restraints", {0, 5}, {-1, 6}, "0 to 5", ""},
                                       {"loadlevel", {1, 4}, {0, 5}, "1 to 4", ""},
                                       {"za", {kInf}, {}, "", ""},
                                       {"ltbcurve", {2, 3}, {1, 4}, "2 or 3", ""}});
    ExpectLimits("ltb=1 loadlevel=4", {{"za", {-1e6}, {kInf}, "a finite number", "mm"}});
    ExpectGood(Member("ltb=1 family=5"), "ltbcurve", {1});  // the general curve only
    ExpectGood(Member("ltb=1 cmanual=0"), "c1", {0});
    ExpectLimits("ltb=1 cmanual=-1", {{"c1", {0.001}, {0, kInf}, "greater than 0", ""},
                                      {"c2", {-9}, {kInf}, "a finite number", ""},
                                      {"c3", {-9}, {kInf}, "a finite number", ""}});
}

constexpr std::string_view kCategories = "0 (G), 1 (Q1) or 2 (Q2)";
constexpr std::string_view kDirections = "0 (y) or 1 (z)";

// Category and direction of a row with a load; not of an empty one, and in the basic loads not of
// one that is not ticked.
void ExpectRow(const std::string& load, const std::string& type, const std::string& direction,
               const std::string& ticked)
{
    const Limit category = {type, {0, 1, 2}, {-1, 3}, kCategories, ""};
    for (const char* combination : {"loadcomb=0 ", "loadcomb=5 "}) {
        const std::string counted = combination + load + "=2 " + ticked + "=1 ";
        ExpectLimits(counted, {category});
        ExpectGood(Member(combination + load + "=0 " + ticked + "=1"), type, {3});
        if (!direction.empty()) {
            ExpectLimits(counted, {{direction, {0, 1}, {-1, 2}, kDirections, ""}});
        }
    }
    ExpectLimits("loadcomb=0 " + load + "=2 " + ticked + "=0", {category});
    ExpectGood(Member("loadcomb=5 " + load + "=2 " + ticked + "=0"), type, {3});
}

std::string At(const std::string& name, int row)
{
    return name + "[" + std::to_string(row) + "]";
}

TEST(Limits, OfLoadRows)
{
    ExpectLimits("", {{"loadmode", {0, 1}, {-1, 2}, "0 (end forces) or 1 (loads)", ""},
                      {"selfweight", {0, 1}, {-1, 2}, "0 or 1", ""}});
    for (const int row : {1, 2, 3}) {
        ExpectLimits("", {{At("nload", row), {-1e6}, {kInf}, "a finite number", "kN"}});
        ExpectRow(At("nload", row), At("ntype", row), "", At("nchecked", row));
    }
    for (const int row : {1, 4}) {
        ExpectLimits("", {{At("qload", row), {-1e6}, {kInf}, "a finite number", "kN/m"}});
        ExpectRow(At("qload", row), At("qtype", row), At("qdir", row), At("qchecked", row));
    }
    for (const int row : {1, 8}) {
        ExpectLimits(At("pmkind", row) + "=0",
                     {{At("pm", row), {-1e6}, {kInf}, "a finite number", "kN"}});
        ExpectLimits(At("pmkind", row) + "=1",
                     {{At("pm", row), {-1e6}, {kInf}, "a finite number", "kNm"}});
        ExpectRow(At("pm", row), At("pmtype", row), At("pmdir", row), At("pmchecked", row));
        ExpectLimits(At("pm", row) + "=2",
                     {{At("pmkind", row), {0, 1}, {-1, 2}, "0 (force) or 1 (moment)", ""},
                      {At("pmx", row), {0, 5}, {-0.01, 5.01}, "0 to l", "m"}});
    }
}

TEST(Limits, OfTrapezoidalLoads)
{
    for (const int row : {1, 3}) {
        for (const std::string end : {"qt1", "qt2"}) {  // a triangle either way
            const std::string load = At(end, row);
            const std::string place = At("qtx2", row) + "=5 ";
            ExpectLimits("", {{load, {-1e6}, {kInf}, "a finite number", "kN/m"}});
            ExpectRow(load, At("qttype", row), At("qtdir", row), At("qtchecked", row));
            ExpectLimits(place + load + "=2",
                         {{At("qtx1", row), {0, 5}, {-0.01, 5.01}, "0 to l", "m"},
                          {At("qtx2", row), {0, 5}, {-0.01, 5.01}, "0 to l", "m"}});
            ExpectGood(Member("l=5"), At("qtx1", row), {-1, 6});
        }
    }
}

TEST(Limits, OfEndForces)
{
    for (const std::string name : {"ne", "my1", "my2", "mz1", "mz2", "vy1", "vy2", "vz1", "vz2"}) {
        ExpectLimits("loadmode=0",
                     {{name, {-1e6}, {kInf}, "a finite number", name[0] == 'm' ? "kNm" : "kN"}});
        ExpectGood(Member("loadmode=1"), name, {kInf});
    }
    ExpectGood(Member("loadmode=0"), "nload[1]", {kInf});
}

// Two sections beside each row of point loads, loaded or not, or up to three points of the user's.
TEST(Limits, OfCheckPoints)
{
    for (const char* given : {"cpmode=0 pm[8]=0", "cpmode=0 pm[8]=1 loadmode=0",
                              "cpmode=0 pm[8]=1 loadcomb=5 pmchecked[8]=0", "cpmode=0 pm[8]=1"}) {
        ExpectLimits(given, {{"pmx[8]", {0, 5}, {-0.01, 5.01}, "0 to l", "m"}});
    }
    ExpectGood(Member("cpmode=1 pm[8]=0"), "pmx[8]", {99});
    ExpectLimits("cpmode=1", {{"cpcount", {1, 2, 3}, {0, 4}, "1 to 3", ""}});
    ExpectGood(Member("cpmode=0"), "cpcount", {9});
    for (int count = 1; count <= 3; ++count) {
        const std::string given = "cpmode=1 cpcount=" + std::to_string(count);
        for (int k = 1; k <= 3; ++k) {
            if (k <= count) {
                ExpectLimits(given, {{At("cp", k), {0, 5}, {-0.01, 5.01}, "0 to l", "m"}});
            } else {
                ExpectGood(Member(given), At("cp", k), {99});
            }
        }
    }
}

TEST(Limits, OfSections)
{
    const double rows = Delivered().tables[static_cast<std::size_t>(TableOf(Member()))].rows;
    ExpectLimits("family=1", {{"row.hea", {0, rows - 1}, {-1, rows}, "a row of the table", ""}});
    ExpectGood(Member("family=21"), "row.hea", {-1});
    ExpectLimits("family=21", {{"p21.isth", {0.001}, {0, kInf}, "greater than 0", "mm"}});
    ExpectGood(Member("family=1"), "p21.isth", {0});
    ExpectLimits("family=41", {{"p41.opn", {1, 3}, {0, 4}, "1 to 3", ""}});
    ExpectLimits("family=24", {{"p24.hsqc", {0}, {-1, kInf}, "0 and more", "mm"},
                               {"hsqopt", {0, 1}, {-1, 2}, "0 or 1", ""}});
    ExpectLimits("family=24 hsqopt=0", {{"flangeload", {50, 90}, {49.9, 90.1}, "50 to 90", "%"}});
    ExpectGood(Member("family=24 hsqopt=1"), "flangeload", {99});
    ExpectGood(Member("family=25 hsqopt=0"), "flangeload", {99});
    ExpectGood(Member("family=1"), "hsqopt", {7});
    ExpectLimits("family=10", {{"lopt", {1, 2}, {0, 3}, "1 or 2", ""}});
    ExpectGood(Member("family=1"), "lopt", {7});
}

// More faults than there is room for: the first of them.
TEST(Limits, TheFirstSixteenFaultsAreTold)
{
    Member s(
        "gammam0=0 gammam1=0 neta=0 method=0 e=0 deflimity=0 deflimitz=0 webstiff=7 endstiff=7 "
        "webstiffa=0 bcy=9 bcz=9 ly=-1 lz=-1 ltb=1 ltbk=0 restraints=9 loadlevel=9");
    const InputFaults faults = Validate(s, &Delivered());
    EXPECT_EQ(faults.count, 16);
    EXPECT_EQ(faults.fault[0].quantity, "gammam0");
    EXPECT_EQ(faults.fault[15].quantity, "restraints");
}

// A trapezoidal load is half typed until it ends behind its start.
TEST(Limits, TrapezoidalLoadsEndBehindTheirStart)
{
    for (const int row : {1, 3}) {
        for (const std::string end : {"qt1", "qt2"}) {
            const std::string from = At("qtx1", row) + "=2 " + At("qtx2", row) + "=";
            const std::string load = At(end, row) + "=1 ";
            const auto count = [&](const std::string& fields) {
                return Unfinished(Member(fields)).count;
            };
            EXPECT_EQ(count(load + from + "2"), 1);
            EXPECT_EQ(Unfinished(Member(load + from + "2")).fault[0].row, row);
            EXPECT_EQ(count(load + from + "2.01"), 0);
            EXPECT_EQ(count(from + "2"), 0);
            EXPECT_EQ(count(load + from + "2 loadmode=0"), 0);
            EXPECT_EQ(count(load + from + "2 loadcomb=5 " + At("qtchecked", row) + "=0"), 0);
        }
    }
}

}  // namespace
}  // namespace kestrum
