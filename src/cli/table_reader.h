#pragma once

// One table of members as a stream of chunks: CSV, NDJSON or a JSON array in any encoding that
// spreadsheets write. What is held of it stays small however long it is.

#include "app/batch.h"
#include "app/json_array.h"
#include "app/table_text.h"
#include "cli/interrupt.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kestrum::cli {

class TableReader {
public:
    using Columns = std::vector<std::unique_ptr<MemberColumns>>;

    // `name` is "-" for standard input. `columns` keeps those of all tables: chunks refer to them.
    // Reading ends early when the user stops the program. `keepothers`: columns that are no fields
    // are kept for the answer.
    TableReader(const std::string& name, Columns& columns, const Interrupt& interrupt,
                bool keepothers);

    // Reads on until the columns are known, of a CSV; null for NDJSON and for what cannot be read.
    const MemberColumns* ReadColumns();

    // The next members. False behind the last, and when the table cannot be read on.
    bool Next(BatchChunk& chunk);

    // Why it could not be read on, "t.csv:1: what"; empty when it was read to its end.
    const std::string& fault() const { return fault_; }
    std::uintmax_t TakeBytes()
    {
        return std::exchange(bytes_, std::uintmax_t{0});
    }  // read since the last call

private:
    struct Close {
        void operator()(std::FILE* file) const
        {
            if (file != stdin) {
                std::fclose(file);
            }
        }
    };

    bool ReadBlock();
    void Decode(std::string_view bytes);
    std::string Append(std::string_view bytes);
    bool SetForm();
    std::size_t WholeMembers(std::size_t most) const;
    void Stop(std::string fault);

    bool ReadOn();

    std::string name_;
    std::unique_ptr<std::FILE, Close> file_;
    const Interrupt& interrupt_;
    const bool keepothers_;
    Columns& columns_;
    TableDecoder decoder_;
    bool ended_ = false;
    bool unseen_ = false;  // read, but not yet looked through for members
    std::size_t piece_;    // bytes of the next chunk
    bool known_ = false;   // whether its form and columns are
    TableForm form_ = TableForm::csv;
    std::optional<JsonArray> array_;  // of a table that is one
    std::string block_;               // as read
    std::string rest_;                // decoded and not yet handed out
    bool dropping_ = false;           // within a line that is too long
    std::size_t row_ = 1, line_ = 1;
    std::uintmax_t bytes_ = 0;
    std::string fault_;
};

}  // namespace kestrum::cli
