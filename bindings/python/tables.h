#pragma once

// Tables of members: columns of inputs, columns of answers.

#include "words.h"

#include <iterator>
#include <limits>
#include <unordered_map>

namespace kestrum_python {

// A column of inputs: numbers, or texts with None for that of the base.
struct Entries {
    std::string name;
    py::array_t<double> numbers;
    std::vector<std::string> texts;
    std::vector<const char*> pointers;
};

inline Entries EntriesOf(const std::string& name, const py::object& values)
{
    Entries entries;
    entries.name = name;
    if (py::isinstance<py::array_t<double>>(values)) {
        entries.numbers = py::array_t<double, py::array::c_style | py::array::forcecast>(values);
        return entries;
    }
    const auto list = values.cast<py::list>();
    entries.texts.reserve(list.size());  // so that no text moves
    for (const py::handle& value : list) {
        entries.texts.push_back(value.is_none() ? std::string() : WordOf(value).text);
        entries.pointers.push_back(value.is_none() ? nullptr : entries.texts.back().c_str());
    }
    return entries;
}

using Inputs = std::vector<std::pair<Word, py::object>>;

// Columns of inputs as the library takes them, and the entries that they point to.
class Columns {
public:
    Columns(const Inputs& inputs, std::size_t rows)
    {
        entries_.reserve(inputs.size());  // so that no column moves
        for (const auto& [name, values] : inputs) {
            entries_.push_back(EntriesOf(name.text, values));
            const Entries& last = entries_.back();
            const bool texts = !last.pointers.empty();
            if ((texts ? last.pointers.size() : static_cast<std::size_t>(last.numbers.size())) !=
                rows) {
                throw py::value_error("column " + name.text + " has another length");
            }
            list_.push_back(texts ? kestrum::Column(name.text, last.pointers.data())
                                  : kestrum::Column(name.text, last.numbers.data()));
        }
    }
    const std::vector<kestrum::Column>& list() const { return list_; }

private:
    std::vector<Entries> entries_;
    std::vector<kestrum::Column> list_;
};

// Texts of which few are different: each becomes one object.
class Texts {
public:
    explicit Texts(std::size_t rows) : list_(rows) {}
    void Set(std::size_t row, const std::string& text)
    {
        list_[row] = known_.try_emplace(text, text).first->second;
    }
    py::list list() const { return list_; }

private:
    std::unordered_map<std::string, py::str> known_;
    py::list list_;
};

class TableOf {
public:
    TableOf(const Member& base, const Inputs& inputs, std::size_t rows, unsigned basis,
            const std::vector<Word>& names, unsigned threads, bool notes)
        : rows_(rows)
    {
        const Columns columns(inputs, rows);
        const std::vector<std::string> fields = TextsOf(names);
        auto checked = [&] {
            const py::gil_scoped_release free;
            return kestrum::Table::check(base, columns.list(), rows,
                                         {static_cast<Basis>(basis), fields, threads, notes});
        }();
        table_ = Value(std::move(checked));
    }

    py::array_t<int> Statuses(unsigned basis) const
    {
        const int* const from = kestrum_table_statuses(table_->get(), basis);
        return py::array_t<int>(static_cast<py::ssize_t>(rows_), from);
    }
    py::array_t<double> Ratios(unsigned basis) const
    {
        return Numbers(kestrum_table_ratios(table_->get(), basis));
    }
    py::array_t<double> Field(std::size_t field) const { return Numbers(table_->numbers(field)); }

    // Few texts are different, and equal ones share their place: each becomes one object.
    py::list Words(unsigned basis, unsigned which) const
    {
        std::unordered_map<const char*, py::str> known;
        py::list words(rows_);
        for (std::size_t i = 0; i < rows_; ++i) {
            const char* const text = kestrum_table_words(table_->get(), i, basis,
                                                         static_cast<kestrum_words>(which));
            const auto at = known.try_emplace(text, text).first;
            words[i] = at->second;
        }
        return words;
    }

    // Row and column of the first refused input, or None.
    py::object FirstRefused() const
    {
        for (std::size_t i = 0; i < rows_; ++i) {
            for (const unsigned basis : {KESTRUM_BASIS_PROGRAM, KESTRUM_BASIS_STANDARD}) {
                const int* const status = kestrum_table_statuses(table_->get(), basis);
                if (status != nullptr && status[i] == KESTRUM_BAD_INPUT) {
                    const auto column = table_->refused(i);
                    return py::make_tuple(
                        i, column ? py::object(py::int_(*column)) : py::object(py::none()),
                        kestrum_table_words(table_->get(), i, basis, KESTRUM_MESSAGE));
                }
            }
        }
        return py::none();
    }

private:
    py::array_t<double> Numbers(const double* from) const
    {
        return py::array_t<double>(static_cast<py::ssize_t>(rows_), from);
    }

    std::optional<kestrum::Table> table_;
    std::size_t rows_;
};

using Doubles = py::array_t<double, py::array::c_style | py::array::forcecast>;
using Places = py::array_t<std::size_t, py::array::c_style | py::array::forcecast>;

}  // namespace kestrum_python
