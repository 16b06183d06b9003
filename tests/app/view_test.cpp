#include "app/box_help.h"
#include "app/member_commands.h"
#include "app/session_fixture.h"
#include "app/view_member.h"
#include "app/view_panel.h"
#include "app/view_section.h"
#include "app/view_standard.h"
#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/panel.h"
#include "report/section_figure.h"
#include "report/standard_text.h"
#include "sections/family_table.h"
#include "standard/costs.h"
#include "support/members.h"
#include "support/rows.h"

#include <algorithm>
#include <set>

namespace kestrum {
namespace {

// The figure of a section form names what its boxes ask for.
TEST(SectionLetters, AreThoseOfTheBoxes)
{
    for (const FamilyTraits& family : Families()) {
        const Drawing figure = DrawSectionLetters(family.id);
        for (const Box* const box : SectionBoxes(family.id)) {
            const BoxHelp& help = HelpOf(*box);
            const bool shown =
                std::any_of(figure.marks.begin(), figure.marks.end(), [&](const Mark& mark) {
                    const auto* const text = std::get_if<TextMark>(&mark);
                    return text != nullptr && text->text == help.label;
                });
            EXPECT_EQ(shown, family.id != 41 && box->id != "iload") << family.id << " " << box->id;
        }
    }
}

// The main window and the small forms

TEST(MemberTexts, OfTheEndSupports)
{
    ProjectState s{};
    EXPECT_EQ(EndPostText(s), "Non-rigid");
    EXPECT_EQ(StiffenerText(s), "");
    s.endstiff = 1;
    s.webstiff = 1;
    s.webstiffa = 1500.4F;
    EXPECT_EQ(EndPostText(s), "Rigid");
    EXPECT_EQ(StiffenerText(s), "Web stiffener: c/c1500mm");
    s.vplzrd = 432.15;
    s.vbrd = 5.04;
    EXPECT_EQ(PlasticShearText(s), "432.2");
    EXPECT_EQ(ActualShearText(s), "05.0");
}

TEST(MemberTexts, OfLateralBuckling)
{
    ProjectState s{};
    EXPECT_EQ(LateralLengthText(s), "");
    EXPECT_EQ(LoadLevelText(s), "");
    s.ltb = 1;
    s.ltbk = 0.7F;
    EXPECT_EQ(LateralLengthText(s), "0.70");
    const char* const levels[] = {"top flange", "centre of gravity", "bottom flange",
                                  "Za = -62.5 mm"};
    s.za = -62.5;
    for (i16 level = 1; level <= 4; ++level) {
        s.loadlevel = level;
        EXPECT_EQ(LoadLevelText(s), levels[level - 1]);
    }
    s.ltc1 = 2.578;
    s.ltc3 = 0.5;
    EXPECT_EQ(C1Text(s), "2.578");
    EXPECT_EQ(C3Text(s), "N/A");
    s.family = 22;
    EXPECT_EQ(C3Text(s), "0.500");
}

TEST(MemberTexts, MbRdIsTheReducedMoment)
{
    Program program;
    const ProjectState& s = program.session.shown();
    ASSERT_FALSE(LateralRow(s).empty());
    const std::string text = MbRdText(s);
    EXPECT_TRUE(text.starts_with(" "));
    EXPECT_TRUE(text.ends_with(" kNm"));
    EXPECT_NEAR(std::stod(text), s.xlt * s.mltrd, 0.05);
    TickLateralBuckling(program.session, false);
    EXPECT_EQ(MbRdText(program.session.shown()), "");
}

TEST(MemberTexts, OfTheGoverningSegment)
{
    ProjectState s{};
    EXPECT_EQ(SegmentText(s), "");
    s.restraints = 2;
    EXPECT_EQ(SegmentText(s), "");  // no segment has been looked at
    s.beampart = 1;
    EXPECT_EQ(SegmentText(s), " (0 - L/3)");
    s.beampart = 2;
    EXPECT_EQ(SegmentText(s), " (1L/3 - 2L/3)");
    s.beampart = 3;
    EXPECT_EQ(SegmentText(s), " (2L/3 -  L)");
    s.beampart = 4;
    EXPECT_EQ(SegmentText(s), "");
}

// Section forms

const ShownValue* Find(const std::vector<ShownValue>& values, std::string_view id)
{
    const auto at = std::find_if(values.begin(), values.end(),
                                 [&](const ShownValue& value) { return value.id == id; });
    return at != values.end() ? &*at : nullptr;
}

std::string ValueOf(const std::vector<ShownValue>& values, std::string_view id)
{
    const ShownValue* const value = Find(values, id);
    return value != nullptr ? value->value + " " + std::string(value->unit) : "none";
}

ProjectState Calculated(int family)
{
    Program program;
    program.edit().nload[1] = family == 28 ? 0 : 1;  // a flat bar takes N or My
    ChooseFamily(program.session, family);
    EXPECT_FALSE(program.session.failed()) << family;
    return program.session.shown();
}

// HEA 200 as published: 190x200x6.5x10, 53.83 cm2, Iy 3692 cm4, Wpl,y 429.5 cm3.
TEST(SectionForm, ShowsAPublishedProfile)
{
    Program program;
    int row = 0;
    while (RowName(Delivered(), Table::hea, row) != "HEA 200") {
        ASSERT_LT(++row, RowCount(Table::hea));
    }
    ChooseRow(program.session, Table::hea, row);
    const ProjectState& s = program.session.shown();
    const auto dimensions = SectionDimensions(s);
    EXPECT_EQ(ValueOf(dimensions, "osth"), "190 mm");
    EXPECT_EQ(ValueOf(dimensions, "ostb"), "200 mm");
    EXPECT_EQ(ValueOf(dimensions, "osttw"), "6.5 mm");
    EXPECT_EQ(ValueOf(dimensions, "osttf"), "10.0 mm");
    EXPECT_EQ(ValueOf(dimensions, "ostr"), "18.0 mm");
    const auto properties = SectionProperties(s);
    EXPECT_NEAR(std::stod(ValueOf(properties, "osta")), 5383, 5);
    EXPECT_EQ(ValueOf(properties, "ostiy"), "3.692E+7 mm4");
    EXPECT_NEAR(std::stod(ValueOf(properties, "ostwply")), 429.5e3, 500);
    EXPECT_NEAR(std::stod(ValueOf(properties, "ostg")), 42.3, 0.1);
    // 5383 * 355/1000 and 429.5 * 0.355, class 1 and 2
    const auto capacities = SectionCapacities(s);
    EXPECT_NEAR(std::stod(ValueOf(capacities, "ontd")), 1911, 2);
    EXPECT_NEAR(std::stod(ValueOf(capacities, "omyd")), 152.5, 0.2);
    EXPECT_EQ(SectionName(Delivered(), s), "HEA 200");
}

// About z a stiffened plate shows its stiffener alone: 100x16 and 284x11.5, see the printed page.
TEST(SectionForm, NamesTheStiffenerBesideItsIz)
{
    Program program;
    ChooseFamily(program.session, 53);
    const auto properties = SectionProperties(program.session.shown());
    EXPECT_EQ(ValueOf(properties, "ostiz"), "3.472E+6 mm4 (profile)");
    EXPECT_TRUE(ValueOf(properties, "ostwelz").ends_with(" mm3 (profile)"));
    EXPECT_TRUE(ValueOf(properties, "ostiy").ends_with(" mm4"));
}

// L 100x100x10, S355: Iy 176.7 cm4, e 28.22 mm: 1767000/(100 - 28.22) = 24617 mm3 for both legs.
TEST(SectionForm, ShowsTheSmallerModuliOfAnAngle)
{
    Program program;
    program.edit().nload[1] = 1;
    ChooseFamily(program.session, 10);
    int row = 0;
    while (RowName(Delivered(), Table::l1, row).find("100x10") == std::string::npos) {
        ASSERT_LT(++row, RowCount(Table::l1));
    }
    ChooseRow(program.session, Table::l1, row);
    const ProjectState& s = program.session.shown();
    EXPECT_EQ(ValueOf(SectionProperties(s), "ostwely"), "2.462E+4 mm3 (min)");
    EXPECT_EQ(ValueOf(SectionProperties(s), "ostwelz"), "2.462E+4 mm3 (min)");
    EXPECT_EQ(ValueOf(SectionDimensions(s), "ostalfa"), "45.0 deg");
}

TEST(SectionForm, ShowsTheClassesOfNMyMz)
{
    ProjectState s{};
    s.classn = 4;
    s.classmy = 23;
    s.classmz = 1;
    EXPECT_EQ(SectionClassText(s), "4/23/1");
}

// The stability control leaves the class of its sign in the record of the single symmetric I.
TEST(SectionForm, ShowsTheLargerClassOfBothSigns)
{
    ProjectState s{};
    s.family = 22;
    s.classn = 4;
    s.classmytop = 1;
    s.classmybot = 3;
    s.classmy = 1;
    s.classmz = 2;
    EXPECT_EQ(SectionClassText(s), "4/3/2");
}

TEST(SectionForm, EveryFamilyHasATitleAndFilledValues)
{
    for (const FamilyTraits& family : Families()) {
        SCOPED_TRACE(family.id);
        const ProjectState s = Calculated(family.id);
        EXPECT_FALSE(SectionTitle(family.id).empty());
        EXPECT_FALSE(SectionName(Delivered(), s).empty());
        for (const auto& values :
             {SectionDimensions(s), SectionProperties(s), SectionCapacities(s)}) {
            std::set<std::string_view> ids;
            for (const ShownValue& value : values) {
                EXPECT_FALSE(value.value.empty()) << value.id;
                EXPECT_FALSE(value.label.empty()) << value.id;
                EXPECT_TRUE(ids.insert(value.id).second) << value.id;
            }
        }
        EXPECT_EQ(SectionDimensions(s).empty(), family.input == SectionInput::dimensions ||
                                                    family.input == SectionInput::stiffener);
        EXPECT_GT(std::stod(ValueOf(SectionProperties(s), "osta")), 0);
        EXPECT_GT(std::stod(ValueOf(SectionCapacities(s), "omyd")), 0);
        EXPECT_GT(std::stod(ValueOf(SectionCapacities(s), "ovzd")), 0);
    }
    EXPECT_TRUE(SectionTitle(12).empty());
}

// A form makes its rows before there is a result.
TEST(SectionForm, WhichRowsThereAreHangsOnTheFamilyAlone)
{
    for (const FamilyTraits& family : Families()) {
        ProjectState probe{};
        probe.family = static_cast<i16>(family.id);
        const ProjectState s = Calculated(family.id);
        EXPECT_EQ(SectionDimensions(probe).size(), SectionDimensions(s).size());
        EXPECT_EQ(SectionProperties(probe).size(), SectionProperties(s).size());
        EXPECT_EQ(SectionCapacities(probe).size(), SectionCapacities(s).size());
    }
}

TEST(SectionForm, BothSignsOfTheMomentAreShownWithTheFactorOfTheSection)
{
    for (const int family : {22, 24, 25, 26, 27, 51, 52, 53, 54, 56}) {
        SCOPED_TRACE(family);
        Program program;
        program.edit().nload[1] = 1;
        program.edit().annexindex = kAnnexUd;
        program.edit().gammam0 = 1.1;
        program.edit().gammam1 = 1.2F;
        ChooseFamily(program.session, family);
        const auto values = SectionCapacities(program.session.shown());
        const double least =
            std::min(std::stod(ValueOf(values, "omydtop")), std::stod(ValueOf(values, "omydbot")));
        EXPECT_NEAR(least, std::stod(ValueOf(values, "omyd")), 0.051);
    }
}

TEST(SectionForm, OffersTheOptionsOfTheFamily)
{
    const std::pair<SectionOption, std::set<int>> options[] = {
        {SectionOption::rectaxis, {7, 9}},  {SectionOption::bolts, {10, 11}},
        {SectionOption::weld, {23}},        {SectionOption::tube, {31}},
        {SectionOption::hsqload, {24, 25}}, {SectionOption::upgrade, {24, 25}},
    };
    for (const auto& [option, families] : options) {
        for (const FamilyTraits& family : Families()) {
            EXPECT_EQ(HasOption(family.id, option), families.count(family.id) == 1) << family.id;
        }
    }
}

TEST(SectionForm, WarnsOfTubesInClassFourOnly)
{
    ProjectState s{};
    s.family = 31;
    s.classn = 3;
    EXPECT_EQ(SectionWarning(s), "");
    s.classn = 4;
    EXPECT_EQ(SectionWarning(s), "Note: Local buckling not taken into account (Section Class 4)");
    s.family = 6;
    EXPECT_EQ(SectionWarning(s), "");
}

TEST(SectionForm, TellsTheCornersOfHollowSections)
{
    ASSERT_EQ(CornerNotes(7).size(), 1U);
    EXPECT_EQ(CornerNotes(6)[0], " r = 1.5*t ");
    ASSERT_EQ(CornerNotes(8).size(), 3U);
    EXPECT_EQ(CornerNotes(9)[0], " r = 2*t ; t<=6 ");
    EXPECT_EQ(CornerNotes(9)[1], " r = 2.5*t ; 6<t<=10 ");
    EXPECT_EQ(CornerNotes(9)[2], " r = 3*t ; t>10 ");
    EXPECT_TRUE(CornerNotes(23).empty());
}

TEST(SectionForm, HasEveryBoxOfItsFamilyOnce)
{
    std::set<const Box*> seen;
    for (const FamilyTraits& family : Families()) {
        for (const Box* const box : SectionBoxes(family.id)) {
            EXPECT_EQ(box->form, family.form);
            EXPECT_TRUE(seen.insert(box).second) << box->id;
        }
    }
    for (const Box& box : InputBoxes()) {
        EXPECT_EQ(seen.count(&box) == 1, box.form.starts_with("p")) << box.form << "." << box.id;
    }
}

// Panel bars

// A line has the bar of its own row: a remark between the rows has none and shifts none.
TEST(PanelBars, BelongToTheirRows)
{
    for (const FamilyTraits& family : Families()) {
        ProjectState s = Calculated(family.id);
        s.flangefactor = 0.5F;  // a remark on flange loading, where the family can have it
        s.checksls = kTrue;
        double largest = 0;
        for (const PanelBlock& block : ShowResults(s)) {
            for (const PanelLine& line : block) {
                const std::optional<double> bar = UtilisationOf(s, line);
                if (!line.row) {
                    EXPECT_FALSE(bar) << line.left[0].text;
                } else if (bar) {
                    EXPECT_NEAR(*bar * s.irlimit, s.checklist.row(*line.row).ratio, 1e-6);
                    largest = std::max(largest, *bar);
                }
            }
        }
        EXPECT_GT(largest, 0) << family.id;
    }
    EXPECT_FALSE(UtilisationOf(ProjectState{}, {}));
}

// The standard's result

// A beam of 6 m under 10 kN/m permanent and 5 kN/m variable load, Eq 6.10 of the European annex.
Member Beam()
{
    return Member("l=6 nload[1]=0 qload[2]=5 qtype[2]=1 loadcomb=0 checksls=true").Calculated();
}

TEST(StandardGroups, TheLargestOfThemIsTheResult)
{
    const Member s = Beam();
    const auto result = standard::CalculateStandard(Delivered(), s);
    double largest = 0;
    for (const StandardGroup& group : StandardGroups(s, result)) {
        EXPECT_TRUE(group.present);
        largest = std::max(largest, group.utilisation);
    }
    EXPECT_NEAR(largest, result.ir / s.irlimit, 1e-12);
    ProjectState without = s;
    without.checksls = kFalse;
    EXPECT_FALSE(StandardGroups(without, result)[2].present);
}

TEST(StandardGroups, StandBesideTheBlocksOfEveryFamily)
{
    for (const FamilyTraits& family : Families()) {
        const ProjectState s = Calculated(family.id);
        const auto result = standard::CalculateStandard(Delivered(), s);
        std::size_t present = 0, beside = 0;
        for (const StandardGroup& group : StandardGroups(s, result)) {
            present += group.present ? 1 : 0;
        }
        for (const PanelGroup& group : PanelGroups(s, result)) {
            ASSERT_FALSE(group.block.empty());
            EXPECT_EQ(group.utilisation.size(), group.block.size()) << family.id;
            EXPECT_FALSE(group.utilisation[0].has_value());
            beside += group.standard.present ? 1 : 0;
        }
        EXPECT_EQ(beside, present) << family.id;
    }
}

// EN 1990, Table A1.2(B): 1.35 and 1.0 on permanent actions, 1.5 on the variable one or none.
TEST(Combinations, HaveTheirFactorsAndOneGoverns)
{
    const Member s = Beam();
    const auto result = standard::CalculateStandard(Delivered(), s);
    std::set<std::string> factors;
    int governing = 0;
    for (const CombinationRow& row : CombinationRows(Delivered(), s)) {
        factors.insert(row.g + " " + row.q1);
        governing += row.governs ? 1 : 0;
        if (row.governs) {
            EXPECT_EQ(row.ratio, RatioFigure(result.ir, result.above) + "  governs");
            EXPECT_EQ(row.check, WordsOf(result.governing));
        }
    }
    EXPECT_EQ(governing, 1);
    EXPECT_EQ(factors, (std::set<std::string>{"1.35 1.50", "1.35 0.00", "1.00 1.50", "1.00 0.00",
                                              "1.00 1.00"}));
}

TEST(Deviations, AreListedByCostAndExplained)
{
    const ProjectState s = Calculated(26);  // a T section, with a moment of its own weight
    ProjectState loaded = s;
    loaded.nload[1] = 300;
    loaded.selfweight = 1;
    ASSERT_TRUE(Calculate(Delivered(), loaded));
    const ProjectState given = AsGiven(loaded);
    auto result = standard::CalculateStandard(Delivered(), given);
    const auto notes = DeviationRows(result, false, &loaded);
    standard::CalculateCosts(Delivered(), given, &loaded, result);
    const auto rows = DeviationRows(result, true, &loaded);
    ASSERT_FALSE(result.deviations.empty());
    for (const DeviationRow& note : notes) {
        EXPECT_FALSE(note.acts);
        EXPECT_TRUE(std::any_of(rows.begin(), rows.end(),
                                [&](const DeviationRow& row) { return row.id == note.id; }));
    }
    ASSERT_TRUE(rows[0].acts);
    EXPECT_EQ(*rows[0].acts, result.deviations[0].deviation);
    const Explanation why =
        Explain(Delivered(), given, &loaded, result, result.deviations[0].deviation);
    EXPECT_EQ(why.head, rows[0].id);
    ASSERT_GT(why.checks.size(), 1U);
    EXPECT_EQ(why.checks[0].written, RatioFigure(result.ir, result.above));
    EXPECT_EQ(why.checks[0].program,
              RatioFigure(result.deviations[0].without, result.deviations[0].without > 1));
    EXPECT_FALSE(why.checks[1].clause.empty());
}

// Help

TEST(BoxHelp, EveryBoxHasALabelAndAMeaning)
{
    for (const Box& box : InputBoxes()) {
        EXPECT_FALSE(HelpOf(box).label.empty()) << box.form << "." << box.id;
        EXPECT_FALSE(HelpOf(box).meaning.empty()) << box.form << "." << box.id;
        EXPECT_FALSE(AccessibleNameOf(box).empty());
    }
    EXPECT_FALSE(HelpOf(LoadDistanceBox()).meaning.empty());
}

TEST(BoxHelp, TellsMeaningUnitLimitsAndClause)
{
    EXPECT_EQ(TooltipOf(*FindBox("endstiff", "iweba")),
              "Spacing of the transverse web stiffeners [mm]\n100 < a < l\nEN 1993-1-5, 5.3");
    EXPECT_EQ(TooltipOf(*FindBox("Loading", "ipmx")),
              "Position of the point load from end 1 [m]\n0 < x <= l (x/L: 0 < x <= 1)");
    EXPECT_EQ(TooltipOf(*FindBox("p23", "ista")),
              "Overhang of the flange beyond the web [mm]\na >= 0, a < b/2-tw");
    EXPECT_EQ(HelpOf(*FindBox("p24", "iload")).label, "Max loading on one flange (%):");
    EXPECT_EQ(HelpOf(*FindBox("p24", "iload")).unit, " (50-90%) ");
    EXPECT_EQ(TooltipOf(*FindBox("p24", "iload")),
              "Share of the load that one side of the bottom flange takes at most [(50-90%)]\n"
              "50% <= Load on one flange <= 90%");
}

}  // namespace
}  // namespace kestrum
