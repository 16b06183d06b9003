#include "calculation/check_names.h"

#include "core/check_text.h"
#include "core/project_state.h"
#include "sections/families.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <utility>

namespace kestrum {

namespace {

using S = standard::CheckId;

// The order of a report, and which check of the standard goes with those of a title.
constexpr std::pair<std::string_view, std::optional<S>> kTitles[] = {
    {"Axial force", S::section_n},
    {"Bending about y", S::section_my},
    {"Bending about z", S::section_mz},
    {"Axial force and bending", S::section_nm},
    {"Shear along z", S::section_vz},
    {"Shear along y", S::section_vy},
    {"Bending and shear of a slender web", S::section_mv},
    {"Flexural buckling about y", S::flexural_y},
    {"Flexural buckling about z", S::flexural_z},
    {"Flexural buckling about v", std::nullopt},
    {"Torsional and torsional-flexural buckling", S::torsional},
    {"Lateral torsional buckling", S::ltb},
    {"Axial force and bending of the member, y", S::eq661},
    {"Axial force and bending of the member, z", S::eq662},
    {"Axial force and bending of the member, v", std::nullopt},
    {"Axial force and bending, section outside 6.3.3", S::interaction_outside},
    {"Axial force above the critical one", S::n_above_ncr},
    {"Deflection along z", S::deflection_z},
    {"Deflection along y", S::deflection_y},
};

std::vector<CheckPair> Paired(bool angle)
{
    constexpr std::string_view kAboutV = "Flexural buckling about v";
    std::vector<CheckPair> pairs;
    for (const auto& [title, standard] : kTitles) {
        const bool about_z = standard == S::flexural_z;
        pairs.push_back({std::string(title),
                         {},
                         angle && about_z            ? std::nullopt
                         : angle && title == kAboutV ? S::flexural_z
                                                     : standard});
    }
    for (std::size_t i = 1; i < kChecks; ++i) {
        const auto id = static_cast<CheckId>(i);
        if (TitleOf(id).empty()) {
            continue;
        }
        auto at = std::find_if(pairs.begin(), pairs.end(),
                               [id](const CheckPair& pair) { return pair.name == TitleOf(id); });
        if (at == pairs.end()) {
            at = pairs.insert(at, {std::string(TitleOf(id)), {}, std::nullopt});
        }
        at->program.push_back(id);
    }
    return pairs;
}

// The lower flange of a hat beam is bent along the member and across it, 6.2.1 (5).
void NameWithoutAxialForce(bool hat, std::vector<CheckPair>& pairs)
{
    constexpr std::string_view kBoth = "Axial force and bending";
    for (CheckPair& pair : pairs) {
        if (pair.name.starts_with(kBoth)) {
            pair.name = (hat && pair.name == kBoth ? "Bending along and across the loaded flange"
                                                   : "Bending about both axes") +
                        pair.name.substr(kBoth.size());
        }
    }
}

bool HasAxialForce(const ProjectState& s)
{
    return s.loadmode != 1 ? s.ne != 0 : s.nload[1] != 0 || s.nload[2] != 0 || s.nload[3] != 0;
}

}  // namespace

const std::vector<CheckPair>& CheckPairs(const ProjectState& s)
{
    static const auto kPairs = [] {
        std::array<std::vector<CheckPair>, 6> pairs;  // of sections, angles and hat beams
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            pairs[i] = Paired(i / 2 == 1);
            if (i % 2 == 1) {
                NameWithoutAxialForce(i / 2 == 2, pairs[i]);
            }
        }
        return pairs;
    }();
    const std::size_t kind = Is(s, Kind::angle) ? 1 : Is(s, Kind::hat) ? 2 : 0;
    return kPairs[2 * kind + (HasAxialForce(s) ? 0 : 1)];
}

std::string InText(std::string_view title)
{
    std::string text(title);
    text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return text;
}

std::string NameInText(const ProjectState& s, standard::CheckId id)
{
    for (const CheckPair& pair : CheckPairs(s)) {
        if (pair.standard == id) {
            return InText(pair.name);
        }
    }
    return std::string(standard::NameOf(id));
}

Line LineOf(const LoadCase& load_case)
{
    const std::string name = NameOf(load_case);
    constexpr std::string_view kSymbol = "psi0";
    Line line;
    std::size_t done = 0;
    for (std::size_t at = name.find(kSymbol); at != std::string::npos;
         at = name.find(kSymbol, done)) {
        line += Line(name.substr(done, at - done)) + Line(Symbol("ψ_0"));
        done = at + kSymbol.size();
    }
    return line + Line(name.substr(done));
}

std::string WrittenRatio(double ratio)
{
    constexpr double kSmall = 1e-3, kSteps = 1e4;
    constexpr int kDigits = 4;
    return !std::isfinite(ratio)         ? "infinite"
           : ratio > 0 && ratio < kSmall ? "0.000" + NumberText(std::round(ratio * kSteps), 1)
                                         : ResultText(ratio, kDigits);
}

std::string ClauseOf(const Check& check)
{
    const CheckText& texts = TextsOf(check.form);
    const bool interaction = texts.id == CheckId::eq661 || texts.id == CheckId::eq662;
    return interaction ? "6.3.3" : std::string(texts.clause);
}

std::string ClauseOf(const standard::Check& check)
{
    return std::string(check.clause == "interaction outside 6.3.3" ? "6.2.1 (7)" : check.clause);
}

bool GiveTheSame(const Check& program, const standard::Check& other)
{
    return WrittenRatio(program.ratio) == WrittenRatio(other.ir);
}

const Check* LargestOf(const CheckPair& pair, const CheckList& list)
{
    const Check* largest = nullptr;
    for (const CheckId id : pair.program) {
        const Check& check = list[id];
        if (IsJudged(check) && (largest == nullptr || check.ratio > largest->ratio)) {
            largest = &check;
        }
    }
    return largest;
}

}  // namespace kestrum
