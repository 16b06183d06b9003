#pragma once

// Several fields of one record set together, in any order: what the last of them decides is settled
// behind them all. What a choice brings along in the windows (app/consequences) it brings along
// here, except to fields that the run sets itself.

#include "app/assign.h"
#include "app/consequences.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// Why a run is refused; `name` and `text` are empty when no single value is to blame.
struct Refused {
    std::string name, text, what;

    bool empty() const { return what.empty(); }
    std::string Text() const;  // "l=7: what", "what" without a name
};

// How values are taken: through the limits or not, and the sign of axial forces as given. Of those
// nload, ne and ned have the other sign in the record when tension is positive.
struct Manner {
    Manner(Assignment h, bool tension = false) : how(h), tensionpositive(tension) {}  // NOLINT
    Assignment how;
    bool tensionpositive;
};

// What is worth a word though the value was taken: "fyk", "without effect, set by ..".
struct Remark {
    std::string name, what;
};

// What a value says about the member counts as well: a dimension or row of one family chooses the
// family, end forces the mode of the member, unless the run sets these itself. Values that
// contradict each other refuse the run. Unchecked runs leave family and mode alone.
class AssignRun {
public:
    AssignRun(const Library& library, ProjectState& s, Manner manner);

    // Sets one field. A value that depends on other fields, such as a place on a member whose
    // length follows, waits for them. Returns the reason of a refusal, or nothing.
    std::string Assign(const AssignTarget& target, std::string_view text);

    // Behind the last one. The record is half set when the run is refused.
    Refused Finish();

    // Behind Finish: values without effect, and those whose unit is in doubt.
    std::vector<Remark> Remarks() const;

private:
    struct Waiting {
        AssignTarget target;
        std::string text, what;
    };

    bool Set(Tie tie) const { return (set_ & tie) != 0; }
    // Who says that the section is of these families.
    struct Claim {
        Owner owner;
        FieldRef field;
    };
    struct Watched {
        FieldRef field;
        unsigned idle;
        float usual;
        double given;
    };

    void Note(const AssignTarget& target, std::string_view text);
    Refused TakeWaiting();
    Refused TakeSection();
    Refused FitSection();
    Refused FitMode();
    void FollowGrade();
    void BringAlong();
    void BringLengths();
    void BringLength(Axis axis);
    void BringLateral();
    void BringStiffeners();

    const Library& library_;
    ProjectState& s_;
    Manner manner_;
    // Before the run.
    float fyk_;
    i16 fykindex_, supportcase_, bucklingcasey_, bucklingcasez_, ltb_, webstiff_;
    unsigned set_ = 0;  // ties that the run has set
    std::vector<Waiting> waiting_;
    std::optional<std::string> section_;  // by its name
    std::array<Claim, 8> claims_{};  // each owner once; more than a section can have contradict
    std::size_t claimed_ = 0;
    std::optional<FieldRef> load_, selfweight_, endforce_;  // the first that is not 0
    std::vector<Watched> watched_;
};

}  // namespace kestrum
