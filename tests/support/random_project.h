#pragma once

// Projects as users could make them: every input drawn at random and entered through the limits of
// its box or list; what a box refuses keeps its default.

#include "app/assign.h"
#include "app/choices.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "core/project_state.h"
#include "report/state_json.h"
#include "support/members.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace kestrum {

// The same numbers everywhere, unlike the distributions of the standard library.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}

    // In [0, 1).
    double Share()
    {
        state_ += 0x9e3779b97f4a7c15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30U)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27U)) * 0x94d049bb133111ebU;
        return static_cast<double>((z ^ (z >> 31U)) >> 11U) * 0x1p-53;
    }
    double Between(double low, double high) { return low + (high - low) * Share(); }
    int Whole(int low, int high)
    {
        return low + static_cast<int>(Share() * static_cast<double>(high - low + 1));
    }
    bool Happens(double chance) { return Share() < chance; }

private:
    std::uint64_t state_;
};

namespace random_project {

// Small and large ones alike; of either sign when `signed`.
inline double Load(Dice& dice, double largest)
{
    const double size = largest * std::pow(10.0, dice.Between(-3, 0));
    return dice.Happens(0.25) ? -size : size;
}

// Range of a typed field; others are drawn around their default.
struct Range {
    double low, high;
};

inline const Range* RangeOf(std::string_view name)
{
    static const std::map<std::string_view, Range> kRanges = {
        {"l", {0.5, 10}},         {"spring", {0, 100}},  {"webstiffa", {200, 4000}},
        {"ly", {0.001, 2}},       {"lz", {0.001, 2}},    {"ltbk", {0.5, 2}},
        {"c1", {0.5, 3}},         {"c2", {0, 1}},        {"c3", {0, 1}},
        {"za", {-200, 200}},      {"fyk", {200, 500}},   {"flangeload", {0, 100}},
        {"gammam0", {1, 1.1}},    {"gammam1", {1, 1.1}}, {"neta", {1, 1.2}},
        {"vb", {10, 40}},         {"zh", {2, 50}},       {"deflimity", {100, 500}},
        {"deflimitz", {100, 500}}};
    const auto at = kRanges.find(name);
    return at == kRanges.end() ? nullptr : &at->second;
}

inline std::string Typed(Dice& dice, const ProjectState& s, const Field& field, int index)
{
    static const std::map<std::string_view, double> kLoads = {
        {"nload", 300}, {"qload", 20}, {"qt1", 20}, {"qt2", 20}, {"pm", 40},
        {"ne", 300},    {"my1", 60},   {"my2", 60}, {"mz1", 10}, {"mz2", 10},
        {"vy1", 20},    {"vy2", 20},   {"vz1", 60}, {"vz2", 60}};
    const std::string_view name = field.name;
    if (const auto load = kLoads.find(name); load != kLoads.end()) {
        return JsonNumber(static_cast<float>(dice.Happens(0.5) ? 0 : Load(dice, load->second)));
    }
    if (name == "qtx1" || name == "pmx" || name == "cp") {
        return JsonNumber(static_cast<float>(dice.Between(0, s.l)));
    }
    if (name == "qtx2") {
        return JsonNumber(
            static_cast<float>(dice.Between(s.qtx1[static_cast<std::size_t>(index)], s.l)));
    }
    if (const Range* const range = RangeOf(name)) {
        const double value = dice.Between(range->low, range->high);
        const bool whole = field.kind == FieldKind::integer;
        return JsonNumber(static_cast<float>(whole ? std::round(value) : value));
    }
    const double value = NumberOf(s, field, index);
    if (name.find('.') == std::string_view::npos) {
        return JsonNumber(value);  // nothing to vary
    }
    return JsonNumber(static_cast<float>(value * dice.Between(0.6, 1.6)));
}

inline std::string Chosen(Dice& dice, const Choice& choice)
{
    for (;;) {
        const int value = dice.Whole(choice.lowest, std::min<int>(choice.highest, 120));
        if (Offers(Delivered(), choice, value)) {
            return choice.truth ? (value != 0 ? "true" : "false") : std::to_string(value);
        }
    }
}

inline std::string NameOf(const Field& field, int index)
{
    const std::string name(field.name);
    return field.shape == FieldShape::scalar ? name : name + "[" + std::to_string(index) + "]";
}

}  // namespace random_project

// The switches that leave parts of the design out are drawn less often than not.
inline ProjectState RandomProject(std::uint64_t seed)
{
    Dice dice(seed);
    ProjectState s = Member();
    for (const Field& field : AllFields()) {
        if (field.role != FieldRole::input || field.kind == FieldKind::text) {
            continue;
        }
        const Choice* const choice = FindChoice(field.name);
        for (int i = field.first; i <= field.last; ++i) {
            if (choice != nullptr && field.name.starts_with("check") && dice.Happens(0.7)) {
                continue;
            }
            const std::string value = choice != nullptr ? random_project::Chosen(dice, *choice)
                                                        : random_project::Typed(dice, s, field, i);
            AssignField(Delivered(), s, random_project::NameOf(field, i), value,
                        Assignment::checked);
        }
    }
    const std::string annex(AnnexCodeFromIndex(dice.Whole(0, kAnnexes - 1)));
    AssignField(Delivered(), s, "annexcode", annex, Assignment::checked);
    if (s.family == 28 && dice.Happens(0.7)) {
        s.checkconsercontrol = kTrue;  // its plastic interaction fails beside compression
    }
    return s;
}

// Another seed for all of them by KESTRUM_SEED in the environment.
inline std::uint64_t FirstSeed()
{
    const char* const given = std::getenv("KESTRUM_SEED");
    return given == nullptr ? 1000U : static_cast<std::uint64_t>(std::atoll(given));
}

}  // namespace kestrum
