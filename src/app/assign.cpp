#include "app/assign.h"

#include "analysis/load_model.h"
#include "app/choices.h"
#include "app/field_hint.h"
#include "app/input_boxes.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "core/load_combination.h"
#include "core/parse_num.h"

#include <algorithm>
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
    for (const std::string_view yes : {"#TRUE#", "true", "-1", "1"}) {
        if (text == yes) {
            return kTrue;
        }
    }
    for (const std::string_view no : {"#FALSE#", "false", "0"}) {
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
    void* const at = ref.field->locate(s, ref.index);
    switch (ref.field->kind) {
    case FieldKind::single:
        if (!FitsSingle(value)) {
            return std::string(kOutOfRange);
        }
        *static_cast<float*>(at) = static_cast<float>(value);
        return {};
    case FieldKind::real:
        *static_cast<double*>(at) = value;
        return {};
    default: {
        const std::optional<i16> whole = WholeNum(value);
        if (!whole) {
            return std::string(kOutOfRange);
        }
        *static_cast<i16*>(at) = *whole;
        return {};
    }
    }
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

std::string AssignAnnex(ProjectState& s, std::string_view code, Assignment how)
{
    const i16 index = AnnexIndexFromCode(code);
    if (how == Assignment::checked && AnnexCodeFromIndex(index) != code) {
        return "no such annex; there are " + AnnexCodes();
    }
    s.annexcode = code;
    s.annexindex = index;
    ApplyAnnexMaterial(s, index);
    ApplyAnnexLoads(s, index);
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
    *static_cast<std::string*>(ref.field->locate(s, 0)) = text;
    return {};
}

std::string AssignChoice(const Library& library, ProjectState& s, const FieldRef& ref,
                         const Choice& choice, std::string_view text, Assignment how)
{
    std::optional<double> value = choice.truth ? TruthValue(text) : WholeNumber(text);
    if (const auto named = value ? std::nullopt : ValueOfName(library, choice, text)) {
        value = *named;
    }
    if (!value && Named(choice)) {
        return "no such name in the list " + Offered(library, choice);
    }
    if (!value) {
        return std::string(choice.truth ? "neither true nor false" : kNoNumber);
    }
    if (how == Assignment::checked) {
        const std::optional<i16> whole = WholeNum(*value);
        if (!whole || *whole != *value || !Offers(library, choice, *whole)) {
            return "not in the list " + Offered(library, choice);
        }
    }
    return StoreNumber(s, ref, *value);
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
    return std::string(outcome.message);
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
    };
    const auto* const at = std::find_if(std::begin(kTies), std::end(kTies),
                                        [field](const auto& tie) { return tie.first == field; });
    return at != std::end(kTies) ? at->second : kTieNone;
}

std::string OfRow(std::string_view field, std::size_t row, std::string_view what)
{
    return std::string(field) + "[" + std::to_string(row) + "]: " + std::string(what);
}

std::string MisplacedTrapezoid(const ProjectState& s)
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

std::string MisplacedLoad(const ProjectState& s)
{
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

std::string FindTarget(std::string_view name, AssignTarget& target)
{
    const std::optional<FieldRef> ref = ResolveField(name);
    if (!ref) {
        return "no such field" + FieldHint(name, FieldsMeant::inputs);
    }
    const bool selfweightrow = ref->field->shape == FieldShape::array && ref->index == 0;
    if (ref->field->role != FieldRole::input || selfweightrow) {
        return "not an input of the project";
    }
    const std::string_view field = ref->field->name;
    target = {*ref, FindChoice(field), BoxOfField(field), TieOf(field)};
    return {};
}

std::string AssignTo(const Library& library, ProjectState& s, const AssignTarget& target,
                     std::string_view text, Assignment how)
{
    const FieldRef& ref = target.ref;
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
    SetPsi(s);
    ApplyAnnexLoads(s, s.annexindex);  // safetyclass and loadcomb take part
    return refusal;
}

std::string AssignField(const Library& library, ProjectState& s, std::string_view name,
                        std::string_view text, Assignment how)
{
    AssignTarget target;
    const std::string refusal = FindTarget(name, target);
    return refusal.empty() ? AssignTo(library, s, target, text, how) : refusal;
}

std::string OverruledBy(const Library& library, const ProjectState& s, std::string_view name)
{
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
