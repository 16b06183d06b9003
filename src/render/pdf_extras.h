#pragma once

// What Qt's PDF writer leaves out: bookmarks, links within the file, the author, and bytes that do
// not depend on the clock. They are appended to the finished file as PDF 1.4, 3.4.5 has it
// (incremental update).

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct PdfMark {
    int depth;          // 0 outermost
    std::string title;  // UTF-8
    std::size_t page;   // from 0
    double y;           // mm from the upper edge of the page
};

struct PdfLink {
    std::size_t page;
    double left, top, right, bottom;  // mm
    std::size_t mark;                 // where it leads
};

struct PdfExtras {
    std::vector<PdfMark> marks{};
    std::vector<PdfLink> links{};
    std::string author{};
    bool reproducible = false;
};

// A file that is not built as expected comes back as it was.
std::string WithExtras(std::string pdf, const PdfExtras& extras);

}  // namespace kestrum
