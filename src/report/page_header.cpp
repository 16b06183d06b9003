#include "report/page_header.h"

#include "core/number_format.h"
#include "core/project_state.h"
#include "core/version.h"
#include "report/page_notes.h"
#include "sections/family_table.h"
#include "sections/load_library.h"

#include <initializer_list>

namespace kestrum {

namespace {

constexpr std::string_view kProgram = "Kestrum EC3";
constexpr std::string_view kMaker = "Kestrum EC3, free software under the MIT licence";

constexpr std::string_view kPageNumber = "1/1";  // of a report that fits its page

constexpr double kRightColumn = 136, kRightValue = 148;
constexpr double kLargeText = 5;
constexpr Point kNumberPlace{kRightValue, kPageTop + kLargeText};
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

// Blanks before the name of the profile, which set it off from the heading.
std::string_view Blanks(Kind kind, bool brief)
{
    switch (kind) {
    case Kind::angle:
        return "  ";
    case Kind::i_single:
    case Kind::hollow:
    case Kind::box:
    case Kind::box_unequal:
    case Kind::flat:
    case Kind::tube:
        return brief ? "  " : "";
    case Kind::hat:
    case Kind::tee:
        return brief ? " " : "";
    default:
        return "";
    }
}

// How a hollow section of the tables is made.
std::string_view MakeText(Make make, bool brief)
{
    switch (make) {
    case Make::hot:
        return brief ? " (Hotf.)" : " (Hot finished)";
    case Make::cold:
        return brief ? " (Coldf.)" : " (Cold formed)";
    default:
        return {};
    }
}

std::string PlateText(const Library& library, const ProjectState& s)
{
    const std::string plate = "Pl " + Sizes({s.btop, s.ttop});
    const double stiffener = 1.0 * s.h - s.ttop;
    const auto row = [&] {
        const Table table = TableOf(s);
        return RowKey(library, table, s.row[static_cast<std::size_t>(table)]);
    };
    switch (Traits(s).shape.stiffener) {
    case Stiffener::flat_bar:
        return plate + " + Fb " + Sizes({stiffener, s.tw});
    case Stiffener::rolled_angle:
        return plate + " + L " + row();
    case Stiffener::bulb_flat:
        return plate + " + BF " + row();
    case Stiffener::welded_angle:
        return plate + " + L " + Sizes({stiffener, s.bbot, s.tw, s.tbot});
    default:
        return plate + " + T " + Sizes({stiffener, s.bbot, s.tw, s.tbot});
    }
}

std::string ProfileName(const Library& library, const ProjectState& s, bool brief)
{
    const FamilyTraits& family = Traits(s);
    if (family.shape.stiffener != Stiffener::none) {
        return PlateText(library, s);
    }
    if (HasTable(s.family)) {
        const Table table = TableOf(s);
        return RowName(library, table, s.row[static_cast<std::size_t>(table)]) +
               std::string(MakeText(family.shape.make, brief));
    }
    const std::string name = std::string(family.text) + " ";
    switch (family.kind) {
    case Kind::i_welded:
    case Kind::box:
        return name + Sizes({s.h, s.b, s.tw, s.tf});
    case Kind::i_single:
        return name + Sizes({s.h, s.btop, s.bbot, s.tw, s.ttop, s.tbot});
    case Kind::hat:
        return name + Sizes({s.h, s.btop, s.bbot, s.tw, s.ttop, s.tbot}) +
               (family.shape.lower == LowerFlange::one_side ? "  (Non symm fl)" : "");
    case Kind::box_unequal:
        return name + Sizes({s.h, s.btop, s.bbot, s.tw, s.ttop, s.tbot}) + " (Single sym)";
    case Kind::tee:
        return name + Sizes({s.h, s.btop, s.tw, s.ttop});
    case Kind::flat:
        return name + Sizes({s.h, s.tw});
    case Kind::tube:
        return name + Sizes({s.d, s.tw}) + (s.tubehot == 1 ? " (Hot finished)" : " (Cold formed)");
    case Kind::general:
        return s.p41ident;
    default:
        return {};
    }
}

std::string Named(std::string_view name, const std::string& value)
{
    return value.empty() ? std::string() : std::string(name) + value + "  ";
}

// Where the head has room: logo, author and checker in its middle, company, number and revision
// below the file. Leaves the row in hand as it is.
void OfficeHead(PageWriter& page, const PrintStamp& stamp)
{
    constexpr double kLeft = 88, kRight = kRightColumn - 2, kLogoHeight = 9.5;
    const double row = page.y();
    const double top = kPageTop + kLargeText;
    const auto write = [&](double x, double rows, std::string_view text, double right) {
        page.MoveTo(top + rows * kPageRow);
        page.Write(x, text, {.verbatim = true}, right);
    };
    const Office& office = stamp.office;
    write(kLeft, 2.2, Named("Author: ", office.author), kRight);
    write(kLeft, 3.2, Named("Checker: ", office.checker), kRight);
    write(kRightColumn, 4.4, office.company, kPageRight);
    write(kRightColumn, 5.4, OfficeNumbers(office), kPageRight);
    if (!stamp.logo.bytes.empty()) {
        page.Add({{kLeft, kPageTop},
                  kRight - kLeft,
                  kLogoHeight,
                  std::make_shared<const std::string>(stamp.logo.bytes),
                  stamp.logo.svg});
    }
    page.Foot(stamp.origin);
    page.MoveTo(row);
}

}  // namespace

std::string FileText(std::string_view filename)
{
    const bool fits = CharacterCount(filename) <= kFileCharacters &&
                      TextWidth(filename, kPageText) <= kPageRight - kRightValue;
    return std::string(fits ? filename : filename.substr(filename.find_last_of("/\\") + 1));
}

PrintedReport Bind(std::vector<PageWriter> pages)
{
    PrintedReport report;
    const std::string count = std::to_string(pages.size());
    for (PageWriter& page : pages) {
        PrintedReport one = page.Take();
        Drawing& sheet = report.pages.emplace_back(std::move(one.pages.front()));
        for (Mark& mark : sheet.marks) {
            auto* const text = std::get_if<TextMark>(&mark);
            if (text != nullptr && text->text == kPageNumber && text->at == kNumberPlace) {
                text->text = std::to_string(report.pages.size()) + "/" + count;
            }
        }
        report.missing.insert(report.missing.end(), one.missing.begin(), one.missing.end());
    }
    return report;
}

std::string OfficeNumbers(const Office& office)
{
    return Named("Project no. ", office.projectnumber) + Named("Rev. ", office.revision);
}

std::string TakeOffice(Office office, PrintStamp& stamp)
{
    stamp.office = std::move(office);
    if (!stamp.office.date.empty()) {
        stamp.date = stamp.office.date;
        stamp.time.clear();  // of another day
    }
    return ReadOfficeLogo(stamp.office, stamp.logo);
}

std::string OriginText(const std::string& file, const std::string& digest)
{
    return std::string(kProgram) + " " + std::string(kVersion) + (file.empty() ? "" : ", " + file) +
           (digest.empty() ? "" : ", SHA-256 " + digest);
}

void PageHeader(PageWriter& page, const Library& library, const ProjectState& s,
                const PrintStamp& stamp, std::string_view title)
{
    constexpr double kGap = 2, kWord = 0.8;
    const double left_end = kRightColumn - kGap;
    page.MoveTo(kPageTop + kLargeText);
    page.Write(kPageLeft, kProgram, {.bold = true, .size = kLargeText});
    page.Write(kRightColumn, "Page:");
    page.Write(kRightValue, kPageNumber);
    page.Row(1.2);
    page.Write(kPageLeft, title, {}, left_end);
    page.Write(kRightColumn, "Date: ");
    page.Write(kRightValue, stamp.date, {.verbatim = true});
    page.Row();
    page.Write(kPageLeft, "Version " + std::string(kVersion) + " ");
    page.Write(kRightColumn, "Time: ");
    page.Write(kRightValue, stamp.time);
    page.Row();
    page.Write(kPageLeft, kMaker);
    page.Write(kRightColumn, "File: ");
    page.Write(kRightValue, FileText(s.filename), {.verbatim = true});
    page.Row(1.2);
    const double project = page.Write(kPageLeft, "Project: ", {.bold = true});
    page.Write(project + kWord, FirstCharacters(s.projname, kProjectCharacters),
               {.bold = true, .verbatim = true});
    page.Row();
    const double ident = page.Write(kPageLeft, "Identification: ", {.bold = true});
    page.Write(ident + kWord, FirstCharacters(s.ident, kIdentCharacters),
               {.bold = true, .verbatim = true});
    OfficeHead(page, stamp);
    page.Rule();
    page.Row(2);
    PrintWrapped(page, stamp.warning, {.bold = true, .ink = Ink::bad});
    PrintWrapped(page, OwnDataText(library), {});
}

std::string ProfileText(const Library& library, const ProjectState& s, bool brief)
{
    return std::string(Blanks(Traits(s).kind, brief)) + ProfileName(library, s, brief);
}

}  // namespace kestrum
