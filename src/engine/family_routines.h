#pragma once

// Which routines design which kind of section, EN 1993-1-1, section 6. The properties of a family
// and all else that is asked about it are in its row of sections/families.

namespace kestrum {

struct Carry;
struct Forces;
struct Inputs;
struct PassOutcome;
struct Resistances;
struct SectionChecks;
struct SectionRecord;
struct Stability;

struct FamilyRoutines {
    void (*effective)(const Inputs& in,
                      SectionRecord& section);  // null: none, or part of `resistance`
    void (*resistance)(const Inputs& in, SectionRecord& section, Resistances& resistances,
                       SectionChecks& checks);
    void (*control)(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome& outcome);
    void (*buckling)(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                     Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                     PassOutcome& outcome);  // null: none
    bool control_without_n;                  // N is cleared before the control
    bool compressed_only;                    // no buckling control unless N is compression
};

// The routines of a family, or null for a number that names no section (0, 55, unknown).
const FamilyRoutines* FindRoutines(int family);

}  // namespace kestrum
