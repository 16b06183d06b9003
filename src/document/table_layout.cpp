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
constexpr double kLeast = 10;  // a column that gives way keeps so much
constexpr double kRounding = 0.01;

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

// The widest columns become as wide as the next ones until all fit.
void Narrow(std::vector<double>& widths, double most)
{
    for (;;) {
        const double sum = std::accumulate(widths.begin(), widths.end(), 0.0);
        const double widest = *std::max_element(widths.begin(), widths.end());
        if (sum <= most + kRounding || widest <= kLeast) {
            return;
        }
        double next = kLeast;
        double equal = 0;
        for (const double width : widths) {
            const bool wide = width >= widest - kRounding;
            equal += wide ? 1 : 0;
            next = wide ? next : std::max(next, width);
        }
        const double each = std::max(next, widest - (sum - most) / equal);
        std::transform(widths.begin(), widths.end(), widths.begin(), [&](double width) {
            return width >= widest - kRounding ? std::min(each, width) : width;
        });
        if (each > widest - kRounding) {
            return;
        }
    }
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
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        double width = 0;
        for (const std::vector<Line>& row : rows) {
            width = std::max(width, i < row.size() ? CellWidth(row[i], decimal) : 0);
        }
        layout.widths.push_back(width + kCellGap);
    }
    if (!layout.widths.empty()) {
        Narrow(layout.widths, most);
    }
    for (const std::vector<Line>& row : rows) {
        std::vector<std::vector<Line>> cells(table.columns.size());
        std::size_t lines = 1;
        for (std::size_t i = 0; i < std::min(cells.size(), row.size()); ++i) {
            cells[i] = WrapLine(row[i], kSize, layout.widths[i] - kCellGap + kRounding, decimal);
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
