#pragma once

// Family selection and the handlers of the section forms.

#include "app/session.h"

namespace kestrum {

// Menu entry or picture button of a family. The form opens over the window.
void ChooseFamily(Session& session, int family);

void ChooseRow(Session& session, Table table, int row);
void ChooseSeries(Session& session, int series);  // 101 and 103

enum class SectionOption : std::uint8_t {
    rectaxis,  // cbuttbucklingy of p07, p09: exchanges the axes
    bolts,     // opt_l10_1, opt_l10_2
    weld,      // oweld0, oweld1
    tube,      // opthot, optcold
    hsqload,   // opthsq0, opthsq1
    upgrade,   // OptClass23Y, OptClass23N
};
void ChooseSectionOption(Session& session, SectionOption option, int value);
void ToggleRectangularAxis(Session& session);

enum class Effect : std::uint8_t { n, my, mz };
void ChooseGeneralClass(Session& session, Effect effect, int classnumber);  // 1 or 3
void SetGeneralIdent(Session& session, std::string_view text);

}  // namespace kestrum
