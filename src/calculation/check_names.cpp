#include "calculation/check_names.h"

#include "core/check_text.h"

namespace kestrum {

const std::vector<CheckPair>& CheckPairs()
{
    using S = standard::CheckId;
    static const std::vector<CheckPair> kPairs = {
        {"Axial force", {CheckId::n}, S::section_n},
        {"Bending about y", {CheckId::my}, S::section_my},
        {"Bending about z", {CheckId::mz}, S::section_mz},
        {"Axial force and bending",
         {CheckId::leg_axes, CheckId::my_mz, CheckId::n_my, CheckId::n_mz, CheckId::n_my_mz,
          CheckId::principal_axes},
         S::section_nm},
        {"Shear along z", {CheckId::vz}, S::section_vz},
        {"Shear along y", {CheckId::vy}, S::section_vy},
        {"Bending and shear of a slender web", {}, S::section_mv},
        {"Flexural buckling about y", {CheckId::flexural_y}, S::flexural_y},
        {"Flexural buckling about z", {CheckId::flexural_z}, S::flexural_z},
        {"Flexural buckling about v", {CheckId::flexural_v}, std::nullopt},
        {"Torsional and torsional-flexural buckling", {}, S::torsional},
        {"Lateral torsional buckling", {CheckId::ltb}, S::ltb},
        {"Axial force and bending of the member, y", {CheckId::eq661}, S::eq661},
        {"Axial force and bending of the member, z", {CheckId::eq662}, S::eq662},
        {"Axial force and bending of the member, v", {CheckId::interaction_v}, std::nullopt},
        {"Axial force and bending, section outside 6.3.3", {}, S::interaction_outside},
        {"Axial force above the critical one", {}, S::n_above_ncr},
        {"Deflection along z", {CheckId::deflection_z}, S::deflection_z},
        {"Deflection along y", {CheckId::deflection_y}, S::deflection_y},
    };
    return kPairs;
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
