#pragma once

// A JSON array as it comes, made into a line for each of its elements, so that it is read like
// NDJSON and never held whole.

#include <string>
#include <string_view>

namespace kestrum {

class JsonArray {
public:
    // Appends what the next characters hold of elements, with a line end behind each. The bracket
    // in front is part of the text. What is no array any more, such as text behind it, becomes a
    // line of its own, which no member can be read from.
    void Add(std::string_view text, std::string& lines);

    // Whether the closing bracket has come.
    bool closed() const { return state_ == State::behind; }

private:
    enum class State { before, gap, element, behind };

    void Begin(char c, std::string& lines);
    void Within(char c, std::string& lines);

    State state_ = State::before;
    bool comma_ = false;  // the gap begins with one
    int depth_ = 0;       // of lists and objects within the element
    bool quoted_ = false, escaped_ = false;
};

}  // namespace kestrum
