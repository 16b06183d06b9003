#pragma once

// The one record of inputs, settings and results. Everything the program knows about the member in
// hand stands here, in fixed arrays; every routine takes the record by reference, so that many
// members can be calculated side by side. A value-initialised record (`ProjectState s{};`) is the
// state of the program before its first project.
//
// Units, unless a field says otherwise: member lengths and positions m, section dimensions mm,
// areas mm2, second moments mm4, moduli mm3, warping constants mm6, stresses MPa, forces kN,
// moments kNm, line loads kN/m, deflections mm. N is positive in compression, a sagging moment and
// a downward load are positive. Booleans are 0 and -1; switches and options that are stored as
// numbers say so. Index conventions: `Rows<T, N>` is used from 1 to N (slot 0 stays empty unless
// told).

#include "core/dropped_loads.h"
#include "core/failure.h"
#include "core/result_row.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace kestrum {

using i16 = std::int16_t;

template <class T, std::size_t N> using Rows = std::array<T, N + 1>;

constexpr i16 kFalse = 0;
constexpr i16 kTrue = -1;

constexpr int kDiagramPoints = 51;  // x = j L/50
constexpr int kCheckSections = 41;  // capacity; npts is the last one used
constexpr int kSegments = 7;  // capacity of the lateral torsional buckling segments, used from 1

// Profile tables, one entry per file, in the order in which they are read.
enum class Table : std::uint8_t {
    hea,
    heb,
    hem,
    ipe,
    upe,
    shs,
    rhs,
    cfshs,
    cfrhs,
    l1,
    l2,
    inp,
    unp,
    l3,
    hp,
    ub,
    ubp,
    uc,
    j,
    ch,
    pfc
};
constexpr std::size_t kTables = 21;

// Input blocks of the parametric section forms; the names are those of the forms' boxes, mm.
struct FormP21 {
    float isth, istb1, isttw, isttf;
    bool operator==(const FormP21&) const = default;
};
struct FormP22 {
    float isth, istb1, istb2, isttw, isttf1, isttf2;  // 1 top flange, 2 bottom flange
    bool operator==(const FormP22&) const = default;
};
struct FormP23 {
    float isth, istb1, isttw, isttf, ista;  // ista: overhang of a flange beyond the web
    bool operator==(const FormP23&) const = default;
};
struct FormP24 {
    float isth, istb1, istb2, isttw, isttf1, isttf2, hsqc;  // isth without the bottom flange
    bool operator==(const FormP24&) const = default;
};
struct FormP25 {
    float isth, istb1, istb2, isttw, isttf1, isttf2, istc;  // istc: overhang at the closed side
    bool operator==(const FormP25&) const = default;
};
struct FormP26 {
    double isth, istb1, isttw;
    float isttf1;
    bool operator==(const FormP26&) const = default;
};
struct FormP27 {
    double isth, istb1, istb2, isttw, isttf1, isttf2;
    float istc;  // top flange beyond the web
    bool operator==(const FormP27&) const = default;
};
struct FormP28 {
    float isth, isttw;
    bool operator==(const FormP28&) const = default;
};
struct FormP31 {
    float istd, isttw;  // outer diameter, wall
    bool operator==(const FormP31&) const = default;
};
struct FormP41 {
    i16 opn, opmy, opmz;        // section class of N, My, Mz as chosen: 1 or 3
    float istax, istay, istaz;  // A, area for shear in y (flanges), area for shear in z (web), mm2
    float istix, istiy, istiz;  // torsion constant, second moments, mm4
    float istiw;                // mm6
    float istwely, istwelz, istwply, istwplz;  // mm3
    bool operator==(const FormP41&) const = default;
};
struct FormP51 {
    double isth, istb1, isttw;  // stiffener height, plate width, stiffener thickness
    float isttf1;               // plate thickness
    bool operator==(const FormP51&) const = default;
};
struct FormPlateRolled {  // 52 and 54: stiffener from a table
    double istb1;         // plate width
    float istt1;          // plate thickness
    bool operator==(const FormPlateRolled&) const = default;
};
struct FormP53 {
    double isth, istb1, istb2, isttw, isttf1;  // 1 plate, 2 stiffener flange
    float isttf2;
    bool operator==(const FormP53&) const = default;
};
struct FormP55 {  // kept for the file's sake; the family has no section
    double value1, value2, value3;
    float value4;
    double value5, value6;
    bool operator==(const FormP55&) const = default;
};
struct FormP56 {
    double isth, istb1, istb2, isttw, isttf1;
    float isttf2;
    bool operator==(const FormP56&) const = default;
};

struct ProjectState {
    bool operator==(const ProjectState&) const = default;

    // --- Identification -------------------------------------------------------------------------
    std::string filename;  // path of the open project; "New File" marks one never saved
    std::string projname;
    std::string ident;
    std::string annexcode;  // two letters, "EU" ..
    i16 annexindex;         // 0..8

    // --- Design settings (setup file; all but the four curve parameters also in the project) -----
    double gammam0;
    float gammam1;
    float neta;      // shear area factor eta, EN 1993-1-5, 5.1 (2)
    i16 method;      // interaction factors: 1 Annex A, 2 Annex B
    float lamdalt0;  // EN 1993-1-1, 6.3.2.3, rolled sections
    double beta;
    float lamdalt0w;  // the same, welded sections
    double betaw;
    i16 fykindex;            // row of the material list
    float fyk;               // MPa
    double fyd;              // fyk/gammam0
    float e;                 // modulus of elasticity, MPa
    float uflimit;           // stored and shown, read by no calculation
    float irlimit;           // limit of every utilisation ratio: 1.0
    i16 checkelastic;        // bool: class 1 and 2 designed elastically
    i16 checkconsercontrol;  // bool: linear interaction only, 6.2.1 (7)
    i16 checkflangebuck;     // bool: no effective width of flanges
    i16 checkwebbuck;        // bool: no effective width of webs
    i16 loadcomb;  // 0 Eq 6.10, 1 6.10a, 2 6.10b, 3 6.10a/b, 4 user factors, 5 basic loads
    i16 deflimity, deflimitz;  // n in L/n
    i16 safetyclass;           // 1..3
    i16 psi1index, psi2index;  // psi = (index + 1) * 0.1
    float psi1, psi2;
    float lfulsg, lfulsq1, lfulsq2;  // user factors, strength
    float lfslsg, lfslsq1, lfslsq2;  // user factors, serviceability
    i16 checksls;                    // bool: deflection control is part of the result

    // --- Member and supports
    // ----------------------------------------------------------------------
    float l;          // member length, m
    i16 supportcase;  // 0 pinned-pinned, 1 pinned-fixed, 2 fixed-fixed, 3 springs, 4 cantilever, 5
                      // pinned-spring
    i16 spring;       // end restraint, percent
    i16 endstiff;     // 1 rigid end post
    i16 webstiff;     // 1 transverse web stiffeners at webstiffa
    float webstiffa;  // stiffener spacing, mm
    i16 bcy, bcz;     // buckling curve: 0 automatic, 1 a0, 2 a, 3 b, 4 c, 5 d
    i16 bucklingcasey, bucklingcasez;  // 1..4 picture, 5 and up own factor
    float ly, lz;   // buckling length factors; below 0.002 no buckling about the axis
    float density;  // kg/m3
    i16 modal;      // 1 modal analysis runs

    // --- Lateral torsional buckling, inputs
    // ---------------------------------------------------------
    i16 ltb;         // 1 controlled
    i16 ltbavail;    // bool: the family can have it
    i16 ltbcase;     // 1..4
    float ltbk;      // length factor k (kz = kw)
    i16 restraints;  // number of lateral restraints of the compression flange
    i16 beampart;    // governing segment, 1..restraints + 1
    i16 cmanual;     // bool: C factors c1..c3 are used
    i16 c1alt;       // bool: alternative calculation of C1
    i16 ltbcurve;    // 2 general case 6.3.2.2, 3 rolled or welded 6.3.2.3
    double c1, c2, c3;
    i16 loadlevel;  // 1 top flange, 2 centroid, 3 bottom flange, 4 za
    double za;      // load above the centroid, mm

    // --- Loads
    // ------------------------------------------------------------------------------------
    i16 loadmode;    // 1 loads along the member, 0 given end forces
    i16 selfweight;  // 1 included
    // Categories: 0 G, 1 Q1, 2 Q2. Directions: 1 z (My, Vz, dz), 0 y (Mz, Vy, dy).
    Rows<float, 3> nload, ntype;
    Rows<i16, 3> nchecked;
    Rows<float, 4> qload;  // row 0 is the self-weight, filled by the analysis
    Rows<i16, 4> qtype, qdir, qchecked;
    Rows<float, 3> qt1, qt2, qtx1, qtx2, qttype, qtdir;
    Rows<i16, 3> qtchecked;
    Rows<i16, 8> pmkind;  // 0 force, 1 moment
    Rows<float, 8> pm, pmx;
    Rows<i16, 8> pmtype, pmdir, pmchecked;
    float ne;  // end forces
    float my1, my2, vy1, vy2, mz1, mz2, vz1, vz2;
    i16 pmrelative, qtrelative;  // 1: positions are edited as x/L

    // --- Check points
    // -------------------------------------------------------------------------------
    i16 cpmode;  // 0 eleven even points and pairs at point loads, 1 cp[1..cpcount]
    i16 cpcount;
    Rows<float, 3> cp;  // m
    i16 cprelative;

    // --- Vortex shedding, inputs
    // --------------------------------------------------------------------
    i16 terrain;     // 0..4: categories 0, I, II, III, IV
    i16 vortexcase;  // 0..4
    i16 spare1;      // kept for the file's sake
    float vb;        // m/s
    float zh;        // m
    float spare2;    // kept for the file's sake

    // --- Section choice
    // -----------------------------------------------------------------------------
    i16 family;
    std::array<i16, kTables> row;  // row index per table
    i16 series101;                 // 1 UB, 2 UC, 3 UBP
    i16 series103;                 // 1 CH, 2 PFC
    i16 rectaxis;      // 1 strong axis is y; otherwise the axes of 7 and 9 are exchanged
    i16 hsqopt;        // 0 flange loading considered, 1 not
    i16 lopt;          // angles: 1 one bolt, 2 two bolts
    i16 weldopt;       // box: 1 thick welds
    i16 tubehot;       // 1 hot finished
    i16 class23;       // 0 upgrade of class 3 webs, 6.2.2.4; 1 none
    float flangeload;  // percent of the load on one flange, family 24
    FormP21 p21;
    FormP22 p22;
    FormP23 p23;
    FormP24 p24;
    FormP25 p25;
    FormP26 p26;
    FormP27 p27;
    FormP28 p28;
    FormP31 p31;
    std::string p41ident;
    FormP41 p41;
    FormP51 p51;
    FormPlateRolled p52;
    FormP53 p53;
    FormPlateRolled p54;
    FormP55 p55;
    FormP56 p56;

    // --- Load factors of the annex in force, EN 1990
    // -------------------------------------------------
    float g610g, g610q1, g610q2;
    float g610ag, g610aq1, g610aq2;
    float g610bg;
    float xi610b;   // reduction of G in Eq 6.10b
    double kfig;    // class factor on G
    float kfiq;     // class factor on Q
    i16 governing;  // after selector 3: 1 Eq 6.10a, 2 Eq 6.10b

    // --- Section record
    // -------------------------------------------------------------------------------
    float h, b, tw, tf, r, r1, r2;
    float hw, d;    // clear web height; its straight part, the c of the class check
    float cflange;  // width of the flange part of the class check
    float bw, rin;  // clear width between webs; inner corner radius
    float bo;       // box: overhang of a flange
    float ecg, ys;  // centroid from the web back; shear centre as the tables give it
    float ey, ez;   // centroid distances of angles and plate sections
    float tmax;     // thickness that selects fyk
    float a, iy, iz, it, iw;
    float wely, welz, wply, wplz;
    float aeff, weffy, weffz;
    float weight;   // kg/m
    float surface;  // m2/m
    float aflange, aweb;
    float alfa;  // principal axes of angles, degrees
    float iu, iv;
    float u1, u2, v1, v2, v3, cu;  // points of angles from the principal axes; cu heel to u axis
    float cb, ch;                  // straight legs of unequal angles
    float wy1, wy2, wz1, wz2;      // moduli of angles at the points
    Rows<float, 3> wu, wv;
    // Sections of plates; top is the flange or plate compressed by a positive moment.
    float btop, ttop, bbot, tbot;
    float ctop, cbot;                        // outstands
    float ctopin, cbotin, ctopout, cbotout;  // box flanges: between and beyond the webs
    float zcog;  // centroid above the lower edge (26, 51 to 56: from the face of flange or plate)
    double zpl;  // plastic axis from the same edge
    float wyeltop, wyelbot;
    float weffytop1, weffytop2, weffybot1, weffybot2;  // 1 compressed fibre, 2 the other
    float wytop, wybot;                                // modulus in use by class, per sign
    float betaf, zshear, zjtop, zjbot, psiftop, psifbot;
    float flangefactor;       // reduction of My,Rd by flange loading
    float wplplus, wplminus;  // upgraded plastic moduli, M+ and M-
    // Material and class
    float eps;
    i16 classn, classmy, classmz;
    i16 classflange, classweb;
    i16 classmytop, classmybot;  // per sign; 23 marks the upgrade
    i16 openprofile;             // bool: torsional deformation matters

    // --- Resistances of the section
    // ---------------------------------------------------------------------
    double nplrd, ncrd;
    double mplyrd, mplzrd, melyrd, melzrd, meffyrd, meffzrd;
    double myrd, mzrd;             // by class, gammaM0
    double wyused, wzused;         // moduli on which they rest
    double nrdm1, myrdm1, mzrdm1;  // with gammaM1
    double mytoprd, mybotrd;       // per sign, gammaM1
    double avz, avy;
    double vzrd;  // of the 0.5 VRd test
    double vplzrd, vplyrd;
    double vbrd;                    // of the utilisation, with shear buckling
    double vyrd;                    // of the 0.5 VRd test
    double vcyrd;                   // of the utilisation
    double mfrd, mfzrd;             // flanges alone
    double mry1, mry2, mrz1, mrz2;  // angles: elastic, at the points
    double mrely, mrelz;
    Rows<double, 3> mru, mrv;
    double myaxrd, mzaxrd;  // angles: of the stability lines, gammaM1

    // --- Internal forces
    // ----------------------------------------------------------------------------------
    std::array<float, kCheckSections> xi;  // x/L
    i16 npts;                              // last index used
    std::array<float, kDiagramPoints> mydiag, vzdiag, mzdiag, vydiag, dzdiag, dydiag;
    std::array<double, kCheckSections> mysec, vzsec, vysec;
    std::array<float, kCheckSections> mzsec;
    double ned;
    double qsum;
    double mymax, mymin, xmymax, xmymin;
    double mzmax, mzmin, xmzmax, xmzmin;
    double vzmax, vzmin, xvzmax, xvzmin;
    double vymax, vymin, xvymax, xvymin;
    double dzmax, dzmin, dymax, dymin;
    double mymaxabs, mzmaxabs, dzmaxabs, dymaxabs;
    double mydesign;  // the extreme larger in size, with its sign
    float mzdesign;   // its size
    double my0, myq1, mymid, myq3, myl;
    double mz0, mzq1, mzmid, mzq3, mzl;
    float x0my1, x0my2, x0mz1, x0mz2;
    i16 mycurved, myendsbig, mylinear;  // bool
    i16 mzcurved, mzendsbig, mzlinear;
    double psiy, psiz;
    double mypeakratio, myendratio, mzpeakratio, mzendratio;
    i16 hasyloads, haszloads;  // bool: loads bending about y, about z

    // --- Section control
    // -------------------------------------------------------------------------------------
    double myed, mzed, vyed, vzed;  // at the section in hand, sizes (angles: moments signed)
    double mysigned;                // My of the section in hand with its sign
    i16 classmyuse;
    double myrdv, mzrdv, mnyrd, mnzrd;
    double alfaexp, betaexp;
    double nrdint;
    Literal shearnote;
    Rows<ResultRow, 3> secline;
    double irrow1, irrow2, irrow3;
    double irrow4, irrow5,
        irrow6;  // y sum, z sum and lateral torsional buckling of the stability stage
    double irsection;

    // --- Stability
    // -----------------------------------------------------------------------------------------------
    Literal curvey, curvez;
    double alphay;
    float alphaz;
    double ncry, ncrz, ncrv, ncru, ncrt, ncrtf;
    double lamy, lamz, lamv, lamu, lammax;
    double chiy, chiz, chiv, chiu;
    double nbyrd, nbzrd, nbvrd, nburd;
    ResultRow yline, zline, ltline;
    double maxirbuckling;
    double ltc1, ltc2, ltc3;  // C factors in use
    float kc;
    float lt;          // lateral torsional buckling length, m
    double zg, zload;  // load above the shear centre, above the centroid, mm
    double mcr, mcr0;  // Nmm
    float lamlt, lam0;
    double xlt, xlt0;
    float ffactor;
    double mltrd;
    float mydesignf;
    Rows<double, kSegments - 1> segc1, segc3, segmcr;
    double cmy0, cmz0, cmy, cmz, cmv, cmu;
    float cmlt;
    double alt, epsy, muy, muz;
    float wy, wz;
    double npl, blt, clt, dlt, elt;
    double cyy, cyz, czy, czz;
    double kyy, kyz, kzy, kzz, kvv, kvu;

    // --- Serviceability and dynamics
    // --------------------------------------------------------------------------------
    ResultRow deflinez, defliney;
    float modalmass;      // kg/m
    Rows<float, 3> freq;  // Hz
    float stb;            // width across the wind, m
    float st, vcrit, vm;  // Strouhal number; critical and mean wind speed, m/s

    // --- Outcome of the last pass
    // ---------------------------------------------------------------------------------------
    i16 errorflag;          // 0, or -1: the axial force exceeds an elastic critical force
    bool calculationerror;  // the pass ended in the one message
    bool flangeoverload;    // the pass has switched the flange loading off (family 24, 25)
    Failure failure;        // why it ended so; the step that runs while a pass is on its way
    DroppedLoads dropped;   // loads that were emptied; outlives a pass
};

}  // namespace kestrum
