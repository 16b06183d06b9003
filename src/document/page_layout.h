#pragma once

// A document on A4 pages, in millimetres, with a head, a foot and "page n of m" on each.

#include "document/document.h"

#include <vector>

namespace kestrum {

// Where a heading stands, for bookmarks and lists of contents.
struct PlacedHeading {
    int level;
    std::string text;
    std::size_t page;  // from 0
    double y;          // mm from the upper edge
};

// A cell that leads to a heading of level 1.
struct PlacedLink {
    std::size_t page;
    Bounds at;
    std::size_t member;  // from 1: of the headings of level 1
    double number;       // right end of the number of its page, mm
};

struct LaidOut {
    std::vector<Drawing> pages{};
    std::vector<PlacedHeading> headings{};
    std::vector<PlacedLink> links{};
};

LaidOut LayOut(const Document& document);

}  // namespace kestrum
