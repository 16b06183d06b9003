#pragma once

// Where the answers of a batch go: standard output, a device, or a file. A file appears under its
// name when the run is done; until then its answers stand in a neighbour, NAME.part, from which a
// run that was stopped goes on.

#include "app/batch.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace kestrum::cli {

class BatchOutput {
public:
    // Nothing is opened yet. "-" or an empty name is standard output.
    explicit BatchOutput(const std::string& name);
    ~BatchOutput();
    BatchOutput(const BatchOutput&) = delete;
    BatchOutput& operator=(const BatchOutput&) = delete;

    // Counts what an earlier run has answered and cuts off a line that it left unfinished; the
    // answers to come are appended. Throws BadInput when the file holds something else.
    std::size_t TakeUp(const AnswerForm& form, Tally& tally);

    // Throws BadInput, as does all that follows.
    void Open(const AnswerForm& form);

    // What is written is handed over at once.
    void Write(std::string_view text);

    // All is answered: the file gets its name.
    void Finish();

private:
    void Put(std::string_view text);
    bool Close();
    [[noreturn]] void Fail(int fault) const;

    std::string name_;               // for messages
    std::filesystem::path target_;   // the file in the end; empty for standard output
    std::filesystem::path written_;  // where the answers go until then
    std::FILE* file_ = nullptr;
    bool regular_ = false;  // a file, no device
    bool append_ = false;
    bool answers_ = false;  // whether there is anything to go on from
};

}  // namespace kestrum::cli
