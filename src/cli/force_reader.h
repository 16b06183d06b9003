#pragma once

// A table of forces as a stream of pieces, each with whole cases of its members. It is read twice:
// once to see whether members and cases stand together, which memory does not depend on, and once
// for the forces. Rows in another order are sorted on disk. What can be read but once, standard
// input, is kept on disk meanwhile.

#include "app/envelope.h"
#include "app/force_table.h"
#include "app/member_list.h"
#include "app/shard.h"
#include "cli/force_order.h"
#include "cli/text_stream.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrum::cli {

class ForceReader {
public:
    // Reads the line of the names. Throws BadInput.
    ForceReader(const std::string& name, const ForceManner& manner, const MemberList& members,
                std::size_t memory, const Interrupt& interrupt);

    // Looks through the table, and sorts it where it must. `show` is called now and then. False
    // when the user stops the program.
    template <class Show> bool Prepare(const Show& show)
    {
        return Scan([&] { show(taken_.load(), whole_); });
    }

    bool Next(ForcePiece& piece);

    // Of the members those of the shard; rows of strangers are handed on in the first one.
    void SetShard(Shard shard) { shard_ = shard; }

    // The place of a member that was handed on: in the order of the rows, or, where they had to be
    // sorted, of the table of members.
    std::size_t PlaceOf(std::size_t member) const { return places_[member]; }

    const ForceColumns& columns() const { return columns_; }
    const std::string& name() const { return name_; }
    bool sorted() const { return !sorter_; }
    std::size_t runs() const { return sorter_ ? sorter_->runs() : 0; }
    std::uintmax_t taken() const { return taken_; }  // bytes of the table
    std::uintmax_t whole() const { return whole_; }  // 0 when nobody knows

private:
    // Takes the next record off the text; false when there is none.
    bool TakeNext(TextStream& stream, std::string_view& record);
    bool Scan(const std::function<void()>& show);
    bool IsSorted(const std::function<void()>& show, bool& stopped);
    void SortRows(const std::function<void()>& show);
    bool NextSorted(ForcePiece& piece);
    bool NextStreamed(ForcePiece& piece);
    void Reopen();
    void Enter(std::uint32_t member);

    std::string file_, name_;
    const MemberList& members_;
    std::size_t memory_;
    const Interrupt& interrupt_;
    ForceColumns columns_;
    std::unique_ptr<TextStream> stream_;
    File spool_;
    std::optional<RowSorter> sorter_;
    bool regular_ = false;
    std::string text_;
    std::size_t at_ = 0;    // of text_ that is taken
    std::size_t line_ = 1;  // of the next record
    bool ended_ = false;    // nothing is left to read
    Shard shard_;
    std::vector<std::size_t> places_;  // another thread reads those of members handed on
    std::size_t seen_ = 0;             // members
    std::atomic<std::uintmax_t> taken_ = 0;
    std::uintmax_t whole_ = 0;
    // Of a row taken for a piece that was full.
    std::string waiting_;
    std::size_t waiting_line_ = 0;
    bool waits_ = false;
    std::string member_, case_;  // of the last row taken
    std::uint32_t place_ = 0;    // of its member, of sorted rows
    bool any_ = false;
    bool dropping_ = false;  // rows of a member that is another's
};

}  // namespace kestrum::cli
