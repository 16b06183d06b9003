#pragma once

// What an answer line of a member holds, and how it is written. Reads and writes texts only.

#include "app/assign.h"
#include "app/member_table.h"
#include "core/csv_cell.h"
#include "core/library.h"
#include "report/outcome.h"
#include "standard/costs.h"

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

}  // namespace kestrum
