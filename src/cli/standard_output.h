#pragma once

// Text and JSON of the result by the standard as written.

#include "standard/standard.h"

#include <string>

namespace kestrum::cli {

std::string StandardText(const standard::StandardResult& result);
std::string StandardJson(const standard::StandardResult& result);

// 0 within, 1 above, 2 not covered.
int StandardExit(const standard::StandardResult& result);

}  // namespace kestrum::cli
