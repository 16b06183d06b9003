#include "report/page_loading.h"

#include "core/load_combination.h"
#include "core/number_format.h"
#include "core/project_inputs.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace kestrum {

namespace {

constexpr std::string_view kLoad = "##0.0##", kPosition = "##0.000", kAxialLoad = "##0.0";

std::string_view Category(double type)
{
    return type == 0 ? "G" : type == 1 ? "Q1" : type == 2 ? "Q2" : "";
}

const LoadRow kTitles{"Load", "kN/kNm", "x/x1/x2 (m)", "G/Q"};

constexpr std::string_view kNotTicked = "*";

// Among basic loads only ticked rows act; the others are listed with a mark.
std::string_view StarOf(const ProjectInputs& s, i16 checked)
{
    return s.loadcomb == kBasicLoads && checked == 0 ? kNotTicked : "";
}

std::string CategoryOf(const ProjectInputs& s, double type, i16 checked)
{
    return std::string(Category(type)) + std::string(StarOf(s, checked));
}

// Where the columns of a table stand, and the size of its text.
struct Stops {
    double load, value, position, category, right, size;
};

// Widths of the columns in the given text size.
struct Widths {
    double load = 0, value = 0, position = 0, category = 0;
    double sum() const { return load + value + position + category; }
};

Widths WidthsOf(const std::vector<LoadRow>& rows, double size)
{
    const auto width = [&](auto column) {
        double widest = TextWidth(kTitles.*column, size);
        for (const LoadRow& row : rows) {
            widest = std::max(widest, TextWidth(row.*column, size));
        }
        return widest;
    };
    return {width(&LoadRow::load), width(&LoadRow::value), width(&LoadRow::position),
            width(&LoadRow::category)};
}

constexpr double kCellGap = 0.5;  // behind the longest text of a column

// In small text and no wider than the texts ask for; nothing where they do not fit.
std::optional<Stops> NarrowStops(const std::vector<LoadRow>& rows, double left, double right)
{
    constexpr double kLeastGap = 1, kMostGap = 2.5, kSafety = 0.01;
    const Widths width = WidthsOf(rows, kPageSmallText);
    const double gap = std::min((right - left - width.sum() - kSafety) / 3, kMostGap);
    if (gap < kLeastGap) {
        return {};
    }
    Stops at{};
    at.size = kPageSmallText;
    at.load = left;
    at.value = at.load + width.load + gap;
    at.position = at.value + width.value + gap;
    at.category = at.position + width.position + gap;
    at.right = right;
    return at;
}

// At the same places for all tables, unless a text is too wide for its column.
Stops WideStops(const std::vector<LoadRow>& rows, double left, double right)
{
    const double all = right - left;
    const Stops at{left, left + 0.16 * all, left + 0.45 * all, left + 0.88 * all, right, kPageText};
    const Widths width = WidthsOf(rows, kPageText);
    const bool fits = width.value + kCellGap <= at.position - at.value &&
                      width.position + kCellGap <= at.category - at.position;
    return fits ? at : NarrowStops(rows, left, right).value_or(at);
}

void PrintRow(PageWriter& page, const LoadRow& row, const Stops& at)
{
    const TextStyle style{.size = at.size};
    page.Write(at.load, row.load, style, at.value - kCellGap);
    page.Write(at.value, row.value, style, at.position - kCellGap);
    page.Write(at.position, row.position, style, at.category - kCellGap);
    page.Write(at.category, row.category, style, at.right);
    page.Row();
}

void PrintRows(PageWriter& page, std::span<const LoadRow> rows, const Stops& at)
{
    PrintRow(page, kTitles, at);
    for (const LoadRow& row : rows) {
        PrintRow(page, row, at);
    }
}

void PrintTable(PageWriter& page, std::string_view title, const std::vector<LoadRow>& rows,
                double left, double right, bool low)
{
    constexpr std::size_t kShort = 2;
    constexpr double kGap = 1.5;
    page.WriteBold(left, title, right);
    page.Row();
    const double middle = (left + right) / 2;
    const std::optional<Stops> first = NarrowStops(rows, left, middle - kGap);
    const std::optional<Stops> second = NarrowStops(rows, middle + kGap, right);
    if (!low || rows.size() <= kShort || !first || !second) {
        PrintRows(page, rows, WideStops(rows, left, right));
        return;
    }
    const double top = page.y();
    const std::size_t half = (rows.size() + 1) / 2;
    PrintRows(page, std::span(rows).first(half), *first);
    const double bottom = page.y();
    page.MoveTo(top);
    PrintRows(page, std::span(rows).subspan(half), *second);
    page.MoveTo(bottom);
}

}  // namespace

std::vector<LoadRow> LoadRowsOf(const ProjectInputs& s, int direction)
{
    std::vector<LoadRow> rows;
    for (std::size_t i = 1; i < s.qload.size(); ++i) {
        if (s.qload[i] != 0 && s.qdir[i] == direction) {
            rows.push_back(
                {"q ", FormatNum(s.qload[i], kLoad), "", CategoryOf(s, s.qtype[i], s.qchecked[i])});
        }
    }
    for (std::size_t i = 1; i < s.qt1.size(); ++i) {
        if ((s.qt1[i] != 0 || s.qt2[i] != 0) && s.qtdir[i] == static_cast<float>(direction)) {
            rows.push_back({"q", FormatNum(s.qt1[i], kLoad) + "/" + FormatNum(s.qt2[i], kLoad),
                            FormatNum(s.qtx1[i], kPosition) + "/" + FormatNum(s.qtx2[i], kPosition),
                            CategoryOf(s, s.qttype[i], s.qtchecked[i])});
        }
    }
    const char* const moment = direction == 1 ? "My" : "Mz";
    for (std::size_t i = 1; i < s.pm.size(); ++i) {
        if (s.pm[i] != 0 && s.pmdir[i] == direction) {
            rows.push_back({s.pmkind[i] == 1 ? moment : "P", FormatNum(s.pm[i], kLoad),
                            FormatNum(s.pmx[i], kPosition),
                            CategoryOf(s, s.pmtype[i], s.pmchecked[i])});
        }
    }
    return rows;
}

std::string AxialLoads(const ProjectInputs& s)
{
    std::string text;
    for (std::size_t i = 1; i < s.nload.size(); ++i) {
        if (s.nload[i] != 0) {
            text += text.empty() ? "N = " : "    N = ";
            text += FormatNum(s.nload[i], kAxialLoad) + " (" + std::string(Category(s.ntype[i])) +
                    ")" + std::string(StarOf(s, s.nchecked[i]));
        }
    }
    return text;
}

void PrintLoading(PageWriter& page, const ProjectInputs& s, double left, double right, bool low)
{
    constexpr double kSpace = 0.3;
    page.WriteBold(left, "Loading information: (kN/kNm/m)", right);
    page.Row();
    page.Write(left, "G=Permanent; Q1/Q2=Variable, Q1 = Main", {}, right);
    page.Row();
    const std::string axial = AxialLoads(s);
    if (!axial.empty()) {
        page.Write(left, axial, {}, right);
        page.Row();
    }
    const std::vector<LoadRow> z = LoadRowsOf(s, 1), y = LoadRowsOf(s, 0);
    page.Row(kSpace);
    PrintTable(page, "Loading in z-direction:", z, left, right, low);
    page.Row(kSpace);
    PrintTable(page, "Loading in y-direction:", y, left, right, low);
    const auto marked = [](const LoadRow& row) { return row.category.ends_with(kNotTicked); };
    if (axial.find(kNotTicked) != std::string::npos || std::any_of(z.begin(), z.end(), marked) ||
        std::any_of(y.begin(), y.end(), marked)) {
        page.Write(left, "* not ticked: does not act", {}, right);
        page.Row();
    }
}

void PrintLoadOptions(PageWriter& page, const ProjectInputs& s, double left, double right)
{
    page.Write(left,
               s.selfweight == 1 ? "Selfweight of member included "
                                 : "Selfweight of member not included",
               {}, right);
    page.Row();
    page.Write(left, "Psi(Q1/Q2) = " + FormatNum(s.psi1, "0.0") + "/" + FormatNum(s.psi2, "0.0"),
               {}, right);
    page.Row();
}

void PrintEndForces(PageWriter& page, const ProjectInputs& s, double left, double right)
{
    const auto force = [](std::string_view name, float value, std::string_view unit) {
        return Quantity{std::string(name), FormatNum(value, kLoad), std::string(unit)};
    };
    const Quantity axial[] = {force("N", s.ne, "kN")};
    const Quantity ends[] = {force("My1", s.my1, "kNm"), force("Vz1", s.vz1, "kN"),
                             force("Mz1", s.mz1, "kNm"), force("Vy1", s.vy1, "kN"),
                             force("My2", s.my2, "kNm"), force("Vz2", s.vz2, "kN"),
                             force("Mz2", s.mz2, "kNm"), force("Vy2", s.vy2, "kN")};
    page.WriteBold(left, "Endforces: (kN/kNm/m)", right);
    page.Row();
    page.Quantities(axial, 1, left, right);
    page.Quantities(ends, 2, left, right);
}

double CombinationWidth(const ProjectState& s)
{
    double width = 0;
    for (const std::string& text : ShowCombination(s)) {
        width = std::max(width, TextWidth(text, kPageText));
    }
    return width;
}

void PrintCombination(PageWriter& page, const ProjectState& s)
{
    for (const std::string& text : ShowCombination(s)) {
        page.Write(kPageLeft, text);
        page.Row();
    }
}

}  // namespace kestrum
