// Kestrum EC3: design of one steel member to EN 1993-1-1, as a library for C++17.
//
//     const auto catalogue = kestrum::Catalogue::builtin();
//     kestrum::Member beam(catalogue);
//     if (auto error = beam.set("section", "IPE 400")) { std::cerr << error->text; }
//     beam.set("l", 7.2);
//     const kestrum::Result result = beam.check();
//     result.ratio();                                // by the rules of the program
//     result.ratio(kestrum::Basis::standard);        // by EN 1993-1-1 as written
//
// Value types over the C interface (kestrum.h), which alone crosses the border of the library:
// names, units, signs and the promises about threads and the floating-point environment stand
// there. What a user may get wrong comes back as a value, `std::optional<Error>` or `Expected<T>`;
// the only exceptions are std::bad_alloc and std::logic_error for a fault of the library itself.
#ifndef KESTRUM_KESTRUM_HPP
#define KESTRUM_KESTRUM_HPP

#include <kestrum/kestrum.h>

#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kestrum {
inline namespace v1 {

enum class Basis : unsigned {
    program = KESTRUM_BASIS_PROGRAM,    // with the listed deviations
    standard = KESTRUM_BASIS_STANDARD,  // EN 1993-1-1 as written
    both = KESTRUM_BASIS_BOTH
};

enum class Status {
    within = KESTRUM_WITHIN,
    above = KESTRUM_ABOVE,
    unstable = KESTRUM_UNSTABLE,
    failed = KESTRUM_FAILED,
    not_checked = KESTRUM_NOT_CHECKED,
    loads_dropped = KESTRUM_LOADS_DROPPED,
    nothing_acts = KESTRUM_NOTHING_ACTS,
    bad_input = KESTRUM_BAD_INPUT
};

struct Error {
    kestrum_code code = KESTRUM_OK;
    std::string text;     // a sentence for the user
    std::string field;    // the name to blame; may be empty
    std::string nearest;  // what may be meant by it; may be empty
    int line = 0;         // of a project file; 0 for none
};

// A value, or why there is none.
template <class T> class Expected {
public:
    Expected(T value) : content_(std::move(value)) {}      // NOLINT(google-explicit-constructor)
    Expected(Error error) : content_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

    explicit operator bool() const { return std::holds_alternative<T>(content_); }
    // Throw std::bad_variant_access for what is not there.
    T& operator*() { return std::get<T>(content_); }
    const T& operator*() const { return std::get<T>(content_); }
    T* operator->() { return &std::get<T>(content_); }
    const T* operator->() const { return &std::get<T>(content_); }
    const Error& error() const { return std::get<Error>(content_); }

private:
    std::variant<T, Error> content_;
};

namespace detail {

template <auto Free> struct Release {
    template <class T> void operator()(T* handle) const { Free(handle); }
};
template <class T, auto Free> using Handle = std::unique_ptr<T, Release<Free>>;
using ErrorHandle = Handle<kestrum_error, kestrum_error_free>;
using TextHandle = Handle<kestrum_text, kestrum_text_free>;

inline Error Taken(kestrum_code code, kestrum_error* error)
{
    const ErrorHandle handle(error);
    if (code == KESTRUM_NO_MEMORY) {
        throw std::bad_alloc();
    }
    if (code == KESTRUM_INTERNAL) {
        throw std::logic_error(std::string("kestrum: ") + kestrum_error_text(error));
    }
    return {code, kestrum_error_text(error), kestrum_error_field(error),
            kestrum_error_nearest(error), kestrum_error_line(error)};
}

// Calls a function that answers through its last arguments but one.
template <class T, auto Free, class Call> Expected<Handle<T, Free>> Answered(Call call)
{
    T* out = nullptr;
    kestrum_error* error = nullptr;
    const kestrum_code code = call(&out, &error);
    Handle<T, Free> handle(out);
    if (code != KESTRUM_OK) {
        return Taken(code, error);
    }
    return handle;
}

template <class Call> Expected<std::string> Text(Call call)
{
    auto text = Answered<kestrum_text, kestrum_text_free>(call);
    if (!text) {
        return text.error();
    }
    return std::string(kestrum_text_data(text->get()), kestrum_text_size(text->get()));
}

template <class Call> std::optional<Error> Done(Call call)
{
    kestrum_error* error = nullptr;
    const kestrum_code code = call(&error);
    return code == KESTRUM_OK ? std::nullopt : std::optional<Error>(Taken(code, error));
}

// Of what cannot be refused.
template <class T> T Sure(Expected<T> made)
{
    if (!made) {
        throw std::logic_error("kestrum: " + made.error().text);
    }
    return std::move(*made);
}

}  // namespace detail

inline std::string version()
{
    return kestrum_version();
}

// Profile tables, materials and setup; copies share them.
class Catalogue {
public:
    // Those inside the library.
    static Catalogue builtin()
    {
        return Catalogue(
            detail::Sure(detail::Answered<kestrum_catalogue, kestrum_catalogue_free>(
                [](auto** out, auto** error) { return kestrum_catalogue_builtin(out, error); })));
    }
    // Those of a folder.
    static Expected<Catalogue> open(const std::string& folder)
    {
        auto opened = detail::Answered<kestrum_catalogue, kestrum_catalogue_free>(
            [&](auto** out, auto** error) {
                return kestrum_catalogue_open(folder.c_str(), out, error);
            });
        if (!opened) {
            return opened.error();
        }
        return Catalogue(std::move(*opened));
    }

    // Names of the sections of a family ("IPE", "4").
    Expected<std::vector<std::string>> sections(const std::string& family) const
    {
        const Expected<std::string> lines = detail::Text([&](auto** out, auto** error) {
            return kestrum_catalogue_sections(get(), family.c_str(), out, error);
        });
        if (!lines) {
            return lines.error();
        }
        std::vector<std::string> names;
        for (std::size_t at = 0, end = 0; (end = lines->find('\n', at)) != std::string::npos;
             at = end + 1) {
            names.push_back(lines->substr(at, end - at));
        }
        return names;
    }

    const kestrum_catalogue* get() const { return handle_.get(); }

private:
    explicit Catalogue(detail::Handle<kestrum_catalogue, kestrum_catalogue_free> handle)
        : handle_(std::move(handle))
    {
    }
    std::shared_ptr<kestrum_catalogue> handle_;
};

// A check that has a ratio.
struct Check {
    std::string check;
    std::string formula;    // by the rules of the program
    std::string clause;     // of EN 1993-1-1 unless it says so
    std::string load_case;  // by the standard
    double place;           // x/L; NaN for a check of the whole member or of a segment
    double ratio, limit;
    int point, segment, segments;  // from 1; 0 for none
};

// A deviation of the program, on the unsafe side, that acts in its result.
struct Note {
    std::string id, text;
    double cost;  // with Options::costs, see Deviation; NaN for none
};

// What the standard's largest ratio loses when one deviation alone is taken by the program's rule.
struct Deviation {
    std::string id, text;
    double cost, without;  // without: the ratio that is left; both NaN where there is none
    bool unsafe;           // some check comes out lower, or is missing
};

struct Failure {
    std::string stage, cause, quantity;
    double value, limit;
    std::string unit;

    explicit operator bool() const { return !stage.empty(); }
};

// What a check has found; copies share it.
class Result {
public:
    explicit Result(kestrum_result* owned) : handle_(owned, kestrum_result_free) {}

    Status status(Basis basis = Basis::program) const
    {
        return static_cast<Status>(kestrum_result_status(get(), static_cast<unsigned>(basis)));
    }
    // NaN where there is none.
    double ratio(Basis basis = Basis::program) const
    {
        return kestrum_result_ratio(get(), static_cast<unsigned>(basis));
    }
    std::string verdict(Basis basis = Basis::program) const
    {
        return kestrum_result_verdict(get(), static_cast<unsigned>(basis));
    }
    std::string governing(Basis basis = Basis::program) const
    {
        return kestrum_result_governing(get(), static_cast<unsigned>(basis));
    }
    std::string clause(Basis basis = Basis::program) const
    {
        return kestrum_result_clause(get(), static_cast<unsigned>(basis));
    }
    std::string message(Basis basis = Basis::program) const
    {
        return kestrum_result_message(get(), static_cast<unsigned>(basis));
    }
    Failure failure() const
    {
        const kestrum_failure f = kestrum_result_failure(get());
        return {f.stage, f.cause, f.quantity, f.value, f.limit, f.unit};
    }
    std::vector<Check> checks(Basis basis = Basis::program) const
    {
        const auto which = static_cast<unsigned>(basis);
        std::vector<Check> list;
        kestrum_check c{};
        for (std::size_t i = 0; i < kestrum_result_checks(get(), which); ++i) {
            if (kestrum_result_check(get(), which, i, &c, nullptr) == KESTRUM_OK) {
                list.push_back({c.check, c.formula, c.clause, c.load_case, c.place, c.ratio,
                                c.limit, c.point, c.segment, c.segments});
            }
        }
        return list;
    }
    std::vector<Note> notes() const
    {
        std::vector<Note> list;
        kestrum_note n{};
        for (std::size_t i = 0; i < kestrum_result_notes(get()); ++i) {
            if (kestrum_result_note(get(), i, &n, nullptr) == KESTRUM_OK) {
                list.push_back({n.id, n.text, n.cost});
            }
        }
        return list;
    }
    // With Options::costs, the largest cost first.
    std::vector<Deviation> deviations() const
    {
        std::vector<Deviation> list;
        kestrum_deviation d{};
        for (std::size_t i = 0; i < kestrum_result_deviations(get()); ++i) {
            if (kestrum_result_deviation(get(), i, &d, nullptr) == KESTRUM_OK) {
                list.push_back({d.id, d.text, d.cost, d.without, d.unsafe != 0});
            }
        }
        return list;
    }
    // An input or intermediate value by its name: "kyy", "mcr".
    Expected<double> value(const std::string& name) const
    {
        double number = 0;
        const std::optional<Error> error = detail::Done([&](auto** e) {
            return kestrum_result_number(get(), name.c_str(), &number, e);
        });
        if (error) {
            return *error;
        }
        return number;
    }
    std::string json() const
    {
        return detail::Sure(detail::Text(
            [&](auto** out, auto** e) { return kestrum_result_json(get(), out, e); }));
    }
    // Of a calculation that did not stop.
    Expected<std::string> panel() const
    {
        return detail::Text(
            [&](auto** out, auto** e) { return kestrum_result_panel(get(), out, e); });
    }
    Expected<std::string> diagram_svg(char axis) const
    {
        return detail::Text([&](auto** out, auto** e) {
            return kestrum_result_diagram_svg(get(), axis, out, e);
        });
    }
    Expected<std::string> section_svg() const
    {
        return detail::Text(
            [&](auto** out, auto** e) { return kestrum_result_section_svg(get(), out, e); });
    }

    const kestrum_result* get() const { return handle_.get(); }

private:
    std::shared_ptr<kestrum_result> handle_;
};

struct Options {
    Basis basis = Basis::both;
    bool costs = false;  // of the deviations; with both bases, takes many calculations
};

// Inputs of a member; copies are independent.
class Member {
public:
    explicit Member(const Catalogue& catalogue)
        : handle_(detail::Sure(detail::Answered<kestrum_member, kestrum_member_free>(
              [&](auto** out, auto** e) { return kestrum_member_new(catalogue.get(), out, e); })))
    {
    }
    Member(const Member& other)
        : handle_(detail::Sure(detail::Answered<kestrum_member, kestrum_member_free>(
              [&](auto** out, auto** e) { return kestrum_member_copy(other.get(), out, e); })))
    {
    }
    Member& operator=(const Member& other)
    {
        Member copy(other);
        handle_.swap(copy.handle_);
        return *this;
    }
    Member(Member&&) noexcept = default;
    Member& operator=(Member&&) noexcept = default;
    ~Member() = default;

    // Nothing, or why the value is refused; the member is then as it was.
    std::optional<Error> set(const std::string& name, const std::string& value)
    {
        return detail::Done([&](auto** e) {
            return kestrum_member_set(handle_.get(), name.c_str(), value.c_str(), e);
        });
    }
    std::optional<Error> set(const std::string& name, const char* value)
    {
        return set(name, std::string(value));
    }
    std::optional<Error> set(const std::string& name, double value)
    {
        return detail::Done([&](auto** e) {
            return kestrum_member_set_number(handle_.get(), name.c_str(), value, e);
        });
    }
    // Inputs that depend on each other, in any order. `remarks`, where it is not null, takes what
    // is worth a word though it was set, a line each.
    using Settings = std::vector<std::pair<std::string, std::string>>;
    std::optional<Error> set(const Settings& settings, std::string* remarks = nullptr)
    {
        std::vector<kestrum_setting> list;
        list.reserve(settings.size());
        for (const auto& [name, value] : settings) {
            list.push_back({name.c_str(), value.c_str()});
        }
        kestrum_text* words = nullptr;
        std::optional<Error> error = detail::Done([&](auto** e) {
            return kestrum_member_set_all(handle_.get(), list.data(), list.size(),
                                          remarks == nullptr ? nullptr : &words, e);
        });
        const detail::TextHandle kept(words);
        if (remarks != nullptr) {
            *remarks = kestrum_text_data(words);
        }
        return error;
    }

    Expected<double> number(const std::string& name) const
    {
        double value = 0;
        const std::optional<Error> error = detail::Done([&](auto** e) {
            return kestrum_member_number(get(), name.c_str(), &value, e);
        });
        if (error) {
            return *error;
        }
        return value;
    }
    // Sections, steels and choices by name.
    Expected<std::string> text(const std::string& name) const
    {
        return detail::Text([&](auto** out, auto** e) {
            return kestrum_member_text(get(), name.c_str(), out, e);
        });
    }

    // The bytes of a project file. Reading replaces the whole member, or nothing.
    std::optional<Error> read_project(std::string_view bytes)
    {
        return detail::Done([&](auto** e) {
            return kestrum_member_read_project(handle_.get(), bytes.empty() ? "" : bytes.data(),
                                               bytes.size(), e);
        });
    }
    std::string project() const
    {
        return detail::Sure(detail::Text(
            [&](auto** out, auto** e) { return kestrum_member_project(get(), out, e); }));
    }

    Result check(Options options = {}) const
    {
        const bool costs = options.costs && options.basis == Basis::both;
        const unsigned what = static_cast<unsigned>(options.basis) | (costs ? unsigned{KESTRUM_COSTS} : 0U);
        return Result(
            detail::Sure(detail::Answered<kestrum_result, kestrum_result_free>(
                             [&](auto** out, auto** e) {
                                 return kestrum_member_check(get(), what, out, e);
                             }))
                .release());
    }

    const kestrum_member* get() const { return handle_.get(); }

private:
    detail::Handle<kestrum_member, kestrum_member_free> handle_;
};

// An input of many members: `rows` numbers, NaN for that of the base, or as many texts, null for it.
struct Column {
    Column(std::string n, const std::vector<double>& v) : name(std::move(n)), numbers(v.data()) {}
    Column(std::string n, const double* v) : name(std::move(n)), numbers(v) {}
    Column(std::string n, const char* const* v) : name(std::move(n)), texts(v) {}

    std::string name;
    const double* numbers = nullptr;  // not owned
    const char* const* texts = nullptr;
};

namespace detail {

inline std::vector<kestrum_column> Listed(const std::vector<Column>& columns)
{
    std::vector<kestrum_column> list;
    for (const Column& column : columns) {
        list.push_back({column.name.c_str(), column.numbers, column.texts});
    }
    return list;
}

}  // namespace detail

struct TableOptions {
    Basis basis = Basis::both;
    std::vector<std::string> fields = {};  // values to keep
    unsigned threads = 0;                  // 0: all cores
    bool notes = false;                    // which deviations act, at some ten times the time
};

// Many members, a row each; copies share the answers.
class Table {
public:
    // Fails for a name that is none; a row that is refused is answered and the others calculated.
    static Expected<Table> check(const Member& base, const std::vector<Column>& columns,
                                 std::size_t rows, const TableOptions& options = {})
    {
        const std::vector<kestrum_column> list = detail::Listed(columns);
        std::vector<const char*> fields;
        for (const std::string& field : options.fields) {
            fields.push_back(field.c_str());
        }
        auto table = detail::Answered<kestrum_table, kestrum_table_free>([&](auto** out, auto** e) {
            const unsigned basis =
                static_cast<unsigned>(options.basis) |
                (options.notes ? static_cast<unsigned>(KESTRUM_COSTS) : 0U);
            return kestrum_table_check(base.get(), list.data(), list.size(), rows, basis,
                                       fields.data(), fields.size(), options.threads, out, e);
        });
        if (!table) {
            return table.error();
        }
        return Table(std::move(*table), columns.size());
    }

    std::size_t rows() const { return kestrum_table_rows(get()); }
    // Of a row and of a basis that was asked for.
    Status status(std::size_t row, Basis basis = Basis::program) const
    {
        return static_cast<Status>(
            kestrum_table_statuses(get(), static_cast<unsigned>(basis))[row]);
    }
    double ratio(std::size_t row, Basis basis = Basis::program) const
    {
        return kestrum_table_ratios(get(), static_cast<unsigned>(basis))[row];
    }
    const char* words(std::size_t row, kestrum_words which, Basis basis = Basis::program) const
    {
        return kestrum_table_words(get(), row, static_cast<unsigned>(basis), which);
    }
    // The values of a field by its place among those asked for.
    const double* numbers(std::size_t field) const { return kestrum_table_numbers(get(), field); }
    // The column whose input is refused.
    std::optional<std::size_t> refused(std::size_t row) const
    {
        const std::size_t column = kestrum_table_refused(get(), row);
        return column < columns_ ? std::optional<std::size_t>(column) : std::nullopt;
    }

    const kestrum_table* get() const { return handle_.get(); }

private:
    Table(detail::Handle<kestrum_table, kestrum_table_free> handle, std::size_t columns)
        : handle_(std::move(handle)), columns_(columns)
    {
    }
    std::shared_ptr<kestrum_table> handle_;
    std::size_t columns_;
};

// Stations of members under cases, as columns; see kestrum_forces for units and signs.
using Forces = kestrum_forces;

// The worst case of a member in one basis.
struct Worst {
    Status status;
    double ratio;  // NEd/Ncr of an unstable member; NaN where there is none
    double x;      // m; NaN for a check of the whole member
    std::size_t row;                   // of the forces, the first of the case; their number for none
    std::size_t cases, above, failed;  // number of cases, of those above the limit, without a ratio
    std::string verdict, governing, clause, message, notes;
};

// A member that cannot be calculated, or stations that do not run from end to end.
struct Fault {
    std::size_t member;
    std::size_t column;  // the input that is refused; their number for none
    std::size_t row;     // of the forces; their number for none
    std::string text;
};

namespace detail {

inline Worst Taken(const kestrum_worst& w)
{
    return {static_cast<Status>(w.status),
            w.ratio,
            w.x,
            w.row,
            w.cases,
            w.above,
            w.failed,
            w.verdict,
            w.governing,
            w.clause,
            w.message,
            w.notes};
}

// `count` and `at` are functions of the handle.
template <class T, class Count, class At> std::vector<Fault> Faults(T* handle, Count count, At at)
{
    std::vector<Fault> list;
    kestrum_fault f{};
    for (std::size_t i = 0; i < count(handle); ++i) {
        if (at(handle, i, &f, nullptr) == KESTRUM_OK) {
            list.push_back({f.member, f.column, f.row, f.text});
        }
    }
    return list;
}

}  // namespace detail

struct EnvelopeOptions {
    Basis basis = Basis::both;
    unsigned threads = 0;  // 0: all cores
};

// Many members under internal forces that another program has found; copies share the answers.
class Envelope {
public:
    // Members are columns as in Table::check. Fails for a name that is none and for a member that
    // is none.
    static Expected<Envelope> check(const Member& base, const std::vector<Column>& columns,
                                    std::size_t members, const Forces& forces,
                                    const EnvelopeOptions& options = {})
    {
        const std::vector<kestrum_column> list = detail::Listed(columns);
        auto made = detail::Answered<kestrum_envelope, kestrum_envelope_free>(
            [&](auto** out, auto** e) {
                return kestrum_envelope_check(base.get(), list.data(), list.size(), members,
                                              &forces, static_cast<unsigned>(options.basis),
                                              options.threads, out, e);
            });
        if (!made) {
            return made.error();
        }
        return Envelope(std::move(*made));
    }
    // One member.
    static Expected<Envelope> check(const Member& member, const Forces& forces,
                                    const EnvelopeOptions& options = {})
    {
        return check(member, {}, 1, forces, options);
    }

    std::size_t members() const { return kestrum_envelope_members(get()); }
    // Of a basis that was asked for.
    Expected<Worst> worst(std::size_t member, Basis basis = Basis::program) const
    {
        kestrum_worst w{};
        const std::optional<Error> error = detail::Done([&](auto** e) {
            return kestrum_envelope_worst(get(), member, static_cast<unsigned>(basis), &w, e);
        });
        if (error) {
            return *error;
        }
        return detail::Taken(w);
    }
    // The first thousand, those of the members first.
    std::vector<Fault> faults() const
    {
        return detail::Faults(get(), kestrum_envelope_faults, kestrum_envelope_fault);
    }

    const kestrum_envelope* get() const { return handle_.get(); }

private:
    explicit Envelope(detail::Handle<kestrum_envelope, kestrum_envelope_free> handle)
        : handle_(std::move(handle))
    {
    }
    std::shared_ptr<kestrum_envelope> handle_;
};

// Sections to choose from; kestrum_pool_new says which words there are.
class Pool {
public:
    explicit Pool(const Catalogue& catalogue)
        : handle_(detail::Sure(detail::Answered<kestrum_pool, kestrum_pool_free>(
              [&](auto** out, auto** e) { return kestrum_pool_new(catalogue.get(), out, e); })))
    {
    }

    // Nothing, or why the word is refused; the pool is then as it was.
    std::optional<Error> add(const std::string& word)
    {
        return detail::Done(
            [&](auto** e) { return kestrum_pool_add(handle_.get(), word.c_str(), e); });
    }
    std::optional<Error> range(const std::string& range)
    {
        return detail::Done(
            [&](auto** e) { return kestrum_pool_range(handle_.get(), range.c_str(), e); });
    }
    std::optional<Error> prices(const std::string& table)
    {
        return detail::Done(
            [&](auto** e) { return kestrum_pool_prices(handle_.get(), table.c_str(), e); });
    }

    const kestrum_pool* get() const { return handle_.get(); }

private:
    detail::Handle<kestrum_pool, kestrum_pool_free> handle_;
};

// What a section is chosen by, the smallest first.
enum class Objective {
    mass = KESTRUM_BY_MASS,
    depth = KESTRUM_BY_DEPTH,
    price = KESTRUM_BY_PRICE,
    surface = KESTRUM_BY_SURFACE
};

struct Wishes {
    Objective by = Objective::mass;
    Basis basis = Basis::both;             // within limits in each of these
    std::vector<std::string> steels = {};  // grades to choose from; none for that of the member
    double max_ir = 0;                     // 0 for the limit of the member alone
    double max_h = 0, max_b = 0;           // mm, over all; 0 for none
    std::size_t top = 1;                   // how many are wanted
    unsigned threads = 0;                  // 0: all cores
};

// A section with its figures.
struct Choice {
    std::string section, steel;
    std::string why;                   // "ratio 0.931 (My,Ed/My,Rd, 6.2.5)"
    double mass, h, b, surface;        // kg/m, mm over all, m2/m
    double price;                      // for a metre; NaN for none
};

// The lightest section that passes, of each member or each group; copies share the answers.
class Selection {
public:
    // Members are columns as in Table::check, under `forces` or, with null, their own loads.
    // Members with the same number in `group` get one section; empty: each its own.
    static Expected<Selection> check(const Member& base, const std::vector<Column>& columns,
                                     std::size_t members, const Forces* forces, const Pool& pool,
                                     const Wishes& wishes = {},
                                     const std::vector<std::size_t>& group = {})
    {
        if (!group.empty() && group.size() != members) {
            return Error{KESTRUM_REFUSED, "group: a number for each member is expected", "group",
                         "", 0};
        }
        const std::vector<kestrum_column> list = detail::Listed(columns);
        std::vector<const char*> steels;
        for (const std::string& steel : wishes.steels) {
            steels.push_back(steel.c_str());
        }
        const kestrum_wishes asked{static_cast<unsigned>(wishes.by),
                                   static_cast<unsigned>(wishes.basis),
                                   wishes.max_ir,
                                   wishes.max_h,
                                   wishes.max_b,
                                   wishes.top,
                                   steels.data(),
                                   steels.size()};
        auto made = detail::Answered<kestrum_selection, kestrum_selection_free>(
            [&](auto** out, auto** e) {
                return kestrum_select(base.get(), list.data(), list.size(), members, forces,
                                      group.empty() ? nullptr : group.data(), pool.get(), &asked,
                                      wishes.threads, out, e);
            });
        if (!made) {
            return made.error();
        }
        return Selection(std::move(*made));
    }
    // One member under its own loads.
    static Expected<Selection> check(const Member& member, const Pool& pool,
                                     const Wishes& wishes = {})
    {
        return check(member, {}, 1, nullptr, pool, wishes);
    }

    std::size_t members() const { return kestrum_selection_members(get()); }
    // The sections that pass, the lightest first, at most Wishes::top.
    std::vector<Choice> found(std::size_t member) const
    {
        std::vector<Choice> list;
        kestrum_choice c{};
        for (std::size_t i = 0; i < kestrum_selection_found(get(), member); ++i) {
            if (kestrum_selection_choice(get(), member, i, &c, nullptr) == KESTRUM_OK) {
                list.push_back(Taken(c));
            }
        }
        return list;
    }
    // What such a section gives, in a basis that was asked for.
    Expected<Worst> worst(std::size_t member, std::size_t rank, Basis basis = Basis::program) const
    {
        kestrum_worst w{};
        const std::optional<Error> error = detail::Done([&](auto** e) {
            return kestrum_selection_worst(get(), member, rank, static_cast<unsigned>(basis), &w,
                                           e);
        });
        if (error) {
            return *error;
        }
        return detail::Taken(w);
    }
    // The next lighter section, which fails.
    std::optional<Choice> lighter(std::size_t member) const
    {
        kestrum_choice c{};
        if (kestrum_selection_lighter(get(), member, &c, nullptr) != KESTRUM_OK) {
            return std::nullopt;
        }
        return Taken(c);
    }
    // Why there is no section.
    std::string message(std::size_t member) const
    {
        return kestrum_selection_message(get(), member);
    }
    std::vector<Fault> faults() const
    {
        return detail::Faults(get(), kestrum_selection_faults, kestrum_selection_fault);
    }

    const kestrum_selection* get() const { return handle_.get(); }

private:
    explicit Selection(detail::Handle<kestrum_selection, kestrum_selection_free> handle)
        : handle_(std::move(handle))
    {
    }
    static Choice Taken(const kestrum_choice& c)
    {
        return {c.section, c.steel, c.why, c.mass, c.h, c.b, c.surface, c.price};
    }
    std::shared_ptr<kestrum_selection> handle_;
};

}  // namespace v1
}  // namespace kestrum

#endif
