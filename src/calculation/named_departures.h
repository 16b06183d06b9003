#pragma once

// The departures that equations and remarks name by their number alone.

#include "core/deviation.h"
#include "document/document.h"

#include <set>

namespace kestrum {

// Those that the last member of the document names in equations, paragraphs and tables.
std::set<Dev> NamedDepartures(const Document& d);

}  // namespace kestrum
