#include "core/check_text.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace kestrum {
namespace {

// Compression of 100 kN against 500 kN.
Check Axial()
{
    Check check{};
    check.form = CheckForm::compression;
    check.terms = {100.04, 500.05};
    check.ratio = 0.2;
    return check;
}

Check AtSection(CheckForm form, double x)
{
    Check check{};
    check.form = form;
    check.place = {.kind = CheckPlace::Kind::section, .x = x};
    return check;
}

std::string LimitOf(const Check& check)
{
    return TextOf(check).limit;
}

TEST(CheckText, WritesLabelCalculationResultAndLimit)
{
    const RowText text = TextOf(Axial());
    EXPECT_EQ(text.label, "IR = NEd/NRd = ");
    EXPECT_EQ(text.calculation, "100.0/500.1 = ");
    EXPECT_EQ(text.result, "0.20");
    EXPECT_EQ(text.limit, " < 1.0 (Ch 6.2.4)");
}

TEST(CheckText, WritesThePlaceInFrontOfTheClause)
{
    EXPECT_EQ(LimitOf(AtSection(CheckForm::my, 0.35)), " < 1.0 (0.35L; Ch 6.2.5)");
    Check point = AtSection(CheckForm::leg_axes, 0.5);
    point.place.kind = CheckPlace::Kind::point;
    point.place.number = 2;
    EXPECT_EQ(LimitOf(point), " < 1.0 (0.50L, point: 2, Ch 6.2.1)");
    Check segment{};
    segment.form = CheckForm::ltb;
    for (const auto& [number, expected] :
         {std::pair{1, "0 - L/3"}, {2, "1L/3 - 2L/3"}, {3, "2L/3 -  L"}}) {
        segment.place = {.kind = CheckPlace::Kind::segment,
                         .number = static_cast<std::int16_t>(number),
                         .parts = 3};
        EXPECT_EQ(LimitOf(segment), " < 1.0 (" + std::string(expected) + ";  (Ch 6.3.2))");
    }
}

TEST(CheckText, ANoteEndsTheLimit)
{
    Check check = AtSection(CheckForm::vz, 1);
    check.note = " Support stiffener recommended)";
    EXPECT_EQ(LimitOf(check), " < 1.0 (1.00L; Ch 6.2.6 Support stiffener recommended)");
}

TEST(CheckText, CitesAnEquationOrNothingInPlaceOfTheClause)
{
    Check check{};
    check.form = CheckForm::eq661_flat_bar;
    EXPECT_EQ(LimitOf(check), " < 1.0 (Eq 6.61)");
    EXPECT_EQ(TextsOf(check.form).clause, "6.3.3");
    check.form = CheckForm::deflection_z;
    EXPECT_EQ(LimitOf(check), " < 1.0");
    EXPECT_EQ(TextsOf(check.form).clause, "7.2");
}

TEST(CheckText, NamesTheMomentResistanceThatShearReduces)
{
    Check check = AtSection(CheckForm::my_mz_plastic, 0);
    EXPECT_EQ(FormulaOf(check), "[My,Ed/My,Rd]^alfa + [Mz,Ed/Mz,Rd]^beta");
    check.shear_z = true;
    EXPECT_EQ(FormulaOf(check), "[My,Ed/MV,y,Rd]^alfa + [Mz,Ed/Mz,Rd]^beta");
    check.form = CheckForm::n_my_mz_plastic;
    check.shear_y = true;
    EXPECT_EQ(FormulaOf(check), "(My,Ed/MVN,y,Rd)^alfa  + (Mz,Ed/MVN,z,Rd)^beta");
}

// With seven digits 12345.649 is 12345.65, whose half goes up; with fifteen there is no half.
TEST(CheckText, CountsDigitsByThePrecisionOfTheNumber)
{
    Check check{};
    check.form = CheckForm::ltb;  // {f}/({R}*{F})
    check.terms = {12345.649, 0.00499999998, 12345.649};
    EXPECT_EQ(TextOf(check).calculation, "12345.7/(0.00*12345.6) = ");
}

// Tension of 55 kN, -1.2 and 2.5 kNm at a point where the first moment counts with its own sign and
// the second against it: |55/300 - 1.2/4 - 2.5/10| = 0.37, as the reader adds it up.
TEST(CheckText, ShowsSignedTermsAsTheyAddUp)
{
    Check check{};
    check.form = CheckForm::leg_axes;
    check.terms = {-55, 300, -1.2, 4, 2.5, 10, -1, 1, -1};
    EXPECT_EQ(ShownTextOf(check).calculation, "55.0/300.0-1.2/4.0-2.5/10.0 = ");
    EXPECT_EQ(TextOf(check).calculation, "-55.0/300.0+-1.2/4.0+2.5/10.0 = ");
    check.terms[0] = 0;
    EXPECT_EQ(ShownTextOf(check).calculation, "0.0/300.0-1.2/4.0-2.5/10.0 = ");
}

// Tension takes part in the linear sum with its size: 50/1000 + 30/120 = 0.30.
TEST(CheckText, ShowsTensionInASumWithItsSize)
{
    Check check{};
    check.form = CheckForm::n_my_linear;
    check.terms = {-50, 1000, 30, 120};
    EXPECT_EQ(ShownTextOf(check).calculation, "50.0/1000.0+30.0/120.0 = ");
    check.form = CheckForm::tension;
    check.terms = {-50, 1000};
    EXPECT_EQ(ShownTextOf(check).calculation, "-50.0/1000.0 = ");  // tension by its sign
}

TEST(CheckText, ShowsACheckWithoutSignsAsItStands)
{
    EXPECT_EQ(ShownTextOf(Axial()), TextOf(Axial()));
}

TEST(CheckText, LeavesResultAndLimitOfARemarkEmpty)
{
    Check check{};
    check.form = CheckForm::no_buckling;
    EXPECT_EQ(TextOf(check), (RowText{"No Buckling", "", "", ""}));
    EXPECT_FALSE(IsJudged(check));
}

TEST(CheckText, IsEmptyForAnUnusedRow)
{
    EXPECT_EQ(TextOf(Check{}), RowText{});
    EXPECT_EQ(ShownTextOf(Check{}), RowText{});
    EXPECT_FALSE(IsJudged(Check{}));
}

TEST(CheckText, ShowsTheLimitAndTheRatioRounded)
{
    Check check = Axial();
    check.ratio = 1.000001;
    check.limit = 0.95f;
    EXPECT_EQ(TextOf(check).result, "1.00");
    EXPECT_EQ(TextOf(check).limit, " < 1.0 (Ch 6.2.4)");  // 0.95 in "0.0"
    check.limit = 0.9f;
    EXPECT_EQ(TextOf(check).limit, " < 0.9 (Ch 6.2.4)");
    check.ratio = 12.345;
    EXPECT_EQ(TextOf(check).result, "12.35");
}

// A form left out of the table, a clause or a name left empty would leave an answer without it.
TEST(CheckText, EveryFormAndCheckIsDescribed)
{
    std::set<CheckId> written;
    for (std::size_t i = 1; i < static_cast<std::size_t>(CheckForm::count); ++i) {
        const auto form = static_cast<CheckForm>(i);
        const CheckText& texts = TextsOf(form);
        Check check{};
        check.form = form;
        EXPECT_FALSE(texts.formula.empty()) << i;
        EXPECT_NE(texts.id, CheckId::none) << i;
        EXPECT_EQ(texts.clause.empty(), texts.remark) << texts.formula;
        EXPECT_EQ(TermsOf(check) == 0, texts.remark) << texts.formula;
        EXPECT_LE(TermsOf(check), check.terms.size()) << texts.formula;
        written.insert(texts.id);
    }
    EXPECT_EQ(written.size(), kChecks - 1);
    std::set<std::string_view> names;
    for (std::size_t i = 1; i < kChecks; ++i) {
        EXPECT_TRUE(names.insert(NameOf(static_cast<CheckId>(i))).second) << i;
    }
    EXPECT_EQ(names.count(""), 0U);
}

}  // namespace
}  // namespace kestrum
