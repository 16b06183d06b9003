#include "ui/print_pages.h"

#include "render/painter.h"

#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace kestrum {

bool PrintPages(QPrinter& printer, const std::vector<Drawing>& pages)
{
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0 && !printer.newPage()) {
            return false;
        }
        const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
        const double scale =
            std::min(paper.width() / pages[i].width, paper.height() / pages[i].height);
        Paint(painter, pages[i], scale, {0, 0}, PaperColours());
    }
    return painter.end();
}

}  // namespace kestrum
