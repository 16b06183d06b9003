#include "app/box_list.h"

namespace kestrum {

namespace {

constexpr Bound kNo{};

constexpr Bound Incl(double value)
{
    return {Bound::Kind::inclusive, value};
}

constexpr Bound Excl(double value)
{
    return {Bound::Kind::strict, value};
}

// clang-format off
constexpr Box kBoxes[] = {
    // Main window
    {"kestrum", "il", "l", "#0.000", Incl(0.05), kNo, " L >= 0.050 "},
    {"kestrum", "ibly", "ly", "#0.00", Incl(0.2), kNo, " Buckling length factor Y-axis >= 0.2 "},
    {"kestrum", "iblz", "lz", "#0.00", Incl(0.2), kNo, " Buckling length factor Z-axis >= 0.2 "},
    {"kestrum", "ifyk", "fyk", "#00", Incl(50), Incl(2000), " 50 <= fyk <= 2000 "},
    {"kestrum", "ispring", "spring", "#0", Incl(1), Incl(99), " 1 < Spring-restraint  > 99 "},
    // Setup
    {"setup", "igammam0", "gammam0", "#0.00", Incl(0.5), Incl(1.5), " 0.5 <= gammam0 <=1.5 "},
    {"setup", "igammam1", "gammam1", "#0.00", Incl(0.5), Incl(1.5), " 0.5 <= gammam1 <=1.5 "},
    {"setup", "ineta", "neta", "#0.00", Incl(1), Incl(1.2), " 1 <= neta <=1.2 "},
    {"setup", "ibeta", "beta", "#0.00", Incl(0.1), Incl(0.8), " 0.1 <= beta <= 0.8 "},
    {"setup", "ibetaw", "betaw", "#0.00", Incl(0.1), Incl(1), " 0.1 <= beta <= 1 "},
    {"setup", "ilamdaLT0", "lamdalt0", "#0.00", Incl(0.1), Incl(0.8), " 0.1 <= lamdaLT0 <= 0.8 "},
    {"setup", "ilamdaLT0w", "lamdalt0w", "#0.00", Incl(0.1), Incl(0.8), " 0.1 <= lamdaLT0 <= 0.8 "},
    {"setup", "ifyk", "fyk", "#00", Incl(50), Incl(2000), " 50 <= fyk <= 2000 "},
    {"setup", "ie", "e", "0.00E+0", Incl(1000), kNo, " 1000 <= E-modulus "},
    {"setup", "iuflimit", "uflimit", "#0.00", Incl(0), Incl(0.4), " 0 <= uflimit <= 0.4 "},
    {"setup", "idef_limity", "deflimity", "#0", Incl(100), Incl(1500), "100 <= Deflection <=1500 "},
    {"setup", "idef_limitz", "deflimitz", "#0", Incl(100), Incl(1500), "100 <= Deflection <=1500 "},
    {"setup", "iLfULS_G", "lfulsg", "#0.00", Excl(0), Excl(4.0), " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfULS_Q1", "lfulsq1", "#0.00", Excl(0), Excl(4.0), " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfULS_Q2", "lfulsq2", "#0.00", Excl(0), Excl(4.0), " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfSLS_G", "lfslsg", "#0.00", Excl(0), Excl(4.0), " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfSLS_Q1", "lfslsq1", "#0.00", Excl(0), Excl(4.0), " 0 < Loadfactor < 4.0 "},
    {"setup", "iLfSLS_Q2", "lfslsq2", "#0.00", Excl(0), Excl(4.0), " 0 < Loadfactor < 4.0 "},
    // Loading
    {"Loading", "inn", "nload", "#0.0", kNo, kNo, ""},
    {"Loading", "iq", "qload", "#0.0", kNo, kNo, ""},
    {"Loading", "iqt1", "qt1", "#0.0", kNo, kNo, ""},
    {"Loading", "iqt2", "qt2", "#0.0", kNo, kNo, ""},
    {"Loading", "ipm", "pm", "#0.0", kNo, kNo, ""},
    {"Loading", "iqtx1", "qtx1", "#0.000", kNo, kNo, " 0 < x1 <= l ", " 0 < x1 <= 1 ", BoxRule::position},
    {"Loading", "iqtx2", "qtx2", "#0.000", kNo, kNo, " 0 < x2 <= l ", " 0 < x2 <= 1 ", BoxRule::position},
    {"Loading", "ipmx", "pmx", "#0.000", kNo, kNo, " 0 < x <= l ", " 0 < x <= 1 ", BoxRule::position},
    // End forces
    {"endforce", "ine", "ne", "#0.0", kNo, kNo, ""},
    {"endforce", "imy1", "my1", "#0.0", kNo, kNo, ""},
    {"endforce", "imy2", "my2", "#0.0", kNo, kNo, ""},
    {"endforce", "imz1", "mz1", "#0.0", kNo, kNo, ""},
    {"endforce", "imz2", "mz2", "#0.0", kNo, kNo, ""},
    {"endforce", "ivy1", "vy1", "#0.0", kNo, kNo, ""},
    {"endforce", "ivy2", "vy2", "#0.0", kNo, kNo, ""},
    {"endforce", "ivz1", "vz1", "#0.0", kNo, kNo, ""},
    {"endforce", "ivz2", "vz2", "#0.0", kNo, kNo, ""},
    // Check points, stiffeners, lateral torsional buckling, vortex shedding
    {"chpoints", "icp", "cp", "#0.000", kNo, kNo, " 0 < x <= l ", " 0 <= x <= 1 ", BoxRule::position},
    {"endstiff", "iweba", "webstiffa", "#0", Incl(100), kNo, " 100 < a < l ", "", BoxRule::stiffeners},
    {"vipping", "ic1", "c1", "#0.000", Incl(0.2), Incl(4), " 0.2 <= C1i <= 4 "},
    {"vipping", "ic2", "c2", "#0.000", Incl(0), Incl(4), " 0 <= C2i <= 4 "},
    {"vipping", "ic3", "c3", "#0.000", Incl(0), Incl(4), " 0 <= C3i <= 4 "},
    {"frmVortex", "ivb", "vb", "##0", Incl(5), kNo, " vb >= 5 m/s "},
    {"frmVortex", "iz", "zh", "##0", Incl(1), kNo, " z >= 1 m "},
    // Section forms
    {"p21", "isth", "p21.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p22", "isth", "p22.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p23", "isth", "p23.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p24", "isth", "p24.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p25", "isth", "p25.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p26", "isth", "p26.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p27", "isth", "p27.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p51", "isth", "p51.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p53", "isth", "p53.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p56", "isth", "p56.isth", "##0", Incl(20), kNo, " h >= 20 "},
    {"p28", "isth", "p28.isth", "##0", Incl(5), kNo, " h >= 5 "},
    {"p21", "istb1", "p21.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p22", "istb1", "p22.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p23", "istb1", "p23.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p24", "istb1", "p24.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p26", "istb1", "p26.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p51", "istb1", "p51.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p53", "istb1", "p53.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p56", "istb1", "p56.istb1", "##0", Incl(5), kNo, " b >= 5 "},
    {"p22", "istb2", "p22.istb2", "##0", Incl(5), kNo, " b2 >= 5 "},
    {"p53", "istb2", "p53.istb2", "##0", Incl(5), kNo, " b >= 5 "},
    {"p56", "istb2", "p56.istb2", "##0", Incl(5), kNo, " b >= 5 "},
    {"p21", "isttw", "p21.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p22", "isttw", "p22.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p23", "isttw", "p23.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p24", "isttw", "p24.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p25", "isttw", "p25.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p26", "isttw", "p26.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p27", "isttw", "p27.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p28", "isttw", "p28.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p31", "isttw", "p31.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p51", "isttw", "p51.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p53", "isttw", "p53.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p56", "isttw", "p56.isttw", "##0.0", Incl(0.1), kNo, " tw >= 0.1 "},
    {"p21", "isttf", "p21.isttf", "##0.0", Incl(0.1), kNo, " tf >= 0.1 "},
    {"p23", "isttf", "p23.isttf", "##0.0", Incl(0.1), kNo, " tf >= 0.1 "},
    {"p22", "isttf1", "p22.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p24", "isttf1", "p24.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p25", "isttf1", "p25.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p26", "isttf1", "p26.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p27", "isttf1", "p27.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p51", "isttf1", "p51.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p53", "isttf1", "p53.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p56", "isttf1", "p56.isttf1", "##0.0", Incl(0.1), kNo, " tf1 >= 0.1 "},
    {"p22", "isttf2", "p22.isttf2", "##0.0", Incl(0.1), kNo, " tf2 >= 0.1 "},
    {"p24", "isttf2", "p24.isttf2", "##0.0", Incl(0.1), kNo, " tf2 >= 0.1 "},
    {"p25", "isttf2", "p25.isttf2", "##0.0", Incl(0.1), kNo, " tf2 >= 0.1 "},
    {"p27", "isttf2", "p27.isttf2", "##0.0", Incl(0.1), kNo, " tf2 >= 0.1 "},
    {"p53", "isttf2", "p53.isttf2", "##0.0", Incl(0.1), kNo, " tf >= 0.1 "},
    {"p56", "isttf2", "p56.isttf2", "##0.0", Incl(0.1), kNo, " tf >= 0.1 "},
    {"p23", "ista", "p23.ista", "##0", Incl(0), kNo, " a >= 0 ", " a < b/2-tw ", BoxRule::overhang},
    {"p24", "istb2", "p24.istb2", "##0", Excl(50), kNo, " b2 > 50 ", " b2 >= b1-2*tw ", BoxRule::hsqbottom},
    {"p24", "iload", "flangeload", "##0", Incl(50), Incl(90), " 50% <= Load on one flange <= 90% "},
    {"p25", "istb1", "p25.istb1", "##0", Excl(5), kNo, " 5 < b1 < (b2-c) ", "", BoxRule::hsqtop},
    {"p25", "istb2", "p25.istb2", "##0", Incl(5), kNo, " b2 >= 5 "},
    {"p25", "istc", "p25.istc", "##0.0", Incl(0), kNo, " 0 <= c <= b1/2 ", "", BoxRule::hsqoverhang},
    {"p27", "istb1", "p27.istb1", "##0", Incl(20), kNo, " b1 >= 20 ", "", BoxRule::boxtop},
    {"p27", "istb2", "p27.istb2", "##0", kNo, kNo, " b2 >= (a+tw) ", "", BoxRule::boxbottom},
    {"p27", "istc", "p27.istc", "##0", Incl(0), kNo, " c >= 0 "},
    {"p31", "istd", "p31.istd", "##0.0", Incl(20), kNo, " d >= 20 "},
    {"p52", "istb1", "p52.istb1", "", Excl(0), kNo, " b1 > 0 "},
    {"p52", "istt1", "p52.istt1", "", Incl(0.1), kNo, " t1 >= 0.1 "},
    {"p54", "istb1", "p54.istb1", "", Excl(0), kNo, " b1 > 0 "},
    {"p54", "istt1", "p54.istt1", "", Incl(0.1), kNo, " t1 >= 0.1 "},
    {"p41", "istax", "p41.istax", "##0", Incl(50), kNo, " A >= 50 "},
    {"p41", "istay", "p41.istay", "##0", Incl(50), kNo, " Ay >= 50 "},
    {"p41", "istaz", "p41.istaz", "##0", Incl(50), kNo, " Az >= 50 "},
    {"p41", "istix", "p41.istix", "0.000E+0", Incl(1000), kNo, " Ix >= 1000 "},
    {"p41", "istiy", "p41.istiy", "0.000E+0", Incl(1000), kNo, " Iy >= 1000 "},
    {"p41", "istiz", "p41.istiz", "0.000E+0", Incl(1000), kNo, " Iz >= 1000 "},
    {"p41", "istiw", "p41.istiw", "0.000E+0", Incl(1000), kNo, " Iw >= 1000 "},
    {"p41", "istwely", "p41.istwely", "0.000E+0", Incl(1000), kNo, " Wely >= 1000 "},
    {"p41", "istwelz", "p41.istwelz", "0.000E+0", Incl(1000), kNo, " Welz >= 1000 "},
    {"p41", "istwply", "p41.istwply", "0.000E+0", Excl(1000), kNo, " 1000 < Wply "},
    {"p41", "istwplz", "p41.istwplz", "0.000E+0", Excl(1000), kNo, " 1000 < Wplz "},
};
// clang-format on

}  // namespace

std::span<const Box> BoxList()
{
    return kBoxes;
}

}  // namespace kestrum
