#include "app/load_commands.h"

#include "analysis/load_model.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "core/project_state.h"

namespace kestrum {

namespace {

std::size_t At(int row)
{
    return static_cast<std::size_t>(row);
}

// The next category of a row; some tables keep it in a float, as the project file does. One that a
// file invented becomes the first.
template <class T> void Rotate(T& category)
{
    category = category == T{0} ? T{1} : category == T{1} ? T{2} : T{0};
}

template <class T> void Toggle(T& flag)
{
    flag = flag == T{1} ? T{0} : T{1};
}

}  // namespace

void OpenLoading(Session& session)
{
    session.edit().loadmode = 1;
    session.Calculate();
}

void OpenEndForces(Session& session)
{
    session.edit().loadmode = 0;
    session.Calculate();
}

void OpenEndForcesFromMenu(Session& session)
{
    session.edit().supportcase = SupportCase::pinned;
    OpenEndForces(session);
}

void RotateCategory(Session& session, LoadRow kind, int row, int steps)
{
    ProjectState& s = session.edit();
    for (int i = 0; i < steps; ++i) {
        switch (kind) {
        case LoadRow::axial:
            Rotate(s.ntype.at(At(row)));
            break;
        case LoadRow::uniform:
            Rotate(s.qtype.at(At(row)));
            break;
        case LoadRow::trapezoid:
            Rotate(s.qttype.at(At(row)));
            break;
        case LoadRow::point:
            Rotate(s.pmtype.at(At(row)));
            break;
        }
    }
    session.Calculate();
}

void ToggleDirection(Session& session, LoadRow kind, int row)
{
    ProjectState& s = session.edit();
    switch (kind) {
    case LoadRow::axial:
        return;  // an axial load has no direction
    case LoadRow::uniform:
        Toggle(s.qdir.at(At(row)));
        break;
    case LoadRow::trapezoid:
        Toggle(s.qtdir.at(At(row)));
        break;
    case LoadRow::point:
        Toggle(s.pmdir.at(At(row)));
        break;
    }
    session.Calculate();
}

void TogglePointKind(Session& session, int row)
{
    Toggle(session.edit().pmkind.at(At(row)));
    session.Calculate();
}

void TickRow(Session& session, LoadRow kind, int row, bool on)
{
    ProjectState& s = session.edit();
    i16& flag = kind == LoadRow::axial       ? s.nchecked.at(At(row))
                : kind == LoadRow::uniform   ? s.qchecked.at(At(row))
                : kind == LoadRow::trapezoid ? s.qtchecked.at(At(row))
                                             : s.pmchecked.at(At(row));
    flag = on ? kTrue : kFalse;
    session.Calculate();
}

void TickSelfweight(Session& session, bool on)
{
    session.edit().selfweight = on ? 1 : 0;
    session.Calculate();
}

void ChoosePointRelative(Session& session, bool relative)
{
    session.edit().pmrelative = relative ? 1 : 0;
    session.Publish();  // display only
}

void ChooseTrapezoidRelative(Session& session, bool relative)
{
    session.edit().qtrelative = relative ? 1 : 0;
    session.Publish();
}

void RemoveChecked(Session& session)
{
    ProjectState& s = session.edit();
    RemoveCheckedLoads(s, s);
    session.Calculate();
}

std::string_view CategoryName(double category)
{
    return category == 0 ? "G" : category == 1 ? "Q1" : category == 2 ? "Q2" : "";
}

std::string_view DirectionText(const ProjectState& s, LoadRow kind, int row)
{
    if (kind == LoadRow::axial) {
        return {};
    }
    const bool z = kind == LoadRow::uniform     ? s.qdir.at(At(row)) == 1
                   : kind == LoadRow::trapezoid ? s.qtdir.at(At(row)) == 1.0F
                                                : s.pmdir.at(At(row)) == 1;
    if (kind == LoadRow::point && s.pmkind.at(At(row)) == 1) {
        return z ? "My" : "Mz";
    }
    return z ? "Z" : "Y";
}

std::string_view PointKindText(const ProjectState& s, int row)
{
    return s.pmkind.at(At(row)) == 1 ? "M" : "P";
}

std::string_view PositionHeading(bool relative)
{
    return relative ? "x/L" : "x(m)";
}

bool RowTicksShown(const ProjectState& s)
{
    return s.loadcomb == kBasicLoads;
}

CloseOutcome CloseLoading(Session& session)
{
    ProjectState& s = session.edit();
    const LoadCheck check = ValidateLoads(s, s, s, s.dropped);
    if (!check.message.empty()) {
        session.surroundings().Warn(check.message.text());
    }
    session.Calculate();
    return {check.ok, check.box.text(), check.row};
}

}  // namespace kestrum
