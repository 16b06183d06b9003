// The checks of one cross-section, EN 1993-1-1, 6.2, with sections and forces set by hand: which
// check there is, by which clause, with which resistances, and which deviations it comes across.

#include "standard/section_place.h"

#include "standard/standard_member.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string_view>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::Classes;
using standard::ForcesAt;
using standard::PreparedSection;
using standard::SectionMember;
using standard::SectionPlace;
using standard::SectionTerms;

// What the checks leave at a place.
struct Found {
    standard::Ratios ratios;
    standard::ShearShares rho;

    const standard::Ratio& Of(CheckId id) const { return ratios[static_cast<std::size_t>(id)]; }
};

// A section whose places are checked; N, mm.
struct Bench {
    PreparedSection p{};
    Classes classes{1, {1, 1}, 1, {1, 1}, 1};
    Basis basis = Basis::Standard();
    standard::ShearInputs shear{0, 4000, false, false};
    bool cantilever = false;
    double flange_load = 0;
    SectionTerms told{};

    SectionMember Of() const { return {p, shear, cantilever, flange_load, {}, nullptr}; }
    template <class Check> Found At(const ForcesAt& f, const Check& check)
    {
        const SectionMember member = Of();
        SectionPlace at{member, p, p.q, classes, classes.all, f, basis, &told};
        check(at);
        return {at.ratios, at.rho};
    }
    bool Met(Dev deviation) const { return basis.met()[IndexOf(deviation)]; }
};

// fy 250; A 4000, Aeff 3000; Wpl,y 5e5, Wel,y 4e5 above, 3.2e5 below; Weff,y 3e5 and 2e5; about z
// 2e5, 1.6e5, 1e5.
Bench Of(Kind kind)
{
    Bench b;
    standard::StandardSection& q = b.p.q;
    q.kind = kind;
    q.fy = 250;
    q.eps = q.eta = q.gammam0 = q.gammam1 = 1;
    q.webs = 1;
    q.h = 200;
    q.b = 100;
    q.tw = 10;
    q.hw = q.d = 180;
    q.top = q.bottom = {100, 10};
    q.above = 80;
    q.below = q.left = q.right = 100;
    q.a = b.p.stocky_area = 4000;
    q.avz = q.avy = 2000;
    q.iy = 3.2e7;
    q.iz = 1.6e7;
    q.wply = 5e5;
    q.wplz = 2e5;
    b.p.effective.a = 3000;
    b.p.effective.wy3_sagging = 4e5;
    b.p.effective.wy3_hogging = 3.2e5;
    b.p.effective.wy_sagging = 3e5;
    b.p.effective.wy_hogging = 2e5;
    b.p.effective.wz = 1e5;
    b.p.class_n = 1;
    return b;
}

void OfClass(Bench& b, int cls)
{
    b.p.class_n = cls;
    b.classes = {cls, {cls, cls}, cls, {cls, cls}, cls};
}

ForcesAt Moments(double my, double mz, double n = 0)
{
    return {0, n, my, mz, 0, 0};
}

double Ratio(const Found& at, CheckId id)
{
    return at.Of(id).ir;
}

// --- 6.2.5, 6.2.8 --------------------------------------------------------------------------------

TEST(SectionPlace, TheClauseOfAMomentNamesTheShearThatReducesIt)
{
    for (const standard::ShearShares& rho :
         {standard::ShearShares{0, 0}, standard::ShearShares{0.3, 0},
          standard::ShearShares{0, 0.3}}) {
        for (const Kind kind : {Kind::i_rolled, Kind::angle}) {
            Bench b = Of(kind);
            OfClass(b, kind == Kind::angle ? 3 : 1);
            const auto at = b.At(Moments(1e6, 1e6), [&](SectionPlace& place) {
                place.rho = rho;
                kind == Kind::angle ? CheckAngleStresses(place) : CheckMoments(place);
            });
            const std::string_view clause = rho.z + rho.y > 0 ? "6.2.8" : "6.2.5";
            EXPECT_EQ(at.Of(CheckId::section_my).clause, clause);
            EXPECT_EQ(at.Of(CheckId::section_mz).clause, clause);
        }
    }
}

// D153 switched back: each moment has its own class: My plastic, 25/125; Mz elastic, 10/40.
TEST(SectionPlace, ProgramsMomentsHaveTheirOwnClasses)
{
    Bench b = Of(Kind::i_rolled);
    b.basis = Basis::StandardBut(Dev::d153);
    b.classes.mz = 3;
    auto at = b.At(Moments(25e6, 10e6), standard::CheckMoments);
    EXPECT_NEAR(Ratio(at, CheckId::section_my), 25 / 125.0, 1e-12);
    EXPECT_NEAR(Ratio(at, CheckId::section_mz), 10 / 40.0, 1e-12);
    EXPECT_NEAR(b.told.moment_z, 40e6, 1e-3);
}

// Without My its resistance is that under sagging, as everywhere.
TEST(SectionPlace, NoMomentCountsAsSagging)
{
    Bench b = Of(Kind::tee);
    OfClass(b, 4);
    b.At(Moments(0, 1e6), standard::CheckMoments);
    EXPECT_NEAR(b.told.moment_y, 75e6, 1e-3);
    b.flange_load = 10;  // N/mm
    b.p.effective.eny = 20;
    auto at = b.At(Moments(0, 0, 75e3), standard::CheckLoadedFlange);
    EXPECT_NEAR(b.told.beside_shear.my, 75e6, 1e-3);
    // 75/750 + 75e3 20/75e6; across 10 60/(250 100/4)
    const double along = 0.1 + 0.02, across = 600 / 6250.0;
    EXPECT_NEAR(Ratio(at, CheckId::section_nm),
                std::sqrt(along * along + across * across + along * across), 1e-12);
}

// 6.2.8 beside the resultant of both shear forces: D176 asks what a tube does under both.
TEST(SectionPlace, ATubeUnderForcesOfOnePlaneMeetsNoDeviation)
{
    Bench b = Of(Kind::tube);
    const auto all = [](SectionPlace& at) {
        CheckShear(at);
        CheckMoments(at);
    };
    b.At({0, 0, 1e6, 0, 100e3, 0}, all);
    b.At({0, 0, 0, 1e6, 100e3, 0}, all);
    EXPECT_FALSE(b.Met(Dev::d176));
    b.At({0, 0, 1e6, 1e6, 100e3, 0}, all);
    EXPECT_TRUE(b.Met(Dev::d176));
    // Mz alone is the moment about the axis of the tube.
    b.basis = Basis::StandardBut(Dev::d176);
    auto at = b.At(Moments(0, 25e6), all);
    EXPECT_NEAR(Ratio(at, CheckId::section_my), 25 / 125.0, 1e-12);
    EXPECT_LT(Ratio(at, CheckId::section_mz), 0);
}

// --- 6.2.6 ---------------------------------------------------------------------------------------

// Av 2000 mm2, 250/sqrt 3: 288.675 kN; three quarters of it take (2 0.75 - 1)^2 of the strength.
TEST(SectionPlace, ShearOfOtherSectionsThanAnglesCountsByBothRules)
{
    Bench b = Of(Kind::i_rolled);
    b.basis = Basis::StandardBut(Dev::d179);
    const double force = 0.75 * 2000 * 250 / std::sqrt(3);
    EXPECT_NEAR(b.At({0, 0, 0, 0, force, 0}, standard::CheckShear).rho.z, 0.25, 1e-12);
    EXPECT_NEAR(b.At({0, 0, 0, 0, 0, force}, standard::CheckShear).rho.y, 0.25, 1e-12);
}

TEST(SectionPlace, OnlyHighShearMeetsTheDeviationsOfHighShear)
{
    const double high = 0.75 * 2000 * 250 / std::sqrt(3);
    for (const Kind kind : {Kind::angle, Kind::general}) {
        for (const bool along_z : {true, false}) {
            Bench b = Of(kind);
            b.At({0, 0, 0, 0, along_z ? high / 2 : 0, along_z ? 0 : high / 2},
                 standard::CheckShear);
            EXPECT_FALSE(b.Met(Dev::d179));
            const auto at =
                b.At({0, 0, 0, 0, along_z ? high : 0, along_z ? 0 : high}, standard::CheckShear);
            EXPECT_TRUE(b.Met(Dev::d179));
            EXPECT_NEAR(at.rho.z + at.rho.y, 0.25, 1e-12);
        }
    }
    Bench web = Of(Kind::i_welded);
    web.p.q.tw = 2;  // 90 above 72
    web.At({0, 0, 0, 0, 10e3, 0}, standard::CheckShear);
    EXPECT_FALSE(web.Met(Dev::d40));
    EXPECT_EQ(web.At({0, 0, 0, 0, 60e3, 0}, standard::CheckShear).rho.z, 0);
    EXPECT_TRUE(web.Met(Dev::d40));
}

// --- 6.2.9 ---------------------------------------------------------------------------------------

TEST(SectionPlace, OneMomentAloneIsNoCombination)
{
    for (const int cls : {1, 3, 4}) {
        for (const Kind kind : {Kind::i_rolled, Kind::tee}) {
            Bench b = Of(kind);
            OfClass(b, cls);
            b.p.effective.eny = 20;
            for (const ForcesAt& f : {Moments(1e6, 0), Moments(0, 1e6), Moments(0, 0)}) {
                auto at = b.At(f, standard::CheckBendingAndAxial);
                EXPECT_LT(Ratio(at, CheckId::section_nm), 0) << cls;
            }
            auto both = b.At(Moments(1e6, 1e6), standard::CheckBendingAndAxial);
            EXPECT_GT(Ratio(both, CheckId::section_nm), 0) << cls;
        }
    }
}

// N 100, My 20, Mz 5 of a T: 100/1000 + 20/100 + 5/40 of class 3; 100/750 + (20 + 100 0.02)/75 + (5
// + 100 0.01)/25 of class 4; plastic 100/1000 + 20/125 + 5/50, 6.2.1 (7).
TEST(SectionPlace, SumsOfTheClassesThatHaveNoFormula)
{
    Bench b = Of(Kind::tee);
    b.p.effective.eny = 20;
    b.p.effective.enz = 10;
    const auto check = [&](int cls, double expected, std::string_view clause) {
        OfClass(b, cls);
        auto at = b.At(Moments(20e6, 5e6, 100e3), standard::CheckBendingAndAxial);
        EXPECT_NEAR(Ratio(at, CheckId::section_nm), expected, 1e-12);
        EXPECT_EQ(at.Of(CheckId::section_nm).clause, clause);
    };
    check(1, 0.1 + 0.16 + 0.1, "6.2.1 (7)");
    check(3, 0.1 + 0.2 + 0.125, "6.2.9.2");
    check(4, 100 / 750.0 + 22 / 75.0 + 6 / 25.0, "6.2.9.3");
    b.p.q.elastic = true;
    check(1, 0.1 + 0.2 + 0.125, "6.2.9.2");
    b.p.q.linear = true;
    check(3, 0.1 + 0.2 + 0.125, "6.2.1 (7)");
}

// N of Npl itself: the formulas of 6.2.9.1 leave no moment resistance; the sum is 1 + 25/125.
TEST(SectionPlace, AtTheSquashForceTheSumStays)
{
    Bench b = Of(Kind::i_rolled);
    auto at = b.At(Moments(25e6, 0, 1000e3), standard::CheckBendingAndAxial);
    EXPECT_NEAR(Ratio(at, CheckId::section_nm), 1.2, 1e-12);
}

// D153 switched back, 6.2.1 (7): N with the area of its class 4, My plastic, Mz elastic; a class 3
// of My makes the whole elastic by name.
TEST(SectionPlace, ProgramsSumHasAClassForEachForce)
{
    Bench b = Of(Kind::tee);
    b.basis = Basis::StandardBut(Dev::d153);
    b.p.class_n = 4;
    b.classes.n_mz = b.classes.mz = 3;
    const ForcesAt f = Moments(20e6, 5e6, 100e3);
    auto at = b.At(f, standard::CheckBendingAndAxial);
    EXPECT_NEAR(Ratio(at, CheckId::section_nm), 100 / 750.0 + 20 / 125.0 + 5 / 40.0, 1e-12);
    b.classes.n_my = b.classes.my = {3, 1};
    b.classes.n_mz = b.classes.mz = 1;
    at = b.At(f, standard::CheckBendingAndAxial);
    EXPECT_NEAR(Ratio(at, CheckId::section_nm), 100 / 750.0 + 20 / 100.0 + 5 / 50.0, 1e-12);
    EXPECT_EQ(at.Of(CheckId::section_nm).clause, "6.2.9.2");
}

// D153: of moments alone, and only of those that act, whose class a tension betters.
TEST(SectionPlace, TheClassOfAMomentAloneIsAskedForWhereATensionBettersIt)
{
    const auto met = [](const Classes& classes, const ForcesAt& f) {
        Bench b = Of(Kind::i_rolled);
        b.classes = classes;
        b.At(f, standard::CheckBendingAndAxial);
        return b.Met(Dev::d153);
    };
    const Classes of_my{1, {3, 1}, 1, {1, 1}, 1}, of_mz{1, {1, 1}, 3, {1, 1}, 1};
    EXPECT_TRUE(met(of_my, Moments(1e6, 0, -1e5)));
    EXPECT_FALSE(met(of_my, Moments(-1e6, 0, -1e5)));
    EXPECT_FALSE(met(of_my, Moments(0, 1e6, -1e5)));
    EXPECT_TRUE(met(of_mz, Moments(0, 1e6, -1e5)));
    EXPECT_FALSE(met(of_mz, Moments(1e6, 0, -1e5)));
    EXPECT_FALSE(met({1, {1, 1}, 1, {1, 1}, 1}, Moments(1e6, 1e6, -1e5)));
    // Without My its class under hogging moments is of no account.
    EXPECT_FALSE(met({1, {1, 1}, 1, {1, 3}, 1}, Moments(0, 1e6, -1e5)));
}

// D42: by stresses at the place are classed, of the program, sections with webs between flanges
// where N acts beside a moment.
TEST(SectionPlace, StressesClassSectionsBesideAnAxialForceOnly)
{
    const auto met = [](Kind kind, const ForcesAt& f) {
        Bench b = Of(kind);
        b.At(f, standard::CheckBendingAndAxial);
        return b.Met(Dev::d42);
    };
    EXPECT_TRUE(met(Kind::i_rolled, Moments(1e6, 0, 1e5)));
    EXPECT_TRUE(met(Kind::i_rolled, Moments(0, 1e6, 1e5)));
    EXPECT_TRUE(met(Kind::i_rolled, Moments(1e6, 1e6, -1e5)));
    EXPECT_FALSE(met(Kind::i_rolled, Moments(1e6, 1e6)));
    EXPECT_FALSE(met(Kind::tee, Moments(1e6, 0, 1e5)));
    Bench pressed = Of(Kind::i_single);  // N alone in class 4, which shifts it
    OfClass(pressed, 4);
    pressed.At(Moments(0, 0, 1e5), standard::CheckBendingAndAxial);
    EXPECT_FALSE(pressed.Met(Dev::d42));
}

// N 200, Mz 10 of an I, web 280x10, flanges 290x10 of class 3: A 8600, Wel,z (2 10 290^3 + 280
// 10^3)/12/145 = 280494; 200/2021 + 10/65.916. By stresses or not, both moments or one.
TEST(SectionPlace, ProgramsClassByStressesIsThatOfTheMomentThatActs)
{
    Member s = Unloaded(3, 235).Section(FormP21{300, 290, 10, 10});
    s.EndForces(200, 0, 10);
    const double expected = 200 / 2021.0 + 10 / (280494.2 * 235e-6);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), expected, 1e-6);
    EXPECT_NEAR(Back(s, Dev::d42, CheckId::section_nm), expected, 1e-6);
}

// --- Angles, 6.2.1 (5) ---------------------------------------------------------------------------

Bench Angle(int cls)
{
    Bench b = Of(Kind::angle);
    OfClass(b, cls);
    b.p.whole_angle.a = b.p.effective_angle.a = 4000;
    for (standard::AngleSection* angle : {&b.p.whole_angle, &b.p.effective_angle}) {
        angle->iu = 1e7;
        angle->iv = 5e6;
        angle->cosine = 1;
        angle->corners.fill({50, 50, true, true});
    }
    return b;
}

TEST(SectionPlace, AnglesAreCheckedUnderAllForcesWhereThereAreSeveral)
{
    const auto check = [](int cls, const ForcesAt& f) {
        Bench b = Angle(cls);
        return b.At(f, standard::CheckAngleStresses).Of(CheckId::section_nm);
    };
    for (const ForcesAt& f :
         {Moments(0, 0, 1e5), Moments(0, 0, -1e5), Moments(1e6, 0), Moments(0, 1e6)}) {
        EXPECT_LT(check(3, f).ir, 0);
    }
    for (const ForcesAt& f : {Moments(0, 0, -1e5), Moments(1e6, 0), Moments(0, 1e6)}) {
        EXPECT_LT(check(4, f).ir, 0);
    }
    EXPECT_GT(check(4, Moments(0, 0, 1e5)).ir, 0) << "N acts beside the effective centroid";
    for (const ForcesAt& f : {Moments(1e6, 0, 1e5), Moments(0, 1e6, -1e5), Moments(1e6, 1e6)}) {
        for (const int cls : {3, 4}) {
            EXPECT_GT(check(cls, f).ir, 0);
            EXPECT_EQ(check(cls, f).clause, cls == 4 ? "6.2.9.3" : "6.2.9.2");
        }
    }
}

// --- EN 1993-1-5, 7.1 ----------------------------------------------------------------------------

// Web 1000x5 between flanges 200x20, doubly symmetric: Mf,Rd 4000 1020 250 = 1020 kNm, with the web
// 5 1000^2/4 250 = 312.5 more.
Bench SlenderWeb()
{
    Bench b = Of(Kind::i_welded);
    standard::StandardSection& q = b.p.q;
    q.h = 1040;
    q.hw = q.d = 1000;
    q.tw = 5;
    q.top = q.bottom = b.p.pressed_top = b.p.pressed_bottom = {200, 20};
    q.above = q.below = 520;
    q.a = 13000;
    q.iy = 2e9;
    return b;
}

// A moment and a share of the resistance of the web along z.
double WebRatio(Bench& b, const ForcesAt& forces, double eta3, double length)
{
    return b
        .At(forces,
            [&](SectionPlace& at) {
                at.along_z = {200e3, 100e3, true};
                at.f.vz = eta3 * 100e3;
                CheckWebBending(at, length);
            })
        .Of(CheckId::section_mv)
        .ir;
}

TEST(SectionPlace, BendingAndShearOfASlenderWeb)
{
    Bench b = SlenderWeb();
    const ForcesAt f{3, 0, 1200e6, 0, 0, 0};
    const double whole = 1332.5, over = 2 * 0.8 - 1;
    EXPECT_NEAR(WebRatio(b, f, 0.8, 6), 1200 / whole + (1 - 1020 / whole) * over * over, 1e-9);
    EXPECT_LT(WebRatio(b, f, 0.5, 6), 0) << "half the resistance takes nothing";
    EXPECT_NEAR(WebRatio(b, f, 0.504, 6), 1200 / whole + (1 - 1020 / whole) * 0.008 * 0.008, 1e-9);
    EXPECT_LT(WebRatio(b, {3, 0, 1000e6, 0, 0, 0}, 0.8, 6), 0) << "the flanges take the moment";
}

// 7.1 (2): not within hw/2 = 0.5 m of a support with a rigid end post.
TEST(SectionPlace, WebsNearRigidEndPosts)
{
    Bench b = SlenderWeb();
    const auto checked = [&](double x) { return WebRatio(b, {x, 0, 1200e6, 0, 0, 0}, 0.8, 6) > 0; };
    EXPECT_TRUE(checked(0));
    b.shear.rigid_end_post = true;
    EXPECT_FALSE(checked(0));
    EXPECT_FALSE(checked(0.499));
    EXPECT_TRUE(checked(0.5));
    EXPECT_TRUE(checked(0.501));
    EXPECT_TRUE(checked(5.499));
    EXPECT_TRUE(checked(5.5));
    EXPECT_FALSE(checked(5.501));
    EXPECT_FALSE(checked(6));
    b.cantilever = true;
    EXPECT_FALSE(checked(0.499));
    EXPECT_TRUE(checked(6)) << "no support there";
}

// 7.1 (5): a web that is compressed all over counts without the flanges. N 1300 kN: 100 MPa, as
// much as My of 400 kNm at the edges of the web, 500 mm away; the flanges have 2000 kN. Nothing is
// left beside 13000 250 = 3250 kN.
TEST(SectionPlace, WebsCompressedAllOver)
{
    Bench b = SlenderWeb();
    const auto ratio = [&](double n) { return WebRatio(b, {3, n, 400e6, 0, 0, 0}, 0.8, 6); };
    EXPECT_GT(ratio(1300e3), 0);
    EXPECT_EQ(b.told.flanges, 0);
    EXPECT_GT(ratio(1299e3), 0);
    EXPECT_NEAR(b.told.flanges, 1020e6 * (1 - 1299.0 / 2000), 1e-3);
    EXPECT_LT(ratio(3250e3), 0);
}

// --- 6.2.9.1 -------------------------------------------------------------------------------------

TEST(SectionPlace, ExponentsAreToldOfTwoMoments)
{
    for (const ForcesAt& f :
         {Moments(20e6, 5e6, 1e5), Moments(20e6, 0, 1e5), Moments(0, 5e6, 1e5)}) {
        Bench b = Of(Kind::i_rolled);
        b.At(f, standard::CheckBendingAndAxial);
        const bool both = f.my != 0 && f.mz != 0;
        EXPECT_EQ(b.told.alpha, both ? 2 : 0);
        EXPECT_EQ(b.told.beta, both ? 1 : 0);
    }
}

// Web 160x5 with a fifth of its strength beside shear: of A 4000 it takes 640, N/Npl = 95/840; half
// of the web would carry 100 kN without shear and 20 beside it: MN,y = (1 - n)/(1 - 0.5 0.2) of
// what 6.2.8 leaves, 5e5 - 0.8 5 160^2/4.
TEST(SectionPlace, TheWebThatShearWeakensCarriesLessOfTheAxialForce)
{
    Bench b = Of(Kind::i_rolled);
    standard::StandardSection& q = b.p.q;
    q.top = q.bottom = {100, 16};
    q.hw = q.d = 160;
    q.tw = 5;
    const auto at = b.At(Moments(50e6, 0, 95e3), [](SectionPlace& place) {
        place.rho.z = 0.8;
        CheckBendingAndAxial(place);
    });
    const double left = (5e5 - 0.8 * 32000) * 250, n = 95.0 / 840;
    EXPECT_NEAR(Ratio(at, CheckId::section_nm), 50e6 / (left * (1 - n) / 0.9), 1e-9);
}

// D180 is of general profiles whose axial force is not negligible; this web has more than half of
// the area.
TEST(SectionPlace, TheShareOfTheWebIsAQuestionOfGeneralProfiles)
{
    const auto met = [](Kind kind, double n) {
        Bench b = Of(kind);
        b.p.q.top = b.p.q.bottom = {100, 5};
        b.At(Moments(1e6, 0, n), standard::CheckBendingAndAxial);
        return b.Met(Dev::d180);
    };
    EXPECT_TRUE(met(Kind::general, 800e3));
    EXPECT_FALSE(met(Kind::i_rolled, 800e3));
    EXPECT_FALSE(met(Kind::general, 10e3));
}

}  // namespace
}  // namespace kestrum
