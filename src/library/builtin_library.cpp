#include "library/builtin_library.h"

#include "core/material.h"
#include "core/setup_file.h"
#include "sections/read_profiles.h"
#include "sections/second_source.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrum::library {

namespace {

struct EmbeddedFile {
    std::string_view name;
    std::string_view bytes;
};

// Each file as a literal of its bytes.
constexpr EmbeddedFile kFiles[] = {
#include "library/embedded_data.inc"
};

std::string BytesOf(std::string_view name)
{
    const auto* const file = std::find_if(std::begin(kFiles), std::end(kFiles),
                                          [name](const auto& f) { return f.name == name; });
    if (file == std::end(kFiles)) {
        throw std::logic_error("no embedded " + std::string(name));
    }
    return std::string(file->bytes);
}

}  // namespace

Library BuiltinLibrary()
{
    Library library;
    library.tables = EmptyTables();
    for (std::size_t i = 0; i < kTables; ++i) {
        const TableShape& shape = ShapeOf(static_cast<Table>(i));
        FillProfile(BytesOf(shape.file), shape, library.tables.at(i));
    }
    library.corrected = ReadSecondSource(library, BytesOf(kSecondSourceFile));
    library.materials = ReadMaterialList(BytesOf(kMaterialFile));
    library.setup = BytesOf(kSetupFile);
    return library;
}

}  // namespace kestrum::library
