#include "app/box_help.h"

#include "app/cell_reader.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

namespace {

// clang-format off
constexpr BoxHelp kHelp[] = {
    {"kestrum", "il", "Length L", "m", "Length of the member"},
    {"kestrum", "ibly", "y", "", "Buckling length over member length, buckling about the y axis", "EN 1993-1-1, 6.3.1.3"},
    {"kestrum", "iblz", "z", "", "Buckling length over member length, buckling about the z axis", "EN 1993-1-1, 6.3.1.3"},
    {"kestrum", "ifyk", "fy", "MPa", "Yield strength", "EN 1993-1-1, 3.2.1"},
    {"kestrum", "ispring", "Restraint", "%", "Rotational restraint of the ends, 100 % is fixed"},
    {"setup", "igammam0", "γM0", "", "Partial factor for the resistance of cross-sections", "EN 1993-1-1, 6.1 (1)"},
    {"setup", "igammam1", "γM1", "", "Partial factor for the resistance to instability", "EN 1993-1-1, 6.1 (1)"},
    {"setup", "ineta", "η", "", "Factor of the shear area", "EN 1993-1-5, 5.1 (2)"},
    {"setup", "ibeta", "β", "", "Lateral torsional buckling curves, rolled sections", "EN 1993-1-1, 6.3.2.3 (1)"},
    {"setup", "ibetaw", "β", "", "Lateral torsional buckling curves, welded sections", "EN 1993-1-1, 6.3.2.3 (1)"},
    {"setup", "ilamdaLT0", "λLT,0", "", "Plateau of the lateral torsional buckling curves, rolled sections", "EN 1993-1-1, 6.3.2.3 (1)"},
    {"setup", "ilamdaLT0w", "λLT,0", "", "Plateau of the lateral torsional buckling curves, welded sections", "EN 1993-1-1, 6.3.2.3 (1)"},
    {"setup", "ifyk", "fy", "MPa", "Yield strength", "EN 1993-1-1, 3.2.1"},
    {"setup", "ie", "E", "MPa", "Modulus of elasticity", "EN 1993-1-1, 3.2.6 (1)"},
    {"setup", "iuflimit", "Limit", "", "Kept with the project; no check uses it, every force and moment counts"},
    {"setup", "idef_limity", "y: L/", "", "Limit of the deflection along y, member length over this number", "EN 1993-1-1, 7.2.1"},
    {"setup", "idef_limitz", "z: L/", "", "Limit of the deflection along z, member length over this number", "EN 1993-1-1, 7.2.1"},
    {"setup", "iLfULS_G", "G", "", "Load factor of permanent loads, ultimate limit state", "EN 1990, A1.3.1"},
    {"setup", "iLfULS_Q1", "Q1", "", "Load factor of the leading variable load, ultimate limit state", "EN 1990, A1.3.1"},
    {"setup", "iLfULS_Q2", "Q2", "", "Load factor of other variable loads, ultimate limit state", "EN 1990, A1.3.1"},
    {"setup", "iLfSLS_G", "G", "", "Load factor of permanent loads, serviceability limit state", "EN 1990, A1.4.1"},
    {"setup", "iLfSLS_Q1", "Q1", "", "Load factor of the leading variable load, serviceability limit state", "EN 1990, A1.4.1"},
    {"setup", "iLfSLS_Q2", "Q2", "", "Load factor of other variable loads, serviceability limit state", "EN 1990, A1.4.1"},
    {"Loading", "inn", "N", "kN", "Axial load, compression positive"},
    {"Loading", "iq", "q", "kN/m", "Line load over the whole length, downward positive"},
    {"Loading", "iqt1", "q1", "kN/m", "Trapezoidal load at its start"},
    {"Loading", "iqt2", "q2", "kN/m", "Trapezoidal load at its end"},
    {"Loading", "iqtx1", "x1", "m", "Start of the trapezoidal load from end 1"},
    {"Loading", "iqtx2", "x2", "m", "End of the trapezoidal load from end 1"},
    {"Loading", "ipm", "P, M", "kN, kNm", "Point force or moment"},
    {"Loading", "ipmx", "x", "m", "Position of the point load from end 1"},
    {"endforce", "ine", "N", "kN", "Axial force, compression positive"},
    {"endforce", "imy1", "My1", "kNm", "Moment about y at end 1"},
    {"endforce", "imy2", "My2", "kNm", "Moment about y at end 2"},
    {"endforce", "imz1", "Mz1", "kNm", "Moment about z at end 1"},
    {"endforce", "imz2", "Mz2", "kNm", "Moment about z at end 2"},
    {"endforce", "ivy1", "Vy1", "kN", "Shear force along y at end 1"},
    {"endforce", "ivy2", "Vy2", "kN", "Shear force along y at end 2"},
    {"endforce", "ivz1", "Vz1", "kN", "Shear force along z at end 1"},
    {"endforce", "ivz2", "Vz2", "kN", "Shear force along z at end 2"},
    {"chpoints", "icp", "x", "m", "Position at which the section is checked, from end 1"},
    {"endstiff", "iweba", "a", "mm", "Spacing of the transverse web stiffeners", "EN 1993-1-5, 5.3"},
    {"vipping", "ic1", "C1", "", "Factor of the moment shape in the critical moment", "EN 1993-1-1, 6.3.2.2 (2)"},
    {"vipping", "ic2", "C2", "", "Factor of the load level in the critical moment", "EN 1993-1-1, 6.3.2.2 (2)"},
    {"vipping", "ic3", "C3", "", "Factor of the asymmetry in the critical moment", "EN 1993-1-1, 6.3.2.2 (2)"},
    {"vipping", "iza", "Za", "mm", "Point of load application above the centre of gravity"},
    {"frmVortex", "ivb", "vb", "m/s", "Basic wind velocity, 10 min mean at 10 m", "EN 1991-1-4, 4.2"},
    {"frmVortex", "iz", "z", "m", "Height above ground", "EN 1991-1-4, 4.3"},
    {"p31", "istd", "d", "mm", "Outer diameter"},
    {"p31", "isttw", "t", "mm", "Wall thickness"},
    {"p28", "isth", "h", "mm", "Height of the flat bar"},
    {"p28", "isttw", "t", "mm", "Thickness of the flat bar"},
    {"p22", "istb1", "b1", "mm", "Width of the top flange"},
    {"p22", "istb2", "b2", "mm", "Width of the bottom flange"},
    {"p23", "ista", "a", "mm", "Overhang of the flange beyond the web"},
    {"p24", "iload", "Max loading on one flange (%):", " (50-90%) ", "Share of the load that one side of the bottom flange takes at most"},
    {"p24", "isth", "h", "mm", "Height without the bottom flange"},
    {"p24", "istb1", "b1", "mm", "Width of the top flange"},
    {"p24", "istb2", "b2", "mm", "Width of the bottom flange"},
    {"p25", "isth", "h", "mm", "Height without the bottom flange"},
    {"p25", "istb1", "b1", "mm", "Width of the top flange"},
    {"p25", "istb2", "b2", "mm", "Width of the bottom flange"},
    {"p25", "istc", "c", "mm", "Overhang of the bottom flange at the closed side"},
    {"p27", "istb1", "b1", "mm", "Width of the top flange"},
    {"p27", "istb2", "b2", "mm", "Width of the bottom flange"},
    {"p27", "istc", "c", "mm", "Overhang of the top flange beyond the web"},
    {"p51", "isth", "h", "mm", "Height of the flat bar"},
    {"p51", "istb1", "b", "mm", "Width of the plate"},
    {"p51", "isttw", "tw", "mm", "Thickness of the flat bar"},
    {"p51", "isttf1", "tf1", "mm", "Thickness of the plate"},
    {"p52", "istb1", "b1", "mm", "Width of the plate"},
    {"p52", "istt1", "t1", "mm", "Thickness of the plate"},
    {"p53", "isth", "h", "mm", "Height of the stiffener"},
    {"p53", "istb1", "b1", "mm", "Width of the plate"},
    {"p53", "istb2", "b2", "mm", "Width of the stiffener flange"},
    {"p53", "isttw", "tw", "mm", "Thickness of the stiffener web"},
    {"p53", "isttf1", "tf1", "mm", "Thickness of the plate"},
    {"p53", "isttf2", "tf2", "mm", "Thickness of the stiffener flange"},
    {"p54", "istb1", "b1", "mm", "Width of the plate"},
    {"p54", "istt1", "t1", "mm", "Thickness of the plate"},
    {"p56", "isth", "h", "mm", "Height of the stiffener"},
    {"p56", "istb1", "b1", "mm", "Width of the plate"},
    {"p56", "istb2", "b2", "mm", "Width of the stiffener flange"},
    {"p56", "isttw", "tw", "mm", "Thickness of the stiffener web"},
    {"p56", "isttf1", "tf1", "mm", "Thickness of the plate"},
    {"p56", "isttf2", "tf2", "mm", "Thickness of the stiffener flange"},
    {"p41", "istax", "A", "mm2", "Area of the section"},
    {"p41", "istay", "Ay", "mm2", "Area for shear along y: the flanges"},
    {"p41", "istaz", "Az", "mm2", "Area for shear along z: the web"},
    {"p41", "istix", "Ix", "mm4", "Torsion constant"},
    {"p41", "istiy", "Iy", "mm4", "Second moment of area about y"},
    {"p41", "istiz", "Iz", "mm4", "Second moment of area about z"},
    {"p41", "istiw", "Iw", "mm6", "Warping constant"},
    {"p41", "istwely", "Wel,y", "mm3", "Elastic section modulus about y"},
    {"p41", "istwelz", "Wel,z", "mm3", "Elastic section modulus about z"},
    {"p41", "istwply", "Wpl,y", "mm3", "Plastic section modulus about y"},
    {"p41", "istwplz", "Wpl,z", "mm3", "Plastic section modulus about z"},
    {"", "isth", "h", "mm", "Height of the section"},
    {"", "istb1", "b", "mm", "Width of the flange"},
    {"", "isttw", "tw", "mm", "Thickness of the web"},
    {"", "isttf", "tf", "mm", "Thickness of the flanges"},
    {"", "isttf1", "tf1", "mm", "Thickness of the top flange"},
    {"", "isttf2", "tf2", "mm", "Thickness of the bottom flange"},
};
// clang-format on

// Message of a box without the blanks around it.
}  // namespace

const BoxHelp& HelpOf(const Box& box)
{
    const auto of = [&](std::string_view form) {
        return std::find_if(std::begin(kHelp), std::end(kHelp), [&](const BoxHelp& help) {
            return help.form == form && help.id == box.id;
        });
    };
    static constexpr BoxHelp kNone{};
    const auto* at = of(box.form);
    at = at != std::end(kHelp) ? at : of("");
    return at != std::end(kHelp) ? *at : kNone;
}

std::string TooltipOf(const Box& box)
{
    const BoxHelp& help = HelpOf(box);
    std::string text = AccessibleNameOf(box);
    if (!Trimmed(box.message).empty()) {
        text += "\n" + std::string(Trimmed(box.message));
    }
    if (!Trimmed(box.other).empty()) {
        text += (box.rule == BoxRule::position ? " (x/L: " : ", ") +
                std::string(Trimmed(box.other)) + (box.rule == BoxRule::position ? ")" : "");
    }
    if (!help.clause.empty()) {
        text += "\n" + std::string(help.clause);
    }
    return text;
}

std::string AllowedText(const ProjectState& s, const Box& box)
{
    const std::string limits = LimitText(s, box);
    const bool relative = box.rule == BoxRule::position && EditsRelative(s, box);
    const std::string unit(relative ? "of the length" : Trimmed(HelpOf(box).unit));
    if (limits.empty()) {
        return "Allowed: a number" + (unit.empty() ? "" : ", " + unit);
    }
    return "Allowed: " + limits + (unit.empty() ? "" : " ") + unit;
}

std::string AccessibleNameOf(const Box& box)
{
    const BoxHelp& help = HelpOf(box);
    std::string name(help.meaning);
    if (!help.unit.empty()) {
        name += " [" + std::string(Trimmed(help.unit)) + "]";
    }
    return name;
}

}  // namespace kestrum
