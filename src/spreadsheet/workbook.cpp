#include "spreadsheet/workbook.h"

#include "core/file_io.h"
#include "report/page_writer.h"

#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

namespace kestrum {

namespace {

namespace fs = std::filesystem;

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

std::string Fill(const std::function<void(lxw_workbook*)>& fill, const Workshop& workshop)
{
    std::string folder = workshop.Folder(), file = workshop.Table();
    lxw_workbook_options options{};
    options.tmpdir = folder.data();
    std::unique_ptr<lxw_workbook, void (*)(lxw_workbook*)> book(
        workbook_new_opt(file.c_str(), &options), lxw_workbook_free);
    if (!book) {
        return "no memory for the workbook";
    }
    fill(book.get());
    const lxw_error written = workbook_close(book.release());  // writes, and frees the book
    return written == LXW_NO_ERROR ? std::string{} : lxw_strerror(written);
}

}  // namespace

std::string WriteWorkbook(const std::string& path, std::size_t rows,
                          const std::function<void(lxw_workbook*)>& fill)
{
    const Workshop workshop;
    std::string bytes, fault = MakeRoom(workshop, rows);
    if (fault.empty()) {
        fault = Fill(fill, workshop);
    }
    if (fault.empty()) {
        fault = ReadWholeFile(workshop.Table(), bytes);
    }
    return fault.empty() ? WriteWholeFile(path, bytes) : fault;
}

void WriteText(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const std::string& text,
               lxw_format* format)
{
    constexpr std::size_t kMost = 32000;  // characters; a cell holds 32767
    if (text.size() > kMost) {
        const std::string cut = FirstCharacters(text, kMost);
        worksheet_write_string(sheet, row, column, cut.c_str(), format);
    } else if (!text.empty()) {
        worksheet_write_string(sheet, row, column, text.c_str(), format);
    }
}

}  // namespace kestrum
