#pragma once

// What an office writes on its reports, and the small file in which it keeps that: a line
// `name = text` for each, in UTF-8; empty lines and those that begin with # are passed over.
//   company, logo (path of a PNG or SVG file), projectnumber, author, checker, revision, date,
//   decimal (point or comma)

#include "core/file_notation.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct Office {
    std::string company{}, logo{}, projectnumber{}, author{}, checker{}, revision{}, date{};
    std::string decimal{};  // "point", "comma" or empty

    bool operator==(const Office&) const = default;
};

constexpr std::string_view kOfficeFile = "office.txt";

// A picture file as it was read.
struct Logo {
    std::string bytes{};
    bool svg = false;
    double width = 0, height = 0;  // in its own unit; 0 where it does not say
};

// The fields by their names, in the order of the file.
struct OfficeField {
    std::string_view name;
    std::string Office::*value;
};
std::span<const OfficeField> OfficeFields();

// The file with what is set; comments and the order of an earlier file are not kept.
std::string OfficeText(const Office& office);

// Sets what the file names. A fault leaves what was read before it.
std::optional<FileFault> ReadOffice(std::string_view bytes, Office& office);

// Empty, or what is wrong with a single value: its name and what is allowed.
std::string SetOffice(Office& office, std::string_view name, std::string_view value);

// Empty, or why the bytes are no PNG or SVG that can be shown.
std::string ReadLogo(std::string bytes, Logo& logo);

// These read files and return what is wrong, with the name of the file; empty where nothing is.
std::string ReadOfficeFile(const std::string& path, Office& office);
// office.txt in the data folder of the user, where there is one.
std::string ReadUserOffice(Office& office);
std::string ReadOfficeLogo(const Office& office, Logo& logo);
// That file, in the folder that it is read from. What is wrong, or nothing.
std::string SaveUserOffice(const Office& office);

}  // namespace kestrum
