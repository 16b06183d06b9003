#pragma once

// Handlers of the forms `Loading` and `endforce`.

#include "app/session.h"

namespace kestrum {

// Opening a form puts its kind of load in force.
void OpenLoading(Session& session);
void OpenEndForces(Session& session);
// The menu entry of the end forces also makes both ends pinned.
void OpenEndForcesFromMenu(Session& session);

enum class LoadRow : std::uint8_t { axial, uniform, trapezoid, point };

// Some steps on, G, Q1, Q2, G: one for each press, or as far as the one that is pointed at.
void RotateCategory(Session& session, LoadRow kind, int row, int steps = 1);
void ToggleDirection(Session& session, LoadRow kind, int row);   // Z, Y
void TogglePointKind(Session& session, int row);                 // P, M
void TickRow(Session& session, LoadRow kind, int row, bool on);  // part of the basic loads
void TickSelfweight(Session& session, bool on);
void ChoosePointRelative(Session& session, bool relative);  // pmxabsolute, pmxrelative
void ChooseTrapezoidRelative(Session& session, bool relative);
void RemoveChecked(Session& session);  // CmdRemove

// Texts of the buttons. A category that a file invented has none, as it belongs to no combination.
std::string_view CategoryName(double category);
std::string_view DirectionText(const ProjectState& s, LoadRow kind, int row);
std::string_view PointKindText(const ProjectState& s, int row);
std::string_view PositionHeading(bool relative);  // "x(m)", "x/L"

// Check boxes of the rows and the remove button belong to the basic loads.
bool RowTicksShown(const ProjectState& s);

// Whether the form may close; tells the user why not. `box` and `row` name where to put the focus.
struct CloseOutcome {
    bool close = true;
    std::string_view box;
    int row = 0;
};
CloseOutcome CloseLoading(Session& session);

}  // namespace kestrum
