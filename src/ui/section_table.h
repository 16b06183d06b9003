#pragma once

// The sections of the family in hand with what each gives for the member: a list that is searched,
// sorted and chosen from.

#include "ui/binder.h"

class QWidget;

namespace kestrum {

// `name` is that of the list itself.
QWidget* SectionTable(Binder& bind, const QString& name);

}  // namespace kestrum
