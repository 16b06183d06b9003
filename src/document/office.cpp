#include "document/office.h"

#include "core/file_io.h"
#include "core/utf8_path.h"
#include "core/utf8_text.h"
#include "sections/load_library.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace kestrum {

namespace {

struct Entry {
    std::string_view name;
    std::string Office::*field;
};

constexpr std::array<Entry, 8> kEntries{{{"company", &Office::company},
                                         {"logo", &Office::logo},
                                         {"projectnumber", &Office::projectnumber},
                                         {"author", &Office::author},
                                         {"checker", &Office::checker},
                                         {"revision", &Office::revision},
                                         {"date", &Office::date},
                                         {"decimal", &Office::decimal}}};

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? std::string_view{}
               : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string Names()
{
    std::string names;
    for (const Entry& entry : kEntries) {
        names.append(names.empty() ? "" : ", ").append(entry.name);
    }
    return names;
}

// Big-endian.
double NumberAt(std::string_view bytes, std::size_t at)
{
    double number = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        number = number * 256 + static_cast<unsigned char>(bytes[at + i]);
    }
    return number;
}

}  // namespace

std::string SetOffice(Office& office, std::string_view name, std::string_view value)
{
    const auto* const entry = std::find_if(kEntries.begin(), kEntries.end(),
                                           [&](const Entry& e) { return e.name == name; });
    if (entry == kEntries.end()) {
        return "field " + Printable(name) + ": not known; there are " + Names();
    }
    if (name == "decimal" && value != "point" && value != "comma") {
        return "field decimal: expected point or comma, found \"" + Printable(value) + "\"";
    }
    office.*(entry->field) = AsUtf8(value);
    return {};
}

std::optional<FileFault> ReadOffice(std::string_view bytes, Office& office)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";  // byte order mark
    if (bytes.starts_with(kMark)) {
        bytes.remove_prefix(kMark.size());
    }
    for (int number = 1; !bytes.empty(); ++number) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        const std::string_view line = Trimmed(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.empty() || line.front() == '#') {
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            return FileFault{number, "expected name = text, found \"" + Printable(line) + "\""};
        }
        std::string fault =
            SetOffice(office, Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)));
        if (!fault.empty()) {
            return FileFault{number, std::move(fault)};
        }
    }
    return std::nullopt;
}

std::string ReadLogo(std::string bytes, Logo& logo)
{
    constexpr std::string_view kPng = "\x89PNG\r\n\x1a\n";
    constexpr std::size_t kSizes = 16;  // width and height, of the first chunk
    if (bytes.starts_with(kPng) && bytes.size() >= kSizes + 8) {
        logo = {std::move(bytes), false, 0, 0};
        logo.width = NumberAt(logo.bytes, kSizes);
        logo.height = NumberAt(logo.bytes, kSizes + 4);
        return logo.width > 0 && logo.height > 0 ? "" : "the PNG has no size";
    }
    if (bytes.find("<svg") != std::string::npos) {
        logo = {std::move(bytes), true, 0, 0};
        return {};
    }
    return "neither PNG nor SVG";
}

void TakeOffice(const Office& office, DocumentHead& head)
{
    head.company = office.company;
    head.projectnumber = office.projectnumber;
    head.author = office.author;
    head.checker = office.checker;
    head.revision = office.revision;
    head.date = office.date;
    head.decimal = office.decimal == "comma" ? ',' : '.';
}

std::string ReadOfficeFile(const std::string& path, Office& office)
{
    std::string bytes;
    const std::string fault = ReadWholeFile(path, bytes);
    if (!fault.empty()) {
        return path + ": " + fault;
    }
    const std::optional<FileFault> line = ReadOffice(bytes, office);
    return line ? FaultText(path, *line) : std::string();
}

std::string ReadUserOffice(Office& office)
{
    const std::string folder = UserDataFolder();
    const std::string path = folder + "/" + std::string(kOfficeFile);
    std::error_code ignored;
    const bool there = !folder.empty() && std::filesystem::is_regular_file(Utf8Path(path), ignored);
    return there ? ReadOfficeFile(path, office) : std::string();
}

std::string HeadOf(const Office& office, DocumentHead& head)
{
    TakeOffice(office, head);
    if (office.logo.empty()) {
        return {};
    }
    std::string bytes;
    std::string fault = ReadWholeFile(office.logo, bytes);
    if (fault.empty()) {
        fault = ReadLogo(std::move(bytes), head.logo);
    }
    return fault.empty() ? fault : office.logo + ": " + fault;
}

}  // namespace kestrum
