#include "app/json_array.h"

namespace kestrum {

namespace {

constexpr std::string_view kBlank = " \t\r\n";

}  // namespace

void JsonArray::Add(std::string_view text, std::string& lines)
{
    for (const char c : text) {
        if (state_ == State::element) {
            Within(c, lines);
        } else if (kBlank.find(c) == std::string_view::npos) {
            Begin(c, lines);
        }
    }
}

// Between elements, and in front of the array and behind it.
void JsonArray::Begin(char c, std::string& lines)
{
    if (state_ == State::before) {
        state_ = State::gap;
    } else if (state_ == State::behind) {
        lines.append(1, c).append("\n");
    } else if (c == ']') {
        state_ = State::behind;
    } else if (c == ',') {
        lines.append(comma_ ? ",\n" : "");  // an element is missing
        comma_ = true;
    } else {
        state_ = State::element;
        Within(c, lines);
    }
}

void JsonArray::Within(char c, std::string& lines)
{
    const bool end = !quoted_ && depth_ == 0 && (c == ',' || c == ']');
    if (end) {
        lines.push_back('\n');
        state_ = c == ']' ? State::behind : State::gap;
        comma_ = true;
        return;
    }
    if (quoted_) {  // no text goes beyond its line: a quote that is not closed ends there
        quoted_ = c != '\n' && (c != '"' || escaped_);
        escaped_ = c == '\\' && !escaped_;
    } else if (c == '"') {
        quoted_ = true;
        escaped_ = false;
    } else if (c == '{' || c == '[') {
        ++depth_;
    } else if ((c == '}' || c == ']') && depth_ > 0) {
        --depth_;
    }
    lines.push_back(c == '\n' ? ' ' : c);
}

}  // namespace kestrum
