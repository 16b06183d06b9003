#include "app/view_section.h"

#include "core/number_format.h"
#include "core/project_state.h"
#include "report/page_quantities.h"
#include "sections/family_table.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr std::string_view kLength = "#0", kThickness = "##0.0", kArea = "#0.0",
                           kModulus = "0.000E+0";

template <class T>
ShownValue Value(std::string_view id, std::string_view label, T value, std::string_view format,
                 std::string_view unit)
{
    return {id, label, unit, FormatNum(value, format)};
}

}  // namespace

std::vector<ShownValue> SectionDimensions(const ProjectState& s)
{
    if (!HasTable(s.family) || Is(s, Kind::plate)) {
        return {};
    }
    std::vector<ShownValue> values{Value("osth", "h", s.h, kLength, "mm"),
                                   Value("ostb", "b", s.b, kLength, "mm"),
                                   Value("osttw", "tw", s.tw, kThickness, "mm")};
    const bool angle = Is(s, Kind::angle);
    if (!angle) {
        values.push_back(Value("osttf", "tf", s.tf, kThickness, "mm"));
    }
    values.push_back(Value("ostr", "r", s.r, kThickness, "mm"));
    if (angle) {
        values.push_back(Value("stey", "ey", s.ey, kThickness, "mm"));
        values.push_back(Value("stez", "ez", s.ez, kThickness, "mm"));
        values.push_back(Value("ostalfa", "alfa", s.alfa, kThickness, "deg"));
        values.push_back(Value("stu1", "u1", s.u1, kThickness, "mm"));
        values.push_back(Value("stu2", "u2", s.u2, kThickness, "mm"));
        values.push_back(Value("stv1", "v1", s.v1, kThickness, "mm"));
    }
    if (Is(s, Kind::channel)) {
        values.push_back(Value("oste", "e", s.ecg, kThickness, "mm"));
        values.push_back(Value("ostys", "ys", s.ys, kThickness, "mm"));
    }
    return values;
}

std::vector<ShownValue> SectionProperties(const ProjectState& s)
{
    const FamilyTraits& family = Traits(s);
    const bool plate = family.lists.stiffener_iz;
    std::vector<ShownValue> values{
        Value("ostg", "Weight", s.weight, "#0.0", "kg/m"),
        Value("ostf", "Surface", s.surface, "#0.000", "m2/m"),
        Value("osta", "A", s.a, kArea, "mm2"),
        Value("ostiy", "Iy", s.iy, kModulus, "mm4"),
        Value("ostiz", "Iz", s.iz, kModulus, plate ? "mm4 (profile)" : "mm4"),
        Value("ostix", "Ix", s.it, kModulus, "mm4"),
        Value("ostiw", "Iw", s.iw, kModulus, "mm6"),
    };
    if (family.kind == Kind::angle) {
        values.push_back(Value("ostiu", "Iu", s.iu, kModulus, "mm4"));
        values.push_back(Value("ostiv", "Iv", s.iv, kModulus, "mm4"));
        values.push_back(Value("ostwely", "Wel,y", s.wely, kModulus, "mm3 (min)"));
        values.push_back(Value("ostwelz", "Wel,z", s.welz, kModulus, "mm3 (min)"));
        return values;
    }
    if (family.lists.sides) {
        values.push_back(Value("ostwely", "Wel,y top", s.wyeltop, kModulus, "mm3"));
        values.push_back(Value("ostwelyb", "Wel,y bottom", s.wyelbot, kModulus, "mm3"));
    } else {
        values.push_back(Value("ostwely", "Wel,y", s.wely, kModulus, "mm3"));
    }
    values.push_back(Value("ostwelz", "Wel,z", s.welz, kModulus, plate ? "mm3 (profile)" : "mm3"));
    values.push_back(Value("ostwply", "Wpl,y", s.wply, kModulus, "mm3"));
    if (family.carries.offered.n) {
        values.push_back(Value("ostwplz", "Wpl,z", s.wplz, kModulus, "mm3"));
    }
    if (family.kind == Kind::hat) {
        values.push_back(Value("ostwplplus", "Wpl,y M+", s.wplplus, kModulus, "mm3"));
        values.push_back(Value("ostwplminus", "Wpl,y M-", s.wplminus, kModulus, "mm3"));
    }
    if (family.lists.effective) {
        values.push_back(Value("ostaeff", "Aeff", s.aeff, kArea, "mm2"));
        values.push_back(Value("ostweffy", "Weff,y", s.weffy, kModulus, "mm3"));
        if (family.carries.offered.n) {
            values.push_back(Value("ostweffz", "Weff,z", s.weffz, kModulus, "mm3"));
        }
    }
    return values;
}

std::vector<ShownValue> SectionCapacities(const ProjectState& s)
{
    std::vector<ShownValue> values;
    const FamilyTraits& family = Traits(s);
    if (family.carries.offered.n) {
        values.push_back(Value("ontd", "Nt,Rd", s.nplrd, kArea, "kN"));
        values.push_back(Value("oncd", "Nc,Rd", s.ncrd, kArea, "kN"));
    }
    values.push_back(Value("omyd", "My,Rd", s.myrd, kArea, "kNm"));
    if (family.lists.sides) {
        // The record keeps them with gammaM1, for the stability control.
        const double factor = s.gammam1 / s.gammam0;
        values.push_back(Value("omydtop", "My,Rd M+", s.mytoprd * factor, kArea, "kNm"));
        values.push_back(Value("omydbot", "My,Rd M-", s.mybotrd * factor, kArea, "kNm"));
    }
    if (family.carries.offered.n) {
        values.push_back(Value("omzd", "Mz,Rd", s.mzrd, kArea, "kNm"));
    }
    values.push_back(Value("ovzd", "Vz,Rd", s.vbrd, kArea, "kN"));
    if (family.carries.offered.n) {
        values.push_back(Value("ovyd", "Vy,Rd", s.vcyrd, kArea, "kN"));
    }
    return values;
}

std::string SectionClassText(const ProjectState& s)
{
    return std::to_string(s.classn) + "/" + std::to_string(ShownClassMy(s)) + "/" +
           std::to_string(s.classmz);
}

bool HasOption(int family, SectionOption option)
{
    const auto options = TraitsOf(family).options;
    return std::find(options.begin(), options.end(), option) != options.end();
}

std::string_view SectionWarning(const ProjectState& s)
{
    return Is(s, Kind::tube) && s.classn > 3
               ? "Note: Local buckling not taken into account (Section Class 4)"
               : std::string_view{};
}

std::span<const std::string_view> CornerNotes(int family)
{
    static constexpr std::string_view kHot[] = {" r = 1.5*t "};
    static constexpr std::string_view kCold[] = {" r = 2*t ; t<=6 ", " r = 2.5*t ; 6<t<=10 ",
                                                 " r = 3*t ; t>10 "};
    switch (TraitsOf(family).shape.make) {
    case Make::hot:
        return kHot;
    case Make::cold:
        return kCold;
    default:
        return {};
    }
}

std::string_view SectionTitle(int family)
{
    return TraitsOf(family).title;
}

std::string SectionName(const Library& library, const ProjectState& s)
{
    const FamilyTraits* const info = FindFamily(s.family);
    if (info == nullptr || info->text.empty()) {
        return {};
    }
    if (info->kind == Kind::general) {
        return s.p41ident.empty() ? std::string(info->text) : s.p41ident;
    }
    if (HasTable(s.family)) {
        const Table table = TableOf(s);
        const std::string row = RowName(library, table, s.row[static_cast<std::size_t>(table)]);
        return info->input == SectionInput::stiffener ? std::string(info->text) + ": " + row : row;
    }
    std::string name(info->text);
    const bool wall = info->kind == Kind::flat || info->kind == Kind::tube;
    name += " " + FormatNum(info->kind == Kind::tube ? s.p31.istd : s.h, kLength);
    name += "x" + FormatNum(wall ? s.tw : s.b, wall ? kThickness : kLength);
    return name;
}

std::vector<const Box*> SectionBoxes(int family)
{
    const FamilyTraits* const info = FindFamily(family);
    std::vector<const Box*> boxes;
    if (info == nullptr || info->form.empty()) {
        return boxes;
    }
    // The order of reading a section: its height, widths, thicknesses, the rest.
    for (const std::string_view id :
         {"istd",   "isth",  "istb1", "istb2",   "istt1",   "isttw",   "isttf",  "isttf1",
          "isttf2", "ista",  "istc",  "iload",   "istax",   "istay",   "istaz",  "istix",
          "istiy",  "istiz", "istiw", "istwely", "istwelz", "istwply", "istwplz"}) {
        if (const Box* const box = FindBox(info->form, id)) {
            boxes.push_back(box);
        }
    }
    return boxes;
}

}  // namespace kestrum
