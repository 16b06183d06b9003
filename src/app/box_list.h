#pragma once

// The table behind app/input_boxes.

#include "app/input_boxes.h"

#include <span>

namespace kestrum {

std::span<const Box> BoxList();

}  // namespace kestrum
