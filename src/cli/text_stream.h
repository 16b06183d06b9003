#pragma once

// A table of any length as decoded text, block by block.

#include "app/table_text.h"
#include "cli/interrupt.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace kestrum::cli {

struct CloseFile {
    void operator()(std::FILE* file) const
    {
        if (file != stdin) {
            std::fclose(file);
        }
    }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

class TextStream {
public:
    // `name` is "-" for standard input. Throws BadInput.
    TextStream(const std::string& name, const Interrupt& interrupt);
    // What was decoded before: a file of its own, read from its start.
    TextStream(File spooled, std::string name, const Interrupt& interrupt);

    // Appends the next text. False at the end, and when the user stops the program. Throws BadInput
    // for what cannot be read or is no table.
    bool Read(std::string& text);

    const std::string& name() const { return name_; }  // for messages
    std::uintmax_t taken() const { return taken_; }    // bytes

private:
    std::string name_;
    File file_;
    const Interrupt& interrupt_;
    bool decoded_;
    bool ended_ = false;
    TableDecoder decoder_;
    std::string block_;
    std::uintmax_t taken_ = 0;
};

// A file without a name for what does not fit into memory, in the folder for such (TMPDIR). Throws
// BadInput.
File TemporaryFile();

// Writes all of it. Throws BadInput.
void WriteTemporary(std::FILE* file, const char* bytes, std::size_t count);

}  // namespace kestrum::cli
