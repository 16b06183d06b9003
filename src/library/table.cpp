// Many members, a row each, on all cores.

#include "engine/calculate.h"
#include "library/handles.h"
#include "report/state_json.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <exception>
#include <thread>
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
using kestrum::library::FloatingPoint;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredText;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

struct Plan {
    const kestrum_member& base;
    std::vector<kestrum::AssignTarget> targets;
    const kestrum_column* columns;
    std::size_t column_count;
    std::vector<FieldRef> fields;
    unsigned basis;
};

class Worker {
public:
    Worker(const Plan& plan, kestrum_table& table, std::unordered_set<std::string>& texts)
        : plan_(plan), table_(table), texts_(texts)
    {
    }
    void Row(std::size_t row);

private:
    bool Fill(std::size_t row);
    std::string Assign(kestrum::AssignRun& run, std::size_t column, std::size_t row) const;
    void Refuse(std::size_t row, std::size_t column, const std::string& why);
    void Keep(std::size_t basis, std::size_t row, const Answer& answer, const std::string& notes);
    const char* Kept(const std::string& text) { return texts_.insert(text).first->c_str(); }
    bool Asks(unsigned basis) const { return (plan_.basis & basis) != 0; }

    const Plan& plan_;
    kestrum_table& table_;
    std::unordered_set<std::string>& texts_;
    ProjectState s_;
};

std::string Worker::Assign(kestrum::AssignRun& run, std::size_t column, std::size_t row) const
{
    const kestrum_column& from = plan_.columns[column];
    if (from.texts != nullptr) {
        const char* const text = from.texts[row];
        return text == nullptr ? std::string() : run.Assign(plan_.targets[column], text);
    }
    const double number = from.numbers[row];
    if (std::isnan(number)) {
        return {};
    }
    return std::isfinite(number) ? run.Assign(plan_.targets[column], kestrum::JsonNumber(number))
                                 : std::string("not a finite number");
}

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

bool Worker::Fill(std::size_t row)
{
    s_ = plan_.base.state;
    kestrum::AssignRun run(*plan_.base.library, s_, {kestrum::Assignment::checked});
    for (std::size_t i = 0; i < plan_.column_count; ++i) {
        if (const std::string refusal = Assign(run, i, row); !refusal.empty()) {
            Refuse(row, i, std::string(plan_.columns[i].name) + ": " + refusal);
            return false;
        }
    }
    const kestrum::Refused refused = run.Finish();
    if (refused.empty()) {
        return true;
    }
    const auto* const end = plan_.columns + plan_.column_count;
    const auto* const at = std::find_if(plan_.columns, end, [&](const kestrum_column& column) {
        return refused.name == column.name;
    });
    Refuse(row, static_cast<std::size_t>(at - plan_.columns),
           refused.name + (refused.name.empty() ? "" : ": ") + refused.what);
    return false;
}

void Worker::Row(std::size_t row)
{
    if (!Fill(row)) {
        return;
    }
    if (Asks(KESTRUM_BASIS_STANDARD)) {
        Keep(1, row,
             kestrum::library::StandardAnswer(
                 kestrum::standard::CalculateStandard(*plan_.base.library, s_)),
             {});
    }
    if (!Asks(KESTRUM_BASIS_PROGRAM) && plan_.fields.empty()) {
        return;
    }
    const bool well = kestrum::Calculate(*plan_.base.library, s_);
    const kestrum::Outcome outcome = kestrum::OutcomeOf(s_, well);
    if (Asks(KESTRUM_BASIS_PROGRAM)) {
        std::string notes;
        for (const std::string_view note : outcome.notes) {
            notes.append(notes.empty() ? "" : " ").append(note);
        }
        Keep(0, row, kestrum::library::ProgramAnswer(outcome), notes);
    }
    for (std::size_t i = 0; well && i < plan_.fields.size(); ++i) {
        table_.numbers[i][row] =
            kestrum::NumberOf(s_, *plan_.fields[i].field, plan_.fields[i].index);
    }
}

// Each thread takes some rows at a time; what stops one stops all.
class Crew {
public:
    Crew(const Plan& plan, kestrum_table& table) : plan_(plan), table_(table) {}
    void Run(unsigned threads);

private:
    void Work(std::size_t thread);

    const Plan& plan_;
    kestrum_table& table_;
    std::atomic<std::size_t> next_{0};
    std::vector<std::exception_ptr> faults_;
};

void Crew::Work(std::size_t thread)
{
    constexpr std::size_t kRowsAtATime = 32;
    const FloatingPoint usual;
    try {
        Worker worker(plan_, table_, table_.texts[thread]);
        for (std::size_t row; (row = next_.fetch_add(kRowsAtATime)) < table_.rows;) {
            const std::size_t end = std::min(row + kRowsAtATime, table_.rows);
            for (; row < end; ++row) {
                worker.Row(row);
            }
        }
    } catch (...) {
        faults_[thread] = std::current_exception();
        next_ = table_.rows;
    }
}

void Crew::Run(unsigned threads)
{
    constexpr unsigned kMost = 256;
    constexpr std::size_t kFew = 64;  // rows that one thread has done before another has begun
    const unsigned wanted = threads > 0 ? threads : std::thread::hardware_concurrency();
    const std::size_t count = table_.rows < kFew ? 1 : std::clamp(wanted, 1U, kMost);
    table_.texts.resize(count);
    faults_.resize(count);
    std::vector<std::thread> others;
    try {
        for (std::size_t i = 1; i < count; ++i) {
            others.emplace_back([this, i] { Work(i); });
        }
    } catch (const std::exception&) {
        // Fewer threads than wanted do the same work.
    }
    Work(0);
    for (std::thread& other : others) {
        other.join();
    }
    for (const std::exception_ptr& fault : faults_) {
        if (fault) {
            std::rethrow_exception(fault);
        }
    }
}

void Reserve(kestrum_table& table, const Plan& plan, std::size_t rows)
{
    table.rows = rows;
    table.refused.assign(rows, plan.column_count);
    table.numbers.assign(plan.fields.size(), std::vector<double>(rows, kNone));
    for (const std::size_t basis : {0U, 1U}) {
        if ((plan.basis & (1U << basis)) != 0) {
            table.of[basis].status.resize(rows);
            table.of[basis].ratio.resize(rows);
            table.of[basis].words.resize(rows);
        }
    }
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
        kestrum::library::RequireBasis(basis);
        Plan plan{Required(base, "base"), {}, columns, column_count, {}, basis};
        for (size_t i = 0; i < column_count; ++i) {
            const kestrum_column& column = (&Required(columns, "columns"))[i];
            plan.targets.push_back(
                kestrum::library::TargetOf(RequiredText(column.name, "column name")));
            if (rows > 0 && column.numbers == nullptr && column.texts == nullptr) {
                throw Refusal{KESTRUM_NULL, std::string(column.name) + ": no entries", column.name};
            }
        }
        for (size_t i = 0; i < field_count; ++i) {
            plan.fields.push_back(kestrum::library::FieldOf(
                RequiredText(fields == nullptr ? nullptr : fields[i], "field name")));
        }
        kestrum_table table;
        Reserve(table, plan, rows);
        Crew(plan, table).Run(threads);
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
