#include "report/page_notes.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr std::string_view kHead = "Notes on the unsafe side:";
constexpr double kLine = 0.9;  // rows from one line of a note to the next
constexpr double kText = kPageLeft + 11;

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

std::vector<NoteLine> NoteLines(const std::vector<DesignNote>& notes)
{
    std::vector<NoteLine> lines;
    for (const DesignNote& note : notes) {
        std::string_view text = note.text;
        std::string id(note.id);
        do {
            lines.push_back(
                {std::move(id), TakeLine(text, kPageRight - kText, {.size = kPageSmallText})});
            id.clear();
        } while (!text.empty());
    }
    return lines;
}

std::size_t PrintNotes(PageWriter& page, const std::vector<NoteLine>& lines, std::size_t first)
{
    constexpr double kSpace = 0.4;
    if (first >= lines.size()) {
        return first;
    }
    page.Row(kSpace);
    page.WriteBold(kPageLeft, kHead);
    page.Row();
    const TextStyle plain{.size = kPageSmallText}, bold{.bold = true, .size = kPageSmallText};
    for (; first < lines.size() && page.Room() >= 0; ++first) {
        page.Write(kPageLeft, lines[first].id, bold, kText);
        page.Write(kText, lines[first].text, plain);
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
