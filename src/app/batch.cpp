#include "app/batch.h"

#include "core/file_io.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "core/utf8_text.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/both_bases.h"
#include "report/state_json.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kestrum {

void RememberRemarks(std::vector<BatchChunk::Word>& words, const LineExtras& extras,
                     const std::string& table, const std::string& place)
{
    for (const Remark& remark : extras.remarks) {
        const bool unit = !remark.what.starts_with("without");  // has the value in its text
        std::string key = table + ":" + remark.name + ": " + (unit ? "unit" : remark.what);
        const auto said = [&key](const BatchChunk::Word& word) { return word.key == key; };
        if (std::none_of(words.begin(), words.end(), said)) {
            words.push_back({std::move(key), Printable(place + remark.name + ": " + remark.what)});
        }
    }
}

BatchWorker::BatchWorker(const Library& library, const ProjectState& base, const AnswerForm& form,
                         Manner manner, Shard shard)
    : library_(library), base_(base), start_(StartState(library)), form_(form), manner_(manner),
      shard_(shard)
{
}

std::string_view NextMember(const BatchChunk& chunk, std::string_view& rest)
{
    return chunk.form == TableForm::csv ? TakeRecord(rest, chunk.columns->separator())
                                        : TakeLine(rest);
}

void BatchWorker::Work(BatchChunk& chunk)
{
    chunk.out.clear();
    chunk.fault.clear();
    chunk.words.clear();
    chunk.tally = {};
    place_ = chunk.place;
    if (!chunk.files.empty()) {
        for (const std::string& file : chunk.files) {
            if (shard_.Has(place_)) {
                File(chunk, file);
            }
            ++place_;
        }
        return;
    }
    Lines(chunk);
}

void BatchWorker::Lines(BatchChunk& chunk)
{
    std::string_view rest = chunk.lines;
    std::size_t row = chunk.row;
    for (std::size_t number = chunk.line; !rest.empty();) {
        const std::string_view line = NextMember(chunk, rest);
        if (!line.empty()) {
            if (shard_.Has(place_)) {
                Line(chunk, line, row, number);
            }
            ++row;
            ++place_;
        }
        if (number > 0) {
            number += 1 + static_cast<std::size_t>(std::count(line.begin(), line.end(), '\n'));
        }
    }
}

void BatchWorker::Line(BatchChunk& chunk, std::string_view line, std::size_t row,
                       std::size_t number)
{
    *s_ = base_;
    extras_ = {};
    const bool csv = chunk.form == TableForm::csv;
    std::string refusal = "the line is too long";
    if (line.size() <= kLongestLine) {
        refusal = Printable(
            csv ? chunk.columns->Apply(library_, *s_, line, manner_, &extras_)
                : ApplyJsonLine(library_, *s_, line, manner_, keys_, form_.keepsothers(), extras_));
    }
    if (!refusal.empty() || !extras_.remarks.empty()) {
        std::string place = chunk.table;
        if (number > 0) {
            place += ":";
            AppendNumber(place, number);
        }
        place += ": member ";
        AppendNumber(place, row);
        place += ": ";
        if (refusal.empty()) {
            RememberRemarks(chunk.words, extras_, chunk.table, place);
        } else {
            chunk.fault += place + refusal + "\n";
        }
    }
    member_ = chunk.prefix;
    AppendNumber(member_, row);
    Finish(chunk, member_, refusal);
}

void BatchWorker::File(BatchChunk& chunk, const std::string& name)
{
    *s_ = *start_;
    extras_ = {};
    s_->filename = name;
    const std::string member = Printable(name);
    std::string refusal = ReadWholeFile(name, chunk.lines);
    if (!refusal.empty()) {
        chunk.fault += member + ": " + refusal + "\n";
    } else if (const auto fault = ReadProject(*s_, chunk.lines)) {
        refusal = fault->what;
        chunk.fault += FaultText(member, *fault) + "\n";
    }
    Finish(chunk, member, refusal);
}

void BatchWorker::Finish(BatchChunk& chunk, std::string_view member, std::string_view refusal)
{
    Outcome outcome;
    std::optional<standard::StandardResult> standard;
    if (refusal.empty()) {
        bool well = false;
        if (form_.asks_costs()) {
            *read_ = *s_;  // the pass empties rows of some families
            BothBases both = CalculateBoth(library_, read_, s_);
            well = both.well;
            standard = std::move(both.standard);
        } else {
            if (form_.asks_standard()) {
                standard = standard::CalculateStandard(library_, s_);
            }
            well = Calculate(library_, *s_);
        }
        outcome = OutcomeOf(s_, well);
        if (outcome.verdict == Verdict::not_checked) {  // one that failed says so in its line
            chunk.fault.append(chunk.table).append(chunk.table.empty() ? "" : ": member ");
            chunk.fault.append(member).append(": ").append(outcome.message).append("\n");
        }
    } else {
        outcome.message = refusal;
    }
    if (!extras_.remarks.empty() && refusal.empty()) {
        for (const Remark& remark : extras_.remarks) {
            outcome.message +=
                (outcome.message.empty() ? "" : "; ") + remark.name + ": " + remark.what;
        }
    }
    form_.AppendLine(chunk.out, member, s_, outcome, extras_, standard ? &*standard : nullptr);
    chunk.tally.Add(place_, member, outcome.verdict, outcome.ir);
}

}  // namespace kestrum
