#include "report/page_quantities.h"

#include "core/number_format.h"
#include "core/project_state.h"
#include "sections/families.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace kestrum {

namespace {

// A value as it is printed, and itself.
struct Shown {
    std::string text;
    std::optional<double> number{};
};
using Value = Shown (*)(const ProjectState&, std::string_view);

// A field of the record through a pattern; the field's type decides how many digits count.
template <auto Field> Shown Of(const ProjectState& s, std::string_view pattern)
{
    return {FormatNum(s.*Field, pattern), s.*Field};
}

struct Line {
    std::string_view symbol;
    Value value;
    std::string_view pattern, unit;
};

using S = ProjectState;
constexpr std::string_view kWhole = "#0", kTenth = "##0.0", kPower = "0.000E+0";
constexpr std::string_view kMm = "mm", kMm2 = "mm2", kMm3 = "mm3", kMm4 = "mm4", kMm6 = "mm6";
constexpr std::string_view kKn = "kN", kKnm = "kNm";

// --- Dimensions ---------------------------------------------------------------------------------

constexpr Line kRolledI[] = {{"h", Of<&S::h>, kWhole, kMm},
                             {"b", Of<&S::b>, kWhole, kMm},
                             {"tw", Of<&S::tw>, kTenth, kMm},
                             {"tf", Of<&S::tf>, kTenth, kMm},
                             {"r", Of<&S::r>, kTenth, kMm}};
constexpr Line kBritishI[] = {{"h", Of<&S::h>, kTenth, kMm},
                              {"b", Of<&S::b>, kTenth, kMm},
                              {"tw", Of<&S::tw>, kTenth, kMm},
                              {"tf", Of<&S::tf>, kTenth, kMm},
                              {"r", Of<&S::r>, kTenth, kMm}};
constexpr Line kWeldedI[] = {{"h", Of<&S::h>, kTenth, kMm},
                             {"b", Of<&S::b>, kTenth, kMm},
                             {"tw", Of<&S::tw>, kTenth, kMm},
                             {"tf", Of<&S::tf>, kTenth, kMm}};
constexpr Line kChannel[] = {{"h", Of<&S::h>, kTenth, kMm},   {"b", Of<&S::b>, kTenth, kMm},
                             {"tw", Of<&S::tw>, kTenth, kMm}, {"tf", Of<&S::tf>, kTenth, kMm},
                             {"r", Of<&S::r>, kTenth, kMm},   {"e", Of<&S::ecg>, kTenth, kMm},
                             {"ys", Of<&S::ys>, kTenth, kMm}};
constexpr Line kTaperedChannel[] = {
    {"h", Of<&S::h>, kTenth, kMm},   {"b", Of<&S::b>, kTenth, kMm},
    {"tw", Of<&S::tw>, kTenth, kMm}, {"tf", Of<&S::tf>, kTenth, kMm},
    {"r1", Of<&S::r1>, kTenth, kMm}, {"r2", Of<&S::r2>, kTenth, kMm},
    {"e", Of<&S::ecg>, kTenth, kMm}, {"ys", Of<&S::ys>, kTenth, kMm}};
constexpr Line kHollow[] = {{"h", Of<&S::h>, kWhole, kMm},
                            {"b", Of<&S::b>, kWhole, kMm},
                            {"t", Of<&S::tw>, kTenth, kMm},
                            {"r", Of<&S::r>, kTenth, kMm}};
constexpr Line kBox[] = {{"h", Of<&S::h>, kTenth, kMm},
                         {"b", Of<&S::b>, kTenth, kMm},
                         {"tw", Of<&S::tw>, kTenth, kMm},
                         {"tf", Of<&S::tf>, kTenth, kMm},
                         {"a", Of<&S::bo>, kTenth, kMm}};
constexpr Line kAngle[] = {{"h", Of<&S::h>, kWhole, kMm},        {"b", Of<&S::b>, kWhole, kMm},
                           {"t", Of<&S::tw>, kTenth, kMm},       {"r", Of<&S::r>, kTenth, kMm},
                           {"ey", Of<&S::ey>, kTenth, kMm},      {"ez", Of<&S::ez>, kTenth, kMm},
                           {"alfa", Of<&S::alfa>, kTenth, "deg"}};
constexpr Line kSingleI[] = {
    {"h", Of<&S::h>, kTenth, kMm},        {"b1", Of<&S::btop>, kTenth, kMm},
    {"b2", Of<&S::bbot>, kTenth, kMm},    {"tw", Of<&S::tw>, kTenth, kMm},
    {"tf1", Of<&S::ttop>, kTenth, kMm},   {"tf2", Of<&S::tbot>, kTenth, kMm},
    {"ez-el", Of<&S::zcog>, kTenth, kMm}, {"ez-pl", Of<&S::zpl>, kTenth, kMm}};
Shown HsqOverhang(const ProjectState& s, std::string_view pattern)
{
    const float c = Traits(s).shape.lower == LowerFlange::one_side ? s.p25.istc : s.p24.hsqc;
    return {FormatNum(c, pattern), c};
}
constexpr Line kHsq[] = {{"h", Of<&S::h>, kTenth, kMm},      {"b1", Of<&S::btop>, kTenth, kMm},
                         {"b2", Of<&S::bbot>, kTenth, kMm},  {"tw", Of<&S::tw>, kTenth, kMm},
                         {"tf1", Of<&S::ttop>, kTenth, kMm}, {"tf2", Of<&S::tbot>, kTenth, kMm},
                         {"c", HsqOverhang, kTenth, kMm},    {"ez-el", Of<&S::zcog>, kTenth, kMm},
                         {"ez-pl", Of<&S::zpl>, kTenth, kMm}};
constexpr Line kT[] = {{"h", Of<&S::h>, kTenth, kMm},
                       {"b", Of<&S::btop>, kTenth, kMm},
                       {"tw", Of<&S::tw>, kTenth, kMm},
                       {"tf", Of<&S::ttop>, kTenth, kMm},
                       {"ez-el", Of<&S::zcog>, kTenth, "mm (elastic)"},
                       {"ez-pl", Of<&S::zpl>, kTenth, "mm (plastic)"}};
constexpr Line kUnequalBox[] = {
    {"h", Of<&S::h>, kTenth, kMm},       {"b1", Of<&S::btop>, kTenth, kMm},
    {"b2", Of<&S::bbot>, kTenth, kMm},   {"tw", Of<&S::tw>, kTenth, kMm},
    {"tf1", Of<&S::ttop>, kTenth, kMm},  {"tf2", Of<&S::tbot>, kTenth, kMm},
    {"c", Of<&S::ctopout>, kTenth, kMm}, {"ez-el", Of<&S::zcog>, kTenth, kMm},
    {"ez-pl", Of<&S::zpl>, kTenth, kMm}};
constexpr Line kFlatBar[] = {{"h", Of<&S::h>, kTenth, kMm}, {"t", Of<&S::tw>, kTenth, kMm}};
constexpr Line kTube[] = {{"D", Of<&S::d>, kTenth, kMm}, {"t", Of<&S::tw>, kTenth, kMm}};
constexpr Line kStiffenedPlate[] = {
    {"h", Of<&S::h>, kTenth, kMm},        {"b1", Of<&S::btop>, kTenth, kMm},
    {"tf1", Of<&S::ttop>, kTenth, kMm},   {"tw", Of<&S::tw>, kTenth, kMm},
    {"b2", Of<&S::bbot>, kTenth, kMm},    {"tf2", Of<&S::tbot>, kTenth, kMm},
    {"ez-el", Of<&S::zcog>, kTenth, kMm}, {"ez-pl", Of<&S::zpl>, kTenth, kMm}};
constexpr Line kPlateFlatBar[] = {
    {"h", Of<&S::h>, kTenth, kMm},        {"b1", Of<&S::btop>, kTenth, kMm},
    {"tf1", Of<&S::ttop>, kTenth, kMm},   {"tw", Of<&S::tw>, kTenth, kMm},
    {"ez-el", Of<&S::zcog>, kTenth, kMm}, {"ez-pl", Of<&S::zpl>, kTenth, kMm}};

std::span<const Line> DimensionLines(const ProjectState& s)
{
    switch (Traits(s).lists.dimensions) {
    case DimensionList::rolled_i:
        return kRolledI;
    case DimensionList::british_i:
        return kBritishI;
    case DimensionList::welded_i:
        return kWeldedI;
    case DimensionList::channel:
        return kChannel;
    case DimensionList::tapered_channel:
        return kTaperedChannel;
    case DimensionList::british_channel:
        return s.r2 != 0 ? std::span<const Line>(kTaperedChannel) : kChannel;
    case DimensionList::hollow:
        return kHollow;
    case DimensionList::box:
        return kBox;
    case DimensionList::angle:
        return kAngle;
    case DimensionList::single_i:
        return kSingleI;
    case DimensionList::hsq:
        return kHsq;
    case DimensionList::tee:
        return kT;
    case DimensionList::unequal_box:
        return kUnequalBox;
    case DimensionList::flat_bar:
        return kFlatBar;
    case DimensionList::tube:
        return kTube;
    case DimensionList::plate:
        return kStiffenedPlate;
    case DimensionList::plate_flat_bar:
        return kPlateFlatBar;
    case DimensionList::none:
        break;
    }
    return {};
}

constexpr Line kWeights[] = {{"G", Of<&S::weight>, "#0.0", "kg/m"},
                             {"Surface", Of<&S::surface>, "#0.000", "m2/m"}};

// --- Properties ---------------------------------------------------------------------------------

constexpr Line kArea[] = {{"A", Of<&S::a>, kWhole, kMm2}};
constexpr Line kBending[] = {{"Iy", Of<&S::iy>, kPower, kMm4}, {"Iz", Of<&S::iz>, kPower, kMm4}};
// Iz and Wel,z of stiffened plates are those of the stiffener alone.
constexpr Line kStiffenerBending[] = {{"Iy", Of<&S::iy>, kPower, kMm4},
                                      {"Iz", Of<&S::iz>, kPower, "mm4 (profile)"}};
constexpr Line kStiffenerSides[] = {{"Wel,y,top", Of<&S::wyeltop>, kPower, kMm3},
                                    {"Wel,y,bot", Of<&S::wyelbot>, kPower, kMm3},
                                    {"Wel,z", Of<&S::welz>, kPower, "mm3 (profile)"}};
constexpr Line kPrincipal[] = {{"Iu", Of<&S::iu>, kPower, kMm4}, {"Iv", Of<&S::iv>, kPower, kMm4}};
constexpr Line kTorsion[] = {{"Ix", Of<&S::it>, kPower, kMm4}};
constexpr Line kWarping[] = {{"Iw", Of<&S::iw>, kPower, kMm6}};
constexpr Line kElastic[] = {{"Wel,y", Of<&S::wely>, kPower, kMm3},
                             {"Wel,z", Of<&S::welz>, kPower, kMm3}};
constexpr Line kPlastic[] = {{"Wpl,y", Of<&S::wply>, kPower, kMm3},
                             {"Wpl,z", Of<&S::wplz>, kPower, kMm3}};
constexpr Line kPlasticY[] = {{"Wpl,y", Of<&S::wply>, kPower, kMm3}};
constexpr Line kSides[] = {{"Wel,y,top", Of<&S::wyeltop>, kPower, kMm3},
                           {"Wel,y,bot", Of<&S::wyelbot>, kPower, kMm3},
                           {"Wel,z", Of<&S::welz>, kPower, kMm3}};
constexpr Line kEffective[] = {{"Aeff", Of<&S::aeff>, kWhole, kMm2},
                               {"Weff,y", Of<&S::weffy>, kPower, kMm3},
                               {"Weff,z", Of<&S::weffz>, kPower, kMm3}};

// Families that carry neither an axial force nor moments about z.
bool BendsAboutYOnly(const ProjectState& s)
{
    return !Traits(s).carries.offered.n;
}

constexpr i16 kWebAsClass2 = 23;  // class of a section with a class 3 web upgraded

bool IsClassFour(const ProjectState& s)
{
    return ShownClassMy(s) == 4 || (!BendsAboutYOnly(s) && (s.classn == 4 || s.classmz == 4));
}

// --- Capacities ---------------------------------------------------------------------------------

constexpr Line kAxial[] = {{"Nt,Rd", Of<&S::nplrd>, "#0.0", kKn},
                           {"Nc,Rd", Of<&S::ncrd>, "#0.0", kKn}};
constexpr Line kPlasticMoments[] = {{"Mpl,y,Rd", Of<&S::mplyrd>, "#0.0", kKnm},
                                    {"Mpl,z,Rd", Of<&S::mplzrd>, "#0.0", kKnm}};
constexpr Line kElasticMoments[] = {{"Mel,y,Rd", Of<&S::melyrd>, "#0.0", kKnm},
                                    {"Mel,z,Rd", Of<&S::melzrd>, "#0.0", kKnm}};
constexpr Line kEffectiveMoments[] = {{"Meff,y,Rd", Of<&S::meffyrd>, "#0.0", kKnm},
                                      {"Meff,z,Rd", Of<&S::meffzrd>, "#0.0", kKnm}};

// Angles: at the three points, from the principal axes. A point on the axis has no limit (0).
template <auto Field, std::size_t Point>
Shown AtPoint(const ProjectState& s, std::string_view pattern)
{
    const double value = (s.*Field)[Point];
    return value == 0 ? Shown{"N/A"} : Shown{FormatNum(value, pattern), value};
}
constexpr Line kPointMoments[] = {
    {"Mu,Rd,1", AtPoint<&S::mru, 1>, "#0.0", kKnm}, {"Mu,Rd,2", AtPoint<&S::mru, 2>, "#0.0", kKnm},
    {"Mu,Rd,3", AtPoint<&S::mru, 3>, "#0.0", kKnm}, {"Mv,Rd,1", AtPoint<&S::mrv, 1>, "#0.0", kKnm},
    {"Mv,Rd,2", AtPoint<&S::mrv, 2>, "#0.0", kKnm}, {"Mv,Rd,3", AtPoint<&S::mrv, 3>, "#0.0", kKnm}};
// About the legs: of the points at which the check takes them.
constexpr Line kLegMoments[] = {{"My,Rd,1", Of<&S::mry1>, "#0.0", kKnm},
                                {"My,Rd,2/3", Of<&S::mry2>, "#0.0", kKnm},
                                {"Mz,Rd,1/2", Of<&S::mrz1>, "#0.0", kKnm},
                                {"Mz,Rd,3", Of<&S::mrz2>, "#0.0", kKnm}};
constexpr Line kMoments[] = {{"My,Rd", Of<&S::myrd>, "#0.0", kKnm},
                             {"Mz,Rd", Of<&S::mzrd>, "#0.0", kKnm}};
constexpr Line kMomentY[] = {{"My,Rd", Of<&S::myrd>, "#0.0", kKnm}};
constexpr Line kMomentSides[] = {{"My,Rd,top (gm1)", Of<&S::mytoprd>, "#0.0", kKnm},
                                 {"My,Rd,bottom (gm1)", Of<&S::mybotrd>, "#0.0", kKnm}};
constexpr Line kShear[] = {{"Vz,Rd", Of<&S::vbrd>, "#0.0", kKn},
                           {"Vy,Rd", Of<&S::vcyrd>, "#0.0", kKn}};
// Of angles the record keeps for Vy another value than that of its check.
constexpr Line kLegShear[] = {{"Vz,Rd", Of<&S::vzrd>, "#0.0", kKn},
                              {"Vy,Rd", Of<&S::vyrd>, "#0.0", kKn}};
constexpr Line kShearZ[] = {{"Vz,Rd", Of<&S::vbrd>, "#0.0", kKn}};
constexpr Line kShearAreas[] = {{"Av,z", Of<&S::avz>, kWhole, kMm2},
                                {"Av,y", Of<&S::avy>, kWhole, kMm2}};
constexpr Line kFlangeFactor[] = {{"Flange load factor", Of<&S::flangefactor>, "0.00", ""}};

class List {
public:
    explicit List(const ProjectState& s) : s_(s) {}
    void Add(std::span<const Line> lines)
    {
        std::transform(lines.begin(), lines.end(), std::back_inserter(quantities_),
                       [this](const Line& line) {
                           Shown shown = line.value(s_, line.pattern);
                           return Quantity{std::string(line.symbol), std::move(shown.text),
                                           std::string(line.unit), shown.number};
                       });
    }
    std::vector<Quantity> Take() { return std::move(quantities_); }

private:
    const ProjectState& s_;
    std::vector<Quantity> quantities_;
};

}  // namespace

std::vector<Quantity> DimensionsOf(const ProjectState& s)
{
    List list(s);
    list.Add(DimensionLines(s));
    return list.Take();
}

std::vector<Quantity> WeightsOf(const ProjectState& s)
{
    List list(s);
    list.Add(std::span<const Line>(kWeights).first(Is(s, Kind::general) ? 1 : 2));
    return list.Take();
}

std::vector<Quantity> SectionPropertiesOf(const ProjectState& s)
{
    List list(s);
    list.Add(kArea);
    const FamilyTraits& family = Traits(s);
    const bool angle = family.kind == Kind::angle, plate = family.lists.stiffener_iz;
    list.Add(plate ? kStiffenerBending : kBending);
    if (angle) {
        list.Add(kPrincipal);
    }
    if (s.it != 0) {
        list.Add(kTorsion);
    }
    if (s.iw != 0) {
        list.Add(kWarping);
    }
    list.Add(plate                ? std::span<const Line>(kStiffenerSides)
             : family.lists.sides ? kSides
                                  : std::span<const Line>(kElastic));
    if (!angle) {
        list.Add(s.wplz != 0 ? std::span<const Line>(kPlastic) : kPlasticY);
    }
    if (IsClassFour(s)) {
        list.Add(std::span<const Line>(kEffective).first(plate ? 2 : 3));  // no moments about z
    }
    return list.Take();
}

i16 ShownClassMy(const ProjectState& s)
{
    return Is(s, Kind::i_single) ? std::max(s.classmytop, s.classmybot) : s.classmy;
}

std::string_view ClassHeading(const ProjectState& s)
{
    return Is(s, Kind::tee) ? "Cross Section Class: " : "Section class: ";
}

std::string ClassText(const ProjectState& s)
{
    const auto number = [](i16 value) { return FormatNum(static_cast<float>(value), "#0"); };
    if (BendsAboutYOnly(s)) {
        return number(s.classmy) + " (My)";
    }
    return number(s.classn) + "/" + number(ShownClassMy(s)) + "/" + number(s.classmz) +
           " (N/My/Mz)";
}

std::vector<std::string> MomentSidesText(const ProjectState& s)
{
    if (!Is(s, Kind::i_single)) {
        return {};
    }
    const auto line = [](std::string_view side, std::string_view sign, i16 cls) {
        return "My,Rd," + std::string(side) + ": My " + std::string(sign) + ", " +
               std::string(side) + " flange compressed, class " +
               (cls == kWebAsClass2 ? "3, web as class 2" : std::to_string(cls));
    };
    return {line("top", "positive", s.classmytop), line("bottom", "negative", s.classmybot)};
}

std::vector<Quantity> CapacitiesOf(const ProjectState& s)
{
    List list(s);
    if (BendsAboutYOnly(s)) {
        list.Add(kMomentY);
        list.Add(std::span<const Line>(kPlasticMoments).first(1));
        list.Add(std::span<const Line>(kElasticMoments).first(1));
        list.Add(kMomentSides);
        list.Add(kShearZ);
        list.Add(std::span<const Line>(kShearAreas).first(1));
        if (Is(s, Kind::hat)) {
            list.Add(kFlangeFactor);
        }
        return list.Take();
    }
    list.Add(kAxial);
    list.Add(kMoments);
    if (Is(s, Kind::angle)) {
        list.Add(kLegMoments);
        list.Add(kPointMoments);
    } else {
        list.Add(kPlasticMoments);
        list.Add(kElasticMoments);
        if (IsClassFour(s)) {
            list.Add(kEffectiveMoments);
        }
    }
    list.Add(Is(s, Kind::angle) ? kLegShear : kShear);
    list.Add(kShearAreas);
    if (Is(s, Kind::i_single)) {
        list.Add(kMomentSides);
    }
    return list.Take();
}

}  // namespace kestrum
