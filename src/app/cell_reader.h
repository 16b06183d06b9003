#pragma once

// The cells of one record of a CSV, RFC 4180.

#include <string>
#include <string_view>

namespace kestrum {

constexpr std::string_view kQuoteOpen = "a quote is not closed";

// Without the blanks and line ends around it.
std::string_view Trimmed(std::string_view text);

// What stands between the cells under a line of column names: a comma, or a semicolon or tab when
// the line has no comma outside of quotes.
char SeparatorOf(std::string_view header);

// Takes cells off a record one by one.
class CellReader {
public:
    CellReader(std::string_view line, char separator) : rest_(line), separator_(separator) {}

    // False behind the last cell, and after a fault.
    bool Next();

    // The cell without its quotes; lasts until the next one.
    std::string_view cell() const { return cell_; }
    std::string_view fault() const { return fault_; }

private:
    void TakePlain();
    bool Quoted();

    std::string_view rest_;
    char separator_;
    std::string_view cell_;
    std::string_view fault_;
    std::string text_;  // of a quoted cell
    bool ended_ = false;
};

}  // namespace kestrum
