#pragma once

// A document as one HTML file: equations as MathML, pictures as SVG, nothing fetched from outside;
// for screens of any width and for paper.

#include "document/document.h"

namespace kestrum {

std::string WriteHtml(const Document& document);

}  // namespace kestrum
