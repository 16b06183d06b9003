#pragma once

// A printed page, A4 upright, in millimetres, written from top to bottom. Nothing is written beyond
// its edges: what does not fit is kept in a list for the caller to tell.

#include "report/drawing.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct PrintedReport {
    std::vector<Drawing> pages;
    std::vector<std::string> missing;  // what the page could not hold
};

constexpr double kPageWidth = 210, kPageHeight = 297;
constexpr double kPageLeft = 14, kPageRight = 200, kPageTop = 5.4, kPageBottom = 287.9;
constexpr double kPageFoot = 291.3;  // base line of the foot
constexpr double kPageMiddle = 110;  // where a second column starts
constexpr double kPageRow = 3.5;     // from one line to the next
constexpr double kPageSpace = 0.6;   // rows between blocks
constexpr double kPageText = 2.8;    // font sizes
constexpr double kPageSmallText = 2.6;
constexpr double kPageHeading = 3.1;

struct TextStyle {
    bool bold = false, underline = false;
    Align align = Align::left;
    Ink ink = Ink::text;
    double size = kPageText;
    bool verbatim = false;  // see TextMark
};

// One line of a table of values: "h", "190", "mm" for "h = 190 mm".
struct Quantity {
    std::string symbol, value, unit;
    std::optional<double> number{};  // behind the value
};

class PageWriter {
public:
    explicit PageWriter(std::string title);

    double y() const { return y_; }  // base line of the row in hand
    void MoveTo(double y) { y_ = y; }
    void Row(double rows = 1) { y_ += rows * kPageRow; }
    // Lines of height that are left below the row in hand.
    double Room() const { return kPageBottom - y_; }

    // Text in the row in hand, cut where it would pass `right`; returns the x behind it.
    double Write(double x, std::string_view text, TextStyle style = {}, double right = kPageRight);
    // A line in the foot of the page, cut where it is wider than the page.
    void Foot(std::string_view text);
    // The same as Write, bold.
    double WriteBold(double x, std::string_view text, double right = kPageRight);
    // Head of a block, with the rest of its row free; moves on by a row.
    void Heading(double x, std::string_view text);
    // A line across the page, a half row below the text of the row in hand.
    void Rule();

    // Values in columns between left and right, column by column; moves below. The columns have
    // equal widths where all of them fit so, and are fewer where their texts leave no room.
    void Quantities(std::span<const Quantity> quantities, std::size_t columns, double left,
                    double right);

    // A picture with its upper left corner at the given point. Pictures do not move the row.
    void Picture(const Drawing& picture, Point corner, double scale);

    void Add(PlacedPicture picture) { page_.pictures.push_back(std::move(picture)); }

    void Miss(std::string what) { missing_.push_back(std::move(what)); }
    const std::vector<std::string>& Missing() const { return missing_; }

    PrintedReport Take();

private:
    struct Column;
    static std::vector<Column> ColumnsOf(std::span<const Quantity> quantities, std::size_t columns);
    void WriteColumn(const Column& column, double x, double right);

    Drawing page_;
    double y_ = kPageTop;
    std::vector<std::string> missing_;
};

// The first `count` characters of a UTF-8 text.
std::string FirstCharacters(std::string_view text, std::size_t count);
std::size_t CharacterCount(std::string_view text);

}  // namespace kestrum
