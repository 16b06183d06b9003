#pragma once

// One line of an answer, CSV or NDJSON, from its cells.

#include "app/answer_form.h"
#include "core/csv_cell.h"
#include "report/state_json.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// A line from its cells: of a CSV in the order of the columns, of an object with their names.
class AnswerLine {
public:
    AnswerLine(std::string& out, TableForm form, const CsvForm& csv)
        : out_(out), json_(form == TableForm::ndjson), csv_(csv)
    {
        out_.append(json_ ? "{" : "");
    }
    void Text(std::string_view name, std::string_view text)
    {
        Name(name);
        if (json_) {
            out_.append(JsonText(text));
        } else {
            AppendCell(out_, text, csv_.texts);
        }
    }
    template <class T> void Number(std::string_view name, T value, bool given = true)
    {
        Name(name);
        if (given) {
            const std::size_t first = out_.size();
            AppendNumber(out_, value);
            if (!json_) {
                SetPoint(out_, first, csv_);
            }
        } else {
            out_.append(json_ ? "null" : "");
        }
    }
    void List(std::string_view name, const std::vector<std::string>& texts)
    {
        Name(name);
        std::string joined;
        for (const std::string& text : texts) {
            joined.append(joined.empty() ? "" : json_ ? "," : "; ");
            joined.append(json_ ? JsonText(text) : text);
        }
        if (json_) {
            out_.append("[").append(joined).append("]");
        } else {
            AppendCell(out_, joined);
        }
    }
    void End() { out_.append(json_ ? "}\n" : "\n"); }

private:
    void Name(std::string_view name)
    {
        out_.append(first_ ? 0 : 1, json_ ? ',' : csv_.delimiter);
        first_ = false;
        if (json_) {
            out_.append("\"").append(name).append("\":");
        }
    }

    std::string& out_;
    bool json_;
    CsvForm csv_;
    bool first_ = true;
};

}  // namespace kestrum
