#pragma once

// The inputs of a batch as a stream of chunks: project files, folders of them, tables, standard
// input.

#include "app/batch.h"
#include "cli/context.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace kestrum::cli {

class BatchInput {
public:
    // Throws BadInput for an input that is not there. The first `skip` members are left out.
    BatchInput(const std::vector<std::string>& inputs, std::size_t skip);

    // The next members; false behind the last. What cannot be read is told, counted and left out.
    bool Next(BatchChunk& chunk);

    // Throws BadInput when the answers would be written over an input.
    void Spare(const std::string& out) const;

    bool faulty() const { return faulty_; }
    std::uintmax_t taken() const { return taken_; }  // bytes read so far; of files their number
    std::uintmax_t whole() const { return whole_; }  // of how many; 0 when nobody knows

private:
    struct Input {
        std::string name;
        bool table;
    };
    struct Close {
        void operator()(std::FILE* file) const
        {
            if (file != stdin) {
                std::fclose(file);
            }
        }
    };

    void AddInput(const std::string& name);
    bool OpenTable(const std::string& name);
    bool ReadBlock();
    bool NextLines(BatchChunk& chunk);
    bool NextFiles(BatchChunk& chunk);
    bool Skipped(BatchChunk& chunk);
    void SetForm();
    void Fault(const std::string& name, const std::string& what);

    std::deque<Input> inputs_;
    std::size_t skip_;
    bool several_ = false;
    bool faulty_ = false;
    std::atomic<std::uintmax_t> taken_ = 0;  // another thread shows it
    std::uintmax_t whole_ = 0;
    std::size_t place_ = 0;

    // The table in hand.
    std::string table_;
    std::unique_ptr<std::FILE, Close> file_;
    bool ended_ = true;
    bool known_ = false;  // whether its form and columns are
    TableForm form_ = TableForm::csv;
    std::vector<std::unique_ptr<MemberColumns>> columns_;  // of all tables, chunks refer to them
    std::string rest_;                                     // read and not yet handed out
    bool dropping_ = false;                                // within a line that is too long
    std::size_t row_ = 1, line_ = 1;
};

}  // namespace kestrum::cli
