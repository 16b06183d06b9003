#include "app/field_facts.h"

#include "app/assign.h"
#include "app/input_boxes.h"
#include "core/annexes.h"
#include "report/state_json.h"

#include <optional>

namespace kestrum {

namespace {

std::string_view TypeOf(const Field& field)
{
    if (field.values == kTruthValues) {
        return "tick";
    }
    switch (field.kind) {
    case FieldKind::single:
        return "f32";
    case FieldKind::real:
        return "f64";
    case FieldKind::integer:
        return "i16";
    default:
        return "text";
    }
}

std::string_view RoleOf(const Field& field)
{
    switch (field.role) {
    case FieldRole::input:
        return "input";
    case FieldRole::setup:
        return "setup";
    default:
        return "result";
    }
}

// What a rule asks of other inputs.
std::string_view RuleWords(BoxRule rule)
{
    switch (rule) {
    case BoxRule::position:
        return "0 to the length of the member";
    case BoxRule::stiffeners:
        return "below the length of the member";
    case BoxRule::overhang:
        return "below istb1/2 - isttw";
    case BoxRule::hsqbottom:
        return "at least istb1 - 2 isttw";
    case BoxRule::hsqtop:
        return "below istb2 - istc";
    case BoxRule::hsqoverhang:
        return "at most istb1/2";
    case BoxRule::boxtop:
        return "moves istc when that no longer fits";
    case BoxRule::boxbottom:
        return "at least the top flange between the webs, and one web";
    default:
        return {};
    }
}

void AddLimit(std::string& text, std::string_view word)
{
    text.append(text.empty() || word.empty() ? "" : ", ").append(word);
}

std::string BoundWords(const Bound& bound, std::string_view strict, std::string_view inclusive)
{
    if (bound.kind == Bound::Kind::none) {
        return {};
    }
    return std::string(bound.kind == Bound::Kind::strict ? strict : inclusive) + " " +
           JsonNumber(static_cast<float>(bound.value));
}

// "0 pinned-pinned, 1 pinned-fixed"; further names of a value behind a slash.
std::string NamesOf(const Choice& choice)
{
    std::string text;
    for (const NamedValue& value : choice.named) {
        text += (text.empty() ? "" : ", ") + std::to_string(value.value) + " ";
        for (std::size_t i = 0; i < value.names.size(); ++i) {
            text.append(i == 0 ? "" : " / ").append(value.names[i]);
        }
    }
    return text;
}

std::string ValuesOf(const Library& library, const Field& field, const Choice* choice)
{
    if (field.name == "annexcode") {
        std::string codes;
        for (int i = 0; i < kAnnexes; ++i) {
            codes.append(i == 0 ? "" : ", ").append(AnnexCodeFromIndex(i));
        }
        return codes;
    }
    if (choice == nullptr) {
        return {};
    }
    if (choice->values == kFamilyValues) {
        return "number or name, as `kestrum sections` lists them";
    }
    if (choice->values == kSteelValues) {
        std::string names;
        for (std::size_t i = 0; i < library.materials.size(); ++i) {
            names += (i == 0 ? "" : ", ") + std::to_string(i) + " " + library.materials[i].name;
        }
        return names;
    }
    if (!choice->named.empty()) {
        return NamesOf(*choice);
    }
    const std::string range =
        std::to_string(choice->lowest) + " to " + std::to_string(choice->highest);
    return choice->table ? range + " or the name of the row" : range;
}

}  // namespace

std::string LimitsOf(const Field& field)
{
    const Box* const box = BoxOfField(field.name);
    std::string text;
    AddLimit(text, BoundWords(field.limits.lower, "above", "at least"));
    AddLimit(text, BoundWords(field.limits.upper, "below", "at most"));
    AddLimit(text, box != nullptr ? RuleWords(box->rule) : std::string_view{});
    return text;
}

FieldFacts FactsOf(const Library& library, const Field& field)
{
    FieldFacts facts;
    facts.name = field.name;
    facts.type = TypeOf(field);
    facts.rows = field.shape != FieldShape::scalar;
    facts.first = field.first;
    facts.last = field.last;
    facts.unit = field.unit;
    facts.role = RoleOf(field);
    facts.meaning = field.meaning;
    facts.since = field.since;
    facts.choice = field.role == FieldRole::input ? ChoiceOf(field) : nullptr;
    facts.values = ValuesOf(library, field, facts.choice);
    facts.limits = field.role == FieldRole::input ? LimitsOf(field) : std::string{};
    for (const FilePlace& place : field.file) {
        if (field.role == FieldRole::input && place.part != FilePart::none) {
            facts.places.push_back(place);
        }
    }
    return facts;
}

std::string_view PartName(FilePart part)
{
    constexpr std::string_view kNames[] = {"",          "titles", "settings", "member",
                                           "endforces", "axial",  "uniform",  "trapezoidal",
                                           "point",     "family", "section",  "tail"};
    return kNames[static_cast<std::size_t>(part)];
}

const Field* FieldMeant(std::string_view name)
{
    if (name == kSection) {
        return FindField("family");
    }
    name = name == kSteel ? "fykindex" : name == kAnnex ? "annexcode" : name;
    const std::optional<FieldRef> ref = ResolveField(name);
    return ref ? ref->field : FindField(name);
}

std::string FactsText(const FieldFacts& facts)
{
    std::string text = facts.name;
    if (facts.rows) {
        text += "[" + std::to_string(facts.first) + ".." + std::to_string(facts.last) + "]";
    }
    text.append("\n  ").append(facts.meaning).append("\n");
    const auto add = [&text](std::string_view word, std::string_view what) {
        if (!what.empty()) {
            text.append("  ").append(word).append(" ").append(what).append("\n");
        }
    };
    add("unit:  ", facts.unit);
    add("values:", facts.values);
    add("limits:", facts.limits);
    add("type:  ", facts.type);
    add("role:  ", facts.role == "input"   ? "input, kept in the project file"
                   : facts.role == "setup" ? "setting, kept in the stored setup"
                                           : "set by the program");
    if (facts.since != 0) {
        add("since: ", "version " + std::to_string(facts.since) + " of the project file");
    }
    return text;
}

}  // namespace kestrum
