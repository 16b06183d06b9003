#include "spreadsheet/summary_xlsx.h"

#include "spreadsheet/workbook.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <new>
#include <vector>

namespace kestrum {

namespace {

constexpr lxw_color_t kBlue = 0x0B4FB3, kGrey = 0x7B8794, kRed = 0xC00000;

// The library returns nothing when memory ends.
template <class T> T* Given(T* made)
{
    return made != nullptr ? made : throw std::bad_alloc();
}

struct SummaryFormats {
    lxw_format *bold, *ratio, *mass, *above, *wrapped;

    explicit SummaryFormats(lxw_workbook* book)
    {
        bold = Given(workbook_add_format(book));
        format_set_bold(bold);
        format_set_text_wrap(bold);
        format_set_align(bold, LXW_ALIGN_VERTICAL_TOP);
        ratio = Given(workbook_add_format(book));
        format_set_num_format(ratio, "0.000");
        mass = Given(workbook_add_format(book));
        format_set_num_format(mass, "0.0");
        above = Given(workbook_add_format(book));
        format_set_font_color(above, kRed);
        format_set_bold(above);
        wrapped = Given(workbook_add_format(book));
        format_set_text_wrap(wrapped);
        format_set_align(wrapped, LXW_ALIGN_VERTICAL_TOP);
    }
};

// A sheet from its columns.
class Sheet {
public:
    Sheet(lxw_workbook* book, const SummaryFormats& formats, const char* name)
        : formats_(formats), sheet_(Given(workbook_add_worksheet(book, name)))
    {
        worksheet_freeze_panes(sheet_, 1, 0);
        worksheet_repeat_rows(sheet_, 0, 0);
    }

    lxw_col_t Column(const char* head, double width)
    {
        worksheet_set_column(sheet_, columns_, columns_, width, nullptr);
        WriteText(sheet_, 0, columns_, head, formats_.bold);
        return columns_++;
    }
    void Text(lxw_row_t row, lxw_col_t column, const std::string& text,
              lxw_format* format = nullptr)
    {
        WriteText(sheet_, row, column, text, format);
    }
    void Number(lxw_row_t row, lxw_col_t column, double value, lxw_format* format = nullptr)
    {
        if (std::isfinite(value)) {
            worksheet_write_number(sheet_, row, column, value, format);
        }
    }
    void Filter(lxw_row_t last)
    {
        worksheet_autofilter(sheet_, 0, 0, last, lxw_col_t(columns_ - 1));
    }

    // Bars from 0 to at least 1.
    void Bars(lxw_col_t column, lxw_row_t last, lxw_color_t colour, double end)
    {
        lxw_conditional_format bars{};
        bars.type = LXW_CONDITIONAL_DATA_BAR;
        bars.data_bar_2010 = LXW_TRUE;
        bars.bar_solid = LXW_TRUE;
        bars.bar_color = colour;
        bars.min_rule_type = bars.max_rule_type = LXW_CONDITIONAL_RULE_TYPE_NUMBER;
        bars.min_value = 0;
        bars.max_value = end;
        worksheet_conditional_format_range(sheet_, 1, column, last, column, &bars);
    }

    lxw_worksheet* get() const { return sheet_; }

private:
    const SummaryFormats& formats_;
    lxw_worksheet* sheet_;
    lxw_col_t columns_ = 0;
};

// A column and what it shows of a member.
struct MemberColumn {
    const char* head;
    double width;
    std::function<void(Sheet&, lxw_row_t, lxw_col_t, const SummaryMember&)> write;
    lxw_color_t bars = 0;  // colour; 0 for none
};

std::vector<MemberColumn> ResultColumns(const MemberSummary& summary, const SummaryFormats& formats,
                                        ResultOf basis)
{
    const bool second = basis == &SummaryMember::standard;
    const auto text = [basis](std::string SummaryResult::*field) {
        return [basis, field](Sheet& sheet, lxw_row_t row, lxw_col_t column,
                              const SummaryMember& member) {
            sheet.Text(row, column, (member.*basis).*field);
        };
    };
    std::vector<MemberColumn> columns;
    columns.push_back({second ? "Verdict EN 1993-1-1" : "Verdict", 16,
                       [basis, &formats](Sheet& sheet, lxw_row_t row, lxw_col_t column,
                                         const SummaryMember& member) {
                           const SummaryResult& result = member.*basis;
                           sheet.Text(row, column, result.verdict,
                                      result.standing == Standing::within ? nullptr
                                                                          : formats.above);
                       }});
    columns.push_back({second         ? "Ratio EN 1993-1-1"
                       : summary.both ? "Ratio program"
                                      : "Ratio",
                       18,
                       [basis, &formats](Sheet& sheet, lxw_row_t row, lxw_col_t column,
                                         const SummaryMember& member) {
                           const SummaryResult& result = member.*basis;
                           if (result.standing != Standing::unrated) {
                               sheet.Number(row, column, result.ir, formats.ratio);
                           }
                       },
                       second ? kGrey : kBlue});
    columns.push_back({"Check", 32, text(&SummaryResult::check)});
    columns.push_back({"Clause", 18, text(&SummaryResult::clause)});
    if (summary.has_case) {
        columns.push_back({"Case", 12, text(&SummaryResult::load_case)});
    }
    if (summary.has_place) {
        columns.push_back(
            {"x [m]", 8,
             [basis](Sheet& sheet, lxw_row_t row, lxw_col_t column, const SummaryMember& member) {
                 sheet.Number(row, column, (member.*basis).x);
             }});
    }
    return columns;
}

std::vector<MemberColumn> ColumnsOf(const MemberSummary& summary, const SummaryFormats& formats)
{
    const auto text = [](std::string SummaryMember::*field) {
        return [field](Sheet& sheet, lxw_row_t row, lxw_col_t column, const SummaryMember& member) {
            sheet.Text(row, column, member.*field);
        };
    };
    const auto mass = [&formats](double (SummaryMember::*value)() const) {
        return [value, &formats](Sheet& sheet, lxw_row_t row, lxw_col_t column,
                                 const SummaryMember& member) {
            sheet.Number(row, column, (member.*value)(), formats.mass);
        };
    };
    std::vector<MemberColumn> columns;
    columns.push_back(
        {"Order", 7, [](Sheet& sheet, lxw_row_t row, lxw_col_t column, const SummaryMember&) {
             sheet.Number(row, column, row);
         }});
    columns.push_back({"Member", 24, text(&SummaryMember::name)});
    for (MemberColumn& column : ResultColumns(summary, formats, &SummaryMember::result)) {
        columns.push_back(std::move(column));
    }
    if (summary.both) {
        for (MemberColumn& column : ResultColumns(summary, formats, &SummaryMember::standard)) {
            columns.push_back(std::move(column));
        }
    }
    if (summary.has_section) {
        columns.push_back({"Section", 18, text(&SummaryMember::section)});
    }
    if (summary.has_before) {
        columns.push_back({"Section before", 18, text(&SummaryMember::section_before)});
        columns.push_back({"Mass before [kg]", 12, mass(&SummaryMember::MassBefore)});
    }
    if (summary.has_mass) {
        columns.push_back(
            {summary.has_before ? "Mass after [kg]" : "Mass [kg]", 12, mass(&SummaryMember::Mass)});
    }
    columns.push_back({"Notes", 40, text(&SummaryMember::notes)});
    columns.push_back({"Message", 60, text(&SummaryMember::message)});
    return columns;
}

void FillMembers(lxw_workbook* book, const SummaryFormats& formats, const MemberSummary& summary)
{
    Sheet sheet(book, formats, "Members");
    const std::vector<MemberColumn> columns = ColumnsOf(summary, formats);
    for (const MemberColumn& column : columns) {
        sheet.Column(column.head, column.width);
    }
    const auto last = static_cast<lxw_row_t>(summary.Listed());
    for (lxw_row_t row = 1; row <= last; ++row) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            columns[i].write(sheet, row, static_cast<lxw_col_t>(i), summary.members[row - 1]);
        }
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].bars != 0) {
            // A power of EN 1993-1-1, 6.2.9 can be huge and would leave the others without a bar.
            constexpr double kMost = 2;
            const double largest = std::max(LargestRatio(summary, &SummaryMember::result),
                                            LargestRatio(summary, &SummaryMember::standard));
            sheet.Bars(static_cast<lxw_col_t>(i), last, columns[i].bars,
                       std::clamp(largest, 1.0, kMost));
        }
    }
    sheet.Filter(last);
    worksheet_freeze_panes(sheet.get(), 1, 2);  // heads, and the names
    worksheet_set_landscape(sheet.get());
    worksheet_fit_to_pages(sheet.get(), 1, 0);
}

void FillCounts(lxw_workbook* book, const SummaryFormats& formats, const MemberSummary& summary)
{
    Sheet sheet(book, formats, "Counts");
    std::vector<ResultOf> bases{&SummaryMember::result};
    if (summary.both) {
        bases.push_back(&SummaryMember::standard);
    }
    sheet.Column("", 26);
    sheet.Column(summary.both ? "Program" : "Members", 14);
    if (summary.both) {
        sheet.Column("EN 1993-1-1", 14);
    }
    std::vector<std::vector<RatioBin>> bins;
    for (const ResultOf basis : bases) {
        bins.push_back(Histogram(summary, basis));
    }
    const auto row_of = [&](lxw_row_t row, const std::string& name, auto value) {
        sheet.Text(row, 0, name);
        for (std::size_t i = 0; i < bases.size(); ++i) {
            sheet.Number(row, static_cast<lxw_col_t>(i + 1), value(i));
        }
    };
    const char* const names[] = {"Without a ratio", "Above limit", "Within limits"};
    lxw_row_t row = 1;
    for (std::size_t k = 0; k < kStandings; ++k) {
        row_of(row++, names[k], [&](std::size_t i) {
            return static_cast<double>(CountStandings(summary, bases[i])[k]);
        });
    }
    row_of(row++, "Members",
           [&](std::size_t) { return static_cast<double>(summary.members.size()); });
    row_of(row++, "Largest ratio", [&](std::size_t i) { return LargestRatio(summary, bases[i]); });
    const MassSum sum = SumOfMasses(summary);
    if (summary.has_before) {
        sheet.Text(row, 0, "Mass before [kg]");
        sheet.Number(row++, 1, sum.before, formats.mass);
    }
    if (summary.has_mass) {
        sheet.Text(row, 0, summary.has_before ? "Mass after [kg]" : "Mass [kg]");
        sheet.Number(row, 1, sum.mass, formats.mass);
        sheet.Text(row++, 2, "of " + std::to_string(sum.members) + " members");
    }
    ++row;
    sheet.Text(row++, 0, "Members by ratio", formats.bold);
    const lxw_row_t first = row;
    for (std::size_t k = 0; k < bins.front().size(); ++k) {
        const int from = static_cast<int>(std::lround(bins.front()[k].from * 10));
        const auto tenths = [](int n) {
            return std::to_string(n / 10) + "." + std::to_string(n % 10);
        };
        const bool last = k + 1 == bins.front().size();
        row_of(row++, last ? "above " + tenths(from) : tenths(from) + " to " + tenths(from + 1),
               [&](std::size_t i) {
                   return static_cast<double>(bins[i][k].within + bins[i][k].above);
               });
    }
    lxw_chart* const chart = Given(workbook_add_chart(book, LXW_CHART_COLUMN));
    for (std::size_t i = 0; i < bases.size(); ++i) {
        const auto column = static_cast<lxw_col_t>(i + 1);
        lxw_chart_series* const series = Given(chart_add_series(chart, nullptr, nullptr));
        chart_series_set_categories(series, "Counts", first, 0, row - 1, 0);
        chart_series_set_values(series, "Counts", first, column, row - 1, column);
        chart_series_set_name_range(series, "Counts", 0, column);
    }
    chart_title_set_name(chart, "Members by ratio");
    worksheet_insert_chart(sheet.get(), 1, static_cast<lxw_col_t>(bases.size() + 2), chart);
}

void FillNotes(lxw_workbook* book, const SummaryFormats& formats, const MemberSummary& summary)
{
    Sheet sheet(book, formats, "Notes");
    const lxw_col_t note = sheet.Column("Note", 50), members = sheet.Column("Members", 10);
    const lxw_col_t sentence = sheet.Column("What it says", 90);
    lxw_row_t row = 1;
    for (const NoteCount& count : CountNotes(summary)) {
        sheet.Text(row, note, count.note, formats.wrapped);
        sheet.Number(row, members, static_cast<double>(count.members), formats.wrapped);
        sheet.Text(row, sentence, NoteSentence(count.note), formats.wrapped);
        ++row;
    }
    sheet.Filter(std::max<lxw_row_t>(row - 1, 1));
}

}  // namespace

std::string WriteSummaryXlsx(const MemberSummary& summary, const std::string& path)
{
    if (summary.Listed() >= LXW_ROW_MAX) {
        return "a sheet holds " + std::to_string(LXW_ROW_MAX - 1) +
               " members; --top N lists the first N";
    }
    return WriteWorkbook(path, summary.Listed(), [&](lxw_workbook* book) {
        const SummaryFormats formats(book);
        FillMembers(book, formats, summary);
        FillCounts(book, formats, summary);
        FillNotes(book, formats, summary);
    });
}

}  // namespace kestrum
