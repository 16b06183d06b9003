#include "app/size_list.h"

#include "app/cell_reader.h"
#include "app/commercial_sizes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kestrum {

std::string SizeText(float size)
{
    std::array<char, 40> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), size).ptr;
    return {digits.data(), end};
}

std::optional<double> SizeOfText(std::string_view text)
{
    text = Trimmed(text);
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, value);
    const bool good = fault == std::errc{} && stop == end && std::isfinite(value) && value >= 0;
    return good ? std::optional(value) : std::nullopt;
}

namespace {

std::vector<std::string_view> Parts(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        parts.push_back(text.substr(0, end));
        if (end == text.size()) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

template <class Sizes>
void AddWithin(const Sizes& sizes, double least, double most, std::vector<std::string>& texts)
{
    for (const float size : sizes) {
        if (size >= least && size <= most) {
            texts.push_back(SizeText(size));
        }
    }
}

// The sizes that a list by name has, "plates" or "plates:6:30". False for another list.
bool AddListed(std::string_view wanted, TubeSize tube, std::vector<std::string>& texts)
{
    const std::vector<std::string_view> parts = Parts(wanted, ':');
    const auto least = parts.size() == 3 ? SizeOfText(parts[1]) : std::optional(0.0);
    const auto most = parts.size() == 3 ? SizeOfText(parts[2])
                                        : std::optional(std::numeric_limits<double>::infinity());
    if ((parts.size() != 1 && parts.size() != 3) || !least || !most) {
        return false;
    }
    if (parts[0] == "plates") {
        AddWithin(kPlateThicknesses, *least, *most, texts);
        return true;
    }
    if (parts[0] == "tubes" && tube == TubeSize::diameter) {
        AddWithin(kTubeDiameters, *least, *most, texts);
        return true;
    }
    if (parts[0] == "tubes" && tube == TubeSize::wall) {
        AddWithin(kTubeWalls, *least, *most, texts);
        return true;
    }
    return false;
}

// "300:900:50" or "6,8,10". False for another list.
bool AddNumbers(std::string_view wanted, std::vector<std::string>& texts)
{
    const std::vector<std::string_view> parts = Parts(wanted, ':');
    if (parts.size() == 3) {
        const auto from = SizeOfText(parts[0]), to = SizeOfText(parts[1]),
                   step = SizeOfText(parts[2]);
        if (!from || !to || !step || *step <= 0 || *to < *from) {
            return false;
        }
        constexpr double kRounding = 1e-9;  // of a step
        for (std::size_t i = 0; i <= kMostSizes; ++i) {
            const double size = *from + static_cast<double>(i) * *step;
            if (size > *to + kRounding * *step) {
                break;
            }
            texts.push_back(SizeText(static_cast<float>(size)));
        }
        return true;
    }
    for (const std::string_view part : Parts(wanted, ',')) {
        const auto size = SizeOfText(part);
        if (!size || texts.size() > kMostSizes) {
            return false;
        }
        texts.push_back(SizeText(static_cast<float>(*size)));
    }
    return true;
}

}  // namespace

bool AddSizes(std::string_view text, TubeSize tube, std::vector<std::string>& sizes)
{
    return AddListed(text, tube, sizes) || AddNumbers(text, sizes);
}

}  // namespace kestrum
