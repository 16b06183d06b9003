#include "app/locale_text.h"

#include "core/decimal_points.h"

#include <cstddef>

namespace kestrum {

namespace {

void Localise(std::vector<TextRun>& runs)
{
    for (TextRun& run : runs) {
        run.text = ForLocale(std::move(run.text), true);
    }
}

}  // namespace

std::string ForLocale(std::string text, bool decimalcomma)
{
    if (decimalcomma) {
        for (const std::size_t point : DecimalPoints(text)) {
            text[point] = ',';
        }
    }
    return text;
}

Drawing ForLocale(Drawing drawing, bool decimalcomma)
{
    for (Mark& mark : drawing.marks) {
        auto* const label = std::get_if<TextMark>(&mark);
        if (decimalcomma && label != nullptr && !label->verbatim) {
            label->text = ForLocale(std::move(label->text), true);
        }
    }
    return drawing;
}

std::vector<PanelBlock> ForLocale(std::vector<PanelBlock> blocks, bool decimalcomma)
{
    for (PanelBlock& block : blocks) {
        for (PanelLine& line : block) {
            if (decimalcomma) {
                Localise(line.left);
                Localise(line.result);
            }
        }
    }
    return blocks;
}

}  // namespace kestrum
