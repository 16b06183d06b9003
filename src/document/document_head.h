#pragma once

// The head of a document from what the office writes on its reports.

#include "document/document.h"
#include "report/office.h"

#include <string>

namespace kestrum {

// With the logo, which is read. What is wrong with it, with the name of its file; or nothing.
std::string HeadOf(const Office& office, DocumentHead& head);

}  // namespace kestrum
