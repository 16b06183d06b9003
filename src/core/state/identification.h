#pragma once

// Which project this is.

#include "core/state/types.h"

#include <string>

namespace kestrum {

struct Identification {
    bool operator==(const Identification&) const = default;

    std::string filename;  // path of the open project; "New File" marks one never saved
    std::string projname;
    std::string ident;
    std::string annexcode;  // two letters, "EU" ..
    i16 annexindex;         // 0..8
};

}  // namespace kestrum
