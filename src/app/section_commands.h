#pragma once

// Family selection and the handlers of the section forms.

#include "app/session.h"
#include "sections/families.h"

namespace kestrum {

// Menu entry or picture button of a family. The form opens over the window.
void ChooseFamily(Session& session, int family);

void ChooseRow(Session& session, Table table, int row);
void ChooseSeries(Session& session, int series);  // of a family with series

void ChooseSectionOption(Session& session, SectionOption option, int value);
void ToggleRectangularAxis(Session& session);

enum class Effect : std::uint8_t { n, my, mz };
void ChooseGeneralClass(Session& session, Effect effect, int classnumber);  // 1 or 3
void SetGeneralIdent(Session& session, std::string_view text);

}  // namespace kestrum
