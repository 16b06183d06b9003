#include "spreadsheet/book_xlsx.h"

#include "spreadsheet/workbook.h"

#include <map>
#include <tuple>
#include <utility>

namespace kestrum {

namespace {

constexpr lxw_row_t kFirstRow = 1;  // below the headings

// One cell format for each look in use.
class Formats {
public:
    explicit Formats(lxw_workbook* book) : book_(book) {}

    lxw_format* Of(std::string pattern, bool strong, bool right)
    {
        pattern.erase(pattern.find_last_not_of(' ') + 1);
        if (pattern.empty() && !strong && !right) {
            return nullptr;
        }
        lxw_format*& format = formats_[{pattern, strong, right}];
        if (format == nullptr && (format = workbook_add_format(book_)) != nullptr) {
            if (!pattern.empty()) {
                format_set_num_format(format, pattern.c_str());
            }
            if (strong) {
                format_set_bold(format);
            }
            if (right) {
                format_set_align(format, LXW_ALIGN_RIGHT);
            }
        }
        return format;
    }

private:
    lxw_workbook* book_;
    std::map<std::tuple<std::string, bool, bool>, lxw_format*> formats_;
};

void SetUpPage(lxw_worksheet* sheet, const BookSheet& of)
{
    constexpr std::uint8_t kA4 = 9;
    worksheet_freeze_panes(sheet, kFirstRow, 0);
    worksheet_repeat_rows(sheet, 0, 0);
    worksheet_set_landscape(sheet);
    worksheet_set_paper(sheet, kA4);
    worksheet_fit_to_pages(sheet, 1, 0);
    worksheet_print_area(sheet, 0, 0, static_cast<lxw_row_t>(of.rows.size()),
                         static_cast<lxw_col_t>(of.columns.size() - 1));
    worksheet_set_footer(sheet, "&L&F&C&A&R&P / &N");
}

void FillSheet(lxw_worksheet* sheet, Formats& formats, const BookSheet& of)
{
    for (std::size_t i = 0; i < of.columns.size(); ++i) {
        const BookColumn& column = of.columns[i];
        const auto at = static_cast<lxw_col_t>(i);
        worksheet_set_column(sheet, at, at, column.width, nullptr);
        WriteText(sheet, 0, at, column.head, formats.Of("", true, column.right));
    }
    lxw_row_t row = kFirstRow;
    for (const std::vector<BookCell>& cells : of.rows) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const BookCell& cell = cells[i];
            const auto at = static_cast<lxw_col_t>(i);
            if (cell.number) {
                worksheet_write_number(sheet, row, at, *cell.number,
                                       formats.Of(cell.format, cell.strong, false));
            } else {
                WriteText(sheet, row, at, cell.text,
                          formats.Of("", cell.strong, of.columns[i].right));
            }
        }
        ++row;
    }
}

// "=Inputs!$B$7"; columns beyond the 26th have no names.
std::string Reference(const BookSheet& sheet, const BookName& name)
{
    return "='" + sheet.name + "'!$" + static_cast<char>('A' + name.column) + "$" +
           std::to_string(name.row + kFirstRow + 1);
}

}  // namespace

std::string WriteBookXlsx(const std::vector<BookSheet>& book, const std::string& path)
{
    std::size_t rows = 0;
    for (const BookSheet& sheet : book) {
        rows += sheet.rows.size();
    }
    return WriteWorkbook(path, rows, [&](lxw_workbook* file) {
        Formats formats(file);
        for (const BookSheet& of : book) {
            lxw_worksheet* const sheet = workbook_add_worksheet(file, of.name.c_str());
            if (sheet == nullptr) {
                return;
            }
            SetUpPage(sheet, of);
            FillSheet(sheet, formats, of);
            for (const BookName& name : of.names) {
                workbook_define_name(file, name.name.c_str(), Reference(of, name).c_str());
            }
        }
    });
}

}  // namespace kestrum
