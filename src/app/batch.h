#pragma once

// Many members, one answer line each: the calculation of a run of members. Reads and writes texts
// only; the command line brings files and threads.

#include "app/answer_form.h"
#include "app/shard.h"
#include "app/tally.h"
#include "core/held_state.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// A run of members: lines of one table, or project files.
struct BatchChunk {
    TableForm form = TableForm::csv;
    const MemberColumns* columns = nullptr;  // of a CSV
    std::string table = {};                  // name for messages
    std::string prefix = {};                 // of member names: "loads.csv:" with several inputs
    std::string lines = {};
    std::size_t row = 0;      // number of the first member of the chunk in its table, from 1
    std::size_t line = 0;     // its line in the table, from 1; 0 where members are no lines
    std::size_t members = 0;  // how many the lines hold
    std::vector<std::string> files = {};  // instead of lines
    std::size_t place = 0;                // of the first member in the whole run

    std::string out = {};    // answer lines
    std::string fault = {};  // messages, a line each
    // What is worth a word of members that were calculated: the text for one key is said once.
    struct Word {
        std::string key, text;
    };
    std::vector<Word> words = {};
    Tally tally = {};
};

// Adds what is worth a word about a line, once for each key: the same word about a hundred thousand
// members is said of the first.
void RememberRemarks(std::vector<BatchChunk::Word>& words, const LineExtras& extras,
                     const std::string& table, const std::string& place);

// The next member of a chunk of lines, taken off the front of what is left of them; empty for a
// line without one.
std::string_view NextMember(const BatchChunk& chunk, std::string_view& rest);

// Calculates a chunk with a record of its own: `base` is what each line starts from; a project file
// holds a whole member and is read onto the record after a start.
class BatchWorker {
public:
    // Of the members of a chunk it calculates those of the shard.
    BatchWorker(const Library& library, const ProjectState& base, const AnswerForm& form,
                Manner manner, Shard shard = {});
    void Work(BatchChunk& chunk);

private:
    void Lines(BatchChunk& chunk);
    void Line(BatchChunk& chunk, std::string_view line, std::size_t row, std::size_t number);
    void File(BatchChunk& chunk, const std::string& name);
    void Finish(BatchChunk& chunk, std::string_view member, std::string_view refusal);

    const Library& library_;
    const ProjectState& base_;
    const HeldState start_;  // what a project file is read onto
    const AnswerForm& form_;
    Manner manner_;
    Shard shard_;
    JsonKeys keys_;
    LineExtras extras_;
    HeldState s_, read_;
    std::size_t place_ = 0;
    std::string member_;
};

}  // namespace kestrum
