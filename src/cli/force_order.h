#pragma once

// Rows of forces in the order of their members and cases. Rows that are not in it are sorted on
// disk: as many as fit into the memory granted are sorted and written, and the runs merged.

#include "cli/text_stream.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum::cli {

struct OrderedRow {
    std::uint32_t member;  // kNobody last
    std::uint64_t line;
    std::string_view load_case, record;
};
constexpr std::uint32_t kNobody = 0xFFFFFFFF;

class RowSorter {
public:
    // `memory` in bytes.
    explicit RowSorter(std::size_t memory);

    void Add(const OrderedRow& row);

    // Behind the last one.
    void Close();
    // The rows in their order: by member, the text of the case, the line. False behind the last.
    // Texts last until the next call.
    bool Next(OrderedRow& row);

    std::size_t runs() const { return runs_.size(); }

private:
    struct Held {
        std::uint32_t member, case_length, record_length;
        std::uint64_t line;
        std::size_t at;  // in text_: the case, then the record
    };
    struct Run {
        File file;
        std::uint32_t member = 0;
        std::uint64_t line = 0;
        std::string text{};
        std::size_t case_length = 0;

        OrderedRow Row() const;
    };
    OrderedRow RowOf(const Held& held) const;
    void Sort();
    void Flush();
    bool Fill(Run& run);

    std::size_t memory_;
    std::string text_;
    std::vector<Held> held_;
    std::size_t next_ = 0;
    std::vector<Run> runs_;
    std::vector<std::size_t> heap_;  // runs that have a row, the first in order in front
    bool pending_ = false;           // the run in front has given its row away
};

}  // namespace kestrum::cli
