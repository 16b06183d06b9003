#pragma once

// The limits of all boxes as the user meets them, for the tests that read boxes.

#include "app/input_boxes.h"

#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

namespace kestrum {

// What a box accepts and what it says, as the user meets it: form, box, texts that pass, texts that
// do not.
struct BoxCase {
    const char* form;
    const char* id;
    const char* good[3];
    const char* bad[3];
    const char* message;
};

inline const BoxCase kBoxCases[] = {
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

// With the boxes that several section forms share.
inline std::vector<BoxCase> BoxCases()
{
    std::vector<BoxCase> cases(std::begin(kBoxCases), std::end(kBoxCases));
    for (const char* form :
         {"p21", "p22", "p23", "p24", "p25", "p26", "p27", "p51", "p53", "p56"}) {
        cases.push_back({form, "isth", {"20", "21", "600"}, {"19.9", "0", ""}, " h >= 20 "});
    }
    for (const char* form : {"p21", "p22", "p23", "p24", "p26", "p51", "p53", "p56"}) {
        cases.push_back({form, "istb1", {"5", "6", "600"}, {"4.9", "0", ""}, " b >= 5 "});
    }
    for (const char* form :
         {"p21", "p22", "p23", "p24", "p25", "p26", "p27", "p28", "p31", "p51", "p53", "p56"}) {
        cases.push_back({form, "isttw", {"0.1", "6", "60"}, {"0.09", "0", ""}, " tw >= 0.1 "});
    }
    for (const char* form : {"p22", "p24", "p25", "p26", "p27", "p51", "p53", "p56"}) {
        cases.push_back({form, "isttf1", {"0.1", "6", "60"}, {"0.09", "0", ""}, " tf1 >= 0.1 "});
    }
    for (const char* form : {"p22", "p24", "p25", "p27"}) {
        cases.push_back({form, "isttf2", {"0.1", "6", "60"}, {"0.09", "0", ""}, " tf2 >= 0.1 "});
    }
    return cases;
}

// Boxes without limits.
inline const std::vector<const Box*>& FreeBoxes()
{
    static const std::vector<const Box*> kBoxes = [] {
        std::vector<const Box*> boxes;
        for (const auto& [form, id] :
             std::initializer_list<std::pair<const char*, const char*>>{{"Loading", "inn"},
                                                                        {"Loading", "iq"},
                                                                        {"Loading", "iqt1"},
                                                                        {"Loading", "iqt2"},
                                                                        {"Loading", "ipm"},
                                                                        {"endforce", "ine"},
                                                                        {"endforce", "imy1"},
                                                                        {"endforce", "imy2"},
                                                                        {"endforce", "imz1"},
                                                                        {"endforce", "imz2"},
                                                                        {"endforce", "ivy1"},
                                                                        {"endforce", "ivy2"},
                                                                        {"endforce", "ivz1"},
                                                                        {"endforce", "ivz2"}}) {
            boxes.push_back(FindBox(form, id));
        }
        return boxes;
    }();
    return kBoxes;
}

}  // namespace kestrum
