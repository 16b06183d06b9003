#pragma once

// The lightest section that passes for the member in the window, by the search of app/optimize:
// among families of the profile tables, or over a grid of plates. The window takes what it finds.

#include "app/optimize.h"
#include "app/session.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kestrum {

// Families among which a section is looked for.
struct SectionGroup {
    std::string name;  // "HEA", "I and H sections"
    std::vector<int> families;
};

// The family in hand, all of its kind, then the other kinds that tables have; none where the family
// has no table.
std::vector<SectionGroup> SectionGroups(const ProjectState& s);

// The sizes in which a dimension is tried (app/size_list.h).
struct TriedSizes {
    const Box* box;     // of the dimension
    std::string sizes;  // "200:1200:50", "plates:6:40"; empty: as the member has it
};

// What is proposed for the dimensions of a family of plates or tubes; none for other families.
std::vector<TriedSizes> ProposedSizes(int family);

struct LightestWish {
    SectionGroup group;
    std::vector<TriedSizes> sizes = {};
    bool both = false;  // within all limits by EN 1993-1-1 as written, too
};

// One search. Run may be called on another thread: it reads nothing that the user may change.
class LightestSearch {
public:
    LightestSearch(const Session& session, LightestWish wish);
    LightestSearch(const LightestSearch&) = delete;
    LightestSearch& operator=(const LightestSearch&) = delete;

    // Ends early, without a section, when it is stopped.
    void Run(std::function<bool()> stopped);

    // Whether the session still has the member that is searched for; once the section is taken, the
    // member with it.
    bool Concerns(const Session& session) const;

    // The section becomes the member's, with the loads that the section in hand could not take, and
    // with the control of lateral torsional buckling that a family in between has switched off.
    // Says so when there is none.
    bool Take(Session& session);

    // "HEA 240, 60.3 kg/m: ratio 0.884 (..). HEA 220, 50.5 kg/m, fails: ratio 1.253 (..)"
    std::string Text() const;

private:
    const Library& library_;
    LightestWish wish_;
    HeldState given_;   // the member as the user gave it
    HeldState member_;  // what is searched for
    SectionPool pool_;
    std::optional<Optimizer> optimizer_;
    OptimizeAnswer answer_;
};

}  // namespace kestrum
