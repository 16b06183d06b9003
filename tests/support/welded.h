#pragma once

// States with the default dimensions of the welded families, S355, recommended annex values
// (gammam0 = gammam1 = 1, eta 1.2), and their property routines.

#include "core/project_state.h"
#include "sections/read_profiles.h"
#include "sections/welded_hsq.h"
#include "sections/welded_plate.h"
#include "sections/welded_single_i.h"
#include "sections/welded_t.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>

namespace welded {

inline constexpr int kFamilies[] = {22, 24, 25, 26, 27, 51, 52, 53, 54, 56};

// Row 0 of the two stiffener tables: angle 300x100x11.5 with 16 mm flange, HP 80x7.
inline kestrum::Library Stiffeners()
{
    using kestrum::Table;
    kestrum::Library library;
    library.tables = kestrum::EmptyTables();
    const auto fill = [&](Table table, std::initializer_list<float> row) {
        auto& value = library.tables[static_cast<std::size_t>(table)].value;
        std::copy(row.begin(), row.end(), value.begin());
    };
    fill(Table::l3, {300, 100, 11.5F, 16, 15, 7.5F});
    fill(Table::hp, {80, 7, 14, 4, 7.01F});
    return library;
}

inline void SetStrength(kestrum::ProjectState& s, float fyk)
{
    s.fyk = fyk;
    s.eps = static_cast<float>(std::sqrt(235.0 / static_cast<double>(fyk)));
}

inline kestrum::ProjectState Default(int family)
{
    kestrum::ProjectState s{};
    s.family = static_cast<kestrum::i16>(family);
    s.gammam0 = 1;
    s.gammam1 = 1;
    s.neta = 1.2F;
    s.e = 210000;
    s.irlimit = 1;
    s.webstiffa = 5000;
    s.density = 7850;
    s.class23 = 1;
    s.flangeload = 50;
    SetStrength(s, 355);
    s.p22 = {600, 200, 400, 12, 20, 20};
    s.p24 = {300, 300, 540, 6, 25, 15, 5};
    s.p25 = {300, 300, 430, 6, 25, 15, 15};
    s.p26 = {200, 200, 10, 10};
    s.p27 = {600, 600, 600, 10, 20, 20, 25};
    s.p51 = {200, 600, 10, 10};
    s.p52 = {600, 10};
    s.p53 = {300, 600, 100, 11.5, 10, 16};
    s.p54 = {600, 10};
    s.p56 = {580, 300, 300, 12, 20, 20};
    return s;
}

inline void Properties(kestrum::ProjectState& s)
{
    static const kestrum::Library library = Stiffeners();
    switch (s.family) {
    case 22:
        return PropertiesSingleSymmetricI(library, s, s);
    case 24:
    case 25:
        return PropertiesHsq(library, s, s);
    case 26:
        return PropertiesT(library, s, s);
    case 27:
        return PropertiesUnequalBox(library, s, s);
    default:
        return PropertiesPlate(library, s, s);
    }
}

}  // namespace welded
