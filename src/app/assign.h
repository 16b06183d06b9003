#pragma once

// Sets one field of the record from a text, by its canonical name ("l", "qload[2]", "p22.isttw").
// Two fields have a second name, `steel` (fykindex) and `annex` (annexcode); `section` takes the
// name of a rolled section and sets family, series and row.

#include "app/field_owner.h"
#include "core/field_table.h"
#include "core/library.h"

#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;
struct Box;
struct Choice;

// Whether the limits of the boxes and lists hold, or the value is stored as the file reader would
// store it.
enum class Assignment { checked, raw };

// Only what the project file keeps can be set. Returns the reason of a refusal, or nothing.
// Choosing an annex sets what the annex sets. A refused value leaves the record as it was.
std::string AssignField(const Library& library, ProjectState& s, std::string_view name,
                        std::string_view text, Assignment how);

// Fields that choices of other fields change (app/assign_run), and those choices.
enum Tie : unsigned {
    kTieNone = 0,
    kTieSupport = 1U << 0U,
    kTieCaseY = 1U << 1U,
    kTieCaseZ = 1U << 2U,
    kTieLy = 1U << 3U,
    kTieLz = 1U << 4U,
    kTieLtb = 1U << 5U,
    kTieLtbCase = 1U << 6U,
    kTieLtbK = 1U << 7U,
    kTieRestraints = 1U << 8U,
    kTieWebStiff = 1U << 9U,
    kTieEndStiff = 1U << 10U,
    kTieWebStiffA = 1U << 11U,
    kTieFamily = 1U << 12U,
    kTieSeries = 1U << 13U,
    kTieLoadMode = 1U << 14U,
};

// A field that can be set, looked up once for many values.
struct AssignTarget {
    FieldRef ref{};
    const Choice* choice = nullptr;
    const Box* box = nullptr;
    Tie tie = kTieNone;
    bool section = false;  // by name; the field is that of the family
    LoadKind load = LoadKind::none;
    Owner owner{};
    unsigned idle = 0;  // rules that may leave it without effect (app/without_effect)
    float usual = 0;    // the largest usual size in its unit; 0: any
};

constexpr std::string_view kSection = "section", kSteel = "steel", kAnnex = "annex";

// The name of a field with its row: "qload[2]".
std::string NameOf(const FieldRef& ref);

// The two halves of AssignField.
std::string FindTarget(std::string_view name, AssignTarget& target);
std::string AssignTo(const Library& library, ProjectState& s, const AssignTarget& target,
                     std::string_view text, Assignment how);

// The section of this name. With `familygiven` it must be one of the family in the record. Returns
// the reason of a refusal, or nothing.
std::string AssignSection(const Library& library, ProjectState& s, std::string_view name,
                          bool familygiven);

// "is 6000 m meant? the unit is m" of a value far beyond the usual ones; empty for others.
std::string UnitDoubt(const ProjectState& s, const FieldRef& ref, float usual);

// What belongs behind a run of assignments. The boxes see one value at a time: a load may lie off a
// member that was shortened later. Returns what does, "pmx[1]: beyond the member", or nothing.
std::string MisplacedLoad(const ProjectState& s);

// Why a value now in the record will not stand: the annex or the material sets it. Empty when it
// will.
std::string OverruledBy(const Library& library, const ProjectState& s, std::string_view name);

}  // namespace kestrum
