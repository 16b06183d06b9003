#include "core/annexes.h"

#include "core/load_combination.h"

#include <array>
#include <cstddef>

namespace kestrum {

namespace {

struct Annex {
    std::string_view code, name;
    double gammam0, gammam1;
    double neta, netahigh;  // up to and above kOrdinarySteel
    double lamdalt0, beta, lamdalt0w, betaw;
    std::string_view classname = {};
};

constexpr float kOrdinarySteel = 460;  // MPa

constexpr std::array<Annex, kAnnexes> kTable{{
    {"EU", "EC3", 1.0, 1.0, 1.2, 1.0, 0.4, 0.75, 0.4, 0.75},
    {"NO", "EC3 + NA/Norway", 1.05, 1.05, 1.2, 1.0, 0.4, 0.75, 0.4, 0.75, "Reliability Class"},
    {"SW", "EC3 + NA/Sweden", 1.0, 1.0, 1.2, 1.0, 0.4, 0.75, 0.4, 0.75, "Safety Class"},
    {"DK", "EC3 + NA/Denmark", 1.1, 1.2, 1.2, 1.0, 0.4, 0.75, 0.4, 0.75, "Consequences Class"},
    {"UK", "EC3 + NA/United Kingdom", 1.0, 1.0, 1.0, 1.0, 0.4, 0.75, 0.2, 1.0},
    {"FI", "EC3 + NA/Finland", 1.0, 1.0, 1.2, 1.0, 0.4, 0.75, 0.2, 1.0, "Reliability Class"},
    {"GE", "EC3 + NA/German", 1.0, 1.0, 1.2, 1.0, 0.4, 0.75, 0.4, 0.75},  // D24
    {"NK", "EC3 + NORSOK", 1.15, 1.15, 1.2, 1.0, 0.4, 0.75, 0.4, 0.75},
    {"UD", "EC3 - User defined", 0, 0, 0, 0, 0, 0, 0, 0},
}};
static_assert(kTable[kAnnexNk].code == "NK" && kTable[kAnnexUd].code == "UD");

bool Listed(int annexindex)
{
    return annexindex >= 0 && annexindex < kAnnexes;
}

const Annex& Row(int annexindex)
{
    return kTable[static_cast<std::size_t>(annexindex)];
}

}  // namespace

std::string_view AnnexName(int annexindex)
{
    return Listed(annexindex) ? Row(annexindex).name : std::string_view{};
}

std::string_view AnnexSuffix(int annexindex)
{
    constexpr std::size_t kStem = 3;  // "EC3"
    return Listed(annexindex) ? Row(annexindex).name.substr(kStem) : std::string_view{};
}

std::string_view AnnexClassName(int annexindex)
{
    return Listed(annexindex) ? Row(annexindex).classname : std::string_view{};
}

i16 AnnexIndexFromCode(std::string_view code)
{
    for (i16 i = 0; i < kAnnexes; ++i) {
        if (Row(i).code == code) {
            return i;
        }
    }
    return 0;
}

std::string_view AnnexCodeFromIndex(int annexindex)
{
    return Listed(annexindex) ? Row(annexindex).code : std::string_view{};
}

void ApplyAnnexMaterial(Settings& settings, int annexindex)
{
    if (!Listed(annexindex) || annexindex == kAnnexUd) {
        return;
    }
    const Annex& annex = Row(annexindex);
    settings.gammam0 = annex.gammam0;
    settings.gammam1 = static_cast<float>(annex.gammam1);
    settings.neta =
        static_cast<float>(settings.fyk <= kOrdinarySteel ? annex.neta : annex.netahigh);
    settings.lamdalt0 = static_cast<float>(annex.lamdalt0);
    settings.beta = annex.beta;
    settings.lamdalt0w = static_cast<float>(annex.lamdalt0w);
    settings.betaw = annex.betaw;
    if (annexindex == kAnnexNk) {
        settings.loadcomb = kUserFactors;
    }
}

}  // namespace kestrum
