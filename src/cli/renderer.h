#pragma once

// Drawings as files: SVG is written here, PDF and PNG by the renderer module, which is loaded only
// when one of them is asked for. The ending of the name tells the kind.

#include "report/drawing.h"

#include <string>
#include <vector>

namespace kestrum {
struct PdfExtras;
}

namespace kestrum::cli {

// What one unit of the drawings is on paper and on a screen.
struct DrawingScale {
    double mm;
    double svg_pixels;
    double png_pixels;
};

// Throws BadInput for an ending that is none of .svg, .png, .pdf.
void CheckDrawingName(const std::string& path);

// PDF takes all pages, SVG and PNG show them below each other. Throws BadInput: name, renderer
// missing, file not writable.
void WriteDrawings(const std::vector<Drawing>& pages, const DrawingScale& scale,
                   const std::string& path, const PdfExtras* extras = nullptr);

}  // namespace kestrum::cli
