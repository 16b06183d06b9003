// What an office writes on its reports, and its logo.

#include "harness.h"
#include "harness_tools.h"

#include "report/office.h"

#include <cmath>
#include <string>

namespace kestrum::fuzz {

void OfficeSettings(std::string_view bytes)
{
    Office office;
    ReadOffice(bytes, office);  // up to its first fault
    const std::string written = OfficeText(office);
    Office again;
    Require(!ReadOffice(written, again), "written settings cannot be read");
    Require(OfficeText(again) == written, "settings do not repeat themselves");

    Logo logo;
    if (ReadLogo(std::string(bytes), logo).empty()) {
        Require(std::isfinite(logo.width) && std::isfinite(logo.height), "a logo has no size");
        Require(logo.width >= 0 && logo.height >= 0, "a logo has a negative size");
    }
}

}  // namespace kestrum::fuzz
