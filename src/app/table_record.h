#pragma once

// A CSV cut into its records: lines, except that a quoted cell may hold line ends (RFC 4180).

#include <cstddef>
#include <string_view>

namespace kestrum {

// Longer records are refused; one takes a few hundred characters.
constexpr std::size_t kLongestLine = std::size_t{1} << 20;

// A record of several lines is no longer than this.
constexpr std::size_t kLongestQuoted = std::size_t{1} << 16;

// Where cells may end while the separator is not known yet.
constexpr std::string_view kAnySeparator = ",;\t";

// The end of the record at the front of the text: the place of its line feed, or npos when more of
// the text is needed to know. `whole`: there is no more, and a last record needs no line feed.
//
// A quote that is not closed, or is followed by something else than the end of its cell, cannot be
// meant to hold line ends: its record is the first line, so that one slip in a table does not take
// the members behind it along. What the end is does not depend on how much of the text behind the
// record is there.
std::size_t RecordEnd(std::string_view text, std::string_view separators, bool whole);

// Takes the next record off the front of a whole text, without its line end.
std::string_view TakeRecord(std::string_view& text, std::string_view separators);

// The records of a whole text one after the other, and the lines on which they begin.
class RecordWalk {
public:
    explicit RecordWalk(std::string_view text, std::size_t line = 1) : rest_(text), next_(line) {}

    bool done() const { return rest_.empty(); }
    std::string_view Next(std::string_view separators);
    std::size_t line() const { return line_; }  // of the record taken last

private:
    std::string_view rest_;
    std::size_t line_ = 0, next_;
};

// The next line of a text without its line end, taken off the front.
std::string_view TakeLine(std::string_view& text);

}  // namespace kestrum
