#include "app/optimize.h"

#include "app/batch.h"
#include "app/unloaded_member.h"
#include "support/members.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <span>
#include <sstream>
#include <tuple>
#include <utility>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

#if defined(KESTRUM_SANITIZED)
constexpr int kMembers = 20;
#else
constexpr int kMembers = 300;
#endif

SectionPool PoolOf(const std::vector<std::string>& words,
                   const std::vector<std::string>& ranges = {}, const std::string& keep = {})
{
    SectionPool pool;
    for (const std::string& word : words) {
        EXPECT_EQ(pool.Add(Delivered(), word), "");
    }
    for (const std::string& range : ranges) {
        EXPECT_EQ(pool.Range(range), "");
    }
    if (!keep.empty()) {
        EXPECT_EQ(pool.Keep(keep), "");
    }
    EXPECT_EQ(pool.Finish(Delivered()), "");
    return pool;
}

OptimizeAnswer Choose(const SectionPool& pool, const ProjectState& s,
                      const OptimizeWishes& wishes = {})
{
    Optimizer optimizer(Delivered(), pool, wishes);
    LoadRater member(Delivered(), s);
    SectionRater* group[] = {&member};
    return optimizer.Choose(group);
}

// A beam of 6 m with 12 kN/m that is held laterally.
ProjectState Beam()
{
    ProjectState s = UnloadedMember(Delivered());
    SetFields(s, "l=6 qload[1]=12 ltb=0");
    return s;
}

std::string Number(double value)
{
    std::string text;
    AppendNumber(text, value);
    return text;
}

// --- Brute force ---------------------------------------------------------------------------------

class Members {
public:
    explicit Members(unsigned seed) : random_(seed) {}

    double Between(double least, double most)
    {
        const double value = std::uniform_real_distribution<>(least, most)(random_);
        return std::round(value * 100) / 100;
    }
    template <class T> const T& OneOf(const std::vector<T>& all)
    {
        return all[std::uniform_int_distribution<std::size_t>(0, all.size() - 1)(random_)];
    }

    // Cells of a line below kColumns.
    std::string Line()
    {
        std::string line = Number(Between(1, 12));
        line += "," + OneOf<std::string>({"S235", "S275", "S355"});
        line += "," + OneOf<std::string>({"0", "1"}) + "," + OneOf<std::string>({"0", "1", "3"});
        const bool column = Between(0, 1) < 0.5;
        line += "," + Number(column ? Between(10, 800) : 0) + "," + Number(Between(0.5, 25));
        return line + "," + Number(column ? Between(0, 20) : 0) + "," +
               OneOf<std::string>({"A", "B"});
    }

private:
    std::mt19937 random_;
};

constexpr const char* kColumns = "l,steel,ltb,restraints,nload[1],qload[1],pm[1],method";

struct Rated {
    std::string name;
    double mass, ir;
    bool passes;
};

// Every section of the pool through the batch, a line each.
std::vector<Rated> BruteForce(const std::vector<std::string>& names, const std::string& line,
                              Bases bases)
{
    const ProjectState base = UnloadedMember(Delivered());
    AnswerForm form;
    const bool both = bases != Bases::program;
    EXPECT_EQ(form.Choose(TableForm::csv,
                          both ? std::vector<std::string>{"weight", "ir_standard"}
                               : std::vector<std::string>{"weight"},
                          &Delivered()),
              "");
    MemberColumns columns;
    EXPECT_EQ(columns.TakeHeader(std::string("section,") + kColumns), "");
    BatchWorker worker(Delivered(), base, form, Manner(Assignment::checked));
    BatchChunk chunk;
    chunk.columns = &columns;
    chunk.row = chunk.line = 1;
    chunk.members = names.size();
    for (const std::string& name : names) {
        chunk.lines += name + "," + line + "\n";
    }
    worker.Work(chunk);
    EXPECT_EQ(chunk.fault, "");

    std::vector<Rated> all;
    std::istringstream answers(chunk.out);
    std::string answer, member;
    for (const std::string& name : names) {
        std::getline(answers, answer);
        Verdict verdict{};
        Rated rated{name, 0, 0, false};
        EXPECT_TRUE(form.ReadBack(answer, member, verdict, rated.ir)) << answer;
        rated.passes = verdict == Verdict::within;
        // The last cells hold no quotes.
        std::vector<std::string> last;
        for (std::string rest = answer; last.size() < (both ? 2U : 1U);) {
            const std::size_t comma = rest.rfind(',');
            last.insert(last.begin(), rest.substr(comma + 1));
            rest.resize(comma);
        }
        rated.mass = last[0].empty() ? 0 : std::stof(last[0]);
        if (both) {
            const double standard = last[1].empty() ? 2 : std::stod(last[1]);
            rated.passes = rated.passes && standard <= 1;
            rated.ir = std::max(rated.ir, standard);
        }
        all.push_back(rated);
    }
    std::erase_if(all, [](const Rated& rated) { return !rated.passes; });
    std::stable_sort(all.begin(), all.end(), [](const Rated& a, const Rated& b) {
        return std::tie(a.mass, a.ir) < std::tie(b.mass, b.ir);
    });
    return all;
}

std::vector<std::string> NamesOf(const SectionPool& pool)
{
    std::vector<std::string> names;
    for (const Candidate& candidate : pool.candidates()) {
        ProjectState s = UnloadedMember(Delivered());
        pool.Apply(Delivered(), s, candidate);
        names.push_back(pool.NameOf(Delivered(), s, candidate));
    }
    return names;
}

TEST(Optimize, EqualsEverySectionThroughTheBatch)
{
    Members members(7);
    int found = 0;
    for (int i = 0; i < kMembers; ++i) {
        const Bases bases = i % 6 == 0 ? Bases::both : Bases::program;
        const std::string line = members.Line();
        const std::vector<std::string> words = {
            members.OneOf<std::string>({"IPE", "HEA", "HEB", "UPE", "INP", "UC", "PFC", "J"}),
            members.OneOf<std::string>(
                {"SHS 100x5", "HE 300 B", "IPE 220", "CHS 168.3x8", "UNP 200"})};
        SCOPED_TRACE(line + " from " + words[0] + ", " + words[1]);
        const SectionPool pool = PoolOf(words);
        const std::vector<Rated> expected = BruteForce(NamesOf(pool), line, bases);

        ProjectState s = UnloadedMember(Delivered());
        MemberColumns columns;
        ASSERT_EQ(columns.TakeHeader(kColumns), "");
        ASSERT_EQ(columns.Apply(Delivered(), s, line, Manner(Assignment::checked)), "");
        OptimizeWishes wishes;
        wishes.bases = bases;
        wishes.top = 3;
        const OptimizeAnswer answer = Choose(pool, s, wishes);
        ASSERT_EQ(answer.found.size(), std::min<std::size_t>(3, expected.size()));
        for (std::size_t k = 0; k < answer.found.size(); ++k) {
            EXPECT_EQ(answer.found[k].name, expected[k].name);
            EXPECT_EQ(answer.found[k].ir, expected[k].ir);
            EXPECT_EQ(static_cast<float>(answer.found[k].figures.mass), expected[k].mass);
        }
        EXPECT_EQ(answer.found.empty(), answer.best.has_value());
        found += answer.found.empty() ? 0 : 1;
    }
    EXPECT_GT(found, kMembers / 3);
}

// --- By hand -------------------------------------------------------------------------------------

// q = 12 kN/m over 6 m: M = 12 * 36 / 8 = 54 kNm, with the user factors 1 of loadcomb 5 and S355
// needs Wpl,y = 54e6 / 355 = 152.1e3 mm3: IPE 180 has 166.4e3, IPE 160 123.9e3 (EN
// 1993-1-1, 6.2.5).
TEST(Optimize, TakesTheFirstModulusThatIsEnough)
{
    ProjectState s = Beam();
    SetFields(s, "loadcomb=5 fykindex=S355");
    const OptimizeAnswer answer = Choose(PoolOf({"IPE"}), s);
    ASSERT_EQ(answer.found.size(), 1U);
    EXPECT_EQ(answer.found[0].name, "IPE 180");
    EXPECT_NEAR(answer.found[0].ir, 54e6 / 355 / 166.4e3, 2e-3);
    ASSERT_TRUE(answer.lighter);
    EXPECT_EQ(answer.lighter->name, "IPE 160");
    EXPECT_NEAR(answer.lighter->ir, 54e6 / 355 / 123.9e3, 3e-3);
    EXPECT_THAT(WhyText(*answer.lighter, Bases::both), HasSubstr("6.2.5"));
}

// With S235 the same beam needs 54e6 / 235 = 229.8e3 mm3: IPE 220, 285.4e3 (IPE 200 has 220.6e3).
TEST(Optimize, TakesTheSteelsThatAreNamed)
{
    ProjectState s = Beam();
    SetFields(s, "loadcomb=5");
    const auto grade = [](std::string_view name) {
        const auto& list = Delivered().materials;
        const auto at = std::find_if(list.begin(), list.end(),
                                     [&](const Material& m) { return m.name == name; });
        return static_cast<i16>(at - list.begin());
    };
    OptimizeWishes wishes;
    wishes.steels = {grade("S235")};
    const SectionPool pool = PoolOf({"IPE"});
    OptimizeAnswer answer = Choose(pool, s, wishes);
    ASSERT_EQ(answer.found.size(), 1U);
    EXPECT_EQ(answer.found[0].name, "IPE 220");
    EXPECT_EQ(answer.found[0].steelname, "S235");
    wishes.steels = {grade("S235"), grade("S355")};
    wishes.top = 3;
    answer = Choose(pool, s, wishes);
    ASSERT_EQ(answer.found.size(), 3U);
    EXPECT_EQ(answer.found[0].name + answer.found[0].steelname, "IPE 180S355");
    EXPECT_EQ(answer.found[1].name + answer.found[1].steelname, "IPE 200S355");
    EXPECT_EQ(answer.found[2].name + answer.found[2].steelname, "IPE 220S235");  // named first
    ProjectState given = s;
    Optimizer(Delivered(), pool, wishes).Give(given, answer.found[0]);
    EXPECT_EQ(given.fykindex, grade("S355"));
    EXPECT_EQ(given.fyk, 355);
    EXPECT_EQ(given.family, 4);
}

TEST(Optimize, KeepsToTheSizesAsked)
{
    OptimizeWishes wishes;
    wishes.max_h = 150;
    const SectionPool pool = PoolOf({"IPE", "HEB"});
    const OptimizeAnswer low = Choose(pool, Beam(), wishes);
    ASSERT_EQ(low.found.size(), 1U);
    EXPECT_LE(low.found[0].figures.h, 150);
    EXPECT_THAT(low.found[0].name, StartsWith("HEB"));
    wishes.max_h = 70;
    const OptimizeAnswer none = Choose(pool, Beam(), wishes);
    EXPECT_TRUE(none.found.empty());
    EXPECT_EQ(none.message, "no section is within the sizes asked");
    EXPECT_EQ(none.beyond, none.offered);
}

TEST(Optimize, NamesTheNearestWhereNonePasses)
{
    ProjectState s = Beam();
    SetFields(s, "qload[1]=5000");
    const OptimizeAnswer answer = Choose(PoolOf({"IPE"}), s);
    EXPECT_TRUE(answer.found.empty());
    ASSERT_TRUE(answer.best);
    EXPECT_EQ(answer.best->name, "IPE 600");
    EXPECT_GT(answer.best->ir, 1);
    EXPECT_THAT(answer.message, StartsWith("no section passes; IPE 600 comes nearest: "));
}

// What is no ratio never passes: nothing acts, a load that the family does not carry.
TEST(Optimize, TakesNoSectionWithoutARatio)
{
    ProjectState s = Beam();
    SetFields(s, "qload[1]=0");
    const OptimizeAnswer idle = Choose(PoolOf({"IPE"}), s);
    EXPECT_TRUE(idle.found.empty());
    EXPECT_THAT(idle.message, HasSubstr("none has a ratio"));
    EXPECT_THAT(idle.message, HasSubstr("nothing acts"));
    SetFields(s, "qload[1]=2 qload[2]=1 qdir[2]=0");  // along y
    const OptimizeAnswer dropped =
        Choose(PoolOf({"24"}, {"p24.isth=200", "p24.istb1=100", "p24.istb2=300"}), s);
    EXPECT_TRUE(dropped.found.empty());
    EXPECT_THAT(dropped.message, HasSubstr("loads dropped"));
}

// --- Laws ----------------------------------------------------------------------------------------

TEST(Optimize, MoreFreedomIsNeverHeavier)
{
    Members members(11);
    const SectionPool small = PoolOf({"IPE"}), large = PoolOf({"IPE", "HEA", "RHS"});
    for (int i = 0; i < kMembers / 10; ++i) {
        ProjectState s = UnloadedMember(Delivered());
        MemberColumns columns;
        ASSERT_EQ(columns.TakeHeader(kColumns), "");
        const std::string line = members.Line();
        SCOPED_TRACE(line);
        ASSERT_EQ(columns.Apply(Delivered(), s, line, Manner(Assignment::checked)), "");
        OptimizeWishes wishes;
        wishes.bases = Bases::program;
        const auto mass = [&](const SectionPool& pool) {
            const OptimizeAnswer answer = Choose(pool, s, wishes);
            return answer.found.empty() ? HUGE_VAL : answer.found[0].figures.mass;
        };
        EXPECT_LE(mass(large), mass(small));
        double heavier = HUGE_VAL;
        for (const double max_ir : {0.5, 0.7, 0.9, 1.0}) {
            wishes.max_ir = max_ir;
            const OptimizeAnswer answer = Choose(small, s, wishes);
            EXPECT_LE(mass(small), heavier);
            heavier = mass(small);
            if (!answer.found.empty()) {
                EXPECT_LE(answer.found[0].ir, max_ir);
                wishes.top = 5;
                const OptimizeAnswer five = Choose(small, s, wishes);
                EXPECT_EQ(five.found[0].name, answer.found[0].name);
                EXPECT_TRUE(std::is_sorted(
                    five.found.begin(), five.found.end(),
                    [](const auto& a, const auto& b) { return a.figures.mass < b.figures.mass; }));
                wishes.top = 1;
            }
        }
    }
}

TEST(Optimize, OneSectionForAGroupPassesForEach)
{
    ProjectState light = Beam(), heavy = Beam(), column = Beam();
    SetFields(light, "qload[1]=2");
    SetFields(heavy, "qload[1]=30");
    SetFields(column, "qload[1]=1 nload[1]=400 l=8");
    const SectionPool pool = PoolOf({"IPE", "HEA"});
    const OptimizeWishes wishes;
    Optimizer optimizer(Delivered(), pool, wishes);
    LoadRater a(Delivered(), light), b(Delivered(), heavy), c(Delivered(), column);
    SectionRater* group[] = {&a, &b, &c};
    const OptimizeAnswer answer = optimizer.Choose(group);
    ASSERT_EQ(answer.found.size(), 1U);
    ASSERT_EQ(answer.found[0].answers.size(), 3U);
    double alone = 0;
    for (SectionRater* member : group) {
        ProjectState s = member->member();
        optimizer.Give(s, answer.found[0]);
        LoadRater rater(Delivered(), s);
        const RatedCandidate present = optimizer.Present(rater);
        EXPECT_TRUE(present.passes);
        EXPECT_LE(present.ir, answer.found[0].ir);
        SectionRater* one[] = {member};
        alone = std::max(alone, optimizer.Choose(one).found.at(0).figures.mass);
    }
    EXPECT_GE(answer.found[0].figures.mass, alone);
}

// Each way of asking finds the section that is the least of all that pass in what it asks for.
TEST(Optimize, ChoosesByWhatIsAsked)
{
    SectionPool pool;
    ASSERT_EQ(
        pool.AddPrices(Delivered(), "section,price/kg\nIPE,2\nHEA,1\nHE 160 A,0.5\n", "p.csv"), "");
    ASSERT_EQ(pool.Finish(Delivered()), "");
    OptimizeWishes all;
    all.bases = Bases::program;
    all.top = 1000;
    const OptimizeAnswer passing = Choose(pool, Beam(), all);
    ASSERT_GT(passing.found.size(), 20U);
    const auto figure = [](Objective by, const SectionFigures& f) {
        return by == Objective::depth     ? f.h
               : by == Objective::surface ? f.surface
               : by == Objective::price   ? f.price.value()
                                          : f.mass;
    };
    for (const Objective by :
         {Objective::mass, Objective::depth, Objective::price, Objective::surface}) {
        OptimizeWishes wishes = all;
        wishes.by = by;
        wishes.top = 1;
        const OptimizeAnswer answer = Choose(pool, Beam(), wishes);
        ASSERT_EQ(answer.found.size(), 1U);
        for (const RatedCandidate& other : passing.found) {
            EXPECT_GT(figure(by, other.figures), 0) << other.name;
            EXPECT_LE(figure(by, answer.found[0].figures), figure(by, other.figures)) << other.name;
        }
    }
    // 2/kg of an IPE 100 with 8.1 kg/m; 1/kg of a HE 100 A with 16.7 kg/m; 0.5/kg of a HE 160 A.
    for (const RatedCandidate& rated : passing.found) {
        const double rate = rated.name == "HEA 160" ? 0.5 : rated.name.starts_with("HEA") ? 1 : 2;
        EXPECT_DOUBLE_EQ(rated.figures.price.value(), rate * rated.figures.mass) << rated.name;
    }
}

// --- Grids ---------------------------------------------------------------------------------------

// Counts ratings; without the bounds that leave sections out.
class CountingRater : public CaseRater {
public:
    CountingRater(const ProjectState& member, std::span<CaseRows> cases, bool bounded)
        : CaseRater(Delivered(), member, cases), bounded_(bounded)
    {
    }
    bool MayPass(const SectionFigures& figures, double strength, double limit) const override
    {
        return !bounded_ || CaseRater::MayPass(figures, strength, limit);
    }
    MemberAnswer Rate(ProjectState& s, Bases bases, double max_ir, bool thorough) override
    {
        ++ratings;
        return CaseRater::Rate(s, bases, max_ir, thorough);
    }
    int ratings = 0;

private:
    bool bounded_;
};

std::vector<CaseRows> RandomCases(Members& members, double l, double size)
{
    std::vector<CaseRows> cases(2);
    for (CaseRows& rows : cases) {
        const double n = members.Between(-size, size), m0 = members.Between(-size, size) / 5,
                     m1 = members.Between(-size, size) / 5, z = members.Between(0, size) / 100;
        rows.name = "U";
        for (int i = 0; i <= 4; ++i) {
            const double t = i / 4.0;
            rows.stations.push_back({.x = t * l,
                                     .n = n,
                                     .vy = 0,
                                     .vz = (m1 - m0) / l,
                                     .my = m0 + t * (m1 - m0),
                                     .mz = z,
                                     .mx = 0});
            rows.lines.push_back(1);
        }
    }
    return cases;
}

// The bounds leave out nothing that would pass.
TEST(Optimize, APrunedGridGivesWhatTheWholeGridGives)
{
    Members members(23);
    const SectionPool pool =
        PoolOf({"21", "23", "CHS", "28"},
               {"p21.isth=100:400:100", "p21.istb1=100,200", "p21.isttw=6,10", "p21.isttf=8,15,25",
                "p23.isth=100,200", "p23.istb1=100,200", "p23.isttw=6,10", "p23.isttf=10",
                "p31.istd=tubes:60:200", "p31.isttw=5,10", "p28.isth=50,100", "p28.isttw=10,20"},
               "p23.ista");
    int bounded_ratings = 0, ratings = 0, found = 0;
    for (int i = 0; i < kMembers / 10; ++i) {
        ProjectState s = UnloadedMember(Delivered());
        SetFields(s, "l=4 ltb=0 p23.ista=0");
        const std::vector<CaseRows> cases = RandomCases(members, s.l, members.Between(50, 2500));
        OptimizeWishes wishes;
        wishes.bases = i % 3 == 0 ? Bases::both : i % 3 == 1 ? Bases::program : Bases::standard;
        wishes.max_ir = i % 2 == 0 ? 0.8 : 1.0;
        wishes.top = 2;
        OptimizeAnswer answer[2];
        for (const bool bounded : {false, true}) {
            std::vector<CaseRows> own = cases;
            CountingRater member(s, own, bounded);
            SectionRater* group[] = {&member};
            answer[bounded ? 1 : 0] = Optimizer(Delivered(), pool, wishes).Choose(group);
            (bounded ? bounded_ratings : ratings) += member.ratings;
        }
        ASSERT_EQ(answer[0].found.size(), answer[1].found.size());
        for (std::size_t k = 0; k < answer[0].found.size(); ++k) {
            EXPECT_EQ(answer[0].found[k].name, answer[1].found[k].name);
            EXPECT_EQ(answer[0].found[k].ir, answer[1].found[k].ir);
        }
        ASSERT_EQ(answer[0].lighter.has_value(), answer[1].lighter.has_value());
        if (answer[0].lighter) {
            EXPECT_EQ(answer[0].lighter->name, answer[1].lighter->name);
        }
        EXPECT_EQ(answer[0].message, answer[1].message);
        found += answer[0].found.empty() ? 0 : 1;
    }
    EXPECT_GT(found, 0);
    EXPECT_LT(bounded_ratings, ratings * 3 / 4);
}

// 3 heights, 2 widths, 2 webs, the 3 plates from 8 to 12 mm of which the flange is one.
TEST(SectionPool, HoldsEveryCombination)
{
    const SectionPool pool = PoolOf({"21"}, {"p21.isth=200:300:50", "p21.istb1=100,150",
                                             "p21.isttw=5,6", "p21.isttf=plates:8:12"});
    EXPECT_EQ(pool.candidates().size(), 3U * 2 * 2 * 3);
    ProjectState s = UnloadedMember(Delivered());
    ASSERT_TRUE(pool.Apply(Delivered(), s, pool.candidates().back()));
    EXPECT_EQ(s.family, 21);
    EXPECT_EQ(s.p21.isth, 300);
    EXPECT_EQ(s.p21.istb1, 150);
    EXPECT_EQ(s.p21.isttw, 6);
    EXPECT_EQ(s.p21.isttf, 12);
    EXPECT_EQ(pool.NameOf(Delivered(), s, pool.candidates().back()), "I 300x150x6x12");
    // A of two flanges 150 x 12 and a web 276 x 6.
    EXPECT_EQ(FiguresOf(Delivered(), s)->area, 2 * 150 * 12 + 276 * 6);
}

TEST(SectionPool, KeepsTheDimensionsOfTheMember)
{
    const SectionPool pool = PoolOf({"28"}, {"p28.isttw=10,20"}, "p28.isth");
    ProjectState s = UnloadedMember(Delivered());
    SetFields(s, "p28.isth=77");
    ASSERT_TRUE(pool.Apply(Delivered(), s, pool.candidates().front()));
    EXPECT_EQ(s.p28.isth, 77);
    EXPECT_EQ(s.p28.isttw, 10);
}

TEST(SectionPool, HoldsASectionOnce)
{
    EXPECT_EQ(PoolOf({"IPE 300", "ipe", "IPE300", "4"}).candidates().size(),
              PoolOf({"IPE"}).candidates().size());
    EXPECT_EQ(PoolOf({"HEB200", "HE 200 B"}).candidates().size(), 1U);
    EXPECT_EQ(PoolOf({"CHS 114.3x5", "CHS 114.3X5.0", "CHS 114.3x6.3"}).candidates().size(), 2U);
}

TEST(SectionPool, RefusesSizesThatAreNone)
{
    for (const auto& [range, why] : {std::pair("p21.isth=300:200:50", "expected FROM:TO:STEP"),
                                     {"p21.isth=200:300:0", "expected FROM:TO:STEP"},
                                     {"p21.isth=200:300:nan", "expected FROM:TO:STEP"},
                                     {"p21.isth=1e9:2e9:1", "more than 255 sizes"},
                                     {"p21.isth=inf", "expected FROM:TO:STEP"},
                                     {"p21.isth=10", "h >= 20"},
                                     {"p21.isth=plates:200:300", "no sizes"}}) {
        SectionPool pool;
        ASSERT_EQ(pool.Add(Delivered(), "21"), "");
        ASSERT_EQ(pool.Range(range), "");
        ASSERT_EQ(pool.Range("p21.istb1=100"), "");
        EXPECT_THAT(pool.Finish(Delivered()), HasSubstr(why)) << range;
    }
    SectionPool pool;
    EXPECT_THAT(pool.Range("p21.isth"), HasSubstr("expected FIELD="));
    ASSERT_EQ(pool.Range("p21.isth=200"), "");
    EXPECT_EQ(pool.Range("p21.isth=300"), "p21.isth: is given twice");
    EXPECT_EQ(pool.Finish(Delivered()), "the pool is empty");
}

TEST(SectionPool, NamesTheLineOfAPriceAtFault)
{
    for (const auto& [text, why] :
         {std::pair("section;price/kg\nIPE;1,2\nFOO;1\n", "p.csv:3: FOO: no such family"),
          {"price/kg\n1\n", "p.csv:1: no column section"},
          {"section,cost\nIPE,1\n", "p.csv:1: column \"cost\""},
          {"section,price/kg,price/m\nIPE,1,2\n", "p.csv:1: column \"price/m\""},
          {"section,price/kg\n\nIPE,-1\n", "p.csv:3: price: \"-1\" is not a number of 0 or more"},
          {"section,price/kg\nIPE,nan\n", "p.csv:2: price: \"nan\" is not a number of 0 or more"},
          {"section,price/kg\nIPE\n", "p.csv:2: fewer cells than columns"},
          {"section,price/kg\nIPE,1,2\n", "p.csv:2: more cells than columns"},
          {"section,price/kg\nIPE,1\n4,2\n", "p.csv:3: 4: has a price already"},
          {"section,price/kg,steel\nIPE,1,S999\n", "p.csv:2: steel: \"S999\""},
          {"section,price/kg\n\"IPE,1\n", "p.csv:2: a quote is not closed"},
          {"", "p.csv:1: "}}) {
        SectionPool pool;
        EXPECT_THAT(pool.AddPrices(Delivered(), text, "p.csv"), HasSubstr(why)) << text;
    }
}

// What names a section or a steel closer comes first.
TEST(SectionPool, TakesTheClosestPrice)
{
    SectionPool pool;
    ASSERT_EQ(pool.AddPrices(Delivered(),
                             "section,price/m,steel\nIPE,1,\nIPE,2,S355\nIPE 300,3,\n"
                             "HEA,4,S235\n",
                             "p.csv"),
              "");
    ASSERT_EQ(pool.Finish(Delivered()), "");
    const auto price = [&](std::string_view name, std::string_view steel) {
        for (const Candidate& candidate : pool.candidates()) {
            if (pool.NameOf(Delivered(), {}, candidate) == name) {
                const auto& list = Delivered().materials;
                const auto at = std::find_if(list.begin(), list.end(),
                                             [&](const Material& m) { return m.name == steel; });
                const auto found = pool.PriceOf(candidate, static_cast<int>(at - list.begin()));
                return found ? found->value : -1;
            }
        }
        return -2.0;
    };
    EXPECT_EQ(price("IPE 200", "S235"), 1);
    EXPECT_EQ(price("IPE 200", "S355"), 2);
    EXPECT_EQ(price("IPE 300", "S355"), 3);
    EXPECT_EQ(price("HEA 200", "S235"), 4);
    EXPECT_EQ(price("HEA 200", "S355"), -1);
}

}  // namespace
}  // namespace kestrum
