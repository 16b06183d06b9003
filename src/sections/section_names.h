#pragma once

// Sections and families by name: "IPE 300", "HE 300 A", "SHS 100x5", "hea", "RHS - Square". Blanks,
// capitals and hyphens do not count.

#include "core/library.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// A name as names are compared: capitals, without blanks, hyphens and underscores.
std::string CompactName(std::string_view name);

// A section's name as sections are compared: besides, "/", "*" and the multiplication sign are an
// x, and a decimal comma is a point, behind which zeros do not count: "SHS120/120/5.0" is
// "SHS120X120X5".
std::string SectionKey(std::string_view name);

struct NamedSection {
    int family;
    int series;  // from 1; 0 for a family without series
    Table table;
    i16 row;
};

// The section of this name. Stiffeners of plates and sections of their own may share a name: that
// of the family at hand is taken, then a section of its own.
std::optional<NamedSection> SectionOfName(const Library& library, std::string_view name,
                                          int family);

// A tube by its outer diameter and wall, "CHS 114.3x5", mm; tubes have no list.
struct NamedTube {
    int family;
    float diameter, wall;
};
std::optional<NamedTube> TubeOfName(std::string_view name);

// The names in the lists nearest to one that is none, at most three.
std::vector<std::string> SectionsNear(const Library& library, std::string_view name);

// Families by caption, short name, series or table; several for a name that is not clear, none for
// an unknown one.
struct NamedFamily {
    int family;
    int series;  // 0: not named
};
std::vector<NamedFamily> FamiliesOfName(std::string_view name);

// Caption of the menu entry without its blanks and ampersand.
std::string FamilyName(int family);

// Family and series of a profile table.
NamedFamily FamilyOfTable(Table table);

}  // namespace kestrum
