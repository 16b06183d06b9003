// Many members, a row each, on all cores.

#include "engine/calculate.h"
#include "library/rows.h"

#include <array>
#include <unordered_set>

struct kestrum_table {
    // What one basis answers.
    struct Column {
        std::vector<int> status;
        std::vector<double> ratio;
        std::vector<std::array<const char*, 5>> words;
    };
    std::size_t rows = 0;
    std::array<Column, 2> of;  // program, standard
    std::vector<std::vector<double>> numbers;
    std::vector<std::size_t> refused;
    // Few texts are different: each thread keeps those it has met.
    std::vector<std::unordered_set<std::string>> texts;
};

namespace {

using kestrum::FieldRef;
using kestrum::ProjectState;
using kestrum::library::Answer;
using kestrum::library::Answered;
using kestrum::library::Required;
using kestrum::library::RequiredText;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

struct Plan {
    kestrum::library::MemberRows members;
    std::vector<FieldRef> fields;
    unsigned basis;
    bool notes;
};

class Worker {
public:
    Worker(const Plan& plan, kestrum_table& table, std::unordered_set<std::string>& texts)
        : plan_(plan), table_(table), texts_(texts)
    {
    }
    void Row(std::size_t row);

private:
    void Refuse(std::size_t row, std::size_t column, const std::string& why);
    void Keep(std::size_t basis, std::size_t row, const Answer& answer, const std::string& notes);
    const char* Kept(const std::string& text) { return texts_.insert(text).first->c_str(); }
    bool Asks(unsigned basis) const { return (plan_.basis & basis) != 0; }

    const Plan& plan_;
    kestrum_table& table_;
    std::unordered_set<std::string>& texts_;
    kestrum::HeldState s_;
};

void Worker::Keep(std::size_t basis, std::size_t row, const Answer& answer,
                  const std::string& notes)
{
    kestrum_table::Column& column = table_.of[basis];
    column.status[row] = answer.status;
    column.ratio[row] = answer.ratio;
    column.words[row] = {Kept(answer.verdict), Kept(answer.governing), Kept(answer.clause),
                         Kept(answer.message), Kept(notes)};
}

void Worker::Refuse(std::size_t row, std::size_t column, const std::string& why)
{
    Answer answer;
    answer.status = KESTRUM_BAD_INPUT;
    answer.verdict = kestrum::VerdictWord(kestrum::Verdict::bad);
    answer.message = why;
    table_.refused[row] = column;
    for (const std::size_t basis : {0U, 1U}) {
        if (Asks(1U << basis)) {
            Keep(basis, row, answer, {});
        }
    }
}

void Worker::Row(std::size_t row)
{
    if (const auto refused = plan_.members.Fill(row, s_)) {
        return Refuse(row, refused->column, refused->why);
    }
    const kestrum::Library& library = plan_.members.library();
    if (Asks(KESTRUM_BASIS_STANDARD)) {
        Keep(1, row,
             kestrum::library::StandardAnswer(kestrum::standard::CalculateStandard(library, s_)),
             {});
    }
    if (!Asks(KESTRUM_BASIS_PROGRAM) && plan_.fields.empty()) {
        return;
    }
    const bool well = kestrum::Calculate(library, s_);
    if (plan_.notes) {
        kestrum::MeasureNotes(library, s_);
    }
    const kestrum::Outcome outcome = kestrum::OutcomeOf(s_, well);
    if (Asks(KESTRUM_BASIS_PROGRAM)) {
        Keep(0, row, kestrum::library::ProgramAnswer(outcome), NumbersOf(outcome.notes));
    }
    for (std::size_t i = 0; well && i < plan_.fields.size(); ++i) {
        table_.numbers[i][row] =
            kestrum::NumberOf(s_, *plan_.fields[i].field, plan_.fields[i].index);
    }
}

void Reserve(kestrum_table& table, const Plan& plan, std::size_t rows)
{
    table.rows = rows;
    table.refused.assign(rows, plan.members.columns());
    table.numbers.assign(plan.fields.size(), std::vector<double>(rows, kNone));
    for (const std::size_t basis : {0U, 1U}) {
        if ((plan.basis & (1U << basis)) != 0) {
            table.of[basis].status.resize(rows);
            table.of[basis].ratio.resize(rows);
            table.of[basis].words.resize(rows);
        }
    }
}

void Fill(const Plan& plan, unsigned threads, kestrum_table& table)
{
    constexpr std::size_t kRowsAtATime = 32;
    table.texts.resize(kestrum::library::ThreadsFor(threads, table.rows));
    kestrum::library::ShareOut(
        table.texts.size(), table.rows, kRowsAtATime, [&](std::size_t thread) {
            return [worker = std::make_shared<Worker>(plan, table, table.texts[thread])](
                       std::size_t row, std::size_t end) {
                for (; row < end; ++row) {
                    worker->Row(row);
                }
            };
        });
}

const kestrum_table::Column* ColumnOf(const kestrum_table* table, unsigned basis)
{
    const bool known = basis == KESTRUM_BASIS_PROGRAM || basis == KESTRUM_BASIS_STANDARD;
    if (table == nullptr || !known || table->of.at(basis - 1).status.size() != table->rows) {
        return nullptr;
    }
    return &table->of.at(basis - 1);
}

}  // namespace

kestrum_code kestrum_table_check(const kestrum_member* base, const kestrum_column* columns,
                                 size_t column_count, size_t rows, unsigned basis,
                                 const char* const* fields, size_t field_count, unsigned threads,
                                 kestrum_table** out, kestrum_error** error)
{
    return Answered(out, error, [&] {
        const bool notes = (basis & KESTRUM_COSTS) != 0;
        basis &= ~static_cast<unsigned>(KESTRUM_COSTS);
        kestrum::library::RequireBasis(basis);
        Plan plan{{Required(base, "base"), columns, column_count, rows}, {}, basis, notes};
        for (size_t i = 0; i < field_count; ++i) {
            plan.fields.push_back(kestrum::library::FieldOf(
                RequiredText(fields == nullptr ? nullptr : fields[i], "field name")));
        }
        kestrum_table table;
        Reserve(table, plan, rows);
        Fill(plan, threads, table);
        return table;
    });
}

void kestrum_table_free(kestrum_table* table)
{
    delete table;
}

size_t kestrum_table_rows(const kestrum_table* table)
{
    return table == nullptr ? 0 : table->rows;
}

const int* kestrum_table_statuses(const kestrum_table* table, unsigned basis)
{
    const auto* const column = ColumnOf(table, basis);
    return column == nullptr ? nullptr : column->status.data();
}

const double* kestrum_table_ratios(const kestrum_table* table, unsigned basis)
{
    const auto* const column = ColumnOf(table, basis);
    return column == nullptr ? nullptr : column->ratio.data();
}

const double* kestrum_table_numbers(const kestrum_table* table, size_t field)
{
    return table == nullptr || field >= table->numbers.size() ? nullptr
                                                              : table->numbers[field].data();
}

const char* kestrum_table_words(const kestrum_table* table, size_t row, unsigned basis,
                                kestrum_words which)
{
    const auto* const column = ColumnOf(table, basis);
    const auto at = static_cast<std::size_t>(which);
    if (column == nullptr || row >= table->rows || at >= column->words[row].size()) {
        return "";
    }
    return column->words[row][at];
}

size_t kestrum_table_refused(const kestrum_table* table, size_t row)
{
    return table == nullptr || row >= table->rows ? 0 : table->refused[row];
}
