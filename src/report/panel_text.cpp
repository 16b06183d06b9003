#include "report/panel_text.h"

#include "report/panel.h"

#include <algorithm>

namespace kestrum {

namespace {

std::string Joined(const std::vector<TextRun>& runs)
{
    std::string text;
    for (const TextRun& run : runs) {
        text += run.text;
    }
    return text;
}

void Append(std::string& out, const PanelBlock& block)
{
    std::size_t widest = static_cast<std::size_t>(kLeastColumn);
    for (const PanelLine& line : block) {
        if (!line.result.empty()) {
            widest = std::max(widest, Joined(line.left).size());
        }
    }
    for (const PanelLine& line : block) {
        std::string text = Joined(line.left);
        if (!line.result.empty()) {
            text.resize(widest + 1, ' ');
            text += Joined(line.result);
        }
        out += text + "\n";
    }
}

}  // namespace

std::string PanelText(const ProjectState& s, bool page)
{
    std::string out;
    for (const PanelBlock& block : ShowResults(s, page)) {
        Append(out, block);
    }
    return out;
}

}  // namespace kestrum
