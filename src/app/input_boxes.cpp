#include "app/input_boxes.h"

#include "analysis/load_model.h"
#include "app/box_list.h"
#include "core/arithmetic_trap.h"
#include "core/field_table.h"
#include "core/number_format.h"
#include "core/parse_num.h"
#include "core/project_inputs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace kestrum {

namespace {

// Limits are given in decimals, the value was read as a float: both count as floats.
bool Within(double value, const Limits& limits)
{
    const float x = static_cast<float>(value);
    const float low = static_cast<float>(limits.lower.value);
    const float high = static_cast<float>(limits.upper.value);
    const bool above = limits.lower.kind == Bound::Kind::none ||
                       (limits.lower.kind == Bound::Kind::strict ? x > low : x >= low);
    const bool below = limits.upper.kind == Bound::Kind::none ||
                       (limits.upper.kind == Bound::Kind::strict ? x < high : x <= high);
    return above && below && x == x;
}

// False when a whole number is out of range; nothing is stored then.
bool Store(ProjectState& s, const Field& field, int index, float value)
{
    return PutNumber(s, field, index, field.kind == FieldKind::real ? WidenNum(value) : value);
}

BoxOutcome CommitPosition(ProjectState& s, const Box& box, const Field& field, int index,
                          float typed)
{
    const bool relative = EditsRelative(s, box);
    const float length = InputsOf(s).l;
    const float upper = relative ? 1.0f : length;
    const bool good = typed >= 0 && typed <= upper;
    const double x = !good ? 0.0 : relative ? static_cast<double>(typed) * length : typed;
    Store(s, field, index, static_cast<float>(x));
    return {good, good ? std::string_view{} : relative ? box.other : box.message};
}

// The half of a rule that looks at other fields, as a bound on this one. Both sides count as
// floats, so that 300 - 2 x 6.3 is the 287.4 that was typed.
struct RelatedBound {
    enum class Side : std::uint8_t { none, below, atmost, atleast } side = Side::none;
    float value = 0;

    bool Kept(float x) const
    {
        return side == Side::none || (side == Side::below    ? x < value
                                      : side == Side::atmost ? x <= value
                                                             : x >= value);
    }
};

RelatedBound BoundOf(const ProjectInputs& s, const Box& box)
{
    using enum RelatedBound::Side;
    switch (box.rule) {
    case BoxRule::stiffeners:
        return {below, LengthInMm(s)};
    case BoxRule::overhang:
        return {below, F32(s.p23.istb1 / 2.0 - s.p23.isttw)};
    case BoxRule::hsqbottom:
        return {atleast, F32(s.p24.istb1 - 2.0 * s.p24.isttw)};
    case BoxRule::hsqtop:
        return {below, F32(static_cast<double>(s.p25.istb2) - s.p25.istc)};
    case BoxRule::hsqoverhang:
        return {atmost, F32(s.p25.istb1 / 2.0)};
    case BoxRule::boxbottom:
        return {atleast, F32(s.p27.istb1 - 2.0 * s.p27.istc)};  // a + tw, over the webs
    default:
        return {};
    }
}

// Nothing when the rule is kept.
std::optional<std::string_view> Related(const ProjectInputs& s, const Box& box, double value)
{
    const bool kept = BoundOf(s, box).Kept(F32(value));
    return kept ? std::nullopt : std::optional(box.other.empty() ? box.message : box.other);
}

std::string Shortest(float value)
{
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

// The overhang of the top flange follows a narrower flange.
BoxOutcome FitOverhang(ProjectInputs& s)
{
    const float most = F32(s.p27.istb1 / 2 - s.p27.isttw);
    if (s.p27.istc <= most) {
        return {};
    }
    s.p27.istc = std::max(0.0F, most);
    return {true, " c adjusted "};
}

}  // namespace

std::span<const Box> InputBoxes()
{
    return BoxList();
}

const Box* FindBox(std::string_view form, std::string_view id)
{
    const auto boxes = InputBoxes();
    const auto at = std::find_if(boxes.begin(), boxes.end(),
                                 [&](const Box& box) { return box.form == form && box.id == id; });
    return at != boxes.end() ? &*at : nullptr;
}

const Box* BoxOfField(std::string_view field)
{
    const auto boxes = InputBoxes();
    const auto at = std::find_if(boxes.begin(), boxes.end(),
                                 [&](const Box& box) { return box.field == field; });
    return at != boxes.end() ? &*at : nullptr;
}

bool EditsRelative(const ProjectState& s, const Box& box)
{
    const ProjectInputs& in = InputsOf(s);
    if (box.field == "pmx") {
        return in.pmrelative != 0;
    }
    return box.field == "cp" ? in.cprelative != 0 : in.qtrelative != 0;
}

BoxOutcome Commit(ProjectState& s, const Box& box, int index, std::string_view text,
                  bool decimalcomma)
{
    const std::optional<float> typed = ParseNum(text, decimalcomma);
    const Field* const field = FindField(box.field);
    if (!typed) {
        return {false, kMismatch};
    }
    if (box.rule == BoxRule::position) {
        return CommitPosition(s, box, *field, index, *typed);
    }
    if (!Store(s, *field, index, *typed)) {
        return {false, kMismatch};
    }
    const double value = NumberOf(s, *field, index);
    if (!Within(value, field->limits)) {
        return {false, box.message};
    }
    if (const auto refusal = Related(InputsOf(s), box, value)) {
        return {false, *refusal};
    }
    return box.rule == BoxRule::boxtop ? FitOverhang(InputsOf(s)) : BoxOutcome{};
}

std::string LimitText(const ProjectState& s, const Box& box)
{
    if (box.rule == BoxRule::position) {
        return "0 to " + Shortest(EditsRelative(s, box) ? 1.0F : InputsOf(s).l);
    }
    std::string text;
    const auto add = [&text](const char* word, double value) {
        text += (text.empty() ? "" : " and ") + std::string(word) + " " +
                Shortest(static_cast<float>(value));
    };
    const auto [lower, upper] = FindField(box.field)->limits;
    if (lower.kind != Bound::Kind::none) {
        add(lower.kind == Bound::Kind::strict ? "above" : "at least", lower.value);
    }
    if (upper.kind != Bound::Kind::none) {
        add(upper.kind == Bound::Kind::strict ? "below" : "at most", upper.value);
    }
    if (const RelatedBound bound = BoundOf(InputsOf(s), box);
        bound.side != RelatedBound::Side::none) {
        add(bound.side == RelatedBound::Side::below    ? "below"
            : bound.side == RelatedBound::Side::atmost ? "at most"
                                                       : "at least",
            bound.value);
    }
    return text;
}

std::string BoxText(const ProjectState& s, const Box& box, int index)
{
    const Field& field = *FindField(box.field);
    double value = NumberOf(s, field, index);
    const float length = InputsOf(s).l;
    if (box.rule == BoxRule::position && EditsRelative(s, box) && length != 0) {
        return FormatNum(value / length, box.format);
    }
    if (box.format.empty()) {
        std::array<char, 40> digits{};
        const auto end =
            field.kind == FieldKind::single
                ? std::to_chars(digits.data(), digits.data() + digits.size(),
                                static_cast<float>(value))
                      .ptr
                : std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        return {digits.data(), end};
    }
    if (box.field == "fyk" && Within(value, field.limits)) {
        return FormatNum(static_cast<float>(value), "#000");  // as the material selection writes it
    }
    return field.kind == FieldKind::single ? FormatNum(static_cast<float>(value), box.format)
                                           : FormatNum(value, box.format);
}

}  // namespace kestrum
