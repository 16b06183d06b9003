#include "report/office.h"

#include "core/file_io.h"
#include "core/utf8_path.h"
#include "core/utf8_text.h"
#include "sections/load_library.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>

namespace kestrum {

namespace {

constexpr std::array<OfficeField, 8> kFields{{{"company", &Office::company},
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

// Width and height from the view box of an SVG; stay 0 without one.
void ReadSvgSize(Logo& logo)
{
    std::string_view box(logo.bytes);
    constexpr std::string_view kKey = "viewBox=";
    const std::size_t at = box.find(kKey);
    if (at == std::string_view::npos) {
        return;
    }
    box.remove_prefix(std::min(at + kKey.size() + 1, box.size()));  // with the quote
    std::array<double, 4> numbers{};
    for (double& number : numbers) {
        box.remove_prefix(std::min(box.find_first_not_of(" ,\t\r\n"), box.size()));
        const auto [end, fault] = std::from_chars(box.data(), box.data() + box.size(), number);
        if (fault != std::errc{}) {
            return;
        }
        box.remove_prefix(static_cast<std::size_t>(end - box.data()));
    }
    if (numbers[2] > 0 && numbers[3] > 0) {
        logo.width = numbers[2];
        logo.height = numbers[3];
    }
}

std::string Names()
{
    std::string names;
    for (const OfficeField& field : kFields) {
        names.append(names.empty() ? "" : ", ").append(field.name);
    }
    return names;
}

// In the data folder of the user; empty where there is none.
std::string UserFile()
{
    const std::string folder = UserDataFolder();
    return folder.empty() ? folder : folder + "/" + std::string(kOfficeFile);
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
    const auto* const field = std::find_if(kFields.begin(), kFields.end(),
                                           [&](const OfficeField& f) { return f.name == name; });
    if (field == kFields.end()) {
        return "field " + Printable(name) + ": not known; there are " + Names();
    }
    if (name == "decimal" && value != "point" && value != "comma") {
        return "field decimal: expected point or comma, found \"" + Printable(value) + "\"";
    }
    office.*(field->value) = AsUtf8(value);
    return {};
}

std::span<const OfficeField> OfficeFields()
{
    return kFields;
}

std::string OfficeText(const Office& office)
{
    std::string text;
    for (const OfficeField& field : kFields) {
        std::string value(Trimmed(office.*(field.value)));
        std::replace(value.begin(), value.end(), '\n', ' ');
        std::replace(value.begin(), value.end(), '\r', ' ');
        if (!value.empty()) {
            text.append(field.name).append(" = ").append(value).append("\n");
        }
    }
    return text;
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
        ReadSvgSize(logo);
        return {};
    }
    return "neither PNG nor SVG";
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
    const std::string path = UserFile();
    std::error_code ignored;
    const bool there = !path.empty() && std::filesystem::is_regular_file(Utf8Path(path), ignored);
    return there ? ReadOfficeFile(path, office) : std::string();
}

std::string SaveUserOffice(const Office& office)
{
    const std::string path = UserFile();
    if (path.empty()) {
        return "there is no folder for the data of the user";
    }
    std::error_code fault;
    std::filesystem::create_directories(Utf8Path(path).parent_path(), fault);
    const std::string problem = fault ? fault.message() : WriteWholeFile(path, OfficeText(office));
    return problem.empty() ? problem : path + ": " + problem;
}

std::string ReadOfficeLogo(const Office& office, Logo& logo)
{
    if (office.logo.empty()) {
        return {};
    }
    std::string bytes;
    std::string fault = ReadWholeFile(office.logo, bytes);
    if (fault.empty()) {
        fault = ReadLogo(std::move(bytes), logo);
    }
    return fault.empty() ? fault : office.logo + ": " + fault;
}

}  // namespace kestrum
