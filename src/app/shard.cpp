#include "app/shard.h"

#include "app/table_record.h"

#include <charconv>
#include <limits>

namespace kestrum {

namespace {

bool TakeNumber(std::string_view& text, std::size_t& number)
{
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return fault == std::errc();
}

bool TakeBlank(std::string_view& text)
{
    const bool blank = text.starts_with(' ');
    text.remove_prefix(blank ? 1 : 0);
    return blank;
}

}  // namespace

bool ReadShard(std::string_view text, Shard& shard)
{
    std::size_t number = 0, count = 0;
    if (!TakeNumber(text, number) || !text.starts_with('/')) {
        return false;
    }
    text.remove_prefix(1);
    if (!TakeNumber(text, count) || !text.empty() || number < 1 || number > count) {
        return false;
    }
    shard = {number - 1, count};
    return true;
}

void ShardOrder::Add(std::size_t place)
{
    if (open_.lines > 0 && open_.place != place) {
        Close();
    }
    open_.place = place;
    ++open_.lines;
}

// A member joins the run before it when it has as many lines and the step is the same.
void ShardOrder::Close()
{
    if (!runs_.empty() && runs_.back().lines == open_.lines) {
        Run& last = runs_.back();
        const std::size_t step = open_.place - (last.place + (last.members - 1) * last.step);
        if (last.members == 1 || last.step == step) {
            last.step = step;
            ++last.members;
            open_ = {0, 0};
            return;
        }
    }
    runs_.push_back({open_.place, 1, 1, open_.lines});
    open_ = {0, 0};
}

std::string ShardOrder::Text() const
{
    ShardOrder whole = *this;
    if (whole.open_.lines > 0) {
        whole.Close();
    }
    std::string text;
    for (const Run& run : whole.runs_) {
        text += std::to_string(run.place) + " " + std::to_string(run.step) + " " +
                std::to_string(run.members) + " " + std::to_string(run.lines) + "\n";
    }
    return text;
}

bool ShardOrder::Read(std::string_view text)
{
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
    *this = {};
    std::size_t least = 0;
    while (!text.empty()) {
        std::string_view line = TakeLine(text);
        Run run{};
        const bool read = TakeNumber(line, run.place) && TakeBlank(line) &&
                          TakeNumber(line, run.step) && TakeBlank(line) &&
                          TakeNumber(line, run.members) && TakeBlank(line) &&
                          TakeNumber(line, run.lines) && line.empty();
        if (!read || run.step < 1 || run.members < 1 || run.lines < 1 || run.place < least ||
            (run.members - 1) > (kMost - 1 - run.place) / run.step) {
            return false;
        }
        least = run.place + (run.members - 1) * run.step + 1;
        runs_.push_back(run);
    }
    return true;
}

bool ShardOrder::Next(Member& member)
{
    if (run_ == runs_.size()) {
        return false;
    }
    const Run& run = runs_[run_];
    member = {run.place + taken_ * run.step, run.lines};
    if (++taken_ == run.members) {
        ++run_;
        taken_ = 0;
    }
    return true;
}

}  // namespace kestrum
