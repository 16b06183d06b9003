#pragma once

// The delivered tables, materials and setup, from inside the program.

#include "core/library.h"

namespace kestrum::library {

Library BuiltinLibrary();

}  // namespace kestrum::library
