#include "core/annexes.h"

#include "core/load_combination.h"

#include <cstddef>

namespace kestrum {

namespace {

constexpr float kOrdinarySteel = 460;  // MPa

constexpr std::array<ClassFactors, 3> kNoClass = {{{1, 1}, {1, 1}, {1, 1}}};
constexpr std::array<ClassFactors, 3> kOnVariable = {{{1, 0.9}, {1, 1}, {1, 1}}};
constexpr std::array<ClassFactors, 3> kOnAll = {{{0.9, 0.9}, {1, 1}, {1.1, 1.1}}};

using Class = CombinationWriting::Class;
constexpr CombinationWriting kPlain = {.factor = Class::none,
                                       .before = "",
                                       .after = "",
                                       .variable = "",
                                       .star = "",
                                       .leading = " ",
                                       .psi = "0.0",
                                       .xi = true};

constexpr CombinationWriting Written(Class factor, std::string_view after,
                                     std::string_view variable)
{
    CombinationWriting writing = kPlain;
    writing.factor = factor;
    writing.after = after;
    writing.variable = variable;
    return writing;
}

constexpr CombinationWriting kVariableFactor = Written(Class::on_variable, "", " +");
constexpr CombinationWriting kWholeFactor = Written(Class::on_all, "*", "");
constexpr CombinationWriting kDanish = Written(Class::on_all, "", "");
constexpr CombinationWriting kNorsok = [] {
    CombinationWriting writing = kVariableFactor;
    writing.star = "*";  // the second star is on purpose
    return writing;
}();
constexpr CombinationWriting kFinnish = [] {
    CombinationWriting writing = Written(Class::on_all, " ", "");
    writing.before = " ";
    writing.leading = "";
    writing.psi = "0.0#";
    writing.xi = false;
    return writing;
}();

#define ANNEX(id, ...) __VA_ARGS__,
constexpr std::array<Annex, kAnnexes> kTable{{
#include "core/annex_rows.inc"
}};
#undef ANNEX
static_assert(kTable.back().basis == AnnexBasis::user);

}  // namespace

bool AnnexListed(int annexindex)
{
    return annexindex >= 0 && annexindex < kAnnexes;
}

const Annex& AnnexAt(int annexindex)
{
    return kTable[AnnexListed(annexindex) ? static_cast<std::size_t>(annexindex) : 0];
}

std::string_view AnnexName(int annexindex)
{
    return AnnexListed(annexindex) ? AnnexAt(annexindex).name : std::string_view{};
}

std::string_view AnnexSuffix(int annexindex)
{
    constexpr std::size_t kStem = 3;  // "EC3"
    return AnnexListed(annexindex) ? AnnexAt(annexindex).name.substr(kStem) : std::string_view{};
}

std::string_view AnnexClassName(int annexindex)
{
    return AnnexListed(annexindex) ? AnnexAt(annexindex).classname : std::string_view{};
}

i16 AnnexIndexFromCode(std::string_view code)
{
    for (i16 i = 0; i < kAnnexes; ++i) {
        if (AnnexAt(i).code == code) {
            return i;
        }
    }
    return 0;
}

std::string_view AnnexCodeFromIndex(int annexindex)
{
    return AnnexListed(annexindex) ? AnnexAt(annexindex).code : std::string_view{};
}

void ApplyAnnexMaterial(Settings& settings, int annexindex)
{
    const Annex& annex = AnnexAt(annexindex);
    if (!AnnexListed(annexindex) || annex.basis == AnnexBasis::user) {
        return;
    }
    settings.gammam0 = annex.gammam0;
    settings.gammam1 = static_cast<float>(annex.gammam1);
    settings.neta =
        static_cast<float>(settings.fyk <= kOrdinarySteel ? annex.neta : annex.netahigh);
    settings.lamdalt0 = static_cast<float>(annex.lamdalt0);
    settings.beta = annex.beta;
    settings.lamdalt0w = static_cast<float>(annex.lamdalt0w);
    settings.betaw = annex.betaw;
    if (annex.basis == AnnexBasis::factors_of_user) {
        settings.loadcomb = kUserFactors;
    }
}

}  // namespace kestrum
