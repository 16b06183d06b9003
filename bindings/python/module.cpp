// The extension module _kestrum: members and tables of members over the interface for C++. What is
// convenient in Python (data frames, keyword arguments, notebooks) is in the package around it.

#include "envelope.h"
#include "selection.h"
#include "tables.h"
#include "words.h"

#include <string>

using namespace kestrum_python;

namespace {

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
