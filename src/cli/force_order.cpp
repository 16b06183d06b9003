#include "cli/force_order.h"

#include "cli/context.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <tuple>
#include <utility>

namespace kestrum::cli {

namespace {

bool Before(const OrderedRow& a, const OrderedRow& b)
{
    return std::tie(a.member, a.load_case, a.line) < std::tie(b.member, b.load_case, b.line);
}

struct Head {
    std::uint32_t member, case_length, record_length, unused;
    std::uint64_t line;
};

}  // namespace

RowSorter::RowSorter(std::size_t memory) : memory_(memory) {}

OrderedRow RowSorter::RowOf(const Held& held) const
{
    const std::string_view text = text_;
    return {held.member, held.line, text.substr(held.at, held.case_length),
            text.substr(held.at + held.case_length, held.record_length)};
}

OrderedRow RowSorter::Run::Row() const
{
    const std::string_view whole = text;
    return {member, line, whole.substr(0, case_length), whole.substr(case_length)};
}

void RowSorter::Add(const OrderedRow& row)
{
    const std::size_t more = row.load_case.size() + row.record.size() + sizeof(Held);
    // Twice: vectors and texts grow by doubling.
    if (2 * (text_.size() + held_.size() * sizeof(Held) + more) > memory_ && !held_.empty()) {
        Flush();
    }
    held_.push_back({row.member, static_cast<std::uint32_t>(row.load_case.size()),
                     static_cast<std::uint32_t>(row.record.size()), row.line, text_.size()});
    text_.append(row.load_case).append(row.record);
}

void RowSorter::Sort()
{
    std::sort(held_.begin(), held_.end(),
              [this](const Held& a, const Held& b) { return Before(RowOf(a), RowOf(b)); });
}

void RowSorter::Flush()
{
    Sort();
    Run run{TemporaryFile()};
    for (const Held& held : held_) {
        const Head head{held.member, held.case_length, held.record_length, 0, held.line};
        std::array<char, sizeof(Head)> bytes;
        std::memcpy(bytes.data(), &head, sizeof head);
        WriteTemporary(run.file.get(), bytes.data(), bytes.size());
        WriteTemporary(run.file.get(), text_.data() + held.at,
                       held.case_length + held.record_length);
    }
    if (std::fflush(run.file.get()) != 0) {
        WriteTemporary(run.file.get(), "", 1);  // tells why
    }
    std::rewind(run.file.get());
    runs_.push_back(std::move(run));
    held_.clear();
    text_.clear();
}

bool RowSorter::Fill(Run& run)
{
    Head head{};
    std::array<char, sizeof(Head)> bytes;
    if (std::fread(bytes.data(), 1, bytes.size(), run.file.get()) != bytes.size()) {
        if (std::ferror(run.file.get()) != 0) {
            throw BadInput("temporary file: cannot be read back");
        }
        return false;
    }
    std::memcpy(&head, bytes.data(), sizeof head);
    run.member = head.member;
    run.line = head.line;
    run.case_length = head.case_length;
    const std::size_t length = std::size_t{head.case_length} + head.record_length;
    run.text.resize(length);
    if (std::fread(run.text.data(), 1, length, run.file.get()) != length) {
        throw BadInput("temporary file: cannot be read back");
    }
    return true;
}

void RowSorter::Close()
{
    if (runs_.empty()) {
        Sort();
        return;
    }
    if (!held_.empty()) {
        Flush();
    }
    std::string().swap(text_);
    std::vector<Held>().swap(held_);
    const auto behind = [this](std::size_t a, std::size_t b) {
        return Before(runs_[b].Row(), runs_[a].Row());
    };
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        if (Fill(runs_[i])) {
            heap_.push_back(i);
            std::push_heap(heap_.begin(), heap_.end(), behind);
        }
    }
}

bool RowSorter::Next(OrderedRow& row)
{
    if (runs_.empty()) {
        if (next_ == held_.size()) {
            return false;
        }
        row = RowOf(held_[next_++]);
        return true;
    }
    const auto behind = [this](std::size_t a, std::size_t b) {
        return Before(runs_[b].Row(), runs_[a].Row());
    };
    if (pending_) {
        std::pop_heap(heap_.begin(), heap_.end(), behind);
        if (Fill(runs_[heap_.back()])) {
            std::push_heap(heap_.begin(), heap_.end(), behind);
        } else {
            heap_.pop_back();
        }
    }
    pending_ = !heap_.empty();
    if (!pending_) {
        return false;
    }
    row = runs_[heap_.front()].Row();
    return true;
}

}  // namespace kestrum::cli
