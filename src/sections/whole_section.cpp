#include "sections/whole_section.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"

#include <initializer_list>
#include <string_view>

namespace kestrum {

namespace {

struct Part {
    std::string_view name;
    double size;
};

[[noreturn]] void Stop(const Part& part, std::string_view unit)
{
    throw CalculationStop{{.cause = Cause::impossible_section,
                           .quantity = part.name,
                           .value = part.size,
                           .unit = unit}};
}

void RequirePositive(std::initializer_list<Part> parts, std::string_view unit)
{
    for (const Part& part : parts) {
        if (!(part.size > 0)) {  // so written that a NaN is refused
            Stop(part, unit);
        }
    }
}

void RequireNotNegative(const Part& part)
{
    if (!(part.size >= 0)) {
        Stop(part, "mm");
    }
}

constexpr std::string_view kWeb = "clear web height hw";
constexpr std::string_view kStraight = "straight web between the welds d";
constexpr std::string_view kOutstand = "flange outstand beyond the weld c";
constexpr std::string_view kBetween = "clear width between the webs";

void RequireTwoWebs(const ProjectState& s)
{
    RequirePositive({{kWeb, s.hw}, {kStraight, s.d}, {kBetween, s.ctopin}}, "mm");
    RequireNotNegative({"overhang of the top flange c", s.ctopout});
}

void RequireStiffenedPlate(const ProjectState& s)
{
    RequirePositive({{kWeb, s.hw}, {kStraight, s.d}, {"plate beyond the stiffener", s.ctop}}, "mm");
    const Stiffener stiffener = Traits(s).shape.stiffener;
    if (stiffener != Stiffener::flat_bar && stiffener != Stiffener::bulb_flat) {
        RequirePositive({{"stiffener flange beyond the weld c", s.cbot}}, "mm");
    }
}

void RequireParts(const ProjectState& s)
{
    switch (Traits(s).kind) {
    case Kind::angle:
        return RequirePositive({{"leg thickness t", s.tw}, {"straight leg c", s.cflange}}, "mm");
    case Kind::i_single:
        return RequirePositive({{kWeb, s.hw},
                                {kStraight, s.d},
                                {"top flange outstand beyond the weld c", s.ctop},
                                {"bottom flange outstand beyond the weld c", s.cbot}},
                               "mm");
    case Kind::hollow:
        return RequirePositive({{kWeb, s.hw}, {kBetween, s.bw}}, "mm");
    case Kind::box:
        RequirePositive({{kWeb, s.hw}, {kStraight, s.d}, {kBetween, s.bw}}, "mm");
        return RequireNotNegative({"flange overhang a", s.bo});
    case Kind::hat:
    case Kind::box_unequal:
        return RequireTwoWebs(s);
    case Kind::flat:
        return RequirePositive({{"height h", s.h}, {"thickness tw", s.tw}}, "mm");
    case Kind::tube:
        return RequirePositive({{"inner diameter", s.hw}, {"wall tw", s.tw}}, "mm");
    case Kind::general:
        return RequirePositive(
            {{"area of the web Az", s.aweb}, {"area of the flanges Ay", s.aflange}}, "mm2");
    case Kind::plate:
        return RequireStiffenedPlate(s);
    default:
        return RequirePositive({{kWeb, s.hw}, {kStraight, s.d}, {kOutstand, s.cflange}}, "mm");
    }
}

}  // namespace

void RequireWholeSection(const ProjectState& s)
{
    RequireParts(s);
    RequirePositive({{"area A", s.a}}, "mm2");
    RequirePositive({{"second moment Iy", s.iy}, {"second moment Iz", s.iz}}, "mm4");
    RequirePositive({{"modulus Wel,y", s.wely}, {"modulus Wel,z", s.welz}}, "mm3");
}

}  // namespace kestrum
