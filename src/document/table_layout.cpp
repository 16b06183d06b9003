#include "document/table_layout.h"

#include "document/math_layout.h"
#include "document/text_flow.h"
#include "report/figure_tools.h"

#include <algorithm>
#include <numeric>

namespace kestrum {

namespace {

constexpr double kSize = TableLayout::kText;
constexpr double kLine = 1.35;    // of the size, from base line to base line
constexpr double kCellGap = 2.6;  // between columns
constexpr double kRowGap = 0.9;
constexpr double kRounding = 0.01;
constexpr double kBolder = 1.08;  // a bold word against a plain one

double CellWidth(const Line& cell, char decimal)
{
    return LineBox(cell, kSize, decimal, Ink::text, true).width;
}

std::vector<Line> TitlesOf(const TextTable& table)
{
    std::vector<Line> titles;
    for (const TextTable::Column& column : table.columns) {
        titles.push_back(column.title);
    }
    return titles;
}

// Columns give way until all fit: no column is wider than its share of a common measure, none
// narrower than its widest word. False where words have to break.
bool Narrow(const TextTable& table, const std::vector<double>& least, double most,
            std::vector<double>& widths)
{
    const std::vector<double> wanted = widths;
    const auto fit = [&](double measure) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const double given = std::max(least[i], measure * table.columns[i].share);
            widths[i] = std::min(wanted[i], given);
        }
        return std::accumulate(widths.begin(), widths.end(), 0.0) <= most;
    };
    double lo = 0, hi = most;
    constexpr int kHalvings = 30;
    for (int i = 0; i < kHalvings; ++i) {
        const double middle = 0.5 * (lo + hi);
        (fit(middle) ? lo : hi) = middle;
    }
    if (fit(lo)) {
        return true;
    }
    // Words wider than the page: all give way alike, and break.
    const double sum = std::accumulate(widths.begin(), widths.end(), 0.0);
    for (double& width : widths) {
        width *= most / sum;
    }
    return false;
}

}  // namespace

double TableLayout::Width() const
{
    return std::accumulate(widths.begin(), widths.end(), 0.0);
}

double TableLayout::Height() const
{
    return std::accumulate(heights.begin(), heights.end(), 0.0);
}

TableLayout LayOutTable(const TextTable& table, double most, char decimal)
{
    std::vector<std::vector<Line>> rows = table.rows;
    rows.insert(rows.begin(), TitlesOf(table));
    TableLayout layout;
    std::vector<std::vector<double>> wide;  // of the cells of a column
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        std::vector<double>& column = wide.emplace_back();
        for (const std::vector<Line>& row : rows) {
            column.push_back(i < row.size() ? CellWidth(row[i], decimal) : 0);
        }
        layout.widths.push_back(*std::max_element(column.begin(), column.end()) + kCellGap);
    }
    if (std::accumulate(layout.widths.begin(), layout.widths.end(), 0.0) > most + kRounding) {
        std::vector<double> least;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            double word = 0;
            for (const std::vector<Line>& row : rows) {
                word = std::max(word, i < row.size() ? WidestWord(row[i], kSize, decimal) : 0);
            }
            least.push_back(word * kBolder + kCellGap);
        }
        layout.whole_words = Narrow(table, least, most, layout.widths);
    }
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const std::vector<Line>& row = rows[k];
        std::vector<std::vector<Line>> cells(table.columns.size());
        std::size_t lines = 1;
        for (std::size_t i = 0; i < std::min(cells.size(), row.size()); ++i) {
            const double room = layout.widths[i] - kCellGap + kRounding;
            cells[i] = wide[i][k] <= room ? std::vector<Line>{row[i]}
                                          : WrapLine(row[i], kSize, room, decimal);
            lines = std::max(lines, cells[i].size());
        }
        layout.rows.push_back(std::move(cells));
        layout.heights.push_back(static_cast<double>(lines) * kSize * kLine + kRowGap);
    }
    return layout;
}

void PrintRow(Drawing& page, const TextTable& table, const TableLayout& layout, std::size_t row,
              Point corner, char decimal)
{
    const bool head = row == 0;
    const double left = corner.x, top = corner.y;
    const double right = left + layout.Width(), bottom = top + layout.heights[row];
    if (head) {
        AddFilled(page, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}, Ink::shade);
    }
    double x = left;
    for (std::size_t i = 0; i < layout.widths.size(); ++i) {
        double base = top + kSize + kRowGap / 3;
        for (const Line& line : layout.rows[row][i]) {
            const MathBox box = LineBox(line, kSize, decimal, Ink::text, head);
            const double end = x + layout.widths[i] - kCellGap / 2;
            PlaceBox(page, box,
                     {table.columns[i].right ? end - box.width : x + kCellGap / 2, base});
            base += kSize * kLine;
        }
        x += layout.widths[i];
    }
    AddLine(page, {left, bottom}, {right, bottom}, Ink::faint, 0.1);
}

}  // namespace kestrum
