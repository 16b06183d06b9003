#pragma once

// Texts, errors and answers between Python and the interface for C++.

#include <kestrum/kestrum.hpp>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kestrum_python {

namespace py = pybind11;

using kestrum::Basis;
using kestrum::Catalogue;
using kestrum::Error;
using kestrum::Member;
using kestrum::Result;

inline PyObject* input_error = nullptr;  // kestrum.InputError

[[noreturn]] inline void Raise(const Error& error)
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

inline Word WordOf(py::handle value)
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

inline std::vector<std::string> TextsOf(const std::vector<Word>& words)
{
    std::vector<std::string> texts;
    for (const Word& word : words) {
        texts.push_back(word.text);
    }
    return texts;
}

}  // namespace kestrum_python

template <> struct pybind11::detail::type_caster<kestrum_python::Word> {
    PYBIND11_TYPE_CASTER(kestrum_python::Word, const_name("str"));
    bool load(handle from, bool)
    {
        value = kestrum_python::WordOf(from);
        return true;
    }
};

namespace kestrum_python {

inline void Check(const std::optional<Error>& error)
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

inline Catalogue Opened(const Word& folder)
{
    return Value(Catalogue::open(folder.text));
}

// Sets inputs that depend on each other; returns the remarks.
inline std::string SetAll(Member& member, const std::vector<std::pair<Word, Word>>& given)
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
inline Result Checked(const Member& member, unsigned basis, bool costs)
{
    const py::gil_scoped_release free;
    return member.check({static_cast<Basis>(basis), costs});
}

}  // namespace kestrum_python
