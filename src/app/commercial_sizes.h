#pragma once

// Sizes in which steel is stocked, mm. They are offers for a search, not limits: any other list may
// be given in their place.

#include <array>

namespace kestrum {

// Thicknesses of flat products: the preferred thicknesses of EN 10058:2018, Table 1 (flat bars), in
// whose steps heavy plate is stocked as well; EN 10029, which gives the tolerances of plate, leaves
// the nominal thickness free.
constexpr std::array kPlateThicknesses = {5.0F,  6.0F,  8.0F,  10.0F, 12.0F, 15.0F, 20.0F,
                                          25.0F, 30.0F, 35.0F, 40.0F, 50.0F, 60.0F, 80.0F};

// Outer diameters of tubes, series 1 of EN 10220:2002, Table 1, from 21.3 mm.
constexpr std::array kTubeDiameters = {
    21.3F,  26.9F,  33.7F,  42.4F,  48.3F,  60.3F,  76.1F,  88.9F,  114.3F, 139.7F, 168.3F, 219.1F,
    273.0F, 323.9F, 355.6F, 406.4F, 457.0F, 508.0F, 610.0F, 711.0F, 813.0F, 914.0F, 1016.0F};

// Walls of tubes, preferred thicknesses of EN 10220:2002, Table 1.
constexpr std::array kTubeWalls = {2.6F,  2.9F,  3.2F,  3.6F,  4.0F,  4.5F,  5.0F,  5.6F,
                                   6.3F,  7.1F,  8.0F,  8.8F,  10.0F, 11.0F, 12.5F, 14.2F,
                                   16.0F, 17.5F, 20.0F, 22.2F, 25.0F, 28.0F, 30.0F};

}  // namespace kestrum
