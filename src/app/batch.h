#pragma once

// Many members, one answer line each: what a line holds, the calculation of a run of members, and
// the summary. Reads and writes texts only; the command line brings files and threads.

#include "app/assign.h"
#include "app/member_table.h"
#include "app/shard.h"
#include "core/csv_cell.h"
#include "core/held_state.h"
#include "core/library.h"
#include "report/outcome.h"
#include "standard/costs.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// The shortest decimal that reads back to the value.
void AppendNumber(std::string& out, double value);
void AppendNumber(std::string& out, float value);
void AppendNumber(std::string& out, std::size_t value);

enum class TableForm : std::uint8_t { csv, ndjson };

// Lines that begin with member, verdict and ratio, whatever stands behind.
class AnswerLines {
public:
    explicit AnswerLines(TableForm form, CsvForm csv = {}) : form_(form), csv_(csv) {}
    virtual ~AnswerLines() = default;

    // The first line of a CSV with its line end; nothing for NDJSON.
    virtual std::string Header() const = 0;

    // Reads member, verdict and ratio back from a line. False when it is none.
    bool ReadBack(std::string_view line, std::string& member, Verdict& verdict, double& ir) const;

    TableForm form() const { return form_; }

protected:
    AnswerLines(const AnswerLines&) = default;
    AnswerLines& operator=(const AnswerLines&) = default;

    TableForm form_ = TableForm::csv;
    CsvForm csv_{};
};

// The fields of an answer line behind member, verdict and ratio.
class AnswerForm : public AnswerLines {
public:
    AnswerForm() : AnswerLines(TableForm::csv) {}

    // Canonical names of fields, or control, clause, message, notes and dropped, ir_standard,
    // standard_check, standard_clause and deviations; section, steel and
    // annex by name, and FIELD.name for the name of a value. Names of sections and steels come from
    // the library, which must last. Returns why a name cannot be, or nothing.
    std::string Choose(TableForm form, const std::vector<std::string>& names,
                       const Library* library = nullptr, CsvForm csv = {});

    // Axial forces are answered with tension positive.
    void SetTensionPositive(bool tension) { tensionpositive_ = tension; }

    // Behind Choose: what is no field is passed through to the answer, of a CSV in these columns.
    void KeepOthers(std::vector<std::string> columns);
    bool keepsothers() const { return keepothers_; }

    // Why the answer has no place for what a table passes through, or nothing. Its columns are null
    // for NDJSON.
    std::string NoPlace(const MemberColumns* columns) const;

    std::string Header() const override;

    void AppendLine(std::string& out, std::string_view member, const ProjectState& s,
                    const Outcome& outcome, const LineExtras& extras = {},
                    const standard::StandardResult* standard = nullptr) const;

    // A field is of the result by the standard as written, which AppendLine then needs.
    bool asks_standard() const;
    // One is what the deviations cost, or which of them act.
    bool asks_costs() const;

private:
    enum class Special : std::uint8_t {
        none,
        control,
        clause,
        message,
        notes,
        dropped,
        section,
        name,
        ir_standard,
        standard_check,
        standard_clause,
        deviations
    };
    struct Item {
        std::string name;
        Special special;
        FieldRef ref;
    };
    static bool MeasuresDeviations(Special special)
    {
        return special == Special::notes || special == Special::deviations;
    }
    std::string Find(Item& item) const;
    void AppendItem(std::string& out, const Item& item, const ProjectState& s,
                    const Outcome& outcome, const standard::StandardResult* standard) const;
    template <class T> void AppendDecimal(std::string& out, T value) const;
    void AppendNotes(std::string& out, const std::vector<DesignNote>& notes) const;
    void AppendDeviations(std::string& out, const standard::StandardResult& result) const;
    void AppendStandard(std::string& out, Special what,
                        const standard::StandardResult* result) const;

    std::string KeptName(std::string name) const;
    void AppendKept(std::string& out, const std::vector<LineExtras::Kept>& kept) const;

    template <class Texts>
    void AppendList(std::string& out, const Texts& texts, std::string_view between) const;

    std::vector<Item> items_;
    bool tensionpositive_ = false;
    bool keepothers_ = false;
    std::vector<std::string> others_;  // columns of a CSV
    const Library* library_ = nullptr;
};

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
