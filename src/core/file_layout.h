#pragma once

// What project and setup file share: a walk over the fields of the table reads or writes a file.

#include "core/field_table.h"
#include "core/file_notation.h"

#include <string>
#include <string_view>

namespace kestrum {

class ReadingFile {
public:
    explicit ReadingFile(std::string_view bytes) : reader_(bytes) {}
    static constexpr bool kReads = true;

    void Value(std::string_view name, i16& value) { reader_.Take(name, value); }
    void Exchange(ProjectState& s, const Field& field, int row = 0);
    bool ok() const { return reader_.ok(); }
    const FileFault& fault() const { return reader_.fault(); }

private:
    ValueReader reader_;
};

class WritingFile {
public:
    static constexpr bool kReads = false;

    void Value(std::string_view, i16& value) { writer_.Put(value); }
    void Exchange(ProjectState& s, const Field& field, int row = 0);
    bool ok() const { return true; }
    std::string Finish() { return writer_.Finish(); }

private:
    ValueWriter writer_;
};

}  // namespace kestrum
