#pragma once

// Columns of internal forces as cases of members, and the answers of the interface about them.

#include "app/member_cases.h"
#include "library/handles.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrum::library {

// Rows of one case, places in the order of the forces; none of a member without forces.
struct Case {
    std::size_t member, begin, end;
};

// The rows by member, case and place in the table. The forces must last.
class ForceOrder {
public:
    // Refuses a row of no member.
    ForceOrder(const kestrum_forces& forces, std::size_t members);

    // Of each member one after the other; one without rows for a member without forces.
    const std::vector<Case>& cases() const { return cases_; }
    const kestrum_forces& forces() const { return forces_; }
    void Read(const Case& at, CaseRows& rows) const;

private:
    const kestrum_forces& forces_;
    std::vector<std::size_t> rows_;
    std::vector<Case> cases_;
};

Bases BasesOf(unsigned basis);

// The worst case of a member in one basis.
struct Worst {
    Answer answer;
    std::string notes;
    double x = kNowhere;
    std::size_t row = 0, cases = 0, above = 0, failed = 0;
};
// `rows` is what stands for no row.
Worst WorstOf(const MemberAnswer& from, Bases basis, std::size_t rows);
kestrum_worst Shown(const Worst& worst);

struct Fault {
    std::size_t member, column;
    std::size_t row;  // from 1; 0 for one of the member itself
    std::string text;
};

// The first of them in the order of the tables.
class Faults {
public:
    void Add(Fault fault);
    std::vector<Fault> Take();

private:
    void Cut();
    std::vector<Fault> list_;
};
kestrum_fault Shown(const std::vector<Fault>& faults, std::size_t index, std::size_t rows);

}  // namespace kestrum::library
