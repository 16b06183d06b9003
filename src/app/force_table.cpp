#include "app/force_table.h"

#include "app/cell_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>
#include <tuple>

namespace kestrum {

namespace {

// A name without capitals, blanks, hyphens and underscores.
std::string Bare(std::string_view name)
{
    std::string bare;
    for (const char c : name) {
        if (c != ' ' && c != '_' && c != '-' && c != '.') {
            bare.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
        }
    }
    return bare;
}

struct Known {
    std::string_view name, ours;
};
constexpr Known kKnown[] = {
    {"member", "member"}, {"beam", "member"},
    {"bar", "member"},    {"case", "case"},
    {"combo", "case"},    {"combination", "case"},
    {"loadcase", "case"}, {"loadcombination", "case"},
    {"lc", "case"},       {"x", "x"},
    {"sectionat", "x"},   {"position", "x"},
    {"station", "x"},     {"n", "n"},
    {"nx", "n"},          {"vy", "vy"},
    {"vz", "vz"},         {"my", "my"},
    {"mz", "mz"},         {"mx", "mx"},
    {"mt", "mx"},
};

struct Unit {
    std::string_view name;
    double scale;
};
constexpr Unit kLengths[] = {{"m", 1}, {"cm", 1e-2}, {"mm", 1e-3}};
constexpr Unit kForces[] = {{"kN", 1}, {"N", 1e-3}, {"MN", 1e3}};
constexpr Unit kMoments[] = {{"kNm", 1},     {"Nm", 1e-3},  {"MNm", 1e3},
                             {"kNcm", 1e-2}, {"Nmm", 1e-6}, {"kNmm", 1e-3}};

struct Force {
    std::string_view name;
    double Station::*force;
    bool moment;
};
constexpr Force kForceColumns[] = {
    {"n", &Station::n, false},  {"vy", &Station::vy, false}, {"vz", &Station::vz, false},
    {"my", &Station::my, true}, {"mz", &Station::mz, true},  {"mx", &Station::mx, true},
};

// "N [kN]" into name and unit; the unit without the signs of its product.
struct Head {
    std::string_view name;
    std::string unit;
    bool marked = false;
};
Head HeadOf(std::string_view text)
{
    Head head{Trimmed(text), {}, false};
    const std::size_t open = head.name.find_first_of("[(");
    if (open == std::string_view::npos ||
        (!head.name.ends_with(']') && !head.name.ends_with(')'))) {
        return head;
    }
    head.marked = true;
    for (const char c : head.name.substr(open + 1, head.name.size() - open - 2)) {
        const bool product = c == '*' || c == '.' || c == ' ' || c == '\xC2' || c == '\xB7';
        head.unit.append(product ? 0 : 1, c);
    }
    head.name = Trimmed(head.name.substr(0, open));
    return head;
}

template <std::size_t N>
std::string ScaleOf(const Head& head, const Unit (&units)[N], double& scale)
{
    if (!head.marked) {
        return {};
    }
    std::string known;
    for (const Unit& unit : units) {
        if (unit.name == head.unit) {
            scale = unit.scale;
            return {};
        }
        known.append(known.empty() ? "" : ", ").append(unit.name);
    }
    return "the unit \"" + head.unit + "\" is not known (" + known + ")";
}

double Station::*Swapped(double Station::*force)
{
    return force == &Station::vy   ? &Station::vz
           : force == &Station::vz ? &Station::vy
           : force == &Station::my ? &Station::mz
           : force == &Station::mz ? &Station::my
                                   : force;
}

}  // namespace

// What the column is, by its name and unit. Returns why it cannot be, or nothing.
std::string ForceColumns::Name(Column& column, const ForceManner& manner) const
{
    const Head head = HeadOf(column.name);
    const auto given = std::find_if(manner.names.begin(), manner.names.end(), [&](const auto& n) {
        return n.first == column.name || n.first == head.name;
    });
    std::string ours = given != manner.names.end() ? Bare(given->second) : std::string{};
    if (ours.empty()) {
        const std::string bare = Bare(head.name);
        const auto* const known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                               [&](const Known& k) { return k.name == bare; });
        // What the user maps himself is not taken from another column as well.
        const bool taken =
            known != std::end(kKnown) &&
            std::any_of(manner.names.begin(), manner.names.end(),
                        [&](const auto& n) { return Bare(n.second) == known->ours; });
        ours = known == std::end(kKnown) || taken ? std::string{} : std::string(known->ours);
    }
    if (ours == "member" || ours == "case") {
        const bool single = saf_ && Bare(head.name) == "loadcase";  // beside the combination
        column.role = ours == "member" ? Role::member
                      : single         ? Role::second_case
                                       : Role::load_case;
        return {};
    }
    if (ours == "x") {
        column.role = Role::x;
        column.force = &Station::x;
        return ScaleOf(head, kLengths, column.scale);
    }
    for (const Force& force : kForceColumns) {
        if (force.name == ours) {
            column.role = Role::number;
            column.force = manner.swapaxes ? Swapped(force.force) : force.force;
            return force.moment ? ScaleOf(head, kMoments, column.scale)
                                : ScaleOf(head, kForces, column.scale);
        }
    }
    return {};
}

std::string ForceColumns::TakeHeader(std::string_view line, const ForceManner& manner)
{
    columns_.clear();
    saf_ = false;
    missing_.clear();
    unused_.clear();
    if (line.starts_with("\xEF\xBB\xBF")) {
        line.remove_prefix(3);
    }
    if (Trimmed(line).empty()) {
        return "expected the names of the columns";
    }
    separator_ = SeparatorOf(line);
    for (CellReader cells(line, separator_); cells.Next();) {
        columns_.push_back({std::string(Trimmed(cells.cell()))});
        saf_ = saf_ || Bare(columns_.back().name) == "resulton";
    }
    const bool tension = manner.tensionpositive || saf_;
    const auto same = [](const Column& a, const Column& b) {
        return a.role != Role::none && a.role == b.role && a.force == b.force;
    };
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        Column& column = columns_[i];
        const std::string refusal = Name(column, manner);
        if (!refusal.empty()) {
            return "column \"" + column.name + "\": " + refusal;
        }
        column.scale *= tension && column.force == &Station::n ? -1 : 1;
        for (std::size_t other = 0; other < i; ++other) {
            if (same(columns_[other], column)) {
                return "columns \"" + columns_[other].name + "\" and \"" + column.name +
                       "\" say the same; --map THEIRS=OURS chooses";
            }
        }
        if (column.role == Role::none) {
            unused_.push_back(column.name);
        } else {
            last_ = i;
        }
    }
    for (const auto& [theirs, ours] : manner.names) {
        const auto is = [&theirs = theirs](const Column& column) {
            return column.name == theirs || HeadOf(column.name).name == theirs;
        };
        const auto at = std::find_if(columns_.begin(), columns_.end(), is);
        if (at == columns_.end() || at->role == Role::none) {
            return at == columns_.end()
                       ? "--map " + theirs + "=" + ours + ": there is no such column"
                       : "--map " + theirs + "=" + ours +
                             ": ours are member, case, x, N, Vy, Vz, My, Mz, Mx";
        }
    }
    const auto has = [this](Role role, double Station::*force) {
        return std::any_of(columns_.begin(), columns_.end(), [&](const Column& column) {
            return column.role == role && column.force == force;
        });
    };
    for (const auto& [role, force, name] :
         {std::tuple(Role::member, static_cast<double Station::*>(nullptr), "member"),
          std::tuple(Role::load_case, static_cast<double Station::*>(nullptr), "case"),
          std::tuple(Role::x, &Station::x, "x")}) {
        if (!has(role, force)) {
            return std::string("no column ") + name +
                   "; --map THEIRS=OURS says which one it is, of " + std::string(Trimmed(line));
        }
    }
    for (const Force& force : kForceColumns) {
        if (!has(Role::number, force.force) && force.force != &Station::mx) {
            std::string name(force.name);
            name[0] = static_cast<char>(name[0] - 'a' + 'A');
            missing_.push_back(std::move(name));
        }
    }
    constexpr std::size_t kAll = 5;
    return missing_.size() == kAll ? "no column of forces (N, Vy, Vz, My, Mz)" : std::string{};
}

// A decimal comma is taken where commas do not separate.
std::string_view ForceColumns::Number(const Column& column, std::string_view cell, double& value)
{
    cell = Trimmed(cell);
    std::array<char, 64> point;
    if (separator_ != ',' && cell.size() < point.size() &&
        cell.find(',') != std::string_view::npos) {
        std::replace_copy(cell.begin(), cell.end(), point.begin(), ',', '.');
        cell = {point.data(), cell.size()};
    }
    const char* begin = cell.data() + (cell.starts_with('+') ? 1 : 0);
    const char* const end = cell.data() + cell.size();
    const auto read = std::from_chars(begin, end, value);
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(value)) {
        if (fault_.empty()) {  // the first of a record is told
            fault_ = column.name + ": \"" + std::string(cell.substr(0, 40)) +
                     (cell.empty() ? "\" is empty" : "\" is no number");
        }
        return fault_;
    }
    return {};
}

std::string_view ForceColumns::Take(const Column& column, std::string_view cell, ForceRow& row)
{
    switch (column.role) {
    case Role::member:
        row.member = Trimmed(cell);
        break;
    case Role::load_case:
        row.load_case = Trimmed(cell).empty() ? row.load_case : Trimmed(cell);
        break;
    case Role::second_case:  // a result of a load case has no combination
        row.load_case = row.load_case.empty() ? Trimmed(cell) : row.load_case;
        break;
    case Role::x:
    case Role::number: {
        double value = 0;
        const std::string_view fault = Number(column, cell, value);
        row.at.*column.force = value * column.scale;
        return fault;
    }
    case Role::none:
        break;
    }
    return {};
}

std::string_view ForceColumns::Parse(std::string_view record, ForceRow& row)
{
    row = {};
    fault_.clear();
    std::string_view fault;
    std::size_t i = 0;
    if (record.find('"') == std::string_view::npos) {  // nearly always
        const char* at = record.data();
        const char* const end = at + record.size();
        for (;; ++i) {
            if (i == columns_.size()) {
                return "more cells than columns";
            }
            const auto length = static_cast<std::size_t>(end - at);
            const void* const found = std::char_traits<char>::find(at, length, separator_);
            const char* const stop = found != nullptr ? static_cast<const char*>(found) : end;
            const Column& column = columns_[i];
            if (column.role != Role::none) {
                const std::string_view said =
                    Take(column, {at, static_cast<std::size_t>(stop - at)}, row);
                fault = fault.empty() ? said : fault;
            }
            if (stop == end) {
                break;
            }
            at = stop + 1;
        }
        ++i;
    } else {
        std::size_t kept = 0;
        CellReader cells(record, separator_);
        for (; cells.Next(); ++i) {
            if (i == columns_.size()) {
                return "more cells than columns";
            }
            const Column& column = columns_[i];
            const bool key = column.role == Role::member || column.role == Role::load_case ||
                             column.role == Role::second_case;
            std::string_view cell = cells.cell();
            if (key && kept < texts_.size()) {
                cell = texts_[kept++] = cell;
            }
            const std::string_view said = Take(column, cell, row);
            fault = fault.empty() ? said : fault;
        }
        fault = cells.fault().empty() ? fault : cells.fault();
    }
    if (fault.empty() && i < columns_.size()) {
        fault = "fewer cells than columns";
    }
    if (fault.empty() && (row.member.empty() || row.load_case.empty())) {
        fault = row.member.empty() ? "no member" : "no case";
    }
    return fault;
}

void ForceColumns::Keys(std::string_view record, std::string_view& member,
                        std::string_view& load_case)
{
    ForceRow row;
    if (record.find('"') != std::string_view::npos) {
        Parse(record, row);
    } else {
        std::size_t from = 0;
        for (std::size_t i = 0; i < columns_.size() && from <= record.size(); ++i) {
            const std::size_t stop = std::min(record.find(separator_, from), record.size());
            const Column& column = columns_[i];
            if (column.role == Role::member || column.role == Role::load_case ||
                column.role == Role::second_case) {
                Take(column, record.substr(from, stop - from), row);
                if (!saf_ && !row.member.empty() && !row.load_case.empty()) {
                    break;
                }
            }
            from = stop + 1;
        }
    }
    member = row.member;
    load_case = row.load_case;
}

}  // namespace kestrum
