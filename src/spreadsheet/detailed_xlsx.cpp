#include "spreadsheet/detailed_xlsx.h"

#include "spreadsheet/workbook.h"

#include <map>

namespace kestrum {

namespace {

constexpr lxw_col_t kParameter = 0, kValue = 1, kUnit = 2, kReference = 3;
constexpr lxw_row_t kFirstRow = 1;  // below the headings

// One cell format for each number format in use.
class NumberFormats {
public:
    explicit NumberFormats(lxw_workbook* book) : book_(book) {}

    lxw_format* Of(std::string pattern)
    {
        pattern.erase(pattern.find_last_not_of(' ') + 1);
        lxw_format*& format = formats_[pattern];
        if (format == nullptr) {
            format = workbook_add_format(book_);
            format_set_num_format(format, pattern.c_str());
        }
        return format;
    }

private:
    lxw_workbook* book_;
    std::map<std::string, lxw_format*> formats_;
};

void FillSheet(lxw_workbook* book, lxw_worksheet* sheet, const std::vector<DetailedRow>& rows)
{
    lxw_format* bold = workbook_add_format(book);
    format_set_bold(bold);
    lxw_format* right = workbook_add_format(book);
    format_set_align(right, LXW_ALIGN_RIGHT);
    lxw_format* boldright = workbook_add_format(book);
    format_set_bold(boldright);
    format_set_align(boldright, LXW_ALIGN_RIGHT);
    NumberFormats numbers(book);

    worksheet_set_column(sheet, kParameter, kParameter, 26, nullptr);
    worksheet_set_column(sheet, kValue, kValue, 16, nullptr);
    worksheet_set_column(sheet, kUnit, kUnit, 8, nullptr);
    worksheet_set_column(sheet, kReference, kReference, 14, nullptr);
    worksheet_freeze_panes(sheet, kFirstRow, 0);
    worksheet_repeat_rows(sheet, 0, 0);
    for (lxw_col_t column = kParameter; column <= kReference; ++column) {
        WriteText(sheet, 0, column, std::string(kDetailedColumns[column]),
                  column == kValue ? boldright : bold);
    }
    lxw_row_t at = kFirstRow;
    for (const DetailedRow& row : rows) {
        WriteText(sheet, at, kParameter, row.parameter, row.heading ? bold : nullptr);
        if (row.number) {
            worksheet_write_number(sheet, at, kValue, *row.number, numbers.Of(row.format));
        } else {
            WriteText(sheet, at, kValue, row.value, right);
        }
        WriteText(sheet, at, kUnit, row.unit, nullptr);
        WriteText(sheet, at, kReference, row.reference, nullptr);
        ++at;
    }
}

}  // namespace

std::string WriteDetailedXlsx(const std::vector<DetailedRow>& rows, const std::string& path)
{
    return WriteWorkbook(path, rows.size(), [&](lxw_workbook* book) {
        lxw_worksheet* sheet = workbook_add_worksheet(book, "Detailed results");
        if (sheet != nullptr) {
            FillSheet(book, sheet, rows);
        }
    });
}

}  // namespace kestrum
