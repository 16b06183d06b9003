#include "report/state_json.h"
#include "report/check_key.h"

#include "core/check_text.h"
#include "core/field_table.h"
#include "core/file_notation.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "report/design_notes.h"
#include "report/outcome.h"
#include "service/modal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <span>
#include <utility>

namespace kestrum {

namespace {

template <class T> std::string Shortest(T value)
{
    if (!std::isfinite(value)) {
        return "null";
    }
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

// Joins the members of one object or list.
class Members {
public:
    void Add(std::string_view key, const std::string& value)
    {
        text_ += text_.empty() ? "" : ",\n";
        text_ += JsonText(key) + ": " + value;
    }
    std::string Object() const { return "{\n" + text_ + "\n}"; }

private:
    std::string text_;
};

std::string Value(const ProjectState& s, const Field& field, int index)
{
    const double number = NumberOf(s, field, index);
    switch (field.kind) {
    case FieldKind::single:
        return JsonNumber(static_cast<float>(number));
    case FieldKind::real:
        return JsonNumber(number);
    case FieldKind::integer:
        return std::to_string(static_cast<int>(number));
    case FieldKind::truth:
        return number != 0 ? "true" : "false";
    default:
        return JsonText(TextOf(s, field));
    }
}

std::string FieldJson(const ProjectState& s, const Field& field)
{
    if (field.shape == FieldShape::scalar) {
        return Value(s, field, 0);
    }
    std::string list;
    for (int i = field.first; i <= LastIndex(field, s); ++i) {
        list += (list.empty() ? "" : ", ") + Value(s, field, i);
    }
    return "[" + list + "]";
}

std::string RowJson(const Check& check)
{
    const RowText text = TextOf(check);
    return "{\"label\": " + JsonText(text.label) +
           ", \"calculation\": " + JsonText(text.calculation) +
           ", \"result\": " + JsonText(text.result) + ", \"limit\": " + JsonText(text.limit) +
           ", \"ir\": " + JsonNumber(check.ratio) +
           ", \"status\": " + std::to_string(check.status) + "}";
}

std::string RowList(const ProjectState& s, std::span<const ResultRow> rows)
{
    std::string list;
    for (const ResultRow row : rows) {
        list += (list.empty() ? "" : ",\n    ") + RowJson(s.checklist.row(row));
    }
    return "[" + list + "]";
}

std::string PlaceJson(const CheckPlace& place)
{
    const std::string x = "{\"x\": " + JsonNumber(place.x);
    switch (place.kind) {
    case CheckPlace::Kind::section:
        return x + "}";
    case CheckPlace::Kind::point:
        return x + ", \"point\": " + std::to_string(place.number) + "}";
    case CheckPlace::Kind::segment:
        return "{\"segment\": " + std::to_string(place.number) +
               ", \"segments\": " + std::to_string(place.parts) + "}";
    default:
        return "null";
    }
}

std::string CheckJson(const ProjectState& s, CheckId id)
{
    const Check& check = s.checklist[id];
    std::string terms;
    for (std::size_t i = 0; i < TermsOf(check); ++i) {
        terms += (i > 0 ? ", " : "") + JsonNumber(check.terms[i]);
    }
    return "{" + KeyJson(NameOf(id)) + ", \"formula\": " + JsonText(FormulaOf(check)) +
           ", \"clause\": " + JsonText(TextsOf(check.form).clause) +
           ", \"place\": " + PlaceJson(check.place) + ", \"ir\": " + JsonNumber(check.ratio) +
           ", \"limit\": " + JsonNumber(check.limit) +
           ", \"governs\": " + (s.checklist.governs(RowOf(id)) == id ? "true" : "false") +
           ", \"terms\": [" + terms + "]}";
}

void AddTexts(Members& members, const ProjectState& s)
{
    members.Add("combtext610", JsonText(CombText610(s)));
    members.Add("combtext610a", JsonText(CombText610a(s)));
    members.Add("combtext610b", JsonText(CombText610b(s)));
    members.Add("combtext614", JsonText(CombText614(s)));
    members.Add("combtextuls", JsonText(CombTextUls(s)));
    members.Add("combtextsls", JsonText(CombTextSls(s)));
    members.Add("combtextbasic", JsonText(CombTextBasic()));
    members.Add("massa", JsonText(MassText(s)));
    members.Add("mod1", JsonText(ModeText(s, 1)));
    members.Add("mod2", JsonText(ModeText(s, 2)));
    members.Add("mod3", JsonText(ModeText(s, 3)));
}

}  // namespace

std::string JsonText(std::string_view text)
{
    if (!IsUtf8(text)) {
        return JsonText(AsUtf8(text));
    }
    constexpr std::string_view kHex = "0123456789abcdef";
    std::string out = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20) {
            out += "\\u00";
            out += kHex[byte >> 4U];
            out += kHex[byte & 15U];
        } else {
            out += c;
        }
    }
    return out + "\"";
}

std::string JsonNumber(double value)
{
    return Shortest(value);
}

std::string JsonNumber(float value)
{
    return Shortest(value);
}

std::string RowsJson(const ProjectState& state)
{
    const ProjectState blank{};
    const ProjectState& s = state.calculationerror ? blank : state;
    return "{\n  \"section\": " + RowList(s, kSectionRows) +
           ",\n  \"buckling\": " + RowList(s, kBucklingRows) +
           ",\n  \"deflection\": " + RowList(s, kDeflectionRows) + "}";
}

std::string ChecksJson(const ProjectState& s)
{
    std::string list;
    for (const CheckId id : RatedChecks(s)) {
        list += (list.empty() ? "" : ",\n    ") + CheckJson(s, id);
    }
    return "[" + list + "]";
}

std::string NotesJson(const ProjectState& s)
{
    std::string list;
    for (const DesignNote& note : DesignNotes(s)) {
        list += (list.empty() ? "" : ",\n    ") + std::string("{\"id\": ") + JsonText(note.id) +
                ", \"text\": " + JsonText(note.text) + "}";
    }
    return "[" + list + "]";
}

std::string FailureJson(const Failure& failure)
{
    if (!failure.any()) {
        return "null";
    }
    std::string text = "{\"stage\": " + JsonText(StageName(failure.stage)) +
                       ", \"cause\": " + JsonText(CauseName(failure.cause)) +
                       ", \"quantity\": " + JsonText(failure.quantity);
    if (failure.row >= 0) {
        text += ", \"row\": " + std::to_string(failure.row);
    }
    text += ", \"value\": " + JsonNumber(failure.value);
    if (failure.cause == Cause::critical_force) {
        text += ", \"limit\": " + JsonNumber(failure.limit);
    }
    if (!failure.allowed.empty()) {
        text += ", \"allowed\": " + JsonText(failure.allowed);
    }
    return text + ", \"unit\": " + JsonText(failure.unit) +
           ", \"text\": " + JsonText(FailureText(failure)) + "}";
}

std::string DroppedJson(const ProjectState& s)
{
    constexpr std::array<std::string_view, 3> kCategories = {"G", "Q1", "Q2"};
    std::string list;
    for (const DroppedLoad& load : DroppedNow(s, s.dropped)) {
        const bool listed = load.category >= 0 && load.category < 3;
        list += (list.empty() ? "" : ",\n    ") + std::string("{\"field\": ") +
                JsonText(load.field) + ", \"row\": " + std::to_string(load.row) +
                ", \"value\": " + JsonNumber(load.value) +
                (load.field == "qt1" ? ", \"value2\": " + JsonNumber(load.value2) : "") +
                ", \"unit\": " + JsonText(DroppedUnit(load)) + ", \"category\": " +
                (listed ? JsonText(kCategories[static_cast<std::size_t>(load.category)]) : "null") +
                ", \"direction\": " +
                JsonText(load.direction < 0    ? "x"
                         : load.direction == 1 ? "z"
                                               : "y") +
                ", \"text\": " + JsonText(DroppedText(load)) + "}";
    }
    return "[" + list + "]";
}

std::string StateJson(const ProjectState& s)
{
    Members members;
    for (const Field& field : AllFields()) {
        members.Add(field.name, FieldJson(s, field));
    }
    AddTexts(members, s);
    members.Add("rows", RowsJson(s));
    members.Add("notes", NotesJson(s));
    members.Add("verdict", JsonText(VerdictText(OutcomeOf(s, !s.calculationerror))));
    members.Add("failure", FailureJson(s.failure));
    members.Add("dropped", DroppedJson(s));
    return members.Object() + "\n";
}

std::string InputsJson(const ProjectState& s)
{
    Members members;
    for (const Field& field : AllFields()) {
        if (field.role == FieldRole::input) {
            members.Add(field.name, FieldJson(s, field));
        }
    }
    return members.Object() + "\n";
}

}  // namespace kestrum
