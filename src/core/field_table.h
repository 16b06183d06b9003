#pragma once

// Every field of the record under its canonical name, with type, place, role, unit, meaning,
// values, limits and places in the project file. The dump, the assignment of single fields, the
// batch columns, `kestrum fields` and the documents walk this table. Fields of the section forms
// have dotted names ("p22.isth"), and so have the table rows ("row.hea"). The result rows are no
// fields.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

enum class FieldKind {
    single,
    real,
    integer,
    truth,
    text,
    literal
};  // f32, f64, i16, bool, std::string, Literal

enum class FieldRole {
    input,   // kept in the project file
    setup,   // kept in the stored setup only
    derived  // set by the program: results, and what follows from an input
};

enum class FieldShape {
    scalar,
    array,          // all elements count
    checksections,  // elements 0..npts count
};

// The parts of the project file, in its order. The stored setup is the part `settings`.
enum class FilePart : std::uint8_t {
    none,
    titles,
    settings,
    member,
    endforces,    // with loadmode 0
    axial,        // with loadmode 1, row by row
    uniform,      //
    trapezoidal,  //
    point,        //
    family,
    section,  // the block of the chosen family
    tail
};

struct FilePlace {
    FilePart part = FilePart::none;
    int line = 0;    // its order in the part
    int block = 0;   // part `section`: family of the block
    int choice = 0;  // there: value of the block's first field with which it is there; 0: always
};

struct Bound {
    enum class Kind : std::uint8_t { none, inclusive, strict };
    Kind kind = Kind::none;
    double value = 0;
};

struct Limits {
    Bound lower, upper;
};

struct Field {
    std::string_view name;
    FieldKind kind;
    FieldRole role;
    FieldShape shape;
    int first;  // index of the first element that counts, 0 or 1; of a scalar 0
    int last;   // index of the last one; of a scalar 0
    void* (*locate)(ProjectState& s, int index);
    std::string_view unit;     // empty: none
    std::string_view meaning;  // a sentence without capital and point
    // Of a field with a list of values: "0 name,other name|1 .." or "1..3"; kFamilyValues,
    // kSteelValues and kRowValues for lists that depend on the tables. Empty: typed.
    std::string_view values = {};
    Limits limits = {};
    std::array<FilePlace, 2> file = {};  // of an input; a few stand in the project file twice
    int since = 0;    // first version of the project file that holds it; 0: all that are read
    int changed = 0;  // version that gave its value another meaning; 0: none
    void (*older)(ProjectState& s) = nullptr;  // sets it from a file before `since` or `changed`
};

constexpr std::string_view kFamilyValues = "*family";
constexpr std::string_view kSteelValues = "*steel";
constexpr std::string_view kRowValues = "*row";
constexpr std::string_view kTruthValues = "-1 true,yes,on|0 false,no,off";

// All fields in the order of the record.
std::span<const Field> AllFields();

// The boxes of one section form ("p22"): "p22.isth" and so on; none for an unknown form.
std::span<const Field> FieldsOfForm(std::string_view form);

struct FileField {
    const Field* field;
    FilePlace place;
};

// The fields of a part of the project file in the order of their lines. The part `settings` holds
// those of the stored setup too.
std::span<const FileField> FieldsOfPart(FilePart part);

// The same of the block of a family; none for a number without a block.
std::span<const FileField> BlockOfFamily(int family);

// The field of this name, or null.
const Field* FindField(std::string_view name);

// The field as it is written, with its row where it has rows: "l", "qload[2]".
std::string IndexedName(const Field& field, int index);

// Last index that counts in this state: `last`, or npts for the check sections.
int LastIndex(const Field& field, const ProjectState& s);

struct FieldRef {
    const Field* field;
    int index;
};

// "ned", "p22.isth", "qload[2]"; nothing for an unknown name, an index outside the array, an array
// without an index or a scalar with one.
std::optional<FieldRef> ResolveField(std::string_view name);

// Value of a numeric or truth field (truth: 0 or 1).
double NumberOf(const ProjectState& s, const Field& field, int index = 0);

// Puts a number there. False, and nothing put, where the field is a whole number and the value does
// not fit.
bool PutNumber(ProjectState& s, const Field& field, int index, double value);

// Value of a text or literal field.
std::string_view TextOf(const ProjectState& s, const Field& field);

}  // namespace kestrum
