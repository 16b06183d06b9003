#include "report/page_header.h"

#include "core/number_format.h"
#include "core/version.h"
#include "sections/family_table.h"

#include <initializer_list>

namespace kestrum {

namespace {

constexpr std::string_view kProgram = "Kestrum EC3";
constexpr std::string_view kMaker = "Kestrum EC3, free software under the MIT licence";

constexpr double kRightColumn = 136, kRightValue = 148;
constexpr double kLargeText = 5;
constexpr std::size_t kProjectCharacters = 46, kIdentCharacters = 39, kFileCharacters = 40;

// Dimensions as in "300x200x12.5".
std::string Sizes(std::initializer_list<double> sizes)
{
    std::string text;
    for (const double size : sizes) {
        text += text.empty() ? "" : "x";
        text += FormatNum(size, "0.##");
        if (text.back() == '.') {
            text.pop_back();
        }
    }
    return text;
}

// How a hollow section of the tables is made.
std::string_view MakeText(int family, bool brief)
{
    switch (family) {
    case 6:
    case 7:
        return brief ? " (Hotf.)" : " (Hot finished)";
    case 8:
    case 9:
        return brief ? " (Coldf.)" : " (Cold formed)";
    default:
        return {};
    }
}

std::string PlateText(const Library& library, const ProjectState& s)
{
    const std::string plate = "Pl " + Sizes({s.btop, s.ttop});
    const double stiffener = 1.0 * s.h - s.ttop;
    switch (s.family) {
    case 51:
        return plate + " + Fb " + Sizes({stiffener, s.tw});
    case 52:
    case 54:
        return plate + (s.family == 52 ? " + L " : " + BF ") +
               RowKey(library, TableOf(s), s.row[static_cast<std::size_t>(TableOf(s))]);
    case 53:
        return plate + " + L " + Sizes({stiffener, s.bbot, s.tw, s.tbot});
    default:
        return plate + " + T " + Sizes({stiffener, s.bbot, s.tw, s.tbot});
    }
}

}  // namespace

std::string FileText(std::string_view filename)
{
    const bool fits = CharacterCount(filename) <= kFileCharacters &&
                      TextWidth(filename, kPageText) <= kPageRight - kRightValue;
    return std::string(fits ? filename : filename.substr(filename.find_last_of("/\\") + 1));
}

void PageHeader(PageWriter& page, const ProjectState& s, const PrintStamp& stamp,
                std::string_view title)
{
    constexpr double kGap = 2, kWord = 0.8;
    const double left_end = kRightColumn - kGap;
    page.MoveTo(kPageTop + kLargeText);
    page.Write(kPageLeft, kProgram, {.bold = true, .size = kLargeText});
    page.Write(kRightColumn, "Page:");
    page.Write(kRightValue, "1/1");
    page.Row(1.2);
    page.Write(kPageLeft, title, {}, left_end);
    page.Write(kRightColumn, "Date: ");
    page.Write(kRightValue, stamp.date);
    page.Row();
    page.Write(kPageLeft, "Version " + std::string(kVersion) + " ");
    page.Write(kRightColumn, "Time: ");
    page.Write(kRightValue, stamp.time);
    page.Row();
    page.Write(kPageLeft, kMaker);
    page.Write(kRightColumn, "File: ");
    page.Write(kRightValue, FileText(s.filename));
    page.Row(1.2);
    const double project = page.Write(kPageLeft, "Project: ", {.bold = true});
    page.Write(project + kWord, FirstCharacters(s.projname, kProjectCharacters), {.bold = true});
    page.Row();
    const double ident = page.Write(kPageLeft, "Identification: ", {.bold = true});
    page.Write(ident + kWord, FirstCharacters(s.ident, kIdentCharacters), {.bold = true});
    page.Rule();
    page.Row(2);
}

std::string ProfileText(const Library& library, const ProjectState& s, bool brief)
{
    if (s.family >= 51 && s.family <= 56) {
        return PlateText(library, s);
    }
    if (HasTable(s.family)) {
        const Table table = TableOf(s);
        return RowName(library, table, s.row[static_cast<std::size_t>(table)]) +
               std::string(MakeText(s.family, brief));
    }
    switch (s.family) {
    case 21:
        return "I " + Sizes({s.h, s.b, s.tw, s.tf});
    case 22:
        return "I " + Sizes({s.h, s.btop, s.bbot, s.tw, s.ttop, s.tbot});
    case 23:
        return "Box " + Sizes({s.h, s.b, s.tw, s.tf});
    case 24:
        return "HSQ " + Sizes({s.h, s.btop, s.bbot, s.tw, s.ttop, s.tbot});
    case 25:
        return "HSQ " + Sizes({s.h, s.btop, s.bbot, s.tw, s.ttop, s.tbot}) + "  (Non symm fl)";
    case 26:
        return "T " + Sizes({s.h, s.btop, s.tw, s.ttop});
    case 27:
        return "Box " + Sizes({s.h, s.btop, s.bbot, s.tw, s.ttop, s.tbot}) + " (Single sym)";
    case 28:
        return "Fb " + Sizes({s.h, s.tw});
    case 31:
        return "Tube " + Sizes({s.d, s.tw}) +
               (s.tubehot == 1 ? " (Hot finished)" : " (Cold formed)");
    case 41:
        return s.p41ident;
    default:
        return {};
    }
}

}  // namespace kestrum
