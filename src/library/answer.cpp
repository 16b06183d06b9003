// Outcomes in the words of the interface.

#include "app/field_hint.h"
#include "library/handles.h"

namespace kestrum::library {

kestrum_status StatusOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::within:
        return KESTRUM_WITHIN;
    case Verdict::above:
        return KESTRUM_ABOVE;
    case Verdict::unstable:
        return KESTRUM_UNSTABLE;
    case Verdict::failed:
        return KESTRUM_FAILED;
    case Verdict::loads_dropped:
        return KESTRUM_LOADS_DROPPED;
    case Verdict::nothing_acts:
        return KESTRUM_NOTHING_ACTS;
    case Verdict::bad:
        return KESTRUM_BAD_INPUT;
    default:
        return KESTRUM_NOT_CHECKED;
    }
}

namespace {

// Adds to a list of sentences.
void Append(std::string& list, std::string_view text)
{
    list.append(list.empty() ? "" : "; ").append(text);
}

}  // namespace

Answer ProgramAnswer(const Outcome& outcome)
{
    Answer answer;
    answer.status = StatusOf(outcome.verdict);
    if (outcome.rated()) {
        answer.ratio = outcome.ir;
    }
    answer.verdict = VerdictText(outcome);
    answer.governing = outcome.control;
    answer.clause = outcome.clause;
    answer.message = outcome.message;
    if (outcome.verdict != Verdict::loads_dropped) {  // whose message they are
        for (const std::string& dropped : outcome.dropped) {
            Append(answer.message, dropped);
        }
    }
    return answer;
}

Answer StandardAnswer(const standard::StandardResult& standard)
{
    Answer answer;
    answer.verdict = standard::VerdictOf(standard);
    if (standard.rated) {
        answer.status = standard.above ? KESTRUM_ABOVE : KESTRUM_WITHIN;
        answer.ratio = standard.ir;
        answer.governing = standard::NameOf(standard.governing);
        answer.clause = standard.checks[standard.governing].clause;
    }
    for (const std::string& reason : standard.outside) {
        Append(answer.message, reason);
    }
    return answer;
}

FieldRef FieldOf(std::string_view name)
{
    const auto ref = ResolveField(name);
    if (!ref) {
        throw Refusal{KESTRUM_UNKNOWN_NAME, std::string(name) + ": no such field",
                      std::string(name), NearestField(name, FieldsMeant::all)};
    }
    if (ref->field->kind == FieldKind::text || ref->field->kind == FieldKind::literal) {
        throw Refusal{KESTRUM_REFUSED, std::string(name) + " is a text", std::string(name)};
    }
    return *ref;
}

void RequireBasis(unsigned basis)
{
    if (basis < KESTRUM_BASIS_PROGRAM || basis > KESTRUM_BASIS_BOTH) {
        throw Refusal{KESTRUM_REFUSED, "basis: 1, 2 or 3 is expected", "basis"};
    }
}

}  // namespace kestrum::library
