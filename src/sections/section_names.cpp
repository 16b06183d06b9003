#include "sections/section_names.h"

#include "sections/family_table.h"
#include "sections/read_profiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

namespace kestrum {

namespace {

constexpr std::size_t kNearest = 3;

char Capital(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// "HEA200" is also "HE200A".
std::string EuropeanName(const std::string& prefix, const std::string& key)
{
    const bool wide = prefix == "HEA" || prefix == "HEB" || prefix == "HEM";
    return wide ? "HE" + key + prefix.back() : std::string{};
}

// The key of a section with two equal sides, whose list has one of them: "100x5" is also
// "100x100x5".
std::string WholeKey(Table table, const std::string& key)
{
    const bool square = table == Table::shs || table == Table::cfshs || table == Table::l1;
    return square ? key.substr(0, key.find('X')) + "X" + key : std::string{};
}

std::string_view SquarePrefix(Table table)
{
    return table == Table::shs ? "SHS" : table == Table::cfshs ? "CFSHS" : "";
}

void AddNames(const Library& library, Table table, int row, std::vector<NamedRow>& names)
{
    const std::string prefix = CompactName(ShapeOf(table).prefix);  // "IPE A" has a blank
    const std::string key = SectionKey(RowKey(library, table, row));
    const std::string whole = WholeKey(table, key);
    const auto add = [&](const std::string& name) {
        names.push_back({name, table, static_cast<i16>(row)});
    };
    add(prefix + key);
    if (const std::string name = EuropeanName(prefix, key); !name.empty()) {
        add(name);
    }
    if (!whole.empty()) {
        add(prefix + whole);
    }
    if (const std::string square(SquarePrefix(table)); !square.empty()) {
        add(square + key);
        add(square + whole);
    }
}

// Each row under the name of its list and those in common use.
const std::vector<NamedRow>& RowNames(const Library& library)
{
    NamedRows& names = *library.rownames;
    std::call_once(names.made, [&] {
        names.rows.clear();  // of an attempt that failed
        for (std::size_t i = 0; i < kTables; ++i) {
            const Table table = static_cast<Table>(i);
            for (int row = 0; row < RowCount(table); ++row) {
                AddNames(library, table, row, names.rows);
            }
        }
        std::stable_sort(names.rows.begin(), names.rows.end(),
                         [](const NamedRow& a, const NamedRow& b) { return a.name < b.name; });
    });
    return names.rows;
}

bool IsStiffener(Table table)
{
    const FamilyTraits* const info = FindFamily(FamilyOfTable(table).family);
    return info != nullptr && info->input == SectionInput::stiffener;
}

// Letters in which two names differ, counted so far that a size is told from its neighbour.
std::size_t Steps(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> above(b.size() + 1), row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        above[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min(
                {above[j] + 1, row[j - 1] + 1, above[j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U)});
        }
        std::swap(above, row);
    }
    return above[b.size()];
}

// Whether the name belongs to the family: 3 its caption, 2 a series or table, 1 its short name.
int Rank(const FamilyTraits& info, const std::string& name, int& series)
{
    series = 0;
    const std::string caption = CompactName(FamilyName(info.id));
    if (caption == name || caption.substr(0, caption.find('(')) == name) {
        return 3;
    }
    for (std::size_t i = 0; i < info.tables.size(); ++i) {
        const TableShape& shape = ShapeOf(info.tables[i]);
        const std::string file = CompactName(shape.file.substr(0, shape.file.find('.')));
        const bool whole = info.input != SectionInput::stiffener && !shape.prefix.empty();
        const bool alone = info.input == SectionInput::series && shape.prefix == name;
        if (whole && (alone || file == name)) {
            series = info.input == SectionInput::series ? static_cast<int>(i) + 1 : 0;
            return 2;
        }
    }
    return CompactName(info.text) == name ? 1 : 0;
}

}  // namespace

std::string CompactName(std::string_view name)
{
    std::string compact;
    for (const char c : name) {
        if (c != ' ' && c != '-' && c != '_' && c != '&') {
            compact.push_back(Capital(c));
        }
    }
    return compact;
}

std::string SectionKey(std::string_view name)
{
    std::string compact = CompactName(name);
    for (const std::string_view sign : {"/", "*", "\xC3\x97"}) {
        for (std::size_t at = 0; (at = compact.find(sign, at)) != std::string::npos; ++at) {
            compact.replace(at, sign.size(), "X");
        }
    }
    std::replace(compact.begin(), compact.end(), ',', '.');
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    for (std::size_t at = 0; (at = compact.find('.', at)) != std::string::npos; ++at) {
        std::size_t end = at + 1;
        while (end < compact.size() && digit(compact[end])) {
            ++end;
        }
        std::size_t kept = end;
        while (kept > at + 1 && compact[kept - 1] == '0') {
            --kept;
        }
        kept -= kept == at + 1 ? 1 : 0;  // the point too
        compact.erase(kept, end - kept);
    }
    return compact;
}

std::optional<NamedTube> TubeOfName(std::string_view name)
{
    constexpr std::string_view kTube = "CHS";
    const std::string key = SectionKey(name);
    const std::size_t x = key.find('X');
    const FamilyTraits* tube = nullptr;
    for (const FamilyTraits& info : Families()) {
        tube = info.kind == Kind::tube ? &info : tube;
    }
    if (!key.starts_with(kTube) || x == std::string::npos || tube == nullptr) {
        return std::nullopt;
    }
    NamedTube found{tube->id, 0, 0};
    const char* const begin = key.data() + kTube.size();
    const char* const end = key.data() + key.size();
    const auto d = std::from_chars(begin, key.data() + x, found.diameter);
    const auto t = std::from_chars(key.data() + x + 1, end, found.wall);
    const bool whole = d.ec == std::errc() && t.ec == std::errc() && d.ptr == key.data() + x &&
                       t.ptr == end && found.wall > 0 && found.diameter > 2 * found.wall;
    return whole ? std::optional(found) : std::nullopt;
}

std::optional<NamedSection> SectionOfName(const Library& library, std::string_view name, int family)
{
    const std::string wanted = SectionKey(name);
    const std::vector<NamedRow>& names = RowNames(library);
    auto at =
        std::lower_bound(names.begin(), names.end(), wanted,
                         [](const NamedRow& row, const std::string& n) { return row.name < n; });
    const NamedRow* best = nullptr;
    for (; at != names.end() && at->name == wanted; ++at) {
        if (FamilyOfTable(at->table).family == family) {
            best = &*at;
            break;
        }
        if (best == nullptr || (IsStiffener(best->table) && !IsStiffener(at->table))) {
            best = &*at;
        }
    }
    if (best == nullptr) {
        return std::nullopt;
    }
    const NamedFamily owner = FamilyOfTable(best->table);
    return NamedSection{owner.family, owner.series, best->table, best->row};
}

std::vector<std::string> SectionsNear(const Library& library, std::string_view name)
{
    constexpr std::size_t kLongest = 24;
    const std::string wanted = CompactName(name).substr(0, kLongest);
    const std::string letters = wanted.substr(0, wanted.find_first_of("0123456789"));
    std::vector<std::pair<std::size_t, const NamedRow*>> near;
    for (const NamedRow& row : RowNames(library)) {
        const std::size_t steps = Steps(wanted, row.name);
        const bool series = !letters.empty() && row.name.starts_with(letters);
        if (steps < wanted.size() && steps <= (series ? 3U : 2U)) {
            near.emplace_back(steps, &row);
        }
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (const auto& [steps, row] : near) {
        const std::string listed = RowName(library, row->table, row->row);
        if (names.size() < kNearest &&
            std::find(names.begin(), names.end(), listed) == names.end()) {
            names.push_back(listed);
        }
    }
    return names;
}

std::vector<NamedFamily> FamiliesOfName(std::string_view name)
{
    const std::string wanted = CompactName(name);
    std::vector<NamedFamily> found;
    int best = 1;
    for (const FamilyTraits& info : Families()) {
        int series = 0;
        const int rank = Rank(info, wanted, series);
        if (rank > best) {
            found.clear();
            best = rank;
        }
        if (rank == best) {
            found.push_back({info.id, series});
        }
    }
    return found;
}

std::string FamilyName(int family)
{
    const FamilyTraits* const info = FindFamily(family);
    if (info == nullptr) {
        return {};
    }
    std::string name;
    for (const char c : info->caption) {
        if (c != '&') {
            name.push_back(c);
        }
    }
    return name.substr(0, name.find_last_not_of(' ') + 1);
}

NamedFamily FamilyOfTable(Table table)
{
    static const std::array<NamedFamily, kTables> kOwners = [] {
        std::array<NamedFamily, kTables> owners{};
        const auto families = Families();  // from the last, so that the first of several stays
        for (auto at = families.rbegin(); at != families.rend(); ++at) {
            const FamilyTraits& info = *at;
            for (std::size_t i = 0; i < info.tables.size(); ++i) {
                const bool series = info.input == SectionInput::series;
                owners[static_cast<std::size_t>(info.tables[i])] = {
                    info.id, series ? static_cast<int>(i) + 1 : 0};
            }
        }
        return owners;
    }();
    return kOwners[static_cast<std::size_t>(table)];
}

}  // namespace kestrum
