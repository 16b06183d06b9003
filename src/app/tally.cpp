#include "app/tally.h"

#include "app/answer_form.h"

#include <algorithm>
#include <limits>

namespace kestrum {

namespace {

constexpr std::size_t kWorstShown = 10;

}  // namespace

void Tally::Add(std::size_t place, std::string_view member, Verdict verdict, double ir)
{
    ++count_[static_cast<std::size_t>(verdict)];
    const auto worse = [ir, place](const Worst& other) {
        return ir > other.ir || (ir == other.ir && place < other.place);
    };
    if (!Outcome{.verdict = verdict}.rated() ||
        (worst_.size() == kWorstShown && !worse(worst_.back()))) {
        return;
    }
    const auto at = std::find_if(worst_.begin(), worst_.end(), worse);
    worst_.insert(at, {place, std::string(member), ir});
    worst_.resize(std::min(worst_.size(), kWorstShown));
}

void Tally::Add(const Tally& other)
{
    const auto before = count_;
    for (const Worst& worst : other.worst_) {
        Add(worst.place, worst.member, Verdict::above, worst.ir);
    }
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        count_[i] = before[i] + other.count_[i];
    }
}

std::size_t Tally::Members() const
{
    std::size_t sum = 0;
    for (const std::size_t count : count_) {
        sum += count;
    }
    return sum;
}

std::string Tally::Summary(std::string_view remark) const
{
    std::string text;
    AppendNumber(text, Members());
    text += " members: ";
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        if (i < 2 || count_[i] > 0) {  // within and above always, the others where there are any
            text += i > 0 ? ", " : "";
            AppendNumber(text, count_[i]);
            text.append(" ").append(VerdictWord(static_cast<Verdict>(i)));
        }
    }
    text.append(remark).append("\n");
    for (const Worst& worst : worst_) {
        text += "  ";
        if (worst.ir <= std::numeric_limits<float>::max()) {
            AppendNumber(text, static_cast<float>(worst.ir));
        } else {
            AppendNumber(text, worst.ir);  // a power of 6.2.9 can be that large
        }
        text += "  " + worst.member + "\n";
    }
    return text;
}

}  // namespace kestrum
