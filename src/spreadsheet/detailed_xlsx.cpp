#include "spreadsheet/detailed_xlsx.h"

#include "core/file_io.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <system_error>

namespace kestrum {

namespace {

namespace fs = std::filesystem;

constexpr lxw_col_t kParameter = 0, kValue = 1, kUnit = 2, kReference = 3;
constexpr lxw_row_t kFirstRow = 1;  // below the headings

void WriteText(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const std::string& text,
               lxw_format* format)
{
    if (!text.empty()) {
        worksheet_write_string(sheet, row, column, text.c_str(), format);
    }
}

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

// A folder of our own among the temporary files, gone with what stands in it.
class Workshop {
public:
    Workshop()
    {
        std::random_device random;
        const fs::path place = fs::temp_directory_path(fault_);
        for (bool made = false; !fault_ && !made;) {
            folder_ = place / ("kestrum-" + std::to_string(random()));
            table_ = folder_ / "table.xlsx";
            room_ = folder_ / "room";
            made = fs::create_directory(folder_, fault_);
        }
    }
    ~Workshop()
    {
        std::error_code ignored;
        for (const fs::path* const path : {&table_, &room_, &folder_}) {
            fs::remove(*path, ignored);
        }
    }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    std::string Fault() const { return fault_ ? fault_.message() : std::string{}; }
    std::string Folder() const { return folder_.string(); }
    std::string Table() const { return table_.string(); }
    std::string Room() const { return room_.string(); }

private:
    std::error_code fault_;
    fs::path folder_, table_, room_;
};

// The library does not look whether its temporary files take what it writes; a sheet that is cut
// short would pass for a whole one.
std::string MakeRoom(const Workshop& workshop, std::size_t rows)
{
    constexpr std::size_t kRest = std::size_t{256} << 10, kRow = 1024;
    std::string fault = workshop.Fault();
    if (fault.empty()) {
        fault = WriteWholeFile(workshop.Room(), std::string(kRest + rows * kRow, '\0'));
        std::error_code ignored;
        fs::remove(workshop.Room(), ignored);
    }
    return fault.empty() ? fault : "temporary files: " + fault;
}

std::string WriteWorkbook(const std::vector<DetailedRow>& rows, const Workshop& workshop)
{
    std::string folder = workshop.Folder(), file = workshop.Table();
    lxw_workbook_options options{};
    options.tmpdir = folder.data();
    std::unique_ptr<lxw_workbook, void (*)(lxw_workbook*)> book(
        workbook_new_opt(file.c_str(), &options), lxw_workbook_free);
    if (!book) {
        return "no memory for the workbook";
    }
    lxw_worksheet* sheet = workbook_add_worksheet(book.get(), "Detailed results");
    if (sheet != nullptr) {
        FillSheet(book.get(), sheet, rows);
    }
    const lxw_error written = workbook_close(book.release());  // writes, and frees the book
    return written == LXW_NO_ERROR ? std::string{} : lxw_strerror(written);
}

}  // namespace

std::string WriteDetailedXlsx(const std::vector<DetailedRow>& rows, const std::string& path)
{
    const Workshop workshop;
    std::string bytes, fault = MakeRoom(workshop, rows.size());
    if (fault.empty()) {
        fault = WriteWorkbook(rows, workshop);
    }
    if (fault.empty()) {
        fault = ReadWholeFile(workshop.Table(), bytes);
    }
    return fault.empty() ? WriteWholeFile(path, bytes) : fault;
}

}  // namespace kestrum
