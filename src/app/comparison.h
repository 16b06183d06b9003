#pragma once

// Two designs of the member side by side: the one that was pinned as A, and the one in hand.

#include "app/history.h"
#include "core/library.h"

#include <string>
#include <vector>

namespace kestrum {

struct ComparedRow {
    std::string what, a, b;
};

// Section, mass, verdict, and the ratio of every row of the answer that one of the designs has;
// "-" where it has none. Of a design whose calculation could not finish there are no ratios. A
// ratio above the limit says so.
std::vector<ComparedRow> Compare(const Library& library, const Snapshot& a, const Snapshot& b);

}  // namespace kestrum
