#include "app/state_text.h"

#include "core/field_table.h"
#include "core/held_state.h"
#include "core/state/types.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <system_error>

namespace kestrum {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

void AppendEscaped(std::string& text, std::string_view value)
{
    for (const char c : value) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x20 || c == '%') {
            text += '%';
            text += kDigits[code >> 4U];
            text += kDigits[code & 15U];
        } else {
            text += c;
        }
    }
}

std::string Unescaped(std::string_view text)
{
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char code = 0;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(text.data() + i + 1, text.data() + i + 3, code, 16).ec == std::errc()) {
            value += static_cast<char>(code);
            i += 2;
        } else {
            value += text[i];
        }
    }
    return value;
}

template <class T> void AppendNumber(std::string& text, const void* at)
{
    std::array<char, 40> digits{};
    const T value = *static_cast<const T*>(at);
    text.append(digits.data(),
                std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

template <class T> bool ReadNumber(std::string_view text, void* at)
{
    T value{};
    const auto end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (read.ec == std::errc() && read.ptr == end) {
        *static_cast<T*>(at) = value;
        return true;
    }
    return false;
}

void AppendValue(std::string& text, const Field& field, const void* at)
{
    switch (field.kind) {
    case FieldKind::single:
        return AppendNumber<float>(text, at);
    case FieldKind::real:
        return AppendNumber<double>(text, at);
    case FieldKind::integer:
        return AppendNumber<i16>(text, at);
    case FieldKind::truth:
        text += *static_cast<const bool*>(at) ? '1' : '0';
        return;
    case FieldKind::text:
        return AppendEscaped(text, *static_cast<const std::string*>(at));
    case FieldKind::literal:
        return;
    }
}

bool ReadValue(std::string_view text, const Field& field, void* at)
{
    switch (field.kind) {
    case FieldKind::single:
        return ReadNumber<float>(text, at);
    case FieldKind::real:
        return ReadNumber<double>(text, at);
    case FieldKind::integer:
        return ReadNumber<i16>(text, at);
    case FieldKind::truth:
        *static_cast<bool*>(at) = text == "1";
        return text == "0" || text == "1";
    case FieldKind::text:
        *static_cast<std::string*>(at) = Unescaped(text);
        return true;
    case FieldKind::literal:
        return true;
    }
    return false;
}

}  // namespace

std::string StateText(const ProjectState& s)
{
    HeldState record = s;  // a field is located in one that may be written
    std::string text;
    for (const Field& field : AllFields()) {
        if (field.kind == FieldKind::literal) {
            continue;
        }
        for (int index = field.first; index <= field.last; ++index) {
            text += IndexedName(field, index);
            text += ' ';
            AppendValue(text, field, field.locate(record, index));
            text += '\n';
        }
    }
    return text;
}

std::string ReadStateText(ProjectState& s, std::string_view text)
{
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::size_t blank = line.find(' ');
        const std::optional<FieldRef> ref = ResolveField(line.substr(0, blank));
        if (blank == std::string_view::npos ||
            (ref &&
             !ReadValue(line.substr(blank + 1), *ref->field, ref->field->locate(s, ref->index)))) {
            return std::string(line);
        }
    }
    return {};
}

}  // namespace kestrum
