#pragma once

// The answers of a search for sections as lines: for each member one for each section that was
// found, or one that says why there is none.

#include "app/answer_form.h"
#include "app/optimize.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrum {

// A member of a group with what was found for it.
struct OptimizedMember {
    std::string_view key = {};
    std::string_view group = {};                 // empty without groups
    std::size_t member = 0;                      // in the group
    std::string_view section = {}, steel = {};   // that it had
    std::optional<SectionFigures> figures = {};  // of these
    std::string refusal = {};                    // why no section can be looked for
    Verdict refused = Verdict::bad;              // then
};

class OptimizeForm : public AnswerLines {
public:
    OptimizeForm(TableForm form, Bases bases, CsvForm csv) : AnswerLines(form, csv), bases_(bases)
    {
    }
    std::string Header() const override;

    // All lines of the member. The answer is null for one that has a refusal.
    void AppendLines(std::string& out, const OptimizedMember& of,
                     const OptimizeAnswer* answer) const;

    // What the run counts: within limits where a section was found.
    Verdict VerdictFor(const OptimizedMember& of, const OptimizeAnswer* answer) const;

    // That ranks: the larger of the bases asked.
    double RatioOf(const MemberAnswer& answer) const;

    Bases bases() const { return bases_; }

private:
    void AppendLine(std::string& out, const OptimizedMember& of, const OptimizeAnswer* answer,
                    const RatedCandidate* rated, std::size_t rank) const;

    Bases bases_;
};

}  // namespace kestrum
