#include "report/panel_text.h"

#include "report/panel.h"

#include <algorithm>

namespace kestrum {

namespace {

std::string Joined(const std::vector<TextRun>& runs, PanelPaint paint)
{
    std::string text;
    for (const TextRun& run : runs) {
        const std::string ratio = run.text + std::string(AboveWord(run.colour));
        text += paint != nullptr && run.colour != 0 ? paint(ratio, run.colour) : ratio;
    }
    return text;
}

void Append(std::string& out, const PanelBlock& block, PanelPaint paint)
{
    std::size_t widest = static_cast<std::size_t>(kLeastColumn);
    for (const PanelLine& line : block) {
        if (!line.result.empty()) {
            widest = std::max(widest, Joined(line.left, nullptr).size());
        }
    }
    for (const PanelLine& line : block) {
        std::string text = Joined(line.left, paint);
        if (!line.result.empty()) {
            text.resize(widest + 1, ' ');
            text += Joined(line.result, paint);
        }
        out += text + "\n";
    }
}

}  // namespace

std::string PanelText(const ProjectState& s, bool page, PanelPaint paint)
{
    std::string out;
    for (const PanelBlock& block : ShowResults(s, page)) {
        Append(out, block, paint);
    }
    return out;
}

}  // namespace kestrum
