#include "app/field_hint.h"

#include "app/box_help.h"
#include "core/field_table.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kestrum {

namespace {

constexpr std::size_t kLongest = 24;  // no field name is longer
constexpr std::size_t kMost = 3;      // suggestions
constexpr std::size_t kFarthest = 2;  // distance of a slip

// Name as it is typed, with the rows of a list: "qload[1] to qload[4]".
std::string Shown(const Field& field)
{
    std::string name(field.name);
    if (field.shape == FieldShape::scalar) {
        return name;
    }
    const int first =
        field.role == FieldRole::input ? std::max(1, field.first) : field.first;  // 0: self-weight
    return name + "[" + std::to_string(first) + "] to " + name + "[" + std::to_string(field.last) +
           "]";
}

bool Meant(const Field& field, FieldsMeant meant)
{
    return meant == FieldsMeant::all || field.role == FieldRole::input;
}

// Whether the words may lie so near: each letter that one has more is a step. A table of a million
// lines may have the same wrong name in each of them, so that most words are passed over by this.
bool Reach(std::string_view a, std::string_view b, std::size_t distance)
{
    return a.size() <= b.size() + distance && b.size() <= a.size() + distance;
}

bool HasWord(std::string_view text, std::string_view word, bool slips)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" ,/"), text.size());
        const std::string_view one = text.substr(0, end);
        if (Reach(word, one, slips ? kFarthest : 0)) {
            const std::size_t distance = Distance(word, one);
            if (distance == 0 || (slips && Near(word, distance))) {
                return true;
            }
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return false;
}

// Fields in whose label or meaning the word stands.
std::vector<const Field*> FieldsAbout(std::string_view word, std::string_view BoxHelp::*where,
                                      bool slips)
{
    std::vector<const Field*> found;
    for (const Box& box : InputBoxes()) {
        if (!HasWord(HelpOf(box).*where, word, slips)) {
            continue;
        }
        const Field* const field = FindField(box.field);
        if (field->role == FieldRole::input &&
            std::find(found.begin(), found.end(), field) == found.end()) {
            found.push_back(field);
        }
    }
    return found;
}

// The fields nearest to the name; none when all are far.
std::vector<const Field*> FieldsNear(std::string_view name, FieldsMeant meant)
{
    std::vector<const Field*> nearest;
    std::size_t least = kLongest;
    for (const Field& field : AllFields()) {
        if (!Meant(field, meant) || !Reach(name, field.name, kFarthest)) {
            continue;
        }
        const std::size_t distance = Distance(name, field.name);
        if (!Near(name, distance) || distance > least) {
            continue;
        }
        if (distance < least) {
            nearest.clear();
            least = distance;
        }
        nearest.push_back(&field);
    }
    return nearest;
}

std::string SoughtHint(std::string_view name, FieldsMeant meant)
{
    const std::string_view bare = name.substr(0, name.find('['));
    if (bare.empty()) {
        return {};
    }
    if (const Field* const field = FindField(bare); field != nullptr && Meant(*field, meant)) {
        return field->shape == FieldShape::scalar ? "; " + Shown(*field) + " is one value"
                                                  : "; the list is " + Shown(*field);
    }
    std::vector<const Field*> fields = FieldsNear(bare, meant);
    for (const bool slips : {false, true}) {
        for (const auto where : {&BoxHelp::label, &BoxHelp::meaning}) {
            fields = fields.empty() ? FieldsAbout(bare, where, slips) : fields;
        }
    }
    std::vector<std::string> names;
    for (const Field* const field : fields) {
        names.push_back(Shown(*field));
    }
    return names.size() > kMost ? std::string{} : MeantHint(names);
}

}  // namespace

std::string NearestField(std::string_view name, FieldsMeant meant)
{
    const std::vector<const Field*> near = FieldsNear(name.substr(0, name.find('[')), meant);
    return near.empty() ? std::string() : std::string(near.front()->name);
}

std::string MeantHint(const std::vector<std::string>& words)
{
    if (words.empty()) {
        return {};
    }
    std::string text = "; did you mean ";
    for (std::size_t i = 0; i < words.size(); ++i) {
        text += i == 0 ? "" : i + 1 < words.size() ? ", " : " or ";
        text += words[i];
    }
    return text + "?";
}

char Small(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::size_t Distance(std::string_view a, std::string_view b)
{
    a = a.substr(0, kLongest);
    b = b.substr(0, kLongest);
    std::array<std::array<std::size_t, kLongest + 1>, kLongest + 1> cost{};
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const bool same = Small(a[i - 1]) == Small(b[j - 1]);
            cost[i][j] = std::min(
                {cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + (same ? 0U : 1U)});
            const bool crossed = i > 1 && j > 1 && Small(a[i - 1]) == Small(b[j - 2]) &&
                                 Small(a[i - 2]) == Small(b[j - 1]);
            if (crossed) {
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
            }
        }
    }
    return cost[a.size()][b.size()];
}

bool Near(std::string_view typed, std::size_t distance)
{
    return distance <= (typed.size() < 3 ? 0U : typed.size() < 6 ? 1U : kFarthest);
}

std::string FieldHint(std::string_view name, FieldsMeant meant)
{
    // The last one is kept: lines of a table have the same wrong name again and again.
    thread_local struct {
        std::string name, hint;
        FieldsMeant meant = FieldsMeant::all;
    } last;
    if (last.name != name || last.meant != meant) {
        last = {std::string(name), SoughtHint(name, meant), meant};
    }
    return last.hint;
}

}  // namespace kestrum
