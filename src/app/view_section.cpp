#include "app/view_section.h"

#include "core/number_format.h"
#include "report/page_quantities.h"
#include "sections/family_table.h"

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

bool IsAngle(int family)
{
    return family == 10 || family == 11;
}

// Sections of plates whose positive and negative bending differ.
bool HasTwoSides(int family)
{
    return family == 22 || (family >= 24 && family <= 27) || (family >= 51 && family <= 56);
}

// Sections that carry My and Vz alone.
bool BendsOnly(int family)
{
    return family == 24 || family == 25 || family == 27 || (family >= 51 && family <= 56);
}

bool IsHollow(int family)
{
    return family >= 6 && family <= 9;
}

}  // namespace

std::vector<ShownValue> SectionDimensions(const ProjectState& s)
{
    if (!HasTable(s.family) || (s.family >= 51 && s.family <= 56)) {
        return {};
    }
    std::vector<ShownValue> values{Value("osth", "h", s.h, kLength, "mm"),
                                   Value("ostb", "b", s.b, kLength, "mm"),
                                   Value("osttw", "tw", s.tw, kThickness, "mm")};
    if (!IsAngle(s.family)) {
        values.push_back(Value("osttf", "tf", s.tf, kThickness, "mm"));
    }
    values.push_back(Value("ostr", "r", s.r, kThickness, "mm"));
    if (IsAngle(s.family)) {
        values.push_back(Value("stey", "ey", s.ey, kThickness, "mm"));
        values.push_back(Value("stez", "ez", s.ez, kThickness, "mm"));
        values.push_back(Value("ostalfa", "alfa", s.alfa, kThickness, "deg"));
        values.push_back(Value("stu1", "u1", s.u1, kThickness, "mm"));
        values.push_back(Value("stu2", "u2", s.u2, kThickness, "mm"));
        values.push_back(Value("stv1", "v1", s.v1, kThickness, "mm"));
    }
    if (s.family == 5 || s.family == 16 || s.family == 103) {
        values.push_back(Value("oste", "e", s.ecg, kThickness, "mm"));
        values.push_back(Value("ostys", "ys", s.ys, kThickness, "mm"));
    }
    return values;
}

std::vector<ShownValue> SectionProperties(const ProjectState& s)
{
    const bool plate = s.family >= 51 && s.family <= 56;  // about z the stiffener alone
    std::vector<ShownValue> values{
        Value("ostg", "Weight", s.weight, "#0.0", "kg/m"),
        Value("ostf", "Surface", s.surface, "#0.000", "m2/m"),
        Value("osta", "A", s.a, kArea, "mm2"),
        Value("ostiy", "Iy", s.iy, kModulus, "mm4"),
        Value("ostiz", "Iz", s.iz, kModulus, plate ? "mm4 (profile)" : "mm4"),
        Value("ostix", "Ix", s.it, kModulus, "mm4"),
        Value("ostiw", "Iw", s.iw, kModulus, "mm6"),
    };
    if (IsAngle(s.family)) {
        values.push_back(Value("ostiu", "Iu", s.iu, kModulus, "mm4"));
        values.push_back(Value("ostiv", "Iv", s.iv, kModulus, "mm4"));
        values.push_back(Value("ostwely", "Wel,y", s.wely, kModulus, "mm3 (min)"));
        values.push_back(Value("ostwelz", "Wel,z", s.welz, kModulus, "mm3 (min)"));
        return values;
    }
    if (HasTwoSides(s.family)) {
        values.push_back(Value("ostwely", "Wel,y top", s.wyeltop, kModulus, "mm3"));
        values.push_back(Value("ostwelyb", "Wel,y bottom", s.wyelbot, kModulus, "mm3"));
    } else {
        values.push_back(Value("ostwely", "Wel,y", s.wely, kModulus, "mm3"));
    }
    values.push_back(Value("ostwelz", "Wel,z", s.welz, kModulus, plate ? "mm3 (profile)" : "mm3"));
    values.push_back(Value("ostwply", "Wpl,y", s.wply, kModulus, "mm3"));
    if (!BendsOnly(s.family)) {
        values.push_back(Value("ostwplz", "Wpl,z", s.wplz, kModulus, "mm3"));
    }
    if (s.family == 24 || s.family == 25) {
        values.push_back(Value("ostwplplus", "Wpl,y M+", s.wplplus, kModulus, "mm3"));
        values.push_back(Value("ostwplminus", "Wpl,y M-", s.wplminus, kModulus, "mm3"));
    }
    if (s.family != 28 && s.family != 31 && s.family != 41) {
        values.push_back(Value("ostaeff", "Aeff", s.aeff, kArea, "mm2"));
        values.push_back(Value("ostweffy", "Weff,y", s.weffy, kModulus, "mm3"));
        if (!BendsOnly(s.family)) {
            values.push_back(Value("ostweffz", "Weff,z", s.weffz, kModulus, "mm3"));
        }
    }
    return values;
}

std::vector<ShownValue> SectionCapacities(const ProjectState& s)
{
    std::vector<ShownValue> values;
    if (!BendsOnly(s.family)) {
        values.push_back(Value("ontd", "Nt,Rd", s.nplrd, kArea, "kN"));
        values.push_back(Value("oncd", "Nc,Rd", s.ncrd, kArea, "kN"));
    }
    values.push_back(Value("omyd", "My,Rd", s.myrd, kArea, "kNm"));
    if (HasTwoSides(s.family)) {
        // The record keeps them with gammaM1, for the stability control.
        const double factor = s.gammam1 / s.gammam0;
        values.push_back(Value("omydtop", "My,Rd M+", s.mytoprd * factor, kArea, "kNm"));
        values.push_back(Value("omydbot", "My,Rd M-", s.mybotrd * factor, kArea, "kNm"));
    }
    if (!BendsOnly(s.family)) {
        values.push_back(Value("omzd", "Mz,Rd", s.mzrd, kArea, "kNm"));
    }
    values.push_back(Value("ovzd", "Vz,Rd", s.vbrd, kArea, "kN"));
    if (!BendsOnly(s.family)) {
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
    switch (option) {
    case SectionOption::rectaxis:
        return family == 7 || family == 9;
    case SectionOption::bolts:
        return IsAngle(family);
    case SectionOption::weld:
        return family == 23;
    case SectionOption::tube:
        return family == 31;
    case SectionOption::hsqload:
    case SectionOption::upgrade:
        return family == 24 || family == 25;
    }
    return false;
}

std::string_view SectionWarning(const ProjectState& s)
{
    return s.family == 31 && s.classn > 3
               ? "Note: Local buckling not taken into account (Section Class 4)"
               : std::string_view{};
}

std::span<const std::string_view> CornerNotes(int family)
{
    static constexpr std::string_view kHot[] = {" r = 1.5*t "};
    static constexpr std::string_view kCold[] = {" r = 2*t ; t<=6 ", " r = 2.5*t ; 6<t<=10 ",
                                                 " r = 3*t ; t>10 "};
    if (!IsHollow(family)) {
        return {};
    }
    return family <= 7 ? std::span<const std::string_view>(kHot) : kCold;
}

std::string_view SectionTitle(int family)
{
    const FamilyInfo* const info = FindFamily(family);
    if (info == nullptr) {
        return {};
    }
    if (IsHollow(family)) {
        return info->caption;
    }
    switch (family) {
    case 10:
    case 11:
    case 21:
    case 22:
    case 23:
    case 24:
    case 25:
    case 27:
        return info->caption;
    case 28:
        return "Flatbar";
    case 101:
        return "British profiles: UB, UC, UBP";
    case 102:
        return "British profiles: J";
    case 103:
        return "British profiles: CH, PFC";
    default:
        return info->text;
    }
}

std::string SectionName(const Library& library, const ProjectState& s)
{
    const FamilyInfo* const info = FindFamily(s.family);
    if (info == nullptr || info->text.empty()) {
        return {};
    }
    if (s.family == 41) {
        return s.p41ident.empty() ? std::string(info->text) : s.p41ident;
    }
    if (HasTable(s.family)) {
        const Table table = TableOf(s);
        const std::string row = RowName(library, table, s.row[static_cast<std::size_t>(table)]);
        return info->input == SectionInput::stiffener ? std::string(info->text) + ": " + row : row;
    }
    std::string name(info->text);
    name += " " + FormatNum(s.family == 31 ? s.p31.istd : s.h, kLength);
    name += "x" + FormatNum(s.family == 28 || s.family == 31 ? s.tw : s.b,
                            s.family == 28 || s.family == 31 ? kThickness : kLength);
    return name;
}

std::vector<const Box*> SectionBoxes(int family)
{
    const FamilyInfo* const info = FindFamily(family);
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
