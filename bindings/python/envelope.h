#pragma once

// Members under the forces of other programs: the worst case of each.

#include "tables.h"

namespace kestrum_python {

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
inline py::list FaultsOf(const std::vector<kestrum::Fault>& faults, std::size_t columns, std::size_t rows)
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

}  // namespace kestrum_python
