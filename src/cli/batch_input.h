#pragma once

// The inputs of a batch as a stream of chunks: project files, folders of them, tables, standard
// input.

#include "app/batch.h"
#include "cli/context.h"
#include "cli/table_reader.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace kestrum::cli {

class BatchInput {
public:
    // Throws BadInput for an input that is not there. `form` is that of the answers.
    BatchInput(const std::vector<std::string>& inputs, const AnswerForm& form, bool keepothers,
               const Interrupt& interrupt);

    // The columns of the first table that are no fields. Reads its first line.
    std::vector<std::string> OtherColumns();

    // Leaves out the first members, which are answered already.
    void Skip(std::size_t members) { skip_ = members; }

    // The next members; false behind the last, and when the user stops the program. What cannot be
    // read is told, counted and left out.
    bool Next(BatchChunk& chunk);

    // Throws BadInput when the answers would be written over an input. `out` is a file, "-" for
    // standard output.
    void Spare(const std::string& out) const;

    bool faulty() const { return faulty_; }
    std::uintmax_t taken() const { return taken_; }  // bytes read so far; of files their number
    std::uintmax_t whole() const { return whole_; }  // of how many; 0 when nobody knows

private:
    struct Input {
        std::string name;
        bool table;
    };
    void AddInput(const std::string& name);
    bool NextLines(BatchChunk& chunk);
    bool NextFiles(BatchChunk& chunk);
    bool Skipped(BatchChunk& chunk);
    void Fault(const std::string& name, const std::string& what);

    std::unique_ptr<TableReader> Reader(const std::string& name);

    const Interrupt& interrupt_;
    const AnswerForm& form_;
    const bool keepothers_;
    std::deque<Input> inputs_;
    std::size_t skip_ = 0;
    bool several_ = false;
    bool faulty_ = false;
    std::atomic<std::uintmax_t> taken_ = 0;  // another thread shows it
    std::uintmax_t whole_ = 0;
    std::size_t place_ = 0;

    TableReader::Columns columns_;         // of all tables, chunks refer to them
    std::unique_ptr<TableReader> first_;   // of the first table, while its turn has not come
    std::unique_ptr<TableReader> reader_;  // of the current table
};

}  // namespace kestrum::cli
