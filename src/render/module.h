#pragma once

// What crosses the border to the renderer module. Both sides are built together, so that standard
// types may pass. The module is `kestrum-render` beside the program or in the package's library
// folder.

#include "render/pdf_extras.h"
#include "report/drawing.h"

#include <string>
#include <vector>

namespace kestrum {

struct RenderJob {
    const std::vector<Drawing>* pages;  // PNG takes the first
    const std::string* path;
    bool pdf;
    double mm_per_unit;      // PDF
    double pixels_per_unit;  // PNG
    const PdfExtras* extras = nullptr;
};

}  // namespace kestrum

// Returns an empty text, or what went wrong. The text lives until the next call.
extern "C" const char* KestrumRender(const kestrum::RenderJob* job);
