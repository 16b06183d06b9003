// The extension module _kestrum: members and tables of members over the interface for C++. What is
// convenient in Python (data frames, keyword arguments, notebooks) is in the package around it.

#include <kestrum/kestrum.hpp>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace py = pybind11;

namespace {

using kestrum::Basis;
using kestrum::Catalogue;
using kestrum::Error;
using kestrum::Member;
using kestrum::Result;

PyObject* input_error = nullptr;  // kestrum.InputError

[[noreturn]] void Raise(const Error& error)
{
    const py::object type = py::reinterpret_borrow<py::object>(input_error);
    const py::object raised = type(error.text, error.field, error.nearest, error.line);
    PyErr_SetObject(input_error, raised.ptr());
    throw py::error_already_set();
}

void Check(const std::optional<Error>& error)
{
    if (error) {
        Raise(*error);
    }
}

template <class T> T Value(kestrum::Expected<T> expected)
{
    if (!expected) {
        Raise(expected.error());
    }
    return std::move(*expected);
}

Catalogue Opened(const std::string& folder)
{
    return Value(Catalogue::open(folder));
}

// Sets inputs that depend on each other; returns the remarks.
std::string SetAll(Member& member, const Member::Settings& settings)
{
    std::string remarks;
    Check(member.set(settings, &remarks));
    return remarks;
}

// The interpreter is free while the library calculates.
Result Checked(const Member& member, unsigned basis)
{
    const py::gil_scoped_release free;
    return member.check({static_cast<Basis>(basis)});
}

// A column of inputs: numbers, or texts with None for that of the base.
struct Entries {
    std::string name;
    py::array_t<double> numbers;
    std::vector<std::string> texts;
    std::vector<const char*> pointers;
};

Entries EntriesOf(const std::string& name, const py::object& values)
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
        entries.texts.push_back(value.is_none() ? std::string() : value.cast<std::string>());
        entries.pointers.push_back(value.is_none() ? nullptr : entries.texts.back().c_str());
    }
    return entries;
}

class TableOf {
public:
    TableOf(const Member& base, const std::vector<std::pair<std::string, py::object>>& columns,
            std::size_t rows, unsigned basis, const std::vector<std::string>& fields,
            unsigned threads)
        : rows_(rows)
    {
        std::vector<Entries> entries;
        std::vector<kestrum::Column> list;
        entries.reserve(columns.size());
        for (const auto& [name, values] : columns) {
            entries.push_back(EntriesOf(name, values));
            const Entries& last = entries.back();
            const bool texts = !last.pointers.empty();
            if ((texts ? last.pointers.size() : static_cast<std::size_t>(last.numbers.size())) !=
                rows) {
                throw py::value_error("column " + name + " has another length");
            }
            list.push_back(texts ? kestrum::Column(name, last.pointers.data())
                                 : kestrum::Column(name, last.numbers.data()));
        }
        auto checked = [&] {
            const py::gil_scoped_release free;
            return kestrum::Table::check(base, list, rows,
                                         {static_cast<Basis>(basis), fields, threads});
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

py::list ChecksOf(const Result& result)
{
    py::list list;
    for (const kestrum::Check& check : result.checks()) {
        list.append(py::make_tuple(check.check, check.clause, check.load_case, check.place,
                                   check.ratio));
    }
    return list;
}

py::list NotesOf(const Result& result)
{
    py::list list;
    for (const kestrum::Note& note : result.notes()) {
        list.append(py::make_tuple(note.id, note.text));
    }
    return list;
}

py::object FailureOf(const Result& result)
{
    const kestrum::Failure failure = result.failure();
    if (!failure) {
        return py::none();
    }
    return py::make_tuple(failure.stage, failure.cause, failure.quantity, failure.value,
                          failure.limit, failure.unit);
}

}  // namespace

PYBIND11_MODULE(_kestrum, m)
{
    m.attr("version") = kestrum::version();
    m.def("set_input_error", [](const py::object& type) { input_error = type.ptr(); },
          py::keep_alive<0, 1>());

    py::class_<Catalogue>(m, "Catalogue")
        .def_static("builtin", &Catalogue::builtin)
        .def_static("open", &Opened)
        .def("sections",
             [](const Catalogue& c, const std::string& family) { return Value(c.sections(family)); });

    py::class_<Member>(m, "Member")
        .def(py::init<const Catalogue&>())
        .def("copy", [](const Member& member) { return Member(member); })
        .def("set", &SetAll)
        .def("number", [](const Member& s, const std::string& name) { return Value(s.number(name)); })
        .def("text", [](const Member& s, const std::string& name) { return Value(s.text(name)); })
        .def("project", [](const Member& member) { return py::bytes(member.project()); })
        .def("read_project", [](Member& s, const std::string& bytes) { Check(s.read_project(bytes)); })
        .def("check", &Checked);

    py::class_<Result>(m, "Result")
        .def("status", [](const Result& r, unsigned b) { return int(r.status(Basis(b))); })
        .def("ratio", [](const Result& r, unsigned b) { return r.ratio(Basis(b)); })
        .def("verdict", [](const Result& r, unsigned b) { return r.verdict(Basis(b)); })
        .def("governing", [](const Result& r, unsigned b) { return r.governing(Basis(b)); })
        .def("clause", [](const Result& r, unsigned b) { return r.clause(Basis(b)); })
        .def("message", [](const Result& r, unsigned b) { return r.message(Basis(b)); })
        .def("checks", &ChecksOf)
        .def("notes", &NotesOf)
        .def("failure", &FailureOf)
        .def("value", [](const Result& r, const std::string& name) { return Value(r.value(name)); })
        .def("json", &Result::json)
        .def("panel", [](const Result& r) { return Value(r.panel()); })
        .def("diagram_svg", [](const Result& r, char axis) { return Value(r.diagram_svg(axis)); })
        .def("section_svg", [](const Result& r) { return Value(r.section_svg()); });

    py::class_<TableOf>(m, "Table")
        .def(py::init<const Member&, const std::vector<std::pair<std::string, py::object>>&,
                      std::size_t, unsigned, const std::vector<std::string>&, unsigned>())
        .def("statuses", &TableOf::Statuses)
        .def("ratios", &TableOf::Ratios)
        .def("field", &TableOf::Field)
        .def("words", &TableOf::Words)
        .def("first_refused", &TableOf::FirstRefused);
}
