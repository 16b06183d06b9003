#pragma once

// Where the answers of a batch go: standard output, a device, or a file. A file appears under its
// name when the run is done; until then its answers stand in a neighbour, NAME.part, from which a
// run that was stopped goes on, and NAME.part.inputs says what they belong to.

#include "app/batch.h"
#include "cli/batch_origin.h"
#include "cli/part_file.h"
#include "core/file_lock.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace kestrum::cli {

// Between what a shard belongs to and its order.
constexpr const char* kOrderHead = "order\n";

// The name of the file that comes with the answers of a shard.
std::string ShardName(const std::string& answers);

class BatchOutput {
public:
    // "-" or an empty name is standard output. A file is this run's alone from here on. What is
    // not `kept` leaves nothing when it ends early. Throws BadInput, as does all that follows.
    BatchOutput(const std::string& name, bool resume, bool kept = true);
    ~BatchOutput();
    BatchOutput(const BatchOutput&) = delete;
    BatchOutput& operator=(const BatchOutput&) = delete;

    // Counts what an earlier run has answered and cuts off a line that it left unfinished; the
    // answers to come are appended. The file must hold answers of this form, to these inputs.
    std::size_t TakeUp(const AnswerLines& form, Tally& tally, const BatchOrigin& origin);

    // Without TakeUp from the first line on.
    void Begin(const AnswerLines& form, const BatchOrigin& origin);

    // What is written is handed over at once.
    void Write(std::string_view text);

    // All is answered: the file gets its name. The answers of a shard come with a file NAME.shard,
    // which says what they belong to and where they stand in the whole run.
    void Finish(const ShardOrder* order = nullptr);

    // The user stopped the run behind so many members. Returns how to go on, a line.
    std::string Suspend(std::size_t members);

private:
    std::FILE* Stream() const { return regular_ ? part_.stream() : device_; }
    void OpenPart(bool resume);
    std::string OriginName() const;
    void Put(std::string_view text);
    [[noreturn]] void Fail(const std::string& fault) const;

    std::string name_;               // for messages
    std::string origin_;             // what the answers belong to
    std::filesystem::path target_;   // the file in the end; empty for standard output
    std::filesystem::path written_;  // where the answers go until then
    PartFile part_;
    FileLock lock_;                // on what the name holds already
    std::FILE* device_ = nullptr;  // instead of a file
    bool regular_ = false;         // a file, no device
    const bool kept_;              // for a later run to go on from
    bool taken_up_ = false;
    bool answers_ = false;  // whether there is anything to go on from
    bool strange_ = false;  // taken up, but nothing says what the answers belong to
};

}  // namespace kestrum::cli
