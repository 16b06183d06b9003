#include "library/rows.h"

#include "core/project_state.h"
#include "report/state_json.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <thread>

namespace kestrum::library {

MemberRows::MemberRows(const kestrum_member& base, const kestrum_column* columns, std::size_t count,
                       std::size_t rows)
    : base_(base), columns_(columns)
{
    if (count > 0) {
        Required(columns, "columns");
    }
    for (std::size_t i = 0; i < count; ++i) {
        const kestrum_column& column = columns[i];
        targets_.push_back(TargetOf(RequiredText(column.name, "column name")));
        if (rows > 0 && column.numbers == nullptr && column.texts == nullptr) {
            throw Refusal{KESTRUM_NULL, std::string(column.name) + ": no entries", column.name};
        }
    }
}

std::string MemberRows::Assign(AssignRun& run, std::size_t column, std::size_t row) const
{
    const kestrum_column& from = columns_[column];
    if (from.texts != nullptr) {
        const char* const text = from.texts[row];
        return text == nullptr ? std::string() : run.Assign(targets_[column], text);
    }
    const double number = from.numbers[row];
    if (std::isnan(number)) {
        return {};
    }
    return std::isfinite(number) ? run.Assign(targets_[column], JsonNumber(number))
                                 : std::string("not a finite number");
}

std::optional<MemberRows::Refused> MemberRows::Fill(std::size_t row, ProjectState& s) const
{
    s = base_.state;
    AssignRun run(*base_.library, s, {Assignment::checked});
    for (std::size_t i = 0; i < columns(); ++i) {
        if (const std::string refusal = Assign(run, i, row); !refusal.empty()) {
            return Refused{i, std::string(columns_[i].name) + ": " + refusal};
        }
    }
    const kestrum::Refused refused = run.Finish();
    if (refused.empty()) {
        return std::nullopt;
    }
    const auto* const at =
        std::find_if(columns_, columns_ + columns(),
                     [&](const kestrum_column& column) { return refused.name == column.name; });
    return Refused{static_cast<std::size_t>(at - columns_),
                   refused.name + (refused.name.empty() ? "" : ": ") + refused.what};
}

std::size_t ThreadsFor(unsigned wanted, std::size_t count)
{
    constexpr unsigned kMost = 256;
    constexpr std::size_t kFew = 64;  // parts that one thread has done before another has begun
    const unsigned threads = wanted > 0 ? wanted : std::thread::hardware_concurrency();
    return count < kFew ? 1 : std::clamp(threads, 1U, kMost);
}

void ShareOut(std::size_t threads, std::size_t count, std::size_t at_a_time,
              const std::function<Share(std::size_t thread)>& begin)
{
    std::atomic<std::size_t> next{0};
    std::vector<std::exception_ptr> faults(threads);
    const auto work = [&](std::size_t thread) {
        const FloatingPoint usual;
        try {
            const Share share = begin(thread);
            for (std::size_t from; (from = next.fetch_add(at_a_time)) < count;) {
                share(from, std::min(from + at_a_time, count));
            }
        } catch (...) {
            faults[thread] = std::current_exception();
            next = count;
        }
    };
    std::vector<std::thread> others;
    try {
        for (std::size_t i = 1; i < threads; ++i) {
            others.emplace_back(work, i);
        }
    } catch (const std::exception&) {
        // Fewer threads than wanted do the same work.
    }
    work(0);
    for (std::thread& other : others) {
        other.join();
    }
    for (const std::exception_ptr& fault : faults) {
        if (fault) {
            std::rethrow_exception(fault);
        }
    }
}

}  // namespace kestrum::library
