#include "app/table_record.h"

#include <algorithm>
#include <string>

namespace kestrum {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// The place behind the quote that closes the one before `at`; kNone when the text ends before.
std::size_t BehindQuotes(std::string_view text, std::size_t at)
{
    for (;;) {
        const std::size_t quote = text.find('"', at);
        if (quote == kNone || quote + 1 == text.size()) {
            return quote == kNone ? kNone : text.size();
        }
        if (text[quote + 1] != '"') {
            return quote + 1;
        }
        at = quote + 2;
    }
}

struct Walk {
    std::size_t end = kNone;  // of the record
    bool sound = true;        // false: its quotes cannot be meant
    bool closed = false;      // the text ended before the record, but in no quoted cell
};

// From cell to cell to the end of the record. `ends` are the separators and the line feed.
Walk WalkCells(std::string_view text, std::string_view ends)
{
    for (std::size_t at = 0;; ++at) {
        const bool quoted = at < text.size() && text[at] == '"';
        at = quoted ? BehindQuotes(text, at + 1) : text.find_first_of(ends, at);
        if (at == kNone || at == text.size()) {
            return {.closed = !quoted || at == text.size()};
        }
        if (quoted && text[at] == '\r') {  // of the line end
            if (at + 1 == text.size()) {
                return {.closed = true};
            }
            at += text[at + 1] == '\n' ? 1 : 0;
        }
        if (text[at] == '\n') {
            return {.end = at};
        }
        if (ends.find(text[at]) == kNone) {
            return {.sound = false};
        }
    }
}

}  // namespace

std::size_t RecordEnd(std::string_view text, std::string_view separators, bool whole)
{
    const std::size_t line = text.find('\n');
    const std::string_view first = text.substr(0, line);
    if (first.find('"') == kNone) {
        return line == kNone && whole ? text.size() : line;
    }
    const std::string_view near = text.substr(0, kLongestQuoted);
    const std::string ends = std::string(separators) + "\n";
    const Walk walk = WalkCells(near, ends);
    if (walk.end != kNone) {
        return walk.end;
    }
    const bool cut = near.size() < text.size();
    if (!whole && walk.sound && !cut) {
        return kNone;
    }
    const bool last = whole && (line == kNone || (walk.closed && !cut));
    return last ? text.size() : line;
}

std::string_view TakeRecord(std::string_view& text, std::string_view separators)
{
    const std::size_t end = std::min(RecordEnd(text, separators, true), text.size());
    std::string_view record = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (record.ends_with('\r')) {
        record.remove_suffix(1);
    }
    return record;
}

std::string_view RecordWalk::Next(std::string_view separators)
{
    const char* const before = rest_.data();
    const std::string_view record = TakeRecord(rest_, separators);
    line_ = next_;
    next_ += static_cast<std::size_t>(std::count(before, rest_.data(), '\n'));
    return record;
}

std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

}  // namespace kestrum
