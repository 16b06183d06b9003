#include "report/check_key.h"

#include "report/state_json.h"

namespace kestrum {

CheckKey KeyOf(std::string_view name)
{
    constexpr std::string_view kSection = "section_";
    if (name.starts_with(kSection)) {
        return {name.substr(0, kSection.size() - 1), name.substr(kSection.size())};
    }
    if (name == "flexural_v") {  // the weak axis of an angle
        return {"flexural_z", "v"};
    }
    if (name == "interaction_v") {
        return {"eq662", "v"};
    }
    // What takes the place of Eq (6.61) and (6.62).
    if (name == "interaction_outside" || name == "n_above_ncr") {
        return {"eq661", name};
    }
    return {name, {}};
}

std::string KeyJson(std::string_view name)
{
    const CheckKey key = KeyOf(name);
    return "\"check\": " + JsonText(key.check) +
           (key.part.empty() ? "" : ", \"part\": " + JsonText(key.part));
}

}  // namespace kestrum
