#pragma once

// Natural frequencies, vortex shedding.

#include "core/state/types.h"

namespace kestrum {

struct Service {
    bool operator==(const Service&) const = default;

    float modalmass;      // kg/m
    Rows<float, 3> freq;  // Hz
    float stb;            // width across the wind, m
    float st, vcrit, vm;  // Strouhal number; critical and mean wind speed, m/s
};

}  // namespace kestrum
