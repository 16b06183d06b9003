#pragma once

// A search for sections for the members of a table, one by one or in groups that shall have one
// section each, under their own loads or under cases of a table of forces.

#include "app/batch.h"
#include "app/case_reader.h"
#include "app/chosen_table.h"
#include "app/member_list.h"
#include "app/optimize.h"
#include "app/optimize_form.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrum {

// All cases of each member, held: about 80 bytes a station.
class CaseStore : public CaseReader {
public:
    CaseStore(const MemberList& members, ForceColumns columns, std::string table);

    std::vector<CaseRows>& CasesOf(std::size_t member) { return cases_[member]; }

private:
    void Open(std::size_t) override {}
    void Take(ForcePiece& piece, CaseRows& rows) override;
    void Close(ForcePiece&) override {}

    std::vector<std::vector<CaseRows>> cases_;
};

struct OptimizePlan {
    const Library& library;
    const ProjectState& base;  // what a member's line does not name
    const MemberList& members;
    const SectionPool& pool;
    const OptimizeWishes& wishes;
    Manner manner{Assignment::checked};
    CaseStore* forces = nullptr;  // null: the members' own loads
    const ChosenTable* chosen = nullptr;
    bool notes = false;  // measured in each section that is chosen
};

// The members that shall have one section.
struct MemberGroup {
    std::string name = {};
    std::vector<std::size_t> members = {};
};

// By the cells of a column, in the order of their first members; members with an empty cell, and
// all of them without a column (kNone), by themselves.
std::vector<MemberGroup> GroupsOf(const MemberList& members, std::size_t column);

// A run of groups.
struct OptimizePiece {
    std::size_t first = 0, behind = 0;  // of the groups

    struct Answer {
        std::size_t member = 0;
        std::string lines = {};   // of the form
        std::string chosen = {};  // of the chosen table
        Verdict verdict = Verdict::bad;
        double ir = 0;
        double before = 0, after = 0;  // kg, mass of the member where a section was found
    };
    std::vector<Answer> answers = {};
    std::string fault = {};                    // messages, a line each
    std::vector<BatchChunk::Word> words = {};  // what is worth a word, each said once
};

// Works on pieces; one for each thread.
class OptimizeWorker {
public:
    OptimizeWorker(const OptimizePlan& plan, const OptimizeForm& form,
                   const std::vector<MemberGroup>& groups);

    void Work(OptimizePiece& piece);

private:
    struct Taken;
    void Group(OptimizePiece& piece, const MemberGroup& group);
    void Take(OptimizePiece& piece, Taken& taken) const;
    void Answer(OptimizePiece& piece, const MemberGroup& group, const Taken& taken,
                const OptimizeAnswer* answer) const;

    const OptimizePlan& plan_;
    const OptimizeForm& form_;
    const std::vector<MemberGroup>& groups_;
    Optimizer optimizer_;
};

}  // namespace kestrum
