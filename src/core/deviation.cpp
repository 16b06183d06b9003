#include "core/deviation.h"

#include <algorithm>
#include <array>

namespace kestrum {

namespace {

struct Described {
    Dev deviation;
    std::string_view name, text;
};

// clang-format off
#define DEVIATION(number, text) Described{Dev::d##number, "D" #number, text}

constexpr std::array kDescribed = {
    DEVIATION(20,
        "The shear area factor is still 1.2 although the strength is above 460 MPa; choose the "
        "annex again to get the 1.0 of EN 1993-1-5, 5.1 (2)."),
    DEVIATION(21,
        "The grade keeps its strength over 40 mm here; EN 1993-1-1, Table 3.1 gives S355 H 335 "
        "MPa and the grades MH/MLH none."),
    DEVIATION(22,
        "A part is thicker than 80 mm, where EN 1993-1-1, Table 3.1 ends; enter the strength of "
        "the product standard as own value."),
    DEVIATION(23,
        "Eq 6.10 takes the permanent loads with 1.1 in this annex; EN 1990, Table A1.2(B) gives "
        "1.35."),
    DEVIATION(24,
        "The partial factor gammaM1 is 1.0 in this annex; DIN EN 1993-1-1/NA gives 1.1."),
    DEVIATION(25,
        "The class factor of the lowest consequences class does not count in Eq 6.10; the "
        "National Annex counts 0.9 in every equation."),
    DEVIATION(26,
        "Eq 6.10a takes the permanent loads with 1.1; EN 1990, Table A1.2(B) gives 1.35."),
    DEVIATION(27,
        "A permanent load that acts against a variable one is taken with its full factor; EN "
        "1990, Table A1.2(B) takes it with 1.0."),
    DEVIATION(28,
        "Eq 6.10 multiplies the loads of class Q2 by the psi value of Q1, which is below that of "
        "Q2."),
    DEVIATION(29,
        "The shear areas of the box have no factor eta; EN 1993-1-1, 6.2.6 (3) takes eta hw tw "
        "for each web."),
    DEVIATION(30,
        "The flange part of the shear buckling resistance counts the whole width of the flange; "
        "EN 1993-1-5, 5.4 (1) takes at most 15 eps tf on each side of the web."),
    DEVIATION(31,
        "The moment of the flanges in the shear buckling resistance is above that of the weaker "
        "flange, which EN 1993-1-5, 5.4 (2) takes."),
    DEVIATION(32,
        "The shear area takes the factor eta, although the web has a flange at one end only; EN "
        "1993-1-1, 6.2.6 (3) takes tw (h - tf/2)."),
    DEVIATION(33,
        "With a class 3 web the plastic axis lies in the other flange, and the plastic modulus is "
        "above that of EN 1993-1-1, 6.2.2.4, by up to 3.5 %."),
    DEVIATION(34,
        "Where Mz compresses the web of the channel, EN 1993-1-1, Table 5.2 gives it class 3 or "
        "worse and the elastic modulus; the plastic one is used."),
    DEVIATION(35,
        "A variable load that relieves the member keeps its factor; EN 1990, Table A1.2(B) leaves "
        "it out, and a ratio is higher without it."),
    DEVIATION(36,
        "Only Q1 is taken as the leading variable load; with Q2 leading (EN 1990, 6.4.3.2 and "
        "6.5.3) a ratio is higher."),
    DEVIATION(37,
        "The strength is that of EN 1993-1-1, Table 3.1; the National Annex of the United Kingdom "
        "takes the product standard, which gives a lower one for this thickness. Enter it as own "
        "value."),
    DEVIATION(38,
        "A flat bar below a plate counts between two welds, although its tip has none; EN "
        "1993-1-1, Table 5.2 counts from the weld to the tip."),
    DEVIATION(39,
        "The stem of a T counts from the flange; EN 1993-1-1, Table 5.2 counts it from the weld."),
    DEVIATION(40,
        "The web may buckle in shear, and the moment resistance is reduced by EN 1993-1-1, 6.2.8; "
        "EN 1993-1-5, 7.1 has an interaction of its own for such webs."),
    DEVIATION(41,
        "A high shear force takes less or more from the moment resistance than the reduced "
        "strength of the whole shear area, EN 1993-1-1, 6.2.8 (3)."),
    DEVIATION(42,
        "The class beside an axial force follows the stresses that act, and parts that tension "
        "keeps stretched have none; EN 1993-1-1, 5.5.2 classes at yield."),
    DEVIATION(43,
        "Elastic design: the elastic moment resistances of classes 1 and 2 are combined by the "
        "plastic formulas of EN 1993-1-1, 6.2.9.1 and the plastic columns of Annexes A and B; "
        "6.2.9.2 and the elastic columns belong to them."),
    DEVIATION(44,
        "The axial force is above Npl,Rd, where 6.2.9.1 leaves no moment resistance; the "
        "combination with the moments has no ratio."),
    DEVIATION(45,
        "Walls of hollow sections that buckle in shear count with the shear area of EN 1993-1-1, "
        "6.2.6; EN 1993-1-5, 5.2 (1) takes the clear height and the thickness of both walls."),
    DEVIATION(46,
        "Whether a web may buckle in shear is asked without its transverse stiffeners; EN "
        "1993-1-5, 5.1 (2) has a limit of its own for webs with stiffeners."),
    DEVIATION(47,
        "The shear resistance of a web that may buckle is not held to Vpl,Rd; EN 1993-1-1, 6.2.6 "
        "(6) asks for shear buckling in addition to it."),
    DEVIATION(48,
        "Beside both moments the ratio of each moment with the axial force stays in the result; "
        "Eq (6.41) has their powers only, which are lower below 1."),
    DEVIATION(51,
        "Half the flange width is used as the outstand in class and effective width; EN 1993-1-1, "
        "Table 5.2 counts it from the root."),
    DEVIATION(52,
        "The surface follows a simplified outline."),
    DEVIATION(53,
        "Effective widths of the hollow section are based on the flat between the corners; EN "
        "1993-1-5, 4.4 (2) takes the wider b - 3t."),
    DEVIATION(54,
        "The shear centre is counted from the middle of the web, half a web thickness too far, "
        "and the torsional critical force comes out too low."),
    DEVIATION(55,
        "Stresses about the principal axes are found at mid-thickness of the leg tips; the "
        "outermost corner of a tip can be stressed higher."),
    DEVIATION(56,
        "The yield strength is that for thickness up to 40 mm; with thicker parts enter the lower "
        "value of EN 1993-1-1, Table 3.1 as own value."),
    DEVIATION(57,
        "z_j of the single-symmetric section is taken by its approximate formula; EN 1993-1-1, "
        "6.3.2.2 (2) takes the exact value."),
    DEVIATION(58,
        "It of UPE 300 is 34.0 cm4 in the table; other publications and finite elements give "
        "31.5."),
    DEVIATION(59,
        "It of this row is that of the table, which other publications and finite elements do not "
        "support; mostly they give a lower one."),
    DEVIATION(60,
        "It and Iw of the tapered channel are those of its catalogue; finite elements of the "
        "outline give lower ones."),
    DEVIATION(61,
        "The area of this channel is below that of its outline and of its mass."),
    DEVIATION(62,
        "The figures of J 203x152x52 contradict its mass and outline; about z they are up to 2 % "
        "too high."),
    DEVIATION(101,
        "A trapezoidal load acts as 20 point loads; exact integrals give moments and shear forces "
        "that differ by a rounding."),
    DEVIATION(102,
        "A spring of s percent mixes the pinned and the fixed result by percent; EN 1993-1-8, 5.1 "
        "takes the rotational stiffness of the joint."),
    DEVIATION(103,
        "The self-weight relieves the member and is taken with 10 m/s2, 2 % too heavy."),
    DEVIATION(104,
        "The moment on the spring support is mixed with the end moment of a fixed beam; elastic "
        "analysis gives a larger moment near the support."),
    DEVIATION(105,
        "The shear force of a cantilever has the opposite sign, without effect on a ratio."),
    DEVIATION(106,
        "Loads that the section family does not take are left out; EN 1993-1-1, 6.2.9 combines "
        "all forces that act."),
    DEVIATION(107,
        "The shape of the moment line is judged on its right half and by its middle, and is taken "
        "as that of a point load or as straight, which gives more favourable factors for "
        "buckling."),
    DEVIATION(109,
        "A moment or shear force between the points of the section control is more than 1 % "
        "larger than at these points; add a check point there."),
    DEVIATION(110,
        "A load off the member is calculated like any other; the standard basis refuses it."),
    DEVIATION(151,
        "The exponents of biaxial bending go with moments reduced for shear; EN 1993-1-1, 6.2.10 "
        "(3) reduces the yield strength of the shear area first."),
    DEVIATION(152,
        "The ratio of Vy takes two thirds of the plastic shear resistance of the flanges; EN "
        "1993-1-1, 6.2.6 (2) takes all of it."),
    DEVIATION(153,
        "Moments without an axial force keep the classes of the single moments; EN 1993-1-1, "
        "5.5.2 gives the section one class under all forces."),
    DEVIATION(154,
        "The flange part of the shear buckling resistance is hardly reduced for the axial force "
        "(EN 1993-1-5, 5.4 (2))."),
    DEVIATION(155,
        "Class 3 of the web is found with one formula for all stress ratios; under tension with "
        "bending EN 1993-1-1, Table 5.2 gives class 4."),
    DEVIATION(156,
        "A part exactly at a limit of Table 5.2 counts to the worse class; the standard includes "
        "the limits."),
    DEVIATION(157,
        "Class 3 of the flanges under N and Mz is found with the stress ratio of the whole "
        "flange; EN 1993-1-5, Table 4.2 gives class 4."),
    DEVIATION(158,
        "The test for high shear does not count the transverse stiffeners; EN 1993-1-1, 6.2.8 (2) "
        "has one shear resistance."),
    DEVIATION(159,
        "The flange part of the shear buckling resistance rests on the entered stiffener spacing, "
        "although there are no stiffeners and the supports are further apart."),
    DEVIATION(160,
        "The effective modulus about z is that of the tension edge; EN 1993-1-5 takes the "
        "compressed edge, which gives a smaller one."),
    DEVIATION(161,
        "The moment resistance about z is reduced for shear by half of what EN 1993-1-1, 6.2.8 "
        "(3) gives."),
    DEVIATION(162,
        "The flanges' local buckling is not taken into account in bending about z."),
    DEVIATION(163,
        "Combined forces are checked with the formulas of doubly symmetric I sections; choose the "
        "conservative control for EN 1993-1-1, 6.2.1 (7)."),
    DEVIATION(164,
        "The shift of the centroid of the effective section in compression is not taken into "
        "account (EN 1993-1-1, 6.2.9.3 (2))."),
    DEVIATION(165,
        "The compressed share of the web refers to its clear height; EN 1993-1-1, Table 5.2 takes "
        "the straight part, which gives a worse class."),
    DEVIATION(166,
        "A wall exactly at a limit of Table 5.2 counts to the worse class, and the limit of class "
        "3 has one formula for every stress ratio."),
    DEVIATION(167,
        "The shear resistance shown for Vy of an unequal angle is that of the long leg; the ratio "
        "takes the short one."),
    DEVIATION(168,
        "The class of the webs under tension and My counts the tension against one web; EN "
        "1993-1-1, Table 5.2 gives a worse class."),
    DEVIATION(169,
        "The flange of the box beyond its webs is neither classed nor reduced for local buckling; "
        "as an outstand it has a worse class than the section."),
    DEVIATION(170,
        "The moment resistance with axial force counts the flanges of the box with the thickness "
        "of the webs, which is above EN 1993-1-1, 6.2.9.1 (5)."),
    DEVIATION(171,
        "The exponent of biaxial bending turns negative near the squash load; EN 1993-1-1, "
        "6.2.9.1 (6) takes 6."),
    DEVIATION(172,
        "The resistance of slender flanges to Vy rests on gammaM0; EN 1993-1-5, 5.2 takes "
        "gammaM1."),
    DEVIATION(173,
        "The class entered for N is not read where N acts with moments; the plastic interaction "
        "is used by the class of the moment."),
    DEVIATION(174,
        "The adjacent walls add nothing to the resistance to shear buckling; EN 1993-1-5, 5.4 "
        "allows it."),
    DEVIATION(175,
        "The tube is of section class 4, and local buckling is not taken into account."),
    DEVIATION(176,
        "Forces and moments of the tube about y and z are checked separately or by their sum, not "
        "by their resultant."),
    DEVIATION(177,
        "The tension does not reduce the moment resistance of the flat bar; EN 1993-1-1, 6.2.9.1 "
        "(3) does."),
    DEVIATION(178,
        "Bending and shear across the thickness of the flat bar are not checked."),
    DEVIATION(179,
        "Shear exceeds half the resistance and does not reduce the moment resistance; EN "
        "1993-1-1, 6.2.8 does."),
    DEVIATION(180,
        "The web is more than half of the area; its share in the moment resistance with axial "
        "force is not held at 0.5 as in EN 1993-1-1, 6.2.9.1 (5)."),
    DEVIATION(181,
        "The legs of the angle are slender; its moment resistance is not reduced for local "
        "buckling, and its area by the straight parts of the legs only."),
    DEVIATION(182,
        "A row adds the stresses about the geometric axes without their product of inertia; EN "
        "1993-1-1, 6.2.1 (5) takes the principal axes."),
    DEVIATION(183,
        "The effective modulus of the class 4 web rests on a centroid too near to the compressed "
        "edge and may exceed the plastic modulus; EN 1993-1-5, 4.4 gives a lower moment "
        "resistance, for very slender webs less than half."),
    DEVIATION(184,
        "The outstands of the compressed bottom flange are not classified; EN 1993-1-1, Table 5.2 "
        "gives a worse class."),
    DEVIATION(185,
        "The load on the bottom flange is taken to act 60 mm from the web."),
    DEVIATION(186,
        "The plastic axis is found in steps of 0.1 mm."),
    DEVIATION(187,
        "A part in uniform compression exactly at a limit of Table 5.2 counts to the worse class; "
        "the standard includes the limits."),
    DEVIATION(188,
        "The class 3 limit of the web is up to 2 % above that of EN 1993-1-1, Table 5.2, which "
        "gives class 4."),
    DEVIATION(189,
        "This section is checked for My and Vz only; axial force, Mz and Vy are not taken into "
        "account."),
    DEVIATION(190,
        "N with a moment and the flanges in shear are taken as in a doubly symmetric I with mean "
        "flanges; the moment resistance with N can be lower by up to a quarter. There the "
        "conservative control is safe."),
    DEVIATION(191,
        "The bottom flange is taken to resist 1.75 times its elastic plate moment, and My,Rd is "
        "lowered by half of the rest only."),
    DEVIATION(192,
        "Web and flange of the T are classified with 10, 11 and 15 eps; EN 1993-1-1, Table 5.2 "
        "has 9, 10 and 14 eps."),
    DEVIATION(193,
        "The T takes its effective area in compression in class 3 too; EN 1993-1-1, 6.2.4 takes "
        "the gross area."),
    DEVIATION(194,
        "Axial force and moment of the T are summed linearly in every class; EN 1993-1-1, 6.2.9.1 "
        "allows a plastic resistance in classes 1 and 2."),
    DEVIATION(195,
        "The compressed part of the web of a stiffened plate counts from the flange; EN 1993-1-5, "
        "4.4 counts it between the welds."),
    DEVIATION(196,
        "The critical moment is that of a stiffener tripping about a root that the plate holds in "
        "place."),
    DEVIATION(197,
        "Bending is taken about y; the section has no symmetry about z and must be held sideways."),
    DEVIATION(198,
        "The shift of the centroid of the effective section in compression is not taken into "
        "account (EN 1993-1-1, 6.2.9.3 (2))."),
    DEVIATION(199,
        "The flange part of the shear buckling resistance rests on the entered stiffener spacing, "
        "although there are no stiffeners and the supports are further apart."),
    DEVIATION(200,
        "The effective modulus about z is that of the flanges alone; EN 1993-1-5, 4.3 takes the "
        "effective section about its centroid."),
    DEVIATION(201,
        "Lateral torsional buckling is checked for the moments at the restraints; the larger "
        "moment between them is not seen."),
    DEVIATION(202,
        "Critical forces take pi with the digits of single precision."),
    DEVIATION(203,
        "The buckling curves of S460 are used for a strength below 460 MPa; Table 6.2 gives lower "
        "ones."),
    DEVIATION(204,
        "Curve b is used for a box with thick welds and stocky plates; Table 6.2 gives c."),
    DEVIATION(205,
        "The automatic buckling curve of British channels is not updated; choose curve c for both "
        "axes."),
    DEVIATION(206,
        "The slenderness about u and v rests on the gross area in class 4; EN 1993-1-1, 6.3.1.2 "
        "(1) takes the effective area."),
    DEVIATION(207,
        "Torsional or torsional-flexural buckling has a lower critical force than flexural "
        "buckling and is not checked (6.3.1.4)."),
    DEVIATION(208,
        "The interaction factors of Annex A leave the torsional critical force of the section out "
        "and come out too low."),
    DEVIATION(209,
        "The torsional-flexural critical force couples with buckling about y instead of z and is "
        "too high in the factors of Annex A."),
    DEVIATION(210,
        "Fixed ends under a uniform load have C1 = 2.578, a case that EN 1993-1-1, 6.3.2.2 (2) "
        "leaves open."),
    DEVIATION(211,
        "The C factors of lateral torsional buckling are extrapolated beyond k = 1; those of k = "
        "1 give a higher ratio. Check them, or enter them by hand."),
    DEVIATION(212,
        "The factor C3 of the governing segment lies in a range where the table used here is not "
        "continuous; compare the critical moment by other means."),
    DEVIATION(213,
        "A load below the shear centre is taken as stabilising; an upward load there "
        "destabilises."),
    DEVIATION(214,
        "The general curve reduces from a slenderness of 0.2 on; EN 1993-1-1, 6.3.2.2 (4) allows "
        "to leave it out up to lamLT0."),
    DEVIATION(215,
        "Lateral torsional buckling of the welded section uses the parameters of rolled sections."),
    DEVIATION(216,
        "The reduction factor of lateral torsional buckling is divided by a factor f below 1 "
        "although kc is above 1; ratios with it are too low and may even be negative. Choose the "
        "general case."),
    DEVIATION(217,
        "The moment factor of Annex A combines the serviceability deflection with the strength "
        "moment and comes out too low."),
    DEVIATION(218,
        "Annex A takes the plastic column for a moment of class 1 or 2 although another action "
        "puts the section into class 3 or 4."),
    DEVIATION(219,
        "The axial ratio of Annex A rests on gammaM0; Table A.1 takes gammaM1."),
    DEVIATION(220,
        "An axial force equal to a critical force gives huge factors instead of none."),
    DEVIATION(221,
        "The moment factors of Annex B rest on the smaller end moment; Table B.3 takes the larger "
        "and gives more."),
    DEVIATION(222,
        "The moment factors of Annex B are 0.6 for any end moments; Table B.3 gives up to 1.0."),
    DEVIATION(223,
        "Annex B takes the plastic column by the class of My although another action puts the "
        "section into class 3 or 4."),
    DEVIATION(224,
        "The factors of Mz, kyz and kzz, are not updated for this section in class 1 and 2 and "
        "are below those of Table B.1; choose Annex A."),
    DEVIATION(225,
        "kzy of Annex B has no branch below a slenderness of 0.4; Table B.2 allows 0.6 + lamz."),
    DEVIATION(226,
        "Lateral torsional buckling of angles is not checked."),
    DEVIATION(227,
        "The factors about u of an angle are those about v; Table B.1 takes the moments about u."),
    DEVIATION(228,
        "Without a control of lateral torsional buckling the calculation does not know the "
        "torsional length of the member, and the interaction factors of Annex A come out too low; "
        "switch the control on."),
    DEVIATION(229,
        "Lateral torsional buckling of a flat bar is checked together with axial compression "
        "only."),
    DEVIATION(230,
        "The buckling check has no additional moment from the shift of the centroid in class 4."),
    DEVIATION(231,
        "The moment of the self-weight is not combined with the axial force in the buckling "
        "check."),
    DEVIATION(232,
        "Buckling may be left out for an axial force alone; EN 1993-1-1, 6.3.1.2 (4) allows it "
        "with moments too."),
    DEVIATION(233,
        "The critical moment between lateral restraints takes a straight moment line and no load "
        "level; the loads there lower it."),
    DEVIATION(234,
        "C1 does not see the moments on pinned ends and is too high; choose the alternative "
        "calculation of C1."),
    DEVIATION(235,
        "kc of the reduction for lateral torsional buckling is 1/sqrt(C1); Table 6.6 gives a "
        "higher one for fixed ends under uniform load."),
    DEVIATION(236,
        "An axis without buckling has no row of 6.3.3, although the axial force and lateral "
        "torsional buckling still act together."),
    DEVIATION(237,
        "The buckling length factor of the cantilever is below 2.0; a tip that nothing holds "
        "buckles with twice the length. Choose 2.0 for the axes about which the tip is free."),
    DEVIATION(238,
        "The critical moment of the cantilever is that of a pinned beam at half its factor k; EN "
        "1993-1-1, 6.3.2.2 (2) takes that of the cantilever."),
    DEVIATION(239,
        "Rolled sections with h/b above 3.1 take curve c for lateral torsional buckling; the "
        "National Annex of the United Kingdom gives d."),
    DEVIATION(240,
        "Axial force and bending of a section that is not doubly symmetric follow Eq (6.61) and "
        "(6.62); EN 1993-1-1, 6.3.3 (1) does not cover it, and the sum of the ratios is used "
        "instead."),
    DEVIATION(241,
        "The moment factors of Annex B follow the moments where the buckling length is longer "
        "than the member; Table B.3 has 0.9 for the sway mode."),
    DEVIATION(242,
        "Cm,0 of Annex A is that of a uniform load or of a point load at mid-span; the general "
        "form of EN 1993-1-1, Table A.2 gives more for these loads."),
    DEVIATION(243,
        "Without compression both moments of this member are not combined by EN 1993-1-1, Eq "
        "(6.61) and (6.62)."),
    DEVIATION(244,
        "The critical moment of uniform moment in Annex A takes the effective length kL and C1 up "
        "to 1.05; EN 1993-1-1, Table A.1 takes the uniform moment of the member."),
    DEVIATION(245,
        "Annex A counts the slenderness of uniform moment although lateral torsional buckling is "
        "not controlled; for members that cannot twist EN 1993-1-1, Table A.1 has lambda0 = 0."),
    DEVIATION(246,
        "Without an axial force Annex A takes Cmy,0 for Cmy; by EN 1993-1-1, Table A.2 Cmy comes "
        "to 1 there."),
    DEVIATION(247,
        "epsilon_y of class 4 takes the whole area, and the modulus by the class of the moment; "
        "EN 1993-1-1, Table A.1 takes Aeff and Weff,y of the section."),
    DEVIATION(248,
        "The axial force exceeds an elastic critical force, and the factors of Annex B are used "
        "all the same; EN 1993-1-1, 6.3.3 holds for members that have not buckled."),
    DEVIATION(249,
        "The largest moment of the member is the largest of 51 points; it lies between them."),
    DEVIATION(251,
        "The mass of the modal analysis counts uniform loads only, and upward ones as negative; "
        "with the mass of the other loads the frequencies are lower."),
    DEVIATION(252,
        "1 kN/m counts as 102 kg/m instead of 101.94."),
    DEVIATION(253,
        "The frequency constants have two or three digits."),
    DEVIATION(254,
        "Terrain category III has the roughness length 0.03 m here; EN 1991-1-4, Table 4.1 gives "
        "0.3 m and a lower mean wind speed."),
    DEVIATION(255,
        "The natural frequency of the vortex check is up to 0.5 % too high by a rounded constant; "
        "check the margin between 1.25 vm and vcrit."),
    DEVIATION(256,
        "The vortex check takes the mass of the section alone; other mass that the member carries "
        "lowers the frequency and the critical wind speed."),
    DEVIATION(257,
        "The Strouhal number of very flat or very narrow boxes is the last one of EN 1991-1-4, "
        "Table E.1."),
    DEVIATION(258,
        "The whole deflection is compared with the limit; EN 1990, A1.4.3 (1) allows to take a "
        "precamber off."),
    DEVIATION(259,
        "The vortex check takes a support of its own, which is stiffer than that of the member; "
        "choose the member's."),
    DEVIATION(260,
        "The angle deflects by its second moments of area about y and z alone; where nothing "
        "holds it sideways the product of inertia makes it deflect more."),
    DEVIATION(261,
        "The largest deflection is read at 51 points; it is a little larger between them."),
};

#undef DEVIATION
// clang-format on

constexpr bool Complete()
{
    for (std::size_t i = 0; i < kDescribed.size(); ++i) {
        if (IndexOf(kDescribed[i].deviation) != i) {
            return false;
        }
    }
    return kDescribed.size() == kDeviations;
}

static_assert(Complete(), "each deviation has its sentence, in the order of the numbers");

}  // namespace

std::string_view NameOf(Dev deviation)
{
    return kDescribed[IndexOf(deviation)].name;
}

std::string_view TextOf(Dev deviation)
{
    return kDescribed[IndexOf(deviation)].text;
}

std::optional<Dev> DeviationOf(std::string_view name)
{
    const auto found = std::find_if(kDescribed.begin(), kDescribed.end(),
                                    [&](const Described& at) { return at.name == name; });
    if (found == kDescribed.end()) {
        return std::nullopt;
    }
    return found->deviation;
}

}  // namespace kestrum
