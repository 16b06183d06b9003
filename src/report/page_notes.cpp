#include "report/page_notes.h"

#include <algorithm>
#include <utility>

namespace kestrum {

namespace {

constexpr std::string_view kHead = "Notes on the unsafe side:";
constexpr double kLine = 0.9;   // rows from one line of a note to the next
constexpr double kSpace = 0.4;  // rows above the heading

// Words that fit the width, at least one.
std::string TakeLine(std::string_view& text, double width, const TextStyle& style)
{
    std::size_t end = 0;
    for (std::size_t at = text.find(' '); end != text.size(); at = text.find(' ', at + 1)) {
        const std::size_t next = std::min(at, text.size());
        if (end > 0 && TextWidth(text.substr(0, next), style.size, style.bold) > width) {
            break;
        }
        end = next;
    }
    std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

}  // namespace

void NoteList::Add(std::string id, std::string_view sentence)
{
    do {
        lines.push_back(
            {std::move(id), TakeLine(sentence, kPageRight - text, {.size = kPageSmallText})});
        id.clear();
    } while (!sentence.empty());
}

NoteList ListOf(const std::vector<DesignNote>& notes)
{
    NoteList list{kHead, kPageLeft + 11};
    for (const DesignNote& note : notes) {
        list.Add(std::string(note.id), note.text);
    }
    return list;
}

std::size_t PrintNotes(PageWriter& page, const NoteList& list, std::size_t first)
{
    if (first >= list.lines.size()) {
        return first;
    }
    page.Row(kSpace);
    if (!list.head.empty()) {
        page.WriteBold(kPageLeft, list.head);
        page.Row();
    }
    const TextStyle plain{.size = kPageSmallText}, bold{.bold = true, .size = kPageSmallText};
    for (; first < list.lines.size() && page.Room() >= 0; ++first) {
        page.Write(kPageLeft, list.lines[first].id, bold, list.text);
        page.Write(list.text, list.lines[first].text, plain);
        page.Row(kLine);
    }
    return first;
}

void PrintWrapped(PageWriter& page, std::string_view text, TextStyle style)
{
    while (!text.empty()) {
        page.Write(kPageLeft, TakeLine(text, kPageRight - kPageLeft, style), style);
        page.Row();
    }
}

std::size_t RowsOf(std::string_view text, const TextStyle& style)
{
    std::size_t rows = 0;
    for (; !text.empty(); ++rows) {
        TakeLine(text, kPageRight - kPageLeft, style);
    }
    return rows;
}

void PrintVerdict(PageWriter& page, const Outcome& outcome)
{
    const bool within = outcome.verdict == Verdict::within;
    const double x = page.WriteBold(kPageLeft, "Verdict: ");
    page.Write(x, VerdictText(outcome), {.bold = true, .ink = within ? Ink::good : Ink::bad});
    page.Row();
    if (!outcome.designed()) {
        PrintWrapped(page, outcome.message, {});
    }
    for (const std::string& load : outcome.dropped) {
        PrintWrapped(page, "Not in this result: " + load, {.bold = true});
    }
}

std::string NoteNumbers(const std::vector<DesignNote>& notes)
{
    std::string text(kHead);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        text += (i > 0 ? ", " : " ") + std::string(notes[i].id);
    }
    return text;
}

}  // namespace kestrum
