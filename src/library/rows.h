#pragma once

// Members as rows of columns, and the threads that work on them.

#include "library/handles.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kestrum::library {

// A row is a member: what no column sets is that of the base. Const, for any number of threads.
class MemberRows {
public:
    // Refuses a name that is none and a column without entries. Base and columns must last.
    MemberRows(const kestrum_member& base, const kestrum_column* columns, std::size_t count,
               std::size_t rows);

    struct Refused {
        std::size_t column;  // columns() where several contradict each other
        std::string why;
    };
    // Makes `s` the member of the row, or says what is refused.
    std::optional<Refused> Fill(std::size_t row, ProjectState& s) const;

    std::size_t columns() const { return targets_.size(); }
    const Library& library() const { return *base_.library; }

private:
    std::string Assign(AssignRun& run, std::size_t column, std::size_t row) const;

    const kestrum_member& base_;
    const kestrum_column* columns_;
    std::vector<AssignTarget> targets_;
};

// How many threads are worth while for `count` parts; `wanted` 0 is all cores.
std::size_t ThreadsFor(unsigned wanted, std::size_t count);

// The work of one thread on the parts from `from` to before `to`.
using Share = std::function<void(std::size_t from, std::size_t to)>;

// Works on `count` parts, some at a time. `begin(thread)` is called within each thread and answers
// its share; what one throws stops all and is thrown on.
void ShareOut(std::size_t threads, std::size_t count, std::size_t at_a_time,
              const std::function<Share(std::size_t thread)>& begin);

}  // namespace kestrum::library
