#include "app/assign.h"

#include "analysis/load_model.h"
#include "app/choices.h"
#include "app/field_hint.h"
#include "app/input_boxes.h"
#include "app/without_effect.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "core/load_combination.h"
#include "core/parse_num.h"
#include "core/project_inputs.h"
#include "core/utf8_text.h"
#include "sections/family_table.h"
#include "sections/section_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace kestrum {

namespace {

constexpr std::string_view kNoNumber = "not a number";
constexpr std::string_view kOutOfRange = "out of range";
constexpr std::string_view kBeyond = "beyond the member";

// The whole text as one number; a comma serves as the point.
std::optional<double> WholeNumber(std::string_view text)
{
    std::string digits(text);
    std::replace(digits.begin(), digits.end(), ',', '.');
    if (digits.starts_with('+')) {
        digits.erase(0, 1);
    }
    double value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, fault] = std::from_chars(digits.data(), end, value);
    if (fault != std::errc{} || rest != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<double> TruthValue(std::string_view text)
{
    for (const std::string_view yes : {"#TRUE#", "-1", "1"}) {
        if (text == yes) {
            return kTrue;
        }
    }
    for (const std::string_view no : {"#FALSE#", "0"}) {
        if (text == no) {
            return kFalse;
        }
    }
    return std::nullopt;
}

bool FitsSingle(double value)
{
    return std::isfinite(static_cast<float>(value));
}

// Stores a number in a field of any numeric kind.
std::string StoreNumber(ProjectState& s, const FieldRef& ref, double value)
{
    const bool fits = ref.field->kind != FieldKind::single || FitsSingle(value);
    return fits && PutNumber(s, *ref.field, ref.index, value) ? std::string()
                                                              : std::string(kOutOfRange);
}

// "EU, NO, .. and UD"
std::string AnnexCodes()
{
    std::string text;
    for (int i = 0; i < kAnnexes; ++i) {
        text += i == 0 ? "" : i + 1 < kAnnexes ? ", " : " and ";
        text += AnnexCodeFromIndex(i);
    }
    return text;
}

// The annex of a code or a name: "NO", "EC3 + NA/Norway", "Norway", "NORSOK". Nothing for others.
std::optional<i16> AnnexOfName(std::string_view name)
{
    const std::string wanted = CompactName(name);
    for (int i = 0; i < kAnnexes; ++i) {
        std::string country = CompactName(AnnexSuffix(i));
        for (const std::string_view head : {"+NA/", "+"}) {
            country.erase(0, country.starts_with(head) ? head.size() : 0);
        }
        if (!wanted.empty() && (wanted == AnnexCodeFromIndex(i) || wanted == country ||
                                wanted == CompactName(AnnexName(i)))) {
            return static_cast<i16>(i);
        }
    }
    return std::nullopt;
}

std::string AssignAnnex(ProjectState& s, std::string_view name, Assignment how)
{
    const std::optional<i16> named = AnnexOfName(name);
    if (how == Assignment::checked && !named) {
        return "no such annex; there are " + AnnexCodes();
    }
    const i16 index = named.value_or(AnnexIndexFromCode(name));
    ProjectInputs& in = InputsOf(s);
    in.annexcode = named ? AnnexCodeFromIndex(index) : name;
    in.annexindex = index;
    ApplyAnnexMaterial(in, index);
    ApplyAnnexLoads(in, in, index);
    return {};
}

std::string AssignText(ProjectState& s, const FieldRef& ref, std::string_view text, Assignment how)
{
    if (ref.field->name == "annexcode") {
        return AssignAnnex(s, text, how);
    }
    const std::string_view forbidden = ref.field->name == "p41ident" ? "\r\n\"" : "\r\n";
    if (text.find_first_of(forbidden) != std::string_view::npos) {
        return "a line end or quote cannot be stored";
    }
    *static_cast<std::string*>(ref.field->locate(s, 0)) = AsUtf8(text);  // as its file reads
    return {};
}

// The series that goes with the name of a family: "UC".
void AssignSeries(ProjectInputs& s, int family, int series)
{
    if (series != 0) {
        s.*TraitsOf(family).series = static_cast<i16>(series);
    }
}

std::string AssignChoice(const Library& library, ProjectState& s, const FieldRef& ref,
                         const Choice& choice, std::string_view text, Assignment how)
{
    const std::optional<double> number = choice.truth ? TruthValue(text) : WholeNumber(text);
    const std::optional<i16> whole = number ? WholeNum(*number) : std::nullopt;
    if (whole && *whole == *number && Offers(library, choice, *whole)) {
        return StoreNumber(s, ref, *number);
    }
    if (const auto named = ValueOfName(library, choice, text)) {
        if (choice.values == kFamilyValues) {
            AssignSeries(InputsOf(s), *named, FamiliesOfName(text).front().series);
        }
        return StoreNumber(s, ref, *named);
    }
    if (number && how == Assignment::raw) {
        return StoreNumber(s, ref, *number);
    }
    const std::string offered = Offered(library, choice);
    return (number ? "not in the list " : "no such name in the list ") + offered +
           (number ? std::string{} : NameHint(library, choice, text));
}

// "(0.01 m is given; at least 0.05 m)"
std::string GivenAndLimit(const ProjectState& s, const Box& box, std::string_view text)
{
    const std::string_view unit = FindField(box.field)->unit;
    const std::string behind = unit.empty() ? "" : " " + std::string(unit);
    const std::string limit = LimitText(s, box);
    return "(" + std::string(text) + behind + " is given; " + limit + behind + ")";
}

// A refused value is taken back; nothing but its own field has changed then.
std::string AssignBox(ProjectState& s, const FieldRef& ref, const Box& box, std::string_view text)
{
    constexpr bool kWholeText =
        true;  // the stricter of the two ways to read a typed number takes point and comma
    const double before = NumberOf(s, *ref.field, ref.index);
    const BoxOutcome outcome =
        text.empty() ? BoxOutcome{false, kNoNumber} : Commit(s, box, ref.index, text, kWholeText);
    if (outcome.taken) {
        return {};
    }
    StoreNumber(s, ref, before);
    std::string refusal(outcome.message);
    if (refusal != kMismatch && outcome.message != kNoNumber) {
        refusal += GivenAndLimit(s, box, text);
    }
    return refusal;
}

// The largest size that is usual for a unit; what is beyond was probably meant in another one.
float UsualSize(const Field& field)
{
    struct Usual {
        std::string_view unit;
        float most;
    };
    constexpr Usual kUsual[] = {{"m", 200},     {"kN", 1e5F}, {"kNm", 1e5F}, {"kN, kNm", 1e5F},
                                {"kN/m", 1e4F}, {"mm", 1e4F}, {"m/s", 100},  {"MPa", 1e6F}};
    const auto* const at = std::find_if(std::begin(kUsual), std::end(kUsual),
                                        [&](const Usual& u) { return u.unit == field.unit; });
    const bool height = field.name == "zh" || field.name == "webstiffa";  // any is possible
    return at == std::end(kUsual) || height ? 0 : at->most;
}

Tie TieOf(std::string_view field)
{
    constexpr std::pair<std::string_view, Tie> kTies[] = {
        {"supportcase", kTieSupport},
        {"bucklingcasey", kTieCaseY},
        {"bucklingcasez", kTieCaseZ},
        {"ly", kTieLy},
        {"lz", kTieLz},
        {"ltb", kTieLtb},
        {"ltbcase", kTieLtbCase},
        {"ltbk", kTieLtbK},
        {"restraints", kTieRestraints},
        {"webstiff", kTieWebStiff},
        {"endstiff", kTieEndStiff},
        {"webstiffa", kTieWebStiffA},
        {"family", kTieFamily},
        {"series101", kTieSeries},
        {"series103", kTieSeries},
        {"loadmode", kTieLoadMode},
    };
    const auto* const at = std::find_if(std::begin(kTies), std::end(kTies),
                                        [field](const auto& tie) { return tie.first == field; });
    return at != std::end(kTies) ? at->second : kTieNone;
}

std::string OfRow(std::string_view field, std::size_t row, std::string_view what)
{
    return std::string(field) + "[" + std::to_string(row) + "]: " + std::string(what);
}

std::string MisplacedTrapezoid(const ProjectInputs& s)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        const bool loaded = s.qt1[k] != 0 || s.qt2[k] != 0;
        if (loaded && (s.qtx1[k] > s.l || s.qtx2[k] > s.l)) {
            return OfRow(s.qtx1[k] > s.l ? "qtx1" : "qtx2", k, kBeyond);
        }
    }
    const LoadCheck check = CheckTrapezoids(s);
    if (check.ok) {
        return {};
    }
    std::string_view message = check.message.text();  // with a blank at either end
    message = message.substr(1, message.size() - 2);
    return OfRow(FindBox("Loading", check.box.text())->field, static_cast<std::size_t>(check.row),
                 message);
}

}  // namespace

std::string MisplacedLoad(const ProjectState& member)
{
    const ProjectInputs& s = InputsOf(member);
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pmx[k] > s.l) {
            return OfRow("pmx", k, kBeyond);
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.cpmode == 1 && static_cast<int>(k) <= s.cpcount && s.cp[k] > s.l) {
            return OfRow("cp", k, kBeyond);
        }
    }
    return s.loadmode == 1 ? MisplacedTrapezoid(s) : std::string{};
}

std::string NameOf(const FieldRef& ref)
{
    return IndexedName(*ref.field, ref.index);
}

std::string FindTarget(std::string_view name, AssignTarget& target)
{
    target = {};
    if (name == kSection) {
        target.ref = {FindField("family"), 0};
        target.section = true;
        return {};
    }
    const std::optional<FieldRef> ref = ResolveField(name == kSteel   ? "fykindex"
                                                     : name == kAnnex ? "annexcode"
                                                                      : name);
    if (!ref) {
        return "no such field" + FieldHint(name, FieldsMeant::inputs);
    }
    const Field& field = *ref->field;
    const bool selfweightrow = field.shape == FieldShape::array && ref->index == 0;
    if (field.role != FieldRole::input || selfweightrow) {
        return "not an input of the project";
    }
    target.ref = *ref;
    target.choice = ChoiceOf(field);
    target.box = BoxOfField(field.name);
    target.tie = TieOf(field.name);
    target.load = LoadKindOf(field);
    target.owner = OwnerOf(field);
    target.idle = IdleRulesOf(field);
    target.usual = UsualSize(field);
    return {};
}

std::string AssignSection(const Library& library, ProjectState& member, std::string_view name,
                          bool familygiven)
{
    ProjectInputs& s = InputsOf(member);
    const auto found = SectionOfName(library, name, s.family);
    const auto tube = found ? std::nullopt : TubeOfName(name);
    const auto otherfamily = [&s, familygiven](int family) {
        return familygiven && family != s.family
                   ? "of family " + std::to_string(family) + " " + FamilyName(family) +
                         ", the family is " + std::to_string(s.family) + " " + FamilyName(s.family)
                   : std::string{};
    };
    if (tube) {
        std::string refusal = otherfamily(tube->family);
        if (refusal.empty()) {
            s.family = static_cast<i16>(tube->family);
            s.p31.istd = tube->diameter;
            s.p31.isttw = tube->wall;
        }
        return refusal;
    }
    if (!found) {
        return "no such section; `kestrum sections FAMILY` lists the names" +
               MeantHint(SectionsNear(library, name));
    }
    std::string refusal = otherfamily(found->family);
    if (!refusal.empty()) {
        return refusal;
    }
    s.family = static_cast<i16>(found->family);
    AssignSeries(s, found->family, found->series);
    s.row[static_cast<std::size_t>(found->table)] = found->row;
    return {};
}

std::string UnitDoubt(const ProjectState& s, const FieldRef& ref, float usual)
{
    const Field& field = *ref.field;
    // Its size: the sign may be another one in the record than it was given with.
    const double value = usual != 0 ? std::abs(NumberOf(s, field, ref.index)) : 0;
    if (value <= usual) {
        return {};
    }
    const std::string unit(field.unit);
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value)).ptr;
    return "is " + std::string(digits.data(), end) + " " + unit + " meant? The unit is " + unit;
}

std::string AssignTo(const Library& library, ProjectState& s, const AssignTarget& target,
                     std::string_view text, Assignment how)
{
    const FieldRef& ref = target.ref;
    if (target.section) {
        return AssignSection(library, s, text, false);
    }
    if (ref.field->kind == FieldKind::text) {
        return AssignText(s, ref, text, how);
    }
    std::string refusal;
    if (target.choice != nullptr) {
        refusal = AssignChoice(library, s, ref, *target.choice, text, how);
    } else if (how == Assignment::checked && target.box != nullptr) {
        refusal = AssignBox(s, ref, *target.box, text);
    } else {
        const std::optional<double> value = WholeNumber(text);
        refusal = value ? StoreNumber(s, ref, *value) : std::string(kNoNumber);
    }
    ProjectInputs& in = InputsOf(s);
    SetPsi(in);
    ApplyAnnexLoads(in, in, in.annexindex);  // safetyclass and loadcomb take part
    return refusal;
}

std::string AssignField(const Library& library, ProjectState& s, std::string_view name,
                        std::string_view text, Assignment how)
{
    AssignTarget target;
    const std::string refusal = FindTarget(name, target);
    return refusal.empty() ? AssignTo(library, s, target, text, how) : refusal;
}

std::string OverruledBy(const Library& library, const ProjectState& member, std::string_view name)
{
    const ProjectInputs& s = InputsOf(member);
    if ((name == "gammam0" || name == "gammam1" || name == "neta") && s.annexindex != kAnnexUd) {
        return "set by the national annex " + std::string(AnnexCodeFromIndex(s.annexindex));
    }
    if (name == "loadcomb" && s.annexindex == kAnnexNk && s.loadcomb != kUserFactors) {
        return "set by the national annex NK";
    }
    if (name == "fyk" && s.fykindex >= 0 &&
        static_cast<std::size_t>(s.fykindex) + 1 < library.materials.size()) {
        return "set by the material " +
               library.materials[static_cast<std::size_t>(s.fykindex)].name;
    }
    return {};
}

}  // namespace kestrum
