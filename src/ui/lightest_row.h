#pragma once

// The search for the lightest section that passes, in the form of a section: where it looks, the
// button, what it has found. It runs beside the window.

#include "ui/binder.h"

class QGroupBox;
class QWidget;

namespace kestrum {

// Among the sections of tables.
QWidget* LightestRow(Binder& bind);

// Over a grid of the plates of the family; null for a family that is not made of plates.
QGroupBox* PlateSearch(Binder& bind, int family);

}  // namespace kestrum
