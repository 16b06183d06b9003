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
Result Checked(const Member& member, unsigned basis, bool costs)
{
    const py::gil_scoped_release free;
    return member.check({static_cast<Basis>(basis), costs});
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

using Inputs = std::vector<std::pair<std::string, py::object>>;

// Columns of inputs as the library takes them, and the entries that they point to.
class Columns {
public:
    Columns(const Inputs& inputs, std::size_t rows)
    {
        entries_.reserve(inputs.size());  // so that no column moves
        for (const auto& [name, values] : inputs) {
            entries_.push_back(EntriesOf(name, values));
            const Entries& last = entries_.back();
            const bool texts = !last.pointers.empty();
            if ((texts ? last.pointers.size() : static_cast<std::size_t>(last.numbers.size())) !=
                rows) {
                throw py::value_error("column " + name + " has another length");
            }
            list_.push_back(texts ? kestrum::Column(name, last.pointers.data())
                                  : kestrum::Column(name, last.numbers.data()));
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
            const std::vector<std::string>& fields, unsigned threads)
        : rows_(rows)
    {
        const Columns columns(inputs, rows);
        auto checked = [&] {
            const py::gil_scoped_release free;
            return kestrum::Table::check(base, columns.list(), rows,
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

using Doubles = py::array_t<double, py::array::c_style | py::array::forcecast>;
using Places = py::array_t<std::size_t, py::array::c_style | py::array::forcecast>;

class EnvelopeOf {
public:
    // Forces are arrays by the names of the columns; member and case are whole numbers.
    EnvelopeOf(const Member& base, const Inputs& inputs, std::size_t members, std::size_t rows,
               const py::dict& acting, unsigned basis, unsigned threads)
        : rows_(rows), columns_(inputs.size())
    {
        const Columns columns(inputs, members);
        std::vector<py::array> kept;  // as long as the library reads them
        const auto column = [&](const char* name, auto type) {
            using Array = decltype(type);
            using Entry = typename Array::value_type;
            if (!acting.contains(name)) {
                return static_cast<const Entry*>(nullptr);
            }
            const auto array = acting[name].cast<Array>();
            if (array.ndim() != 1 || static_cast<std::size_t>(array.size()) != rows) {
                throw py::value_error(std::string("column ") + name + " has another length");
            }
            kept.push_back(array);
            return array.data();
        };
        const kestrum::Forces forces{rows,
                                     column("member", Places()),
                                     column("case", Places()),
                                     column("x", Doubles()),
                                     column("N", Doubles()),
                                     column("Vy", Doubles()),
                                     column("Vz", Doubles()),
                                     column("My", Doubles()),
                                     column("Mz", Doubles()),
                                     column("Mx", Doubles())};
        auto checked = [&] {
            const py::gil_scoped_release free;
            return kestrum::Envelope::check(base, columns.list(), members, forces,
                                            {static_cast<Basis>(basis), threads});
        }();
        envelope_ = Value(std::move(checked));
    }

    // Columns of the worst cases, a row for each member.
    py::dict Worst(unsigned basis) const
    {
        const std::size_t members = envelope_->members();
        const auto size = static_cast<py::ssize_t>(members);
        py::array_t<int> status(size);
        py::array_t<double> ratio(size), x(size);
        py::array_t<std::size_t> row(size), cases(size), above(size), failed(size);
        Texts verdict(members), check(members), clause(members), message(members), notes(members);
        for (std::size_t i = 0; i < members; ++i) {
            const kestrum::Worst worst = Value(envelope_->worst(i, static_cast<Basis>(basis)));
            const auto at = static_cast<py::ssize_t>(i);
            status.mutable_at(at) = static_cast<int>(worst.status);
            ratio.mutable_at(at) = worst.ratio;
            x.mutable_at(at) = worst.x;
            row.mutable_at(at) = worst.row;
            cases.mutable_at(at) = worst.cases;
            above.mutable_at(at) = worst.above;
            failed.mutable_at(at) = worst.failed;
            verdict.Set(i, worst.verdict);
            check.Set(i, worst.governing);
            clause.Set(i, worst.clause);
            message.Set(i, worst.message);
            notes.Set(i, worst.notes);
        }
        py::dict columns;
        columns["status"] = status;
        columns["ir"] = ratio;
        columns["x"] = x;
        columns["row"] = row;
        columns["cases"] = cases;
        columns["above"] = above;
        columns["failed"] = failed;
        columns["verdict"] = verdict.list();
        columns["check"] = check.list();
        columns["clause"] = clause.list();
        columns["message"] = message.list();
        columns["notes"] = notes.list();
        return columns;
    }

    // Member, column of the members or None, row of the forces or None, and why.
    py::list Faults() const
    {
        const auto place = [](std::size_t at, std::size_t none) {
            return at < none ? py::object(py::int_(at)) : py::object(py::none());
        };
        py::list list;
        for (const kestrum::Fault& fault : envelope_->faults()) {
            list.append(py::make_tuple(fault.member, place(fault.column, columns_),
                                       place(fault.row, rows_), fault.text));
        }
        return list;
    }

private:
    std::optional<kestrum::Envelope> envelope_;
    std::size_t rows_, columns_;
};

py::list ChecksOf(const Result& result, unsigned basis)
{
    py::list list;
    for (const kestrum::Check& check : result.checks(Basis(basis))) {
        list.append(py::make_tuple(check.check, check.formula, check.clause, check.load_case,
                                   check.place, check.ratio, check.limit, check.point,
                                   check.segment, check.segments));
    }
    return list;
}

py::list NotesOf(const Result& result)
{
    py::list list;
    for (const kestrum::Note& note : result.notes()) {
        list.append(py::make_tuple(note.id, note.text, note.cost));
    }
    return list;
}

py::list DeviationsOf(const Result& result)
{
    py::list list;
    for (const kestrum::Deviation& at : result.deviations()) {
        list.append(py::make_tuple(at.id, at.text, at.cost, at.without, at.unsafe));
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
        .def("deviations", &DeviationsOf)
        .def("failure", &FailureOf)
        .def("value", [](const Result& r, const std::string& name) { return Value(r.value(name)); })
        .def("json", &Result::json)
        .def("panel", [](const Result& r) { return Value(r.panel()); })
        .def("diagram_svg", [](const Result& r, char axis) { return Value(r.diagram_svg(axis)); })
        .def("section_svg", [](const Result& r) { return Value(r.section_svg()); });

    py::class_<TableOf>(m, "Table")
        .def(py::init<const Member&, const Inputs&, std::size_t, unsigned,
                      const std::vector<std::string>&, unsigned>())
        .def("statuses", &TableOf::Statuses)
        .def("ratios", &TableOf::Ratios)
        .def("field", &TableOf::Field)
        .def("words", &TableOf::Words)
        .def("first_refused", &TableOf::FirstRefused);

    py::class_<EnvelopeOf>(m, "Envelope")
        .def(py::init<const Member&, const Inputs&, std::size_t, std::size_t, const py::dict&,
                      unsigned, unsigned>())
        .def("worst", &EnvelopeOf::Worst)
        .def("faults", &EnvelopeOf::Faults);
}
