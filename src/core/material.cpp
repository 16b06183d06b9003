#include "core/material.h"

#include "core/arithmetic_trap.h"
#include "core/parse_num.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr float kThick = 40.0F;  // mm

constexpr const char* kGrade = "expected a name and two strengths above 0, separated by tabs";

// Takes the text up to the separator off the front.
std::string_view Next(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::string_view NextLine(std::string_view& bytes)
{
    std::string_view line = Next(bytes, '\n');
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

bool IsStrength(std::string_view text)
{
    const std::optional<float> value = ParseNum(text, true);
    return value && std::isfinite(*value) && *value > 0;
}

}  // namespace

std::vector<Material> ReadMaterialList(std::string_view bytes)
{
    std::vector<Material> materials;
    while (!bytes.empty() && materials.size() < kMaterials) {
        std::string_view line = NextLine(bytes);
        if (line.empty()) {
            continue;
        }
        Material material;
        material.name = Next(line, '\t');
        material.fy40 = ParseNum(Next(line, '\t'), false).value_or(0.0F);
        material.fyover = ParseNum(Next(line, '\t'), false).value_or(0.0F);
        materials.push_back(std::move(material));
    }
    return materials;
}

std::optional<FileFault> CheckMaterialList(std::string_view bytes)
{
    const bool ended = bytes.ends_with('\n') || bytes.ends_with('\r');
    int number = 0, last = 0;
    bool grade = true;  // whether the last row read is one
    while (!bytes.empty()) {
        std::string_view line = NextLine(bytes);
        ++number;
        if (line.empty()) {
            continue;
        }
        if (!grade) {
            return FileFault{last, kGrade};
        }
        last = number;
        const bool named = !Next(line, '\t').empty();
        if (!named) {
            return FileFault{last, kGrade};
        }
        grade = IsStrength(Next(line, '\t')) && IsStrength(Next(line, '\t'));
    }
    if (last == 0) {
        return FileFault{1, kGrade};
    }
    return ended ? std::nullopt : std::optional(FileFault{last, "expected a line end"});
}

int LastMaterial(const Library& library)
{
    return static_cast<int>(library.materials.size()) - 1;
}

bool IsListedGrade(const Library& library, int index)
{
    return index >= 0 && index < LastMaterial(library);
}

void SetMaterial(const Library& library, Settings& settings, SectionRecord& section, int index)
{
    if (IsListedGrade(library, index)) {
        const Material& material = library.materials[static_cast<std::size_t>(index)];
        settings.fyk = section.tmax <= kThick ? material.fy40 : material.fyover;
    }
    settings.fyd = settings.fyk / settings.gammam0;
    section.eps = F32(std::sqrt(235.0 / settings.fyk));
}

}  // namespace kestrum
