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

void RequireTwoWebs(const SectionRecord& section)
{
    RequirePositive({{kWeb, section.hw}, {kStraight, section.d}, {kBetween, section.ctopin}}, "mm");
    RequireNotNegative({"overhang of the top flange c", section.ctopout});
}

void RequireStiffenedPlate(const Inputs& in, const SectionRecord& section)
{
    RequirePositive(
        {{kWeb, section.hw}, {kStraight, section.d}, {"plate beyond the stiffener", section.ctop}},
        "mm");
    const Stiffener stiffener = Traits(in).shape.stiffener;
    if (stiffener != Stiffener::flat_bar && stiffener != Stiffener::bulb_flat) {
        RequirePositive({{"stiffener flange beyond the weld c", section.cbot}}, "mm");
    }
}

void RequireParts(const Inputs& in, const SectionRecord& section)
{
    switch (Traits(in).kind) {
    case Kind::angle:
        return RequirePositive(
            {{"leg thickness t", section.tw}, {"straight leg c", section.cflange}}, "mm");
    case Kind::i_single:
        return RequirePositive({{kWeb, section.hw},
                                {kStraight, section.d},
                                {"top flange outstand beyond the weld c", section.ctop},
                                {"bottom flange outstand beyond the weld c", section.cbot}},
                               "mm");
    case Kind::hollow:
        return RequirePositive({{kWeb, section.hw}, {kBetween, section.bw}}, "mm");
    case Kind::box:
        RequirePositive({{kWeb, section.hw}, {kStraight, section.d}, {kBetween, section.bw}}, "mm");
        return RequireNotNegative({"flange overhang a", section.bo});
    case Kind::hat:
    case Kind::box_unequal:
        return RequireTwoWebs(section);
    case Kind::flat:
        return RequirePositive({{"height h", section.h}, {"thickness tw", section.tw}}, "mm");
    case Kind::tube:
        return RequirePositive({{"inner diameter", section.hw}, {"wall tw", section.tw}}, "mm");
    case Kind::general:
        return RequirePositive(
            {{"area of the web Az", section.aweb}, {"area of the flanges Ay", section.aflange}},
            "mm2");
    case Kind::plate:
        return RequireStiffenedPlate(in, section);
    default:
        return RequirePositive(
            {{kWeb, section.hw}, {kStraight, section.d}, {kOutstand, section.cflange}}, "mm");
    }
}

}  // namespace

void RequireWholeSection(const Inputs& in, const SectionRecord& section)
{
    RequireParts(in, section);
    RequirePositive({{"area A", section.a}}, "mm2");
    RequirePositive({{"second moment Iy", section.iy}, {"second moment Iz", section.iz}}, "mm4");
    RequirePositive({{"modulus Wel,y", section.wely}, {"modulus Wel,z", section.welz}}, "mm3");
}

}  // namespace kestrum
