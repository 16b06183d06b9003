#pragma once

// The summary of a run of many members.

#include "report/outcome.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// Counts and the members with the largest ratios; the order in which tallies are added does not
// matter.
class Tally {
public:
    void Add(std::size_t place, std::string_view member, Verdict verdict, double ir);
    void Add(const Tally& other);
    std::size_t Count(Verdict verdict) const { return count_[static_cast<std::size_t>(verdict)]; }
    std::size_t Members() const;

    // A line of counts, which ends with the remark, and one for each of the worst members.
    std::string Summary(std::string_view remark = {}) const;

private:
    struct Worst {
        std::size_t place;
        std::string member;
        double ir;
    };
    std::array<std::size_t, kVerdicts> count_{};
    std::vector<Worst> worst_;  // at most ten, the worst first
};

}  // namespace kestrum
