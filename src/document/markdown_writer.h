#pragma once

// A document as Markdown with one line for each equation, to be compared with that of another
// revision. Pictures are left out.

#include "document/document.h"

namespace kestrum {

std::string WriteMarkdown(const Document& document);

}  // namespace kestrum
