#include "app/section_commands.h"

#include "core/project_inputs.h"

namespace kestrum {

namespace {

i16 Number(int value)
{
    return static_cast<i16>(value);
}

}  // namespace

void ChooseFamily(Session& session, int family)
{
    InputsOf(session.edit()).family = Number(family);
    session.Calculate();
}

void ChooseRow(Session& session, Table table, int row)
{
    InputsOf(session.edit()).row.at(static_cast<std::size_t>(table)) = Number(row);
    session.Calculate();
}

void ChooseSeries(Session& session, int series)
{
    ProjectInputs& s = InputsOf(session.edit());
    if (i16 SectionForms::*const chosen = Traits(s).series; chosen != nullptr) {
        s.*chosen = Number(series);
    }
    session.Calculate();
}

void ChooseSectionOption(Session& session, SectionOption option, int value)
{
    ProjectInputs& s = InputsOf(session.edit());
    switch (option) {
    case SectionOption::rectaxis:
        s.rectaxis = Number(value);
        break;
    case SectionOption::bolts:
        s.lopt = Number(value);
        break;
    case SectionOption::weld:
        s.weldopt = Number(value);
        break;
    case SectionOption::tube:
        s.tubehot = Number(value);
        break;
    case SectionOption::hsqload:
        s.hsqopt = Number(value);
        break;
    case SectionOption::upgrade:
        s.class23 = Number(value);
        break;
    }
    session.Calculate();
}

void ToggleRectangularAxis(Session& session)
{
    ChooseSectionOption(session, SectionOption::rectaxis,
                        InputsOf(session.state()).rectaxis == 1 ? 2 : 1);
}

void ChooseGeneralClass(Session& session, Effect effect, int classnumber)
{
    FormP41& p41 = InputsOf(session.edit()).p41;
    (effect == Effect::n    ? p41.opn
     : effect == Effect::my ? p41.opmy
                            : p41.opmz) = Number(classnumber);
    session.Calculate();
}

void SetGeneralIdent(Session& session, std::string_view text)
{
    InputsOf(session.edit()).p41ident = text;
    session.Calculate();
}

}  // namespace kestrum
