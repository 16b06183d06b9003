#include "app/change_text.h"

#include "app/view_section.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "core/project_inputs.h"
#include "sections/family_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

namespace kestrum {

namespace {

// A choice changes more than its own field; its name stands for all of that.
constexpr std::array<std::string_view, 16> kChoices{
    "annexcode",     "method",    "fykindex", "supportcase", "loadmode", "bucklingcasey",
    "bucklingcasez", "ltb",       "ltbcase",  "restraints",  "loadcomb", "safetyclass",
    "psi1index",     "psi2index", "webstiff", "modal"};

std::string Shortest(float value)
{
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

// The first words of the meaning: "plateau of the curves" of "plateau of the curves, rolled".
std::string ShortMeaning(const Field& field)
{
    return std::string(field.meaning.substr(0, field.meaning.find_first_of(",;:(")));
}

std::string FieldText(const ProjectState& before, const ProjectState& after, const FieldRef& ref)
{
    const Field& field = *ref.field;
    std::string text = ShortMeaning(field);
    while (text.ends_with(' ')) {
        text.pop_back();
    }
    if (field.shape == FieldShape::array) {
        text += " " + std::to_string(ref.index);
    }
    if (field.kind == FieldKind::text || !field.values.empty()) {
        return text;
    }
    const auto number = [&](const ProjectState& s) {
        return Shortest(static_cast<float>(NumberOf(s, field, ref.index)));
    };
    text += ": " + number(before) + " to " + number(after);
    return field.unit.empty() ? text : text + " " + std::string(field.unit);
}

}  // namespace

std::vector<FieldRef> ChangedInputs(const ProjectState& before, const ProjectState& after)
{
    std::vector<FieldRef> changed;
    for (const Field& field : AllFields()) {
        if (field.role == FieldRole::derived) {
            continue;
        }
        for (int index = field.first; index <= field.last; ++index) {
            const bool text = field.kind == FieldKind::text;
            if (text ? TextOf(before, field) != TextOf(after, field)
                     : NumberOf(before, field, index) != NumberOf(after, field, index)) {
                changed.push_back({&field, index});
            }
        }
    }
    return changed;
}

bool InputsDiffer(const ProjectState& before, const ProjectState& after)
{
    const ProjectInputs &a = InputsOf(before), &b = InputsOf(after);
    return static_cast<const Inputs&>(a) != static_cast<const Inputs&>(b) ||
           a.projname != b.projname || a.ident != b.ident || a.annexindex != b.annexindex;
}

std::string_view TypedText(const ProjectState& before, const ProjectState& after)
{
    const std::vector<FieldRef> changed = ChangedInputs(before, after);
    return changed.size() == 1 && changed[0].field->kind == FieldKind::text ? changed[0].field->name
                                                                            : std::string_view{};
}

std::string ChangeText(const Library& library, const ProjectState& before,
                       const ProjectState& after)
{
    const std::vector<FieldRef> changed = ChangedInputs(before, after);
    const i16 family = InputsOf(after).family;
    const auto find = [&](std::string_view name) {
        return std::find_if(changed.begin(), changed.end(),
                            [&](const FieldRef& ref) { return ref.field->name == name; });
    };
    const auto row = std::find_if(changed.begin(), changed.end(), [](const FieldRef& ref) {
        return ref.field->values == kRowValues;
    });
    if (find("family") != changed.end() || row != changed.end()) {
        const FamilyTraits* const traits = FindFamily(family);
        return "section " + (HasTable(family)    ? SectionName(library, after)
                             : traits != nullptr ? std::string(traits->text)
                                                 : std::string{});
    }
    if (find("annexcode") != changed.end()) {
        return "annex " + std::string(AnnexName(InputsOf(after).annexindex));
    }
    if (find("loadmode") != changed.end()) {
        return InputsOf(after).loadmode == 1 ? "loads along the member" : "given end forces";
    }
    for (const std::string_view choice : kChoices) {
        if (const auto at = find(choice); at != changed.end()) {
            return FieldText(before, after, *at);
        }
    }
    return changed.empty() ? "change" : FieldText(before, after, changed.front());
}

}  // namespace kestrum
