#pragma once

// Several fields of one record set together, in any order: what the last of them decides is settled
// behind them all. What a choice brings along in the windows (app/consequences) it brings along
// here, except to fields that the run sets itself.

#include "app/assign.h"
#include "app/consequences.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// Why a run is refused; `name` and `text` are empty when no single value is to blame.
struct Refused {
    std::string name, text, what;

    bool empty() const { return what.empty(); }
};

class AssignRun {
public:
    AssignRun(const Library& library, ProjectState& s, Assignment how);

    // Sets one field. A value that depends on other fields, such as a place on a member whose
    // length follows, waits for them. Returns the reason of a refusal, or nothing.
    std::string Assign(const AssignTarget& target, std::string_view text);

    // Behind the last one. The record is half set when the run is refused.
    Refused Finish();

private:
    struct Waiting {
        AssignTarget target;
        std::string text, what;
    };

    bool Set(Tie tie) const { return (set_ & tie) != 0; }
    Refused TakeWaiting();
    void FollowGrade();
    void BringAlong();
    void BringLengths();
    void BringLength(Axis axis);
    void BringLateral();
    void BringStiffeners();

    const Library& library_;
    ProjectState& s_;
    Assignment how_;
    // Before the run.
    float fyk_;
    i16 fykindex_, supportcase_, bucklingcasey_, bucklingcasez_, ltb_, webstiff_;
    unsigned set_ = 0;  // ties that the run has set
    std::vector<Waiting> waiting_;
};

}  // namespace kestrum
