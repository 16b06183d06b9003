#pragma once

// Help for a field name that does not exist.

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

enum class FieldsMeant { inputs, all };

// What may be meant, as the end of a sentence: "; did you mean family?". Empty when nothing comes
// near.
std::string FieldHint(std::string_view name, FieldsMeant meant);

// The field nearest to the name, without its rows; empty when none is near.
std::string NearestField(std::string_view name, FieldsMeant meant);

// "; did you mean a, b or c?"; empty for no words.
std::string MeantHint(const std::vector<std::string>& words);

// The word of a list that is nearest to a mistyped one, or nothing. Capitals do not count.
template <class Words> std::string_view Nearest(std::string_view typed, const Words& words);

// A letter without its capital.
char Small(char c);

// How many letters stand wrong, are missing, too many or exchanged with their neighbour.
std::size_t Distance(std::string_view a, std::string_view b);

// Whether a distance is small enough for a slip of the fingers.
bool Near(std::string_view typed, std::size_t distance);

template <class Words> std::string_view Nearest(std::string_view typed, const Words& words)
{
    std::string_view best;
    std::size_t least = typed.size() + 1;
    for (const auto& each : words) {
        const std::string_view word = each;
        const std::size_t distance = Distance(typed, word);
        if (Near(typed, distance) && distance < least) {
            least = distance;
            best = word;
        }
    }
    return best;
}

}  // namespace kestrum
