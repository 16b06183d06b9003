// Inputs of a member behind the interface.

#include "app/choices.h"
#include "app/field_hint.h"
#include "app/unloaded_member.h"
#include "app/view_section.h"
#include "core/held_state.h"
#include "core/project_file.h"
#include "engine/new_project.h"
#include "library/handles.h"
#include "report/state_json.h"

#include <cmath>
#include <string_view>

namespace {

using kestrum::AssignTarget;
using kestrum::Field;
using kestrum::FieldKind;
using kestrum::Library;
using kestrum::ProjectState;
using kestrum::library::Answered;
using kestrum::library::Guarded;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredOut;
using kestrum::library::RequiredText;
using kestrum::library::TargetOf;

void SetAll(kestrum_member& member, const kestrum_setting* settings, size_t count,
            std::string& remarks)
{
    kestrum::HeldState s = member.state;
    kestrum::AssignRun run(*member.library, s, {kestrum::Assignment::checked});
    std::vector<AssignTarget> targets(count);
    for (size_t i = 0; i < count; ++i) {
        const std::string_view name = RequiredText(settings[i].name, "name");
        const std::string_view value = RequiredText(settings[i].value, "value");
        targets[i] = TargetOf(name);
        if (const std::string refusal = run.Assign(targets[i], value); !refusal.empty()) {
            throw Refusal{KESTRUM_REFUSED,
                          std::string(name) + "=" + std::string(value) + ": " + refusal,
                          std::string(name)};
        }
    }
    if (const kestrum::Refused refused = run.Finish(); !refused.empty()) {
        throw Refusal{KESTRUM_REFUSED, refused.Text(), refused.name};
    }
    for (const kestrum::Remark& remark : run.Remarks()) {
        remarks += remark.name + ": " + remark.what + "\n";
    }
    member.state = std::move(s);
}

kestrum_code SetOne(kestrum_member* member, const char* name, const char* value,
                    kestrum_error** error)
{
    const kestrum_setting setting{name, value};
    return Guarded(error, [&] {
        std::string remarks;
        SetAll(RequiredOut(member, "member"), &setting, 1, remarks);
    });
}

// What the project keeps.
struct Input {
    explicit Input(const char* asked) : name(RequiredText(asked, "name")), target(TargetOf(name)) {}
    std::string_view name;
    AssignTarget target;
};

double NumberOf(const ProjectState& s, const Input& input)
{
    const auto& [name, target] = input;
    const Field& field = *target.ref.field;
    if (target.section || field.kind == FieldKind::text || field.kind == FieldKind::literal) {
        throw Refusal{KESTRUM_REFUSED, std::string(name) + " is a text", std::string(name)};
    }
    return kestrum::NumberOf(s, field, target.ref.index);
}

std::string TextOf(const Library& library, const ProjectState& s, const Input& input)
{
    const AssignTarget& target = input.target;
    if (target.section) {
        return kestrum::SectionName(library, s);
    }
    const Field& field = *target.ref.field;
    if (field.kind == FieldKind::text || field.kind == FieldKind::literal) {
        return std::string(kestrum::TextOf(s, field));
    }
    const double value = NumberOf(s, input);
    if (target.choice != nullptr) {
        std::string word = kestrum::NameOfValue(library, *target.choice, static_cast<int>(value));
        if (!word.empty()) {
            return word;
        }
    }
    return field.kind == FieldKind::single ? kestrum::JsonNumber(static_cast<float>(value))
                                           : kestrum::JsonNumber(value);
}

kestrum::HeldState ReadBack(const Library& library, std::string_view bytes)
{
    kestrum::HeldState s;
    if (const auto fault = kestrum::ReadFresh(library, s, bytes)) {
        throw Refusal{KESTRUM_BAD_FILE,
                      "line " + std::to_string(fault->line) + ": " + fault->what,
                      {},
                      {},
                      fault->line};
    }
    return s;
}

}  // namespace

namespace kestrum::library {

AssignTarget TargetOf(std::string_view name)
{
    AssignTarget target;
    if (const std::string refusal = FindTarget(name, target); !refusal.empty()) {
        throw Refusal{KESTRUM_UNKNOWN_NAME, std::string(name) + ": " + refusal, std::string(name),
                      NearestField(name, FieldsMeant::inputs)};
    }
    return target;
}

}  // namespace kestrum::library

kestrum_code kestrum_member_new(const kestrum_catalogue* catalogue, kestrum_member** out,
                                kestrum_error** error)
{
    return Answered(out, error, [&] {
        const auto& library = Required(catalogue, "catalogue").library;
        return kestrum_member{library, kestrum::UnloadedMember(*library)};
    });
}

kestrum_code kestrum_member_copy(const kestrum_member* member, kestrum_member** out,
                                 kestrum_error** error)
{
    return Answered(out, error, [&] { return kestrum_member(Required(member, "member")); });
}

void kestrum_member_free(kestrum_member* member)
{
    delete member;
}

kestrum_code kestrum_member_set(kestrum_member* member, const char* name, const char* value,
                                kestrum_error** error)
{
    return SetOne(member, name, value, error);
}

kestrum_code kestrum_member_set_number(kestrum_member* member, const char* name, double value,
                                       kestrum_error** error)
{
    std::string text;
    const kestrum_code code = Guarded(error, [&] {
        if (!std::isfinite(value)) {
            throw Refusal{KESTRUM_REFUSED,
                          std::string(RequiredText(name, "name")) + ": not a finite number", name};
        }
        text = kestrum::JsonNumber(value);
    });
    return code == KESTRUM_OK ? SetOne(member, name, text.c_str(), error) : code;
}

kestrum_code kestrum_member_set_all(kestrum_member* member, const kestrum_setting* settings,
                                    size_t count, kestrum_text** remarks, kestrum_error** error)
{
    if (remarks != nullptr) {
        *remarks = nullptr;
    }
    return Guarded(error, [&] {
        kestrum_member& changed = RequiredOut(member, "member");
        if (count > 0) {
            Required(settings, "settings");
        }
        auto words = std::make_unique<kestrum_text>();
        SetAll(changed, settings, count, words->text);
        if (remarks != nullptr) {
            *remarks = words.release();
        }
    });
}

kestrum_code kestrum_member_number(const kestrum_member* member, const char* name, double* out,
                                   kestrum_error** error)
{
    return Guarded(error, [&] {
        double& number = RequiredOut(out, "out");
        number = NumberOf(Required(member, "member").state, Input(name));
    });
}

kestrum_code kestrum_member_text(const kestrum_member* member, const char* name, kestrum_text** out,
                                 kestrum_error** error)
{
    return Answered(out, error, [&] {
        const kestrum_member& read = Required(member, "member");
        return kestrum_text{TextOf(*read.library, read.state, Input(name))};
    });
}

kestrum_code kestrum_member_read_project(kestrum_member* member, const void* bytes, size_t size,
                                         kestrum_error** error)
{
    return Guarded(error, [&] {
        kestrum_member& read = RequiredOut(member, "member");
        const auto* const text = static_cast<const char*>(bytes);
        Required(text, "bytes");
        read.state = ReadBack(*read.library, {text, size});
    });
}

kestrum_code kestrum_member_project(const kestrum_member* member, kestrum_text** out,
                                    kestrum_error** error)
{
    return Answered(out, error, [&] {
        kestrum::HeldState s = Required(member, "member").state;
        return kestrum_text{kestrum::WriteProject(s)};
    });
}
