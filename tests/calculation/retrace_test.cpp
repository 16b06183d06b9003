// Every equation of a report, calculated from its printed numbers, gives its printed result, and
// that is the value of the record.

#include "calculation/calculation_report.h"
#include "calculation/example_report.h"

#include "calculation/check_equations.h"
#include "core/check_text.h"
#include "document/markdown_writer.h"
#include "standard/lateral_study.h"
#include "standard/standard.h"
#include "support/members.h"
#include "support/printed_formula.h"
#include "support/report_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

// Grade S355, no national annex.
constexpr const char* kSettings = "annexcode=EU fykindex=2 e=210000 gammam0=1 gammam1=1 neta=1.2 "
                                  "psi1index=6 psi2index=2 deflimity=300 deflimitz=300 ";

std::string MarkdownOf(const ProjectState& s)
{
    return WriteMarkdown(DocumentOf(s));
}

std::vector<Printed> ReportOf(const ProjectState& s)
{
    return PrintedOf(MarkdownOf(s));
}

TEST(Retrace, EveryEquationOfTheExamplesGivesItsResult)
{
    std::size_t equations = 0;
    for (const char* const folder : {"/examples", "/examples/deviations"}) {
        for (const auto& entry : fs::directory_iterator(std::string(KESTRUM_SOURCE) + folder)) {
            if (entry.path().extension() != ".kst") {
                continue;
            }
            SCOPED_TRACE(entry.path().filename().string());
            for (const Printed& printed : ReportOf(ProjectOf(entry.path()))) {
                if (printed.calculation.empty()) {
                    continue;
                }
                ++equations;
                const double result = PocketCalculator(printed.value).Value();
                EXPECT_LE(std::abs(PocketCalculator(printed.calculation).Value() - result),
                          LastDigit(printed.value) * (1 + 1e-9))
                    << printed.symbol << " = " << printed.calculation << " = " << printed.value;
            }
        }
    }
    EXPECT_GT(equations, 1500U);
}

// What may stand without a formula: values that are entered or found by a method, those of a table,
// and those that a limit decides. The remark or the clause says so.
bool MayStandAlone(const Printed& printed)
{
    static const std::map<std::string, std::vector<std::string>> kReasons = {
        {"χ_LT", {"slenderness of", "no lateral torsional buckling", "no reduction"}},
        {"χ_T", {"6.3.1.2 (4)"}},
        {"σ_cr", {"tripping"}},
        {"λ̅_0", {"does not twist", "D226"}},
        {"C_mLT", {"does not twist", "within its limit"}},
        {"M_f,Rd", {"the whole web is compressed"}},
        {"z_g", {"loads above the shear centre"}},
        {"C_1", {"as entered", "no lateral torsional buckling"}},
        {"C_2", {"as entered"}},
        {"C_3", {"as entered"}},
        {"α", {"fixed by the kind", "from y to the axis u"}},
    };
    const std::string& symbol = printed.symbol;
    const auto says = [&](const std::string& reason) {
        return printed.remark.find(reason) != std::string::npos;
    };
    if (const auto found = kReasons.find(symbol); found != kReasons.end()) {
        return std::any_of(found->second.begin(), found->second.end(), says);
    }
    if (symbol.starts_with("F_")) {
        return says("as entered") || says("basic loads");
    }
    if (symbol.starts_with("ρ_")) {
        return says("not reduced") || says("left out");
    }
    if (symbol.starts_with("χ_")) {
        return says("6.3.1.2 (4)");
    }
    if (symbol.starts_with("C_m")) {
        return says("no moment") || says("sway mode") || says("D222");
    }
    if (symbol.starts_with("ψ_") || symbol.starts_with("α_s") || symbol.starts_with("α_h")) {
        return says("moment");
    }
    return symbol == "M_y,Ed";  // of the combination, from the moment line
}

TEST(Retrace, ValuesWithoutFormulaSayWhy)
{
    std::size_t alone = 0;
    for (const auto& entry : fs::directory_iterator(KESTRUM_SOURCE "/examples")) {
        if (entry.path().extension() != ".kst") {
            continue;
        }
        for (const Printed& printed : ReportOf(ProjectOf(entry.path()))) {
            if (printed.calculation.empty()) {
                ++alone;
                EXPECT_TRUE(MayStandAlone(printed))
                    << entry.path().filename() << ": " << printed.symbol << " = " << printed.value
                    << printed.remark;
            }
        }
    }
    EXPECT_GT(alone, 20U);
}

// Formulas of a report, "A·f_y/γ_M0", without their numbers.
std::vector<std::string> FormulasOf(const std::string& markdown)
{
    std::vector<std::string> formulas;
    for (std::size_t at = 0; (at = markdown.find("\n- `", at)) != std::string::npos; ++at) {
        const std::size_t first = markdown.find(" = ", at) + 3;
        const std::size_t next = markdown.find(" = ", first);
        if (next < markdown.find('`', at + 4)) {
            formulas.push_back(markdown.substr(first, next - first));
        }
    }
    return formulas;
}

bool Holds(const std::string& formula, const std::string& symbol)
{
    constexpr std::string_view kEnds = "·/()+-^;| ";
    for (std::size_t at = 0; (at = formula.find(symbol, at)) != std::string::npos; ++at) {
        const std::string before = " " + formula.substr(0, at);
        const std::string behind = formula.substr(at + symbol.size()) + " ";
        if (kEnds.find(behind.front()) != std::string_view::npos &&
            (kEnds.find(before.back()) != std::string_view::npos || before.ends_with("·"))) {
            return true;
        }
    }
    return false;
}

// A value that a formula takes has an equation of its own or stands in a table.
TEST(Retrace, WhatFormulasTakeStandsInTheReport)
{
    const std::string common = std::string(kSettings) + "loadmode=1 loadcomb=4 ";
    const std::vector<std::string> members = {
        // class 4 by the standard alone, whose outstands are longer; Annex A with a twisting member
        "family=4 row.ipe=10 l=5 nload[1]=100 qload[1]=5 ltb=1 loadlevel=1 method=1 ltbcurve=1",
        "family=11 section=L_80x40x8 l=1.8 nload[1]=15 qload[1]=4.5 method=1",
        "family=24 l=8 nload[1]=0 qload[1]=30",
        "family=10 section=L_35x3 l=0.7 nload[1]=10 qload[1]=0.5 method=2"};
    const std::vector<std::string> symbols = {
        "A_eff",  "h_w",    "A_w",    "A_f",    "q",         "χ",         "χ_y",    "χ_z",   "χ_v",
        "χ_T",    "C_1",    "k_c",    "χ_LT",   "M_pl,y,Rd", "M_pl,z,Rd", "N_cr,T", "W_u",   "W_v",
        "W_pl,y", "W_pl,z", "W_el,y", "W_el,z", "W_eff,y",   "W_eff,z",   "V_z,Rd", "V_y,Rd"};
    std::vector<std::string> reports;
    for (const std::string& member : members) {
        reports.push_back(MarkdownOf(Member(common + member)));
    }
    for (const auto& entry : fs::directory_iterator(KESTRUM_SOURCE "/examples")) {
        if (entry.path().extension() == ".kst") {
            reports.push_back(MarkdownOf(ProjectOf(entry.path())));
        }
    }
    std::size_t taken = 0;
    for (const std::string& text : reports) {
        SCOPED_TRACE(text.substr(text.find("# Calc"), 60));
        const std::vector<std::string> formulas = FormulasOf(text);
        for (const std::string& symbol : symbols) {
            if (std::none_of(formulas.begin(), formulas.end(),
                             [&](const std::string& formula) { return Holds(formula, symbol); })) {
                continue;
            }
            ++taken;
            std::string row = symbol;  // as a cell writes it
            for (std::size_t at = 0; (at = row.find('_', at)) != std::string::npos; at += 2) {
                row.insert(at, "\\");
            }
            EXPECT_TRUE(text.find("`" + symbol + " = ") != std::string::npos ||
                        text.find("| " + row + " |") != std::string::npos)
                << symbol << " comes from nowhere";
        }
    }
    EXPECT_GT(taken, 150U);
}

// A ratio without its formula would be one that nobody can retrace.
TEST(Retrace, EveryRatioOfTheProgramHasItsFormula)
{
    for (const auto& entry : fs::directory_iterator(KESTRUM_SOURCE "/examples")) {
        if (entry.path().extension() != ".kst") {
            continue;
        }
        for (const Printed& printed : ReportOf(ProjectOf(entry.path()))) {
            EXPECT_FALSE(printed.symbol == "IR" && printed.calculation.empty())
                << entry.path().filename() << ": " << printed.value;
        }
    }
}

// What a method or a table gives is printed with what confirms it: a critical factor as quotient of
// energies, C1 of a piece from its critical moments, kc with its row, frequencies with their
// masses.
TEST(Retrace, ValuesOfMethodsAndTablesHaveTheirEquations)
{
    const std::string common = std::string(kSettings) + "nload[1]=0 loadmode=1 ltb=1 loadlevel=1 ";
    struct Case {
        std::string member;
        std::vector<std::string> symbols;
    };
    const Case cases[] = {
        {"family=22 p22.isth=700 p22.istb1=380 p22.istb2=240 p22.isttw=12 p22.isttf1=24 "
         "p22.isttf2=18 l=9 qload[1]=20 supportcase=0",
         {"z_j", "β_f", "α_cr"}},
        {"family=4 row.ipe=10 l=10 qload[1]=10 restraints=2", {"α_cr", "M_cr,0,1", "C_1"}},
        {"family=4 row.ipe=10 l=10 qload[1]=0 pm[1]=40 pmx[1]=5 restraints=1", {"α_cr", "k_c"}},
        {"family=4 row.ipe=10 l=10 qload[1]=10 c1alt=1", {"A_1", "A_2", "C_1"}},
        {"family=4 row.ipe=10 l=6 qload[1]=10 qtx2[1]=3 qtx1[1]=1 qt1[1]=4 qt2[1]=6 pm[1]=20 "
         "pmx[1]=2 modal=1",
         {"m", "f_1", "m_standard", "M_1", "f_1,standard", "f_2,standard", "f_3,standard"}},
        {"family=7 l=20 qload[1]=0.5 vortexcase=4",
         {"St", "v_crit", "f_standard", "v_crit,standard", "v_m,standard"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.member);
        const ReportedMember member{.project = Member(common + c.member), .vortex = true};
        std::map<std::string, bool> found;
        for (const Printed& printed :
             PrintedOf(WriteMarkdown(CalculationReport(Delivered(), {&member, 1})))) {
            const bool formula = !printed.calculation.empty();
            const auto [at, first] = found.try_emplace(printed.symbol, formula);
            at->second = at->second && formula;
            if (formula) {
                EXPECT_NEAR(PocketCalculator(printed.calculation).Value(),
                            PocketCalculator(printed.value).Value(),
                            LastDigit(printed.value) * (1 + 1e-9))
                    << printed.symbol << " = " << printed.calculation;
            }
        }
        for (const std::string& symbol : c.symbols) {
            ASSERT_TRUE(found.contains(symbol)) << symbol;
            EXPECT_TRUE(found[symbol]) << symbol;
        }
    }
}

// Of a rolled I section in compression and bending about both axes all values of the stability
// stage are retraced, and are those of the record.
TEST(Retrace, ResultsAreThoseOfTheRecord)
{
    const std::string member =
        "family=1 row.hea=6 l=5 nload[1]=150 qload[1]=8 qload[2]=2 qdir[2]=0 "
        "ltb=1 loadlevel=1 ";
    for (const char* const method : {"method=1", "method=2"}) {
        const ProjectState input = Member(kSettings + member + method);
        ProjectState s = input;
        ASSERT_TRUE(Calculate(Delivered(), s)) << FailureText(s.failure);
        ASSERT_GT(s.ned, 0);
        std::map<std::string, Printed> found;
        for (const Printed& printed : ReportOf(input)) {
            found.try_emplace(printed.symbol, printed);  // those of the program come first
        }
        const std::map<std::string, double> record = {
            {"N_c,Rd", s.ncrd},      {"M_y,Rd", s.myrd},    {"M_z,Rd", s.mzrd},
            {"V_pl,z,Rd", s.vplzrd}, {"N_cr,y", s.ncry},    {"N_cr,z", s.ncrz},
            {"χ_y", s.chiy},         {"χ_z", s.chiz},       {"N_b,y,Rd", s.nbyrd},
            {"N_b,z,Rd", s.nbzrd},   {"M_cr", s.mcr / 1e6}, {"χ_LT", s.xlt0},
            {"χ_LT,mod", s.xlt},     {"k_yy", s.kyy},       {"k_yz", s.kyz},
            {"k_zy", s.kzy},         {"k_zz", s.kzz},       {"A_v,z", s.avz}};
        for (const auto& [symbol, value] : record) {
            ASSERT_TRUE(found.contains(symbol)) << symbol;
            const Printed& printed = found[symbol];
            EXPECT_FALSE(printed.calculation.empty()) << symbol << " has no formula";
            EXPECT_NEAR(PocketCalculator(printed.value).Value(), value, LastDigit(printed.value))
                << symbol;
        }
    }
}

// A restraint holds the shear centre and the twist of the buckled member, and its ends do.
TEST(LateralStudy, TheShapeIsZeroWhereTheMemberIsHeld)
{
    const ProjectState s =
        Member(std::string(kSettings) + "family=4 row.ipe=10 l=10 qload[1]=10 ltb=1 "
                                        "restraints=1 loadlevel=2 loadmode=1 nload[1]=0");
    const auto result = standard::CalculateStandard(Delivered(), s);
    const standard::Check& check = result.checks[standard::CheckId::ltb];
    ASSERT_TRUE(check.present);
    const auto study = standard::LateralStudyOf(Delivered(), s, check.load_case);
    ASSERT_TRUE(study && study->numerical);
    const BucklingShape& shape = study->numerical->shape;
    for (const std::size_t held : {0U, 25U, 50U}) {
        EXPECT_NEAR(shape.v[held], 0, 1e-6 * std::abs(shape.v[12]));
        EXPECT_NEAR(shape.phi[held], 0, 1e-6);
    }
    EXPECT_GT(std::abs(shape.phi[12]), 0.1);
    EXPECT_NEAR(study->result.checked / study->result.resistance, check.ir, 1e-9);
}

// Headings of the theory manual by the names that its PDF gives them: "bending-with-shear".
std::set<std::string> HeadingsOfTheManual()
{
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(KESTRUM_SOURCE "/docs/theory")) {
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            const std::size_t text = line.find_first_not_of('#');
            if (text == 0 || text == std::string::npos || line[text] != ' ') {
                continue;
            }
            std::string name;
            for (const char c : line.substr(text + 1)) {
                const auto letter = static_cast<unsigned char>(c);
                name += c == ' ' ? "-"
                        : std::isalnum(letter) != 0
                            ? std::string(1, static_cast<char>(std::tolower(letter)))
                            : std::string();
            }
            names.insert(name);
        }
    }
    return names;
}

TEST(CheckEquations, EveryCheckNamesAHeadingOfTheManual)
{
    const std::set<std::string> headings = HeadingsOfTheManual();
    for (std::size_t i = 1; i < kChecks; ++i) {
        const auto id = static_cast<CheckId>(i);
        EXPECT_TRUE(headings.contains(std::string(ChapterOf(id)))) << NameOf(id);
    }
}

// Every judged check of the examples has its equations, and the ratio of the record as the last.
TEST(CheckEquations, EndWithTheRatioOfTheCheck)
{
    std::size_t nodes = 0;
    for (const auto& entry : fs::directory_iterator(KESTRUM_SOURCE "/examples")) {
        if (entry.path().extension() != ".kst") {
            continue;
        }
        ProjectState s = ProjectOf(entry.path());
        ASSERT_TRUE(Calculate(Delivered(), s));
        for (std::size_t i = 1; i < kChecks; ++i) {
            const auto id = static_cast<CheckId>(i);
            const CheckNode node = EquationsOf(s, id);
            ASSERT_EQ(node.equations.empty(), !IsJudged(s.checklist[id])) << NameOf(id);
            if (!node.equations.empty()) {
                ++nodes;
                const Equation& last = node.equations.back();
                EXPECT_EQ(PlainText(Line(last.symbol)), "IR");
                EXPECT_NEAR(NumberOf(last.value), s.checklist[id].ratio, LastDigitOf(last.value));
                EXPECT_FALSE(node.name.empty());
            }
        }
    }
    EXPECT_GT(nodes, 150U);
}

// 1911 = 5383·355/1000.
TEST(CheckEquations, AreWrittenAsRichText)
{
    const Equation equation =
        EquationOf("N_pl,Rd", Sym("A", 5383) * Sym("f_y", 355) * Ten(-3), 1910.965, "kN", "6.2.3");
    EXPECT_EQ(RichText({&equation, 1}, ','),
              "<p>N<sub>pl,Rd</sub> = A·f<sub>y</sub> = 5383·355·10<sup>-3</sup> = "
              "<b>1911,0</b> kN [6.2.3]</p>\n");
    const Drawing drawing = DrawEquations({&equation, 1}, 120);
    EXPECT_GT(drawing.height, 3);
    EXPECT_GE(BoundsOf(drawing).left, 0);
    EXPECT_LE(BoundsOf(drawing).right, 120);
}

// By statics, G = 10 kN/m on 4 m: qL/2 at each end of a beam, qL and -qL^2/2 at the clamped end of
// a cantilever.
TEST(CalculationReport, ReactionsHoldTheLoads)
{
    const std::string member =
        std::string(kSettings) + "family=1 row.hea=6 l=4 nload[1]=0 qload[1]=10 selfweight=0 ";
    EXPECT_NE(MarkdownOf(Member(member + "supportcase=0"))
                  .find("| G | 0 | 20 | 20 | 0 | 0 | 0 | 0 | 0 | 0 |"),
              std::string::npos);
    EXPECT_NE(MarkdownOf(Member(member + "supportcase=4"))
                  .find("| G | 0 | 40 | 0 | -80 | 0 | 0 | 0 | 0 | 0 |"),
              std::string::npos);
}

// A document has one decimal sign: in texts, tables, equations and figures.
TEST(CalculationReport, HasTheDecimalSignOfItsDocumentEverywhere)
{
    const ProjectState s =
        Member(std::string(kSettings) +
               "family=4 row.ipe=14 l=6.5 nload[1]=12.5 qload[1]=10.5 selfweight=1 "
               "pm[1]=20.5 pmx[1]=2.5 ltb=1 loadlevel=1 loadcomb=1 modal=1");
    const ReportedMember member{.project = s};
    DocumentHead head;
    head.decimal = ',';
    const Document d = CalculationReport(Delivered(), {&member, 1}, head);
    const std::string text = WriteMarkdown(d);
    for (const char* const expected :
         {"x/L = 0,", "IR = 0,", "| line load q | 10,5 |", "| 20,5 | kN | 2,5 |", "is included: 0,",
          "1,35\\*", "| axial force N | 12,5 |", "ν = 0,3"}) {
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    }
    for (const char* const refused : {"x/L = 0.", "IR = 0.", "10.5", "20.5", "12.5", "1.35"}) {
        EXPECT_EQ(text.find(refused), std::string::npos) << refused;
    }
    std::size_t numbers = 0;
    for (const Block& block : d.blocks) {
        const auto* const row = std::get_if<FigureRow>(&block);
        for (std::size_t i = 0; row != nullptr && i < row->figures.size(); ++i) {
            for (const auto& mark : row->figures[i].drawing.marks) {
                const auto* const label = std::get_if<TextMark>(&mark);
                if (label != nullptr) {
                    EXPECT_EQ(WithNumbers(label->text).spans.size() > 1, false) << label->text;
                    numbers += label->text.find(',') != std::string::npos ? 1 : 0;
                }
            }
        }
    }
    EXPECT_GT(numbers, 3U);
}

// L 80x40x8 in compression, bent about both legs.
constexpr const char* kBentAngle = "family=11 section=L_80x40x8 l=1.8 nload[1]=15 qload[1]=4.5 "
                                   "qload[2]=0.6 qdir[2]=0 loadcomb=4 loadmode=1 ";

// Both moments without an axial force: no check is called one of axial force, and Eq (6.61), (6.62)
// are those of 6.3.3 by both sets of rules.
TEST(CalculationReport, NamesBendingAboutBothAxesWithoutAnAxialForce)
{
    const std::string text =
        MarkdownOf(Member(std::string(kSettings) + "family=4 row.ipe=10 l=6 nload[1]=0 qload[1]=3 "
                                                   "qload[2]=0.4 qdir[2]=0 selfweight=1 ltb=1 "
                                                   "restraints=2 loadmode=1 method=1"));
    EXPECT_EQ(text.find("Axial force and bending"), std::string::npos) << "there is no axial force";
    for (const std::string row :
         {"Bending about both axes of the member, y", "Bending about both axes of the member, z"}) {
        const std::size_t at = text.find("### " + row);
        ASSERT_NE(at, std::string::npos) << row;
        const std::string part = text.substr(at, text.find("\n##", at + 1) - at);
        EXPECT_NE(part.find("\\[6.3.3\\]"), std::string::npos) << row;
        EXPECT_EQ(part.find("\\[6.3.1\\]"), std::string::npos) << row << " by another clause";
    }
    const std::size_t costs = text.find("### What each departure costs");
    ASSERT_NE(text.find("| D103 |", costs), std::string::npos);
    EXPECT_EQ(text.find("relieves", costs), std::string::npos)
        << "the self-weight adds to the loads here";
}

// 6.2.6 (3) of a welded T: 12 (150 - 14/2) = 1716 mm2.
TEST(CalculationReport, HasTheShearAreaOfTheStemByTheStandard)
{
    const std::string text =
        MarkdownOf(ProjectOf(fs::path(KESTRUM_SOURCE) / "examples" / "f026_t_chord.kst"));
    EXPECT_NE(text.find("12·(150 - 14/2) = 1716.0 mm²"), std::string::npos)
        << "the shear resistance rests on an area that stands nowhere";
}

// The sum outside 6.3.3 has a clause, 6.2.1 (7).
TEST(CalculationReport, CitesTheClauseOfTheSumOutside633)
{
    const std::string text = MarkdownOf(Member(std::string(kSettings) + kBentAngle + "method=1"));
    EXPECT_EQ(text.find("interaction outside"), std::string::npos);
    const std::size_t row = text.find("| Axial force and bending, section outside 6.3.3 |");
    ASSERT_NE(row, std::string::npos);
    EXPECT_NE(text.substr(row, text.find('\n', row) - row).find("| 6.2.1 (7) |"),
              std::string::npos);
}

// Bar 200x20, S235, half of Npl in tension with My 20 kNm: 20/35.25 = 0.5674 with what N leaves of
// Mpl = 47 kNm; the program leaves all of it (D177), 20/47 = 0.4255, and N alone governs, 0.5.
TEST(CalculationReport, TellsTheCheckThatADepartureChangesMost)
{
    const std::string text = MarkdownOf(
        Member(std::string(kSettings) + "family=28 p28.isth=200 p28.isttw=20 fykindex=26 fyk=235 "
                                        "l=1 loadmode=0 ne=-470 my1=20 my2=20 ltb=0"));
    EXPECT_NE(text.find("| D177 | +0.0674 | +0.1418 | axial force and bending |"),
              std::string::npos)
        << text.substr(std::min(text.find("### What each departure costs"), text.size()), 900);
}

// Angles buckle about y and v and bend about u and v: names and symbols are of these axes, and each
// value has its equation by both annexes.
TEST(CalculationReport, NamesTheAxesOfAnAngle)
{
    for (const char* const method : {"method=1", "method=2"}) {
        SCOPED_TRACE(method);
        Member s(std::string(kSettings) + kBentAngle + method);
        const std::string text = MarkdownOf(s);
        const std::size_t v = text.find("| Flexural buckling about v |");
        ASSERT_NE(v, std::string::npos) << "the standard's row about v has another name";
        EXPECT_NE(text.substr(v, text.find('\n', v) - v).find("6.3.1.1"), std::string::npos);
        EXPECT_EQ(text.find("| Flexural buckling about z |"), std::string::npos)
            << "a row about z, while all buckle about v";
        const std::size_t outside = text.find("### Axial force and bending, section outside 6.3.3");
        ASSERT_NE(outside, std::string::npos);
        const std::string sum = text.substr(outside, text.find("\n## ", outside) - outside);
        for (const char* const symbol :
             {"`M_u,Rk = W_u", "`M_v,Rk = W_v", "`k_uu = ", "`k_vv = "}) {
            EXPECT_NE(sum.find(symbol), std::string::npos) << symbol;
        }
        EXPECT_EQ(sum.find("M_y"), std::string::npos) << "a moment about u called one about y";
        for (const Printed& printed : PrintedOf(text)) {
            EXPECT_TRUE(!printed.calculation.empty() || MayStandAlone(printed))
                << printed.symbol << " = " << printed.value << printed.remark;
        }
    }
}

// 45 degrees: My alone is My/sqrt 2 about u and -My/sqrt 2 about v where a corner is stressed, and
// +My/sqrt 2 as a size in the sums of the member. My = 2 2^2/8 = 1 kNm.
TEST(CalculationReport, TellsTheMomentsOfAnAngleWithTheirSigns)
{
    const std::string text =
        MarkdownOf(Member(std::string(kSettings) + "family=10 section=L_90x9 l=2 nload[1]=15 "
                                                   "qload[1]=2 loadcomb=4 loadmode=1 method=2"));
    EXPECT_NE(text.find("1·sin(45°) = -0.70711 kNm"), std::string::npos)
        << "Mv of the section has lost its sign";
    EXPECT_NE(text.find("1·sin(45°) + 0·cos(45°) = 0.70711 kNm"), std::string::npos)
        << "Mv of the member is not the sum of sizes";
}

// The stem of a T that hogging presses loses its tip, and Weff goes to that tip; the flanges of a
// box keep their edges.
TEST(CalculationReport, SaysThatAModulusGoesToATipThatDoesNotCount)
{
    const std::string common = std::string(kSettings) + "fykindex=2 l=3 loadmode=0 ne=0 my2=-20 ";
    const char* const sentence = "tip of the whole plate";
    const std::string tee = MarkdownOf(
        Member(common + "my1=-20 family=26 p26.isth=320 p26.istb1=200 p26.isttw=10 p26.isttf1=20"));
    const std::size_t hogging = tee.find("`W_eff,y,hog = ");
    ASSERT_NE(hogging, std::string::npos);
    EXPECT_NE(tee.find(sentence, hogging), std::string::npos)
        << "the reader is not told where the edge of Weff lies";
    const std::string box = MarkdownOf(
        Member(common + "my1=-20 family=23 p23.isth=600 p23.istb1=600 p23.isttw=5 p23.isttf=5"));
    ASSERT_NE(box.find("`W_eff,y = "), std::string::npos);
    EXPECT_EQ(box.find(sentence), std::string::npos);
}

// With the user's factors a deflection is governed by those of service only.
TEST(CalculationReport, TellsTheUsersFactorsApart)
{
    const std::string text =
        MarkdownOf(Member(std::string(kSettings) + "family=4 row.ipe=10 l=6 qload[1]=10 "
                                                   "loadcomb=4 lfulsg=1.2 lfslsg=1"));
    const auto row = [&](const std::string& name) {
        const std::size_t at = text.find("| " + name + " |");
        return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
    };
    const std::string strength = row("user factors, ULS"), service = row("user factors, SLS");
    EXPECT_NE(strength.find("bending about y"), std::string::npos) << strength;
    EXPECT_EQ(strength.find("deflection"), std::string::npos) << strength;
    EXPECT_NE(service.find("deflection along z"), std::string::npos) << service;
    EXPECT_EQ(service.find("bending about y"), std::string::npos) << service;
}

// Rows of a table of a report, from its caption to the blank line below.
std::vector<std::vector<std::string>> TableOf(const std::string& text, const std::string& caption)
{
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(text.substr(std::min(text.find(caption), text.size())));
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line) && (line.empty() ? rows.empty() : line.front() == '|')) {
        std::vector<std::string> cells;
        for (std::size_t from = 2, to = 0; (to = line.find(" |", from)) != std::string::npos;
             from = to + 3) {
            cells.push_back(line.substr(from, to - from));
        }
        if (!line.empty()) {
            rows.push_back(std::move(cells));
        }
    }
    rows.erase(rows.begin(), rows.begin() + std::min<std::ptrdiff_t>(2, std::ssize(rows)));
    return rows;
}

// Without a variable load too the factors of service are told from those of strength.
TEST(CalculationReport, TellsTheUsersFactorsApartInPureCompression)
{
    const std::string text = MarkdownOf(
        Member(std::string(kSettings) + "family=10 row.l1=40 l=2 nload[1]=20 loadcomb=4"));
    EXPECT_NE(text.find("| user factors, ULS |"), std::string::npos);
    EXPECT_EQ(text.find("| user factors, ULS |", text.find("| user factors, ULS |") + 1),
              std::string::npos);
    EXPECT_NE(text.find("| user factors, SLS |"), std::string::npos);
}

// Two loads at mid-span of 6 m: P/2 = 40 kN on both sides, 0.4995 and 0.5005 stand once, in order.
TEST(CalculationReport, ListsEachCheckSectionOnceAlongTheMember)
{
    const std::string text = MarkdownOf(Member(std::string(kSettings) +
                                               "family=4 row.ipe=14 l=6 qload[1]=0 selfweight=0 "
                                               "nload[1]=0 pm[1]=50 pmx[1]=3 pm[2]=30 pmx[2]=3 "
                                               "loadcomb=4 lfulsg=1"));
    std::vector<std::string> places, shears;
    for (const auto& row : TableOf(text, "Internal forces at the check sections")) {
        ASSERT_EQ(row.size(), 7U);
        places.push_back(row[0]);
        shears.push_back(row[4]);
    }
    const std::vector<std::string> expected = {"0",      "0.1", "0.2",    "0.3", "0.4",
                                               "0.4995", "0.5", "0.5005", "0.6", "0.7",
                                               "0.8",    "0.9", "1"};
    EXPECT_EQ(places, expected);
    ASSERT_EQ(shears.size(), expected.size());
    EXPECT_EQ(shears[5], "40");
    EXPECT_EQ(shears[7], "-40");
}

// A deflection that the project leaves out is shown with its formula, and the inputs say so.
TEST(CalculationReport, SaysThatADeflectionDoesNotCount)
{
    const std::string member =
        std::string(kSettings) + "family=4 row.ipe=10 l=8 qload[1]=5 checksls=";
    const std::string left_out = MarkdownOf(Member(member + "0"));
    const std::string counts = MarkdownOf(Member(member + "-1"));
    EXPECT_NE(left_out.find("\n## Serviceability\n"), std::string::npos);
    EXPECT_NE(left_out.find("The deflections do not count in the verdict"), std::string::npos);
    EXPECT_NE(left_out.find("| Deflection counts |  | no |"), std::string::npos);
    EXPECT_EQ(counts.find("The deflections do not count in the verdict"), std::string::npos);
    EXPECT_NE(counts.find("| Deflection counts |  | yes |"), std::string::npos);
}

// The general case of 6.3.2.2 has no modified reduction.
TEST(CalculationReport, NamesTheReductionOfTheCurvesInUse)
{
    const std::string member =
        std::string(kSettings) + "family=4 row.ipe=10 l=5 qload[1]=5 ltb=1 ltbcurve=";
    EXPECT_EQ(MarkdownOf(Member(member + "2")).find("χ_LT,mod"), std::string::npos);
    EXPECT_NE(MarkdownOf(Member(member + "3")).find("M_y,Ed/(χ_LT,mod·M_y,Rd,1)"),
              std::string::npos);
}

// Annex of Denmark: gamma_M0 1.1, gamma_M1 1.2. One name would stand for two resistances.
TEST(CalculationReport, MomentResistancesOfSectionAndMemberHaveTheirOwnNames)
{
    const std::string text =
        MarkdownOf(ProjectOf(KESTRUM_SOURCE "/examples/f021_welded_girder.kst"));
    EXPECT_NE(text.find("M_y,Ed/M_y,Rd = 2019.34/3109.96"), std::string::npos);
    // 3109.96 1.1/1.2 = 2850.80
    EXPECT_NE(text.find("M_y,Ed/(χ_LT,mod·M_y,Rd,1) = 1938.6/(0.97808·2850.8)"), std::string::npos);
    EXPECT_NE(text.find("| M\\_y,Rd,1 | resistance to bending about y of the side that is "
                        "compressed, with γ\\_M1, kNm |"),
              std::string::npos);
}

// What both sets of rules give differently in the table of the verdict has both formulas.
TEST(CalculationReport, HasTheFormulaOfEveryRatioOfTheVerdict)
{
    const std::string text =
        MarkdownOf(ProjectOf(KESTRUM_SOURCE "/examples/f003_hem_transfer_beam.kst"));
    std::size_t standard = 0, differing = 0;
    for (std::size_t at = 0; (at = text.find("`IR_standard = ", at)) != std::string::npos; ++at) {
        ++standard;
    }
    for (const auto& row : TableOf(text, "here are listed")) {
        differing += row.size() > 5 && row[1] != row[5] ? 1 : 0;
    }
    EXPECT_EQ(standard, differing);
    EXPECT_GT(standard, 0U);
}

// 0.00981 against 0.01 kN a kg: the governing deflection is 0.0005 lower by the standard, in the
// list of costs as at the check.
TEST(CalculationReport, ListsSmallCostsAsTheChecksDo)
{
    const std::string text = MarkdownOf(ProjectOf(KESTRUM_SOURCE "/examples/f001_hea_beam.kst"));
    EXPECT_NE(text.find("cost of departures: D103 -0.0005"), std::string::npos);
    EXPECT_NE(text.find("| D103 | -0.0005 |"), std::string::npos);
}

TEST(CalculationReport, NamesAnAngleAndItsPrincipalAxis)
{
    const std::string text = MarkdownOf(Member(std::string(kSettings) + "family=10 row.l1=40 l=2 "
                                                                        "qload[1]=0.5"));
    EXPECT_NE(text.find("# Calculation report: L "), std::string::npos);
    EXPECT_NE(text.find("| α | 45 | ° |"), std::string::npos);
}

// ψ0 of a combination stands as the symbol.
TEST(CalculationReport, NamesPsiByItsLetter)
{
    const std::string text = MarkdownOf(
        Member(std::string(kSettings) + "family=4 row.ipe=10 l=6 qload[1]=10 qload[2]=8 qtype[2]=1 "
                                        "qload[3]=8 qtype[3]=2 loadcomb=1"));
    EXPECT_NE(text.find("+ ψ\\_0 Q2"), std::string::npos);
    EXPECT_EQ(text.find("psi0"), std::string::npos);
}

// Cells of the rows of a table in the guide, from the row with this title on.
std::vector<std::vector<std::string>> TableOfTheGuide(const std::string& title)
{
    std::ifstream file(KESTRUM_SOURCE "/docs/guide/results.md");
    std::vector<std::vector<std::string>> rows;
    bool within = false;
    for (std::string line; std::getline(file, line);) {
        within = within ? line.starts_with('|') : line.starts_with("| " + title + " |");
        if (!within) {
            continue;
        }
        std::vector<std::string> cells;
        for (std::size_t from = 2, to = 0; (to = line.find(" |", from)) != std::string::npos;
             from = to + 3) {
            cells.push_back(line.substr(from, to - from));
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

// Each question of a checker leads to a chapter that the report has, here of a crane girder and of
// a column.
TEST(CalculationReport, AnswersTheQuestionsOfTheGuideWhereItSays)
{
    const auto rows = TableOfTheGuide("Question");
    ASSERT_EQ(rows.size(), 12U);  // title, rule, ten questions
    std::string reports;
    for (const char* const name :
         {"/examples/f022_crane_girder.kst", "/examples/f023_box_column.kst"}) {
        reports += MarkdownOf(ProjectOf(std::string(KESTRUM_SOURCE) + name));
    }
    for (std::size_t i = 2; i < rows.size(); ++i) {
        ASSERT_EQ(rows[i].size(), 3U) << rows[i].front();
        const std::string& chapters = rows[i][1];
        for (std::size_t from = 0, to = 0; to != std::string::npos; from = to + 2) {
            to = chapters.find("; ", from);
            const std::string chapter =
                chapters.substr(from, to == std::string::npos ? to : to - from);
            if (chapter != "foot and head of each page") {
                EXPECT_NE(reports.find("\n## " + chapter), std::string::npos) << chapter;
            }
        }
    }
}

std::string ReportOfExample(const std::string& name)
{
    return MarkdownOf(ProjectOf(KESTRUM_SOURCE "/examples/" + name + ".kst"));
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

// A deflection in the table of the verdict has its chapter, checked or not.
TEST(CalculationReport, RetracesADeflectionThatDoesNotCount)
{
    const std::string remark = "The deflection is not to be checked";
    const std::string not_checked = ReportOfExample("f023_box_column");
    EXPECT_TRUE(Has(not_checked, "| Deflection along z |"));
    EXPECT_TRUE(Has(not_checked, remark));
    EXPECT_TRUE(Has(not_checked, "\n## Serviceability\n"));
    EXPECT_FALSE(Has(ReportOfExample("f021_welded_girder"), remark));
    const std::string end_forces = ReportOfExample("f102_joist");
    EXPECT_FALSE(Has(end_forces, remark));
    EXPECT_FALSE(Has(end_forces, "\n## Serviceability\n"));
    EXPECT_FALSE(Has(end_forces, "and deflection"));
}

// Beams of slabs take no axial force: their class 4 under one is of no use.
TEST(CalculationReport, HasTheEffectiveSectionOfForcesThatTheFamilyTakes)
{
    EXPECT_FALSE(Has(ReportOfExample("f024_hsq_inner_beam"), "## Effective section"));
    const std::string plate = ReportOfExample("f056_plate_t_girder");
    EXPECT_TRUE(Has(plate, R"(Plates that lose a part under sagging M\_y)"));
    EXPECT_FALSE(Has(plate, "Plates that lose a part in compression"));
    EXPECT_TRUE(
        Has(ReportOfExample("f022_crane_girder"), "Plates that lose a part in compression"));
}

// Top flange c/t = (380 - 12 - 2 * 6) / 2 / 24 = 7.417 lies between 9 eps and 10 eps.
TEST(CalculationReport, ClassesTheFlangesOfAnUnequalIBentSideways)
{
    EXPECT_TRUE(
        Has(ReportOfExample("f022_crane_girder"), R"(| M\_z | top flange | 178 | 24 | 7.417 |)"));
}

// The hat by its plate between the webs, 288 / 15 = 19.2; the flat bar as an outstand, 168 / 12
// = 14.
TEST(CalculationReport, ClassesTheSideThatAHoggingMomentCompresses)
{
    const std::string hat = ReportOfExample("f024_hsq_inner_beam");
    EXPECT_TRUE(Has(hat, R"(| M\_y hogging | bottom flange | 288 | 15 | 19.2 |)"));
    EXPECT_TRUE(Has(hat, "The outstands of the bottom flange are not classified"));
    EXPECT_TRUE(Has(ReportOfExample("f051_plate_flat_bar"),
                    R"(| M\_y hogging | flat bar, tip | 168 | 12 | 14 |)"));
}

// In texts, titles of columns, captions and notes as in the formulas.
TEST(CalculationReport, WritesSymbolsAndUnitsOutsideFormulasAsInThem)
{
    for (const char* const name : {"f022_crane_girder", "f026_t_chord", "f051_plate_flat_bar",
                                   "f023_box_column", "f016_unp_cantilever"}) {
        const std::string text = ReportOfExample(name);
        for (const char* const plain : {" My ", " My,", "My1", " Mz", " Vz,", "EIz", "GIT", " zj",
                                        " zg", "m/s2", " hw ", " tw ", " eta", " eps", "gammaM"}) {
            EXPECT_FALSE(Has(text, plain)) << name << ": \"" << plain << '"';
        }
        EXPECT_TRUE(Has(text, R"(M\_y, kNm)")) << name;
    }
    EXPECT_TRUE(Has(ReportOfExample("f022_crane_girder"), "10 m/s², 2 % too heavy"));
}

TEST(CalculationReport, ListsTheCheckSectionsAlongTheMember)
{
    const std::string text = ReportOfExample("f022_crane_girder");
    const std::size_t three = text.find("\n| 0.3 | 2.7 |"),
                      load = text.find("\n| 0.3559 | 3.203 |"), four = text.find("\n| 0.4 | 3.6 |");
    ASSERT_NE(load, std::string::npos);
    EXPECT_LT(three, load);
    EXPECT_LT(load, four);
}

// The curve of British channels is left open by the program.
TEST(CalculationReport, SaysThatAFamilyHasNoBucklingCurve)
{
    const std::string text = ReportOfExample("f103_pfc_edge_beam");
    EXPECT_FALSE(Has(text, "curve , Table 6.2"));
    EXPECT_TRUE(Has(text, "no curve for this family"));
}

// What the checks divide by has been calculated before.
TEST(CalculationReport, DefinesTheReductionThatTheChecksTake)
{
    for (const char* const name : {"f103_pfc_edge_beam", "f051_plate_flat_bar"}) {
        const std::string text = ReportOfExample(name);
        EXPECT_TRUE(Has(text, "`χ_LT = ")) << name;
        EXPECT_FALSE(Has(text, "χ_LT,mod")) << name;
    }
}

// Forces at the ends are design values: no factors stand beside them, and no loads are spoken of.
TEST(CalculationReport, HasNoFactorsOnEndForces)
{
    const std::string text = ReportOfExample("f102_joist");
    EXPECT_TRUE(Has(text, "one case, without factors"));
    EXPECT_TRUE(Has(text, "| Case | largest IR |"));
    EXPECT_TRUE(Has(text, "Given end forces, M\\_y, V\\_z"));
    EXPECT_FALSE(Has(text, "Combinations by EN 1990"));
    EXPECT_FALSE(Has(text, "Loads along z"));
}

// J 127x76x16 on 4 m: from 16 to -6 kNm the moment falls by 5.5 kN, while 8 kN are entered as
// shear.
TEST(CalculationReport, TellsThatGivenEndForcesAreOutOfEquilibrium)
{
    EXPECT_TRUE(
        Has(ReportOfExample("f102_joist"), "= -5.5 kN, V\\_z = 8 kN. Each is checked as entered."));
    const std::string forces = std::string(kSettings) + "family=4 row.ipe=14 l=4 loadmode=0 ne=0 "
                                                        "my1=16 my2=-6 mz1=0 mz2=0 vy1=0 vy2=0 ";
    EXPECT_FALSE(Has(MarkdownOf(Member(forces + "vz1=-5.5 vz2=-5.5")), "not in equilibrium"));
    EXPECT_TRUE(Has(MarkdownOf(Member(forces + "vz1=5.5 vz2=5.5")), "not in equilibrium"));
    EXPECT_TRUE(Has(MarkdownOf(Member(forces + "vz1=-5.5 vz2=-9")),
                    "= -5.5 kN, V\\_z,2 = -9 kN. Each is checked as entered."));
}

// V times dx gives the fall or the rise of the moment from one check section to the next: 0.1 L of
// a cantilever of 1.6 m under 14 kN at its tip, and of a beam under 30 kN at mid-span.
TEST(CalculationReport, SaysWhichSignTheShearForceHas)
{
    struct Case {
        const char* member;
        double sign;
        const char* remark;
    };
    const Case cases[] = {{"supportcase=4 l=1.6 pm[1]=14 pmx[1]=1.6", -1, "V = -dM/dx"},
                          {"supportcase=0 l=1.6 pm[1]=30 pmx[1]=0.8", 1, "V = dM/dx"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.member);
        const std::string text =
            MarkdownOf(Member(std::string(kSettings) +
                              "family=4 row.ipe=14 qload[1]=0 nload[1]=0 selfweight=0 "
                              "loadcomb=4 lfulsg=1 " +
                              c.member));
        const auto rows = TableOf(text, "Internal forces at the check sections");
        ASSERT_GT(rows.size(), 3U);
        const double rise = std::stod(rows[2][3]) - std::stod(rows[1][3]);
        EXPECT_NEAR(rise, c.sign * std::stod(rows[1][4]) * 0.16, 1e-4);
        EXPECT_TRUE(Has(text, c.remark));
    }
}

// A cantilever is not compared with the factors of a beam on two forks.
TEST(CalculationReport, ComparesACantileverWithCantilevers)
{
    const std::string text = ReportOfExample("f016_unp_cantilever");
    EXPECT_TRUE(Has(text, "1.28 under a load at the tip"));
    EXPECT_FALSE(Has(text, "1.36 under a load at mid-span"));
}

TEST(CalculationReport, SaysThatTheShapeOfAGeneralProfileIsASymbol)
{
    EXPECT_TRUE(Has(ReportOfExample("f041_general_profile"), "its shape is not entered"));
    EXPECT_FALSE(Has(ReportOfExample("f041_general_profile"), "dimensions in mm"));
}

// Above a critical force the program has no result. Its section, forces and resistances stand,
// since the checks of the standard use the same values, and no departure is said to be absent.
TEST(CalculationReport, OfAnUnstableMemberHasWhatTheStandardChecks)
{
    const std::string member = "family=1 row.hea=0 l=12 nload[1]=5000 qload[1]=5 loadcomb=";
    const std::string text = MarkdownOf(Member(kSettings + member + "0"));
    EXPECT_TRUE(Has(text, "unstable"));
    EXPECT_FALSE(Has(text, "\n## Flexural buckling\n"));
    for (const char* const chapter :
         {"Class of the section", "Internal forces", "Resistances of the section",
          "Checks of the sections", "Serviceability", "Reactions by category"}) {
        EXPECT_TRUE(Has(text, "\n## " + std::string(chapter) + "\n")) << chapter;
    }
    EXPECT_FALSE(Has(text, "None."));
    EXPECT_TRUE(Has(text, "The program has no result here in which one could act."));
    // 1.35 * 5000 = 6750 kN: the pass stops in Eq (6.10a), before it comes to (6.10b).
    const std::string both = MarkdownOf(Member(kSettings + member + "3"));
    EXPECT_TRUE(Has(both, "| 0 | 0 | 6750 |"));
    EXPECT_TRUE(Has(both, "design values, combination 6.10a"));
    EXPECT_TRUE(Has(both, "The calculation of the program stops in this combination."));
}

// 2 * 50/3 = 33 of the 50 steps of the diagram: 0.66 L, not 2L/3.
TEST(CalculationReport, SaysWhereTheMomentsOfASegmentAreRead)
{
    const std::string text = ReportOfExample("f001_hea_beam");
    EXPECT_TRUE(Has(text, "between 2L/3 and L"));
    EXPECT_TRUE(Has(text, "read at x/L = 0.66 and 1, the points of the diagram"));
    EXPECT_TRUE(Has(ReportOfExample("f004_ipe_purlin"), "between L/3 and 2L/3"));
}

// A beam of slabs under an axial force: whose result leaves it out, and that the other counts it.
TEST(CalculationReport, TellsWhoseResultLeavesALoadOut)
{
    ProjectState s = ProjectOf(KESTRUM_SOURCE "/examples/f024_hsq_inner_beam.kst");
    s.nload[1] = 40.25;
    const std::string text = MarkdownOf(s);
    EXPECT_TRUE(Has(text, "| axial force N | 40.25 | kN | G | not in the program's result |"));
    EXPECT_TRUE(Has(text, "Not in the program's result: axial force 40.25 kN (G), which it does "
                          "not take on this family of sections; the checks by EN 1993-1-1 as "
                          "written count it."));
    EXPECT_TRUE(Has(text, "**Rules of the program: loads dropped**"));
    EXPECT_FALSE(Has(text, "nload"));
    EXPECT_NE(text.find("| Flexural buckling about y | - |"), std::string::npos);
}

// Basic loads are those of the ticked rows; the others are listed with that remark.
TEST(CalculationReport, MarksLoadsThatAreNotTicked)
{
    const std::string text =
        MarkdownOf(Member(std::string(kSettings) + "family=4 row.ipe=10 l=6 loadcomb=5 qload[1]=3 "
                                                   "qchecked[1]=-1 qload[2]=4 qchecked[2]=0"));
    EXPECT_TRUE(Has(text, "| line load q | 4 | kN/m | 0 to L | G | not ticked, does not act |"));
    EXPECT_TRUE(Has(text, "| line load q | 3 | kN/m | 0 to L | G |  |"));
}

// Webs of 4 mm: 267/4 = 66.75 lies between the limits of class 2 and 3.
TEST(CalculationReport, TellsThatAWebOfClassThreeIsUpgraded)
{
    ProjectState s = ProjectOf(KESTRUM_SOURCE "/examples/f024_hsq_inner_beam.kst");
    s.p24.isttw = 4;
    s.class23 = 0;
    const std::string text = MarkdownOf(s);
    EXPECT_TRUE(Has(text, "Class under M\\_y sagging: 3 (its web counts as class 2, 6.2.2.4)"));
    EXPECT_TRUE(Has(text, "| Web of class 3 counts as class 2, 6.2.2.4 |  | yes |"));
    EXPECT_FALSE(Has(text, "Eq (6.15)"));  // of class 4
}

}  // namespace
}  // namespace kestrum
