#pragma once

// Drawings as PDF and PNG files. Pages have millimetres as units; other drawings tell their own.
// A QGuiApplication must exist. A file appears whole or not at all.

#include "render/pdf_extras.h"
#include "report/drawing.h"

#include <string>
#include <vector>

namespace kestrum {

// One page a drawing; the page takes the drawing's size with `mm_per_unit`. Returns what went
// wrong, or nothing. Bookmarks and links are those of A4 pages.
std::string WritePdf(const std::vector<Drawing>& pages, double mm_per_unit, const std::string& path,
                     const PdfExtras* extras = nullptr);

// The drawing on white paper at the given resolution.
std::string WritePng(const Drawing& drawing, double pixels_per_unit, const std::string& path);

}  // namespace kestrum
