#include "calculation/chapters.h"
#include "calculation/check_formula.h"
#include "calculation/check_names.h"

#include "core/check_text.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

const CheckPair* GoverningPair(const CalculatedMember& m)
{
    const auto& pairs = CheckPairs(m.s);
    const auto governs = [&](const CheckPair& pair) {
        const Check* const check = LargestOf(pair, m.s.checklist);
        return check != nullptr && check->ratio == m.outcome.ir;
    };
    const auto found = std::find_if(pairs.begin(), pairs.end(), governs);
    return found == pairs.end() ? nullptr : &*found;
}

Line RatioLine(double ratio, Span::Style style = Span::Style::plain)
{
    return WithNumbers(WrittenRatio(ratio), style);
}

void AddBox(const CalculatedMember& m, Document& d)
{
    const Outcome& outcome = m.outcome;
    Line text("Rules of the program: " + VerdictText(outcome));
    if (outcome.rated()) {
        text += Line(", IR = ") + RatioLine(outcome.ir);
    }
    if (outcome.rated() && !outcome.control.empty()) {
        const CheckPair* const pair = GoverningPair(m);
        text += Line(
            " (" + GoverningName(m) + ", " +
            (pair == nullptr ? outcome.clause : ClauseOf(*LargestOf(*pair, m.s.checklist))) + ")");
    }
    d.Say(text, m.Within() ? Paragraph::Kind::verdict_good : Paragraph::Kind::verdict_bad);
    if (outcome.verdict == Verdict::loads_dropped) {
        d.Say("The result is one of fewer loads than were given; see Actions.");
    } else if (!outcome.message.empty()) {
        d.Say(Sentence(outcome.message));
    }
    const standard::StandardResult& result = m.standard;
    text = Line("EN 1993-1-1 as written: " + std::string(standard::VerdictOf(result)));
    if (result.rated) {
        text += Line(", IR = ") + RatioLine(result.ir) +
                Line(" (" + NameInText(m.s, result.governing) + ", " +
                     ClauseOf(result.checks[result.governing]) + ")");
    }
    d.Say(text, result.rated && !result.above ? Paragraph::Kind::verdict_good
                                              : Paragraph::Kind::verdict_bad);
    for (const std::string& reason : result.outside) {
        d.Say(Line("Not covered by EN 1993-1-1 as written: ") + Sentence(reason),
              Paragraph::Kind::remark);
    }
    d.Say(Line("A member is verified where no ratio IR exceeds the limit ") +
              NumberLine(static_cast<double>(m.s.irlimit), 3) +
              Line(". The rules of the program depart from the standard in numbered places; those "
                   "that act here are listed at the end with what each costs."),
          Paragraph::Kind::remark);
}

// A ratio that does not count is neither good nor bad.
Line Ratio(double ratio, bool above, bool counts)
{
    return RatioLine(ratio, !counts ? Span::Style::plain
                            : above ? Span::Style::bad
                                    : Span::Style::good);
}

}  // namespace

std::string GoverningName(const CalculatedMember& m)
{
    const CheckPair* const pair = GoverningPair(m);
    return pair == nullptr ? m.outcome.control : InText(pair->name);
}

void AddVerdict(const CalculatedMember& m, Document& d)
{
    d.Chapter("Verdict");
    AddBox(m, d);
    const bool designed = m.outcome.designed();
    TextTable table{.columns = {{"Check", false, 2.5},
                                {"IR, program", true},
                                {"where"},
                                {"combination"},
                                {"clause"},
                                {"IR, standard", true},
                                {"where"},
                                {"combination"},
                                {"clause"}}};
    for (const CheckPair& pair : CheckPairs(m.s)) {
        const bool deflection = pair.standard && IsDeflection(*pair.standard);
        if (deflection && m.s.loadmode != 1) {
            continue;  // what the record holds is of an earlier pass with loads
        }
        const Check* const check = designed ? LargestOf(pair, m.s.checklist) : nullptr;
        const standard::Check* const other =
            pair.standard && m.standard.checks[*pair.standard].present
                ? &m.standard.checks[*pair.standard]
                : nullptr;
        if (check == nullptr && other == nullptr) {
            continue;
        }
        const bool counts = !deflection || DeflectionCounts(m.s);
        std::vector<Line> row{Line(pair.name)};
        if (check != nullptr) {
            row.insert(row.end(),
                       {Ratio(check->ratio, check->status == kAbove, counts), PlaceOf(check->place),
                        CombinationOf(m.s, deflection), ClauseOf(*check)});
        } else {
            row.insert(row.end(), {"-", "", "", ""});
        }
        if (other != nullptr) {
            row.insert(
                row.end(),
                {Ratio(other->ir, other->ir > m.s.irlimit, counts),
                 std::isnan(other->place) ? Line() : Line("x/L = ") + NumberLine(other->place, 3),
                 LineOf(other->load_case), ClauseOf(*other)});
        } else {
            row.insert(row.end(), {"-", "", "", ""});
        }
        table.rows.push_back(std::move(row));
    }
    if (!table.rows.empty()) {
        d.Add(std::move(table));
    }
    if (designed && m.s.loadmode == 1 && !DeflectionCounts(m.s)) {
        d.Say("The deflection is not to be checked and does not count in the verdict.",
              Paragraph::Kind::remark);
    }
}

}  // namespace kestrum
