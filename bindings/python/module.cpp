// The extension module _kestrum: members and tables of members over the interface for C++. What is
// convenient in Python (data frames, keyword arguments, notebooks) is in the package around it.

#include <kestrum/kestrum.hpp>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <iterator>
#include <limits>
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

// A text of Python that the library can take: no zero inside, which would end it, and whole letters.
struct Word {
    std::string text;
};

Word WordOf(py::handle value)
{
    const auto refuse = [&](const char* what) {
        const auto shown = py::repr(value).cast<std::string>();
        Raise({KESTRUM_REFUSED, shown + ": " + what, shown, "", 0});
    };
    if (!PyUnicode_Check(value.ptr())) {
        refuse("a text is expected");
    }
    Py_ssize_t size = 0;
    const char* const utf8 = PyUnicode_AsUTF8AndSize(value.ptr(), &size);
    if (utf8 == nullptr) {
        PyErr_Clear();
        refuse("half a letter in a text");
    }
    Word word{std::string(utf8, static_cast<std::size_t>(size))};
    if (word.text.find('\0') != std::string::npos) {
        refuse("a zero in a text");
    }
    return word;
}

std::vector<std::string> TextsOf(const std::vector<Word>& words)
{
    std::vector<std::string> texts;
    for (const Word& word : words) {
        texts.push_back(word.text);
    }
    return texts;
}

}  // namespace

template <> struct pybind11::detail::type_caster<Word> {
    PYBIND11_TYPE_CASTER(Word, const_name("str"));
    bool load(handle from, bool)
    {
        value = WordOf(from);
        return true;
    }
};

namespace {

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

Catalogue Opened(const Word& folder)
{
    return Value(Catalogue::open(folder.text));
}

// Sets inputs that depend on each other; returns the remarks.
std::string SetAll(Member& member, const std::vector<std::pair<Word, Word>>& given)
{
    Member::Settings settings;
    for (const auto& [name, value] : given) {
        settings.emplace_back(name.text, value.text);
    }
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

// Forces as the library takes them: arrays by the names of the columns, member and case as whole
// numbers. None are the members' own loads.
class Acting {
public:
    Acting(std::size_t rows, const py::object& columns)
    {
        if (columns.is_none()) {
            return;
        }
        const py::dict given = columns;
        forces_ = kestrum::Forces{rows,
                                  Column<Places>(given, rows, "member"),
                                  Column<Places>(given, rows, "case"),
                                  Column<Doubles>(given, rows, "x"),
                                  Column<Doubles>(given, rows, "N"),
                                  Column<Doubles>(given, rows, "Vy"),
                                  Column<Doubles>(given, rows, "Vz"),
                                  Column<Doubles>(given, rows, "My"),
                                  Column<Doubles>(given, rows, "Mz"),
                                  Column<Doubles>(given, rows, "Mx")};
    }
    const kestrum::Forces* get() const { return forces_ ? &*forces_ : nullptr; }

private:
    template <class Array>
    const typename Array::value_type* Column(const py::dict& given, std::size_t rows,
                                             const char* name)
    {
        if (!given.contains(name)) {
            return nullptr;
        }
        const auto array = given[name].cast<Array>();
        if (array.ndim() != 1 || static_cast<std::size_t>(array.size()) != rows) {
            throw py::value_error(std::string("column ") + name + " has another length");
        }
        kept_.push_back(array);
        return array.data();
    }

    std::vector<py::array> kept_;  // as long as the library reads them
    std::optional<kestrum::Forces> forces_;
};

// Columns of worst cases.
class WorstColumns {
public:
    explicit WorstColumns(std::size_t rows)
        : status_(Size(rows)), ratio_(Size(rows)), x_(Size(rows)), row_(Size(rows)),
          cases_(Size(rows)), above_(Size(rows)), failed_(Size(rows)), verdict_(rows), check_(rows),
          clause_(rows), message_(rows), notes_(rows)
    {
    }
    void Set(std::size_t i, const kestrum::Worst& worst)
    {
        const auto at = Size(i);
        status_.mutable_at(at) = static_cast<int>(worst.status);
        ratio_.mutable_at(at) = worst.ratio;
        x_.mutable_at(at) = worst.x;
        row_.mutable_at(at) = worst.row;
        cases_.mutable_at(at) = worst.cases;
        above_.mutable_at(at) = worst.above;
        failed_.mutable_at(at) = worst.failed;
        verdict_.Set(i, worst.verdict);
        check_.Set(i, worst.governing);
        clause_.Set(i, worst.clause);
        message_.Set(i, worst.message);
        notes_.Set(i, worst.notes);
    }
    py::dict columns() const
    {
        py::dict columns;
        columns["status"] = status_;
        columns["ir"] = ratio_;
        columns["x"] = x_;
        columns["row"] = row_;
        columns["cases"] = cases_;
        columns["above"] = above_;
        columns["failed"] = failed_;
        columns["verdict"] = verdict_.list();
        columns["check"] = check_.list();
        columns["clause"] = clause_.list();
        columns["message"] = message_.list();
        columns["notes"] = notes_.list();
        return columns;
    }

private:
    static py::ssize_t Size(std::size_t rows) { return static_cast<py::ssize_t>(rows); }

    py::array_t<int> status_;
    py::array_t<double> ratio_, x_;
    py::array_t<std::size_t> row_, cases_, above_, failed_;
    Texts verdict_, check_, clause_, message_, notes_;
};

// Member, column of the members or None, row of the forces or None, and why.
py::list FaultsOf(const std::vector<kestrum::Fault>& faults, std::size_t columns, std::size_t rows)
{
    const auto place = [](std::size_t at, std::size_t none) {
        return at < none ? py::object(py::int_(at)) : py::object(py::none());
    };
    py::list list;
    for (const kestrum::Fault& fault : faults) {
        list.append(py::make_tuple(fault.member, place(fault.column, columns),
                                   place(fault.row, rows), fault.text));
    }
    return list;
}

class EnvelopeOf {
public:
    EnvelopeOf(const Member& base, const Inputs& inputs, std::size_t members, std::size_t rows,
               const py::dict& acting, unsigned basis, unsigned threads)
        : rows_(rows), columns_(inputs.size())
    {
        const Columns columns(inputs, members);
        const Acting forces(rows, acting);
        auto checked = [&] {
            const py::gil_scoped_release free;
            return kestrum::Envelope::check(base, columns.list(), members, *forces.get(),
                                            {static_cast<Basis>(basis), threads});
        }();
        envelope_ = Value(std::move(checked));
    }

    // A row for each member.
    py::dict Worst(unsigned basis) const
    {
        WorstColumns columns(envelope_->members());
        for (std::size_t i = 0; i < envelope_->members(); ++i) {
            columns.Set(i, Value(envelope_->worst(i, static_cast<Basis>(basis))));
        }
        return columns.columns();
    }

    py::list Faults() const { return FaultsOf(envelope_->faults(), columns_, rows_); }

private:
    std::optional<kestrum::Envelope> envelope_;
    std::size_t rows_, columns_;
};

kestrum::Wishes WishesOf(const py::dict& asked, unsigned threads)
{
    kestrum::Wishes wishes;
    wishes.by = static_cast<kestrum::Objective>(asked["by"].cast<int>());
    wishes.basis = static_cast<Basis>(asked["basis"].cast<unsigned>());
    wishes.steels = TextsOf(asked["steels"].cast<std::vector<Word>>());
    wishes.max_ir = asked["max_ir"].cast<double>();
    wishes.max_h = asked["max_h"].cast<double>();
    wishes.max_b = asked["max_b"].cast<double>();
    wishes.top = asked["top"].cast<std::size_t>();
    wishes.threads = threads;
    return wishes;
}

class SelectionOf {
public:
    SelectionOf(const Member& base, const Inputs& inputs, std::size_t members, std::size_t rows,
                const py::object& acting, const std::vector<std::size_t>& group,
                const kestrum::Pool& pool, const py::dict& wishes, unsigned threads)
        : rows_(rows), columns_(inputs.size())
    {
        const Columns columns(inputs, members);
        const Acting forces(rows, acting);
        const kestrum::Wishes asked = WishesOf(wishes, threads);
        auto checked = [&] {
            const py::gil_scoped_release free;
            return kestrum::Selection::check(base, columns.list(), members, forces.get(), pool,
                                             asked, group);
        }();
        selection_ = Value(std::move(checked));
    }

    // A row for each section found, one without a section for a member that has none.
    py::dict Choices() const
    {
        py::dict columns;
        for (const char* const name : kNames) {
            columns[name] = py::list();
        }
        const auto put = [&](std::size_t member, std::size_t rank, const kestrum::Choice* choice,
                             const std::optional<kestrum::Choice>& lighter) {
            const py::object none = py::none();
            const py::float_ nothing(std::numeric_limits<double>::quiet_NaN());
            const py::object values[] = {
                py::int_(member),
                py::int_(rank),
                choice != nullptr ? py::object(py::str(choice->section)) : none,
                choice != nullptr ? py::object(py::str(choice->steel)) : none,
                choice ? py::float_(choice->mass) : nothing,
                choice ? py::float_(choice->h) : nothing,
                choice ? py::float_(choice->b) : nothing,
                choice ? py::float_(choice->surface) : nothing,
                choice ? py::float_(choice->price) : nothing,
                lighter ? py::object(py::str(lighter->section)) : none,
                py::str(lighter ? lighter->why : ""),
                py::str(selection_->message(member))};
            for (std::size_t i = 0; i < std::size(kNames); ++i) {
                columns[kNames[i]].cast<py::list>().append(values[i]);
            }
        };
        for (std::size_t member = 0; member < selection_->members(); ++member) {
            const auto found = selection_->found(member);
            if (found.empty()) {
                put(member, 0, nullptr, std::nullopt);
            }
            for (std::size_t rank = 0; rank < found.size(); ++rank) {
                put(member, rank + 1, &found[rank],
                    rank == 0 ? selection_->lighter(member) : std::nullopt);
            }
        }
        return columns;
    }

    // What the sections give, in the same rows.
    py::dict Worst(unsigned basis) const
    {
        std::vector<kestrum::Worst> list;
        for (std::size_t member = 0; member < selection_->members(); ++member) {
            const std::size_t found = kestrum_selection_found(selection_->get(), member);
            for (std::size_t rank = 0; rank < found; ++rank) {
                list.push_back(Value(selection_->worst(member, rank, static_cast<Basis>(basis))));
            }
            if (found == 0) {
                constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
                list.push_back({kestrum::Status::not_checked, kNone, kNone, rows_, 0, 0, 0, "", "",
                                "", "", ""});
            }
        }
        WorstColumns columns(list.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            columns.Set(i, list[i]);
        }
        return columns.columns();
    }

    py::list Faults() const { return FaultsOf(selection_->faults(), columns_, rows_); }

private:
    static constexpr const char* kNames[] = {"member", "rank",    "section", "steel",
                                             "mass",   "h",       "b",       "surface",
                                             "price",  "lighter", "lighter_fails", "message"};
    std::optional<kestrum::Selection> selection_;
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
             [](const Catalogue& c, const Word& family) { return Value(c.sections(family.text)); });

    py::class_<Member>(m, "Member")
        .def(py::init<const Catalogue&>())
        .def("copy", [](const Member& member) { return Member(member); })
        .def("set", &SetAll)
        .def("number", [](const Member& s, const Word& name) { return Value(s.number(name.text)); })
        .def("text", [](const Member& s, const Word& name) { return Value(s.text(name.text)); })
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
        .def("value", [](const Result& r, const Word& name) { return Value(r.value(name.text)); })
        .def("json", &Result::json)
        .def("panel", [](const Result& r) { return Value(r.panel()); })
        .def("diagram_svg", [](const Result& r, char axis) { return Value(r.diagram_svg(axis)); })
        .def("section_svg", [](const Result& r) { return Value(r.section_svg()); });

    py::class_<TableOf>(m, "Table")
        .def(py::init<const Member&, const Inputs&, std::size_t, unsigned,
                      const std::vector<Word>&, unsigned, bool>())
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

    py::class_<kestrum::Pool>(m, "Pool")
        .def(py::init<const Catalogue&>())
        .def("add", [](kestrum::Pool& p, const Word& word) { Check(p.add(word.text)); })
        .def("range", [](kestrum::Pool& p, const Word& text) { Check(p.range(text.text)); })
        .def("prices", [](kestrum::Pool& p, const Word& table) { Check(p.prices(table.text)); });

    py::class_<SelectionOf>(m, "Selection")
        .def(py::init<const Member&, const Inputs&, std::size_t, std::size_t, const py::object&,
                      const std::vector<std::size_t>&, const kestrum::Pool&, const py::dict&,
                      unsigned>())
        .def("choices", &SelectionOf::Choices)
        .def("worst", &SelectionOf::Worst)
        .def("faults", &SelectionOf::Faults);
}
