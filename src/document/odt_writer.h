#pragma once

// A document as OpenDocument text, for word processors: headings of the outline, tables, equations
// as formula objects, pictures as SVG, head and foot with "page n of m".

#include "document/document.h"

namespace kestrum {

std::string WriteOdt(const Document& document);

}  // namespace kestrum
