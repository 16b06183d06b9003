// Profile tables and materials behind the interface.

#include "core/utf8_path.h"
#include "library/builtin_library.h"
#include "library/handles.h"
#include "sections/family_table.h"
#include "sections/load_library.h"
#include "sections/section_names.h"

#include <charconv>
#include <filesystem>
#include <string_view>

namespace {

using kestrum::FamilyTraits;
using kestrum::library::Answered;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredText;

kestrum::Library Opened(const std::string& folder)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(kestrum::Utf8Path(folder), ignored)) {
        throw Refusal{KESTRUM_BAD_FILE, folder + ": no such folder"};
    }
    kestrum::Library library = kestrum::LoadLibrary(folder);
    if (!library.faults.empty()) {
        throw Refusal{KESTRUM_BAD_FILE, library.faults.front()};
    }
    if (library.materials.empty()) {
        throw Refusal{KESTRUM_BAD_FILE, folder + ": no material list"};
    }
    return library;
}

int FamilyNumber(std::string_view text)
{
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, fault] = std::from_chars(text.data(), end, number);
    if (fault == std::errc{} && rest == end) {
        return number;
    }
    const auto found = kestrum::FamiliesOfName(text);
    if (found.size() != 1) {
        throw Refusal{KESTRUM_UNKNOWN_NAME,
                      std::string(text) +
                          (found.empty() ? ": no such family" : ": several families"),
                      "family"};
    }
    return found.front().family;
}

std::string SectionNames(const kestrum::Library& library, std::string_view family)
{
    const FamilyTraits* const info = kestrum::FindFamily(FamilyNumber(family));
    if (info == nullptr) {
        throw Refusal{KESTRUM_UNKNOWN_NAME, std::string(family) + ": no such family", "family"};
    }
    std::string names;
    for (const kestrum::Table table : info->tables) {
        for (int row = 0; row < kestrum::RowCount(table); ++row) {
            names += kestrum::RowName(library, table, row) + "\n";
        }
    }
    return names;
}

}  // namespace

kestrum_code kestrum_catalogue_builtin(kestrum_catalogue** out, kestrum_error** error)
{
    return Answered(out, error, [] {
        return kestrum_catalogue{
            std::make_shared<const kestrum::Library>(kestrum::library::BuiltinLibrary())};
    });
}

kestrum_code kestrum_catalogue_open(const char* folder, kestrum_catalogue** out,
                                    kestrum_error** error)
{
    return Answered(out, error, [&] {
        return kestrum_catalogue{
            std::make_shared<const kestrum::Library>(Opened(RequiredText(folder, "folder")))};
    });
}

kestrum_code kestrum_catalogue_sections(const kestrum_catalogue* catalogue, const char* family,
                                        kestrum_text** out, kestrum_error** error)
{
    return Answered(out, error, [&] {
        return kestrum_text{SectionNames(*Required(catalogue, "catalogue").library,
                                         RequiredText(family, "family"))};
    });
}

void kestrum_catalogue_free(kestrum_catalogue* catalogue)
{
    delete catalogue;
}
