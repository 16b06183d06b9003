#pragma once

// The lightest sections for the members of a table.

#include "envelope.h"

namespace kestrum_python {

inline kestrum::Wishes WishesOf(const py::dict& asked, unsigned threads)
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

}  // namespace kestrum_python
